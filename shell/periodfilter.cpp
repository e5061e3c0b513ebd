#include "shell/periodfilter.h"

#include <cmath>

#include "core/numbers.h"
#include "core/options.h"
#include "core/platform.h"
#include "documents/moneyowed.h"

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

namespace {

bool IsIn(const std::optional<DateRange>& range, Date day) {
  return range && range->Has(std::floor(day));
}

}  // namespace

RowTest SessionsOf(const Ledger& ledger, SessionPeriod period) {
  const Grid& grid = ledger.fgSessions;
  if (period == SessionPeriod::All) return [](int) { return true; };
  if (period == SessionPeriod::Uninvoiced)
    return [&grid, invoice = grid.ColIndex("INVOICE")](int row) {
      return grid.TextMatrix(row, invoice).empty();
    };
  return [&grid, period, start = grid.ColIndex("SDATE"),
          range = DaysOfPeriod(ledger, period, ledger.platform.clock.Now())](int row) {
    const std::optional<Date> day = CellDate(grid.TextMatrix(row, start));
    return day ? IsIn(range, *day) : period == SessionPeriod::Current;
  };
}

std::vector<std::string> InvoiceStateCaptions() {
  return {"All", "Not Sent", "Not Paid", "No Receipt", "This Tax Year", "Overdue"};
}

RowTest InvoicesOf(const Ledger& ledger, InvoiceState state) {
  const Grid& grid = ledger.fgInvoices;
  const auto has = [&grid](std::string_view key) {
    return
        [&grid, col = grid.ColIndex(key)](int row) { return !grid.TextMatrix(row, col).empty(); };
  };
  const auto sent = has("SDATE");
  const auto paid = has("PAYDATE");
  const auto receipted = has("RECEIPTDATE");
  switch (state) {
    case InvoiceState::NotSent:
      return [sent](int row) { return !sent(row); };
    case InvoiceState::NotPaid:
      return [sent, paid](int row) { return sent(row) && !paid(row); };
    case InvoiceState::NoReceipt:
      return [paid, receipted](int row) { return paid(row) && !receipted(row); };
    case InvoiceState::ThisTaxYear:
      return [&grid, date = grid.ColIndex("IDATE"),
              range = DaysOfPeriod(ledger, SessionPeriod::ThisTaxYear,
                                   ledger.platform.clock.Now())](int row) {
        const std::optional<Date> day = CellDate(grid.TextMatrix(row, date));
        return !day || IsIn(range, *day);
      };
    case InvoiceState::Overdue:
      return [&grid, today = ledger.platform.clock.Now()](int row) {
        return DaysOverdue(PaymentStateOf(grid, row), today) > 0;
      };
    case InvoiceState::All:
      break;
  }
  return [](int) { return true; };
}

}  // namespace lm
