// The main window: the one window that stays open. It keeps the pages, the shortcut bar, the menus
// and the keys, and says what happens from the close request to the end. What stands on a page and
// what can be done there is the page's own (shell/pages/).
//
// A view needs:
//   MenuBar(), ContextMenus()    the menus; a leaf presses its command through Screen::Press
//   fgMenu                       the shortcut bar: row 0 icons (flexcpPicture), row 1 captions; a
//                                click on column n is ShowPage(static_cast<Page>(n)), column 0 is a
//                                margin
//   Pages()                      what stands on each page
//   layOut                       called when the page, the bar or the menus' texts change
// and passes every key down to ShortcutPressed first, header clicks and drags to HeaderClicked and
// ColumnMoved, and the frame's close box to CloseRequested, then looks at Closed().
#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/change.h"
#include "core/screen.h"
#include "shell/menus.h"
#include "shell/pages.h"

namespace lm {

class clsStringBuilder;
class MainPage;
struct SortState;

class frmMain : public Screen, private ChangeListener {
 public:
  // The catalogue stays with the caller and outlives the window; windows may be added to it later.
  frmMain(Ledger& ledger, WindowCatalogue& windows);
  ~frmMain() override;

  // ---- The shortcut bar and the pages.
  Grid fgMenu{"fgMenu"};
  // The column of fgMenu set and its click handler run. While the program starts, the handler does
  // no work.
  void ShowPage(Page page);
  Page CurrentPage() const;
  const std::vector<std::unique_ptr<MainPage>>& Pages() const { return pages_; }
  MainPage& FrontPage() const;
  // The page of this class: for a page that leads to another, and for tests.
  template <typename Kind>
  Kind& PageOf() const;
  // The page that shows the grid; null when none does.
  MainPage* PageWith(const Grid& grid) const;
  // The grid in front; null on a page without one.
  Grid* PageGrid() const;
  // Shows the page, and the tab on it, where the grid stands.
  void BringToFront(const Grid& grid);

  // Selects a record of a list on its page, in sight whatever hides it there.
  void Reveal(Grid& grid, int row);

  // What Find looked for last in this run.
  std::string lastSearch;

  // Caption of the current page, for the head of its frame.
  LabelField lblPage{this, "lblPage"};

  // What was done last, in the status bar: "Undone: Delete Session."
  LabelField lblStatus{this, "lblStatus"};

  // ---- Lists.
  std::string LookOption(const Grid& grid, int option) const override;
  // A click on a column header: sorts, a second click on the same header reverses.
  void HeaderClicked(Grid& grid, int col);
  SortState SortOf(const Grid& grid) const;
  // A header dragged from one place to another. The marker column and the group column stay.
  void ColumnMoved(Grid& grid, int from, int to);

  // ---- Menus.
  const std::vector<MenuNode>& MenuBar() const { return menuBar_; }
  const std::vector<MenuNode>& ContextMenus() const { return contextMenus_; }
  std::vector<MenuEntry> ContextMenu(const Grid& grid) override;
  // The shortcut as it stands right of the caption: "Ctrl+S"; "" for none.
  std::string ShortcutTextOf(const MenuNode& node) const;
  bool IsChecked(const MenuNode& node) const;
  // A caption, a tab and the shortcut for every entry: after shortcuts changed. The view re-reads
  // the texts.
  void ApplyShortcutsToMenus();
  // Gives the commands their captions and enables what can run: a command without its window, and
  // one that has nothing to do on the page in front, stays disabled.
  void RefreshCommands();
  // A key pressed anywhere in the window. virtualKey is the platform's code as the shortcuts hold
  // it; shift is 1 Shift + 2 Ctrl + 4 Alt. True: it was a shortcut and goes no further.
  bool ShortcutPressed(int virtualKey, int shift);

  // ---- Window.
  bool ShortcutBarVisible() const { return shortcutBarVisible_; }
  bool maximised = false;  // shown maximised; set at the start from the options
  // After the options changed: formats, fonts, colours, look-ups, the page in front, the title.
  void OptionsChanged();
  // "LedgerMinder", with the user's name when the options say so.
  void SetWindowTitle();

  // ---- Hooks of the view; each may stay empty.
  std::function<void(bool allPages)> layOut;  // the page, the bar or a menu text changed
  std::function<void()> showWindow;           // the end of the start
  // Prints a list with a title, the period that it shows below it, and a preview. Without it (no
  // desktop) lists cannot be printed.
  std::function<void(Grid&, const std::string& title, const std::string& period)> printGrid;

  // ---- For the pages.
  // The data was loaded: at the start and by Reload Data.
  void DataLoaded();
  void ShowGrid(Grid& grid, GridRules* rules) { AddGrid(grid, rules); }
  bool OpenWindow(std::string_view name, const std::vector<std::string>& words = {});
  bool HasWindow(std::string_view name) const { return name.empty() || windows_.Has(name); }
  void LayOut(bool allPages = false);

  // ---- Saving and closing.
  // Saves everything, without group rows and the group column; false after its message.
  bool SaveAll();
  // Asks where; false when cancelled or after its message.
  bool SaveBackup();
  // Asks which. A load that fails ends the program without saving.
  void LoadBackup();
  // From the close request to the end. False when the user or a failed save stopped it.
  bool CloseMain();
  void CloseRequested() override { CloseMain(); }
  // Without any question: closes the windows above and then this one.
  void UnloadAllWindows();

 private:
  void BuildShortcutBar();
  void BuildCommands();
  void SetHandlers();
  const CommandHandler* HandlerOf(std::string_view command) const;
  void Run(const CommandSpec& command);
  void OpenFromCatalogue(const CommandSpec& command);
  const MenuNode* ContextMenuNamed(std::string_view name) const;

  void CellClicked(Grid& grid, int row, int col) override;
  void fgMenu_Click();
  void ShowFrontPage();
  void RecordsChanged(const ChangedRecords& changed) override;
  void ReloadData();
  void ExitWithoutSaving();
  void Print();
  void ExportAllData();
  void ExportGrid();
  void Export(const std::filesystem::path& path,
              const std::function<void(clsStringBuilder& file)>& write);
  void StartCalculator();
  void ToggleShortcutBar();
  void Replay(bool (History::*replay)(), const std::string& said);
  void SelectChanged(const ChangedRecords& changed);

  bool ConfirmExit();
  void LeaveAfterFailedLoad();
  void BackUpIfDue();

  WindowCatalogue& windows_;
  std::vector<std::unique_ptr<MainPage>> pages_;   // in the order of the bar's columns
  std::vector<std::unique_ptr<Button>> commands_;  // in the order of Commands()
  std::map<std::string, CommandHandler, std::less<>> handlers_;
  std::vector<MenuNode> menuBar_;
  std::vector<MenuNode> contextMenus_;
  bool shortcutBarVisible_ = true;
  bool replaying_ = false;  // Undo or Redo runs
};

template <typename Kind>
Kind& frmMain::PageOf() const {
  Kind* found = nullptr;
  for (const auto& page : pages_)
    if (auto* kind = dynamic_cast<Kind*>(page.get())) found = kind;
  return *found;
}

}  // namespace lm
