// The keyboard shortcuts: the actions, their default keys, the names of the keys, and the table
// "ShortcutKeys.dat" that holds what the user made of them.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "core/ledger.h"

namespace lm {

constexpr int kNoKey = -1;
constexpr int kShiftBit = 1;
constexpr int kCtrlBit = 2;
constexpr int kAltBit = 4;

struct ShortcutAction {
  std::string_view group;
  int identifier;  // fixed: it stands in the stored file
  std::string_view action;
  int key;       // virtual key code by default, kNoKey for none
  int keyShift;  // the bits above
};

// All actions in the order of the window that edits them.
std::span<const ShortcutAction> ShortcutActions();

struct KeyName {
  std::string_view name;
  int code;
};

// The keys that a shortcut can have, the nameless kNoKey first.
std::span<const KeyName> KeyNames();
// The code of a key's name; kNoKey when there is none of this name.
int KeyCode(std::string_view name);

// Rebuilds fgShortcuts with the default keys.
void SetDefaultShortcuts(Ledger& ledger);
// Adds the actions that a stored table of an earlier version lacks, behind the rest: a key that the
// user gave to another action stays that one's.
void AddMissingShortcuts(Ledger& ledger);

// "Shift+Ctrl+O"; "" for kNoKey, an empty or unknown key.
std::string ShortcutText(int key, int keyShift);
std::string ShortcutText(const Ledger& ledger, int identifier);

// The action of a key press: of the first row with this key and these bits; -1 when there is none.
int FindShortcut(const Ledger& ledger, int keyCode, int shift);

// Saves "ShortcutKeys.dat" at once; false after its message.
bool SaveShortcuts(Ledger& ledger);

}  // namespace lm
