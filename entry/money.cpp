#include "entry/money.h"

#include "core/format.h"
#include "core/numbers.h"
#include "core/text.h"

namespace lm {
namespace {

std::string WithoutZeroPence(std::string text) {
  if (text.ends_with(".00")) text.resize(text.size() - 3);
  return text;
}

std::string Cleaned(std::string_view typed) {
  const std::string signless = RemoveAny(Trim(typed), "£$+"_w);
  std::string text(Trim(signless));  // "£ 12"
  if (!IsNumeric(text)) return "";
  if (text.find('.') != std::string::npos) text = Format(NumericValue(text), "0.00");
  return WithoutZeroPence(text);
}

std::string AsCell(std::string_view cleaned) {
  const std::string text = RemoveAny(cleaned, ",");
  // "1E3" is a thousand, which Val would read as 1.
  const bool plain = text.find_first_not_of("+-.0123456789") == std::string::npos;
  return plain ? text : WithoutZeroPence(Format(NumericValue(text), "0.00"));
}

}  // namespace

std::string CleanMoney(std::string_view typed) {
  const std::string text = Cleaned(typed);
  // After the rounding: 99999.999 is no amount below the ceiling either.
  return NumericValue(text) >= kMoneyCeiling ? "" : text;
}

std::string MoneyCell(std::string_view typed) { return AsCell(CleanMoney(typed)); }

std::string AnyMoneyCell(std::string_view text) { return AsCell(Cleaned(text)); }

}  // namespace lm
