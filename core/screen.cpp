#include "core/screen.h"

#include "core/change.h"
#include "core/messagebox.h"
#include "core/options.h"
#include "core/platform.h"
#include "core/tables.h"
#include "core/text.h"

namespace lm {

Field::Field(Screen* screen, std::string name, FieldKind kind)
    : screen_(screen), name_(std::move(name)), kind_(kind) {
  screen_->Register(this);
}

void Field::SetText(std::string_view text) {
  if (text_ == text) return;
  text_ = text;
  TextChanged();
}

void Field::SetEnabled(bool enabled) {
  if (enabled_ == enabled) return;
  enabled_ = enabled;
  Changed();
}

void Field::SetVisible(bool visible) {
  if (visible_ == visible) return;
  visible_ = visible;
  Changed();
}

void Field::SetToolTip(std::string_view text) {
  if (toolTip_ == text) return;
  toolTip_ = text;
  Changed();
}

void Field::Changed() {
  if (ScreenObserver* observer = screen_->Observer()) observer->FieldChanged(*this);
}

void Field::TextChanged() {
  screen_->ForgetRefusal(*this);
  Changed();
}

void TextField::SetText(std::string_view text) { Field::SetText(WithCrLf(text)); }

namespace {

int EntryWithText(const ChoiceField& field, std::string_view text) {
  if (field.Selected() >= 0 && field.Text() == text) return field.Selected();
  for (int i = 0; i < field.Count(); ++i)
    if (field.EntryText(i) == text) return i;
  return -1;
}

}  // namespace

int EntryNamed(const ChoiceField& field, std::string_view word) {
  int entry = EntryWithText(field, word);
  const std::string_view id = word.substr(word.starts_with('#') ? 1 : word.size());
  for (int i = 0; entry < 0 && !id.empty() && i < field.Count(); ++i)
    if (field.EntryId(i) == id) entry = i;
  return entry >= 0 && field.MayChoose(entry) ? entry : -1;
}

void ChoiceField::SetText(std::string_view text) { SetSelected(EntryWithText(*this, text)); }

void ComboField::SetItems(std::vector<ComboItem> items) {
  const std::string selected = ItemData();
  const bool had = Selected() >= 0;
  items_ = std::move(items);
  selected_ = -1;
  text_.clear();
  if (had) SelectData(selected);
  TextChanged();
}

void ComboField::SetSelected(int index) {
  selected_ = index < 0 || index >= Count() ? -1 : index;
  text_ = selected_ < 0 ? "" : EntryText(selected_);
  TextChanged();
}

std::string ComboField::ItemData() const { return Selected() < 0 ? "" : At(Selected()).data; }

bool ComboField::SelectData(std::string_view data) {
  const auto item = std::find_if(items_.begin(), items_.end(),
                                 [&](const ComboItem& each) { return each.data == data; });
  SetSelected(item == items_.end() ? -1 : static_cast<int>(item - items_.begin()));
  return Selected() >= 0;
}

TabField::TabField(Screen* screen, std::string name, std::vector<std::string> captions)
    : ChoiceField(screen, std::move(name), FieldKind::Tabs) {
  for (std::string& caption : captions) tabs_.push_back({std::move(caption)});
  if (tabs_.empty()) return;
  selected_ = 0;
  text_ = tabs_.front().caption;
}

void TabField::SetSelected(int index) {
  if (index < 0 || index >= Count()) return;
  selected_ = index;
  text_ = TabCaption(index);
  TextChanged();
}

void TabField::SetTabVisible(int index, bool visible) {
  tabs_.at(static_cast<std::size_t>(index)).visible = visible;
  Changed();
}

void TabField::SetTabEnabled(int index, bool enabled) {
  tabs_.at(static_cast<std::size_t>(index)).enabled = enabled;
  Changed();
}

void TabField::SetTabMarked(int index, bool marked) {
  tabs_.at(static_cast<std::size_t>(index)).marked = marked;
  Changed();
}

std::string GridRules::EditList(const Grid& grid, int /*row*/, int col) {
  return grid.ColComboList(col);
}

std::optional<std::string> GridRules::Accept(int /*row*/, int /*col*/, std::string_view text) {
  return std::string(text);
}

namespace {

std::string RecordName(const Grid& grid) {
  const TableSpec* table = FindTable(grid.Name());
  return std::string(table ? table->record : "");
}

EditOutcome Store(Grid& grid, GridRules& rules, int row, int col, std::string_view text) {
  const std::string stored = WithCrLf(text);
  if (stored == WithCrLf(grid.TextMatrix(row, col))) return EditOutcome::Unchanged;
  const Change change(grid, "Edit " + RecordName(grid));
  grid.SetTextMatrix(row, col, stored);
  rules.Edited(row, col);
  return EditOutcome::Accepted;
}

// The id that a word names in the list of a cell; nothing when it names none.
std::optional<std::string> IdNamed(const Grid& grid, int row, int col, std::string_view list,
                                   std::string_view word) {
  const std::string shown = grid.DisplayText(row, col);
  if (!Trim(shown).empty() && Trim(shown) == Trim(word)) return grid.TextMatrix(row, col);
  const auto entries = ComboEntries(list);
  auto entry = std::find_if(entries.begin(), entries.end(),
                            [&](const auto& each) { return Trim(each.second) == Trim(word); });
  if (entry == entries.end() && word.starts_with('#'))
    entry = std::find_if(entries.begin(), entries.end(),
                         [&](const auto& each) { return each.first == word.substr(1); });
  if (entry == entries.end()) return std::nullopt;
  return std::string(Trim(entry->first));
}

}  // namespace

bool OpenCell(const Grid& grid, GridRules& rules, int row, int col) {
  const bool isCell = row >= grid.FixedRows() && row < grid.Rows() && col >= 0 && col < grid.Cols();
  return isCell && rules.MayEdit(row, col);
}

EditOutcome FinishEdit(Grid& grid, GridRules& rules, int row, int col, const CellInput& input) {
  using How = CellInput::How;
  if (input.how == How::Picked) return Store(grid, rules, row, col, input.text);
  const std::string held = grid.TextMatrix(row, col);
  if (WithCrLf(input.text) == WithCrLf(held)) return EditOutcome::Unchanged;
  if (input.how == How::Typed && input.text == grid.DisplayText(row, col))
    return EditOutcome::Unchanged;
  const std::optional<std::string> accepted = rules.Accept(row, col, input.text);
  return accepted ? Store(grid, rules, row, col, *accepted) : EditOutcome::Refused;
}

EditOutcome EditCell(Grid& grid, GridRules& rules, int row, int col, std::string_view word) {
  using How = CellInput::How;
  if (!OpenCell(grid, rules, row, col)) return EditOutcome::NotAllowed;
  const std::string list = rules.EditList(grid, row, col);
  if (list.empty()) return FinishEdit(grid, rules, row, col, {How::Typed, std::string(word)});
  const std::optional<std::string> id = IdNamed(grid, row, col, list, word);
  return id ? FinishEdit(grid, rules, row, col, {How::Chosen, *id}) : EditOutcome::Refused;
}

Screen::Screen(Ledger& theLedger, std::string name, std::string_view caption)
    : ledger(theLedger), name_(std::move(name)), caption_(caption) {}

Screen::~Screen() = default;

void Screen::SetCaption(std::string_view caption) {
  caption_ = caption;
  if (observer_) observer_->CaptionChanged();
}

Field* Screen::FindField(std::string_view name) const {
  const auto field = std::find_if(fields_.begin(), fields_.end(), [&](const Field* each) {
    return EqualsIgnoreCase(each->Name(), name);
  });
  return field == fields_.end() ? nullptr : *field;
}

Screen::ListedGrid Screen::FindGrid(std::string_view name) const {
  const auto grid = std::find_if(grids_.begin(), grids_.end(), [&](const ListedGrid& each) {
    return EqualsIgnoreCase(each.grid->Name(), name);
  });
  return grid == grids_.end() ? ListedGrid{nullptr, nullptr} : *grid;
}

GridRules* Screen::RulesOf(const Grid& grid) const {
  for (const ListedGrid& each : grids_)
    if (each.grid == &grid) return each.rules;
  return nullptr;
}

void Screen::AddGrid(Grid& grid, GridRules* rules) { grids_.push_back({&grid, rules}); }

namespace {

bool Reachable(const Field& field) { return field.Enabled() && field.Visible(); }

}  // namespace

bool Screen::Enter(Field& field, std::string_view text) {
  switch (field.Kind()) {
    case FieldKind::Text:
      return Type(static_cast<TextField&>(field), text);
    case FieldKind::Combo:
    case FieldKind::Tabs: {
      auto& choice = static_cast<ChoiceField&>(field);
      return Choose(choice, EntryNamed(choice, text));
    }
    case FieldKind::Check:
      return (text == "TRUE" || text == "FALSE") &&
             Tick(static_cast<CheckField&>(field), text == "TRUE");
    case FieldKind::Label:
    case FieldKind::Button:
      break;
  }
  return false;
}

bool Screen::Type(TextField& box, std::string_view text) {
  if (!Reachable(box)) return false;
  const std::string typed = WithCrLf(text);
  if (box.Text() == typed && !Refused(box)) return true;
  box.SetText(typed);
  return Check(box);
}

bool Screen::Choose(ChoiceField& field, int index) {
  if (!Reachable(field) || index < 0 || index >= field.Count() || !field.MayChoose(index))
    return false;
  if (field.Selected() == index && !Refused(field)) return true;
  field.SetSelected(index);
  return Check(field);
}

bool Screen::Step(TabField& tabs, int direction) {
  int next = tabs.Selected() + direction;
  while (next >= 0 && next < tabs.Count() && !tabs.MayChoose(next)) next += direction;
  return Choose(tabs, next);
}

bool Screen::Tick(CheckField& box, bool ticked) {
  if (!Reachable(box)) return false;
  if (box.Checked() == ticked && !Refused(box)) return true;
  box.SetChecked(ticked);
  return Check(box);
}

bool Screen::Refused(const Field& field) const {
  return std::find(refused_.begin(), refused_.end(), &field) != refused_.end();
}

void Screen::ForgetRefusal(const Field& field) { std::erase(refused_, &field); }

bool Screen::Check(Field& field) {
  ForgetRefusal(field);
  if (!field.onEntered || field.onEntered()) return true;
  refused_.push_back(&field);
  Focus(field);
  return false;
}

bool Screen::RefusedTextStands() {
  const auto refused = refused_;
  return !std::all_of(refused.begin(), refused.end(), [&](Field* each) { return Check(*each); });
}

void Screen::Press(Field& field) {
  if (!Reachable(field) || !field.onPressed) return;
  if (&field == defaultButton && RefusedTextStands()) return;
  field.onPressed();
}

bool Screen::OpenCell(const Grid& grid, int row, int col) {
  GridRules* rules = RulesOf(grid);
  return rules && lm::OpenCell(grid, *rules, row, col);
}

EditOutcome Screen::FinishEdit(Grid& grid, int row, int col, const CellInput& input) {
  GridRules* rules = RulesOf(grid);
  return rules ? lm::FinishEdit(grid, *rules, row, col, input) : EditOutcome::NotAllowed;
}

EditOutcome Screen::Edit(Grid& grid, int row, int col, std::string_view word) {
  GridRules* rules = RulesOf(grid);
  return rules ? EditCell(grid, *rules, row, col, word) : EditOutcome::NotAllowed;
}

void Screen::Click(Grid& grid, int row, int col) {
  if (!closed_) CellClicked(grid, row, col);
}

void Screen::DoubleClick(Grid& grid, int row, int col) {
  GridRules* rules = RulesOf(grid);
  if (closed_ || !rules) return;
  grid.Select(row, col);
  rules->Opened(row);
}

void Screen::Drag(Grid& grid, int row, int col, int toRow, int toCol) {
  GridRules* rules = RulesOf(grid);
  const bool sameCell = row == toRow && col == toCol;
  if (!closed_ && rules && !sameCell && rules->MayDrag(row, col))
    rules->Dropped(row, col, toRow, toCol);
}

void Screen::Hover(Grid& grid, int row, int col) {
  if (GridRules* rules = RulesOf(grid)) rules->Hovered(row, col);
}

std::string Screen::LookOption(const Grid&, int option) const { return GetOption(ledger, option); }

// Each in a line of its own, and a chosen entry by its place: two may bear one text.
std::string Screen::Content() const {
  std::string content;
  for (const Field* field : fields_) {
    const auto kind = field->Kind();
    if (kind == FieldKind::Combo)
      content += std::to_string(static_cast<const ChoiceField*>(field)->Selected()) + '\n';
    else if (kind == FieldKind::Text || kind == FieldKind::Check)
      content += field->Text() + '\n';
  }
  for (const ListedGrid& listed : grids_)
    for (int row = listed.grid->FixedRows(); row < listed.grid->Rows(); ++row) {
      if (listed.grid->RowHidden(row)) content += '-';
      for (int col = 0; col < listed.grid->Cols(); ++col)
        content += listed.grid->TextMatrix(row, col) + '\t';
      content += '\n';
    }
  return content;
}

void Screen::SetDefaultButton(Button& button) {
  Button* before = std::exchange(defaultButton, &button);
  if (!observer_ || before == &button) return;
  if (before) observer_->FieldChanged(*before);
  observer_->FieldChanged(button);
}

void Screen::CloseRequested() {
  if (cancelButton)
    Press(*cancelButton);
  else
    Close();
}

void Screen::Close() {
  if (closed_) return;
  closed_ = true;
  if (observer_) observer_->ScreenClosed();
}

void Screen::Focus(Field& field) {
  focused_ = &field;
  if (observer_) observer_->FocusRequested(field);
}

void Screen::RequestCellEdit(Grid& grid, int row, int col) {
  if (observer_) observer_->CellEditRequested(grid, row, col);
}

void ShowModal(Screen& screen) {
  std::vector<Screen*>& open = screen.ledger.openScreens;
  open.push_back(&screen);
  screen.ledger.platform.windows.ShowModal(screen);
  std::erase(open, &screen);
}

bool ShowRecord(Screen& window, std::string_view record, std::string_view openAlready,
                const std::function<bool()>& fill) {
  Ledger& ledger = window.ledger;
  window.SetRecord(record);
  for (const Screen* open : ledger.openScreens) {
    if (open->Name() != window.Name() || open->Record() != record) continue;
    ShowMessage(ledger, openAlready);
    return false;
  }
  if (!fill()) return false;
  ShowModal(window);
  return true;
}

Screen* OpenScreen(const Ledger& ledger, std::string_view name) {
  for (auto screen = ledger.openScreens.rbegin(); screen != ledger.openScreens.rend(); ++screen)
    if ((*screen)->Name() == name) return *screen;
  return nullptr;
}

void WindowCatalogue::Add(std::string_view name, WindowOpener opener) {
  std::erase_if(openers_, [&](const auto& each) { return each.first == name; });
  openers_.emplace_back(name, std::move(opener));
}

bool WindowCatalogue::Has(std::string_view name) const {
  return std::any_of(openers_.begin(), openers_.end(),
                     [&](const auto& each) { return each.first == name; });
}

std::vector<std::string> WindowCatalogue::Names() const {
  std::vector<std::string> names;
  for (const auto& [window, opener] : openers_) names.push_back(window);
  return names;
}

bool WindowCatalogue::Open(Ledger& ledger, std::string_view name,
                           const std::vector<std::string>& words) const {
  for (const auto& [window, opener] : openers_)
    if (window == name) return opener(ledger, words);
  return false;
}

}  // namespace lm
