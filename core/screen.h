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
  void TextChanged();  // also forgets that a text was refused here
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
  void SetText(std::string_view text) override;  // line breaks become CR LF
  bool multiLine = false;
  bool password = false;
  // Each key stroke, while the field still holds what it held before.
  std::function<void(std::string_view typed)> onTyping;
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

// A field that shows one of several entries. The user points at an entry; two may bear one text.
class ChoiceField : public Field {
 public:
  using Field::Field;
  virtual int Count() const = 0;
  virtual const std::string& EntryText(int index) const = 0;
  virtual std::string_view EntryId(int index) const = 0;  // "" where entries have none
  virtual bool MayChoose(int /*index*/) const { return true; }
  int Selected() const { return selected_; }  // -1 for none
  virtual void SetSelected(int index) = 0;
  // Selects the entry with this text: the selected one where it bears it, else the first.
  void SetText(std::string_view text) override;

 protected:
  int selected_ = -1;
};

class ComboField : public ChoiceField {
 public:
  ComboField(Screen* screen, std::string name)
      : ChoiceField(screen, std::move(name), FieldKind::Combo) {}
  const std::vector<ComboItem>& Items() const { return items_; }
  void SetItems(std::vector<ComboItem> items);  // keeps the selected data where it is still there
  int Count() const override { return static_cast<int>(items_.size()); }
  const std::string& EntryText(int index) const override { return At(index).text; }
  std::string_view EntryId(int index) const override { return At(index).data; }
  void SetSelected(int index) override;    // none for what is no entry
  std::string ItemData() const;            // "" when none is selected
  bool SelectData(std::string_view data);  // false, with none selected, when it is not there

 private:
  const ComboItem& At(int index) const { return items_[static_cast<std::size_t>(index)]; }
  std::vector<ComboItem> items_;
};

class TabField : public ChoiceField {
 public:
  TabField(Screen* screen, std::string name, std::vector<std::string> captions);
  int Count() const override { return static_cast<int>(tabs_.size()); }
  const std::string& EntryText(int index) const override { return TabCaption(index); }
  std::string_view EntryId(int /*index*/) const override { return {}; }
  bool MayChoose(int index) const override { return TabVisible(index) && TabEnabled(index); }
  void SetSelected(int index) override;  // nothing for what is no tab
  const std::string& TabCaption(int index) const { return At(index).caption; }
  bool TabVisible(int index) const { return At(index).visible; }
  void SetTabVisible(int index, bool visible);
  bool TabEnabled(int index) const { return At(index).enabled; }
  void SetTabEnabled(int index, bool enabled);
  bool TabMarked(int index) const { return At(index).marked; }
  void SetTabMarked(int index, bool marked);

 private:
  struct Tab {
    std::string caption;
    bool visible = true;
    bool enabled = true;
    bool marked = false;
  };
  const Tab& At(int index) const { return tabs_[static_cast<std::size_t>(index)]; }
  std::vector<Tab> tabs_;
};

// The entry that a word names, for those who cannot point at one: the selected entry where it
// bears this text, else the first that does, else "#" and an id. -1 when there is none that the
// user may choose.
int EntryNamed(const ChoiceField& field, std::string_view word);

// A line of a right-button menu.
struct MenuEntry {
  Field* command;  // what it presses, under whose name and caption it stands; null: a separator
  bool visible = true;
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
  // Why this row is locked, "" when it is not.
  virtual std::string LockedBy(int /*row*/) { return {}; }
  virtual void LockPressed(int /*row*/) {}  // shows the record that locks it
  // A cell to type into among others that are not: it wears a pencil, or a padlock while its row is
  // locked.
  virtual bool InvitesTyping(int /*row*/, int /*col*/) { return false; }
  virtual void Opened(int /*row*/) {}  // double click, or Enter on a row
  virtual void AddPressed() {}         // the list's own add
  virtual void DeletePressed(int /*row*/) {}
  // Of a grid whose cells are places, such as a calendar: a record dragged from cell to cell, and
  // the pointer that rests on a cell, or has left (-1).
  virtual bool MayDrag(int /*row*/, int /*col*/) { return false; }
  virtual void Dropped(int /*row*/, int /*col*/, int /*toRow*/, int /*toCol*/) {}
  virtual void Hovered(int /*row*/, int /*col*/) {}
};

enum class EditOutcome { Unchanged, Accepted, Refused, NotAllowed };

// What the user put into a cell.
struct CellInput {
  enum class How {
    Typed,   // the rules read it; what the cell holds or shows is no edit
    Chosen,  // the id of an entry of the cell's list, "" for a blank one
    Picked,  // by a picker: stored as it stands, for "06:30" from the clock is not half past six in
             // the evening
  };
  How how;
  std::string text;
};

// May the cell be opened for editing? Asked once, before anything is typed.
bool OpenCell(const Grid& grid, GridRules& rules, int row, int col);
// Stores what was put into a cell that was opened.
EditOutcome FinishEdit(Grid& grid, GridRules& rules, int row, int col, const CellInput& input);
// Both, for a cell told by a word: what is typed there, or in a cell with a list the text of an
// entry, or "#" and its id. The text that the cell shows already names the entry that it holds.
EditOutcome EditCell(Grid& grid, GridRules& rules, int row, int col, std::string_view word);

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
  GridRules* RulesOf(const Grid& grid) const;        // null: not editable, or not one of its grids

  // The user's acts, for every driver: the desktop, the command line, tests. Each does nothing on a
  // field that is disabled or not visible. What changes nothing runs no check; false: refused, or
  // there is nothing of the kind to take.

  // Types into a text box and leaves it. What can only be written down says by a word what the
  // user points at: an entry, see EntryNamed, or TRUE and FALSE of a box to tick.
  bool Enter(Field& field, std::string_view text);
  bool Choose(ChoiceField& field, int index);
  // On to the next tab, +1, or the one before, -1, over those that are closed.
  bool Step(TabField& tabs, int direction);
  bool Tick(CheckField& box, bool ticked);
  // The default button checks again what was refused and still stands, and is not pressed then.
  void Press(Field& field);
  // A cell of a grid; see the functions of the same names above.
  bool OpenCell(const Grid& grid, int row, int col);
  EditOutcome FinishEdit(Grid& grid, int row, int col, const CellInput& input);
  EditOutcome Edit(Grid& grid, int row, int col, std::string_view word);
  void Click(Grid& grid, int row, int col);
  // Opens the row, or of a calendar what stands in the cell.
  void DoubleClick(Grid& grid, int row, int col);
  // Drops what may be dragged; nothing on its own cell.
  void Drag(Grid& grid, int row, int col, int toRow, int toCol);
  void Hover(Grid& grid, int row, int col);  // -1: the pointer has left

  // The option by which the grid looks: fonts, colours and lines are those of all lists.
  virtual std::string LookOption(const Grid& grid, int option) const;

  // The right-button menu of the cell where the grid's cursor stands; empty when there is none.
  virtual std::vector<MenuEntry> ContextMenu(const Grid& /*grid*/) { return {}; }
  // A key that the screen takes for itself; false passes it on. `key` is a virtual key code as
  // in the shortcut table, `character` what it types (0 for none).
  virtual bool KeyPressed(int /*key*/, char /*character*/) { return false; }

  // Enter and Escape.
  Button* defaultButton = nullptr;
  Button* cancelButton = nullptr;
  // Enter presses another button from here on.
  void SetDefaultButton(Button& button);
  // What is lost when the window is cancelled after something was changed in it: "this session".
  // The desktop asks before that; "" asks nothing.
  std::string_view holds = "";
  // From here on what its boxes, lists to choose from and grids hold counts as saved.
  void NoteContent() { noted_ = Content(); }
  bool ContentChanged() const { return Content() != noted_; }
  // Asked when the window is closed by its frame; by default presses cancelButton, or closes.
  virtual void CloseRequested();

  void Close();
  bool Closed() const { return closed_; }
  void Reopen() { closed_ = false; }
  void Focus(Field& field);
  Field* Focused() const { return focused_; }
  void RequestCellEdit(Grid& grid, int row, int col);

  // The id of the record that it shows, where several windows of its name may be open at once.
  const std::string& Record() const { return record_; }
  void SetRecord(std::string_view id) { record_ = id; }

  void SetObserver(ScreenObserver* observer) { observer_ = observer; }
  ScreenObserver* Observer() const { return observer_; }

 protected:
  void AddGrid(Grid& grid, GridRules* rules = nullptr);
  // A cell of one of its grids was clicked, where a click itself means something (a picker's day).
  virtual void CellClicked(Grid& /*grid*/, int /*row*/, int /*col*/) {}

 private:
  friend class Field;
  void Register(Field* field) { fields_.push_back(field); }
  bool Type(TextField& box, std::string_view text);
  bool Refused(const Field& field) const;
  void ForgetRefusal(const Field& field);
  bool Check(Field& field);
  bool RefusedTextStands();
  std::string Content() const;

  std::string name_;
  std::string caption_;
  std::string record_;
  std::vector<Field*> fields_;
  std::vector<ListedGrid> grids_;
  std::string noted_;
  std::vector<Field*> refused_;  // what stands in them was refused
  Field* focused_ = nullptr;
  ScreenObserver* observer_ = nullptr;
  bool closed_ = false;
};

// Shows a screen through the port and returns when it has closed; it stands in
// ledger.openScreens meanwhile.
void ShowModal(Screen& screen);
// Fills and shows the window of a record; "" for a window that is open only once, whatever it
// shows. False when `fill` would not, or when the record stands in a window already: two working
// copies would overwrite each other. Then the message `openAlready` tells.
bool ShowRecord(Screen& window, std::string_view record, std::string_view openAlready,
                const std::function<bool()>& fill);
// The open screen of this name, the topmost first; null when it is not open.
Screen* OpenScreen(const Ledger& ledger, std::string_view name);

// The windows that can be opened by name: what follows the name are the operation's words, such
// as "new" "03/02/2026" or "open" "12". Each room adds its own.
using WindowOpener = std::function<bool(Ledger& ledger, const std::vector<std::string>& words)>;

class WindowCatalogue {
 public:
  void Add(std::string_view name, WindowOpener opener);  // in place of one of that name
  bool Has(std::string_view name) const;
  std::vector<std::string> Names() const;
  // False when there is no such window or it would not open.
  bool Open(Ledger& ledger, std::string_view name, const std::vector<std::string>& words) const;

 private:
  std::vector<std::pair<std::string, WindowOpener>> openers_;
};

}  // namespace lm
