// The Invoices page: its tabs and groups, its commands and the document menu, and that both lists
// stay in step, grouped or not, while sessions go onto invoices and off them.
#include <gtest/gtest.h>

#include "core/datafile.h"
#include "core/rows.h"
#include "core/shortcuts.h"
#include "documents/frmInvoice.h"
#include "documents/frmPrepareInvoices.h"
#include "shell/frmMain.h"
#include "shell/pages/invoicespage.h"
#include "shell/pages/sessionspage.h"
#include "shell/windows.h"
#include "tests/documents/invoice_desk.h"

namespace lm {
namespace {

using Ids = std::vector<std::string>;

struct InvoicesPageDesk {
  test::InvoiceDesk desk;
  Ledger& ledger = desk.ledger;
  Grid& invoices = ledger.fgInvoices;
  Grid& sessions = ledger.fgSessions;
  WindowCatalogue windows;
  std::unique_ptr<frmMain> window;
  SessionsPage* sessionsPage = nullptr;
  InvoicesPage* invoicesPage = nullptr;

  InvoicesPageDesk() {
    AddWindows(windows);
    SetDefaultShortcuts(ledger);
  }

  void Invoice(const std::string& practice, const std::string& amount,
               const std::vector<std::string>& more = {}) {
    std::vector<std::string> cells{"PRACTICE=" + practice, "AMOUNT=" + amount,
                                   "EMPLOYERCONTRIB=1.5",  "NUMBER=N",
                                   "CDATE=01/02/2026",     "IDATE=01/02/2026"};
    cells.insert(cells.end(), more.begin(), more.end());
    const int row = desk.AddRow(invoices, cells);
    invoices.SetTextMatrix(row, "NUMBER", "INV-" + invoices.TextMatrix(row, "ID"));
  }
  void Open(Page page = Page::Invoices) {
    FormatTables(ledger);
    window = std::make_unique<frmMain>(ledger, windows);
    sessionsPage = &window->PageOf<SessionsPage>();
    invoicesPage = &window->PageOf<InvoicesPage>();
    window->ShowPage(page);
    window->Enter(sessionsPage->tabSessions, "All");
    desk.shown.tips.clear();
  }
  Field& Named(std::string_view name) { return *window->FindField(name); }
  void SelectId(Grid& grid, const std::string& id) { grid.Select(grid.FindRow(id, "ID"), 1); }

  // What is in sight: IDs; a group row stands as its title and its sum.
  Ids Shown(const Grid& grid, std::string_view by, std::string_view sum) {
    Ids shown;
    for (int row = grid.FixedRows(); row < grid.Rows(); ++row)
      if (grid.RowVisible(row))
        shown.push_back(grid.IsSubtotal(row)
                            ? grid.TextMatrix(row, by) + "=" + grid.DisplayText(row, sum)
                            : grid.TextMatrix(row, "ID"));
    return shown;
  }
  Ids Shown(std::string_view by = "PRACTICE") { return Shown(invoices, by, "AMOUNT"); }
  Ids ShownSessions(std::string_view by = "PRACTICE") { return Shown(sessions, by, "TOTAL"); }
  // The state of an entry of the right-button menu at this record.
  std::string StateOf(Grid& grid, const std::string& id, std::string_view name) {
    window->BringToFront(grid);
    SelectId(grid, id);
    for (const MenuEntry& entry : window->ContextMenu(grid))
      if (entry.command && entry.command->Name() == name)
        return !entry.visible ? "hidden" : entry.enabled ? "enabled" : "disabled";
    return "missing";
  }
  void RunEntry(Grid& grid, const std::string& id, std::string_view name) {
    EXPECT_EQ(StateOf(grid, id, name), "enabled") << name;
    window->Press(Named(name));
  }
};

struct InvoicesDesk : testing::Test, InvoicesPageDesk {};

TEST_F(InvoicesDesk, Tabs) {
  // 1 not sent, 2 sent, 3 sent and paid, 4 paid and receipted, 5 paid without having been sent,
  // 6 of the tax year before, 7 without a date.
  Invoice("1", "10");
  Invoice("1", "10", {"SDATE=01/02/2026"});
  Invoice("2", "10", {"SDATE=01/02/2026", "PAYDATE=02/02/2026"});
  Invoice("2", "10", {"SDATE=01/02/2026", "PAYDATE=02/02/2026", "RECEIPTDATE=03/02/2026"});
  Invoice("4", "10", {"PAYDATE=02/02/2026"});
  Invoice("4", "10", {"IDATE=05/04/2025", "SDATE=05/04/2025"});
  Invoice("4", "10", {"IDATE=banana"});
  Open();
  const struct {
    const char* tab;
    Ids shown;
  } kCases[] = {{"Not Sent", {"1", "5", "7"}},
                {"Not Paid", {"2", "6"}},
                {"No Receipt", {"3", "5"}},
                {"This Tax Year", {"1", "2", "3", "4", "5", "7"}},
                {"All", {"1", "2", "3", "4", "5", "6", "7"}}};
  for (const auto& [tab, shown] : kCases) {
    EXPECT_TRUE(window->Enter(invoicesPage->tabInvoices, tab));
    EXPECT_EQ(Shown(), shown) << tab;
  }
  // What is edited stays in sight until another tab is chosen.
  window->Enter(invoicesPage->tabInvoices, "Not Sent");
  window->Edit(invoices, 2, invoices.ColIndex("SDATE"), "today");
  window->ShowPage(Page::Sessions);
  window->ShowPage(Page::Invoices);
  EXPECT_EQ(Shown(), (Ids{"1", "5", "7"}));
  window->Enter(invoicesPage->tabInvoices, "All");
  window->Enter(invoicesPage->tabInvoices, "Not Sent");
  EXPECT_EQ(Shown(), (Ids{"5", "7"}));
}

TEST_F(InvoicesDesk, Groups) {
  Invoice("1", "1,000.10", {"CDATE=10/02/2026", "SDATE=28/12/2025"});
  Invoice("2", "20", {"CDATE=01/01/2026"});
  Invoice("1", "0.15", {"CDATE=28/02/2026", "SDATE=01/01/2026"});
  Invoice("9", "5", {"CDATE=", "SDATE=banana"});
  Open();
  std::string groups;
  for (const ComboItem& item : invoicesPage->cboGroupInvoices.Items()) groups += item.text + ";";
  EXPECT_EQ(groups, "No Grouping;Practice;Month Created;Month Sent;");
  EXPECT_FALSE(invoicesPage->lblGrpByInvoice.Visible());

  window->Enter(invoicesPage->cboGroupInvoices, "Practice");
  EXPECT_EQ(Shown(), (Ids{"<none>=5.00", "4", "Abbey=20.00", "2", "Riverside=1,000.25", "1", "3"}));
  EXPECT_EQ(invoices.TextMatrix(invoices.Rows() - 3, "EMPLOYERCONTRIB"), "3");
  window->Press(invoicesPage->lblCollapseInvoices);
  EXPECT_EQ(Shown(), (Ids{"<none>=5.00", "Abbey=20.00", "Riverside=1,000.25"}));
  window->Press(invoicesPage->lblGrpByInvoice);
  EXPECT_EQ(Shown().size(), 7u);
  window->Enter(invoicesPage->cboGroupInvoices, "Month Created");
  EXPECT_EQ(Shown(kGroupMonthKey),
            (Ids{"<none>=5.00", "4", "Jan 2026=20.00", "2", "Feb 2026=1,000.25", "1", "3"}));
  EXPECT_EQ(invoices.ColIndex(kGroupMonthKey), 1);
  window->Enter(invoicesPage->cboGroupInvoices, "Month Sent");
  EXPECT_EQ(Shown(kGroupMonthKey).front(), "<none>=25.00");
  EXPECT_EQ(Shown(kGroupMonthKey)[3], "Dec 2025=1,000.10");
  window->Enter(invoicesPage->tabInvoices, "Not Sent");
  EXPECT_EQ(Shown(kGroupMonthKey), (Ids{"<none>=20.00", "2"})) << "hidden ones take no part";
  window->Enter(invoicesPage->cboGroupInvoices, "No Grouping");
  EXPECT_EQ(invoices.ColIndex(kGroupMonthKey), -1);
  EXPECT_EQ(Shown(), Ids{"2"});
}

TEST_F(InvoicesDesk, SavingGroupedListsStoresTheUngroupedData) {
  for (const char* practice : {"1", "2", "1"}) desk.AddSession(practice, "01/02/2026", "10");
  desk.Prepare();
  const int columns = invoices.Cols();
  SaveOptions(ledger);
  Open();
  window->Enter(sessionsPage->cboGroupSessions, "Invoice");
  for (const char* group : {"Practice", "Month Created", "Month Sent", "No Grouping"}) {
    ASSERT_TRUE(window->Enter(invoicesPage->cboGroupInvoices, group));
    window->Press(invoicesPage->lblCollapseInvoices);
    const Ids before = Shown();
    ASSERT_TRUE(window->SaveAll());
    EXPECT_EQ(Shown(), before) << "the groups are back";
    test::ScriptedPlatform other;
    Ledger reloaded(other.platform);
    ASSERT_TRUE(LoadGridFile(reloaded, ledger.File("Options.dat"), reloaded.fgOptions));
    ASSERT_TRUE(LoadData(reloaded, ledger.File("LedgerMinder.dat")));
    EXPECT_EQ(reloaded.fgInvoices.Rows(), 4) << group;
    EXPECT_EQ(reloaded.fgInvoices.Cols(), columns) << group;
    EXPECT_EQ(reloaded.fgSessions.Rows(), 5) << group;
    test::ExpectSoundBooks(reloaded);
  }
}

// A whole month with both lists grouped: prepared, one more session added, one removed, one invoice
// deleted in its window, all by the page's own commands.
void LiveThroughAMonth(InvoicesPageDesk& page) {
  Ledger& ledger = page.ledger;
  const auto sums = [&](const std::string& id) { return page.desk.Cell(id, "AMOUNT"); };
  page.desk.shown.modal.push_back([](Screen& screen) {
    auto& prepare = dynamic_cast<frmPrepareInvoices&>(screen);
    prepare.Enter(prepare.optCreateInvoices0, "TRUE");
    prepare.Press(prepare.cmdCreateInvoices);
  });
  page.window->Press(page.invoicesPage->cmdAddInvoice);
  EXPECT_EQ(page.desk.Messages(), "3 new invoices created");
  test::ExpectSoundBooks(ledger);
  EXPECT_EQ(page.desk.Cell("1", "PRACTICE") + page.desk.Cell("2", "PRACTICE"), "12");
  EXPECT_EQ(sums("1"), "30");

  page.desk.AddSession("1", "05/02/2026", "0.5");
  page.desk.shown.answers = {Answer::Yes, Answer::Yes};
  page.RunEntry(ledger.fgSessions, "5", "mnuPopCal_AddToInvoice");
  EXPECT_EQ(sums("1"), "30.5");
  page.RunEntry(ledger.fgSessions, "1", "mnuPopCal_RemoveFromInvoice");
  EXPECT_EQ(sums("1"), "20.5");
  test::ExpectSoundBooks(ledger);

  page.SelectId(ledger.fgInvoices, "1");
  page.desk.shown.answers = {Answer::Yes};
  page.desk.shown.modal.push_back([](Screen& screen) {
    auto& invoice = dynamic_cast<frmInvoice&>(screen);
    EXPECT_EQ(invoice.cID.Text(), "1");
    invoice.Press(invoice.cmdDeleteInvoice);
  });
  page.window->Press(page.invoicesPage->cmdEditInvoice);
  EXPECT_EQ(InvoiceRow(ledger, "1"), -1);
  test::ExpectSoundBooks(ledger);
  page.desk.Messages();
}

TEST(InvoicesPageGroups, BothListsStayInStep) {
  for (const char* bySession : {"No Grouping", "Practice", "Invoice", "Month", "Session Type"})
    for (const char* byInvoice : {"No Grouping", "Practice", "Month Created", "Month Sent"})
      for (const char* position : {"BOTTOM", "TOP"}) {
        SCOPED_TRACE(std::string(bySession) + " / " + byInvoice + " / " + position);
        InvoicesPageDesk page;
        SetOption(page.ledger, optNewRowPosition, position);
        // Titles that read like IDs and numbers.
        SetOption(page.ledger, optInvoicePrefix, "");
        SetOption(page.ledger, optInvoiceNumberFormat, "0");
        for (const auto& [practice, total] :
             {std::pair("1", "10"), std::pair("1", "20"), std::pair("2", "5"), std::pair("4", "7")})
          page.desk.AddSession(practice, "01/02/2026", total);
        page.ledger.fgPractices.SetTextMatrix(5, "NAME", "1");
        page.Open();
        page.window->Enter(page.sessionsPage->cboGroupSessions, bySession);
        page.window->Enter(page.invoicesPage->cboGroupInvoices, byInvoice);
        LiveThroughAMonth(page);

        // The groups are those of the records as they are now.
        Ids expected;
        if (std::string(byInvoice) == "Practice") expected = {"1=7.00", "3", "Abbey=5.00", "2"};
        if (std::string(byInvoice) == "No Grouping")
          expected = std::string(position) == "TOP" ? Ids{"3", "2"} : Ids{"2", "3"};
        page.window->ShowPage(Page::Invoices);
        if (!expected.empty()) {
          EXPECT_EQ(page.Shown(), expected);
        }
        page.window->ShowPage(Page::Sessions);
        if (std::string(bySession) == "Invoice") {
          EXPECT_EQ(page.ShownSessions("INVOICE").front(), "<none>=30.50");
        }
        page.window->Enter(page.sessionsPage->cboGroupSessions, "No Grouping");
        page.window->Enter(page.invoicesPage->cboGroupInvoices, "No Grouping");
        EXPECT_EQ(page.ledger.fgSessions.Rows(), 7);
        EXPECT_EQ(page.ledger.fgInvoices.Rows(), 4);
      }
}

TEST_F(InvoicesDesk, CommandsNeedARow) {
  Invoice("1", "10");
  Open();
  const struct {
    const char *command, *main, *minor;
  } kCases[] = {
      {"cmdEditInvoice", "Edit Invoice", "There is no invoice selected to edit."},
      {"cmdDeleteInvoice", "Delete Invoice", "There is no invoice selected to delete."},
      {"mnuPopInv_DeleteInvoice", "Delete Invoice", "There is no invoice selected to delete."},
      {"cmdViewInvoice", "View Invoice", "Select an invoice to view by clicking on any row."},
      {"mnuPopOpenDocument", "View Invoice", "Select an invoice to view by clicking on any row."},
      {"mnuPopRecreateAndOpenDocument", "View Invoice",
       "Select an invoice to view by clicking on any row."},
  };
  for (const auto& [command, main, minor] : kCases) {
    window->Press(Named(command));
    ASSERT_EQ(desk.shown.messages.size(), 1u) << command;
    EXPECT_EQ(desk.shown.messages[0].mainPrompt, main) << command;
    EXPECT_EQ(desk.shown.messages[0].minorPrompt, minor) << command;
    desk.Messages();
  }
  window->Enter(invoicesPage->cboGroupInvoices, "Practice");
  invoices.Select(2, 1);
  ASSERT_TRUE(invoices.IsSubtotal(2));
  window->Press(invoicesPage->cmdDeleteInvoice);
  EXPECT_EQ(desk.shown.messages[0].minorPrompt, "Select an ungrouped row.");
  window->Press(invoicesPage->cmdEditInvoice);
  EXPECT_EQ(desk.shown.messages[1].mainPrompt, "Edit Invoice");
  // A record in a collapsed group is out of sight, and nothing is done to it.
  SelectId(invoices, "1");
  window->Press(invoicesPage->lblCollapseInvoices);
  desk.Messages();
  desk.shown.answers = {Answer::Yes};
  window->Press(invoicesPage->cmdDeleteInvoice);
  EXPECT_EQ(desk.Messages(), "Delete Invoice");
  EXPECT_GE(InvoiceRow(ledger, "1"), 0);
}

TEST_F(InvoicesDesk, PreparingNeedsSessions) {
  Open();
  for (const char* command : {"cmdAddInvoice", "mnuNewInvoices", "mnuNewItem"}) {
    window->Press(Named(command));
    EXPECT_EQ(desk.Messages(), "Invoices cannot be created if there are no Sessions.") << command;
  }
}

TEST_F(InvoicesDesk, TheDocumentMenu) {
  desk.AddSession("1", "01/02/2026", "10");
  desk.Prepare();
  Open();
  SelectId(invoices, "1");
  const std::string link = PathText(desk.Document("1"));
  std::filesystem::remove(desk.Document("1"));
  for (const char* command :
       {"cmdViewInvoice", "mnuPopOpenDocument", "mnuPopRecreateAndOpenDocument"}) {
    window->Press(Named(command));
    EXPECT_EQ(desk.shown.opened, Ids{link}) << command;
    EXPECT_TRUE(std::filesystem::exists(desk.Document("1"))) << command;
    desk.shown.opened.clear();
  }
  EXPECT_TRUE(window->ShortcutPressed('O', kCtrlBit));
  EXPECT_TRUE(window->ShortcutPressed('O', kCtrlBit | kShiftBit));
  EXPECT_EQ(desk.shown.opened.size(), 2u);
  RunEntry(invoices, "1", "mnuPopRecreateAndOpenDocument");
  EXPECT_EQ(desk.shown.opened.size(), 3u);

  window->ShowPage(Page::Practices);
  for (const char* command : {"mnuPopOpenDocument", "mnuPopRecreateAndOpenDocument",
                              "mnuPopInv_DeleteInvoice", "mnuPopCal_AddToInvoice"})
    EXPECT_FALSE(Named(command).Enabled()) << command;
}

TEST_F(InvoicesDesk, TheSessionListsMenuAddsAndRemoves) {
  desk.AddSession("1", "01/02/2026", "10");
  desk.AddSession("1", "02/02/2026", "20");
  Open(Page::Sessions);
  window->Press(Named("mnuPopCal_AddToInvoice"));
  EXPECT_EQ(desk.shown.messages[0].minorPrompt, "There is no session selected.");
  desk.Messages();
  SelectId(sessions, "1");
  desk.shown.answers = {Answer::Yes};
  window->Press(Named("mnuPopCal_AddToInvoice"));
  EXPECT_EQ(desk.Messages(), "No unsent invoice exists for this practice.");
  SelectId(sessions, "2");
  desk.shown.answers = {Answer::Yes};
  window->Press(Named("mnuPopCal_AddToInvoice"));
  EXPECT_EQ(desk.Cell("1", "AMOUNT"), "30");
  desk.shown.answers = {Answer::Yes};
  window->Press(Named("mnuPopCal_AddToInvoice"));
  EXPECT_EQ(desk.Cell("1", "AMOUNT"), "30") << "it is on one already";
  desk.shown.answers = {Answer::Yes};
  window->Press(Named("mnuPopCal_RemoveFromInvoice"));
  EXPECT_EQ(desk.Cell("1", "AMOUNT"), "10");
  EXPECT_EQ(desk.InvoicesOfSessions(), "1 -");

  const struct {
    const char *id, *entry, *state;
  } kCases[] = {
      {"1", "mnuPopCal_AddToInvoice", "disabled"}, {"1", "mnuPopCal_RemoveFromInvoice", "enabled"},
      {"2", "mnuPopCal_AddToInvoice", "enabled"},  {"2", "mnuPopCal_RemoveFromInvoice", "disabled"},
      {"9", "mnuPopCal_AddToInvoice", "disabled"}, {"9", "mnuPopEditSession", "disabled"},
      {"9", "mnuPopAddSession", "enabled"},        {"1", "mnuPopEditSession", "enabled"},
      {"1", "mnuPopEditEvent", "hidden"},          {"1", "mnuPopOpenDocument", "missing"},
  };
  for (const auto& [id, entry, state] : kCases)
    EXPECT_EQ(StateOf(sessions, id, entry), state) << id << " " << entry;
}

}  // namespace
}  // namespace lm
