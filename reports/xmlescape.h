// Windows-1252 texts as XML holds them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace lm {

// Markup as entities, the signs from `references` to `lastReference` as references, control signs
// left out but for tabs and line ends. The text stays in Windows-1252.
class XmlEscape {
 public:
  XmlEscape(int references, int lastReference);
  void Append(std::string& to, std::string_view text) const;

 private:
  std::vector<std::string> signs_;
};
const XmlEscape& LatinEscape();  // for iso-8859-1: references for 80 to 9F, which differ there
const XmlEscape& AsciiEscape();  // references for all signs above 126

}  // namespace lm
