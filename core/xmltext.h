// XML from outside, before it is parsed.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace lm {

// The encoding that the XML declares, "" for none.
std::string DeclaredEncoding(std::string_view xml);

// The XML in UTF-8, out of the encoding that it declares: UTF-8, which is taken without one too, or
// Windows-1252, for which ISO-8859-1 is taken. Nothing for any other.
std::optional<std::string> XmlInUtf8(std::string_view xml);

}  // namespace lm
