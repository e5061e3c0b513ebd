#include "documents/invoicepages.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <system_error>

#include "core/dates.h"
#include "core/files.h"
#include "core/format.h"
#include "core/messagebox.h"
#include "core/numbers.h"
#include "core/text.h"

namespace lm {
namespace {

enum class Placing {
  Flow,         // below what stands there, on a new page when it does not fit
  InvoiceFoot,  // at the foot of the page, on a new one when the flow has reached it
  PageFoot,
  PageTop,
  Stay,
};

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
constexpr int kKeepRatio = 1;
constexpr double kPlainScaling = 100;

// "@red;green;blue" of blue * 65536 + green * 256 + red.
std::string WriterColour(const std::string& number) {
  const auto colour = static_cast<std::uint32_t>(ValInt(number)) & 0xFFFFFFu;
  return "@" + PlainText(static_cast<int>(colour & 0xFF)) + ";" +
         PlainText(static_cast<int>(colour >> 8 & 0xFF)) + ";" +
         PlainText(static_cast<int>(colour >> 16));
}

std::string InitialCapitals(std::string_view text) {
  std::string result(text);
  bool starts = true;
  for (char& c : result) {
    c = starts ? ToUpper(c) : ToLower(c);
    starts = c == ' ' || c == '\r' || c == '\n' || c == '\t';
  }
  return result;
}

std::string InCase(const std::string& text, std::string_view textCase) {
  const std::string rule = ToUpper(textCase.substr(0, 3));
  if (rule == "UPP") return ToUpper(text);
  if (rule == "LOW") return ToLower(text);
  return rule == "INI" ? InitialCapitals(text) : text;
}

}  // namespace

struct InvoicePages::SectionKind {
  std::string_view name;
  Placing placing;
};

InvoicePages::InvoicePages(Ledger& ledger, const RecordIndex& index, const DocumentTemplate& layout,
                           clsPDFCreator& pdf, std::set<std::string>& told)
    : ledger_(ledger),
      index_(index),
      layout_(layout),
      pdf_(pdf),
      told_(told),
      fields_(ledger, index) {}

void InvoicePages::Draw(const std::string& invoiceId) {
  context_ = {};
  context_.invoice = invoiceId;
  pdf_.BeginPage();
  y_ = 0;
  if (layout_.backgrounds == PageBackgrounds::DifferentOnPage1) RenderSection("background1");
  if (layout_.backgrounds == PageBackgrounds::SameOnAllPages) RenderSection("backgroundall");
  for (const std::string_view section : {"pageheader", "pagefooter", "invheader"})
    RenderSection(section);
  y_ = static_cast<Single>(layout_.HeightOf("invheader"));

  struct Worked {
    double day;
    int row;
  };
  std::vector<Worked> sessions;
  for (const int row : index_.SessionsOfInvoice(invoiceId))
    sessions.push_back(
        {CellDate(ledger_.fgSessions.TextMatrix(row, "SDATE")).value_or(-HUGE_VAL), row});
  std::ranges::stable_sort(sessions, {}, &Worked::day);
  for (const Worked& session : sessions) {
    context_.session = ledger_.fgSessions.TextMatrix(session.row, "ID");
    RenderSection("session");
    if (layout_.showSessionFooter) RenderSection("sessionfooter");
  }
  RenderSection("invfooter");
  pdf_.EndPage();
}

void InvoicePages::RenderSection(std::string_view name) {
  static constexpr SectionKind kKinds[] = {{"session", Placing::Flow},
                                           {"sessionfooter", Placing::Flow},
                                           {"extra", Placing::Flow},
                                           {"expense", Placing::Flow},
                                           {"invfooter", Placing::InvoiceFoot},
                                           {"pagefooter", Placing::PageFoot},
                                           {"invheader", Placing::PageTop},
                                           {"background1", Placing::PageTop},
                                           {"backgroundall", Placing::PageTop},
                                           {"pageheader", Placing::Stay}};
  const auto kind = std::ranges::find(kKinds, name, &SectionKind::name);
  for (const TemplateSection* section : layout_.Sections(name)) {
    try {
      DrawSection(*section, *kind);
    } catch (const TemplateError& fault) {
      constexpr int kFaultInTemplate = 5;
      if (told_.insert(section->id + "\n" + fault.what()).second)
        TellFault(section->id, kFaultInTemplate, fault.what());
    }
    // The writer keeps its last error, and the sections after it would tell it again.
    if (pdf_.ErrNumber() != 0 && told_.insert(pdf_.ErrDescription()).second)
      TellFault(section->id, pdf_.ErrNumber(), pdf_.ErrDescription());
  }
}

void InvoicePages::DrawSection(const TemplateSection& section, const SectionKind& kind) {
  if (PlaceSection(kind)) {
    BeginFurtherPage();
    y_ = static_cast<Single>(kind.placing == Placing::InvoiceFoot
                                 ? layout_.height - layout_.HeightOf("invfooter")
                                 : layout_.marginTop);
  }
  if (section.items.empty()) pdf_.WriteText(" ", 0, 66);  // so that the section writes something
  Growth growth;
  for (const TemplateItem& item : section.items) DrawItem(item, growth);
  if (kind.placing == Placing::Flow)
    y_ += static_cast<Single>(growth.grown ? growth.bottom : layout_.HeightOf(kind.name));
  if (kind.name == "session") RenderItemsOfSession();
}

bool InvoicePages::PlaceSection(const SectionKind& kind) {
  const double foot = layout_.height - layout_.HeightOf(kind.name);
  const Single flowEnd = static_cast<Single>(foot - layout_.marginBottom);
  bool newPage = false;
  switch (kind.placing) {
    case Placing::Flow:
      return flowEnd < y_;
    case Placing::InvoiceFoot:
      newPage = static_cast<Single>(foot) < y_;
      y_ = static_cast<Single>(foot);
      break;
    case Placing::PageFoot:
      y_ = static_cast<Single>(foot);
      break;
    case Placing::PageTop:
      y_ = 0;
      break;
    case Placing::Stay:
      break;
  }
  return newPage;
}

void InvoicePages::BeginFurtherPage() {
  pdf_.BeginPage();
  y_ = 0;
  if (layout_.backgrounds != PageBackgrounds::None) RenderSection("backgroundall");
  RenderSection("pageheader");
  RenderSection("pagefooter");
}

void InvoicePages::RenderItemsOfSession() {
  if (layout_.showExtras)
    for (const int row : index_.ExtrasOfSession(context_.session)) {
      context_.extra = ledger_.fgExtras.TextMatrix(row, "ID");
      RenderSection("extra");
    }
  if (layout_.showExpenses)
    for (const int row : index_.ExpensesOfSession(context_.session)) {
      context_.expense = ledger_.fgSessionExpenses.TextMatrix(row, "ID");
      RenderSection("expense");
    }
}

// Items

void InvoicePages::DrawItem(const TemplateItem& item, Growth& growth) {
  const std::string& kind = item.Text("objectsubtype");
  const double top = item.Number("top");
  Box box{item.Number("left"), top + y_, item.Number("width"), item.Number("height")};
  if (kind == "T" || kind == "S") box.radius = item.Number("cornerradius");
  growth.bottom = std::max(growth.bottom, top);

  if (kind == "T") {
    const std::string text = MergedCaption(item);
    const std::string& hideIfEmpty = item.Text("hideifempty");
    const bool mayHide = IsTrue(hideIfEmpty) || Val(hideIfEmpty) != 0;
    if (mayHide && Trim(text).empty()) return;
    const double height = box.height;
    DrawTextItem(item, box, text);
    growth.grown |= box.height > height;
  }
  growth.bottom = std::max(growth.bottom, top + box.height);
  if (kind == "S") DrawShape(item, box);
  if (kind == "P") DrawPicture(item, box);
  Link(item);
}

std::string InvoicePages::MergedCaption(const TemplateItem& item) const {
  // The lines of an old file's note may be parted by line feeds alone, at which no line ends here.
  return WithCrLf(fields_.Merge(Replace(item.Text("caption"), "\n", "\r\n"), context_));
}

void InvoicePages::ChooseFont(const TemplateItem& item) {
  std::string family = item.Text("fontname");
  for (const Substitute& substitute : kSubstitutes)
    if (EqualsIgnoreCase(family, substitute.family)) family = substitute.base;
  int style = 0;
  for (const NamedBits& bit : kStyles)
    if (IsTrue(item.Text(bit.name))) style += bit.bits;
  pdf_.SetFont(family, item.Number("fontsize"), style, 0);
  pdf_.SetColorText(WriterColour(item.Text("textcolor")));
}

// The lines of the text times their height: an estimate without spacing and padding.
double InvoicePages::NeededHeight(std::string_view text, double width) const {
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

std::string InvoicePages::AddFill(const TemplateItem& item, const Box& box) {
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

void InvoicePages::ChooseColours(const TemplateItem& item, const Box& box) {
  pdf_.SetColorFill(AddFill(item, box));
  pdf_.SetColorLine(WriterColour(item.Text("bordercolor")));
  pdf_.SetLineWidth(item.Number("borderwidth") / 10);
}

// Everything that the item must have is looked up before anything of it is drawn.
void InvoicePages::DrawTextItem(const TemplateItem& item, Box& box, const std::string& merged) {
  ChooseFont(item);
  const bool expands = EqualsIgnoreCase(item.Text("allowexpansion"), "DOWN");
  const int alignment = BitsOf(kAcross, item.Text("halign")) + BitsOf(kDown, item.Text("valign"));
  const std::string text = InCase(merged, item.Text("textcase"));
  if (expands) box.height = std::max(box.height, NeededHeight(text, box.width));
  ChooseColours(item, box);
  if (EqualsIgnoreCase(item.Text("backstyle"), "OPAQUE"))
    pdf_.DrawRect(box.left, box.top, box.width, box.height, kFill, kAllBorders, box.radius);
  if (item.Number("borderwidth") != 0)
    pdf_.DrawRect(box.left, box.top, box.width, box.height, kStroke, kAllBorders, box.radius);

  std::string leftover;
  if (!item.Find("horizontalscaling")) {
    // The alignment stands in the place of the rectangle's mode: such a text is aligned top left,
    // and a rectangle is drawn around it as the number says. Templates count on it.
    pdf_.DrawTextBox(box.left, box.top, box.width, box.height, text, 0, alignment, &leftover);
    return;
  }
  pdf_.SetTextHorizontalScaling(item.Number("horizontalscaling"));
  pdf_.DrawTextBox(box.left, box.top, box.width, box.height, text, alignment, kNoRectangle,
                   &leftover);
  pdf_.SetTextHorizontalScaling(kPlainScaling);
}

void InvoicePages::DrawShape(const TemplateItem& item, const Box& box) {
  ChooseColours(item, box);
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

void InvoicePages::DrawPicture(const TemplateItem& item, const Box& box) {
  const std::string file = Replace(item.Text("filename"), "\\", "/");
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
          PathText(path) + "\\n\\nThe invoice will still be created but without this picture.");
}

void InvoicePages::Link(const TemplateItem& item) {
  std::string link = item.Text("weblink");
  if (link.empty()) return;
  if (ToUpper(link.substr(0, 3)) == "WWW") link = "http://" + link;
  pdf_.LinkTo(link, 0, 0);
}

void InvoicePages::TellFault(std::string_view sectionId, int number, std::string_view description) {
  const std::string heading = "Section: " + std::string(sectionId) +
                              "\\nError: E0412\\nDetails : " + PlainText(number) + " " +
                              std::string(description);
  ShowMessage(ledger_, heading,
              "\\n\\nLedgerMinder will attempt to complete the document being created but it will "
              "probably fail or be incorrect. Please contact LedgerMinder with the above error "
              "code, and details of the invoice template you are using, or pension form you are "
              "trying to create.",
              Buttons::Ok, Icon::Exclamation, "Error while processing document template");
}

}  // namespace lm
