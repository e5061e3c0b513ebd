#include "shell/pages/mainpage.h"

#include <algorithm>

#include "core/messagebox.h"
#include "core/options.h"
#include "core/platform.h"
#include "core/shortcuts.h"
#include "core/text.h"
#include "shell/printtable.h"
#include "shell/severalrows.h"

namespace lm {
namespace {

// "Ctrl+Delete" for "Ctrl+{DELETE}".
std::string InWords(const std::string& keys) {
  const std::size_t open = keys.find('{'), close = keys.find('}');
  if (open == std::string::npos || close == std::string::npos || close < open + 2) return keys;
  return keys.substr(0, open) + keys[open + 1] + ToLower(keys.substr(open + 2, close - open - 2)) +
         keys.substr(close + 1);
}

}  // namespace

MainPage::MainPage(frmMain& theWindow, const PageSpec& spec)
    : window(theWindow), ledger(theWindow.ledger), spec_(spec) {
  OnCommand("mnuPopCopyRows", {[this] {
              const Grid* grid = GridInFront();
              if (const RecordList* list = grid ? ListOf(*grid) : nullptr) CopySelected(*list);
            }});
  OfferEntry("mnuPopCopyRows");
}

// Content

RecordList& MainPage::AddList(Grid& table, RecordList::Texts texts, GridRules* rules) {
  window.ShowGrid(table, rules);
  return *lists_.emplace_back(std::make_unique<RecordList>(ledger, table, texts));
}

void MainPage::AddButton(PageButton button, std::string_view caption, std::function<void()> press) {
  button.button->SetText(caption);
  button.button->onPressed = std::move(press);
  buttons_.push_back(std::move(button));
}

void MainPage::SetFilter(TextField& box) {
  filter_ = &box;
  const auto narrow = [this](std::string_view typed) {
    for (const auto& list : lists_) list->Narrow(typed);
  };
  box.onTyping = narrow;
  box.onEntered = [&box, narrow] {
    narrow(box.Text());
    return true;
  };
  OnCommand("mnuFilterList", {[this, &box] { window.Focus(box); }});
}

RecordList* MainPage::ListOf(const Grid& grid) const {
  const auto list =
      std::ranges::find_if(lists_, [&](const auto& each) { return &each->Table() == &grid; });
  return list == lists_.end() ? nullptr : list->get();
}

Grid* MainPage::GridInFront() const { return lists_.empty() ? nullptr : &lists_.front()->Table(); }

std::string MainPage::PrintedPeriod() const {
  const Grid* grid = GridInFront();
  if (!grid) return "";
  const RecordList* list = ListOf(*grid);
  const std::string tab = list ? list->Period() : "";
  const std::string days = PrintedDays(*grid);
  return tab.empty() || days.empty() ? tab + days : tab + ", " + days;
}

std::string MainPage::LookOption(const Grid&, int option) const {
  return GetOption(ledger, option);
}

void MainPage::HeaderClicked(Grid& grid, int col) {
  if (RecordList* list = ListOf(grid)) list->HeaderClicked(col);
}

void MainPage::ColumnMoved(Grid& grid, int from, int to) {
  if (RecordList* list = ListOf(grid)) list->ColumnMoved(from, to);
}

// What happens to it

void MainPage::DataLoaded() {
  if (filter_) filter_->SetText("");
  for (const auto& list : lists_) list->Forget();
}

void MainPage::Shown() {
  for (const auto& list : lists_) list->Refresh();
  Rebuild();
}

void MainPage::RecordsChanged(const ChangedRecords& changed) {
  for (const auto& list : lists_)
    if (const TableChange* change = changed.Of(list->Table()))
      list->RecordsChanged(*change, InFront());
  if (InFront()) Rebuild();
}

void MainPage::DeleteSelected(RecordList& list) {
  GridRules* rules = window.RulesOf(list.Table());
  if (list.SelectedRows().size() > 1)
    DeleteSeveral(ledger, list, *rules);
  else
    rules->DeletePressed(list.SelectedRow());
}

void MainPage::CopySelected(const RecordList& list) const {
  if (!list.SelectedRows().empty()) ledger.platform.system.SetClipboard(CopiedRows(list));
}

void MainPage::ShowAll() const {
  if (filter_) {
    filter_->SetText("");
    for (const auto& list : lists_) list->Narrow("");
  }
  const int all = tabs_ ? EntryNamed(*tabs_, kTabOfAll) : -1;
  if (all >= 0) window.Choose(*tabs_, all);
}

void MainPage::RefreshButtons() {
  for (const PageButton& each : buttons_)
    each.button->SetEnabled(window.HasWindow(each.window) && (!each.enabled || each.enabled()));
}

// Commands

void MainPage::OnCommand(std::string_view command, CommandHandler handler) {
  inFront_.insert_or_assign(std::string(command), std::move(handler));
}

void MainPage::FromEverywhere(std::string_view command, CommandHandler handler) {
  fromEverywhere_.insert_or_assign(std::string(command), std::move(handler));
}

void MainPage::SetItemButtons(Button& add, Button& edit, Button& remove) {
  OnCommand("mnuNewItem", Pressing(add));
  OnCommand("mnuEditItem", Pressing(edit));
  OnCommand("mnuDeleteItem", Pressing(remove));
}

void MainPage::OfferEntry(std::string_view entry, std::function<Offer()> offer) {
  offers_.insert_or_assign(std::string(entry), std::move(offer));
}

CommandHandler MainPage::Pressing(Field& button) const {
  CommandHandler handler{[this, &button] { window.Press(button); }};
  handler.presses = &button;
  return handler;
}

std::string MainPage::KeysOf(const Button& button) const {
  for (const Handlers* handlers : {&inFront_, &fromEverywhere_})
    for (const auto& [name, handler] : *handlers) {
      const CommandSpec* command = handler.presses == &button ? FindCommand(name) : nullptr;
      const std::string keys = command ? ShortcutText(ledger, command->shortcut) : "";
      if (!keys.empty()) return InWords(keys);
    }
  return "";
}

const CommandHandler* MainPage::InFrontHandler(std::string_view command) const {
  const auto handler = inFront_.find(command);
  return handler == inFront_.end() ? nullptr : &handler->second;
}

const CommandHandler* MainPage::HandlerFromEverywhere(std::string_view command) const {
  const auto handler = fromEverywhere_.find(command);
  return handler == fromEverywhere_.end() ? nullptr : &handler->second;
}

std::string_view MainPage::MenuOf(const Grid& grid) const { return ListOf(grid) ? listMenu_ : ""; }

Offer MainPage::OfferOf(std::string_view entry) const {
  const auto offer = offers_.find(entry);
  if (offer == offers_.end()) return Offer::Hidden;
  return offer->second ? offer->second() : Offer::Enabled;
}

// Tips

void MainPage::ShowTip() {
  for (const Tip& tip : tips_) {
    if ((tip.fits && !tip.fits()) || ledger.shownTips.contains(std::string(tip.text))) continue;
    return lm::ShowTip(ledger, tip.title, tip.text);
  }
}

void MainPage::AddListTips(const std::function<bool()>& fits) {
  AddTip({"Data Sorting",
          "Click a column's heading to sort the list by that column. Click it a second time to "
          "reverse the order.",
          fits});
  AddTip({"Column Positioning",
          "Drag a column's heading to move the column, or drag the line between two headings to "
          "change its width. The layout is kept when you save.",
          fits});
}

}  // namespace lm
