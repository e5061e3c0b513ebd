// A PDF writer, and a reader of pages to draw on. One instance writes one file: BeginDoc, pages,
// EndDoc.
//
// Units: user units by SetScale (the documents of this program choose millimetres), origin at the
// top left, Y downwards. Angles in degrees: of DrawArc and texts counter-clockwise as seen, of
// AxisRotation and BeginSpace clockwise as seen, for the page matrix is turned over. Texts are
// Windows-1252 bytes, or bytes of the font's code page. Colours are texts, see SetColorFill.
// Out-of-range settings are ignored; an operation that fails leaves the document as it was, keeps
// its reason in ErrDescription, and the writer goes on.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "core/platform.h"
#include "pdf/document.h"

namespace lm {

namespace pdf {
class Annotations;
class FileCache;
class Fonts;
class Graphics;
class Images;
class Import;
class Pages;
class Texts;
struct FileInfo;
}  // namespace pdf

class clsPDFCreator {
 public:
  // The clock tells the moment of creation.
  explicit clsPDFCreator(ClockPort& clock);
  ~clsPDFCreator();
  clsPDFCreator(const clsPDFCreator&) = delete;
  clsPDFCreator& operator=(const clsPDFCreator&) = delete;

  // Closes the file where it is, and sets everything back to the beginning, the settings too.
  void Abort();
  void AddAttach(std::string_view path, std::string_view description = "");
  // page 0 is the open page; fit "Fit", "FitB", "FitH", "FitV", "FitR" or "XYZ" (with x, y in user
  // units, zoom as a factor, 0 as it is). parent is a number that AddBookmark returned, 0 the root.
  // colour may be empty; style 1 italic, 2 bold. Returns the bookmark's number, 0 on failure.
  int AddBookmark(std::string_view title, int parent = 0, int page = 0,
                  std::string_view fit = "XYZ", double x = 0, double y = 0, double zoom = 0,
                  std::string_view colour = "", int style = 0, bool open = true);
  std::string AddFont(std::string_view path, std::string_view name = "", bool embed = true,
                      int codePage = 0);
  // kind 0 axial (x1 y1 x2 y2), 1 radial (with r1 r2).
  void AddGradient(std::string_view name, int kind, std::string_view colour1,
                   std::string_view colour2, double x1, double y1, double x2, double y2,
                   double r1 = 0, double r2 = 0, double exponent = 1, int extend = 3);
  // Reads a picture without drawing it; returns its resource name, "" on failure.
  std::string AddImage(std::string_view file, std::int32_t maskColour = -1);
  void AddImagePattern(std::string_view name, std::string_view file, double width, double height);
  void AxisRotation(double angle);
  void AxisScaling(double x, double y);
  void AxisSkewing(double a, double b);
  void AxisTranslation(double x, double y);
  // Replaces a file of that name, once it can be opened. A document that is still open is given up.
  // The settings stay; fonts, colours, patterns, objects and layers are the document's own.
  std::string BeginDoc(std::string_view fileName = "");
  // Files that ImportPage reads are parsed once for all writers that share a cache.
  void ShareFiles(std::shared_ptr<pdf::FileCache> cache);
  void BeginConditionalLayer(std::string_view names, int kind);
  void BeginLayer(std::string_view name, bool viewOn = true, bool printOn = true,
                  std::string_view usage = "");
  // flag: the pages that get it by themselves, 7 all, 4 odd, 2 even, 1 the first, 0 none; 16 more:
  // at their end.
  void BeginObject(std::string_view name, int flag = 0);
  void BeginOnPage(int position);
  int BeginPage(int position = 0);
  void BeginSpace(double x, double y, double scaleX = 1, double scaleY = 1, double angle = 0);
  void BeginTable(double x, double y, std::string_view columnWidths, double rowHeight,
                  int borderMask = 15);
  void BeginTiling(std::string_view name, double width, double height, double stepX = 0,
                   double stepY = 0, bool coloured = true);
  void DefineRef(std::string_view name, std::string_view page = "", double x = 0, double y = 0);
  void DrawArc(double x, double y, double rx, double ry, double startAngle, double endAngle,
               int mode = 0, bool pie = false);
  // kind 0 Code 128, 1 Code 39, 2 EAN-13, 3 EAN-8, 4 Interleaved 2 of 5, 5 Standard 2 of 5.
  void DrawBarCode(int kind, std::string_view code, double x, double y, double width, double height,
                   bool withText = true);
  void DrawCircle(double x, double y, double radius, int mode = 0);
  void DrawCurve(double x1, double y1, double x2, double y2, double x3, double y3, int form = 0);
  void DrawEllipse(double x, double y, double rx, double ry, int mode = 0);
  // type 0 text, 1 button, 2 combo, 3 list, 4 check, 5 radio; items and value of a list parted by
  // "|".
  void DrawField(int type, std::string_view name, double x, double y, double width, double height,
                 std::string_view value = "", std::string_view toolTip = "", int flags = 0,
                 std::string_view borderColour = "", std::string_view backColour = "",
                 double borderWidth = 1, int borderStyle = 0, std::string_view items = "");
  // mode 1 keeps the picture's ratio within the box. maskColour is a colour number that becomes
  // transparent, 0 and below none, 16777216 black. transparency in percent.
  void DrawImage(std::string_view file, double x, double y, double width = 0, double height = 0,
                 int mode = 0, std::int32_t maskColour = -1, double transparency = 0);
  void DrawLine(double x1, double y1, double x2, double y2, double width = -1);
  void DrawLineTo(double x, double y);
  // type 0 free text, 1 text note, 2 stamp (text is its name).
  void DrawNote(int type, std::string_view text, double x, double y, double width, double height,
                std::string_view title = "", std::string_view colour = "", int alignment = 0);
  void DrawObject(std::string_view name);
  // Room for a text that is known at EndDoc: "#PAGES" is the number of pages, "#PAGE" this page's.
  void DrawPlaceHolder(std::string_view name, double x, double y, double width, int flags = 0);
  void SetPlaceHolder(std::string_view name, std::string_view text);
  void DrawPolygon(std::string_view points, int mode = 2);
  void DrawPolyline(std::string_view points, int mode = 0);
  void DrawRect(double x, double y, double width, double height, int mode = 0, int borders = 15,
                double radius = 0);
  void DrawText(double x, double y, std::string_view text, int flags = 0);
  void DrawTextBox(double x, double y, double width, double height, std::string_view text,
                   int flags = 0, int rectMode = 1, std::string* leftover = nullptr);
  void DrawTextCircular(double x, double y, double radius, std::string_view text, double startAngle,
                        int flags = 0);
  void DrawTextRich(double x, double y, double width, double height, std::string_view text,
                    int flags = 0);
  void EndConditionalLayer();
  void EndDoc();
  void EndLayer();
  void EndObject();
  void EndOnPage();
  void EndPage();
  void EndSpace();
  void EndTable();
  void EndTiling();
  const std::string& ErrDescription() const { return errDescription_; }
  int ErrNumber() const { return errNumber_; }
  const std::string& ErrSource() const { return errSource_; }
  std::int64_t FileSize() const;
  // The page's contents, decoded; "" with the reason in ErrDescription.
  std::string GetContentPage(std::string_view file, int page);
  int GetInfo(std::string_view file, pdf::FileInfo& information);  // record number, 0 on failure
  bool GetInfoPage(std::string_view file, int page, double& width, double& height,
                   int& rotate);  // points
  int GetPage() const;
  double GetPageHeight(bool userUnits = true) const;
  double GetPageWidth(bool userUnits = true) const;
  int GetPages() const;
  double GetTextHeight() const;
  double GetTextWidth(std::string_view text) const;
  double GetX() const;
  double GetY() const;
  void ImportPage(std::string_view file, int page, double x = 0, double y = 0, double width = 0,
                  double height = 0);
  void LinkTo(std::string_view target, double borderWidth = 0, int highlight = 1);
  void MoveTo(double x, double y);
  void OnDocEvent(std::string_view kind, std::string_view script);
  void OnFieldEvent(std::string_view kind, std::string_view script);
  void OnPageEvent(std::string_view kind, std::string_view script);
  void OpenDoc(const std::function<void(std::string_view file)>& open);
  void SetAlpha(double percent);
  void SetAlphaFill(double percent);
  void SetAlphaLine(double percent);
  void SetBlend(std::string_view mode);
  void SetBoxStyle(double lineFactor, double indent, double left, double top, double right,
                   double bottom, int borderMask = 15, double radius = 0);
  void SetCharSpacing(double points);
  void SetColorFill(std::string_view colour);
  void SetColorLine(std::string_view colour);
  void SetColorText(std::string_view colour);
  void SetCompression(int contents, int images, int fonts);
  void SetDash(std::string_view name, double phase = 0);
  void SetDocProperty(std::string_view title, std::string_view subject = "",
                      std::string_view author = "", std::string_view creator = "",
                      std::string_view producer = "", std::string_view keywords = "");
  void SetFont(std::string_view name, double size = 0, int style = 0, int codePage = 0);
  void SetFontSize(double points);
  void SetLabel(int kind, std::string_view prefix = "", int start = 65535);
  void SetLineStyle(int cap, int join, double miter);
  void SetLineWidth(double width);
  void SetMargins(double left, double right, double top, double bottom, bool clip = false);
  void SetMemoryUsage(int step);
  void SetPageTransition(int kind, double duration = 1, double shownFor = 0);
  void SetPageView(int orientation);
  void SetPaperSize(int code, double width = 0, double height = 0);
  void SetPDFa(bool on);
  void SetPrecision(int decimals);
  void SetProtection(int flags, std::string_view userPassword, std::string_view ownerPassword);
  void SetScale(int kind, double factor = 1);
  void SetTextHorizontalScaling(double percent);
  void SetTextMode(int mode);
  void SetTextTag(std::string_view tag, std::string_view fontName, double size, int style,
                  std::string_view colour);
  void SetViewerPreferences(std::int32_t flags);
  void SetWordSpacing(double points);
  void SetXY(double x, double y);
  void SwapPages(int a, int b);
  void TableCell(std::string_view text, int flags = 0, int span = 1);
  void TableRowHeight(double height);
  std::string Version() const;
  void WriteText(std::string_view text, int mode = 0, double percent = 60);
  void WriteTextLn(std::string_view text);

 private:
  template <typename Act>
  auto Trap(const char* method, std::string_view detail, Act act) -> decltype(act());
  template <typename Act>
  auto Trap(const char* method, Act act) -> decltype(act());
  void Record(const char* method, std::string_view detail, int number, std::string_view reason);
  void Build();
  void Restart();

  ClockPort& clock_;
  std::shared_ptr<pdf::FileCache> fileCache_;
  std::unique_ptr<pdf::Document> document_;
  std::unique_ptr<pdf::Pages> pages_;
  std::unique_ptr<pdf::Fonts> fonts_;
  std::unique_ptr<pdf::Texts> texts_;
  std::unique_ptr<pdf::Graphics> graphics_;
  std::unique_ptr<pdf::Images> images_;
  std::unique_ptr<pdf::Annotations> annotations_;
  std::unique_ptr<pdf::Import> import_;
  int errNumber_ = 0;
  std::string errSource_;
  std::string errDescription_;
};

}  // namespace lm
