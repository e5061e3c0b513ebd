#include "pension/month.h"

#include <optional>

#include "core/format.h"
#include "core/text.h"

namespace lm {

Month::Month(Date date) {
  const CivilDate day = ToCivilDate(date);
  number_ = 12 * day.year + day.month - 1;
}

Month Month::OfCell(std::string_view dateCell) {
  const std::optional<Date> date = CellDate(dateCell);
  return date ? Month(*date) : Month();
}

Month Month::OfKey(std::string_view key) {
  if (key.size() != 6 || !AllDigits(key)) return {};
  return OfCell("01/" + std::string(key.substr(0, 2)) + "/" + std::string(key.substr(2)));
}

Date Month::FirstDay() const { return DateSerial(number_ / 12, number_ % 12 + 1, 1); }

std::string Month::Text(std::string_view pattern) const {
  return *this ? FormatDate(FirstDay(), pattern) : "";
}

}  // namespace lm
