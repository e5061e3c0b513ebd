#include "shell/frmShortcutKeys.h"

#include <algorithm>

#include "core/messagebox.h"
#include "core/numbers.h"
#include "core/rows.h"
#include "core/shortcuts.h"
#include "core/tables.h"
#include "shell/frmMain.h"

namespace lm {
namespace {

constexpr ColumnSpec kColumns[] = {
    {.key = "ACTION", .caption = "Action", .width = 4200},
    {.key = "SHORTCUT", .caption = "Shortcut", .width = 2100},
    {.key = "NOTE", .caption = "Note", .width = 4300},
    {.key = "IDENTIFIER", .caption = "Identifier", .hidden = true},
    {.key = "KEY", .caption = "Key", .hidden = true},
    {.key = "KEYSHIFT", .caption = "Key Shift", .hidden = true},
};

constexpr TableSpec kTable{"fgKeys", kColumns};

constexpr std::string_view kStoredKeys[] = {"KEY", "KEYSHIFT"};

bool IsAction(const Grid& keys, int row) {
  return row >= keys.FixedRows() && !keys.TextMatrix(row, "IDENTIFIER").empty();
}

bool HasKey(const Grid& keys, int row) {
  return IsAction(keys, row) && !keys.TextMatrix(row, "SHORTCUT").empty();
}

bool SameKey(const Grid& keys, int row, int other) {
  return std::ranges::all_of(kStoredKeys, [&](std::string_view key) {
    return ValInt(keys.TextMatrix(row, key)) == ValInt(keys.TextMatrix(other, key));
  });
}

// Letters and the keys that move or edit are of use in boxes and lists, which they never reach
// when a command has them.
bool IsKeyOfItsOwn(int key) { return key < KeyCode("F1") && key != KeyCode("{ESCAPE}"); }

}  // namespace

frmShortcutKeys::frmShortcutKeys(frmMain& main)
    : Screen(main.ledger, "frmShortcutKeys", "Shortcut Keys"), main_(main) {
  for (const int row : Records(ledger.fgShortcuts))
    before_.push_back({ledger.fgShortcuts.TextMatrix(row, "IDENTIFIER"),
                       ledger.fgShortcuts.TextMatrix(row, "KEY"),
                       ledger.fgShortcuts.TextMatrix(row, "KEYSHIFT")});
  std::vector<ComboItem> items;
  for (const KeyName& key : KeyNames())
    items.push_back({std::string(key.name), PlainText(key.code)});
  cboKeys.SetItems(std::move(items));

  cmdResetShortcuts.SetText("&Reset...");
  cmdOK.SetText("&OK");
  cmdCancel.SetText("Cancel");
  for (Field* field : KeyFields())
    field->onEntered = [this, field] {
      if (field == &cboKeys && cboKeys.Text().empty())
        for (CheckField* box : {&chkSHIFT, &chkCTRL, &chkALT}) box->SetChecked(false);
      StoreRow();
      return true;
    };
  cmdResetShortcuts.onPressed = [this] { Reset(); };
  cmdOK.onPressed = [this] { Ok(); };
  cmdCancel.onPressed = [this] { Cancel(); };
  defaultButton = &cmdOK;
  cancelButton = &cmdCancel;
  holds = "these shortcut keys";

  MakeBlank(fgKeys, kTable);
  for (const ColumnSpec& column : kColumns)
    fgKeys.SetColHidden(fgKeys.ColIndex(column.key), column.hidden);
  fgKeys.SetColWidth(0, 0);
  AddGrid(fgKeys);
  FillKeys();
  fgKeys.AddObserver(*this);
  ShowRow();
}

frmShortcutKeys::~frmShortcutKeys() { fgKeys.RemoveObserver(*this); }

// The rows of the actions, each group under its heading.
void frmShortcutKeys::FillKeys() {
  const RedrawOff redrawOff(fgKeys);
  fgKeys.ClearData();
  const Grid& stored = ledger.fgShortcuts;
  std::string_view group;
  for (const ShortcutAction& action : ShortcutActions()) {
    if (action.group != group) {
      group = action.group;
      const int row = fgKeys.AddItem("");
      fgKeys.SetTextMatrix(row, "ACTION", group);
      fgKeys.SetCell(CellSetting::flexcpFontBold, row, fgKeys.ColIndex("ACTION"), "TRUE");
    }
    const int row = fgKeys.AddItem("");
    fgKeys.SetTextMatrix(row, "ACTION", action.action);
    fgKeys.SetTextMatrix(row, "IDENTIFIER", PlainText(action.identifier));
    const int from = FindRecord(stored, "IDENTIFIER", PlainText(action.identifier));
    for (const std::string_view key : kStoredKeys)
      fgKeys.SetTextMatrix(row, key, stored.TextMatrix(from, key));
    ShowTexts(row);
  }
  NoteOthers();
}

std::array<Field*, 4> frmShortcutKeys::KeyFields() {
  return {&cboKeys, &chkSHIFT, &chkCTRL, &chkALT};
}

bool frmShortcutKeys::OnAction() const { return IsAction(fgKeys, fgKeys.Row()); }

void frmShortcutKeys::ShowRow() {
  const bool onAction = OnAction();
  const int key = onAction ? ValInt(fgKeys.TextMatrix(fgKeys.Row(), "KEY")) : kNoKey;
  const int bits = onAction ? ValInt(fgKeys.TextMatrix(fgKeys.Row(), "KEYSHIFT")) : 0;
  if (!cboKeys.SelectData(PlainText(key))) cboKeys.SelectData(PlainText(kNoKey));
  chkSHIFT.SetChecked(bits & kShiftBit);
  chkCTRL.SetChecked(bits & kCtrlBit);
  chkALT.SetChecked(bits & kAltBit);
  for (Field* field : KeyFields()) field->SetEnabled(onAction);
}

void frmShortcutKeys::StoreRow() {
  if (!OnAction()) return;
  const int key = ValInt(cboKeys.ItemData());
  int bits = chkSHIFT.Checked() ? kShiftBit : 0;
  if (chkCTRL.Checked()) bits |= kCtrlBit;
  if (chkALT.Checked()) bits |= kAltBit;
  const int row = fgKeys.Row();
  fgKeys.SetTextMatrix(row, "KEY", PlainText(key));
  fgKeys.SetTextMatrix(row, "KEYSHIFT", PlainText(bits));
  ShowTexts(row);
  NoteOthers();
}

void frmShortcutKeys::ShowTexts(int row) {
  fgKeys.SetTextMatrix(row, "SHORTCUT",
                       ShortcutText(ValInt(fgKeys.TextMatrix(row, "KEY")),
                                    ValInt(fgKeys.TextMatrix(row, "KEYSHIFT"))));
}

// In the order in which a pressed key is looked up, which is not that of the window.
std::vector<int> frmShortcutKeys::RowsInForce() const {
  const auto rows = fgKeys.RowsBy("IDENTIFIER");
  std::vector<int> inForce;
  for (const int stored : Records(ledger.fgShortcuts))
    if (const auto row = rows.find(ledger.fgShortcuts.TextMatrix(stored, "IDENTIFIER"));
        row != rows.end() && HasKey(fgKeys, row->second))
      inForce.push_back(row->second);
  return inForce;
}

// Two actions may have one key, and the first has it then: said beside the rows of both.
void frmShortcutKeys::NoteOthers() {
  const std::vector<int> rows = RowsInForce();
  for (int row = fgKeys.FixedRows(); row < fgKeys.Rows(); ++row) {
    std::string note;
    if (HasKey(fgKeys, row)) {
      const auto same = [&](int other) { return SameKey(fgKeys, row, other); };
      const auto first = std::ranges::find_if(rows, same);
      const auto other =
          std::find_if(first, rows.end(), [&](int each) { return each != row && same(each); });
      if (first != rows.end() && *first != row)
        note = "Runs \"" + fgKeys.TextMatrix(*first, "ACTION") + "\" instead";
      else if (other != rows.end())
        note = "Also set for \"" + fgKeys.TextMatrix(*other, "ACTION") + "\"";
      else if ((ValInt(fgKeys.TextMatrix(row, "KEYSHIFT")) & (kCtrlBit | kAltBit)) == 0 &&
               IsKeyOfItsOwn(ValInt(fgKeys.TextMatrix(row, "KEY"))))
        note = "Without Ctrl or Alt it does nothing else in lists";
    }
    fgKeys.SetTextMatrix(row, "NOTE", note);
  }
}

void frmShortcutKeys::Reset() {
  if (!Ask(ledger, "Do you want to reset all the shortcut keys to their defaults?")) return;
  SetDefaultShortcuts(ledger);
  FillKeys();
  ShowRow();
}

void frmShortcutKeys::Ok() {
  AddMissingShortcuts(ledger);  // all of them where the file could not be read
  for (int row = fgKeys.FixedRows(); row < fgKeys.Rows(); ++row) {
    if (!IsAction(fgKeys, row)) continue;
    const int stored =
        FindRecord(ledger.fgShortcuts, "IDENTIFIER", fgKeys.TextMatrix(row, "IDENTIFIER"));
    for (const std::string_view key : kStoredKeys)
      ledger.fgShortcuts.SetTextMatrix(stored, key, fgKeys.TextMatrix(row, key));
  }
  main_.ApplyShortcutsToMenus();
  if (SaveShortcuts(ledger)) Close();
}

// A reset has gone through to the table by then.
void frmShortcutKeys::Cancel() {
  Grid& stored = ledger.fgShortcuts;
  stored.ClearData();
  for (const Stored& each : before_) {
    const int row = stored.AddItem("");
    stored.SetTextMatrix(row, "IDENTIFIER", each.identifier);
    stored.SetTextMatrix(row, "KEY", each.key);
    stored.SetTextMatrix(row, "KEYSHIFT", each.keyShift);
  }
  Close();
}

}  // namespace lm
