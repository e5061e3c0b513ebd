// Text inside the program is Windows-1252 in std::string: one byte, one character. The files, the
// ciphers and the PDF writer all work on it. Conversion happens at the edges only, with ToUtf8 and
// FromUtf8.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace lm {

// UTF-8 of a Windows-1252 text. The five codes that Windows-1252 leaves empty (0x81, 0x8D, 0x8F,
// 0x90, 0x9D) become the control characters U+0081 and so on, so that they survive a round trip.
// A character that is marked, as below, is that character.
std::string ToUtf8(std::string_view windows1252);

// Windows-1252 of a UTF-8 text. A character without a place there, and every byte sequence that is
// not UTF-8, becomes one "?".
std::string FromUtf8(std::string_view utf8);

// Paths may have any character, and must be found again: in texts of paths those without a place in
// Windows-1252 stand marked, by a control character that no text has.
std::string MarkedFromUtf8(std::string_view utf8);
std::string MarkedCharacter(char32_t code);

// Upper and lower case over the whole of Windows-1252, accented letters included.
char ToUpper(char c);
char ToLower(char c);
std::string ToUpper(std::string_view text);
std::string ToLower(std::string_view text);

// The text without the blanks (code 32) at both ends; tabs and line breaks stay.
std::string_view Trim(std::string_view text);

// Every occurrence of `from` replaced by `to`, left to right, without looking again at what was
// put in. An empty `from` changes nothing.
std::string Replace(std::string_view text, std::string_view from, std::string_view to);

// Every line break as CR LF, whether it came as that, as a lone LF or as a lone CR.
std::string WithCrLf(std::string_view text);

// Every character that stands in `characters` removed.
// "1 session", "1,200 sessions".
std::string Counted(std::ptrdiff_t count, std::string_view one, std::string_view more);
std::string RemoveAny(std::string_view text, std::string_view characters);

// The pieces between the separators: one more than there are separators, and one empty piece for
// an empty text. The views point into `text`.
std::vector<std::string_view> Split(std::string_view text, char separator);

std::string Join(const std::vector<std::string>& pieces, std::string_view separator);
// "a", "a and b", "a, b and c"; "" for none.
std::string Enumerated(const std::vector<std::string>& parts);

// Comparisons and look-ups that ignore case.
bool EqualsIgnoreCase(std::string_view a, std::string_view b);
int CompareIgnoreCase(std::string_view a, std::string_view b);  // below 0, 0, above 0

// True when the text has characters and all of them are the digits 0 to 9.
bool AllDigits(std::string_view text);

// The first `length` characters of the text, or the text padded on the left with `fill`.
std::string PadLeft(std::string_view text, std::size_t length, char fill);

// A UTF-8 source literal as Windows-1252 at compile time: "£"_w is the one byte 0xA3. Only
// characters up to U+00FF, the euro and the typographic signs in use are taken; any other stops
// the compiler.
namespace text_detail {

template <std::size_t N>
struct Literal {
  char data[N]{};
  std::size_t size = N - 1;
  consteval Literal(const char (&source)[N]) { std::copy(source, source + N, data); }
};

consteval char OneByte(unsigned code) {
  switch (code) {
    case 0x20AC:
      return '\x80';  // euro
    case 0x2026:
      return '\x85';  // ellipsis
    case 0x2018:
      return '\x91';
    case 0x2019:
      return '\x92';
    case 0x201C:
      return '\x93';
    case 0x201D:
      return '\x94';
    case 0x2022:
      return '\x95';  // bullet
    case 0x2013:
      return '\x96';
    case 0x2014:
      return '\x97';
    default:
      break;
  }
  if (code > 0xFF || (code >= 0x80 && code < 0xA0)) throw "no such character in Windows-1252";
  return static_cast<char>(static_cast<unsigned char>(code));
}

template <Literal source>
consteval auto Encoded() {
  struct {
    std::array<char, sizeof(source.data)> data{};
    std::size_t size = 0;
  } out;
  for (std::size_t i = 0; i < source.size;) {
    const auto byte = static_cast<unsigned char>(source.data[i]);
    const int extra = byte < 0x80 ? 0 : byte < 0xE0 ? 1 : byte < 0xF0 ? 2 : 3;
    unsigned code = extra == 0 ? byte : byte & (0x3Fu >> extra);
    for (int k = 1; k <= extra; ++k)
      code = code << 6 |
             (static_cast<unsigned char>(source.data[i + static_cast<std::size_t>(k)]) & 0x3Fu);
    out.data[out.size++] = OneByte(code);
    i += static_cast<std::size_t>(extra) + 1;
  }
  return out;
}

template <Literal source>
inline constexpr auto kEncoded = Encoded<source>();

}  // namespace text_detail

inline namespace literals {

template <text_detail::Literal source>
constexpr std::string_view operator""_w() {
  return {text_detail::kEncoded<source>.data.data(), text_detail::kEncoded<source>.size};
}

}  // namespace literals
}  // namespace lm
