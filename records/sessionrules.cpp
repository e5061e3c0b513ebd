#include "records/sessionrules.h"

#include <vector>

#include "core/change.h"
#include "core/dates.h"
#include "core/format.h"
#include "core/messagebox.h"
#include "core/options.h"
#include "core/platform.h"
#include "core/rows.h"
#include "core/text.h"
#include "records/practices.h"

namespace lm {
namespace {

// 0 for a type on which the employer contributes nothing, and for codes that are no type.
Single ContributionShare(int typeCode) {
  const SessionType* type = FindSessionType(typeCode);
  return type ? type->contributionShare : 0;
}

std::optional<Double> DaysWorked(const SessionTimes& times) {
  const auto startDate = CellDate(times.startDate);
  const auto startTime = CellTime(times.startTime);
  const auto endDate = times.endDate.empty() ? startDate : CellDate(times.endDate);
  const auto endTime = CellTime(times.endTime);
  if (!startDate || !startTime || !endDate || !endTime) return std::nullopt;
  return (*endDate + *endTime) - (*startDate + *startTime);
}

Single SumAsSingle(std::string_view a, std::string_view b) {
  return static_cast<Single>(Val(a) + Val(b));
}

void RemoveRowsOf(Grid& grid, std::string_view sessionId) {
  const RedrawOff off(grid);
  const int sessId = grid.ColIndex("SESSID");
  for (int row = grid.Rows() - 1; row >= grid.FixedRows(); --row)
    if (grid.TextMatrix(row, sessId) == sessionId) grid.RemoveItem(row);
}

void SetForms(Ledger& ledger, int row, const std::string& forms) {
  Grid& sessions = ledger.fgSessions;
  if (sessions.TextMatrix(row, "FORMS") == forms) return;
  sessions.SetTextMatrix(row, "FORMS", forms);
  MarkEdited(ledger, sessions, row);
}

}  // namespace

std::optional<Single> HourlyRate(const Ledger& ledger, int typeCode, std::string_view practiceId) {
  const SessionType* type = FindSessionType(typeCode);
  if (!type) type = FindSessionType(kTypeNormal);
  std::string rate = PracticeCell(ledger, practiceId, type->rateColumn);
  if (rate.empty()) {
    const std::string option = GetOption(ledger, optDefaultRates);
    const auto defaults = Split(option, '|');
    if (type->defaultRate < defaults.size()) rate = defaults[type->defaultRate];
  }
  if (rate.empty()) return std::nullopt;
  return static_cast<Single>(Val(rate));
}

std::optional<std::string> HourlyFee(const Ledger& ledger, int typeCode,
                                     std::string_view practiceId, const SessionTimes& times) {
  const auto hourlyRate = HourlyRate(ledger, typeCode, practiceId);
  const auto days = DaysWorked(times);
  if (!hourlyRate || !days) return std::nullopt;
  const auto hours = static_cast<Single>(*days * 24);
  return Money(hours * *hourlyRate);
}

std::optional<std::string> FeeFromTimes(const Ledger& ledger, int typeCode,
                                        std::string_view practiceId, const SessionTimes& times) {
  const auto fee = HourlyFee(ledger, typeCode, practiceId, times);
  return fee && Val(*fee) < 0 ? "0.00" : fee;
}

void GridFeeFromTimes(Ledger& ledger, int row) {
  Grid& sessions = ledger.fgSessions;
  const auto cell = [&](std::string_view key) { return sessions.TextMatrix(row, key); };
  const auto fee = HourlyFee(ledger, SessionTypeOf(ledger, row), cell("PRACTICE"),
                             {cell("SDATE"), cell("STIME"), cell("EDATE"), cell("ETIME")});
  if (!fee) return;
  const auto pounds = static_cast<Single>(Val(*fee));
  sessions.SetTextMatrix(row, "RATE", PlainText(pounds < 0 ? 0 : pounds));
}

SessionSums WindowRecalculation(int typeCode, std::string_view rate, std::string_view extras,
                                std::string_view expenses, std::string_view contribRate) {
  SessionSums sums;
  const Single amount = SumAsSingle(extras, rate);
  sums.pensionable = Money(amount);
  sums.employerContrib = "0.00";
  if (const Single share = ContributionShare(typeCode); share > 0) {
    const Single base = amount * share;
    sums.employerContrib = Money(static_cast<Double>(base) * Val(contribRate) / 100);
  }
  sums.total = Money(Val(rate) + Val(extras) + Val(expenses) + Val(sums.employerContrib));
  return sums;
}

void GridRecalculation(Ledger& ledger, int row) {
  Grid& sessions = ledger.fgSessions;
  const auto cell = [&](std::string_view key) { return sessions.TextMatrix(row, key); };
  std::string contribution = "0";
  if (const Single share = ContributionShare(SessionTypeOf(ledger, row)); share > 0) {
    const auto percentage = static_cast<Single>(Val(cell("EMPLOYERCONTRIBRATE")));
    const Single base = SumAsSingle(cell("RATE"), cell("EXTRAS")) * share;
    contribution = Money((percentage / 100) * base);
  }
  sessions.SetTextMatrix(row, "EMPLOYERCONTRIB", contribution);
  sessions.SetTextMatrix(row, "TOTAL",
                         PlainText(Val(cell("RATE")) + Val(cell("EXTRAS")) + Val(cell("EXPENSES")) +
                                   Val(contribution)));
}

std::string SumOfItems(const Grid& items) {
  const int rate = items.ColIndex("RATE");
  Single sum = 0;
  for (int row = items.FixedRows(); row < items.Rows(); ++row)
    if (!items.RowHidden(row)) sum = static_cast<Single>(sum + Val(items.TextMatrix(row, rate)));
  return Money(RoundMoney(sum));
}

int SessionRow(const Ledger& ledger, std::string_view id) {
  return RecordRow(ledger.fgSessions, id);
}

int SessionTypeOf(const Ledger& ledger, int row) {
  return ValInt(ledger.fgSessions.TextMatrix(row, "SESS_TYPE"));
}

bool IsSessionLocked(const Ledger& ledger, int row) {
  return IsLocked(ledger.fgSessions.TextMatrix(row, "FORMS"),
                  ledger.fgSessions.TextMatrix(row, "INVOICE"));
}

bool StartsTogether(const Ledger& ledger, std::string_view date, std::string_view time,
                    std::string_view exceptId) {
  if (date.empty() || time.empty()) return false;
  const Grid& sessions = ledger.fgSessions;
  const int idCol = sessions.ColIndex("ID");
  const int dateCol = sessions.ColIndex("SDATE");
  const int timeCol = sessions.ColIndex("STIME");
  for (const int row : Records(sessions)) {
    if (sessions.TextMatrix(row, dateCol) != date || sessions.TextMatrix(row, timeCol) != time)
      continue;
    if (exceptId.empty() || sessions.TextMatrix(row, idCol) != exceptId) return true;
  }
  return false;
}

std::optional<LockMessage> DeleteRefusal(std::string_view forms, std::string_view invoice) {
  if (!invoice.empty())
    return LockMessage{"A session cannot be deleted once it has been put on an invoice",
                       "You must delete the invoice first in order to delete this session, or "
                       "remove the session from the invoice."};
  if (!forms.empty())
    return LockMessage{"A session cannot be deleted once it has been put on a pension form",
                       "You must delete the pension form first."};
  return std::nullopt;
}

bool DeleteSession(Ledger& ledger, std::string_view id) {
  if (id.empty()) return Ask(ledger, "Delete this session?");

  const int row = SessionRow(ledger, id);
  return row >= 0 && DeleteSessionOfRow(ledger, row);
}

bool DeleteSessionOfRow(Ledger& ledger, int row) {
  Grid& sessions = ledger.fgSessions;
  const auto refusal =
      DeleteRefusal(sessions.TextMatrix(row, "FORMS"), sessions.TextMatrix(row, "INVOICE"));
  if (refusal) {
    ShowMessage(ledger, refusal->mainPrompt, refusal->minorPrompt);
    return false;
  }
  const std::string& practice = PracticeName(ledger, sessions.TextMatrix(row, "PRACTICE"));
  if (!Ask(ledger, "Delete Session", "Delete this session for practice '" + practice + "'?"))
    return false;

  const Change change(ledger, "Delete Session");
  const std::string id = sessions.TextMatrix(row, "ID");
  if (!id.empty()) {  // items without a session's ID are of no session
    RemoveRowsOf(ledger.fgExtras, id);
    RemoveRowsOf(ledger.fgSessionExpenses, id);
  }
  sessions.RemoveItem(row);
  return true;
}

std::string WithFormLetter(std::string_view forms, std::string_view letter) {
  if (forms.empty()) return std::string(letter);
  if (forms.find(letter) != std::string_view::npos) return std::string(forms);
  return std::string(forms) + "," + std::string(letter);
}

std::string WithoutFormLetter(std::string_view forms, std::string_view letter) {
  const std::string left = Replace(forms, letter, "");
  return left.size() == 2 ? RemoveAny(left, ",") : left;
}

void AddFormLetter(Ledger& ledger, int row, std::string_view letter) {
  SetForms(ledger, row, WithFormLetter(ledger.fgSessions.TextMatrix(row, "FORMS"), letter));
}

void RemoveFormLetter(Ledger& ledger, int row, std::string_view letter) {
  SetForms(ledger, row, WithoutFormLetter(ledger.fgSessions.TextMatrix(row, "FORMS"), letter));
}

std::string InvoiceStatusText(const Ledger& ledger, int row) {
  if (ledger.fgSessions.TextMatrix(row, "INVOICE").empty()) return "Not invoiced yet";
  return ledger.fgSessions.DisplayText(row, "INVOICE");
}

std::string_view UnpensionedText(int typeCode) {
  return ContributionShare(typeCode) > 0 ? "Not pensioned yet" : "Not pensionable";
}

bool ShowsEmployerContrib(const Ledger& ledger) {
  return EqualsIgnoreCase(GetOption(ledger, optPensionCountry), "ENGLAND");
}

std::string EmployerContribHelp(const Ledger& ledger) {
  return "The employer pension contribution is charged to the practice on top of the session fee, "
         "and is passed on to the NHS pension scheme with your own contribution.\\n\\n"
         "For NHS Normal sessions the contribution is paid on 90% of the session fee.\\n"
         "Employer Contribution = ((Rate + Extras) * 90%) * Contribution Rate\\n\\n"
         "For NHS OOH sessions the contribution is paid on 100% of the session fee.\\n"
         "Employer Contribution = (Rate + Extras) * Contribution Rate\\n\\n"
         "You currently have the employer contribution rate set at " +
         Money(Val(GetOption(ledger, optEmployerContribRate))) + "%.";
}

}  // namespace lm
