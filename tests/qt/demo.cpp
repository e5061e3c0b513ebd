#include "tests/qt/demo.h"

#include "core/formatting.h"
#include "core/options.h"
#include "core/rows.h"
#include "pension/forms.h"
#include "pension/shippedforms.h"

namespace lm::test {
namespace {}  // namespace

void FillDemo(TestLedger& test) {
  Ledger& ledger = test.ledger;
  SetMyDetail(ledger, kMyTitleField, "Dr");
  SetMyDetail(ledger, kFirstNameField, "Frances");
  SetMyDetail(ledger, kLastNameField, "Okafor");
  SetMyDetail(ledger, kAddress1Field, "14 Linden Terrace");
  SetMyDetail(ledger, kPostcodeField, "BS6 5QA");
  SetMyDetail(ledger, kEmailField, "f.okafor@example.org");

  const std::vector<std::vector<std::string>> practices{
      {"NAME=Riverside Surgery", "PCODE=F84003", "ODS_CODE=L81007", "ADDR1=2 Quay Street",
       "ADDR2=Bristol", "POSTCODE=BS1 4RW", "PHONE=0117 496 0110", "PMANAGER=Anne Priddy",
       "MILEAGE=12.5", "RATE_NORMAL=80.00"},
      {"NAME=Orchard Lane Practice", "PCODE=F84119", "ADDR1=Orchard Lane", "POSTCODE=BA1 2XY",
       "MILEAGE=31", "RATE_NORMAL=85.00", "RATE_OOHS=98.00"},
      {"NAME=St Mary's Out of Hours", "PCODE=F84200", "ADDR1=St Mary's Hospital",
       "RATE_OOHS=102.50"},
  };
  for (const auto& cells : practices) test.AddRow(ledger.fgPractices, cells);
  const std::vector<std::vector<std::string>> invoices{
      {"NUMBER=INV-00001", "PRACTICE=1", "CDATE=31/01/2026", "IDATE=31/01/2026", "SDATE=31/01/2026",
       "SENTBY=email", "AMOUNT=637.48", "EMPLOYERCONTRIB=72.48", "PAYDATE=02/02/2026",
       "PAYMETHOD=BACS", "PAYREF=RIV 0202", "RECEIPTDATE=02/02/2026", "RECEIPTMETHOD=email",
       "PUBLICNOTE=Payment within 30 days, please."},
      {"NUMBER=INV-00002", "PRACTICE=2", "CDATE=31/01/2026", "IDATE=31/01/2026", "SDATE=01/02/2026",
       "SENTBY=email", "AMOUNT=921.58", "EMPLOYERCONTRIB=104.18"},
      {"NUMBER=INV-00003", "PRACTICE=3", "CDATE=02/02/2026", "IDATE=02/02/2026", "AMOUNT=527.58",
       "EMPLOYERCONTRIB=66.33"},
  };
  for (const auto& cells : invoices) test.AddRow(ledger.fgInvoices, cells);

  struct Day {
    const char* practice;
    const char* date;
    const char* start;
    const char* end;
    const char* type;
    const char* rate;
    const char* extras;
    const char* expenses;
    const char* contribution;
    const char* total;
  };
  constexpr Day kDays[] = {
      {"1", "26/01/2026", "09:00", "12:30", "1", "280.00", "0.00", "5.00", "36.24", "321.24"},
      {"1", "27/01/2026", "09:00", "12:30", "1", "280.00", "0.00", "0.00", "36.24", "316.24"},
      {"2", "28/01/2026", "08:30", "18:00", "1", "765.00", "40.00", "12.40", "104.18", "921.58"},
      {"3", "30/01/2026", "18:30", "23:00", "2", "461.25", "0.00", "0.00", "66.33", "527.58"},
      {"2", "02/02/2026", "09:00", "13:00", "1", "340.00", "0.00", "12.40", "44.00", "396.40"},
      {"1", "03/02/2026", "09:00", "17:30", "1", "680.00", "25.00", "5.00", "91.24", "801.24"},
      {"1", "04/02/2026", "14:00", "18:00", "4", "320.00", "0.00", "0.00", "0.00", "320.00"},
      {"3", "06/02/2026", "18:30", "23:00", "2", "461.25", "0.00", "0.00", "66.33", "527.58"},
      {"2", "09/02/2026", "08:30", "12:30", "1", "340.00", "0.00", "12.40", "44.00", "396.40"},
      {"1", "11/02/2026", "09:00", "10:00", "0", "150.00", "0.00", "0.00", "0.00", "150.00"},
      {"2", "16/02/2026", "08:30", "18:00", "1", "765.00", "0.00", "12.40", "99.01", "876.41"},
      {"1", "18/02/2026", "09:00", "12:30", "1", "280.00", "0.00", "0.00", "36.24", "316.24"},
  };
  for (const Day& day : kDays) {
    const auto cell = [](const char* key, const char* text) {
      return std::string(key) + "=" + text;
    };
    test.AddRow(ledger.fgSessions,
                {cell("PRACTICE", day.practice), cell("SDATE", day.date), cell("STIME", day.start),
                 cell("ETIME", day.end), cell("SESS_TYPE", day.type), cell("RATE", day.rate),
                 cell("EXTRAS", day.extras), cell("EXPENSES", day.expenses),
                 cell("EMPLOYERCONTRIB", day.contribution), cell("TOTAL", day.total),
                 "EMPLOYERCONTRIBRATE=14.38"});
  }
  Grid& sessions = ledger.fgSessions;
  const int first = sessions.FixedRows();
  const char* const invoiced[] = {"1", "1", "2", "3"};
  for (int i = 0; i < 4; ++i) sessions.SetTextMatrix(first + i, "INVOICE", invoiced[i]);
  sessions.SetTextMatrix(first + 2, "FORMS", "A");
  sessions.SetTextMatrix(first + 5, "NOTES", "Cover for Dr Hale. Ask about parking.");
  MarkEdited(ledger, sessions, first + 5);
  MarkNew(ledger, sessions, sessions.Rows() - 1);
  MarkNew(ledger, sessions, sessions.Rows() - 2);

  test.AddRow(ledger.fgExtras, {"SESSID=6", "ITEM=Home visit", "RATE=25.00"});
  test.AddRow(ledger.fgExtras,
              {"SESSID=3", "ITEM=Insurance report", "NOTES=Paid by the practice", "RATE=40.00"});
  test.AddRow(ledger.fgSessionExpenses,
              {"SESSID=6", "ITEM=Mileage charge to and from Practice", "CATEGORY=0", "RATE=5.00"});
  FormatTables(ledger);
}

void FillPensionDemo(TestLedger& test) {
  Ledger& ledger = test.ledger;
  for (const char* folder : {"Form Templates", "Pension Forms"})
    std::filesystem::create_directories(ledger.File(folder));
  PlaceShippedForms(ledger);
  SetMyDetail(ledger, kSchemeNumberField, "SD 04 3317 B");
  FormPrinter printer(ledger);
  const MonthSessions january(ledger, Month::OfKey("012026"));
  const MonthSessions february(ledger, Month::OfKey("022026"));
  for (const MonthSessions* sessions : {&january, &february})
    CreateForms(ledger, printer, kFormA, *sessions);
  Grid& formsA = ledger.fgPensionA;
  const auto set = [&](const char* practice, const char* key, const char* text) {
    formsA.SetTextMatrix(RowOfForm(ledger, kFormA, january.InMonth(), practice), key, text);
  };
  for (const char* practice : {"1", "2"}) set(practice, "SENTTOPRACTICE", "01/02/2026");
  set("1", "RCVDFROMPRACTICE", "02/02/2026");
  set("2", "NOTES", "Rang on Monday for the signed form.");
  CreateForm(ledger, printer, kFormB, february);
  CreateForms(ledger, printer, kFormSolo, january);
  printer.Finish();
  const Grid& formsSolo = ledger.fgPensionSolo;
  test.AddRow(
      ledger.fgPensionPayments,
      {"MONTH=01/01/2026", "FORM=SOLO", "PRACTICE=3",
       "AMOUNT=" + formsSolo.TextMatrix(RowOfForm(ledger, kFormSolo, january.InMonth(), "3"),
                                        "TOTAL_CONTRIB"),
       "PAYDATE=03/02/2026", "METHOD=BACS"});
}

}  // namespace lm::test
