#include "entry/checks.h"

#include "core/format.h"
#include "core/messagebox.h"
#include "core/numbers.h"
#include "core/platform.h"
#include "core/text.h"
#include "entry/money.h"
#include "entry/parsedate.h"
#include "entry/parsetime.h"

namespace lm {
namespace {

std::optional<std::string> TextOrMessage(Ledger& ledger, Entered entered,
                                         std::string_view fieldMessage) {
  if (entered.refusal == Refusal::None) return std::move(entered.text);
  ShowMessage(ledger, fieldMessage, IsGeneric(entered.refusal) ? "" : TextOf(entered.refusal));
  return std::nullopt;
}

}  // namespace

std::optional<std::string> EnterDate(Ledger& ledger, std::string_view typed,
                                     std::string_view fieldMessage) {
  return TextOrMessage(ledger, ReadDate(typed, ledger.platform.clock.Now()), fieldMessage);
}

std::optional<std::string> EnterTime(Ledger& ledger, std::string_view typed,
                                     std::string_view fieldMessage) {
  return TextOrMessage(ledger, ReadTime(typed, ledger.platform.clock.Now()), fieldMessage);
}

std::optional<std::string> EnterAmount(Ledger& ledger, std::string_view typed,
                                       std::string_view fieldMessage) {
  std::string amount = MoneyCell(typed);
  if (!amount.empty() || Trim(typed).empty()) return amount;
  if (!fieldMessage.empty()) ShowMessage(ledger, fieldMessage);
  return std::nullopt;
}

std::optional<std::string> EnterRate(Ledger& ledger, std::string_view typed) {
  const std::string signless = RemoveAny(typed, "£$+"_w);
  const std::string_view text = Trim(signless);
  if (text.empty()) return "";
  if (IsNumeric(text)) return Money(NumericValue(text));
  ShowMessage(ledger, kInvalidRate);
  return std::nullopt;
}

}  // namespace lm
