// Small notations of the writer's callers and of PDF: lists of numbers, names, literal strings.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace lm::pdf {

// The pieces of a list parted by ";" or blanks; several blanks part once. The views point into
// `list`.
std::vector<std::string_view> ListPieces(std::string_view list);

// A plain decimal number such as "-0.5", without an exponent. Throws Error for anything else.
double PlainNumber(std::string_view text);

// The numbers of such a list. Throws Error for what is no number.
std::vector<double> NumberList(std::string_view list);

// What stands behind the "/" of a PDF name: bytes other than letters, digits and "._+-," as #xx.
// Throws Error for an empty name.
std::string EscapedName(std::string_view name);

// 0 to 15, -1 for what is no hexadecimal digit.
int HexDigit(char sign);

// A text as an operator's string: in round brackets, escaped.
std::string LiteralString(std::string_view text);
void AppendLiteral(std::string_view text, std::string& out);

}  // namespace lm::pdf
