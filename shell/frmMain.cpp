#include "shell/frmMain.h"

#include <algorithm>

#include "core/formatting.h"
#include "core/messagebox.h"
#include "core/numbers.h"
#include "documents/invoicelist.h"
#include "documents/invoices.h"
#include "pension/lists.h"
#include "records/practicelist.h"
#include "records/sessionlist.h"
#include "records/windows.h"
#include "shell/mydetails.h"
#include "shell/tips.h"

namespace lm {

// A list's own rules as they stand on its page: after any change the lists are filtered and grouped
// anew.
template <typename Rules>
class PageRules : public Rules {
 public:
  PageRules(frmMain& window, ListPage& page) : Rules(window.ledger), window_(window), page_(page) {}

  void Edited(int row, int col) override {
    Rules::Edited(row, col);
    page_.CellEdited(row);
  }
  void Opened(int row) override {
    window_.ChangeRecords([&] { Rules::Opened(row); });
  }
  void AddPressed() override {
    window_.ChangeRecords([&] { Rules::AddPressed(); });
  }
  void DeletePressed(int row) override {
    window_.ChangeRecords([&] { Rules::DeletePressed(row); });
  }
  std::vector<MenuEntry> ContextMenu(int row) override {
    std::vector<MenuEntry> entries = Rules::ContextMenu(row);
    for (MenuEntry& entry : entries)
      if (entry.run) entry.run = [this, run = std::move(entry.run)] { window_.ChangeRecords(run); };
    return entries;
  }

 private:
  frmMain& window_;
  ListPage& page_;
};

// The rules of a list of pension forms; what they do to sessions shows on the other pages.
class PensionPageRules : public GridRules {
 public:
  PensionPageRules(frmMain& window, Grid& table)
      : window_(window), rules_(PensionListRules(window.ledger, table)) {}

  bool MayEdit(int row, int col) override { return rules_->MayEdit(row, col); }
  std::string EditList(const Grid& grid, int row, int col) override {
    return rules_->EditList(grid, row, col);
  }
  Picker PickerOf(int row, int col) override { return rules_->PickerOf(row, col); }
  std::optional<std::string> Accept(int row, int col, std::string_view text) override {
    return rules_->Accept(row, col, text);
  }
  void Edited(int row, int col) override { rules_->Edited(row, col); }
  void Opened(int row) override {
    window_.ChangeRecords([&] { rules_->Opened(row); });
  }
  void AddPressed() override {
    window_.ChangeRecords([&] { rules_->AddPressed(); });
  }
  void DeletePressed(int row) override {
    window_.ChangeRecords([&] { rules_->DeletePressed(row); });
  }
  std::vector<MenuEntry> ContextMenu(int row) override {
    return window_.RunningThroughChanges(rules_->ContextMenu(row));
  }

 private:
  frmMain& window_;
  std::unique_ptr<GridRules> rules_;
};

namespace {

// Invoices are no business of the records themselves, so the list of sessions gets these here.
class InvoicedSessionRules : public SessionListRules {
 public:
  explicit InvoicedSessionRules(Ledger& ledger) : SessionListRules(ledger), ledger_(ledger) {}

  std::vector<MenuEntry> ContextMenu(int row) override {
    std::vector<MenuEntry> entries = SessionListRules::ContextMenu(row);
    const Grid& sessions = ledger_.fgSessions;
    const bool onSession = row >= sessions.FixedRows() && !sessions.IsSubtotal(row);
    const bool invoiced = !sessions.TextMatrix(row, "INVOICE").empty();
    const std::string id = sessions.TextMatrix(row, "ID");
    entries.push_back({"", {}});
    entries.push_back({"Add To &Invoice", [this, id] { AddSessionToInvoice(ledger_, id); },
                       onSession && !invoiced});
    entries.push_back({"&Remove From Invoice",
                       [this, id] { RemoveSessionFromInvoice(ledger_, id); },
                       onSession && invoiced});
    return entries;
  }

 private:
  Ledger& ledger_;
};

}  // namespace

frmMain::frmMain(Ledger& theLedger, WindowCatalogue& windows)
    : Screen(theLedger, "frmMain", kProductName),
      tabMyDetails(this, "tabMyDetails", {kMyDetailsTabs.begin(), kMyDetailsTabs.end()}),
      windows_(windows),
      sessionsPage_(
          theLedger, kGroupedSessions,
          {tabSessions, cboGroupSessions, lblGrpBySession, lblCollapseSessions},
          [&theLedger](int tab) { return SessionsOf(theLedger, static_cast<SessionPeriod>(tab)); }),
      invoicesPage_(
          theLedger, kGroupedInvoices,
          {tabInvoices, cboGroupInvoices, lblGrpByInvoice, lblCollapseInvoices},
          [&theLedger](int tab) { return InvoicesOf(theLedger, static_cast<InvoiceState>(tab)); }),
      sessionRules_(std::make_unique<PageRules<InvoicedSessionRules>>(*this, sessionsPage_)),
      invoiceRules_(std::make_unique<PageRules<InvoiceListRules>>(*this, invoicesPage_)),
      practiceRules_(std::make_unique<PracticeListRules>(theLedger)) {
  BuildShortcutBar();
  BuildSessionsPage();
  BuildInvoicesPage();
  BuildPensionPage();
  BuildPracticesPage();
  BuildMyDetailsPage();
  BuildLists();
  BuildCommands();
  RefreshCommands();
}

frmMain::~frmMain() = default;

void frmMain::BuildShortcutBar() {
  constexpr int kIconRow = 0;
  constexpr int kCaptionRow = 1;
  fgMenu.SetRows(2);
  fgMenu.SetCols(kPageColumns);
  for (const PageSpec& page : kPages) {
    fgMenu.SetCell(CellSetting::flexcpPicture, kIconRow, ColumnOf(page.page), page.icon);
    fgMenu.SetTextMatrix(kCaptionRow, ColumnOf(page.page), page.caption);
  }
}

void frmMain::BuildSessionsPage() {
  tabSessions.onEntered = [this, choose = std::move(tabSessions.onEntered)] {
    choose();
    if (!ledger.starting && CurrentPeriod() == SessionPeriod::Current)
      ShowCurrentSessionsTip(ledger);
    return true;
  };
  Grid& sessions = ledger.fgSessions;
  cmdAddSession.SetText("Add Session");
  cmdAddSession.onPressed = [this] { sessionRules_->AddPressed(); };
  cmdEditSession.SetText("Edit Session");
  cmdEditSession.onPressed = [this, &sessions] {
    const int row = SelectedRow(sessions);
    if (row < 0 || sessions.IsSubtotal(row))
      ShowMessage(ledger, "Edit Session", "There is no session selected to edit.");
    else
      sessionRules_->Opened(row);
  };
  cmdCopySession.SetText("Copy Session");
  cmdCopySession.onPressed = [this, &sessions] {
    const std::string id =
        SelectedId(sessions, "Copy Session", "There is no session selected to copy.");
    if (!id.empty()) ChangeRecords([&] { CopySession(ledger, id); });
  };
  cmdDeleteSession.SetText("Delete Session");
  cmdDeleteSession.onPressed = [this, &sessions] {
    sessionRules_->DeletePressed(SelectedRow(sessions));
  };
}

void frmMain::BuildInvoicesPage() {
  Grid& invoices = ledger.fgInvoices;
  cmdAddInvoice.SetText("Prepare Invoices");
  cmdAddInvoice.onPressed = [this] { invoiceRules_->AddPressed(); };
  cmdEditInvoice.SetText("Edit Invoice");
  cmdEditInvoice.onPressed = [this, &invoices] {
    if (!SelectedId(invoices, "Edit Invoice", "There is no invoice selected to edit.").empty())
      invoiceRules_->Opened(invoices.Row());
  };
  cmdViewInvoice.SetText("View Invoice");
  cmdViewInvoice_Options.SetToolTip("Open or recreate the invoice's document");
  for (Button* button : {&cmdViewInvoice, &cmdViewInvoice_Options})
    button->onPressed = [this] { OpenSelectedInvoice(false); };
  cmdDeleteInvoice.SetText("Delete Invoice");
  cmdDeleteInvoice.onPressed = [this, &invoices] {
    invoiceRules_->DeletePressed(SelectedRow(invoices));
  };
}

void frmMain::BuildPensionPage() {
  for (Grid* table : PensionTables())
    pensionRules_.push_back(std::make_unique<PensionPageRules>(*this, *table));
  tabForm.onEntered = [this] {
    PensionTabChosen();
    return true;
  };
  const auto rules = [this]() -> GridRules& {
    return *pensionRules_[static_cast<std::size_t>(tabForm.Selected())];
  };
  cmdAddPensionForm.onPressed = [this, rules] {
    Grid& payments = ledger.fgPensionPayments;
    const int rows = payments.Rows();
    rules().AddPressed();
    if (tabForm.Selected() == kTabPayments && payments.Rows() > rows)
      RequestCellEdit(payments, payments.Row(), payments.Col());
  };
  cmdEditPensionForm.onPressed = [this] { EditSelectedForm(); };
  cmdViewPensionForm.SetText("View Form");
  cmdViewPensionForm_Options.SetToolTip("Open or recreate the form's document");
  for (Button* button : {&cmdViewPensionForm, &cmdViewPensionForm_Options})
    button->onPressed = [this] { OpenSelectedDocument(false); };
  cmdDeletePensionForm.onPressed = [this, rules] {
    rules().DeletePressed(
        SelectedRow(*PensionTables()[static_cast<std::size_t>(tabForm.Selected())]));
  };
  PensionTabChosen();
}

void frmMain::BuildPracticesPage() {
  Grid& practices = ledger.fgPractices;
  cmdAddPractice.SetText("Add Practice");
  cmdAddPractice.onPressed = [this] { practiceRules_->AddPressed(); };
  cmdEditPractice.SetText("Edit Practice");
  cmdEditPractice.onPressed = [this, &practices] {
    const int row = SelectedRow(practices);
    if (row < 0)
      ShowMessage(ledger, "Edit Practice", "There is no practice selected to edit.");
    else
      practiceRules_->Opened(row);
  };
  cmdDeletePractice.SetText("Delete Practice");
  cmdDeletePractice.onPressed = [this, &practices] {
    practiceRules_->DeletePressed(SelectedRow(practices));
  };
}

void frmMain::BuildMyDetailsPage() {
  for (int i = 0; i < kMyDetailsFields; ++i) {
    auto& field = txtMyDetails[static_cast<std::size_t>(i)];
    field = std::make_unique<TextField>(this, "txtMyDetails" + PlainText(i));
    field->onEntered = [this, i, text = field.get()] {
      SetMyDetail(ledger, i, text->Text());
      lblMyDetailsHint.SetText(MyDetailHint(i, text->Text()));
      lblMyDetailsHint.SetVisible(!lblMyDetailsHint.Text().empty());
      if (i == kMyTitleField) SetWindowTitle();
      return true;
    };
  }
  lblMyDetailsHint.SetVisible(false);
  LoadMyDetails();
}

void frmMain::BuildLists() {
  AddGrid(fgMenu);
  for (Grid* table : ledger.dataTables) {
    GridRules* rules = nullptr;
    if (table == &ledger.fgSessions) rules = sessionRules_.get();
    if (table == &ledger.fgInvoices) rules = invoiceRules_.get();
    if (table == &ledger.fgPractices) rules = practiceRules_.get();
    const auto tables = PensionTables();
    const auto pension = std::ranges::find(tables, table);
    if (pension != tables.end())
      rules = pensionRules_[static_cast<std::size_t>(pension - tables.begin())].get();
    AddGrid(*table, rules);
  }
}

void frmMain::LoadMyDetails() {
  for (int i = 0; i < kMyDetailsFields; ++i)
    txtMyDetails[static_cast<std::size_t>(i)]->SetText(MyDetail(ledger, i));
  lblMyName.SetText(MyName(ledger));
}

void frmMain::SetWindowTitle() {
  std::string title(kProductName);
  const std::string name = MyName(ledger);
  if (OptionIsTrue(ledger, optShowNameInTitle) && !name.empty()) title += "  - " + name;
  SetCaption(title);
}

// Pages

void frmMain::ShowPage(Page page) {
  fgMenu.Select(0, ColumnOf(page));
  fgMenu_Click();
}

Page frmMain::CurrentPage() const {
  return fgMenu.Col() > 0 ? static_cast<Page>(fgMenu.Col()) : Page::LMToday;
}

bool frmMain::PageReady(Page page) const { return PageSpecOf(page).note.empty(); }

std::string frmMain::PageNote(Page page) const { return std::string(PageSpecOf(page).note); }

void frmMain::fgMenu_Click() {
  if (ledger.starting || fgMenu.Col() <= 0) return;
  const Page page = CurrentPage();
  lblPage.SetText(PageSpecOf(page).caption);
  lblPageNote.SetText(PageSpecOf(page).note);
  lblPageNote.SetVisible(!PageReady(page));

  // Practices may have been added or renamed since the page's look-up columns got their lists.
  if (PageGrid()) FormatTables(ledger);
  if (page == Page::Sessions) sessionsPage_.Refresh();
  if (page == Page::Invoices) invoicesPage_.Refresh();
  if (page == Page::MyDetails) LoadMyDetails();
  RefreshCommands();
  CallLayOut(false);

  if (PageReady(page) || PageGrid()) ShowPageTip(ledger, page);
  if (page == Page::Sessions && CurrentPeriod() == SessionPeriod::Current &&
      ledger.fgSessions.HasData())
    ShowCurrentSessionsTip(ledger);
}

std::array<Grid*, 6> frmMain::PensionTables() const {
  return {&ledger.fgPensionA, &ledger.fgPensionB, &ledger.fgPensionSolo,
          &ledger.fgPensionC, &ledger.fgPensionD, &ledger.fgPensionPayments};
}

Grid* frmMain::PageGrid() const {
  switch (CurrentPage()) {
    case Page::Sessions:
      return &ledger.fgSessions;
    case Page::Events:
      return &ledger.fgEvents;
    case Page::Invoices:
      return &ledger.fgInvoices;
    case Page::Practices:
      return &ledger.fgPractices;
    case Page::Expenses:
      return &ledger.fgExpenses;
    case Page::Pension:
      return PensionTables()[static_cast<std::size_t>(tabForm.Selected())];
    case Page::Calendar:
    case Page::Reports:
    case Page::MyDetails:
    case Page::LMToday:
      break;
  }
  return nullptr;
}

GridRules* frmMain::RulesOf(const Grid& grid) const { return FindGrid(grid.Name()).rules; }

void frmMain::CallLayOut(bool allPages) {
  if (layOut) layOut(allPages);
}

// Lists

int frmMain::SelectedRow(const Grid& grid) const {
  const int row = grid.Row();
  return row >= grid.FixedRows() && grid.RowVisible(row) ? row : -1;
}

void frmMain::HeaderClicked(Grid& grid, int col) {
  const std::string key = grid.ColKey(col);
  if (key.empty() || key == kGroupMonthKey) return;
  SortState& state = sorts_[grid.Name()];
  state = {key, state.key == key && !state.descending};

  const RedrawOff redrawOff(grid);
  const auto sort = [&] {
    grid.Sort(state.descending ? SortSetting::GenericDescending : SortSetting::GenericAscending,
              grid.ColIndex(key));
  };
  ListPage* page = ListPageOf(grid);
  if (!page) return sort();
  const Ungrouped ungrouped(page->Grouping());
  sort();
}

frmMain::SortState frmMain::SortOf(const Grid& grid) const {
  const auto state = sorts_.find(grid.Name());
  return state == sorts_.end() ? SortState{} : state->second;
}

void frmMain::ColumnMoved(Grid& grid, int from, int to) {
  const int first = grid.ColKey(1) == kGroupMonthKey ? 2 : 1;
  if (from < first || to < first || from >= grid.Cols() || to >= grid.Cols()) return;
  grid.SetColPosition(from, to);
}

// Records

SessionPeriod frmMain::CurrentPeriod() const {
  return static_cast<SessionPeriod>(tabSessions.Selected());
}

ListPage* frmMain::ListPageOf(const Grid& grid) {
  if (&grid == &ledger.fgSessions) return &sessionsPage_;
  return &grid == &ledger.fgInvoices ? &invoicesPage_ : nullptr;
}

void frmMain::RefreshLists() {
  sessionsPage_.Refresh();
  invoicesPage_.Refresh();
}

void frmMain::ChangeRecords(const std::function<void()>& change) {
  sessionsPage_.Change([&] { invoicesPage_.Change(change); });
}

std::string frmMain::SelectedId(const Grid& grid, std::string_view mainPrompt,
                                std::string_view minorPrompt) {
  const int row = SelectedRow(grid);
  const std::string id = row < 0 || grid.IsSubtotal(row) ? "" : grid.TextMatrix(row, "ID");
  if (id.empty()) ShowMessage(ledger, mainPrompt, minorPrompt);
  return id;
}

void frmMain::OpenSelectedInvoice(bool recreate) {
  const std::string id = SelectedId(ledger.fgInvoices, "View Invoice",
                                    "Select an invoice to view by clicking on any row.");
  if (!id.empty()) OpenInvoiceDocument(ledger, id, recreate);
}

void frmMain::ChangeSelectedSession(bool (*change)(Ledger& ledger, const std::string& id)) {
  const std::string id = SelectedId(ledger.fgSessions, "Invoice", "There is no session selected.");
  if (!id.empty()) ChangeRecords([&] { change(ledger, id); });
}

std::vector<MenuEntry> frmMain::RunningThroughChanges(std::vector<MenuEntry> entries) {
  for (MenuEntry& entry : entries)
    if (entry.run) entry.run = [this, run = std::move(entry.run)] { ChangeRecords(run); };
  return entries;
}

// Pension page

void frmMain::PensionTabChosen() {
  const bool payments = tabForm.Selected() == kTabPayments;
  cmdAddPensionForm.SetText(payments ? "Add Payment" : "Prepare Pension Forms");
  cmdDeletePensionForm.SetText(payments ? "Delete Payment" : "Delete Form");
  cmdEditPensionForm.SetText("Edit Form");
  for (Button* button : {&cmdEditPensionForm, &cmdViewPensionForm, &cmdViewPensionForm_Options})
    button->SetEnabled(!payments);
  CallLayOut(false);
}

void frmMain::EditSelectedForm() {
  const Grid& table = *PensionTables()[static_cast<std::size_t>(tabForm.Selected())];
  const std::string title = "Edit " + tabForm.Text();
  const int row = SelectedRow(table);
  if (row < 0)
    ShowMessage(ledger, title, "Select a pension form to view by clicking on any row.");
  else if (table.IsSubtotal(row))
    ShowMessage(ledger, title, "Select an ungrouped row.");
  else
    RulesOf(table)->Opened(row);
}

void frmMain::OpenSelectedDocument(bool recreate) {
  if (CurrentPage() != Page::Pension) return OpenSelectedInvoice(recreate);
  const Grid& table = *PageGrid();
  OpenDocumentOfRow(ledger, table, SelectedRow(table), recreate);
}

}  // namespace lm
