#include "records/sessionrun.h"

#include <cmath>
#include <unordered_set>

#include "core/change.h"
#include "core/format.h"
#include "core/numbers.h"
#include "core/options.h"
#include "core/rows.h"
#include "core/sessiontypes.h"
#include "core/text.h"
#include "records/practices.h"
#include "records/sessionitems.h"
#include "records/sessionrules.h"

namespace lm {
namespace {

// 0.9 as a Single has it, taken as a Double.
constexpr Double kShareOfNormal = 0.8999999761581421;

std::unordered_set<std::string> DaysStartingAt(const Grid& sessions, std::string_view time) {
  std::unordered_set<std::string> days;
  const int dateCol = sessions.ColIndex("SDATE"), timeCol = sessions.ColIndex("STIME");
  for (const int row : Records(sessions))
    if (sessions.TextMatrix(row, timeCol) == time) days.insert(sessions.TextMatrix(row, dateCol));
  return days;
}

struct Contribution {
  std::string amount;
  std::string_view included;
};

Contribution ContributionOf(const SessionRun& run, std::string_view rate) {
  if (run.type != kTypeNormal && run.type != kTypeOohStandard) return {"0", "0"};
  const Double share = run.type == kTypeNormal ? Val(run.fee) * kShareOfNormal : Val(run.fee);
  return {Money(share * (Val(rate) / 100)), "1"};
}

// The session's mileage expense; its amount.
std::string AddMileage(Ledger& ledger, const SessionRun& run, int itemId, int sessionId) {
  Grid& expenses = ledger.fgSessionExpenses;
  const std::string& rate = GetOption(ledger, optMileageRate);
  const auto miles = static_cast<Single>(Val(PracticeCell(ledger, run.practice, "MILEAGE")));
  const std::string charge = Money(static_cast<Single>(Val(rate) * miles));
  const int row = AddRecord(ledger, expenses);
  expenses.SetTextMatrix(row, "ID", PlainText(itemId));
  expenses.SetTextMatrix(row, "SESSID", PlainText(sessionId));
  expenses.SetTextMatrix(row, "ITEM", MileageItem(miles, static_cast<Single>(Val(rate))));
  expenses.SetTextMatrix(row, "CATEGORY", kMileageCategory);
  expenses.SetTextMatrix(row, "RATE", charge);
  return charge;
}

}  // namespace

RunDays DaysOfRun(const Ledger& ledger, Date first, Date last, const std::array<bool, 7>& weekdays,
                  std::string_view startTime) {
  RunDays days;
  const auto existing = DaysStartingAt(ledger.fgSessions, startTime);
  for (Date day = first; day <= last; ++day) {
    if (!weekdays[static_cast<std::size_t>(WeekdayMondayFirst(day) - 1)]) continue;
    (existing.contains(CellText(day)) ? days.existing : days.made).push_back(day);
  }
  return days;
}

void CreateRun(Ledger& ledger, const SessionRun& run, const std::vector<Date>& days) {
  const Change change(ledger, "Add Sessions");
  Grid& sessions = ledger.fgSessions;
  const RedrawOff redrawOff(sessions);
  const std::string rate = GetOption(ledger, optEmployerContribRate);
  const Contribution contribution = ContributionOf(run, rate);
  int id = NextId(sessions);
  int itemId = NextId(ledger.fgSessionExpenses);
  for (const Date day : days) {
    const int row = AddRecord(ledger, sessions);
    const auto set = [&](std::string_view key, std::string_view text) {
      sessions.SetTextMatrix(row, key, text);
    };
    set("ID", PlainText(id));
    set("SDATE", CellText(day));
    set("STIME", run.startTime);
    set("ETIME", run.endTime);
    set("EDATE", run.endTime < run.startTime ? CellText(day + 1) : "");
    set("RATE", run.fee);
    set("PRACTICE", run.practice);
    set("SESS_TYPE", PlainText(run.type));
    set("PUBLICNOTE", run.publicNote);
    set("NOTES", run.privateNote);
    set("EXPENSES", "0");
    set("EXTRAS", "0");
    set("EMPLOYERCONTRIBRATE", rate);
    set("EMPLOYERCONTRIB", contribution.amount);
    set("INCLUDEEMPLOYERCONTRIB", contribution.included);
    set("TOTAL", Money(Val(run.fee) + Val(contribution.amount)));
    if (run.mileageCharge) {
      const std::string charge = AddMileage(ledger, run, itemId++, id);
      set("EXPENSES", charge);
      set("TOTAL", Money(Val(run.fee) + Val(charge) + Val(contribution.amount)));
    }
    ++id;
  }
}

std::string FeeOfRun(const Ledger& ledger, const SessionRun& run) {
  return HourlyFee(ledger, run.type, run.practice, {"01/01/2000", run.startTime, "", run.endTime})
      .value_or("");
}

}  // namespace lm
