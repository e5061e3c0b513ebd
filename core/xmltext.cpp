#include "core/xmltext.h"

#include <algorithm>
#include <initializer_list>
#include <pugixml.hpp>

#include "core/text.h"

namespace lm {
namespace {

bool IsOneOf(std::string_view text, std::initializer_list<std::string_view> names) {
  return std::ranges::any_of(names,
                             [&](std::string_view name) { return EqualsIgnoreCase(name, text); });
}

}  // namespace

std::string DeclaredEncoding(std::string_view xml) {
  if (xml.starts_with("\xEF\xBB\xBF")) xml.remove_prefix(3);
  const std::size_t end = xml.find("?>");
  if (!xml.starts_with("<?xml") || end == std::string_view::npos) return "";
  pugi::xml_document declaration;
  declaration.load_buffer(xml.data(), end + 2, pugi::parse_fragment | pugi::parse_declaration,
                          pugi::encoding_utf8);
  return declaration.first_child().attribute("encoding").value();
}

std::optional<std::string> XmlInUtf8(std::string_view xml) {
  const std::string encoding = DeclaredEncoding(xml);
  if (IsOneOf(encoding, {"", "UTF-8", "US-ASCII"})) return std::string(xml);
  if (IsOneOf(encoding, {"windows-1252", "ISO-8859-1", "latin1"})) return ToUtf8(xml);
  return std::nullopt;
}

}  // namespace lm
