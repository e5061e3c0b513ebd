// A window without a toolkit: its fields, lists, buttons, their states, checks and what Ok does. A
// view whose widgets carry the same names shows it; a person, a test and the command line drive it
// in the same way: type into a field and leave it, choose, tick, press, edit a cell.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/grid.h"
#include "core/ledger.h"

namespace lm {

class Screen;
class Field;

// The view of a screen. All calls come after the change.
class ScreenObserver {
 public:
  virtual ~ScreenObserver() = default;
  virtual void FieldChanged(Field& field) = 0;  // text, items, enabled, visible, caption, marks
  virtual void CaptionChanged() = 0;
  virtual void FocusRequested(Field& field) = 0;
  virtual void CellEditRequested(Grid& grid, int row, int col) = 0;  // opens the cell for typing
  virtual void ScreenClosed() = 0;
};

enum class FieldKind { Text, Combo, Check, Label, Button, Tabs };

// Which popup picker stands beside a field or cell.
enum class Picker { None, Calendar, Clock, Numbers };

struct ComboItem {
  std::string text;
  std::string data;  // the id that stands behind the text
};

class Field {
 public:
  Field(Screen* screen, std::string name, FieldKind kind);
  virtual ~Field() = default;
  Field(const Field&) = delete;
  Field& operator=(const Field&) = delete;

  const std::string& Name() const { return name_; }
  FieldKind Kind() const { return kind_; }
  Screen& Owner() const { return *screen_; }

  // What the field holds: a text box's or label's text, a combo's or tab strip's shown item,
  // "TRUE" or "FALSE" of a box, a button's caption. Set by the program; no check or event runs.
  const std::string& Text() const { return text_; }
  virtual void SetText(std::string_view text);
  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled);
  bool Visible() const { return visible_; }
  void SetVisible(bool visible);
  const std::string& ToolTip() const { return toolTip_; }
  void SetToolTip(std::string_view text);

  // What happens after the user changed it: a text box was left with another text (false refuses:
  // the focus stays and the typed text stands), a combo or tab chosen, a box ticked.
  std::function<bool()> onEntered;
  // A button, menu entry, icon or link label pressed.
  std::function<void()> onPressed;

 protected:
  void Changed();
  std::string text_;

 private:
  Screen* screen_;
  std::string name_;
  FieldKind kind_;
  bool enabled_ = true;
  bool visible_ = true;
  std::string toolTip_;
};

class TextField : public Field {
 public:
  TextField(Screen* screen, std::string name) : Field(screen, std::move(name), FieldKind::Text) {}
  bool multiLine = false;
  bool password = false;
};

class LabelField : public Field {  // with onPressed set it is a link or an icon
 public:
  LabelField(Screen* screen, std::string name) : Field(screen, std::move(name), FieldKind::Label) {}
};

class CheckField : public Field {
 public:
  CheckField(Screen* screen, std::string name) : Field(screen, std::move(name), FieldKind::Check) {
    text_ = "FALSE";
  }
  bool Checked() const { return text_ == "TRUE"; }
  void SetChecked(bool checked) { SetText(checked ? "TRUE" : "FALSE"); }
};

class Button : public Field {
 public:
  Button(Screen* screen, std::string name) : Field(screen, std::move(name), FieldKind::Button) {}
};

class ComboField : public Field {
 public:
  ComboField(Screen* screen, std::string name) : Field(screen, std::move(name), FieldKind::Combo) {}
  const std::vector<ComboItem>& Items() const { return items_; }
  void SetItems(std::vector<ComboItem> items);  // keeps the selected data where it is still there
  int ListIndex() const { return listIndex_; }  // -1 for none
  void SetListIndex(int index);
  void SetText(std::string_view text) override;  // selects the item with this text, or none
  std::string ItemData() const;                  // "" when none is selected
  bool SelectData(std::string_view data);        // false, with none selected, when it is not there

 private:
  std::vector<ComboItem> items_;
  int listIndex_ = -1;
};

class TabField : public Field {
 public:
  TabField(Screen* screen, std::string name, std::vector<std::string> captions);
  int Count() const { return static_cast<int>(tabs_.size()); }
  int Selected() const { return selected_; }
  void SetSelected(int index);
  void SetText(std::string_view text) override;  // by caption
  const std::string& TabCaption(int index) const {
    return tabs_[static_cast<std::size_t>(index)].caption;
  }
  bool TabVisible(int index) const { return tabs_[static_cast<std::size_t>(index)].visible; }
  void SetTabVisible(int index, bool visible);
  bool TabEnabled(int index) const { return tabs_[static_cast<std::size_t>(index)].enabled; }
  void SetTabEnabled(int index, bool enabled);
  bool TabMarked(int index) const { return tabs_[static_cast<std::size_t>(index)].marked; }
  void SetTabMarked(int index, bool marked);
  void Step(int direction);  // +1 or -1, skipping tabs that are disabled or hidden

 private:
  struct Tab {
    std::string caption;
    bool visible = true;
    bool enabled = true;
    bool marked = false;
  };
  std::vector<Tab> tabs_;
  int selected_ = 0;
};

struct MenuEntry {
  std::string caption;  // "" is a separator
  std::function<void()> run;
  bool enabled = true;
};

// How a list may be edited in place, and what its rows do.
class GridRules {
 public:
  virtual ~GridRules() = default;
  // May this cell be opened for editing? May show a message.
  virtual bool MayEdit(int /*row*/, int /*col*/) { return false; }
  // The list to choose from, by default the column's own; "" for typing.
  virtual std::string EditList(const Grid& grid, int row, int col);
  virtual Picker PickerOf(int /*row*/, int /*col*/) { return Picker::None; }
  // The text to store for what was typed or chosen; empty refuses, after its message if it has one,
  // and the editor stays open.
  virtual std::optional<std::string> Accept(int row, int col, std::string_view text);
  virtual void Edited(int /*row*/, int /*col*/) {}
  virtual void Opened(int /*row*/) {}  // double click, or Enter on a row
  virtual void AddPressed() {}         // the list's own add
  virtual void DeletePressed(int /*row*/) {}
  virtual std::vector<MenuEntry> ContextMenu(int /*row*/) { return {}; }
};

enum class EditOutcome { Unchanged, Accepted, Refused, NotAllowed };

// One edit of a cell through the rules, for every driver. `text` is what was typed, or the shown
// text of the entry chosen; a text equal to what the cell holds or shows, or read as that, is no
// edit.
EditOutcome EditCell(Grid& grid, GridRules& rules, int row, int col, std::string_view text);
// The same for a cell that was opened for editing already, so that MayEdit is not asked again.
EditOutcome FinishEdit(Grid& grid, GridRules& rules, int row, int col, std::string_view text);
// The same with what a picker wrote: it is stored as it stands, for "06:30" from the clock is not
// half past six in the evening.
EditOutcome WritePicked(Grid& grid, GridRules& rules, int row, int col, std::string_view text);

class Screen {
 public:
  Screen(Ledger& ledger, std::string name, std::string_view caption = "");
  virtual ~Screen();
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;

  Ledger& ledger;

  const std::string& Name() const { return name_; }
  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string_view caption);

  const std::vector<Field*>& Fields() const { return fields_; }
  Field* FindField(std::string_view name) const;  // ignores case; null when there is none
  struct ListedGrid {
    Grid* grid;
    GridRules* rules;  // null: not editable
  };
  const std::vector<ListedGrid>& Grids() const { return grids_; }
  ListedGrid FindGrid(std::string_view name) const;  // {null, null} when there is none

  // The user's acts. Each does nothing on a field that is disabled or not visible.
  bool Enter(Field& field, std::string_view text);  // false: refused, or no such item
  // The default button checks again what was refused and still stands, and is not pressed then.
  void Press(Field& field);
  EditOutcome Edit(Grid& grid, int row, int col, std::string_view text);

  // A cell of one of its grids was clicked, where a click itself means something (a picker's day).
  virtual void CellClicked(Grid& /*grid*/, int /*row*/, int /*col*/) {}
  // A key that the screen takes for itself; false passes it on. `key` is a virtual key code as
  // in the shortcut table, `character` what it types (0 for none).
  virtual bool KeyPressed(int /*key*/, char /*character*/) { return false; }

  // Enter and Escape.
  Button* defaultButton = nullptr;
  Button* cancelButton = nullptr;
  // Asked when the window is closed by its frame; by default presses cancelButton, or closes.
  virtual void CloseRequested();

  void Close();
  bool Closed() const { return closed_; }
  void Reopen() { closed_ = false; }
  void Focus(Field& field);
  Field* Focused() const { return focused_; }
  void RequestCellEdit(Grid& grid, int row, int col);

  void SetObserver(ScreenObserver* observer) { observer_ = observer; }
  ScreenObserver* Observer() const { return observer_; }

 protected:
  void AddGrid(Grid& grid, GridRules* rules = nullptr);

 private:
  friend class Field;
  void Register(Field* field) { fields_.push_back(field); }
  bool Check(Field& field);
  bool RefusedTextStands();

  std::string name_;
  std::string caption_;
  std::vector<Field*> fields_;
  std::vector<ListedGrid> grids_;
  std::vector<std::pair<Field*, std::string>> refused_;  // fields and the texts refused there
  Field* focused_ = nullptr;
  ScreenObserver* observer_ = nullptr;
  bool closed_ = false;
};

// Shows a screen through the port and returns when it has closed; it stands in
// ledger.openScreens meanwhile.
void ShowModal(Screen& screen);
// The open screen of this name, the topmost first; null when it is not open.
Screen* OpenScreen(const Ledger& ledger, std::string_view name);

// The windows that can be opened by name: what follows the name are the operation's words, such
// as "new" "03/02/2026" or "open" "12". Each room adds its own.
using WindowOpener = std::function<bool(Ledger& ledger, const std::vector<std::string>& words)>;

class WindowCatalogue {
 public:
  void Add(std::string_view name, WindowOpener opener);
  bool Has(std::string_view name) const;
  // False when there is no such window or it would not open.
  bool Open(Ledger& ledger, std::string_view name, const std::vector<std::string>& words) const;

 private:
  std::vector<std::pair<std::string, WindowOpener>> openers_;
};

}  // namespace lm
