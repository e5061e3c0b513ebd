// Numbers, dates and patterns as a damaged data file or a template may hold them. The input is a
// pattern, a line break, and a cell's text.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/dates.h"
#include "core/format.h"
#include "core/numbers.h"

namespace {

void Require(bool holds) {
  if (!holds) __builtin_trap();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace lm;
  const std::string input(reinterpret_cast<const char*>(data), size);
  const std::size_t split = input.find('\n');
  const std::string pattern = input.substr(0, split);
  const std::string text = split == std::string::npos ? input : input.substr(split + 1);

  const Double value = Val(text);
  const std::string plain = PlainText(value);
  const bool huge = plain.size() > 300;  // 15 digits may round above the largest double
  Require(huge || PlainText(Val(plain)) == plain);
  Require(IsNumeric(Format(value, "#,##0.00")) || huge);
  Require(Format(value, "0.00").find_first_not_of("-.0123456789") == std::string::npos);

  const Currency money = Currency::From(value);
  Require(money - money == Currency());

  if (const auto date = CellDate(text)) Require(CellDate(CellText(*date)) == date);
  if (const auto time = CellTime(text)) Require(CellTimeText(*time).size() == 5);

  Format(text, pattern);
  Format(value, pattern);
  Format(static_cast<Single>(value), pattern);
  Format(money, pattern);
  FormatDate(value, pattern);
  return 0;
}
