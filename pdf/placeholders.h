// Place holders: room on a page for a text that is known when the document ends.
//
// Pages are on disk by then, so each place holder is a small form whose object number is reserved
// when it is drawn and whose contents are written at the end, with the font, size, spacings and
// colour that were in force at its drawing. Its text is the one last set for its name. In every
// such text "#PAGES" stands for the number of pages and "#PAGE" for the number of the page it is
// on, both after all insertions and swaps; the names "#PAGES" and "#PAGE" need no setting. A name
// that was never set prints nothing. In an object that is drawn on many pages, "#PAGE" is the page
// that was open last when the place holder was drawn; before any page it prints nothing.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "pdf/document.h"

namespace lm::pdf {

class LineWriter;

class PlaceHolders {
 public:
  PlaceHolders(Document& document, LineWriter& lines) : document_(document), lines_(lines) {}

  // y is the baseline, width the room for the alignment by flags: those of a text box, one line.
  void Draw(std::string_view name, double x, double y, double width, int flags);
  void Set(std::string_view name, std::string_view text);
  void WriteAtEnd(int pageCount);

 private:
  static constexpr std::string_view kPages = "#PAGES";
  static constexpr std::string_view kPage = "#PAGE";
  static constexpr std::size_t kNoPage = static_cast<std::size_t>(-1);
  struct Place {
    std::string name;
    int object = 0;
    double width = 0;  // points
    int flags = 0;
    std::size_t page = kNoPage;  // index into Document::pages
    DrawState state{};
  };

  std::string FinalText(const std::string& name, const std::string& pageCount,
                        const std::string& pageNumber) const;
  void Write(const Place& place, std::string_view text);

  Document& document_;
  LineWriter& lines_;
  std::vector<Place> places_;
  std::map<std::string, std::string, std::less<>> texts_;  // by name
};

}  // namespace lm::pdf
