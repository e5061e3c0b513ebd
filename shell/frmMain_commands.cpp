// The menu commands of the main window and the keys that run them.
#include "core/datafile.h"
#include "core/messagebox.h"
#include "core/platform.h"
#include "core/shortcuts.h"
#include "documents/invoices.h"
#include "pension/windows.h"
#include "shell/frmMain.h"

namespace lm {
namespace {

struct PrintedTable {
  std::string_view table;
  std::string_view title;
};

constexpr PrintedTable kPensionTitles[] = {
    {"fgPensionA", "Locum Form A"},       {"fgPensionB", "Locum Form B"},
    {"fgPensionC", "Locum Form C"},       {"fgPensionD", "Locum Form D"},
    {"fgPensionSolo", "Locum Form Solo"}, {"fgPensionPayments", "Pension Payments"}};

}  // namespace

void frmMain::BuildCommands() {
  SetHandlers();
  for (const CommandSpec& command : Commands()) {
    auto& button =
        commands_.emplace_back(std::make_unique<Button>(this, std::string(command.name)));
    button->SetText(command.caption);
    button->onPressed = [this, &command] {
      const auto handler = handlers_.find(command.name);
      handler != handlers_.end() ? handler->second() : OpenFromCatalogue(command);
    };
  }
  menuBar_ = BuildMenuBar(*this);
  contextMenus_ = BuildContextMenus(*this);
}

void frmMain::SetHandlers() {
  for (const PageSpec& page : kPages)
    for (const std::string_view command : {page.menu, page.command})
      if (!command.empty())
        handlers_.emplace(command, [this, page = page.page] { ShowPage(page); });

  handlers_["mnuSave"] = [this] {
    const BusyPointer busy(ledger.platform);
    SaveAll();
  };
  handlers_["mnuReloadData"] = [this] { ReloadData(); };
  handlers_["mnuExit"] = [this] { CloseMain(); };
  handlers_["mnuExitWithoutSaving"] = [this] { ExitWithoutSaving(); };
  handlers_["mnuPrint"] = [this] { Print(); };
  handlers_["mnuNewSession"] = [this] { Press(cmdAddSession); };
  handlers_["mnuNewInvoices"] = [this] { Press(cmdAddInvoice); };
  handlers_["mnuPopOpenDocument"] = [this] { OpenSelectedDocument(false); };
  handlers_["mnuPopRecreateAndOpenDocument"] = [this] { OpenSelectedDocument(true); };
  handlers_["mnuPopInv_DeleteInvoice"] = [this] { Press(cmdDeleteInvoice); };
  handlers_["mnuPopCal_AddToInvoice"] = [this] { ChangeSelectedSession(AddSessionToInvoice); };
  handlers_["mnuPopCal_RemoveFromInvoice"] = [this] {
    ChangeSelectedSession(RemoveSessionFromInvoice);
  };
  handlers_["mnuNewPensionForms"] = [this] { ChangeRecords([this] { OpenPensionForms(ledger); }); };
  handlers_["mnuNewPractice"] = [this] { Press(cmdAddPractice); };
  handlers_["mnuViewShortcutBar"] = [this] { ToggleShortcutBar(); };
  handlers_["mnuCalculator"] = [this] { ledger.platform.system.StartCalculator(); };
  handlers_["mnuLedgerMinderWebsite"] = [this] { OpenLink(ledger, kWebsite); };
  handlers_["mnuNewItem"] = [this] { Press(*CommandsOfPage().add); };
  handlers_["mnuEditItem"] = [this] { Press(*CommandsOfPage().edit); };
  handlers_["mnuDeleteItem"] = [this] { Press(*CommandsOfPage().remove); };
}

frmMain::PageCommands frmMain::CommandsOfPage() {
  switch (CurrentPage()) {
    case Page::Sessions:
      return {&cmdAddSession, &cmdEditSession, &cmdDeleteSession};
    case Page::Invoices:
      return {&cmdAddInvoice, &cmdEditInvoice, &cmdDeleteInvoice};
    case Page::Pension:
      return {&cmdAddPensionForm, &cmdEditPensionForm, &cmdDeletePensionForm};
    case Page::Practices:
      return {&cmdAddPractice, &cmdEditPractice, &cmdDeletePractice};
    default:
      return {};
  }
}

bool frmMain::HasNothingToRun(const CommandSpec& command) const {
  if (!command.window.empty() && !windows_.Has(command.window)) return true;
  return command.window.empty() && !handlers_.contains(command.name);
}

void frmMain::RefreshCommands() {
  const bool pageHasItems = CommandsOfPage().add != nullptr;
  for (const CommandSpec& command : Commands()) {
    bool enabled = !HasNothingToRun(command);
    if (command.name == "mnuNewItem" || command.name == "mnuEditItem" ||
        command.name == "mnuDeleteItem")
      enabled = pageHasItems;
    if (command.name.starts_with("mnuPopInv_")) enabled = CurrentPage() == Page::Invoices;
    if (command.name.ends_with("OpenDocument"))
      enabled = CurrentPage() == Page::Invoices || CurrentPage() == Page::Pension;
    if (command.name == "mnuPopCal_AddToInvoice" || command.name == "mnuPopCal_RemoveFromInvoice")
      enabled = CurrentPage() == Page::Sessions;
    if (command.name == "mnuPrint") enabled = !PageGrid() || printGrid;
    FindField(command.name)->SetEnabled(enabled);
  }
  const bool sessions = windows_.Has("frmSession");
  cmdAddSession.SetEnabled(sessions);
  cmdEditSession.SetEnabled(sessions);
  cmdCopySession.SetEnabled(sessions);
  cmdAddInvoice.SetEnabled(windows_.Has("frmPrepareInvoices"));
  cmdEditInvoice.SetEnabled(windows_.Has("frmInvoice"));
  const bool practices = windows_.Has("frmPractice");
  cmdAddPractice.SetEnabled(practices);
  cmdEditPractice.SetEnabled(practices);
}

std::string frmMain::ShortcutTextOf(const MenuNode& node) const {
  return node.shortcut < 0 ? "" : ShortcutText(ledger, node.shortcut);
}

bool frmMain::IsChecked(const MenuNode& node) const {
  return node.name == "mnuViewShortcutBar" && shortcutBarVisible_;
}

void frmMain::ApplyShortcutsToMenus() { CallLayOut(true); }

bool frmMain::ShortcutPressed(int virtualKey, int shift) {
  const int action = FindShortcut(ledger, virtualKey, shift);
  if (action < 0) return false;
  if (const CommandSpec* command = CommandOfShortcut(action)) Press(*FindField(command->name));
  return true;
}

void frmMain::OpenFromCatalogue(const CommandSpec& command) {
  std::vector<std::string> words;
  if (!command.words.empty()) words.emplace_back(command.words);
  ChangeRecords([&] { windows_.Open(ledger, command.window, words); });
  RefreshCommands();
  ApplyShortcutsToMenus();
}

void frmMain::ReloadData() {
  if (!Ask(ledger, "Reload all data?", "This will overwrite any unsaved changes.")) return;
  {
    const UngroupedLists ungrouped{Ungrouped(sessionsPage_.Grouping()),
                                   Ungrouped(invoicesPage_.Grouping())};
    LoadData(ledger);
    sessionsPage_.ForgetKept();
    invoicesPage_.ForgetKept();
    sorts_.clear();
  }
  ApplyShortcutsToMenus();
  fgMenu_Click();
}

void frmMain::ToggleShortcutBar() {
  shortcutBarVisible_ = !shortcutBarVisible_;
  CallLayOut(true);
}

std::string frmMain::PrintTitle() const {
  const Grid* grid = PageGrid();
  if (!grid) return "";
  for (const PrintedTable& printed : kPensionTitles)
    if (printed.table == grid->Name()) return std::string(printed.title);
  return std::string(PageSpecOf(CurrentPage()).caption);
}

void frmMain::Print() {
  Grid* grid = PageGrid();
  if (!grid)
    ShowMessage(ledger, "Print", "This page cannot be printed");
  else if (printGrid)
    printGrid(*grid, PrintTitle());
}

}  // namespace lm
