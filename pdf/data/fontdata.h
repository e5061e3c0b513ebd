// The tables that tools/make-font-metrics.py writes. Widths are thousandths of the font size.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "pdf/codepages.h"

namespace lm::pdf {

using Widths = std::array<std::int16_t, 256>;

// By style (1 bold, 2 italic) and by position in kCodePages.
using FamilyWidths = std::array<std::array<Widths, kCodePageCount>, 4>;
extern const FamilyWidths kArial;
extern const FamilyWidths kTimesNewRoman;

struct SymbolFont {
  int lineHeight;  // of the font's box
  int descent;     // negative
  Widths widths;
};
extern const SymbolFont kSymbol;
extern const SymbolFont kZapfDingbats;

extern const std::array<CodePage, kCodePageCount> kCodePages;

}  // namespace lm::pdf
