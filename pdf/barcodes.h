// Bar codes: from a code to the widths of its bars and gaps.
#pragma once

#include <string>
#include <string_view>

namespace lm::pdf {

struct BarCode {
  std::string elements;  // widths in modules, "1" to "4": a bar, a gap, a bar, ... a bar
  std::string text;      // what stands under the bars, with the check digit where there is one

  int Modules() const;
};

// kind 0 Code 128 (ASCII; its subsets change by themselves, digits go in pairs), 1 Code 39
// (capitals, digits and "-. $/+%", without a check sign), 2 EAN-13 (12 digits, or 13 with the check
// digit), 3 EAN-8 (7 or 8), 4 Interleaved 2 of 5 (digits, an odd number gets a 0 in front), 5
// Standard 2 of 5 (digits). Throws Error with the reason for a code that the kind cannot hold.
BarCode EncodeBarCode(int kind, std::string_view code);

// The last digit of an EAN whose other digits these are, by their weights 3 and 1 from the right.
char EanCheckDigit(std::string_view digits);

}  // namespace lm::pdf
