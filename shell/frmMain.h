// The main window: the one window that stays open. It shows the tables as pages, holds the menu
// commands, and says what happens from the close request to the end.
//
// A view needs:
//   MenuBar(), ContextMenus()    the menus; a leaf presses its command through Screen::Press
//   fgMenu                       the shortcut bar: row 0 icons (flexcpPicture), row 1 captions; a
//   click on
//                                column n is ShowPage(static_cast<Page>(n)), column 0 is a margin
//   layOut                       called when the page, the bar or the menus' texts change
//   PageGrid(), PageNote()       what the current page's frame holds
// and passes every key down to ShortcutPressed first, header clicks and drags to HeaderClicked and
// ColumnMoved, and the frame's close box to CloseRequested, then looks at Closed().
#pragma once

#include <array>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/options.h"
#include "core/screen.h"
#include "shell/listpage.h"
#include "shell/menus.h"
#include "shell/pages.h"

namespace lm {

class PracticeListRules;

class frmMain : public Screen {
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
  // False for a page whose content is not there yet; its frame then shows PageNote above the list,
  // if it has one.
  bool PageReady(Page page) const;
  std::string PageNote(Page page) const;  // "" when the page is ready
  // The list of the current page, or of the Pension page's tab; null for a page without a list.
  Grid* PageGrid() const;
  GridRules* RulesOf(const Grid& grid) const;  // null: the list cannot be edited

  // Caption of the current page, for the head of its frame.
  LabelField lblPage{this, "lblPage"};
  // The current page's note; hidden when the page is ready.
  LabelField lblPageNote{this, "lblPageNote"};

  // Sessions page: the table is ledger.fgSessions.
  TabField tabSessions{this, "tabSessions", SessionPeriodCaptions()};
  ComboField cboGroupSessions{this, "cboGroupSessions"};
  LabelField lblGrpBySession{this, "lblGrpBySession"};          // pressed: opens all groups
  LabelField lblCollapseSessions{this, "lblCollapseSessions"};  // pressed: collapses all groups
  Button cmdAddSession{this, "cmdAddSession"};
  Button cmdEditSession{this, "cmdEditSession"};
  Button cmdCopySession{this, "cmdCopySession"};
  Button cmdDeleteSession{this, "cmdDeleteSession"};

  // Practices page: the table is ledger.fgPractices.
  Button cmdAddPractice{this, "cmdAddPractice"};
  Button cmdEditPractice{this, "cmdEditPractice"};
  Button cmdDeletePractice{this, "cmdDeletePractice"};

  // Invoices page: the table is ledger.fgInvoices.
  TabField tabInvoices{this, "tabInvoices", InvoiceStateCaptions()};
  ComboField cboGroupInvoices{this, "cboGroupInvoices"};
  LabelField lblGrpByInvoice{this, "lblGrpByInvoice"};
  LabelField lblCollapseInvoices{this, "lblCollapseInvoices"};
  Button cmdAddInvoice{this, "cmdAddInvoice"};
  Button cmdEditInvoice{this, "cmdEditInvoice"};
  Button cmdViewInvoice{this, "cmdViewInvoice"};
  Button cmdViewInvoice_Options{this, "cmdViewInvoice_Options"};  // the view: drops mnuPopDocument
  Button cmdDeleteInvoice{this, "cmdDeleteInvoice"};

  // Pension page. The tab chooses PageGrid. The tabs of the retired Forms C and D show only to
  // users who have such forms.
  static constexpr int kTabFormC = 3;
  static constexpr int kTabFormD = 4;
  static constexpr int kTabPayments = 5;
  TabField tabForm{
      this, "tabForm", {"Form A", "Form B", "Form SOLO", "Form C", "Form D", "Payments"}};

  Button cmdAddPensionForm{this, "cmdAddPensionForm"};  // on the tab of payments: adds one
  Button cmdEditPensionForm{this, "cmdEditPensionForm"};
  Button cmdViewPensionForm{this, "cmdViewPensionForm"};
  Button cmdViewPensionForm_Options{this,
                                    "cmdViewPensionForm_Options"};  // as cmdViewInvoice_Options
  Button cmdDeletePensionForm{this, "cmdDeletePensionForm"};

  // My Details page (shell/mydetails.h: captions, order, tabs). Every field can be written to
  // whatever tab is in front; the view places it on the page of its tab.
  LabelField lblMyName{this, "lblMyName"};
  LabelField lblMyDetailsHint{this, "lblMyDetailsHint"};  // what cannot fit the boxes of the forms
  TabField tabMyDetails;
  std::array<std::unique_ptr<TextField>, kMyDetailsFields> txtMyDetails;  // by field number

  // ---- Lists.
  // A click on a column header: sorts, a second click on the same header reverses.
  void HeaderClicked(Grid& grid, int col);
  struct SortState {
    std::string key;  // of the column; "" when the list was not sorted in this run
    bool descending = false;
  };
  SortState SortOf(const Grid& grid) const;
  // A header dragged from one place to another. The marker column and the group column stay.
  void ColumnMoved(Grid& grid, int from, int to);
  // Filters and groups the lists anew, after records changed.
  void RefreshLists();

  // ---- Menus.
  const std::vector<MenuNode>& MenuBar() const { return menuBar_; }
  const std::vector<MenuNode>& ContextMenus() const { return contextMenus_; }
  // The shortcut as it stands right of the caption: "Ctrl+S"; "" for none.
  std::string ShortcutTextOf(const MenuNode& node) const;
  bool IsChecked(const MenuNode& node) const;
  // A caption, a tab and the shortcut for every entry: after shortcuts changed. The view re-reads
  // the texts.
  void ApplyShortcutsToMenus();
  // Enables what can run: a command without its window, and one that its page cannot carry out,
  // stays disabled.
  void RefreshCommands();
  // A key pressed anywhere in the window. virtualKey is the platform's code as the shortcuts hold
  // it; shift is 1 Shift + 2 Ctrl + 4 Alt. True: it was a shortcut and goes no further.
  bool ShortcutPressed(int virtualKey, int shift);

  // ---- Window.
  bool ShortcutBarVisible() const { return shortcutBarVisible_; }
  bool maximised = false;  // shown maximised; set at the start from the options
  // "LedgerMinder", with the user's name when the options say so.
  void SetWindowTitle();

  // ---- Hooks of the view; each may stay empty.
  std::function<void(bool allPages)> layOut;  // the page, the bar or a menu text changed
  std::function<void()> showWindow;           // the end of the start
  // Prints a list with a title and a preview. Without it (no desktop) lists cannot be printed.
  std::function<void(Grid&, const std::string& title)> printGrid;
  // Title under which the current page's list is printed; "" for a page that cannot be printed.
  std::string PrintTitle() const;

  // ---- Saving and closing.
  // Saves everything, without group rows and the group column; false after its message.
  bool SaveAll();
  // From the close request to the end. False when the user or a failed save stopped it.
  bool CloseMain();
  void CloseRequested() override { CloseMain(); }
  // Without any question: closes the windows above and then this one.
  void UnloadAllWindows();

 private:
  void BuildShortcutBar();
  void BuildCommands();
  void BuildSessionsPage();
  void BuildInvoicesPage();
  void BuildPensionPage();
  void BuildPracticesPage();
  void BuildMyDetailsPage();
  void BuildLists();
  void SetHandlers();
  bool HasNothingToRun(const CommandSpec& command) const;

  void fgMenu_Click();
  void LoadMyDetails();
  void CallLayOut(bool allPages);

  // The selected row, -1 when there is none or when it is out of sight.
  int SelectedRow(const Grid& grid) const;
  // Runs what may add, change or delete records, then filters and groups the lists anew. What was
  // added, and the selected records, stay in sight.
  void ChangeRecords(const std::function<void()>& change);
  SessionPeriod CurrentPeriod() const;
  // The page whose list the grid is; null for a list that is neither filtered nor grouped.
  ListPage* ListPageOf(const Grid& grid);
  // The selected record's ID; "" after the message when none is selected.
  std::string SelectedId(const Grid& grid, std::string_view mainPrompt,
                         std::string_view minorPrompt);
  void OpenSelectedInvoice(bool recreate);
  std::array<Grid*, 6> PensionTables() const;  // in the order of tabForm
  // Menu entries whose acts go through ChangeRecords.
  std::vector<MenuEntry> RunningThroughChanges(std::vector<MenuEntry> entries);
  void OpenSelectedDocument(bool recreate);  // an invoice or a pension form
  void PensionTabChosen();
  void EditSelectedForm();
  void ChangeSelectedSession(bool (*change)(Ledger& ledger, const std::string& id));

  struct PageCommands {  // the page's own buttons, for the keys that act on the current page
    Button* add = nullptr;
    Button* edit = nullptr;
    Button* remove = nullptr;
  };
  PageCommands CommandsOfPage();
  void OpenFromCatalogue(const CommandSpec& command);
  void ReloadData();
  void ExitWithoutSaving();
  void Print();
  void ToggleShortcutBar();

  bool ConfirmExit();
  void BackUpIfDue();

  // What saving goes over must hold no groups.
  struct UngroupedLists {
    Ungrouped sessions, invoices;
  };

  template <typename Rules>
  friend class PageRules;
  friend class PensionPageRules;

  WindowCatalogue& windows_;
  std::vector<std::unique_ptr<Button>> commands_;
  std::map<std::string, std::function<void()>, std::less<>> handlers_;  // by the command's name
  std::vector<MenuNode> menuBar_;
  std::vector<MenuNode> contextMenus_;
  std::map<std::string, SortState, std::less<>> sorts_;  // by the list's name
  ListPage sessionsPage_;
  ListPage invoicesPage_;
  std::unique_ptr<GridRules> sessionRules_;
  std::unique_ptr<GridRules> invoiceRules_;
  std::vector<std::unique_ptr<GridRules>> pensionRules_;  // in the order of tabForm
  std::unique_ptr<PracticeListRules> practiceRules_;
  bool shortcutBarVisible_ = true;
};

}  // namespace lm
