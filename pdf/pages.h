// The document's frame: the file's beginning and end, its pages, and the settings that belong to no
// other part. The methods stand for the public operations of the same names in clsPDFCreator.h.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "pdf/annotations.h"
#include "pdf/document.h"
#include "pdf/graphics.h"
#include "pdf/metadata.h"
#include "pdf/texts.h"

namespace lm::pdf {

struct Protection {
  int flags = 0;
  std::string userPassword, ownerPassword;
};

// What the caller set, apart from the state of drawing: it outlives a document.
struct Settings {
  Information information;
  double left = 0, right = 0, top = 0, bottom = 0;  // margins, points
  bool clip = false;
  int view = 0;
  std::int32_t viewerPreferences = 8192;
  int memoryStep = 1;
  std::optional<Protection> protection;
  // Only in what AllSettings gives; they stand in the Document otherwise.
  double scale = 1;
  int precision = 3;
  double pageWidth = 0, pageHeight = 0;  // points
  bool pdfA = false;
  std::array<int, 3> compression{};
};

class Pages {
 public:
  // now: the moment of creation.
  Pages(Document& document, Texts& texts, Graphics& graphics, Annotations& annotations, Date now);

  // A document was begun here, and may have ended: the next one needs everything anew.
  bool Used() const { return document_.out.ObjectCount() > 0; }
  Settings AllSettings() const;
  // For a document that is not begun yet; the moment of creation stays its own.
  void TakeSettings(const Settings& settings);

  // An empty name makes one of "~", six hexadecimal digits and ".pdf". Throws Error 75 when no file
  // of that name could be made or replaced. One that is there stays until EndDoc.
  std::string BeginDoc(std::string_view fileName);
  // The file is in its place, or the document is given up: Error 75 when the disk did not take it.
  void EndDoc();
  void OpenDoc(const std::function<void(std::string_view file)>& open);
  std::int64_t FileSize() const { return document_.out.Size(); }
  std::string Version() const { return "2020.1"; }

  // A position of 0, or behind the last page, appends; returns the page's position.
  int BeginPage(int position);
  void EndPage();
  // The page keeps its size and what was drawn; drawing goes on where its contents ended.
  void BeginOnPage(int position);
  void EndOnPage();
  void SwapPages(int a, int b);
  int GetPage() const { return position_; }  // of the open or last page, from 1; 0 before any
  int GetPages() const { return static_cast<int>(document_.pages.size()); }
  double GetPageHeight(bool userUnits) const;
  double GetPageWidth(bool userUnits) const;

  double GetX() const { return document_.ToUnits(document_.state.x); }
  double GetY() const { return document_.ToUnits(document_.state.y); }

  // What follows ignores values outside its range.
  void SetCompression(int contents, int images, int fonts);
  // Empty author, creator or producer leave what stands there.
  void SetDocProperty(std::string_view title, std::string_view subject, std::string_view author,
                      std::string_view creator, std::string_view producer,
                      std::string_view keywords);
  void SetMargins(double left, double right, double top, double bottom, bool clip);
  void SetMemoryUsage(int step);      // 1 to 10
  void SetPageView(int orientation);  // 0 to 3; with no page open for all pages to come
  void SetPaperSize(int code, double width, double height);
  // Switched on before anything was written into the file, without protection; Error otherwise.
  void SetPDFa(bool on);
  void SetPrecision(int decimals);  // 0 to 6
  // Before anything was written into the file; Error afterwards, and under PDF/A.
  void SetProtection(int flags, std::string_view userPassword, std::string_view ownerPassword);
  void SetScale(int kind, double factor);
  void SetViewerPreferences(std::int32_t flags);

 private:
  Page& OpenPage() { return document_.pages[document_.openPage]; }
  static constexpr int kReservedObjects = 3;  // the page tree, its resources, the procedure sets

  void RequireDocument() const;
  bool HasContents() const;
  std::size_t IndexAt(int position) const;  // throws Error where there is no page
  PageFlow Flow();
  void CloseWhatIsOpen();
  void ResetCursor();
  void ReapplyTextState();
  std::string ContentsPrefix() const;
  int WriteContents();
  void Encrypt();
  std::string DocumentId() const;  // 16 bytes

  // EndDoc, step by step; numbers are those of the objects written.
  int WriteEncryption();
  int WriteMetadata();
  void WriteResources();
  void WritePages();
  int WriteOutputIntent();
  int WriteCatalog(int metadata, int outputIntent);
  std::string ViewerEntries();
  int WriteInformation();
  void WriteTrailer(int catalog, int information, int encryption);

  Document& document_;
  Texts& texts_;
  Graphics& graphics_;
  Annotations& annotations_;
  Settings settings_;
  std::string fileName_;
  bool finished_ = false;  // the file is in its place
  bool pageOpen_ = false;
  bool onPage_ = false;  // a written page is open again
  int position_ = 0;
  double nextWidth_ = 0, nextHeight_ = 0;  // the paper, while a written page is open again
};

}  // namespace lm::pdf
