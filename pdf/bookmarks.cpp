#include "pdf/bookmarks.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "core/numbers.h"
#include "core/text.h"
#include "pdf/annots.h"
#include "pdf/colours.h"
#include "pdf/error.h"
#include "pdf/notation.h"

namespace lm::pdf {
namespace {

constexpr int kBeyond = std::numeric_limits<int>::max() / 2;  // every page number is below

// numbers: l left, b bottom, r right, t top, z zoom.
struct Fit {
  std::string_view name, numbers;
};
constexpr Fit kFits[] = {{"Fit", ""},   {"FitB", ""},   {"FitH", "t"},    {"FitBH", "t"},
                         {"FitV", "l"}, {"FitBV", "l"}, {"FitR", "lbrt"}, {"XYZ", "ltz"}};

const Fit& FindFit(std::string_view name) {
  const auto* found = std::find_if(std::begin(kFits), std::end(kFits), [&](const Fit& fit) {
    return EqualsIgnoreCase(fit.name, name);
  });
  if (found == std::end(kFits)) throw Error("Unknown fit " + std::string(name));
  return *found;
}

struct PageWord {
  std::string_view word;
  bool relative;
  int offset;
};
constexpr PageWord kPageWords[] = {{"", true, 0},
                                   {"#FIRST", false, 1},
                                   {"#LAST", false, kBeyond},
                                   {"#NEXT", true, 1},
                                   {"#PREV", true, -1}};

int Clamped(double number) {
  return static_cast<int>(std::clamp<double>(number, -kBeyond, kBeyond));
}

Destination MakeDestination(const Document& document, const PageRef& page, std::string_view fit,
                            double x, double y, double zoom) {
  return {page, std::string(FindFit(fit).name), document.ToPoints(x), document.ToPoints(y), zoom};
}

}  // namespace

int PageObject(const Document& document, std::size_t page) {
  const std::vector<int>& contents = document.pages[page].contents;
  return contents.empty() ? document.out.ObjectCount() + 2 : contents.front() + 1;
}

PageRef ParsePage(const Document& document, std::string_view page) {
  page = Trim(page);
  for (const PageWord& known : kPageWords)
    if (EqualsIgnoreCase(known.word, page))
      return {known.relative, document.openPage, known.offset};
  const bool relative = page[0] == '+' || page[0] == '-';
  const std::string_view digits = page.substr(relative ? 1 : 0);
  if (!AllDigits(digits)) throw Error("Unknown page " + std::string(page));
  const int number = digits.size() > 9 ? kBeyond : Clamped(Val(digits));
  return {relative, document.openPage, page[0] == '-' ? -number : number};
}

Destination ParseDestination(const Document& document, std::string_view text) {
  std::vector<std::string_view> parts = Split(text, ',');
  if (parts.size() > 5) throw Error("Unknown destination " + std::string(text));
  double numbers[3] = {};
  for (std::size_t i = 2; i < parts.size(); ++i) {
    if (!IsNumeric(parts[i])) throw Error("Unknown destination " + std::string(text));
    numbers[i - 2] = NumericValue(parts[i]);
  }
  return MakeDestination(document, ParsePage(document, parts[0]),
                         parts.size() > 1 ? Trim(parts[1]) : "XYZ", numbers[0], numbers[1],
                         numbers[2]);
}

DestinationWriter::DestinationWriter(const Document& document)
    : document_(document), positions_(document.pages.size(), 1) {
  for (std::size_t i = 0; i < document.order.size(); ++i)
    positions_[document.order[i]] = static_cast<int>(i) + 1;
}

int DestinationWriter::Position(const PageRef& page) const {
  const int from = !page.relative ? 0 : page.page < positions_.size() ? positions_[page.page] : 1;
  return std::clamp(from + page.offset, 1, std::max(1, static_cast<int>(document_.order.size())));
}

std::string DestinationWriter::Write(const Destination& destination) const {
  if (document_.order.empty()) return "";
  const std::size_t index =
      document_.order[static_cast<std::size_t>(Position(destination.page)) - 1];
  const Page& page = document_.pages[index];
  const Fit& fit = FindFit(destination.fit);
  std::string out =
      "[" + std::to_string(PageObject(document_, index)) + " 0 R /" + std::string(fit.name);
  for (const char number : fit.numbers) {
    const double value = number == 'l'   ? destination.x
                         : number == 't' ? page.height - destination.y
                         : number == 'r' ? page.width
                         : number == 'z' ? destination.zoom
                                         : 0;
    out += " " + document_.Points(value);
  }
  return out + "]";
}

int Bookmarks::AddBookmark(std::string_view title, int parent, int page, std::string_view fit,
                           double x, double y, double zoom, std::string_view colour, int style,
                           bool open) {
  if (parent < 0 || parent > Count()) throw Error("Unknown parent of a bookmark");
  const PageRef pageRef =
      page == 0 ? ParsePage(document_, "") : PageRef{false, 0, std::clamp(page, 1, kBeyond)};
  Record record;
  record.title = title;
  record.parent = static_cast<std::size_t>(parent);
  record.destination = MakeDestination(document_, pageRef, fit, x, y, zoom);
  if (!colour.empty()) record.colour = RgbNumbers(document_, StoredColour(colour, document_));
  record.style = style & 3;
  record.open = open;
  records_.push_back(record);
  if (record.style != 0 || !record.colour.empty()) document_.RaiseVersion(1);
  return Count();
}

void Bookmarks::DefineRef(std::string_view name, std::string_view page, double x, double y) {
  if (name.empty()) throw Error("A destination needs a name");
  references_[RefName(document_, name)] =
      MakeDestination(document_, ParsePage(document_, page), "XYZ", x, y, 0);
}

const Destination& Bookmarks::Of(int number) const {
  if (number < 1 || number > Count()) throw Error("Unknown bookmark");
  return records_[static_cast<std::size_t>(number)].destination;
}

std::string Bookmarks::RefName(const Document& document, std::string_view name) {
  return "/" + EscapedName(document.prefix + "REF_" + std::string(name));
}

void Bookmarks::WriteAtEnd(const DestinationWriter& destinations) {
  if (Any()) WriteOutline(destinations);
  if (!references_.empty()) WriteDestinations(destinations);
}

// A parent stands before its children: forwards the neighbours are known, backwards the counts.
void Bookmarks::JoinTree() {
  for (std::size_t i = 1; i < records_.size(); ++i) {
    Record& parent = records_[records_[i].parent];
    records_[i].previous = parent.last;
    (parent.last == 0 ? parent.first : records_[parent.last].next) = i;
    parent.last = i;
    records_[i].object = document_.out.ReserveObject();
  }
  for (std::size_t i = records_.size() - 1; i > 0; --i)
    records_[records_[i].parent].shown += 1 + (records_[i].open ? records_[i].shown : 0);
}

std::string Bookmarks::Reference(std::string_view key, std::size_t record) const {
  if (record == 0) return "";
  return std::string(key) + std::to_string(records_[record].object) + " 0 R ";
}

void Bookmarks::WriteOutline(const DestinationWriter& destinations) {
  outlineObject_ = records_[0].object = document_.out.ReserveObject();
  JoinTree();
  // Viewers take only the sign of the root's count: the outline stands open.
  document_.out.WriteObject(outlineObject_, "<< /Count 1 " +
                                                Reference("/First ", records_[0].first) +
                                                Reference("/Last ", records_[0].last) + ">>");
  for (std::size_t i = 1; i < records_.size(); ++i) {
    const Record& record = records_[i];
    document_.out.BeginObject(record.object);
    std::string body = "<< /Title " + document_.out.Text(record.title) + " /Parent " +
                       std::to_string(records_[record.parent].object) + " 0 R " +
                       Reference("/First ", record.first) + Reference("/Last ", record.last) +
                       Reference("/Prev ", record.previous) + Reference("/Next ", record.next);
    if (record.shown > 0)
      body += "/Count " + std::to_string(record.open ? record.shown : -record.shown) + " ";
    body += "/Dest " + destinations.Write(record.destination) + " ";
    if (!record.colour.empty()) body += "/C [" + record.colour + "] ";
    if (record.style != 0) body += "/F " + std::to_string(record.style) + " ";
    document_.out.Write(body + ">>");
    document_.out.EndObject();
  }
}

void Bookmarks::WriteDestinations(const DestinationWriter& destinations) {
  std::string body = "<<\r";
  for (const auto& [name, destination] : references_)
    body += name + " " + destinations.Write(destination) + "\r";
  destinationsObject_ = document_.out.WriteNewObject(body + ">>");
}

std::string Bookmarks::CatalogEntries() const {
  std::string out;
  if (outlineObject_ != 0) out += "/Outlines " + std::to_string(outlineObject_) + " 0 R ";
  if (destinationsObject_ != 0) out += "/Dests " + std::to_string(destinationsObject_) + " 0 R ";
  return out;
}

}  // namespace lm::pdf
