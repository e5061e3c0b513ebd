#include "pdf/notation.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cmath>

#include "pdf/error.h"

namespace lm::pdf {
namespace {

constexpr std::string_view kSeparators = "; ";

// What stands behind the backslash of a character that needs one; 0 for the others.
constexpr auto kEscapes = [] {
  std::array<char, 256> escapes{};
  for (const char c : {'\\', '(', ')'}) escapes[static_cast<unsigned char>(c)] = c;
  escapes['\r'] = 'r';
  escapes['\n'] = 'n';
  return escapes;
}();

}  // namespace

std::vector<std::string_view> ListPieces(std::string_view list) {
  std::vector<std::string_view> pieces;
  std::size_t at = 0;
  while ((at = list.find_first_not_of(kSeparators, at)) != std::string_view::npos) {
    const std::size_t end = std::min(list.find_first_of(kSeparators, at), list.size());
    pieces.push_back(list.substr(at, end - at));
    at = end;
  }
  return pieces;
}

double PlainNumber(std::string_view text) {
  double value = 0;
  const char* end = text.data() + text.size();
  const auto [stop, problem] = std::from_chars(text.data(), end, value, std::chars_format::fixed);
  if (problem != std::errc() || stop != end || !std::isfinite(value)) {
    throw Error("\"" + std::string(text) + "\" is not a number.");
  }
  return value;
}

std::vector<double> NumberList(std::string_view list) {
  std::vector<double> numbers;
  for (const std::string_view piece : ListPieces(list)) numbers.push_back(PlainNumber(piece));
  return numbers;
}

std::string EscapedName(std::string_view name) {
  if (name.empty()) throw Error("A name is missing.");
  constexpr std::string_view kHex = "0123456789ABCDEF";
  std::string escaped;
  for (const char c : name) {
    const auto code = static_cast<unsigned char>(c);
    if ((code < 128 && std::isalnum(code)) ||
        std::string_view("._+-,").find(c) != std::string_view::npos) {
      escaped += c;
    } else if (code != 0) {  // no name may hold a zero
      escaped += {'#', kHex[code >> 4], kHex[code & 15]};
    }
  }
  return escaped;
}

int HexDigit(char sign) {
  if (sign >= '0' && sign <= '9') return sign - '0';
  const char lower = static_cast<char>(sign | 0x20);
  return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

std::string LiteralString(std::string_view text) {
  std::string literal;
  AppendLiteral(text, literal);
  return literal;
}

void AppendLiteral(std::string_view text, std::string& out) {
  out += '(';
  std::size_t plain = 0;  // where the run of characters as they stand begins
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char escape = kEscapes[static_cast<unsigned char>(text[i])];
    if (escape == 0) continue;
    out.append(text.substr(plain, i - plain)) += {'\\', escape};
    plain = i + 1;
  }
  out.append(text.substr(plain)) += ')';
}

}  // namespace lm::pdf
