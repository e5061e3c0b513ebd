#include "pdf/codepages.h"

#include <algorithm>

#include "pdf/data/fontdata.h"

namespace lm::pdf {

std::size_t CodePageIndex(int number) {
  const auto found = std::ranges::find(kCodePages, number, &CodePage::number);
  return found == kCodePages.end() ? 0 : static_cast<std::size_t>(found - kCodePages.begin());
}

const CodePage& CodePageOf(int number) { return kCodePages[CodePageIndex(number)]; }

}  // namespace lm::pdf
