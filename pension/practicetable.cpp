#include "pension/practicetable.h"

#include <algorithm>
#include <unordered_map>

#include "core/text.h"
#include "pension/dateruns.h"
#include "pension/months.h"

namespace lm {
namespace {

Currency Money(const Grid& forms, int row, std::string_view key) {
  return Currency::FromText(RemoveAny(forms.TextMatrix(row, key), ","));
}

void Add(const Ledger& ledger, const SessionsOf& sessionsOf, int row, Date received,
         PracticeLine& line) {
  const Grid& forms = ledger.fgPensionA;
  line.amount += Money(forms, row, "AMOUNT");
  line.pensionable += Money(forms, row, "PENSIONABLE");
  line.received = std::max(line.received.value_or(received), received);
  const std::string worked = MonthKeyOf(forms.TextMatrix(row, "MONTH"));
  if (worked.empty()) return;
  for (const DateRun& days : SessionsOfFormA(ledger, sessionsOf(worked), line.practiceId)) {
    line.firstDay = std::min(line.firstDay.value_or(days.first), days.first);
    line.lastDay = std::max(line.lastDay.value_or(days.last), days.last);
  }
}

}  // namespace

std::vector<PracticeLine> PracticesOfFormB(const Ledger& ledger, const SessionsOf& sessionsOf,
                                           std::string_view monthKey) {
  const Grid& forms = ledger.fgPensionA;
  std::vector<PracticeLine> lines;
  std::unordered_map<std::string, std::size_t> lineOf;
  for (int row = forms.FixedRows(); row < forms.Rows(); ++row) {
    if (forms.IsSubtotal(row)) continue;
    const std::optional<Date> received = CellDate(forms.TextMatrix(row, "RCVDFROMPRACTICE"));
    if (!received || MonthKey(*received) != monthKey) continue;
    const std::string practiceId = forms.TextMatrix(row, "PRACTICE");
    const auto [entry, isNew] = lineOf.try_emplace(practiceId, lines.size());
    if (isNew) lines.emplace_back().practiceId = practiceId;
    Add(ledger, sessionsOf, row, *received, lines[entry->second]);
  }
  std::erase_if(lines, [](const PracticeLine& line) { return line.amount == Currency(); });
  return lines;
}

}  // namespace lm
