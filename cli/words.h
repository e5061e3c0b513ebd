// A script line as words: they part at blanks; double quotes around a word with blanks; inside and
// outside of quotes the escapes \n \t \" \\ and \xHH (a Windows-1252 code).
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace lm {

// The words, in Windows-1252, of a line in UTF-8. Throws std::invalid_argument for an open quote
// or an unknown escape.
std::vector<std::string> SplitWords(std::string_view utf8Line);

}  // namespace lm
