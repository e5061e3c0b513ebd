// A page of the main window: its fields, its lists and their rules, what its buttons and the menu
// commands do on it, its tips, and what it does when it is shown and when records change. Each page
// is a class of its own, made by one line in shell/pages/allpages.cpp; the main window knows pages
// by this interface alone.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/change.h"
#include "shell/frmMain.h"
#include "shell/menus.h"
#include "shell/pages.h"
#include "shell/recordlist.h"

namespace lm {

struct PageSpec {
  Page page;
  std::string_view caption;
  std::string_view icon;          // the picture's name in row 0 of the shortcut bar
  std::string_view menu;          // the View menu's command that shows the page
  std::string_view command = "";  // a second command that shows it
};

// One of the buttons above a page's content, from left to right.
struct PageButton {
  Button* button;
  std::string_view drawing;
  std::string_view window = "";             // that it opens; it is disabled while there is none
  std::function<bool()> enabled = nullptr;  // nothing set: always
  std::string_view menu = "";  // drops this menu instead, and is part of the one before
};

// How an entry stands in the right-button menu of the cell where the cursor is.
enum class Offer { Hidden, Disabled, Enabled };
constexpr Offer EnabledIf(bool enabled) { return enabled ? Offer::Enabled : Offer::Disabled; }

class MainPage {
 public:
  MainPage(frmMain& window, const PageSpec& spec);
  virtual ~MainPage() = default;
  MainPage(const MainPage&) = delete;
  MainPage& operator=(const MainPage&) = delete;

  const PageSpec& Spec() const { return spec_; }
  bool InFront() const { return &window.FrontPage() == this; }

  // What stands on it, for a view: buttons, then tabs, then the lists, one of them in front.
  const std::vector<PageButton>& Buttons() const { return buttons_; }
  const TabField* Tabs() const { return tabs_; }
  TextField* FilterBox() const { return filter_; }  // null for a page without one
  const GroupControls& Grouping() const { return grouping_; }
  const std::vector<std::unique_ptr<RecordList>>& Lists() const { return lists_; }
  RecordList* ListOf(const Grid& grid) const;  // null for a grid that is none of its lists
  virtual bool Shows(const Grid& grid) const { return ListOf(grid) != nullptr; }
  // The grid in front, of which the keys, printing and export speak; null for a page without one.
  virtual Grid* GridInFront() const;
  // Chooses the tab on which one of its grids stands, where they have tabs.
  virtual void BringToFront(const Grid& /*grid*/) {}
  // Under which that grid is printed and exported.
  virtual std::string Title() const { return std::string(spec_.caption); }
  // What of its records that grid shows, below the title on paper: "This Month, 03/02/2026 to
  // 24/02/2026".
  virtual std::string PrintedPeriod() const;
  // What that grid answers, where it may answer different questions.
  virtual std::string Subject() const { return ""; }

  // The option by which one of its grids looks.
  virtual std::string LookOption(const Grid& grid, int option) const;

  // What the user does with the headers of its grids.
  virtual void HeaderClicked(Grid& grid, int col);
  virtual void ColumnMoved(Grid& grid, int from, int to);
  // A cell where a click itself means something.
  virtual void CellClicked(Grid& /*grid*/, int /*row*/, int /*col*/) {}

  // The data was loaded: at the start and by Reload Data.
  virtual void DataLoaded();
  // The page comes to the front.
  virtual void Shown();
  virtual void ShowTip();
  // After every act on records, whichever page is in front.
  virtual void RecordsChanged(const ChangedRecords& changed);

  // Enables the buttons that can run.
  void RefreshButtons();
  // What a menu command does while this page is in front; null when it has nothing to do here.
  const CommandHandler* InFrontHandler(std::string_view command) const;
  // The same for a command that this page carries out from everywhere.
  const CommandHandler* HandlerFromEverywhere(std::string_view command) const;
  // What is selected in the list: a single record by its own rules, several with one question.
  void DeleteSelected(RecordList& list);
  void CopySelected(const RecordList& list) const;
  // All records of its lists in sight: the tab that hides none, and no words.
  void ShowAll() const;
  // The keys that press one of its buttons: "Ctrl+N"; "" for none.
  std::string KeysOf(const Button& button) const;
  // The right-button menu of one of its grids; "" for none. Entries that the page does not offer
  // are hidden.
  virtual std::string_view MenuOf(const Grid& grid) const;
  Offer OfferOf(std::string_view entry) const;

 protected:
  frmMain& window;
  Ledger& ledger;

  // What is worked out from the records, anew: when the page is shown, and after each change of
  // records while it is in front.
  virtual void Rebuild() {}

  RecordList& AddList(Grid& table, RecordList::Texts texts, GridRules* rules = nullptr);
  void AddButton(PageButton button, std::string_view caption, std::function<void()> press);
  void SetTabs(TabField& tabs) { tabs_ = &tabs; }
  // The box whose words narrow all lists of the page.
  void SetFilter(TextField& box);
  void SetGrouping(const GroupControls& controls) { grouping_ = controls; }

  void OnCommand(std::string_view command, CommandHandler handler);
  void FromEverywhere(std::string_view command, CommandHandler handler);
  // The keys that add, edit and delete on whichever page is in front press these here.
  void SetItemButtons(Button& add, Button& edit, Button& remove);
  // The menu of the page's lists, and the entries that it offers there: commands that this page
  // handles, or its buttons.
  void SetListMenu(std::string_view menu) { listMenu_ = menu; }
  void OfferEntry(std::string_view entry, std::function<Offer()> offer = nullptr);
  CommandHandler Pressing(Field& button) const;

  // One tip comes at each visit: the first that fits and was not shown in this run.
  struct Tip {
    std::string_view title;
    std::string_view text;
    std::function<bool()> fits = nullptr;  // nothing set: always
  };
  void AddTip(Tip tip) { tips_.push_back(std::move(tip)); }
  // How lists are sorted and their columns moved.
  void AddListTips(const std::function<bool()>& fits);

 private:
  using Handlers = std::map<std::string, CommandHandler, std::less<>>;

  PageSpec spec_;
  std::vector<PageButton> buttons_;
  TabField* tabs_ = nullptr;
  TextField* filter_ = nullptr;
  GroupControls grouping_;
  std::vector<std::unique_ptr<RecordList>> lists_;
  Handlers inFront_, fromEverywhere_;
  std::string_view listMenu_;
  std::map<std::string, std::function<Offer()>, std::less<>> offers_;
  std::vector<Tip> tips_;
};

}  // namespace lm
