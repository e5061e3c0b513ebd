// Places in the document that one can jump to: bookmarks (the outline), named destinations, and
// the destinations of links. A place may name a page that is not there yet, or that moves when
// another is put before it, so every place is resolved at the end of the document.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "pdf/document.h"

namespace lm::pdf {

// A page as it was named: by position (from 1), or relative to the page it was named on.
struct PageRef {
  bool relative = false;
  std::size_t page = 0;  // of a relative one: index into Document::pages
  int offset = 1;        // position, or the step from that page
};

// x and y in points from the page's top left; zoom a factor, 0 as it is.
struct Destination {
  PageRef page;
  std::string fit = "XYZ";
  double x = 0, y = 0, zoom = 0;
};

// The page's object: the one after its first contents stream. For the page that is still open,
// call it when the next object to be written is that stream.
int PageObject(const Document& document, std::size_t page);

// "" the page in hand, "3" that position, "+1" and "-1" relative to the page in hand, "#FIRST",
// "#LAST", "#NEXT", "#PREV". Throws Error for anything else.
PageRef ParsePage(const Document& document, std::string_view page);

// "PAGE[,FIT[,x[,y[,zoom]]]]", x and y in user units. Throws Error for nonsense.
Destination ParseDestination(const Document& document, std::string_view text);

// "[n 0 R /XYZ 10 20 0]" of destinations, once all pages are written.
class DestinationWriter {
 public:
  explicit DestinationWriter(const Document& document);
  // "" when the document has no pages.
  std::string Write(const Destination& destination) const;
  // From 1, inside the document: a place beyond the last page is on the last one.
  int Position(const PageRef& page) const;

 private:
  const Document& document_;
  std::vector<int> positions_;  // of each page, from 1
};

class Bookmarks {
 public:
  explicit Bookmarks(Document& document) : document_(document), records_(1) {}

  // See clsPDFCreator::AddBookmark. fit also takes "FitBH" and "FitBV"; "FitR" shows from x, y to
  // the page's lower right corner. A page beyond the last is the last, a negative one the first.
  // Throws Error for an unknown parent, fit or colour.
  int AddBookmark(std::string_view title, int parent, int page, std::string_view fit, double x,
                  double y, double zoom, std::string_view colour, int style, bool open);

  // See clsPDFCreator::DefineRef; the later definition of a name counts. Throws Error for an empty
  // name and for a page that ParsePage does not know.
  void DefineRef(std::string_view name, std::string_view page, double x, double y);

  bool Any() const { return records_.size() > 1; }
  int Count() const { return static_cast<int>(records_.size()) - 1; }
  // Throws Error when there is no such bookmark.
  const Destination& Of(int number) const;

  // The name object of a named destination, with the document's prefix.
  static std::string RefName(const Document& document, std::string_view name);

  void WriteAtEnd(const DestinationWriter& destinations);
  std::string CatalogEntries() const;  // /Outlines and /Dests

 private:
  struct Record {
    std::string title;
    std::size_t parent = 0;
    Destination destination;
    std::string colour;  // three numbers, or ""
    int style = 0;
    bool open = true;
    // Of the tree, known at the end; 0 none.
    std::size_t first = 0, last = 0, previous = 0, next = 0;
    int shown = 0;  // entries below it that are seen when it is open
    int object = 0;
  };

  void WriteOutline(const DestinationWriter& destinations);
  void JoinTree();
  void WriteDestinations(const DestinationWriter& destinations);
  std::string Reference(std::string_view key, std::size_t record) const;

  Document& document_;
  std::vector<Record> records_;                    // by number; 0 is the root
  std::map<std::string, Destination> references_;  // by their names in the file
  int outlineObject_ = 0;
  int destinationsObject_ = 0;
};

}  // namespace lm::pdf
