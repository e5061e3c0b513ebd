// What one can press, open or fill in: links, notes, bookmarks, form fields, attachments, scripts,
// page labels.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "pdf/bookmarks.h"
#include "pdf/document.h"
#include "pdf/events.h"
#include "pdf/fields.h"
#include "pdf/fieldtexts.h"

namespace lm::pdf {

class Annotations {
 public:
  Annotations(Document& document, Fonts& fonts)
      : document_(document),
        fonts_(fonts),
        texts_(document, fonts),
        bookmarks_(document),
        fields_(document, fonts),
        events_(document) {}

  // Puts a file, read whole, into the document; see clsPDFCreator::AddAttach. Throws Error 53 when
  // it is not there, 5 when it is larger than kAttachmentCap, and under PDF/A.
  void AddAttach(std::string_view path, std::string_view description);

  // A link on the box of the last drawing. target, its prefix in any case:
  //   "http:", "https:", "mailto:"  that address
  //   "file:NAME"                   another document
  //   "ref:NAME"                    a named destination, defined before or after
  //   "script:TEXT"                 a script
  //   "layer:ON(A,B)OFF(C)TOGGLE(D)" layers by name
  //   "page:PAGE[,FIT[,x[,y[,zoom]]]]" a page, as DefineRef and AddBookmark take them
  //   "bookmark:N"                  where that bookmark leads, "bookmark:@" the last one
  // borderWidth in user units. highlight 0 none, 1 inverted, 2 outline, 3 pushed; others leave it
  // to the viewer. Throws Error without an open page and for a target it does not
  // understand, and under PDF/A for a script and for layers.
  void LinkTo(std::string_view target, double borderWidth, int highlight);

  // See clsPDFCreator::DrawNote. alignment of a free text: 0 left, 1 centre, 2 right. A stamp
  // whose name is not one of the format's is printed as it is told. Throws Error without an open
  // page, for an unknown type, a box without size, an empty stamp and a colour that is none.
  void DrawNote(int type, std::string_view text, double x, double y, double width, double height,
                std::string_view title, std::string_view colour, int alignment);

  // How viewers number pages from the open one on: kind 0 the prefix alone, 1 "1", 2 "I", 3 "i",
  // 4 "A", 5 "a"; start at 1 or above, 65535 goes without. Other kinds are ignored. Throws Error
  // without an open page.
  void SetLabel(int kind, std::string_view prefix, int start);

  int AddBookmark(std::string_view title, int parent, int page, std::string_view fit, double x,
                  double y, double zoom, std::string_view colour, int style, bool open) {
    return bookmarks_.AddBookmark(title, parent, page, fit, x, y, zoom, colour, style, open);
  }
  void DefineRef(std::string_view name, std::string_view page, double x, double y) {
    bookmarks_.DefineRef(name, page, x, y);
  }
  void DrawField(int type, std::string_view name, double x, double y, double width, double height,
                 std::string_view value, std::string_view toolTip, int flags,
                 std::string_view borderColour, std::string_view backColour, double borderWidth,
                 int borderStyle, std::string_view items) {
    fields_.DrawField(type, name, x, y, width, height, value, toolTip, flags, borderColour,
                      backColour, borderWidth, borderStyle, items);
  }
  void OnDocEvent(std::string_view kind, std::string_view script) {
    events_.OnDocEvent(kind, script);
  }
  void OnFieldEvent(std::string_view kind, std::string_view script) {
    fields_.OnFieldEvent(kind, script);
  }
  void OnPageEvent(std::string_view kind, std::string_view script) {
    events_.OnPageEvent(kind, script);
  }
  void SetPageTransition(int kind, double duration, double shownFor) {
    events_.SetPageTransition(kind, duration, shownFor);
  }

  bool HasBookmarks() const { return bookmarks_.Any(); }

  void AtPageBegin();  // a page, new or written before, is open
  // Writes scripts and fields of the page in hand; the next object must be its contents stream,
  // and the one after it the page. Returns what belongs into the page's dictionary.
  std::string AtPageEnd();
  // Once all pages are written, before the fonts' dictionary: outline, destinations, scripts,
  // links into the document.
  void WriteAtEnd();
  // Entries of the catalog; call while the catalog's object is open.
  std::string CatalogEntries() const;

 private:
  struct Attachment {
    std::string name;
    int object = 0;  // that tells its name and where its bytes are
  };
  struct Label {
    int kind = 0;
    std::string prefix;
    int start = 1;
  };
  // A link whose page gets its number later.
  struct PendingLink {
    int object = 0;
    std::string begin;
    Destination destination;
  };

  void WriteLink(const std::string& begin, std::string_view target);
  std::string NameEntries() const;
  std::string LabelEntries() const;

  std::string FreeTextLook(const PageBox& box, std::string_view text, std::string_view ground,
                           int alignment) const;
  std::string StampLook(const PageBox& box, std::string_view words, std::string_view colour) const;
  std::string SheetLook(const PageBox& box, std::string_view colour) const;
  std::string FramedLook(const Frame& frame, std::string_view text) const;

  Document& document_;
  Fonts& fonts_;
  FieldTexts texts_;
  Bookmarks bookmarks_;
  Fields fields_;
  Events events_;
  std::map<std::string, Attachment> attachments_;  // by the bytes of the name in the file
  std::map<std::size_t, Label> labels_;            // by index of the page
  std::vector<PendingLink> pendingLinks_;
};

constexpr std::size_t kAttachmentCap = std::size_t{256} << 20;  // bytes

}  // namespace lm::pdf
