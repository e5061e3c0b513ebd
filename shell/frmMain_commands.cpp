// The menu commands of the main window and the keys that run them. What a command does is told by
// the page in front, else by a page that carries it out from everywhere, else here; a command that
// none of them knows opens its window.
#include <algorithm>

#include "core/datafile.h"
#include "core/messagebox.h"
#include "core/platform.h"
#include "core/shortcuts.h"
#include "core/text.h"
#include "shell/frmMain.h"
#include "shell/guidetopics.h"
#include "shell/pages/mainpage.h"
#include "shell/ungroupedlists.h"

namespace lm {

void frmMain::BuildCommands() {
  SetHandlers();
  for (const CommandSpec& command : Commands()) {
    auto& button =
        commands_.emplace_back(std::make_unique<Button>(this, std::string(command.name)));
    button->SetText(command.caption);
    button->onPressed = [this, &command] { Run(command); };
  }
  menuBar_ = BuildMenuBar(*this);
  contextMenus_ = BuildContextMenus(*this);
}

void frmMain::SetHandlers() {
  for (const auto& page : pages_)
    for (const std::string_view command : {page->Spec().menu, page->Spec().command})
      if (!command.empty())
        handlers_[std::string(command)] = {[this, page = page->Spec().page] { ShowPage(page); }};

  handlers_["mnuSave"] = {[this] {
    const BusyPointer busy(ledger.platform);
    SaveAll();
  }};
  handlers_["mnuSaveBackup"] = {[this] {
    if (SaveBackup()) ShowMessage(ledger, "Backup Saved", "", Buttons::Ok, Icon::Done);
  }};
  handlers_["mnuLoadBackup"] = {[this] { LoadBackup(); }};
  handlers_["mnuReloadData"] = {[this] { ReloadData(); }};
  handlers_["mnuExit"] = {[this] { CloseMain(); }};
  handlers_["mnuExitWithoutSaving"] = {[this] { ExitWithoutSaving(); }};
  const auto captionOf = [](std::string verb, const std::string& step) {
    return step.empty() ? verb : verb + " " + Replace(step, "&", "&&");
  };
  const auto noWindowAbove = [this] { return ledger.openScreens.empty(); };
  handlers_["mnuUndo"] = {
      [this] { Replay(&History::Undo, "Undone: " + ledger.history.UndoCaption()); },
      [=, this] { return noWindowAbove() && !ledger.history.UndoCaption().empty(); }, nullptr,
      [=, this] { return captionOf("&Undo", ledger.history.UndoCaption()); }};
  handlers_["mnuRedo"] = {
      [this] { Replay(&History::Redo, "Done again: " + ledger.history.RedoCaption()); },
      [=, this] { return noWindowAbove() && !ledger.history.RedoCaption().empty(); }, nullptr,
      [=, this] { return captionOf("&Redo", ledger.history.RedoCaption()); }};
  handlers_["mnuPrint"] = {[this] { Print(); }, [this] { return !PageGrid() || printGrid; }};
  handlers_["mnuExportFile"] = {[this] { ExportAllData(); }};
  handlers_["mnuExportGrid"] = {[this] { ExportGrid(); }};
  handlers_["mnuViewShortcutBar"] = {[this] { ToggleShortcutBar(); }, nullptr,
                                     [this] { return shortcutBarVisible_; }};
  handlers_["mnuCalculator"] = {[this] { StartCalculator(); }};
  handlers_["mnuUserGuide"] = {[this] {
    const std::string_view place =
        ledger.openScreens.empty() ? FrontPage().Spec().caption : ledger.openScreens.back()->Name();
    ledger.platform.windows.ShowGuide(GuideHeading(place));
  }};
  handlers_["mnuLedgerMinderWebsite"] = {[this] { OpenLink(ledger, kWebsite); }};
}

const CommandHandler* frmMain::HandlerOf(std::string_view command) const {
  if (const CommandHandler* handler = FrontPage().InFrontHandler(command)) return handler;
  for (const auto& page : pages_)
    if (const CommandHandler* handler = page->HandlerFromEverywhere(command)) return handler;
  const auto own = handlers_.find(command);
  return own == handlers_.end() ? nullptr : &own->second;
}

void frmMain::Run(const CommandSpec& command) {
  const CommandHandler* handler = HandlerOf(command.name);
  handler ? handler->run() : OpenFromCatalogue(command);
}

void frmMain::RefreshCommands() {
  for (std::size_t i = 0; i < commands_.size(); ++i) {
    const CommandSpec& command = Commands()[i];
    const CommandHandler* handler = HandlerOf(command.name);
    const bool runs = handler ? !handler->enabled || handler->enabled() : !command.window.empty();
    commands_[i]->SetEnabled(runs && HasWindow(command.window));
    commands_[i]->SetText(handler && handler->caption ? handler->caption()
                                                      : std::string(command.caption));
  }
  for (const auto& page : pages_) page->RefreshButtons();
}

const MenuNode* frmMain::ContextMenuNamed(std::string_view name) const {
  const auto menu = std::ranges::find(contextMenus_, name, &MenuNode::name);
  return menu == contextMenus_.end() ? nullptr : &*menu;
}

std::vector<MenuEntry> frmMain::ContextMenu(const Grid& grid) {
  std::vector<MenuEntry> entries;
  const MainPage& page = FrontPage();
  RefreshCommands();
  const auto add = [&](std::string_view name) {
    const MenuNode* menu = ContextMenuNamed(name);
    if (!menu) return;
    for (const MenuNode& node : menu->children) {
      const Offer offer = page.OfferOf(node.name);
      entries.push_back({node.command, offer != Offer::Hidden,
                         offer == Offer::Enabled && node.command->Enabled()});
    }
  };
  add(page.MenuOf(grid));
  const RecordList* list = page.ListOf(grid);
  if (list && list->SelectedRows().size() > 1) add("mnuPopSeveral");
  return entries;
}

std::string frmMain::ShortcutTextOf(const MenuNode& node) const {
  return node.shortcut < 0 ? "" : ShortcutText(ledger, node.shortcut);
}

bool frmMain::IsChecked(const MenuNode& node) const {
  const CommandHandler* handler = HandlerOf(node.name);
  return handler && handler->checked && handler->checked();
}

void frmMain::ApplyShortcutsToMenus() { LayOut(true); }

bool frmMain::ShortcutPressed(int virtualKey, int shift) {
  const int action = FindShortcut(ledger, virtualKey, shift);
  if (action < 0) return false;
  if (const CommandSpec* command = CommandOfShortcut(action)) Press(*FindField(command->name));
  return true;
}

void frmMain::OpenFromCatalogue(const CommandSpec& command) {
  std::vector<std::string> words;
  if (!command.words.empty()) words.emplace_back(command.words);
  OpenWindow(command.window, words);
}

bool frmMain::OpenWindow(std::string_view name, const std::vector<std::string>& words) {
  const bool opened = windows_.Open(ledger, name, words);
  RefreshCommands();
  ApplyShortcutsToMenus();
  return opened;
}

void frmMain::ReloadData() {
  if (!Ask(ledger, "Reload all data?", "This will overwrite any unsaved changes.")) return;
  {
    const UngroupedLists ungrouped(*this);
    if (LoadData(ledger)) DataLoaded();
  }
  ApplyShortcutsToMenus();
  fgMenu_Click();
}

void frmMain::Replay(bool (History::*replay)(), const std::string& said) {
  replaying_ = true;
  const bool done = (ledger.history.*replay)();
  replaying_ = false;
  if (!done) return;
  lblStatus.SetText(said +
                    (ledger.history.LeftDocuments() ? ". Its documents stay as they are." : "."));
}

void frmMain::StartCalculator() {
  if (ledger.platform.system.StartCalculator()) return;
  ShowMessage(ledger, "The calculator could not be started",
              "No calculator program was found on this computer.");
}

void frmMain::ToggleShortcutBar() {
  shortcutBarVisible_ = !shortcutBarVisible_;
  LayOut(true);
}

void frmMain::Print() {
  Grid* grid = PageGrid();
  if (!grid)
    ShowMessage(ledger, "Print", "This page cannot be printed");
  else if (printGrid)
    printGrid(*grid, FrontPage().Title(), FrontPage().PrintedPeriod());
}

}  // namespace lm
