// Days of payment, and what is overdue.
#include "documents/moneyowed.h"

#include <gtest/gtest.h>

#include "core/change.h"
#include "core/options.h"
#include "core/rows.h"
#include "core/text.h"
#include "documents/frmInvoice.h"
#include "documents/invoicelist.h"
#include "documents/mergefields.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

// The clock stands at 3 February 2026.
struct MoneyDesk : testing::Test {
  test::TestLedger test;
  Ledger& ledger = test.ledger;
  Grid& invoices = ledger.fgInvoices;

  int Invoice(const std::string& dates) {
    std::vector<std::string> cells{"NUMBER=7", "AMOUNT=1921.5"};
    for (const auto each : Split(dates, ' '))
      if (!each.empty()) cells.emplace_back(each);
    return test.AddRow(invoices, cells);
  }
  void Terms(std::string_view days) { SetMyDetail(ledger, kDaysToPayField, days); }
  std::string Due(int row) { return invoices.TextMatrix(row, "DUEDATE"); }
};

TEST_F(MoneyDesk, TermsAreANumberOfDays) {
  const struct {
    std::string typed;
    std::optional<int> days;
  } cases[] = {{"30", 30}, {" 0 ", 0},  {"", {}},     {"a month", {}},
               {"-1", {}}, {"1e3", {}}, {"9999", {}}, {"14.5", {}}};
  for (const auto& c : cases) {
    Terms(c.typed);
    EXPECT_EQ(DaysToPay(ledger), c.days) << c.typed;
  }
  Terms("30");
  EXPECT_EQ(DueCell(ledger, "31/01/2026"), "02/03/2026");
  EXPECT_EQ(DueCell(ledger, "banana"), "");
}

TEST_F(MoneyDesk, OverdueIsSentAndNotPaidInTime) {
  const struct {
    std::string dates;
    int days;
  } cases[] = {{"SDATE=01/01/2026 DUEDATE=02/02/2026", 1},
               {"SDATE=01/01/2026 DUEDATE=03/02/2026", 0},
               {"SDATE=01/01/2026 DUEDATE=03/01/2026", 31},
               {"DUEDATE=03/01/2026", 0},
               {"SDATE=01/01/2026 DUEDATE=03/01/2026 PAYDATE=02/02/2026", 0},
               {"SDATE=01/01/2026", 0},
               {"SDATE=01/01/2026 DUEDATE=banana", 0}};
  for (const auto& c : cases) {
    const PaymentState state = PaymentStateOf(invoices, Invoice(c.dates));
    EXPECT_EQ(DaysOverdue(state, test.shown.now), c.days) << c.dates;
  }
  EXPECT_EQ(OverdueText(PaymentStateOf(invoices, invoices.FixedRows()), test.shown.now),
            "Overdue by 1 day.");
}

TEST_F(MoneyDesk, TermsEnteredLaterAreForWhatIsNotPaid) {
  const int open = Invoice("IDATE=10/01/2026"),
            own = Invoice("IDATE=10/01/2026 DUEDATE=01/06/2026"),
            paid = Invoice("IDATE=10/01/2026 PAYDATE=12/01/2026"), odd = Invoice("IDATE=banana");
  Terms("14");
  FillDueDates(ledger);
  EXPECT_EQ(Due(open), "24/01/2026");
  EXPECT_EQ(Due(own), "01/06/2026");
  EXPECT_EQ(Due(paid) + Due(odd), "");
  ASSERT_TRUE(ledger.history.Undo());
  EXPECT_EQ(Due(open), "");
}

TEST_F(MoneyDesk, TheDayGoesWithTheDateOfTheInvoice) {
  Terms("30");
  const int row = Invoice("IDATE=01/02/2026 DUEDATE=03/03/2026"), without = Invoice("");
  InvoiceListRules rules(ledger);
  const int date = invoices.ColIndex("IDATE");
  for (const int each : {row, without}) {
    invoices.SetTextMatrix(each, date, "02/02/2026");
    rules.Edited(each, date);
  }
  EXPECT_EQ(Due(row), "04/03/2026");
  EXPECT_EQ(Due(without), "") << "it had none";

  frmInvoice window(ledger);
  ASSERT_TRUE(window.Open(invoices.TextMatrix(row, "ID")));
  window.Enter(window.cIDate, "01/01/2026");
  EXPECT_EQ(window.cDueDate.Text(), "31/01/2026");
  EXPECT_FALSE(window.lblOverdue.Visible()) << "it was not sent";
  window.Enter(window.cSDate, "02/01/2026");
  EXPECT_EQ(window.lblOverdue.Text(), "Overdue by 3 days.");
  window.Enter(window.cPayDate, "03/02/2026");
  EXPECT_FALSE(window.lblOverdue.Visible());
  window.Press(window.cmdOk);
  EXPECT_EQ(Due(row), "31/01/2026");
}

TEST_F(MoneyDesk, AsksForPaymentWithWhatIsKnown) {
  const std::string id = invoices.TextMatrix(Invoice("DUEDATE=31/03/2026"), "ID");
  const auto asked = [&] { return Merge(ledger, "{Payment Request}", {.invoice = id}); };
  const auto says = [&](const std::string& rest) {
    EXPECT_EQ(asked(),
              "Please pay \xA3"
              "1,921.50" +
                  rest + ", quoting 7.");
  };
  SetMyDetail(ledger, kLastNameField, "Smith");
  says(" by 31 March 2026 to Smith");
  SetMyDetail(ledger, kMyTitleField, "Dr");
  SetMyDetail(ledger, kAccountNumberField, "12345678");
  says(" by 31 March 2026 to Dr Smith, account number 12345678");
  invoices.SetTextMatrix(RecordRow(invoices, id), "DUEDATE", "");
  SetMyDetail(ledger, kAccountNameField, "Smith Medical");
  SetMyDetail(ledger, kSortCodeField, "12 3456");
  says(" to Smith Medical, sort code 12-34-56, account number 12345678");
  EXPECT_EQ(Merge(ledger, "{Payment Request}{My Sort Code}", {}), "12 3456");
}

}  // namespace
}  // namespace lm
