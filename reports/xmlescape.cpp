#include "reports/xmlescape.h"

#include <utility>

#include "core/text.h"

namespace lm {

XmlEscape::XmlEscape(int references, int lastReference) {
  for (int sign = 0; sign < 256; ++sign) {
    const bool dropped = sign < 32 && sign != '\t' && sign != '\r' && sign != '\n';
    signs_.push_back(dropped ? "" : std::string(1, static_cast<char>(sign)));
    if (sign < references || sign > lastReference) continue;
    const std::string utf8 = ToUtf8(signs_.back());
    unsigned code = static_cast<unsigned char>(utf8[0]);
    if (utf8.size() == 2)
      code = (code & 0x1Fu) << 6 | (static_cast<unsigned char>(utf8[1]) & 0x3Fu);
    if (utf8.size() == 3)
      code = (code & 0x0Fu) << 12 | (static_cast<unsigned char>(utf8[1]) & 0x3Fu) << 6 |
             (static_cast<unsigned char>(utf8[2]) & 0x3Fu);
    signs_.back() = "&#" + std::to_string(code) + ";";
  }
  const std::pair<char, std::string_view> entities[] = {{'&', "&amp;"},  {'<', "&lt;"},
                                                        {'>', "&gt;"},   {'\'', "&apos;"},
                                                        {'"', "&quot;"}, {'\xA3', "&#163;"}};
  for (const auto& [sign, entity] : entities) signs_[static_cast<unsigned char>(sign)] = entity;
}

void XmlEscape::Append(std::string& to, std::string_view text) const {
  for (const char sign : text) {
    const std::string& written = signs_[static_cast<unsigned char>(sign)];
    if (written.size() == 1)
      to += written[0];
    else
      to += written;
  }
}

const XmlEscape& LatinEscape() {
  static const XmlEscape escape(0x80, 0x9F);
  return escape;
}

const XmlEscape& AsciiEscape() {
  static const XmlEscape escape(127, 255);
  return escape;
}

}  // namespace lm
