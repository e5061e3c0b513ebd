#include "pension/practicetable.h"

#include <algorithm>
#include <optional>
#include <unordered_map>
#include <utility>

#include "core/format.h"
#include "core/pounds.h"
#include "pension/dateruns.h"
#include "pension/forms.h"

namespace lm {
namespace {

constexpr std::string_view kTooMany =
    "*** TOO MANY PRACTICES TO DISPLAY - SEE ATTACHED PAGE FOR MORE DETAILS ***";

struct PracticeLine {
  std::string practiceId;
  Currency amount, pensionable;
  std::optional<Date> firstDay, lastDay;  // worked; none without a session that has its dates
  std::optional<Date> received;           // the latest
};

Currency Sum(const FormRow& formA, std::string_view key) { return CurrencyOf(formA.Cell(key)); }

void Add(const Ledger& ledger, SessionsByMonth& sessions, const FormRow& formA,
         PracticeLine& line) {
  line.amount += Sum(formA, "AMOUNT");
  line.pensionable += Sum(formA, "PENSIONABLE");
  const std::optional<Date> received = CellDate(formA.Cell("RCVDFROMPRACTICE"));
  line.received = std::max(line.received, received);
  for (const DateRun& days :
       SessionsOfFormA(ledger, sessions.Of(formA.InMonth()), line.practiceId)) {
    line.firstDay = std::min(line.firstDay.value_or(days.first), days.first);
    line.lastDay = std::max(line.lastDay.value_or(days.last), days.last);
  }
}

std::vector<PracticeLine> PracticesOf(const Ledger& ledger, SessionsByMonth& sessions,
                                      Month month) {
  std::vector<PracticeLine> lines;
  std::unordered_map<std::string, std::size_t> lineOf;
  for (const int row : ReturnedForms(ledger, kFormA, month)) {
    const FormRow formA{kFormA, ledger.fgPensionA, row};
    const auto [entry, isNew] = lineOf.try_emplace(formA.Practice(), lines.size());
    if (isNew) lines.emplace_back().practiceId = formA.Practice();
    Add(ledger, sessions, formA, lines[entry->second]);
  }
  std::erase_if(lines, [](const PracticeLine& line) { return line.amount == Currency(); });
  return lines;
}

std::string DayOf(std::optional<Date> date) { return date ? FormatDate(*date, "dd/mm/yyyy") : ""; }

}  // namespace

void AddPractices(const Ledger& ledger, SessionsByMonth& sessions, Month month,
                  FormFigures& figures) {
  const std::vector<PracticeLine> lines = PracticesOf(ledger, sessions, month);
  const bool tooMany = lines.size() >= kTooManyPractices;
  const std::size_t shown = tooMany ? kPracticesShownThen : lines.size();
  const std::unordered_map<std::string, int> practices = ledger.fgPractices.RowsBy("ID");
  const auto add = [&](FormItem item, std::string text) {
    figures.texts[item].push_back(std::move(text));
  };
  for (std::size_t i = 0; i < shown; ++i) {
    const PracticeLine& line = lines[i];
    const auto practice = practices.find(line.practiceId);
    const int row = practice == practices.end() ? -1 : practice->second;
    add(FormItem::PracticeCode, ledger.fgPractices.TextMatrix(row, "PCODE"));
    add(FormItem::PracticeName, ledger.fgPractices.TextMatrix(row, "NAME"));
    add(FormItem::PracticeFirstDay, DayOf(line.firstDay));
    add(FormItem::PracticeLastDay, DayOf(line.lastDay));
    add(FormItem::PracticeReceived, DayOf(line.received));
    add(FormItem::PracticeAmount, Format(line.amount, "#,##0.00"));
    add(FormItem::PracticePensionable, Format(line.pensionable, "#,##0.00"));
  }
  if (tooMany) add(FormItem::TooManyPractices, std::string(kTooMany));
}

}  // namespace lm
