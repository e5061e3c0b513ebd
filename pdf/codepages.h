// The Windows code pages that a one-byte font can have, chosen by the number that Windows gives the
// character set: 161 Greek (1253), 162 Turkish (1254), 186 Baltic (1257), 204 Cyrillic (1251), 238
// Central European (1250); 0 and any other number are the standard one (1252).
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace lm::pdf {

constexpr std::size_t kCodePageCount = 6;

struct CodePage {
  int number;
  std::array<char16_t, 128> upper;  // of the codes from 128 on, 0 where there is no character
  std::string_view differences;     // "[128 /Euro 130 /quotesinglbase ...]"

  // The character of a code; 0 where there is none.
  char16_t Unicode(unsigned char code) const { return code < 128 ? code : upper[code - 128u]; }
};

// Position among the six, which is also the position in the width tables.
std::size_t CodePageIndex(int number);
const CodePage& CodePageOf(int number);

}  // namespace lm::pdf
