#include "shell/frmMain.h"

#include <algorithm>

#include "core/formatting.h"
#include "core/messagebox.h"
#include "core/options.h"
#include "shell/pages/allpages.h"
#include "shell/pages/mainpage.h"
#include "shell/windows.h"

namespace lm {

frmMain::frmMain(Ledger& theLedger, WindowCatalogue& windows)
    : Screen(theLedger, "frmMain", kProductName), windows_(windows) {
  AddGrid(fgMenu);
  pages_ = MakePages(*this);
  BuildShortcutBar();
  BuildCommands();
  AddMainWindows(windows_, *this);
  RefreshCommands();
  ledger.history.AddListener(*this);
}

frmMain::~frmMain() { ledger.history.RemoveListener(*this); }

void frmMain::BuildShortcutBar() {
  constexpr int kIconRow = 0;
  constexpr int kCaptionRow = 1;
  fgMenu.SetRows(2);
  fgMenu.SetCols(static_cast<int>(pages_.size()) + 1);
  for (const auto& page : pages_) {
    const PageSpec& spec = page->Spec();
    fgMenu.SetCell(CellSetting::flexcpPicture, kIconRow, ColumnOf(spec.page), spec.icon);
    fgMenu.SetTextMatrix(kCaptionRow, ColumnOf(spec.page), spec.caption);
  }
}

void frmMain::OptionsChanged() {
  FormatTables(ledger);
  SetWindowTitle();
  ShowFrontPage();
  LayOut(true);
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

// Until one is chosen, the last.
Page frmMain::CurrentPage() const {
  return fgMenu.Col() > 0 ? static_cast<Page>(fgMenu.Col()) : pages_.back()->Spec().page;
}

MainPage& frmMain::FrontPage() const {
  return *pages_[static_cast<std::size_t>(ColumnOf(CurrentPage()) - 1)];
}

MainPage* frmMain::PageWith(const Grid& grid) const {
  for (const auto& page : pages_)
    if (page->Shows(grid)) return page.get();
  return nullptr;
}

Grid* frmMain::PageGrid() const { return FrontPage().GridInFront(); }

void frmMain::BringToFront(const Grid& grid) {
  MainPage* page = PageWith(grid);
  if (!page || PageGrid() == &grid) return;
  if (!page->InFront()) ShowPage(page->Spec().page);
  page->BringToFront(grid);
}

void frmMain::Reveal(Grid& grid, int row) {
  BringToFront(grid);
  RecordList* list = FrontPage().ListOf(grid);
  if (list) list->Reveal(row);
  LayOut();
}

void frmMain::fgMenu_Click() {
  if (ledger.starting || fgMenu.Col() <= 0) return;
  ShowFrontPage();
  if (!ledger.firstStart) FrontPage().ShowTip();  // the welcome tells more
}

void frmMain::ShowFrontPage() {
  MainPage& page = FrontPage();
  lblPage.SetText(page.Spec().caption);

  // Options may have changed since the columns got their formats and lists.
  if (PageGrid()) FormatTables(ledger);
  page.Shown();
  RefreshCommands();
  LayOut();
}

void frmMain::LayOut(bool allPages) {
  if (layOut) layOut(allPages);
}

void frmMain::RecordsChanged(const ChangedRecords& changed) {
  lblStatus.SetText("");
  if (replaying_) SelectChanged(changed);
  for (const auto& page : pages_) page->RecordsChanged(changed);
  RefreshCommands();
}

// What was taken back or done again is what the user wants to see.
void frmMain::SelectChanged(const ChangedRecords& changed) {
  Grid* grid = PageGrid();
  const TableChange* here = grid ? changed.Of(*grid) : nullptr;
  if (!here) return;
  const std::vector<int>& rows = here->added.empty() ? here->edited : here->added;
  if (!rows.empty()) grid->Select(rows.front(), std::max(grid->Col(), grid->FixedCols()));
}

void frmMain::DataLoaded() {
  for (const auto& page : pages_) page->DataLoaded();
}

// Lists

std::string frmMain::LookOption(const Grid& grid, int option) const {
  const MainPage* page = PageWith(grid);
  return page ? page->LookOption(grid, option) : Screen::LookOption(grid, option);
}

void frmMain::CellClicked(Grid& grid, int row, int col) {
  if (MainPage* page = PageWith(grid)) page->CellClicked(grid, row, col);
}

void frmMain::HeaderClicked(Grid& grid, int col) {
  if (MainPage* page = PageWith(grid)) page->HeaderClicked(grid, col);
}

SortState frmMain::SortOf(const Grid& grid) const {
  const MainPage* page = PageWith(grid);
  const RecordList* list = page ? page->ListOf(grid) : nullptr;
  return list ? list->Sorting() : SortState{};
}

void frmMain::ColumnMoved(Grid& grid, int from, int to) {
  if (MainPage* page = PageWith(grid)) page->ColumnMoved(grid, from, to);
}

}  // namespace lm
