// The menu commands of the main window and the tree in which they stand, as data.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/screen.h"

namespace lm {

// One command. Its button in frmMain carries `name`; its text is the caption, with "&" before the
// Alt letter.
struct CommandSpec {
  std::string_view name;
  std::string_view caption;
  int shortcut = -1;             // the action number in fgShortcuts, -1 for none
  std::string_view window = "";  // the window that it opens
  std::string_view words = "";   // the window's operation: "new"
};

// What a command does, and how it stands in its menu at present. Functions that are not set: it is
// enabled, is not switched on, and has its own caption.
struct CommandHandler {
  std::function<void()> run;
  std::function<bool()> enabled = nullptr;
  std::function<bool()> checked = nullptr;
  std::function<std::string()> caption = nullptr;
  const Field* presses = nullptr;  // the button that it presses, where that is all
};

std::span<const CommandSpec> Commands();
// Null when there is none.
const CommandSpec* FindCommand(std::string_view name);
const CommandSpec* CommandOfShortcut(int action);

// One entry of a menu. A node with children is a submenu (or a menu of the bar); one with neither
// command nor children is a separator when its caption is empty, else a title.
struct MenuNode {
  std::string name;           // "mnuFile", "mnuSave"; "" for a separator
  std::string caption;        // with "&" before the Alt letter
  Button* command = nullptr;  // null: separator, title or submenu
  int shortcut = -1;          // the action number, for frmMain::ShortcutTextOf; -1 for none
  bool checkable = false;     // shows whether it is switched on: frmMain::IsChecked
  bool header = false;        // stands out (bold) as the head of its list
  bool hidden = false;        // never shown in the bar
  std::vector<MenuNode> children;
};

// The menus of the bar: File, View, Tools, Help and the hidden last one. Commands are looked up
// among the screen's fields.
std::vector<MenuNode> BuildMenuBar(const Screen& screen);
// The right-button menus: mnuPopCalendar, mnuPopInvoices, mnuPopEvents, mnuPopPractices,
// mnuPopPension, and mnuPopDocument, which drops below a button.
std::vector<MenuNode> BuildContextMenus(const Screen& screen);

}  // namespace lm
