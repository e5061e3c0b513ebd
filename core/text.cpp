#include "core/text.h"

#include <charconv>
#include <cstdint>
#include <optional>

namespace lm {

namespace {

constexpr std::uint8_t Byte(char c) { return static_cast<std::uint8_t>(c); }
constexpr char Char(unsigned code) { return static_cast<char>(static_cast<std::uint8_t>(code)); }

// Unicode of the codes 0x80 to 0x9F, where Windows-1252 departs from Latin-1.
constexpr std::array<char32_t, 32> kUnicodeFrom80 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

struct CasePair {
  std::uint8_t upper, lower;
};
// Letters whose two cases do not stand 32 codes apart, or stand outside the Latin-1 letters.
constexpr CasePair kOddPairs[] = {{0x8A, 0x9A}, {0x8C, 0x9C}, {0x8E, 0x9E}, {0x9F, 0xFF}};

struct CaseTables {
  std::array<char, 256> upper{}, lower{};
};

constexpr CaseTables MakeCaseTables() {
  CaseTables tables;
  for (unsigned code = 0; code < 256; ++code) tables.upper[code] = tables.lower[code] = Char(code);
  const auto pair = [&tables](unsigned upper, unsigned lower) {
    tables.lower[upper] = Char(lower);
    tables.upper[lower] = Char(upper);
  };
  for (unsigned code = 'A'; code <= 'Z'; ++code) pair(code, code + 32);
  for (unsigned code = 0xC0; code <= 0xDE; ++code)
    if (code != 0xD7) pair(code, code + 32);  // 0xD7 and 0xF7 are the signs for times and divide
  for (const CasePair& odd : kOddPairs) pair(odd.upper, odd.lower);
  return tables;
}

constexpr CaseTables kCase = MakeCaseTables();

std::string Mapped(std::string_view text, const std::array<char, 256>& table) {
  std::string result(text);
  for (char& c : result) c = table[Byte(c)];
  return result;
}

void AppendUtf8(std::string& out, char32_t code) {
  if (code < 0x80) {
    out += Char(code);
  } else if (code < 0x800) {
    out += Char(0xC0 | code >> 6);
    out += Char(0x80 | (code & 0x3F));
  } else {
    if (code < 0x10000) {
      out += Char(0xE0 | code >> 12);
    } else {
      out += Char(0xF0 | code >> 18);
      out += Char(0x80 | (code >> 12 & 0x3F));
    }
    out += Char(0x80 | (code >> 6 & 0x3F));
    out += Char(0x80 | (code & 0x3F));
  }
}

std::optional<char> FromUnicode(char32_t code) {
  if (code < 0x80 || (code >= 0xA0 && code <= 0xFF)) return Char(code);
  const auto found = std::find(kUnicodeFrom80.begin(), kUnicodeFrom80.end(), code);
  if (found == kUnicodeFrom80.end()) return std::nullopt;
  return Char(0x80u + static_cast<unsigned>(found - kUnicodeFrom80.begin()));
}

// How a UTF-8 character of several bytes begins, and what its second byte may be. The narrow
// ranges keep out overlong forms, surrogates and codes above U+10FFFF.
struct Utf8Lead {
  std::uint8_t first, last;
  std::size_t length;
  std::uint8_t secondFirst, secondLast;
};
constexpr Utf8Lead kUtf8Leads[] = {
    {0xC2, 0xDF, 2, 0x80, 0xBF}, {0xE0, 0xE0, 3, 0xA0, 0xBF}, {0xE1, 0xEC, 3, 0x80, 0xBF},
    {0xED, 0xED, 3, 0x80, 0x9F}, {0xEE, 0xEF, 3, 0x80, 0xBF}, {0xF0, 0xF0, 4, 0x90, 0xBF},
    {0xF1, 0xF3, 4, 0x80, 0xBF}, {0xF4, 0xF4, 4, 0x80, 0x8F},
};

// Takes one character off the front of `utf8`; a broken one is taken as far as it was whole, and is
// nothing.
std::optional<char32_t> TakeUtf8(std::string_view& utf8) {
  const std::uint8_t first = Byte(utf8.front());
  const auto lead = std::find_if(std::begin(kUtf8Leads), std::end(kUtf8Leads), [&](const auto& l) {
    return first >= l.first && first <= l.last;
  });
  if (lead == std::end(kUtf8Leads)) {
    utf8.remove_prefix(1);
    if (first >= 0x80) return std::nullopt;
    return first;
  }
  char32_t code = first & (0x7Fu >> lead->length);
  std::size_t taken = 1;
  while (taken < lead->length && taken < utf8.size()) {
    const std::uint8_t next = Byte(utf8[taken]);
    const bool second = taken == 1;
    if (next < (second ? lead->secondFirst : 0x80) || next > (second ? lead->secondLast : 0xBF))
      break;
    code = code << 6 | (next & 0x3Fu);
    ++taken;
  }
  utf8.remove_prefix(taken);
  if (taken < lead->length) return std::nullopt;
  return code;
}

// Of characters without a place, in paths: the mark, the code in hexadecimal digits, the end.
constexpr char kMark = '\x1A', kMarkEnd = ';';

// Takes the character that stands at the front of `text`, marked; nothing, and nothing is taken,
// for what is no mark.
std::optional<char32_t> TakeMarked(std::string_view& text) {
  const std::size_t end = text.find(kMarkEnd);
  std::uint32_t code = 0;
  if (end == std::string_view::npos) return std::nullopt;
  const char* const last = text.data() + end;
  const auto [read, failed] = std::from_chars(text.data() + 1, last, code, 16);
  const bool isCharacter = code < 0xD800 || (code >= 0xE000 && code <= 0x10FFFF);
  if (read != last || failed != std::errc() || !isCharacter) return std::nullopt;
  text.remove_prefix(end + 1);
  return code;
}

}  // namespace

std::string ToUtf8(std::string_view windows1252) {
  std::string result;
  result.reserve(windows1252.size());
  while (!windows1252.empty()) {
    const std::uint8_t code = Byte(windows1252.front());
    if (code == Byte(kMark))
      if (const auto marked = TakeMarked(windows1252)) {
        AppendUtf8(result, *marked);
        continue;
      }
    AppendUtf8(result, code >= 0x80 && code < 0xA0 ? kUnicodeFrom80[code - 0x80u] : code);
    windows1252.remove_prefix(1);
  }
  return result;
}

std::string FromUtf8(std::string_view utf8) {
  std::string result;
  result.reserve(utf8.size());
  while (!utf8.empty()) {
    const auto code = TakeUtf8(utf8);
    result += (code ? FromUnicode(*code) : std::nullopt).value_or('?');
  }
  return result;
}

std::string MarkedCharacter(char32_t code) {
  char digits[8];
  const auto end = std::to_chars(digits, digits + sizeof digits, std::uint32_t{code}, 16).ptr;
  return kMark + std::string(digits, end) + kMarkEnd;
}

std::string MarkedFromUtf8(std::string_view utf8) {
  std::string result;
  while (!utf8.empty()) {
    const auto code = TakeUtf8(utf8);
    const auto own = code ? FromUnicode(*code) : '?';
    result += own ? std::string(1, *own) : MarkedCharacter(*code);
  }
  return result;
}

char ToUpper(char c) { return kCase.upper[Byte(c)]; }
char ToLower(char c) { return kCase.lower[Byte(c)]; }
std::string ToUpper(std::string_view text) { return Mapped(text, kCase.upper); }
std::string ToLower(std::string_view text) { return Mapped(text, kCase.lower); }

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string Replace(std::string_view text, std::string_view from, std::string_view to) {
  if (from.empty()) return std::string(text);
  std::string result;
  for (;;) {
    const std::size_t found = text.find(from);
    result += text.substr(0, found);
    if (found == std::string_view::npos) return result;
    result += to;
    text.remove_prefix(found + from.size());
  }
}

std::string WithCrLf(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\r' && text[i] != '\n') {
      result += text[i];
      continue;
    }
    result += "\r\n";
    if (text.substr(i, 2) == "\r\n") ++i;
  }
  return result;
}

std::string Counted(std::ptrdiff_t count, std::string_view one, std::string_view more) {
  std::string text = std::to_string(count);
  for (auto at = static_cast<std::ptrdiff_t>(text.size()) - 3; at > 0; at -= 3)
    text.insert(static_cast<std::size_t>(at), ",");
  return text + ' ' + std::string(count == 1 ? one : more);
}

std::string RemoveAny(std::string_view text, std::string_view characters) {
  std::string result(text);
  std::erase_if(result, [characters](char c) { return characters.find(c) != characters.npos; });
  return result;
}

std::vector<std::string_view> Split(std::string_view text, char separator) {
  std::vector<std::string_view> pieces;
  for (;;) {
    const std::size_t found = text.find(separator);
    pieces.push_back(text.substr(0, found));
    if (found == std::string_view::npos) return pieces;
    text.remove_prefix(found + 1);
  }
}

std::string Join(const std::vector<std::string>& pieces, std::string_view separator) {
  std::size_t size = 0;
  for (const std::string& piece : pieces) size += piece.size() + separator.size();
  std::string result;
  result.reserve(size);
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    if (i > 0) result += separator;
    result += pieces[i];
  }
  return result;
}

std::string Enumerated(const std::vector<std::string>& parts) {
  std::string text;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (i > 0) text += i + 1 == parts.size() ? " and " : ", ";
    text += parts[i];
  }
  return text;
}

bool EqualsIgnoreCase(std::string_view a, std::string_view b) {
  return a.size() == b.size() && CompareIgnoreCase(a, b) == 0;
}

int CompareIgnoreCase(std::string_view a, std::string_view b) {
  const std::size_t common = std::min(a.size(), b.size());
  for (std::size_t i = 0; i < common; ++i) {
    const int difference = Byte(ToUpper(a[i])) - Byte(ToUpper(b[i]));
    if (difference != 0) return difference;
  }
  return (a.size() > b.size()) - (a.size() < b.size());
}

bool AllDigits(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

std::string PadLeft(std::string_view text, std::size_t length, char fill) {
  if (text.size() >= length) return std::string(text.substr(0, length));
  return std::string(length - text.size(), fill).append(text);
}

}  // namespace lm
