#include "shell/periodfilter.h"

#include <cmath>

#include "core/numbers.h"
#include "core/options.h"
#include "core/platform.h"

namespace lm {
namespace {

constexpr int kTaxYearMonth = 4;
constexpr int kTaxYearDay = 6;

Date OptionDays(const Ledger& ledger, int option) { return Val(GetOption(ledger, option)); }

}  // namespace

std::vector<std::string> SessionPeriodCaptions() {
  return {"Current", "This Month", "Last Month", "This Tax Year", "Uninvoiced", "All"};
}

Date TaxYearStart(Date day) {
  const int year = ToCivilDate(day).year;
  const Date start = DateSerial(year, kTaxYearMonth, kTaxYearDay);
  return std::floor(day) >= start ? start : DateSerial(year - 1, kTaxYearMonth, kTaxYearDay);
}

std::optional<DateRange> DaysOfPeriod(const Ledger& ledger, SessionPeriod period, Date today) {
  today = std::floor(today);
  switch (period) {
    case SessionPeriod::Current:
      return DateRange{today - OptionDays(ledger, optCurrentSessionsPast),
                       today + OptionDays(ledger, optCurrentSessionsFuture)};
    case SessionPeriod::ThisMonth:
      return DateRange{FirstOfMonth(today), LastOfMonth(today)};
    case SessionPeriod::LastMonth: {
      const Date lastMonth = AddMonths(today, -1);
      return DateRange{FirstOfMonth(lastMonth), LastOfMonth(lastMonth)};
    }
    case SessionPeriod::ThisTaxYear: {
      const Date start = TaxYearStart(today);
      return DateRange{start, AddMonths(start, 12) - 1};
    }
    case SessionPeriod::Uninvoiced:
    case SessionPeriod::All:
      break;
  }
  return std::nullopt;
}

void SessionPeriodFilter::Apply(SessionPeriod period) {
  Grid& grid = ledger_.fgSessions;
  const RedrawOff redrawOff(grid);
  const auto range = DaysOfPeriod(ledger_, period, ledger_.platform.clock.Now());
  const int id = grid.ColIndex("ID");
  const int start = grid.ColIndex("SDATE");
  const int invoice = grid.ColIndex("INVOICE");

  const auto isInPeriod = [&](int row) {
    if (period == SessionPeriod::Uninvoiced) return grid.TextMatrix(row, invoice).empty();
    if (!range) return true;
    const std::optional<Date> day = CellDate(grid.TextMatrix(row, start));
    if (!day) return period == SessionPeriod::Current;
    return std::floor(*day) >= range->first && std::floor(*day) <= range->last;
  };
  for (int row = grid.FixedRows(); row < grid.Rows(); ++row)
    grid.SetRowHidden(row, !isInPeriod(row) && !kept_.contains(grid.TextMatrix(row, id)));
}

}  // namespace lm
