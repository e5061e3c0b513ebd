// From sessions to invoices: who gets one, its number, its sums, and that failures leave the books
// whole.
#include "documents/prepareinvoices.h"

#include <map>

#include "core/rows.h"
#include "core/text.h"
#include "documents/frmPrepareInvoices.h"
#include "documents/windows.h"
#include "tests/documents/invoice_desk.h"

namespace lm {
namespace {

namespace fs = std::filesystem;
using test::InvoiceDesk;

std::string LastMinor(const InvoiceDesk& desk) { return desk.shown.messages.back().minorPrompt; }

TEST(PrepareInvoices, OneForEachPracticeInTheOrderOfTheTable) {
  InvoiceDesk desk;
  desk.AddSession("2", "01/02/2026", "100.10", {"EMPLOYERCONTRIB=10.01"});
  desk.AddSession("1", "02/02/2026", "200");
  desk.AddSession("2", "03/02/2026", "0.2005", {"EMPLOYERCONTRIB=0.0005"});
  EXPECT_EQ(desk.Prepare(), 2);
  EXPECT_EQ(desk.InvoicesOfSessions(), "2 1 2");
  const std::pair<const char*, const char*> kCells[] = {
      {"NUMBER", "INV-00002"}, {"AMOUNT", "100.3005"},     {"EMPLOYERCONTRIB", "10.0105"},
      {"CDATE", "03/02/2026"}, {"IDATE", "03/02/2026"},    {"PRACTICE", "2"},
      {"SDATE", ""},           {"PUBLICNOTE", "Thank you"}};
  for (const auto& [key, text] : kCells) EXPECT_EQ(desk.Cell("2", key), text) << key;
  EXPECT_EQ(desk.Cell("1", "PUBLICNOTE"), "Pay by BACS");
  EXPECT_EQ(StateOfRow(desk, desk.ledger.fgInvoices, 2), RowState::New);
  EXPECT_EQ(StateOfRow(desk, desk.ledger.fgSessions, 2), RowState::Edited);
  EXPECT_EQ(desk.ledger.fgSessions.DisplayText(2, "INVOICE"), "INV-00002");

  const MessageBoxText& told = desk.shown.messages.back();
  EXPECT_EQ(told.title, "Prepare Invoices");
  EXPECT_EQ(told.mainPrompt, "2 new invoices created");
  EXPECT_EQ(told.minorPrompt, "\r\nRiverside - INV-00001\r\nAbbey - INV-00002");
  EXPECT_EQ(desk.shown.messages.size(), 1u);
  EXPECT_EQ(desk.shown.busy, 0);
  EXPECT_EQ(desk.shown.progress.front(), "0 Preparing invoice 1: Riverside");
  EXPECT_EQ(desk.shown.progress[1], "25 Preparing invoice 2: Abbey");
  EXPECT_EQ(desk.shown.progress.back(), "hide");
  for (const char* id : {"1", "2"}) EXPECT_TRUE(test::IsSoundPdf(desk.Document(id)));
  EXPECT_EQ(desk.Document("2").filename(), "INV-00002 Abbey.pdf");
  EXPECT_EQ(test::PagedText(desk.Document("2")),
            "1:INV-00002 1:Abbey 1:01/02/2026 1:100.10 1:03/02/2026 1:0.20 1:Total 1:100.30");

  EXPECT_EQ(desk.Prepare(), 0) << "nothing new";
  EXPECT_EQ(desk.shown.messages.back().mainPrompt, "No new invoices prepared");
  EXPECT_EQ(LastMinor(desk), "No uninvoiced sessions were found.");
  EXPECT_EQ(NextInvoiceId(desk), 3) << "no number used";
  test::ExpectSoundBooks(desk);
}

TEST(PrepareInvoices, WhichSessionsBelong) {
  const struct {
    const char* date;
    const char* total;
    const char* more;
    bool belongs;
  } kCases[] = {
      {"01/02/2026", "10", "NOTES=", true},
      {"28/02/2026", "10", "NOTES=", true},
      {"31/01/2026", "10", "NOTES=", false},
      {"01/03/2026", "10", "NOTES=", false},
      {"1/2/2026", "10", "NOTES=", true},
      {"15/02/2026", "", "NOTES=", false},
      {"15/02/2026", "0", "NOTES=", true},
      {"15/02/2026", "-5.5", "NOTES=", true},
      {"15/02/2026", "12,3x", "NOTES=", true},
      {"15/02/2026", "10", "INVOICE=77", false},
      {"", "10", "NOTES=", false},
      {"banana", "10", "NOTES=", false},
      {"31/02/2026", "10", "NOTES=", false},
      {"15/02/2026", "10", "FORMS=A", true},
      {"15/02/2026", "10", "PRACTICE=", false},
      {"15/02/2026", "10", "PRACTICE=99", false},
  };
  for (const auto& [date, total, more, belongs] : kCases) {
    InvoiceDesk desk;
    desk.AddSession("1", date, total, {more});
    const InvoiceBatch february{DateSerial(2026, 2, 1), DateSerial(2026, 2, 28), "", "01/03/2026"};
    EXPECT_EQ(PrepareInvoices(desk, february), belongs ? 1 : 0) << date << " " << total << more;
    EXPECT_EQ(desk.ledger.fgSessions.TextMatrix(2, "INVOICE") == "1", belongs) << date << total;
  }
}

TEST(PrepareInvoices, BranchesOnOneInvoice) {
  const struct {
    const char* option;
    const char* practice;
    const char* invoices;  // of sessions at 1, 2, 3 (branch of 2), 4 and 5 (branch of 4, above it)
    const char* order;     // of the practices invoiced
  } kCases[] = {
      {"FALSE", "", "1 2 3 4 5", "1 2 3 4 5"}, {"TRUE", "", "3 1 1 2 2", "2 4 1"},
      {"TRUE", "2", "- 1 1 - -", "2"},         {"TRUE", "3", "- - 1 - -", "3"},
      {"FALSE", "2", "- 1 - - -", "2"},
  };
  for (const auto& [option, practice, invoices, order] : kCases) {
    InvoiceDesk desk;
    SetOption(desk, optAllBranchesOnOneInvoice, option);
    desk.AddRow(desk.ledger.fgPractices, {"NAME=Mill Branch", "BRANCHOF=4"});
    for (const char* at : {"1", "2", "3", "4", "5"}) desk.AddSession(at, "02/02/2026", "10");
    desk.Prepare(practice);
    EXPECT_EQ(desk.InvoicesOfSessions(), invoices) << option << practice;
    std::string made;
    for (int row = 2; row < desk.ledger.fgInvoices.Rows(); ++row)
      made += (made.empty() ? "" : " ") + desk.ledger.fgInvoices.TextMatrix(row, "PRACTICE");
    EXPECT_EQ(made, order) << option << practice;
    test::ExpectSoundBooks(desk);
  }
}

TEST(PrepareInvoices, ABranchIsBilledWithItsParentsNote) {
  InvoiceDesk desk;
  SetOption(desk, optAllBranchesOnOneInvoice, "TRUE");
  desk.AddSession("3", "02/02/2026", "10");
  ASSERT_EQ(desk.Prepare(), 1);
  EXPECT_EQ(desk.Cell("1", "PUBLICNOTE"), "Thank you") << "Abbey has none of its own";
  EXPECT_EQ(LastMinor(desk), "\r\nAbbey - INV-00001");
  EXPECT_EQ(desk.Document("1").filename(), "INV-00001 Abbey.pdf");

  // A parent that is its own branch, or gone, or a branch that stands twice, takes no session
  // twice.
  desk.AddRow(desk.ledger.fgPractices, {"ID=1", "NAME=Twice", "BRANCHOF=1"});
  desk.ledger.fgPractices.SetTextMatrix(2, "BRANCHOF", "1");
  desk.ledger.fgPractices.SetTextMatrix(5, "BRANCHOF", "99");
  desk.AddSession("1", "02/02/2026", "10");
  desk.AddSession("4", "02/02/2026", "20");
  EXPECT_EQ(desk.Prepare(), 2);
  EXPECT_EQ(desk.InvoicesOfSessions(), "1 2 3");
  EXPECT_EQ(desk.Cell("3", "PRACTICE"), "99");
  test::ExpectSoundBooks(desk);
}

TEST(PrepareInvoices, Numbers) {
  const struct {
    const char* start;
    const char* existing;
    const char *prefix, *format, *suffix;
    const char* number;
  } kCases[] = {
      {"1", "", "INV-", "00000", "", "INV-00001"},
      {"500", "", "INV-", "00000", "", "INV-00500"},
      {"500", "499", "INV-", "00000", "", "INV-00500"},
      {"500", "500", "INV-", "00000", "", "INV-00501"},
      {"3", "41", "", "0", "/26", "42/26"},
      {"", "41", "A", "", "", "A42"},
      {"banana", "x", "", "#,##0", "", "1"},
      {"1234", "", "", "#,##0", "", "1,234"},
      {"7.9", "", "N", "000", "", "N007"},
  };
  for (const auto& [start, existing, prefix, format, suffix, number] : kCases) {
    InvoiceDesk desk;
    SetOption(desk, optInvoiceStartNumber, start);
    SetOption(desk, optInvoicePrefix, prefix);
    SetOption(desk, optInvoiceNumberFormat, format);
    SetOption(desk, optInvoiceSuffix, suffix);
    if (*existing)
      desk.AddRow(desk.ledger.fgInvoices, {std::string("ID=") + existing, "NUMBER=old"});
    desk.AddSession("1", "02/02/2026", "10");
    desk.AddSession("2", "02/02/2026", "20");
    desk.Prepare();
    const int row = desk.ledger.fgInvoices.Rows() - 2;
    EXPECT_EQ(desk.ledger.fgInvoices.TextMatrix(row, "NUMBER"), number);
    EXPECT_EQ(ValInt(desk.ledger.fgInvoices.TextMatrix(row + 1, "ID")),
              ValInt(desk.ledger.fgInvoices.TextMatrix(row, "ID")) + 1);
    EXPECT_EQ(GetOption(desk, optInvoiceStartNumber), start) << "is not moved on";
  }
}

TEST(PrepareInvoices, NewRowsGoWhereTheOptionSays) {
  for (const auto& [position, order] :
       {std::pair("BOTTOM", "7 8 9 10 11"), std::pair("bottom", "7 8 9 10 11"),
        std::pair("TOP", "11 10 9 7 8"), std::pair("", "11 10 9 7 8")}) {
    InvoiceDesk desk;
    SetOption(desk, optNewRowPosition, position);
    for (const char* id : {"ID=7", "ID=8"})
      desk.AddRow(desk.ledger.fgInvoices, {id, "NUMBER=old", "AMOUNT=0", "EMPLOYERCONTRIB=0"});
    for (const char* practice : {"1", "2", "4"}) desk.AddSession(practice, "02/02/2026", "10");
    ASSERT_EQ(desk.Prepare(), 3);
    std::string ids;
    for (int row = 2; row < desk.ledger.fgInvoices.Rows(); ++row)
      ids += (ids.empty() ? "" : " ") + desk.ledger.fgInvoices.TextMatrix(row, "ID");
    EXPECT_EQ(ids, order) << position;
    // Each document is of its own invoice.
    EXPECT_EQ(test::PagedText(desk.Document("11")),
              "1:INV-00011 1:Mill 1:02/02/2026 1:10.00 1:Total 1:10.00");
    test::ExpectSoundBooks(desk);
  }
}

TEST(PrepareInvoices, SumsAreExactInTenThousandths) {
  InvoiceDesk desk;
  Currency sum;
  for (int i = 0; i < 1000; ++i) {
    desk.AddSession("1", "02/02/2026", i % 2 ? "0.1" : "123456.7899", {"EMPLOYERCONTRIB=0.07"});
    sum += Currency::FromText(i % 2 ? "0.1" : "123456.7899");
  }
  desk.AddSession("1", "02/02/2026", "1,234.50");
  desk.Prepare();
  EXPECT_EQ(sum.ToText(), "61728444.95");
  EXPECT_EQ(desk.Cell("1", "AMOUNT"), "61729679.45") << "a thousand pounds are no pound";
  EXPECT_EQ(desk.Cell("1", "EMPLOYERCONTRIB"), "70");
}

// A batch in which something cannot be written

TEST(PrepareInvoices, WithoutAFolderNothingIsPrepared) {
  for (const bool fileInItsPlace : {false, true}) {
    InvoiceDesk desk;
    desk.AddSession("1", "01/02/2026", "100");
    fs::remove_all(desk.ledger.File("Invoices"));
    std::string error;
    if (fileInItsPlace) ReplaceFile(desk.ledger.File("Invoices"), "x", error);
    EXPECT_EQ(desk.Prepare(), 0);
    EXPECT_EQ(desk.Messages(), "The Invoices directory does not exist");
    EXPECT_EQ(desk.InvoicesOfSessions(), "-");
  }
}

struct Obstacle {
  const char* name;
  void (*place)(InvoiceDesk&);
  const char* messages;  // before the result is told
  bool secondWritten;
};

const Obstacle kObstacles[] = {
    {"a folder that takes no file",
     [](InvoiceDesk& desk) {
       fs::remove_all(desk.ledger.File("Invoices"));
       fs::create_directory_symlink("/proc", desk.ledger.File("Invoices"));
     },
     "The invoice could not be written", false},
    {"a folder in place of one document",
     [](InvoiceDesk& desk) {
       fs::create_directory(desk.ledger.File("Invoices/INV-00001 Riverside.pdf"));
     },
     "The invoice could not be written", true},
    {"one document on a full disk",
     [](InvoiceDesk& desk) {
       fs::create_symlink("/dev/full", desk.ledger.File("Invoices/INV-00001 Riverside.pdf"));
     },
     "The invoice could not be written", true},
    {"a name that no file can have",
     [](InvoiceDesk& desk) {
       desk.ledger.fgPractices.SetTextMatrix(2, "NAME", std::string(300, 'n'));
     },
     "The invoice could not be written", true},
    {"no template chosen", [](InvoiceDesk& desk) { SetOption(desk, optInvoiceTemplate, ""); },
     "No Template", false},
    {"template missing", [](InvoiceDesk& desk) { SetOption(desk, optInvoiceTemplate, "x.tmpl"); },
     "No Template", false},
    {"template damaged", [](InvoiceDesk& desk) { desk.UseTemplateBytes("banana"); },
     "Unable to load and decrypt template file", false},
    {"template empty", [](InvoiceDesk& desk) { desk.UseTemplateBytes(""); },
     "Unable to load and decrypt template file", false},
    {"template is no XML", [](InvoiceDesk& desk) { desk.UseTemplate("<template></x></template>"); },
     "Invalid XML.", false},
    {"template has no document",
     [](InvoiceDesk& desk) { desk.UseTemplate("<template></template>"); },
     "Unable to use template file", false},
};

TEST(PrepareInvoices, FailuresAreToldOnceAndLeaveTheBooksWhole) {
  for (const auto& [name, place, messages, secondWritten] : kObstacles) {
    SCOPED_TRACE(name);
    InvoiceDesk desk;
    desk.AddSession("1", "02/02/2026", "10");
    desk.AddSession("2", "02/02/2026", "20");
    desk.AddSession("4", "02/02/2026", "40");
    place(desk);
    EXPECT_EQ(desk.Prepare(), 3);
    EXPECT_EQ(desk.Messages(), std::string(messages) + "; 3 new invoices created");
    EXPECT_EQ(desk.InvoicesOfSessions(), "1 2 3");
    test::ExpectSoundBooks(desk);
    EXPECT_EQ(fs::is_regular_file(desk.Document("2")), secondWritten);
    if (secondWritten) {
      EXPECT_TRUE(test::IsSoundPdf(desk.Document("2")));
    }
  }
}

// The window

struct PrepareWindow : testing::Test {
  InvoiceDesk desk;
  frmPrepareInvoices window{desk};

  std::string Dates() { return window.txtSDate.Text() + " - " + window.txtEDate.Text(); }
  std::string Options() {
    std::string text;
    for (const CheckField* option :
         {&window.optCreateInvoices0, &window.optCreateInvoices1, &window.optCreateInvoices2})
      text += option->Checked() ? 'x' : '.';
    return text;
  }
};

TEST_F(PrepareWindow, ADateTypedMeansTheSessionsBetweenTheDates) {
  for (TextField* box : {&window.txtSDate, &window.txtEDate}) {
    window.Enter(window.optCreateInvoices0, "TRUE");
    window.Enter(window.txtIDate, "5/2");
    EXPECT_EQ(Options(), "x..") << "the invoice's date says nothing of the sessions";
    window.Enter(*box, "14/2");
    EXPECT_EQ(Options(), "..x") << box->Name();
  }
}

TEST_F(PrepareWindow, OpensOnThisMonthAndAllPractices) {
  EXPECT_EQ(window.Caption(), "Prepare Invoices");
  std::string practices;
  for (const ComboItem& item : window.cboPractice.Items())
    practices += item.text + "=" + item.data + ";";
  EXPECT_EQ(practices, "<ALL PRACTICES>=;Abbey=2;Abbey Annexe=3;Mill=4;Riverside=1;");
  EXPECT_EQ(window.cboPractice.Selected(), 0);
  EXPECT_EQ(window.txtIDate.Text(), "03/02/2026");
  EXPECT_EQ(Dates(), "01/02/2026 - 28/02/2026");
  EXPECT_EQ(Options(), "..x");
  window.Enter(window.optCreateInvoices0, "TRUE");
  EXPECT_EQ(Options(), "x..");
  window.Enter(window.optCreateInvoices0, "FALSE");
  EXPECT_EQ(Options(), "x..") << "one is always chosen";
  window.Press(window.lblLastMonth);
  EXPECT_EQ(Dates(), "01/01/2026 - 31/01/2026");
  EXPECT_EQ(Options(), "..x");
  desk.shown.now = DateSerial(2028, 3, 31);
  window.Press(window.lblLastMonth);
  EXPECT_EQ(Dates(), "01/02/2028 - 29/02/2028");
  window.Press(window.lblThisMonth);
  EXPECT_EQ(Dates(), "01/03/2028 - 31/03/2028");
}

TEST_F(PrepareWindow, DatesAreParsedOnLeaving) {
  const struct {
    TextField* box;
    const char* message;
  } kBoxes[] = {{&window.txtSDate, "Please enter a valid start date."},
                {&window.txtEDate, "Please enter a valid end date."},
                {&window.txtIDate, "Please enter a valid invoice date."}};
  for (const auto& [box, message] : kBoxes) {
    EXPECT_TRUE(window.Enter(*box, "5 mar"));
    EXPECT_EQ(box->Text(), "05/03/2026");
    EXPECT_FALSE(window.Enter(*box, "banana"));
    EXPECT_EQ(desk.Messages(), message);
    EXPECT_TRUE(window.Enter(*box, ""));
    EXPECT_EQ(desk.Messages(), "");
  }
  window.Press(window.imgInvoiceDateHelp);
  EXPECT_EQ(desk.shown.messages[0].mainPrompt, "Invoice Date");
  EXPECT_EQ(
      desk.shown.messages[0].minorPrompt,
      "This is the date that appears on the invoices. \r\n\r\nIt defaults to today but can be "
      "changed to any date in the past or future. \r\n\r\n");
}

TEST_F(PrepareWindow, TheOptionsChooseTheDays) {
  const struct {
    CheckField* option;
    const char *from, *to;
    const char* invoices;
  } kCases[] = {
      {&window.optCreateInvoices0, "", "", "1 1 1 1"},
      {&window.optCreateInvoices1, "", "", "1 1 - -"},
      {&window.optCreateInvoices2, "2 feb", "3 feb", "- 1 1 -"},
      {&window.optCreateInvoices2, "3 feb", "2 feb", "- - - -"},
  };
  for (const char* date : {"15/06/1999", "02/02/2026", "03/02/2026", "31/12/2199"})
    desk.AddSession("1", date, "10");
  Grid& sessions = desk.ledger.fgSessions;
  for (const auto& [option, from, to, invoices] : kCases) {
    desk.ledger.fgInvoices.ClearData();
    for (int row = 2; row < sessions.Rows(); ++row) sessions.SetTextMatrix(row, "INVOICE", "");
    window.Enter(window.txtSDate, from);
    window.Enter(window.txtEDate, to);
    window.Enter(*option, "TRUE");
    window.Press(window.cmdCreateInvoices);
    EXPECT_EQ(desk.InvoicesOfSessions(), invoices);
    EXPECT_FALSE(window.Closed());
  }
}

TEST_F(PrepareWindow, BothDatesAreNeeded) {
  desk.AddSession("1", "02/02/2026", "10");
  for (TextField* box : {&window.txtSDate, &window.txtEDate}) {
    window.Press(window.lblThisMonth);
    window.Enter(*box, "");
    window.Press(window.cmdCreateInvoices);
    ASSERT_EQ(desk.shown.messages.size(), 1u);
    EXPECT_EQ(desk.shown.messages[0].title, "Dates Required");
    EXPECT_EQ(desk.shown.messages[0].mainPrompt, "Invoice Between Dates");
    EXPECT_EQ(desk.shown.messages[0].minorPrompt,
              "Please enter the dates bewteen which you want the sessions invoiced.");
    desk.Messages();
  }
  EXPECT_FALSE(desk.ledger.fgInvoices.HasData());
}

TEST_F(PrepareWindow, OnePracticeWithADateToCome) {
  desk.AddSession("1", "02/02/2026", "10");
  desk.AddSession("4", "02/02/2026", "20");
  window.Enter(window.cboPractice, "Mill");
  window.Enter(window.txtIDate, "1/1/2030");
  window.Press(window.cmdCreateInvoices);
  EXPECT_EQ(desk.InvoicesOfSessions(), "- 1");
  EXPECT_EQ(desk.Cell("1", "IDATE"), "01/01/2030");
  EXPECT_EQ(desk.Cell("1", "CDATE"), "03/02/2026");
  EXPECT_EQ(desk.shown.messages[0].mainPrompt, "1 new invoice created");
}

TEST_F(PrepareWindow, ATipOnClosing) {
  window.CloseRequested();
  EXPECT_TRUE(window.Closed());
  window.Reopen();
  window.Press(window.cmdClose);
  ASSERT_EQ(desk.shown.tips.size(), 1u);
  EXPECT_EQ(desk.shown.tips[0].mainPrompt, "Viewing Invoices");
  EXPECT_EQ(desk.shown.tips[0].minorPrompt,
            "To see your new invoice, click the PDF button at the top of the page (the red and "
            "black button).");
}

TEST(PrepareInvoicesWindow, NeedsSessions) {
  InvoiceDesk desk;
  EXPECT_FALSE(OpenPrepareInvoices(desk));
  EXPECT_EQ(desk.Messages(), "Invoices cannot be created if there are no Sessions.");
  desk.AddSession("1", "", "");
  EXPECT_TRUE(OpenPrepareInvoices(desk));
}

TEST(PrepareInvoicesWindow, SaysBeforehandWhatItWouldDoAndStaysClearOfASecondEnter) {
  InvoiceDesk desk;  // on 3 February
  SetOption(desk.ledger, optAllBranchesOnOneInvoice, "TRUE");
  desk.AddSession("2", "01/01/2026", "1000", {"RATE=1000"});
  desk.AddSession("3", "01/02/2026", "234.50", {"RATE=200"});
  desk.AddSession("1", "02/02/2026", "0", {"RATE=0"});
  desk.AddSession("1", "04/02/2026", "10", {"RATE=10"});
  desk.AddSession("77", "02/02/2026", "999", {"RATE=999"});  // of no practice
  frmPrepareInvoices window{desk};
  const auto shown = [&] { return ToUtf8(window.lblPreview.Text()); };
  const std::string february =
      "2 invoices for 3 sessions, £244.50. 1 session has no fee. 1 session lies in the future.";
  EXPECT_EQ(shown(), february);
  window.Enter(window.optCreateInvoices0, "TRUE");
  EXPECT_EQ(shown(),
            "2 invoices for 4 sessions, £1,244.50. 1 session has no fee. 1 session lies in the "
            "future.");
  window.Enter(window.optCreateInvoices1, "TRUE");
  EXPECT_EQ(shown(), "2 invoices for 3 sessions, £1,234.50. 1 session has no fee.");
  window.Enter(window.cboPractice, "Mill");
  EXPECT_EQ(shown(), "No sessions to invoice.");
  window.Enter(window.txtSDate, "");
  EXPECT_EQ(shown(), "");
  window.Press(window.cmdCreateInvoices);
  EXPECT_EQ(window.defaultButton, &window.cmdCreateInvoices) << "nothing was made";

  window.Enter(window.cboPractice, "<ALL PRACTICES>");
  window.Press(window.lblThisMonth);
  EXPECT_EQ(shown(), february);
  window.Press(window.cmdCreateInvoices);
  EXPECT_EQ(desk.shown.messages.back().mainPrompt, "2 new invoices created");
  EXPECT_EQ(shown(), "No sessions to invoice.");
  EXPECT_EQ(window.defaultButton, &window.cmdClose);
  EXPECT_EQ(window.Focused(), &window.cmdClose);
  window.Press(window.lblLastMonth);
  EXPECT_EQ(window.defaultButton, &window.cmdCreateInvoices);
  EXPECT_EQ(shown(), "1 invoice for 1 session, £1,000.00.");
}

}  // namespace
}  // namespace lm
