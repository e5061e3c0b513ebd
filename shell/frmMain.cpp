#include "shell/frmMain.h"

#include <algorithm>

#include "core/formatting.h"
#include "core/messagebox.h"
#include "core/numbers.h"
#include "core/rows.h"
#include "records/practicelist.h"
#include "records/sessionlist.h"
#include "records/windows.h"
#include "shell/mydetails.h"
#include "shell/tips.h"

namespace lm {

// The session list as it stands on the page: after any change it is filtered and grouped anew.
class SessionPageRules : public SessionListRules {
 public:
  explicit SessionPageRules(frmMain& window) : SessionListRules(window.ledger), window_(window) {}

  void Edited(int row, int col) override {
    SessionListRules::Edited(row, col);
    window_.SessionCellEdited(row);
  }
  void Opened(int row) override {
    window_.ChangeSessions([&] { SessionListRules::Opened(row); });
  }
  void AddPressed() override {
    window_.ChangeSessions([&] { SessionListRules::AddPressed(); });
  }
  void DeletePressed(int row) override {
    window_.ChangeSessions([&] { SessionListRules::DeletePressed(row); });
  }
  std::vector<MenuEntry> ContextMenu(int row) override {
    std::vector<MenuEntry> entries = SessionListRules::ContextMenu(row);
    for (MenuEntry& entry : entries)
      entry.run = [this, run = std::move(entry.run)] { window_.ChangeSessions(run); };
    return entries;
  }

 private:
  frmMain& window_;
};

frmMain::frmMain(Ledger& theLedger, WindowCatalogue& windows)
    : Screen(theLedger, "frmMain", kProductName),
      tabMyDetails(this, "tabMyDetails", {kMyDetailsTabs.begin(), kMyDetailsTabs.end()}),
      windows_(windows),
      grouping_(theLedger),
      periodFilter_(theLedger),
      sessionRules_(std::make_unique<SessionPageRules>(*this)),
      practiceRules_(std::make_unique<PracticeListRules>(theLedger)) {
  BuildShortcutBar();
  BuildSessionsPage();
  BuildPracticesPage();
  BuildMyDetailsPage();
  BuildLists();
  BuildCommands();
  tabForm.onEntered = [this] {
    CallLayOut(false);
    return true;
  };
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
  std::vector<ComboItem> groups;
  for (const std::string& caption : SessionGroupCaptions())
    groups.push_back({caption, PlainText(static_cast<int>(groups.size()))});
  cboGroupSessions.SetItems(std::move(groups));
  cboGroupSessions.SetListIndex(0);
  cboGroupSessions.onEntered = [this] {
    ChooseGroup();
    return true;
  };
  tabSessions.onEntered = [this] {
    ChoosePeriod();
    return true;
  };
  lblGrpBySession.SetText("Expand all");
  lblGrpBySession.onPressed = [this] { grouping_.ExpandAll(); };
  lblGrpBySession.SetVisible(false);
  lblCollapseSessions.SetText("Collapse all");
  lblCollapseSessions.onPressed = [this] { grouping_.CollapseAll(); };
  lblCollapseSessions.SetVisible(false);

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
    const int row = SelectedRow(sessions);
    if (row < 0 || sessions.IsSubtotal(row))
      ShowMessage(ledger, "Copy Session", "There is no session selected to copy.");
    else
      ChangeSessions([&] { CopySession(ledger, sessions.TextMatrix(row, "ID")); });
  };
  cmdDeleteSession.SetText("Delete Session");
  cmdDeleteSession.onPressed = [this, &sessions] {
    sessionRules_->DeletePressed(SelectedRow(sessions));
  };
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
      if (i == kMyTitleField) SetWindowTitle();
      return true;
    };
  }
  LoadMyDetails();
}

void frmMain::BuildLists() {
  AddGrid(fgMenu);
  for (Grid* table : ledger.dataTables) {
    GridRules* rules = nullptr;
    if (table == &ledger.fgSessions) rules = sessionRules_.get();
    if (table == &ledger.fgPractices) rules = practiceRules_.get();
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
  if (page == Page::Sessions) RefreshSessions();
  if (page == Page::MyDetails) LoadMyDetails();
  RefreshCommands();
  CallLayOut(false);

  if (PageReady(page) || PageGrid()) ShowPageTip(ledger, page);
  if (page == Page::Sessions && CurrentPeriod() == SessionPeriod::Current &&
      ledger.fgSessions.HasData())
    ShowCurrentSessionsTip(ledger);
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
    case Page::Pension: {
      Grid* const tables[] = {&ledger.fgPensionA, &ledger.fgPensionB, &ledger.fgPensionSolo,
                              &ledger.fgPensionC, &ledger.fgPensionD, &ledger.fgPensionPayments};
      return tables[tabForm.Selected()];
    }
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
  if (&grid != &ledger.fgSessions) return sort();
  const Ungrouped ungrouped(grouping_);
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

// Sessions page

SessionPeriod frmMain::CurrentPeriod() const {
  return static_cast<SessionPeriod>(tabSessions.Selected());
}

void frmMain::ChoosePeriod() {
  if (ledger.starting) return;
  periodFilter_.ForgetKept();
  RefreshSessions();
  if (CurrentPeriod() == SessionPeriod::Current) ShowCurrentSessionsTip(ledger);
}

void frmMain::ChooseGroup() {
  if (ledger.starting) return;
  grouping_.Apply(static_cast<SessionGroup>(std::max(cboGroupSessions.ListIndex(), 0)));
  const bool grouped = grouping_.Current() != SessionGroup::None;
  lblGrpBySession.SetVisible(grouped);
  lblCollapseSessions.SetVisible(grouped);
}

void frmMain::RefreshSessions() {
  Grid& grid = ledger.fgSessions;
  const RedrawOff redrawOff(grid);
  const Ungrouped ungrouped(grouping_);
  periodFilter_.Apply(CurrentPeriod());
}

void frmMain::SessionCellEdited(int row) {
  periodFilter_.Keep(ledger.fgSessions.TextMatrix(row, "ID"));
  if (grouping_.Current() != SessionGroup::None) RefreshSessions();
}

void frmMain::ChangeSessions(const std::function<void()>& change) {
  Grid& grid = ledger.fgSessions;
  const int firstNew = NextId(grid);
  periodFilter_.Keep(grid.TextMatrix(SelectedRow(grid), "ID"));
  change();
  const int id = grid.ColIndex("ID");
  for (int row = grid.FixedRows(); row < grid.Rows(); ++row)
    if (ValInt(grid.TextMatrix(row, id)) >= firstNew) periodFilter_.Keep(grid.TextMatrix(row, id));
  RefreshSessions();
}

}  // namespace lm
