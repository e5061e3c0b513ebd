#include "core/shortcuts.h"

#include <algorithm>
#include <array>
#include <vector>

#include "core/datafile.h"
#include "core/numbers.h"
#include "core/tables.h"
#include "core/text.h"

namespace lm {
namespace {

constexpr std::string_view kFile = "File";
constexpr std::string_view kCalendar = "Calendar";
constexpr std::string_view kGeneric = "Generic (applies to current calendar/grid)";
constexpr std::string_view kDocuments = "Documents (invoices/pension forms)";
constexpr std::string_view kActionsGroup = "Actions";
constexpr std::string_view kOther = "Other";
constexpr std::string_view kEdit = "Edit";

constexpr ShortcutAction kActions[] = {
    {kFile, 0, "Save Backup", kNoKey, 0},
    {kFile, 1, "Print", 80, kCtrlBit},
    {kFile, 2, "Save", 83, kCtrlBit},
    {kFile, 3, "Exit", 81, kCtrlBit},
    {kFile, 4, "Exit without saving", kNoKey, 0},
    {kCalendar, 5, "Show Week Calendar", 87, kAltBit},
    {kCalendar, 36, "Show Detail Calendar", kNoKey, 0},
    {kCalendar, 6, "Show Month Calendar", 77, kAltBit},
    {kCalendar, 7, "Show Planner Calendar", 76, kAltBit},
    {kCalendar, 8, "Show Year Calendar", 89, kAltBit},
    {kCalendar, 9, "Show/Hide Weekends", kNoKey, 0},
    {kCalendar, 10, "Go To Today", 36, kAltBit},
    {kCalendar, 11, "Show next week/month/year", 39, kAltBit},
    {kCalendar, 12, "Show last week/month/year", 37, kAltBit},
    {kGeneric, 13, "Add new item", 78, kCtrlBit},
    {kGeneric, 15, "Edit current item", 32, kCtrlBit},
    {kGeneric, 14, "Delete current item", 46, kCtrlBit},
    {kDocuments, 16, "Open document", 79, kCtrlBit},
    {kDocuments, 17, "Recreate and open document", 79, kShiftBit | kCtrlBit},
    {kActionsGroup, 19, "Show sessions", 83, kAltBit},
    {kActionsGroup, 20, "Add new session", kNoKey, 0},
    {kActionsGroup, 21, "Add multiple sessions", 77, kCtrlBit},
    {kActionsGroup, 22, "Show events", 69, kAltBit},
    {kActionsGroup, 23, "Add new event", kNoKey, 0},
    {kActionsGroup, 24, "Show invoices", 73, kAltBit},
    {kActionsGroup, 25, "Prepare new invoices", kNoKey, 0},
    {kActionsGroup, 26, "Show pensions", 80, kAltBit},
    {kActionsGroup, 27, "Prepare new pension forms", kNoKey, 0},
    {kActionsGroup, 28, "Show expenses", 88, kAltBit},
    {kActionsGroup, 29, "Add new expense", kNoKey, 0},
    {kActionsGroup, 30, "Show practices", kNoKey, 0},
    {kActionsGroup, 31, "Add new practice", kNoKey, 0},
    {kActionsGroup, 32, "Show reports", 82, kAltBit},
    {kActionsGroup, 33, "Show my details", 68, kAltBit},
    {kActionsGroup, 34, "Show LM Today", 84, kAltBit},
    {kActionsGroup, 35, "Booking confirmation", kNoKey, 0},
    {kOther, 18, "Show/Hide Shortcut Bar", 117, 0},
    {kEdit, 37, "Undo", 90, kCtrlBit},
    {kEdit, 38, "Redo", 89, kCtrlBit},
    {kEdit, 39, "Redo (second key)", 90, kShiftBit | kCtrlBit},
    {kEdit, 40, "Find", 70, kCtrlBit},
    {kEdit, 41, "Filter list", 70, kShiftBit | kCtrlBit},
    {kOther, 42, "Show user guide", 112, 0},
};

constexpr KeyName kKeyNames[] = {
    {"", kNoKey},     {"A", 65},       {"B", 66},         {"C", 67},           {"D", 68},
    {"E", 69},        {"F", 70},       {"G", 71},         {"H", 72},           {"I", 73},
    {"J", 74},        {"K", 75},       {"L", 76},         {"M", 77},           {"N", 78},
    {"O", 79},        {"P", 80},       {"Q", 81},         {"R", 82},           {"S", 83},
    {"T", 84},        {"U", 85},       {"V", 86},         {"W", 87},           {"X", 88},
    {"Y", 89},        {"Z", 90},       {"F1", 112},       {"F2", 113},         {"F3", 114},
    {"F4", 115},      {"F5", 116},     {"F6", 117},       {"F7", 118},         {"F8", 119},
    {"F9", 120},      {"F10", 121},    {"F11", 122},      {"F12", 123},        {"{UP}", 38},
    {"{DOWN}", 40},   {"{LEFT}", 37},  {"{RIGHT}", 39},   {"{INSERT}", 45},    {"{DELETE}", 46},
    {"{HOME}", 36},   {"{END}", 35},   {"{PAGE UP}", 33}, {"{PAGE DOWN}", 34}, {"{BACKSPACE}", 8},
    {"{ESCAPE}", 27}, {"{ENTER}", 13}, {"{SPACE}", 32},   {"{TAB}", 9},
};

// Stored by identifier, except that 36, which came late, stands beside the other calendars: of two
// actions with one key the earlier row wins.
int StoredPosition(const ShortcutAction& action) {
  return action.identifier == 36 ? 11 : 2 * action.identifier;
}

void AddAction(Grid& grid, const ShortcutAction& action) {
  const int row = grid.AddItem("");
  grid.SetTextMatrix(row, "IDENTIFIER", PlainText(action.identifier));
  grid.SetTextMatrix(row, "KEY", PlainText(action.key));
  grid.SetTextMatrix(row, "KEYSHIFT", PlainText(action.keyShift));
}

}  // namespace

std::span<const ShortcutAction> ShortcutActions() { return kActions; }

std::span<const KeyName> KeyNames() { return kKeyNames; }

int KeyCode(std::string_view name) {
  const auto* key = std::ranges::find(kKeyNames, name, &KeyName::name);
  return key == std::end(kKeyNames) ? kNoKey : key->code;
}

void SetDefaultShortcuts(Ledger& ledger) {
  std::vector<ShortcutAction> actions(std::begin(kActions), std::end(kActions));
  std::ranges::sort(actions, {}, StoredPosition);

  Grid& grid = ledger.fgShortcuts;
  RedrawOff redrawOff(grid);
  MakeBlank(grid, kShortcutsTable);
  for (const ShortcutAction& action : actions) AddAction(grid, action);
}

void AddMissingShortcuts(Ledger& ledger) {
  for (const ShortcutAction& action : kActions)
    if (ledger.fgShortcuts.FindRow(PlainText(action.identifier), "IDENTIFIER") < 0)
      AddAction(ledger.fgShortcuts, action);
}

std::string ShortcutText(int key, int keyShift) {
  const auto* name = std::ranges::find(kKeyNames, key, &KeyName::code);
  if (name == std::end(kKeyNames) || name->code == kNoKey) return "";
  std::string text;
  if (keyShift & kShiftBit) text += "Shift+";
  if (keyShift & kCtrlBit) text += "Ctrl+";
  if (keyShift & kAltBit) text += "Alt+";
  return text.append(name->name);
}

std::string ShortcutText(const Ledger& ledger, int identifier) {
  const Grid& grid = ledger.fgShortcuts;
  const int row = grid.FindRow(PlainText(identifier), "IDENTIFIER");
  return ShortcutText(ValInt(grid.TextMatrix(row, "KEY")),
                      ValInt(grid.TextMatrix(row, "KEYSHIFT")));
}

int FindShortcut(const Ledger& ledger, int keyCode, int shift) {
  if (keyCode <= 0) return -1;
  const Grid& grid = ledger.fgShortcuts;
  for (int row = grid.FixedRows(); row < grid.Rows(); ++row)
    if (ValInt(grid.TextMatrix(row, "KEY")) == keyCode &&
        ValInt(grid.TextMatrix(row, "KEYSHIFT")) == shift)
      return ValInt(grid.TextMatrix(row, "IDENTIFIER"));
  return -1;
}

bool SaveShortcuts(Ledger& ledger) {
  return SaveGridFile(ledger, ledger.File("ShortcutKeys.dat"), ledger.fgShortcuts);
}

}  // namespace lm
