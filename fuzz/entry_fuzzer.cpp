// Typed dates, times and amounts: any bytes give a readable cell or a message, never both.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "core/dates.h"
#include "core/numbers.h"
#include "core/text.h"
#include "entry/money.h"
#include "entry/parsedate.h"
#include "entry/parsetime.h"

namespace {

void Require(bool holds) {
  if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const bool blank = lm::Trim(text).empty();
  // A run of days, so that month and year ends come up.
  const lm::Date now = lm::DateSerial(2024, 1, 1) + static_cast<double>(size) + 0.4;

  std::string result, message;
  lm::ParseDate(text, now, result, message);
  Require(blank ? result.empty() && message.empty() : result.empty() != message.empty());
  Require(result.empty() || lm::CellText(lm::CellDate(result).value()) == result);

  lm::ParseTime(text, now, result, message);
  Require(blank ? result.empty() && message.empty() : result.empty() != message.empty());
  Require(result.empty() || lm::CellTimeText(lm::CellTime(result).value()) == result);

  const std::string amount = lm::MoneyCell(text);
  Require(amount.empty() || (lm::IsNumeric(amount) && lm::Val(amount) < lm::kMoneyCeiling &&
                             lm::Val(amount) == lm::NumericValue(amount)));
  return 0;
}
