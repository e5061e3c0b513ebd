// The invoice window.
#include "documents/frmInvoice.h"

#include "core/format.h"
#include "core/rows.h"
#include "documents/windows.h"
#include "records/sessionrules.h"
#include "tests/documents/invoice_desk.h"

namespace lm {
namespace {

using test::InvoiceDesk;

struct InvoiceWindow : testing::Test {
  InvoiceDesk desk;
  std::unique_ptr<frmInvoice> window;

  InvoiceWindow() {
    SetOption(desk, optDateFormat, "d/m/yy");
    FormatTables(desk);
    desk.AddSession("1", "01/02/2026", "1000",
                    {"EXTRAS=20.5", "EXPENSES=3.1", "EMPLOYERCONTRIB=132.05", "TOTAL=1155.65"});
    desk.AddSession("1", "02/02/2026", "0.1", {"EMPLOYERCONTRIB=0.01", "TOTAL=0.11"});
    desk.AddSession("1", "03/02/2026", "70", {"SESS_TYPE=0"});
    desk.AddSession("2", "03/02/2026", "5");
    desk.Prepare();
    desk.Messages();
    ClearMarkers(desk.ledger.fgInvoices);
    Open();
  }
  ~InvoiceWindow() override { test::ExpectSoundBooks(desk.ledger); }

  void Open(const std::string& id = "1") {
    window = std::make_unique<frmInvoice>(desk);
    EXPECT_TRUE(window->Open(id));
  }
  std::string Totals() {
    std::string text;
    for (const LabelField* field :
         {&window->cRate, &window->cExtras, &window->cPensionable, &window->cEmployerContrib,
          &window->cExpenses, &window->cAmount})
      text += (text.empty() ? "" : " ") + field->Text();
    return text;
  }
  std::string Line(int row) {
    const Grid& lines = window->fgInvSessions;
    std::string text;
    for (int col = 1; col < lines.Cols(); ++col)
      text += (col > 1 ? "|" : "") + lines.DisplayText(row, col);
    return text;
  }
  void PickDay(const char* day) {
    desk.shown.modal.push_back([day](Screen& picker) {
      const Grid& month = *picker.Grids().front().grid;
      for (int row = 0; row < month.Rows(); ++row)
        for (int col = 0; col < month.Cols() && !picker.Closed(); ++col)
          if (month.TextMatrix(row, col) == day)
            picker.Click(*picker.Grids().front().grid, row, col);
    });
  }
};

TEST_F(InvoiceWindow, ShowsItsRowAndItsSessions) {
  EXPECT_EQ(window->Caption(), "Invoice (INV-00001) Riverside");
  EXPECT_EQ(window->lblStatus.Text(), "Invoice not sent yet.");
  EXPECT_EQ(window->cIDate.Text(), "03/02/2026");
  EXPECT_EQ(window->cPublicNote.Text(), "Pay by BACS");
  EXPECT_EQ(Totals(), "1,070.10 20.50 1,090.60 132.06 3.10 1,225.76");
  EXPECT_EQ(Format(desk.Cell("1", "AMOUNT"), "#,##0.00"), window->cAmount.Text());

  const Grid& lines = window->fgInvSessions;
  EXPECT_EQ(lines.Cols(), 13);
  EXPECT_EQ(lines.Rows(), 6);
  EXPECT_EQ(lines.TextMatrix(0, "TOTAL"), "Total\n(Rate+Ext+Pen+Exp)");
  EXPECT_EQ(Line(2),
            "1|Riverside|1/2/26|09:00||12:00|NHS Normal|1,000.00|20.50|132.05|3.10|1,155.65");
  EXPECT_EQ(Line(4), "3|Riverside|3/2/26|09:00||12:00|Private|70.00||0.00||70.00");
  EXPECT_EQ(Line(5), "|Total||||||1,070.10|20.50|132.06|3.10|1,225.76");
  EXPECT_EQ(lines.Cell(CellSetting::flexcpFontBold, 5, 2), "TRUE");
  EXPECT_EQ(test::FindWord(test::WordsOf(desk.Document("1")), "1225.76").page, 1)
      << "the paper says the same";

  frmInvoice none(desk);
  for (const char* id : {"", "9", "banana"}) EXPECT_FALSE(none.Open(id));
}

TEST_F(InvoiceWindow, TheContributionShowsInEnglandOnly) {
  EXPECT_TRUE(window->cEmployerContrib.Visible());
  window->Press(window->imgEmployerContrib_Help);
  EXPECT_EQ(desk.Messages(), "Employer Pension Contributions");
  SetOption(desk, optPensionCountry, "Wales");
  Open();
  EXPECT_FALSE(window->cEmployerContrib.Visible());
  const Grid& lines = window->fgInvSessions;
  EXPECT_TRUE(lines.ColHidden(lines.ColIndex("EMPLOYERCONTRIB")));
}

TEST_F(InvoiceWindow, OkStoresAndCancelDoesNot) {
  const std::pair<TextField*, const char*> kTyped[] = {
      {&window->cIDate, "4 feb"},     {&window->cSDate, "yesterday"},
      {&window->cSentBy, "post"},     {&window->cPayDate, "today"},
      {&window->cPayMethod, "BACS"},  {&window->cPayRef, "77"},
      {&window->cReceiptDate, "5/2"}, {&window->cReceiptRef, "R1"},
      {&window->cReceiptMethod, "x"}, {&window->cPublicNote, "a\r\nb"},
      {&window->cPrivateNote, "mine"}};
  const char* const kStored[] = {"04/02/2026", "02/02/2026", "post", "03/02/2026", "BACS", "77",
                                 "05/02/2026", "R1",         "x",    "a\r\nb",     "mine"};
  const auto row = [&] {
    std::string text;
    for (const auto& [field, typed] : kTyped) text += desk.Cell("1", field->Name().substr(1)) + ";";
    return text;
  };
  const std::string before = row();
  for (const auto& [field, typed] : kTyped) EXPECT_TRUE(window->Enter(*field, typed)) << typed;
  EXPECT_EQ(window->lblStatus.Text(), "Invoice paid after 1 day.");
  frmInvoice other(desk);
  other.Open("1");
  other.Enter(other.cSDate, "today");
  other.Press(other.cmdCancel);
  EXPECT_TRUE(other.Closed());
  EXPECT_EQ(row(), before);

  window->Press(window->cmdOk);
  EXPECT_TRUE(window->Closed());
  std::string stored;
  for (const char* text : kStored) stored += std::string(text) + ";";
  EXPECT_EQ(row(), stored);
  for (const auto& [key, text] : {std::pair("PRACTICE", "1"), std::pair("NUMBER", "INV-00001"),
                                  std::pair("CDATE", "03/02/2026"), std::pair("ID", "1")})
    EXPECT_EQ(desk.Cell("1", key), text) << "is not stored back";
  EXPECT_EQ(StateOfRow(desk, desk.ledger.fgInvoices, 2), RowState::Edited);
  EXPECT_EQ(desk.Cell("2", "SENTBY"), "") << "the other invoice";
}

TEST_F(InvoiceWindow, KeysInAnyCaseAreStoredAlike) {
  Grid& invoices = desk.ledger.fgInvoices;
  for (const auto& [key, written] :
       {std::pair("PRACTICE", "Practice"), std::pair("SDATE", "SDate")})
    invoices.SetColKey(invoices.ColIndex(key), written);
  Open();
  window->Enter(window->cSDate, "today");
  window->Press(window->cmdOk);
  EXPECT_EQ(desk.Cell("1", "PRACTICE"), "1");
  EXPECT_EQ(desk.Cell("1", "SDATE"), "03/02/2026");
}

TEST_F(InvoiceWindow, DatesAreCheckedAndPicked) {
  for (TextField* box :
       {&window->cIDate, &window->cSDate, &window->cPayDate, &window->cReceiptDate}) {
    EXPECT_FALSE(window->Enter(*box, "banana"));
    EXPECT_EQ(desk.Messages(), "Please enter a valid date.");
    EXPECT_TRUE(window->Enter(*box, ""));
  }
  PickDay("2");
  window->Press(window->cmdSent);
  EXPECT_EQ(window->cSDate.Text(), "02/02/2026");
  EXPECT_EQ(window->lblStatus.Text(), "Invoice sent yesterday.");
  EXPECT_FALSE(window->cmdRemove.Enabled());
  PickDay("3");
  window->Press(window->cmdReceived);
  EXPECT_EQ(window->lblStatus.Text(), "Invoice paid after 1 day.");
  window->Enter(window->cSDate, "");
  EXPECT_EQ(window->lblStatus.Text(), "Invoice not sent yet.");
  EXPECT_TRUE(window->cmdRemove.Enabled());
}

TEST_F(InvoiceWindow, RemovesSessionsButNotTheLast) {
  window->Press(window->cmdRemove);
  EXPECT_EQ(desk.shown.messages[0].mainPrompt, "Remove Session");
  EXPECT_EQ(desk.shown.messages[0].minorPrompt, "Select a session to remove from the invoice.");
  desk.Messages();
  Grid& lines = window->fgInvSessions;
  lines.Select(lines.Rows() - 1, 2);
  window->Press(window->cmdRemove);
  EXPECT_EQ(desk.Messages(), "Remove Session") << "the row of totals is no session";

  lines.Select(2, 2);
  window->Press(window->cmdRemove);
  EXPECT_EQ(desk.Messages(), "Remove the selected session from the invoice?");
  EXPECT_EQ(desk.InvoicesOfSessions(), "1 1 1 2");
  desk.shown.answers = {Answer::Yes};
  window->Press(window->cmdRemove);
  EXPECT_EQ(desk.InvoicesOfSessions(), "- 1 1 2");
  EXPECT_EQ(Totals(), "70.10 0.00 70.10 0.01 0.00 70.11");
  EXPECT_EQ(desk.Cell("1", "AMOUNT"), "70.11");
  EXPECT_EQ(Line(4), "|Total||||||70.10|0.00|0.01|0.00|70.11");
  EXPECT_EQ(lines.Rows(), 5);

  desk.shown.answers = {Answer::Yes};
  lines.Select(3, 2);
  window->Press(window->cmdRemove);
  desk.Messages();
  lines.Select(2, 2);
  window->Press(window->cmdRemove);
  EXPECT_EQ(desk.shown.messages[0].mainPrompt,
            "You cannot remove the only session from a single session invoice.");
  EXPECT_EQ(desk.shown.messages[0].minorPrompt, "It would create an invoice with no sessions.");
  EXPECT_EQ(desk.InvoicesOfSessions(), "- 1 - 2");
  window->Press(window->cmdCancel);
  EXPECT_EQ(desk.Cell("1", "AMOUNT"), "0.11") << "what was removed is removed";
}

TEST_F(InvoiceWindow, DeletesOnlyWhatIsNotSent) {
  window->Enter(window->cSDate, "today");
  window->Press(window->cmdOk);
  Open();
  EXPECT_FALSE(window->cmdRemove.Enabled());
  desk.shown.answers = {Answer::Yes};
  window->Press(window->cmdDeleteInvoice);
  EXPECT_EQ(desk.Messages(), "An invoice cannot be deleted once it has been sent");
  EXPECT_FALSE(window->Closed());
  window->Enter(window->cSDate, "");
  desk.shown.answers = {Answer::Yes};
  window->Press(window->cmdDeleteInvoice);
  EXPECT_TRUE(window->Closed());
  EXPECT_EQ(desk.InvoicesOfSessions(), "- - - 2");
  EXPECT_EQ(desk.ledger.fgInvoices.Rows(), 3);

  // Typed and not stored counts too: what is to be sent is as good as sent.
  Open("2");
  window->Enter(window->cSDate, "today");
  window->Press(window->cmdDeleteInvoice);
  EXPECT_FALSE(window->Closed());
}

TEST_F(InvoiceWindow, ALineOpensItsSession) {
  std::string opened;
  desk.shown.modal.push_back([&](Screen& screen) { opened = screen.Name(); });
  const Screen::ListedGrid lines = window->FindGrid("fgInvSessions");
  lines.rules->Opened(3);
  EXPECT_EQ(opened, "frmSession");
  desk.shown.modal.clear();
  opened.clear();
  desk.shown.modal.push_back([&](Screen& screen) { opened = screen.Name(); });
  lines.rules->Opened(5);
  EXPECT_EQ(opened, "") << "the totals";
}

TEST_F(InvoiceWindow, ADamagedSessionIsShownAndCounted) {
  Grid& sessions = desk.ledger.fgSessions;
  sessions.SetTextMatrix(4, "ID", "");
  sessions.SetTextMatrix(4, "SDATE", "banana");
  Open();
  EXPECT_EQ(window->fgInvSessions.Rows(), 6);
  EXPECT_EQ(Totals(), "1,070.10 20.50 1,090.60 132.06 3.10 1,225.76");
  window->fgInvSessions.Select(4, 1);
  window->Press(window->cmdRemove);
  EXPECT_EQ(desk.Messages(), "Remove Session");
}

TEST_F(InvoiceWindow, GroupedListsDoNotMatter) {
  Grid& sessions = desk.ledger.fgSessions;
  sessions.Sort(SortSetting::GenericAscending, sessions.ColIndex("INVOICE"));
  sessions.Subtotal(SubtotalFunction::Sum, sessions.ColIndex("INVOICE"), sessions.ColIndex("TOTAL"),
                    {.caption = "1"});
  Grid& invoices = desk.ledger.fgInvoices;
  invoices.Subtotal(SubtotalFunction::Sum, invoices.ColIndex("PRACTICE"),
                    invoices.ColIndex("AMOUNT"), {});
  Open();
  EXPECT_EQ(Totals(), "1,070.10 20.50 1,090.60 132.06 3.10 1,225.76");
  window->fgInvSessions.Select(2, 1);
  desk.shown.answers = {Answer::Yes, Answer::Yes};
  window->Press(window->cmdRemove);
  window->Press(window->cmdDeleteInvoice);
  EXPECT_EQ(InvoiceRow(desk, "1"), -1);
  for (int row = sessions.FixedRows(); row < sessions.Rows(); ++row) {
    if (!sessions.IsSubtotal(row)) {
      EXPECT_NE(sessions.TextMatrix(row, "INVOICE"), "1");
    }
  }
}

// Two working copies of one invoice would overwrite each other.
TEST_F(InvoiceWindow, AnInvoiceStandsInOneWindow) {
  desk.shown.modal = {[&](Screen& outer) {
                        EXPECT_FALSE(OpenInvoice(desk, "1"));
                        EXPECT_EQ(desk.Messages(), "The invoice window is already open.");
                        EXPECT_TRUE(OpenInvoice(desk, "2")) << "another one";
                        outer.Close();
                      },
                      [](Screen& inner) { inner.Close(); }};
  EXPECT_TRUE(OpenInvoice(desk, "1"));
  EXPECT_TRUE(OpenInvoice(desk, "1")) << "it has closed";
}

}  // namespace
}  // namespace lm
