#include <algorithm>

#include "core/format.h"
#include "core/options.h"
#include "core/text.h"
#include "pension/dateruns.h"
#include "pension/formoverlay.h"
#include "pension/forms.h"
#include "pension/monthsessions.h"
#include "records/sessionrules.h"

namespace lm {
namespace {

constexpr int kSchemeNumber = 18;
constexpr std::size_t kSchemeNumberBoxes = 8;
constexpr int kOutOfHours = 2;

struct Box {
  FormItem item;
  std::string_view key;
};

constexpr Box kBoxes[] = {
    {FormItem::SoloC, "PENSIONABLE"},
    {FormItem::SoloE, "MY_CONTRIB"},
    {FormItem::SoloAddedYears, "EXTRAYEARS"},
    {FormItem::SoloAdditional, "ADDITIONAL"},
    {FormItem::SoloAvc, "AVC"},
    {FormItem::SoloG, "ERRBO"},
    {FormItem::SoloJ, "EMP_CONTRIB"},
    {FormItem::SoloK, "TOTAL_CONTRIB"},
};

std::string SchemeNumber(const Ledger& ledger) {
  std::string number = ToUpper(Trim(MyDetail(ledger, kSchemeNumber)));
  if (number.size() > kSchemeNumberBoxes) number.erase(0, number.size() - kSchemeNumberBoxes);
  return number;
}

// From the first to the last day; a month without such sessions keeps the two ends it starts from.
DateRun DaysWorked(const Ledger& ledger, const MonthSessions& sessions,
                   const std::string& practiceId) {
  DateRun worked{DateSerial(2099, 12, 30), DateSerial(1910, 1, 1), {}};
  for (const int row : sessions.Of(practiceId)) {
    if (SessionTypeOf(ledger, row) != kOutOfHours) continue;
    const std::optional<DateRun> days = DaysOfSession(ledger, row);
    if (!days) continue;
    worked.first = std::min(worked.first, days->first);
    worked.last = std::max(worked.last, days->last);
  }
  return worked;
}

}  // namespace

FormFigures FiguresOfFormSolo(const Ledger& ledger, const SessionsOf& sessionsOf, int row,
                              const std::string& monthKey, const std::string& practiceId) {
  const Grid& form = ledger.fgPensionSolo;
  const auto cell = [&](std::string_view key) { return Figure(form, row, key); };
  FormFigures figures;
  AddLocum(ledger, figures);
  figures.texts[FormItem::SchemeNumber] = {SchemeNumber(ledger)};

  const DateRun worked = DaysWorked(ledger, sessionsOf(monthKey), practiceId);
  figures.texts[FormItem::FirstDay] = {FormatDate(worked.first, "dd mm yyyy")};
  figures.texts[FormItem::LastDay] = {FormatDate(worked.last, "dd mm yyyy")};

  for (const Box& box : kBoxes) figures.texts[box.item] = {Format(cell(box.key), "0.00")};
  const Double expenses = cell("EXPENSES");
  figures.texts[FormItem::SoloA] = {Format(cell("PENSIONABLE") + expenses, "#,##0.00")};
  figures.texts[FormItem::SoloB] = {expenses == 0 ? "NIL" : Format(expenses, "#,##0.00")};
  const std::optional<Single> rate = RateOfFormB(ledger, monthKey);
  figures.texts[FormItem::SoloD] = {
      (rate ? Format(*rate, "0.00")
            : Format(Val(GetOption(ledger, optMandatoryContribution)), "0.00")) +
      " %"};
  const Double contributions =
      cell("MY_CONTRIB") + cell("EXTRAYEARS") + cell("ADDITIONAL") + cell("AVC") + cell("ERRBO");
  figures.texts[FormItem::SoloH] = {Format(contributions, "0.00")};
  figures.texts[FormItem::SoloI] = {Format(cell("PENSIONABLE") - contributions, "0.00")};
  return figures;
}

}  // namespace lm
