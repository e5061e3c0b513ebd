#include "shell/menus.h"

#include <algorithm>
#include <cstddef>

namespace lm {
namespace {

constexpr CommandSpec kCommands[] = {
    // File
    {"mnuNewItem", "I&tem", 13},
    {"mnuNewSession", "&Session", 20, "frmSession"},
    {"mnuMultiSession", "&Multi-Session", 21, "frmAddSessions", "new"},
    {"mnuEvent", "&Event", 23, "frmEvent", "new"},
    {"mnuNewInvoices", "&Invoices", 25, "frmPrepareInvoices", "new"},
    {"mnuNewPensionForms", "&Pension Forms", 27, "frmPensionForms", "new"},
    {"mnuNewExpense", "E&xpense", 29, "frmAddExpenses", "new"},
    {"mnuNewPractice", "Pra&ctice", 31, "frmPractice", "new"},
    {"mnuBookingConfirmation", "&Booking Confirmation", 35, "frmBookingConfirmation", "new"},
    {"mnuReloadData", "&Reload Data"},
    {"mnuSave", "&Save", 2},
    {"mnuSaveBackup", "Save &Backup", 0},
    {"mnuLoadBackup", "Load Backup"},
    {"mnuSyncWithOutlook", "Synchronise With &Outlook...", -1, "frmSynchroniseOutlook"},
    {"mnuImportFromGPNet", "Import From &GPnetworks...", -1, "frmImportWizard", "GPnetworks"},
    {"mnuImportFromNetworkLocum", "Import From Network &Locum...", -1, "frmImportWizard",
     "NetworkLocum"},
    {"mnuExportCalendar", "&Export Calendar...", -1, "frmExportCalendar"},
    {"mnuImportCalendar", "&Import Calendar...", -1, "frmImportCalendar"},
    {"mnuExportFile", "&All Data..."},
    {"mnuExportGrid", "&Grid..."},
    {"mnuPrint", "Print", 1},
    {"mnuExitWithoutSaving", "Exit Without Saving", 4},
    {"mnuExit", "Exit", 3},
    // Edit
    {"mnuUndo", "&Undo", 37},
    {"mnuRedo", "&Redo", 38},
    {"mnuFind", "&Find...", 40, "frmFind"},
    {"mnuFilterList", "Fi&lter List", 41},
    // View
    {"mnuViewCalendar", "&Calendar"},
    {"mnuViewWeek", "&Week", 5},
    {"mnuViewTimeTable", "&Detail", 36},
    {"mnuViewMonth", "&Month", 6},
    {"mnuViewPlanner", "P&lanner", 7},
    {"mnuViewYear", "&Year", 8},
    {"mnuGoToToday", "Go To &Today", 10},
    {"mnuViewWeekends", "Wee&kends", 9},
    {"mnuViewSessions", "&Sessions", 19},
    {"mnuVewEvents", "&Events", 22},
    {"mnuViewInvoices", "&Invoices", 24},
    {"mnuViewReports", "&Reports", 32},
    {"mnuViewPractices", "Pra&ctices", 30},
    {"mnuViewPension", "&Pensions", 26},
    {"mnuViewExpenses", "E&xpenses", 28},
    {"mnuViewMyDetails", "My &Details", 33},
    {"mnuViewLMToday", "LM &Today", 34},
    {"mnuViewShortcutBar", "Shortcut &Bar", 18},
    // Tools
    {"mnuConfigure", "&Options...", -1, "frmConfigure"},
    {"mnuShortcutKeys", "&Shortcut Keys...", -1, "frmShortcutKeys"},
    {"mnuRateComparison", "&Rate Comparison...", -1, "frmRateCompare"},
    {"mnuPaymentReminders", "&Payment Reminders...", -1, "frmPaymentReminders", "new"},
    {"mnuCalculator", "&Calculator..."},
    // Help
    {"mnuUserGuide", "&User Guide", 42},
    {"mnuGettingStarted", "&Getting Started", -1, "frmGettingStarted"},
    {"mnuLedgerMinderWebsite", "LedgerMinder &Website"},
    {"mnuHelpAbout", "&About LedgerMinder", -1, "frmAbout"},
    // Shown on no menu of the bar: keys, page handlers and the context menus' own
    {"mnuDeleteItem", "&Delete Item", 14},
    {"mnuEditItem", "&Edit Item", 15},
    {"mnuNextPeriod", "&Next Week, Month or Year", 11},
    {"mnuLastPeriod", "&Last Week, Month or Year", 12},
    {"cmdSessionPage", "Sessions"},
    {"cmdEventPage", "Events"},
    {"cmdInvoicePage", "Invoices"},
    {"cmdPracticePage", "Practices"},
    {"cmdPensionPage", "Pension"},
    {"mnuPopAddSession", "Add &Session"},
    {"mnuPopEditSession", "&Edit Session"},
    {"mnuPopDeleteSession", "&Delete Session"},
    {"mnuPopCal_CopySession", "&Copy Session"},
    {"mnuPopAddEvent", "Add E&vent"},
    {"mnuPopEditEvent", "&Edit Event"},
    {"mnuPopDeleteEvent", "&Delete Event"},
    {"mnuPopCal_AddToInvoice", "Add To &Invoice"},
    {"mnuPopCal_RemoveFromInvoice", "&Remove From Invoice"},
    {"mnuPopCal_ConfigureCalendarView", "Configure Calendar &View"},
    {"mnuPopInv_DeleteInvoice", "&Delete Invoice"},
    {"mnuPopInv_MarkSent", "Mark As &Sent..."},
    {"mnuPopInv_MarkPaid", "Mark As &Paid..."},
    {"mnuPopCopyRows", "&Copy Rows"},
    {"mnuPopOpenDocument", "Open Document", 16},
    {"mnuPopRecreateAndOpenDocument", "Recreate then Open", 17},
};

enum MenuFlag { kPlain = 0, kCheckable = 1, kHeader = 2, kHidden = 4 };

constexpr int kSecondRedo = 39;  // the action with the other usual key of a command that has one

constexpr std::string_view kSeparator = "-";

struct MenuLine {
  int depth;
  std::string_view name;
  std::string_view caption = "";  // of a submenu; a command brings its own
  int flags = kPlain;
};

// A letter that a shortcut has with Alt opens no menu, so none is underlined that has one.
constexpr MenuLine kMenuBar[] = {
    {0, "mnuFile", "&File"},
    {1, "mnuFileNew", "&New"},
    {2, "mnuNewItem", "", kHeader},
    {2, kSeparator},
    {2, "mnuNewSession"},
    {2, "mnuMultiSession"},
    {2, "mnuEvent"},
    {2, "mnuNewInvoices"},
    {2, "mnuNewPensionForms"},
    {2, "mnuNewExpense"},
    {2, "mnuNewPractice"},
    {2, "mnuBookingConfirmation"},
    {1, kSeparator},
    {1, "mnuReloadData"},
    {1, "mnuSave"},
    {1, "mnuBackup", "Bac&kup"},
    {2, "mnuSaveBackup"},
    {2, "mnuLoadBackup"},
    {1, kSeparator},
    {1, "mnuSynchronise", "S&ynchronise"},
    {2, "mnuSyncWithOutlook"},
    {2, "mnuImportFromGPNet"},
    {2, "mnuImportFromNetworkLocum"},
    {2, "mnuExportCalendar"},
    {2, "mnuImportCalendar"},
    {1, "mnuExport", "&Export"},
    {2, "mnuExportFile"},
    {2, "mnuExportGrid"},
    {1, kSeparator},
    {1, "mnuPrint"},
    {1, kSeparator},
    {1, "mnuExitWithoutSaving"},
    {1, "mnuExit"},
    {0, "mnuEdit", "Edit"},
    {1, "mnuUndo"},
    {1, "mnuRedo"},
    {1, kSeparator},
    {1, "mnuFind"},
    {1, "mnuFilterList"},
    {0, "mnuView", "&View"},
    {1, "mnuViewCalendar"},
    {1, "mnuViewWeek"},
    {1, "mnuViewTimeTable"},
    {1, "mnuViewMonth"},
    {1, "mnuViewPlanner"},
    {1, "mnuViewYear"},
    {1, kSeparator},
    {1, "mnuGoToToday"},
    {1, "mnuViewWeekends", "", kCheckable},
    {1, kSeparator},
    {1, "mnuViewSessions"},
    {1, "mnuVewEvents"},
    {1, "mnuViewInvoices"},
    {1, "mnuViewReports"},
    {1, "mnuViewPractices"},
    {1, "mnuViewPension"},
    {1, "mnuViewExpenses"},
    {1, "mnuViewMyDetails"},
    {1, "mnuViewLMToday"},
    {1, kSeparator},
    {1, "mnuViewShortcutBar", "", kCheckable},
    {0, "mnuTools", "T&ools"},
    {1, "mnuConfigure"},
    {1, "mnuShortcutKeys"},
    {1, kSeparator},
    {1, "mnuRateComparison"},
    {1, "mnuPaymentReminders"},
    {1, "mnuCalculator"},
    {0, "mnuHelp", "&Help"},
    {1, "mnuUserGuide"},
    {1, "mnuGettingStarted"},
    {1, "mnuLedgerMinderWebsite"},
    {1, kSeparator},
    {1, "mnuHelpAbout"},
    {0, "mnuHideMe_AlwaysHideLastToPreventErrors", "", kHidden},
};

constexpr MenuLine kContextMenus[] = {
    {0, "mnuPopCalendar", "", kHidden},
    {1, "mnuPopEditSession"},
    {1, "mnuPopDeleteSession"},
    {1, "mnuPopCal_CopySession"},
    {1, "mnuPopCal_AddToInvoice"},
    {1, "mnuPopCal_RemoveFromInvoice"},
    {1, "mnuPopEditEvent"},
    {1, "mnuPopDeleteEvent"},
    {1, kSeparator},
    {1, "mnuPopAddSession"},
    {1, "mnuPopAddEvent"},
    {1, kSeparator},
    {1, "mnuPopCal_ConfigureCalendarView"},
    {0, "mnuPopInvoices", "", kHidden},
    {1, "cmdEditInvoice"},
    {1, "mnuPopOpenDocument"},
    {1, "mnuPopRecreateAndOpenDocument"},
    {1, kSeparator},
    {1, "mnuPopInv_DeleteInvoice"},
    {0, "mnuPopEvents", "", kHidden},
    {1, "mnuPopAddEvent"},
    {1, "mnuPopEditEvent"},
    {1, "mnuPopDeleteEvent"},
    {0, "mnuPopPractices", "", kHidden},
    {1, "cmdAddPractice"},
    {1, "cmdEditPractice"},
    {1, "cmdDeletePractice"},
    {0, "mnuPopPension", "", kHidden},
    {1, "cmdAddPensionForm"},
    {1, "cmdEditPensionForm"},
    {1, "mnuPopOpenDocument"},
    {1, "mnuPopRecreateAndOpenDocument"},
    {1, kSeparator},
    {1, "cmdDeletePensionForm"},
    // Behind the list's own while several rows are selected.
    {0, "mnuPopSeveral", "", kHidden},
    {1, "mnuPopInv_MarkSent"},
    {1, "mnuPopInv_MarkPaid"},
    {1, "mnuPopCopyRows"},
    {0, "mnuPopDocument", "", kHidden},
    {1, "mnuPopOpenDocument"},
    {1, "mnuPopRecreateAndOpenDocument"},
};

MenuNode BuildNode(const Screen& screen, const MenuLine& line) {
  MenuNode node;
  node.checkable = (line.flags & kCheckable) != 0;
  node.header = (line.flags & kHeader) != 0;
  node.hidden = (line.flags & kHidden) != 0;
  if (line.name == kSeparator) return node;
  node.name = line.name;
  node.command = dynamic_cast<Button*>(screen.FindField(line.name));
  node.caption = node.command ? node.command->Text() : std::string(line.caption);
  if (const CommandSpec* command = FindCommand(line.name)) node.shortcut = command->shortcut;
  return node;
}

// The nodes from `at` on that stand at this depth, each with the deeper ones behind it.
std::vector<MenuNode> BuildLevel(const Screen& screen, std::span<const MenuLine> lines,
                                 std::size_t& at, int depth) {
  std::vector<MenuNode> nodes;
  while (at < lines.size() && lines[at].depth == depth) {
    nodes.push_back(BuildNode(screen, lines[at++]));
    nodes.back().children = BuildLevel(screen, lines, at, depth + 1);
  }
  return nodes;
}

std::vector<MenuNode> BuildTree(const Screen& screen, std::span<const MenuLine> lines) {
  std::size_t at = 0;
  return BuildLevel(screen, lines, at, 0);
}

template <typename Predicate>
const CommandSpec* FindCommandIf(Predicate matches) {
  const auto command = std::find_if(std::begin(kCommands), std::end(kCommands), matches);
  return command == std::end(kCommands) ? nullptr : command;
}

}  // namespace

std::span<const CommandSpec> Commands() { return kCommands; }

const CommandSpec* FindCommand(std::string_view name) {
  return FindCommandIf([name](const CommandSpec& command) { return command.name == name; });
}

const CommandSpec* CommandOfShortcut(int action) {
  if (action == kSecondRedo) return FindCommand("mnuRedo");
  if (action < 0) return nullptr;
  return FindCommandIf([action](const CommandSpec& command) { return command.shortcut == action; });
}

std::vector<MenuNode> BuildMenuBar(const Screen& screen) { return BuildTree(screen, kMenuBar); }

std::vector<MenuNode> BuildContextMenus(const Screen& screen) {
  return BuildTree(screen, kContextMenus);
}

}  // namespace lm
