#include "documents/templatexml.h"

#include <algorithm>
#include <utility>

#include "core/text.h"
#include "core/xmltext.h"

namespace lm {
namespace {

constexpr std::size_t kMostBytes = std::size_t{1} << 24;
constexpr std::ptrdiff_t kMostTags = 100'000;  // of elements, comments and what else begins with <
constexpr int kMostSections = 1'000;
constexpr int kMostItems = 10'000;

std::string InUtf8(std::string_view xml) {
  if (auto text = XmlInUtf8(xml)) return std::move(*text);
  throw TemplateError("The encoding '" + FromUtf8(DeclaredEncoding(xml)) +
                          "' is not understood; UTF-8 and windows-1252 are.",
                      1);
}

void CheckSize(std::string_view xml) {
  if (xml.size() > kMostBytes) throw TemplateError("It is larger than 16 MB.");
  if (std::ranges::count(xml, '<') > kMostTags)
    throw TemplateError("It holds more elements than a template may have.");
}

bool IsElement(pugi::xml_node node) { return node.type() == pugi::node_element; }

}  // namespace

TemplateXml::TemplateXml(std::string_view xml) {
  CheckSize(xml);
  buffer_ = InUtf8(xml);
  for (std::size_t at = buffer_.find('\n'); at != std::string::npos;
       at = buffer_.find('\n', at + 1))
    breaks_.push_back(at);
  // The parser would take what stands before a zero for the whole.
  if (const std::size_t zero = buffer_.find('\0'); zero != std::string::npos)
    throw InvalidTemplateXml("It is no text: it holds a zero byte.", LineOf(zero));

  const pugi::xml_parse_result result =
      tree_.load_buffer_inplace(buffer_.data(), buffer_.size(),
                                pugi::parse_default | pugi::parse_doctype, pugi::encoding_utf8);
  if (!result)
    throw InvalidTemplateXml(
        "Error code " + std::to_string(result.status) + ": " + result.description() + ".",
        LineOf(static_cast<std::size_t>(result.offset)));
  CheckRoot();
  CheckCounts();
}

void TemplateXml::CheckRoot() const {
  for (const pugi::xml_node node : tree_) {
    if (node.type() == pugi::node_doctype)
      throw TemplateError("A document type declaration is not allowed.");
    if (IsElement(node) && node != Root())
      throw InvalidTemplateXml("A second root element: '" + FromUtf8(node.name()) + "'.",
                               Line(node));
  }
  if (std::string_view(Root().name()) != "template")
    throw TemplateError(
        "The root element is '" + FromUtf8(Root().name()) + "' where 'template' is wanted.",
        Line(Root()));
}

void TemplateXml::CheckCounts() const {
  int sections = 0;
  int items = 0;
  for (const pugi::xml_node section : Root().children("section")) {
    if (++sections > kMostSections)
      throw TemplateError("There are more than 1,000 sections.", Line(section));
    for (const pugi::xml_node item : section.children("item"))
      if (++items > kMostItems)
        throw TemplateError("There are more than 10,000 items.", Line(item));
  }
}

TemplateItem TemplateXml::AttributesOf(pugi::xml_node element) const {
  std::vector<std::pair<std::string, std::string>> attributes;
  for (const pugi::xml_attribute attribute : element.attributes())
    attributes.emplace_back(FromUtf8(attribute.name()), FromUtf8(attribute.value()));
  return TemplateItem(std::move(attributes), Line(element));
}

int TemplateXml::LineAt(const char* place) const {
  return LineOf(static_cast<std::size_t>(place - buffer_.data()));
}

int TemplateXml::LineOf(std::size_t offset) const {
  return static_cast<int>(std::ranges::lower_bound(breaks_, offset) - breaks_.begin()) + 1;
}

}  // namespace lm
