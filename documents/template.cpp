#include "documents/template.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "core/files.h"
#include "core/messagebox.h"
#include "core/numbers.h"
#include "core/text.h"
#include "documents/templatexml.h"

namespace lm {
namespace {

constexpr double kLargestMeasure = 10'000;  // millimetres

struct Paper {
  std::string_view name;
  PageSize size;
};

constexpr Paper kPapers[] = {{"A4", {210, 297}}, {"LETTER", {216, 279}}, {"LEGAL", {216, 356}}};

struct BackgroundsName {
  std::string_view name;
  PageBackgrounds backgrounds;
};

constexpr BackgroundsName kBackgrounds[] = {
    {"NONE", PageBackgrounds::None},
    {"DIFFERENT ON PAGE 1", PageBackgrounds::DifferentOnPage1},
    {"SAME ON ALL PAGES", PageBackgrounds::SameOnAllPages},
};

struct PageNumbersName {
  std::string_view name;
  PageNumbers numbers;
};

constexpr PageNumbersName kPageNumbers[] = {{"ON SEVERAL PAGES", PageNumbers::OnSeveralPages},
                                            {"ALWAYS", PageNumbers::Always}};

// The entry whose name this is, ignoring case; null when there is none.
template <class Table>
auto Named(const Table& table, std::string_view name) {
  const auto found = std::ranges::find_if(
      table, [&](const auto& entry) { return EqualsIgnoreCase(entry.name, name); });
  return found == std::end(table) ? nullptr : &*found;
}

// With its exponent, which Val does not read: "1e308" is no small number that was meant.
bool LiesBeyondPaper(std::string_view text) {
  text = Trim(text);
  if (text.starts_with('+')) text.remove_prefix(1);
  double number = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
  return read.ec == std::errc::result_out_of_range || std::abs(number) > kLargestMeasure ||
         std::abs(Val(text)) > kLargestMeasure;
}

bool IsYes(const std::string* text) { return text && EqualsIgnoreCase(*text, "YES"); }

void ReadDocument(const TemplateItem& document, DocumentTemplate& layout) {
  layout.marginTop = document.Number("margin_top");
  layout.marginBottom = document.Number("margin_bottom");
  layout.showExtras = IsYes(&document.Text("show_extras"));
  const auto* backgrounds = Named(kBackgrounds, document.Text("page_backgrounds"));
  layout.backgrounds = backgrounds ? backgrounds->backgrounds : PageBackgrounds::Other;
  layout.showExpenses = IsYes(document.Find("show_expenses"));
  layout.showSessionFooter = IsYes(document.Find("show_sessionfooter"));
  layout.keepTogether = IsYes(document.Find("keep_together"));
  if (const std::string* numbers = document.Find("page_numbers"))
    if (const auto* named = Named(kPageNumbers, *numbers)) layout.pageNumbers = named->numbers;

  const PageSize page = PageSizeOf(document.Text("papersize"), document.Text("orientation"));
  layout.width = page.width;
  layout.height = page.height;
}

TemplateSection ReadSection(const TemplateXml& xml, pugi::xml_node element) {
  const TemplateItem attributes = xml.AttributesOf(element);
  TemplateSection section;
  section.id = attributes.Text("id");
  section.line = xml.Line(element);
  if (HasSectionHeight(section.id)) section.height = attributes.Number("height");
  for (const pugi::xml_node item : element.children("item"))
    section.items.push_back(xml.AttributesOf(item));
  return section;
}

void TellLoadingError(Ledger& ledger, const std::filesystem::path& file, std::string_view heading,
                      std::string_view reason) {
  ShowMessage(ledger, heading, "File: " + PathInMessage(file) + "\\n\\n" + std::string(reason),
              Buttons::Ok, Icon::Exclamation, "Template Loading Error");
}

}  // namespace

const std::string* TemplateItem::Find(std::string_view name) const {
  const auto found = std::ranges::find(
      attributes_, name, [](const auto& each) -> std::string_view { return each.first; });
  return found == attributes_.end() ? nullptr : &found->second;
}

const std::string& TemplateItem::Text(std::string_view name) const {
  if (const std::string* text = Find(name)) return *text;
  throw TemplateError("The attribute '" + std::string(name) + "' is missing.", line_);
}

double TemplateItem::Number(std::string_view name) const {
  const std::string& text = Text(name);
  if (!LiesBeyondPaper(text)) return Val(text);
  constexpr std::size_t kShown = 40;  // signs of a number that may have thousands
  throw TemplateError("The attribute '" + std::string(name) +
                          "' lies beyond any page: " + text.substr(0, kShown) + ".",
                      line_);
}

std::vector<const TemplateSection*> DocumentTemplate::Sections(std::string_view id) const {
  std::vector<const TemplateSection*> found;
  for (const TemplateSection& section : sections)
    if (EqualsIgnoreCase(section.id, id)) found.push_back(&section);
  return found;
}

double DocumentTemplate::HeightOf(std::string_view id) const {
  double height = 0;
  for (const TemplateSection& section : sections)
    if (section.id == id) height = section.height;
  return height;
}

PageSize PageSizeOf(std::string_view paperSize, std::string_view orientation) {
  const Paper* paper = Named(kPapers, paperSize);
  PageSize size = paper ? paper->size : PageSize{};
  if (EqualsIgnoreCase(orientation, "LANDSCAPE")) std::swap(size.width, size.height);
  return size;
}

bool HasSectionHeight(std::string_view id) {
  constexpr std::string_view kWithHeight[] = {
      "pageheader",  "pagefooter",       "invheader",         "invfooter",
      "owedinvoice", "session",          "sessionfooter",     "extra",
      "expense",     "sessioncontinued", "invfootercontinued"};
  return std::ranges::find(kWithHeight, id) != std::end(kWithHeight);
}

DocumentTemplate ParseTemplate(std::string_view text) {
  const TemplateXml xml(text);
  const pugi::xml_node document = xml.Root().child("document");
  if (!document) throw TemplateError("There is no element 'document'.", xml.Line(xml.Root()));
  DocumentTemplate layout;
  ReadDocument(xml.AttributesOf(document), layout);
  for (const pugi::xml_node section : xml.Root().children("section"))
    layout.sections.push_back(ReadSection(xml, section));
  return layout;
}

std::optional<DocumentTemplate> LoadTemplate(Ledger& ledger, const std::filesystem::path& file) {
  constexpr std::string_view kUndeciphered = "Unable to load and decrypt template file";
  std::string error;
  const std::optional<std::string> bytes = ReadFile(file, error);
  if (!bytes) {
    TellLoadingError(ledger, file, kUndeciphered, error);
    return std::nullopt;
  }
  const std::optional<std::string> xml = DecipherTemplate(*bytes);
  if (!xml) {
    TellLoadingError(ledger, file, kUndeciphered,
                     "The file is either corrupt, or is not of the correct type. ");
    return std::nullopt;
  }
  try {
    return ParseTemplate(*xml);
  } catch (const InvalidTemplateXml& fault) {
    ShowMessage(ledger, "Invalid XML.",
                std::string(fault.what()) + "\\n\\nFile: " + PathInMessage(file));
  } catch (const TemplateError& fault) {
    TellLoadingError(ledger, file, "Unable to use template file", fault.what());
  }
  return std::nullopt;
}

}  // namespace lm
