#include "documents/invoiceitems.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <system_error>

#include "core/files.h"
#include "core/format.h"
#include "core/messagebox.h"
#include "core/text.h"

namespace lm {
namespace {

struct NamedBits {
  std::string_view name;
  int bits;
};

// Attributes whose text ignores case. Texts that no table knows have no bits.
constexpr NamedBits kAcross[] = {{"LEFT", 1}, {"CENTRE", 4}, {"CENTER", 4}, {"RIGHT", 2}};
constexpr NamedBits kDown[] = {{"TOP", 8}, {"MIDDLE", 32}, {"BOTTOM", 16}};
constexpr NamedBits kStyles[] = {
    {"fontbold", 1}, {"fontitalic", 2}, {"fontunderline", 4}, {"fontstrikethrough", 16}};

template <std::size_t N>
int BitsOf(const NamedBits (&table)[N], std::string_view text) {
  for (const NamedBits& entry : table)
    if (EqualsIgnoreCase(entry.name, text)) return entry.bits;
  return 0;
}

bool IsTrue(std::string_view text) { return EqualsIgnoreCase(text, "TRUE"); }

// Where a gradient runs, as shares of the box: from one corner to another.
struct Course {
  std::string_view name;
  double x1, y1, x2, y2;
};
constexpr Course kCourses[] = {{"ACROSS", 0, 0, 1, 0},
                               {"DOWN", 0, 0, 0, 1},
                               {"DIAGONAL DOWN", 0, 0, 1, 1},
                               {"DIAGONAL UP", 0, 1, 1, 0}};

// What stands for the two families that every system has as files of its own: base fonts keep the
// documents small.
struct Substitute {
  std::string_view family, base;
};
constexpr Substitute kSubstitutes[] = {{"VERDANA", "Arial"}, {"GEORGIA", "Times New Roman"}};

// Paint modes and borders of the writer.
constexpr int kStroke = 0;
constexpr int kFillAndStroke = 4;
constexpr int kFill = 5;
constexpr int kAllBorders = 255;
constexpr int kNoRectangle = 1;
constexpr int kAlignedAcross = 7;  // the part of an alignment
constexpr int kMiddle = 32, kBottom = 16;
constexpr int kKeepRatio = 1;
constexpr double kPlainScaling = 100;

// "@red;green;blue" of blue * 65536 + green * 256 + red.
std::string WriterColour(const std::string& number) {
  const auto colour = static_cast<std::uint32_t>(ValInt(number)) & 0xFFFFFFu;
  return "@" + PlainText(static_cast<int>(colour & 0xFF)) + ";" +
         PlainText(static_cast<int>(colour >> 8 & 0xFF)) + ";" +
         PlainText(static_cast<int>(colour >> 16));
}

bool Says(const TemplateItem& item, std::string_view attribute, std::string_view value) {
  const std::string* text = item.Find(attribute);
  return text && EqualsIgnoreCase(*text, value);
}

bool AreAbreast(const ItemBox& one, const ItemBox& other) {
  constexpr double kTouching = 0.01;
  return one.left < other.left + other.width - kTouching &&
         other.left < one.left + one.width - kTouching;
}

// Below the texts that stand above it in its column, by so many millimetres at least.
double TopBelow(const TemplateItem& item, const ItemBox& box, const SectionGrowth& growth) {
  double top = box.top;
  const double distance = item.Number("below");
  for (const ItemBox& text : growth.texts)
    if (AreAbreast(text, box)) top = std::max(top, text.Bottom() + distance);
  return top;
}

}  // namespace

double SectionGrowth::TextBottom() const {
  double lowest = 0;
  for (const ItemBox& text : texts) lowest = std::max(lowest, text.Bottom());
  return lowest;
}

bool FlowsOverPages(const TemplateItem& item) { return Says(item, "allowexpansion", "PAGES"); }
bool StretchesWithSection(const TemplateItem& item) { return Says(item, "stretch", "SECTION"); }

// Where it lies

std::optional<LaidItem> InvoiceItems::Lay(const TemplateItem& item, Single y,
                                          SectionGrowth& growth) {
  const std::string& kind = item.Text("objectsubtype");
  double top = item.Number("top");
  LaidItem laid;
  laid.item = &item;
  ItemBox& box = laid.box;
  box = {item.Number("left"), top, item.Number("width"), item.Number("height")};
  if (kind == "T" || kind == "S") box.radius = item.Number("cornerradius");
  growth.bottom = std::max(growth.bottom, top);

  const std::string text = kind == "T" ? MergedText(item) : std::string();
  if (Hides(item, kind, text)) return std::nullopt;
  const double height = box.height;
  if (kind == "T") {
    if (item.Find("below")) top = TopBelow(item, box, growth);
    LayText(laid, text);
    growth.grown |= box.height > height || top > box.top;
    box.top = top;
    growth.texts.push_back(box);
  } else if (StretchesWithSection(item)) {
    box.height += growth.stretch;
  }
  growth.bottom = std::max(growth.bottom, box.Bottom());
  box.top += y;
  return laid;
}

bool InvoiceItems::Hides(const TemplateItem& item, const std::string& kind,
                         const std::string& text) const {
  if (kind == "T") {
    const std::string& hideIfEmpty = item.Text("hideifempty");
    const bool mayHide = IsTrue(hideIfEmpty) || Val(hideIfEmpty) != 0;
    if (mayHide && Trim(text).empty()) return true;
  }
  const std::string* with = item.Find("shownwith");
  return with && Trim(fields_.Merge(*with, context_)).empty();
}

std::string InvoiceItems::MergedText(const TemplateItem& item) const {
  // The lines of an old file's note may be parted by line feeds alone, at which no line ends here.
  const std::string text =
      WithCrLf(fields_.Merge(Replace(item.Text("caption"), "\n", "\r\n"), context_));
  return Says(item, "emptylines", "CLOSE") ? ClosedUp(text) : text;
}

void InvoiceItems::ChooseFont(const TemplateItem& item, double size) {
  std::string family = item.Text("fontname");
  for (const Substitute& substitute : kSubstitutes)
    if (EqualsIgnoreCase(family, substitute.family)) family = substitute.base;
  int style = 0;
  for (const NamedBits& bit : kStyles)
    if (IsTrue(item.Text(bit.name))) style += bit.bits;
  pdf_.SetFont(family, size, style, 0);
  pdf_.SetColorText(WriterColour(item.Text("textcolor")));
}

void InvoiceItems::LayText(LaidItem& laid, const std::string& merged) {
  const TemplateItem& item = *laid.item;
  ItemBox& box = laid.box;
  laid.fontSize = item.Number("fontsize");
  ChooseFont(item, laid.fontSize);
  const std::string& expansion = item.Text("allowexpansion");
  laid.alignment = BitsOf(kAcross, item.Text("halign")) + BitsOf(kDown, item.Text("valign"));
  laid.text = InCase(merged, item.Text("textcase"));
  if (EqualsIgnoreCase(expansion, "DOWN")) {
    box.height = std::max(box.height, NeededHeight(laid.text, box.width));
  } else if (FlowsOverPages(item)) {
    const bool one = FitsOnALine(laid);
    if (!one) laid.text = WithLongWordsBroken(laid.text, box.width, WidthOfText());
    box.height = std::max(box.height,
                          one ? pdf_.GetTextHeight() : pdf_.GetTextBoxHeight(box.width, laid.text));
  } else if (Says(item, "fit", "SHRINK") && !FitsOnALine(laid)) {
    Shrink(laid);
  }
}

// Most texts do, and need no more measuring.
bool InvoiceItems::FitsOnALine(const LaidItem& laid) const {
  const bool isHighEnough = FlowsOverPages(*laid.item) || pdf_.GetTextHeight() <= laid.box.height;
  return isHighEnough && laid.text.find_first_of("\r\n") == std::string::npos &&
         pdf_.GetTextWidth(laid.text) <= laid.box.width;
}

// The largest size at which the whole text has room. Words are broken only where the letters would
// become much smaller otherwise.
void InvoiceItems::Shrink(LaidItem& laid) {
  constexpr double kSmallest = 1;         // points
  constexpr double kBreakingFrom = 0.75;  // of the size that the template asks for
  constexpr double kTolerance = 0.001;    // millimetres
  const double full = laid.fontSize;
  const TextMeasure widthOf = WidthOfText();
  for (double size = full, smaller = full;; size = smaller) {
    smaller = size - std::max(0.25, size / 40);
    if (size < full) ChooseFont(*laid.item, size);
    std::string text = laid.text;
    if (size <= full * kBreakingFrom) text = WithLongWordsBroken(text, laid.box.width, widthOf);
    const bool fits = WidestWord(text, widthOf) <= laid.box.width &&
                      pdf_.GetTextBoxHeight(laid.box.width, text) <= laid.box.height + kTolerance;
    if (!fits && smaller >= kSmallest) continue;
    laid.fontSize = size;
    laid.text = std::move(text);
    return;
  }
}

TextMeasure InvoiceItems::WidthOfText() const {
  return [this](std::string_view text) { return pdf_.GetTextWidth(text); };
}

// The lines of the text times their height: an estimate without spacing and padding.
double InvoiceItems::NeededHeight(std::string_view text, double width) const {
  int lines = 0;
  const std::string unbroken = RemoveAny(text, "\n");
  const double blank = pdf_.GetTextWidth(" ");
  for (const std::string_view paragraph : Split(unbroken, '\r')) {
    ++lines;
    double used = 0;
    for (const std::string_view word : Split(paragraph, ' ')) {
      const double length = pdf_.GetTextWidth(word);
      if (used > 0 && used + length > width) {
        ++lines;
        used = 0;
      }
      used += length + blank;
    }
  }
  return lines * pdf_.GetTextHeight();
}

// How it is drawn

void InvoiceItems::ChooseFontOf(const LaidItem& laid) {
  if (laid.fontSize > 0) ChooseFont(*laid.item, laid.fontSize);
}

std::string InvoiceItems::Draw(const LaidItem& laid, double foot) {
  const TemplateItem& item = *laid.item;
  const std::string& kind = item.Text("objectsubtype");
  std::string rest;
  if (kind == "T") rest = DrawTextItem(laid, foot);
  if (kind == "S") DrawShape(laid);
  if (kind == "P") DrawPicture(laid);
  Link(item);
  return rest;
}

std::string InvoiceItems::AddFill(const LaidItem& laid) {
  const TemplateItem& item = *laid.item;
  const ItemBox& box = laid.box;
  const std::string first = WriterColour(item.Text("fillcolor1"));
  const std::string second = WriterColour(item.Text("fillcolor2"));
  const std::string& gradient = item.Text("gradient");
  const auto course = std::ranges::find_if(
      kCourses, [&](const Course& entry) { return EqualsIgnoreCase(entry.name, gradient); });
  const bool radial = EqualsIgnoreCase(gradient, "RADIAL");
  if (course == std::end(kCourses) && !radial) return first;

  const std::string name = "ID" + Format(gradients_++, "00000000");
  if (radial) {
    const double x = box.left + box.width / 2;
    const double y = box.top + box.height / 2;
    pdf_.AddGradient(name, 1, first, second, x, y, x, y, 0,
                     std::hypot(box.width / 2, box.height / 2));
  } else {
    pdf_.AddGradient(name, 0, first, second, box.left + course->x1 * box.width,
                     box.top + course->y1 * box.height, box.left + course->x2 * box.width,
                     box.top + course->y2 * box.height);
  }
  return name;
}

void InvoiceItems::ChooseColours(const LaidItem& laid) {
  pdf_.SetColorFill(AddFill(laid));
  pdf_.SetColorLine(WriterColour(laid.item->Text("bordercolor")));
  pdf_.SetLineWidth(laid.item->Number("borderwidth") / 10);
}

// Everything that the item must have is looked up before anything of it is drawn.
std::string InvoiceItems::DrawTextItem(const LaidItem& laid, double foot) {
  const TemplateItem& item = *laid.item;
  ItemBox box = laid.box;
  int alignment = laid.alignment;
  const bool parted = FlowsOverPages(item) && box.Bottom() > foot;
  if (parted) {
    box.height = foot - box.top;
    if (box.height < pdf_.GetTextHeight()) return laid.text;
    alignment &= kAlignedAcross;
  }
  ChooseColours(laid);
  if (EqualsIgnoreCase(item.Text("backstyle"), "OPAQUE"))
    pdf_.DrawRect(box.left, box.top, box.width, box.height, kFill, kAllBorders, box.radius);
  if (item.Number("borderwidth") != 0)
    pdf_.DrawRect(box.left, box.top, box.width, box.height, kStroke, kAllBorders, box.radius);
  if (context_.pageNumbers && laid.text.find("#PAGE") != std::string::npos) {
    DrawPageNumber(laid);
    return "";
  }
  std::string rest;
  std::string* leftover = parted ? &rest : nullptr;
  if (!item.Find("horizontalscaling")) {
    // The alignment stands in the place of the rectangle's mode: such a text is aligned top left,
    // and a rectangle is drawn around it as the number says. Templates count on it.
    pdf_.DrawTextBox(box.left, box.top, box.width, box.height, laid.text, 0, alignment, leftover);
    return rest;
  }
  pdf_.SetTextHorizontalScaling(item.Number("horizontalscaling"));
  pdf_.DrawTextBox(box.left, box.top, box.width, box.height, laid.text, alignment, kNoRectangle,
                   leftover);
  pdf_.SetTextHorizontalScaling(kPlainScaling);
  return rest;
}

double InvoiceItems::DrawRest(LaidItem& laid, double top, double foot) {
  ChooseFont(*laid.item, laid.fontSize);
  const double line = pdf_.GetTextHeight();
  const double needed = pdf_.GetTextBoxHeight(laid.box.width, laid.text);
  const double height = std::min(needed, std::max(foot - top, line));
  std::string rest;
  pdf_.DrawTextBox(laid.box.left, top, laid.box.width, height, laid.text,
                   laid.alignment & kAlignedAcross, kNoRectangle, &rest);
  laid.text = std::move(rest);
  return top + height;
}

// One line, whose text the writer fills in when the pages are counted.
void InvoiceItems::DrawPageNumber(const LaidItem& laid) {
  const double free = laid.box.height - pdf_.GetTextHeight();
  const double above = laid.alignment & kMiddle ? free / 2 : laid.alignment & kBottom ? free : 0;
  const double baseline = laid.box.top + above + pdf_.GetTextHeight() - pdf_.GetTextDescent();
  pageNumbers_.push_back(laid.text);
  pdf_.DrawPlaceHolder("Number" + PlainText(static_cast<int>(pageNumbers_.size())), laid.box.left,
                       baseline, laid.box.width, laid.alignment & kAlignedAcross);
}

void InvoiceItems::FillPageNumbers() {
  for (std::size_t i = 0; i < pageNumbers_.size(); ++i)
    pdf_.SetPlaceHolder("Number" + PlainText(static_cast<int>(i + 1)), pageNumbers_[i]);
}

void InvoiceItems::DrawShape(const LaidItem& laid) {
  const TemplateItem& item = *laid.item;
  const ItemBox& box = laid.box;
  ChooseColours(laid);
  int mode = kStroke;
  if (EqualsIgnoreCase(item.Text("backstyle"), "OPAQUE"))
    mode = item.Number("borderwidth") == 0 ? kFill : kFillAndStroke;
  const std::string& shape = item.Text("objectshape");
  if (EqualsIgnoreCase(shape, "RECTANGLE"))
    pdf_.DrawRect(box.left, box.top, box.width, box.height, mode, kAllBorders, box.radius);
  if (EqualsIgnoreCase(shape, "CIRCLE"))
    pdf_.DrawEllipse(box.left + box.width / 2, box.top + box.height / 2, box.width / 2,
                     box.height / 2, mode);
}

void InvoiceItems::DrawPicture(const LaidItem& laid) {
  const ItemBox& box = laid.box;
  const std::string file = Replace(laid.item->Text("filename"), "\\", "/");
  if (file.empty()) return;
  const std::filesystem::path path =
      file.starts_with("..") ? PathFromText(PathText(ledger_.programDirectory) + file.substr(2))
                             : PathFromText(file);
  std::error_code ignored;
  if (std::filesystem::is_regular_file(path, ignored)) {
    pdf_.DrawImage(PathText(path), box.left, box.top, box.width, box.height, kKeepRatio, 0, 0);
    return;
  }
  if (!told_.insert(PathText(path)).second) return;
  ShowMessage(
      ledger_, "Unable to find file",
      "The invoice template is trying to load a file which does not exist. The file is;\\n " +
          PathInMessage(path) +
          "\\n\\nThe invoice will still be created but without this picture.");
}

void InvoiceItems::Link(const TemplateItem& item) {
  std::string link = item.Text("weblink");
  if (link.empty()) return;
  if (ToUpper(link.substr(0, 3)) == "WWW") link = "http://" + link;
  pdf_.LinkTo(link, 0, 0);
}

}  // namespace lm
