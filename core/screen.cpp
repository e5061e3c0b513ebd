#include "core/screen.h"

#include "core/change.h"
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
  Changed();
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

void ComboField::SetItems(std::vector<ComboItem> items) {
  const std::string selected = ItemData();
  const bool had = listIndex_ >= 0;
  items_ = std::move(items);
  listIndex_ = -1;
  text_.clear();
  if (had) SelectData(selected);
  Changed();
}

void ComboField::SetListIndex(int index) {
  if (index < 0 || index >= static_cast<int>(items_.size())) index = -1;
  listIndex_ = index;
  text_ = index < 0 ? "" : items_[static_cast<std::size_t>(index)].text;
  Changed();
}

void ComboField::SetText(std::string_view text) {
  const auto item = std::find_if(items_.begin(), items_.end(),
                                 [&](const ComboItem& each) { return each.text == text; });
  SetListIndex(item == items_.end() ? -1 : static_cast<int>(item - items_.begin()));
}

std::string ComboField::ItemData() const {
  return listIndex_ < 0 ? "" : items_[static_cast<std::size_t>(listIndex_)].data;
}

bool ComboField::SelectData(std::string_view data) {
  const auto item = std::find_if(items_.begin(), items_.end(),
                                 [&](const ComboItem& each) { return each.data == data; });
  SetListIndex(item == items_.end() ? -1 : static_cast<int>(item - items_.begin()));
  return listIndex_ >= 0;
}

TabField::TabField(Screen* screen, std::string name, std::vector<std::string> captions)
    : Field(screen, std::move(name), FieldKind::Tabs) {
  for (std::string& caption : captions) tabs_.push_back({std::move(caption)});
  if (!tabs_.empty()) text_ = tabs_.front().caption;
}

void TabField::SetSelected(int index) {
  if (index < 0 || index >= Count()) return;
  selected_ = index;
  text_ = TabCaption(index);
  Changed();
}

void TabField::SetText(std::string_view text) {
  for (int i = 0; i < Count(); ++i)
    if (EqualsIgnoreCase(TabCaption(i), text)) return SetSelected(i);
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

void TabField::Step(int direction) {
  for (int i = selected_ + direction; i >= 0 && i < Count(); i += direction) {
    if (!TabEnabled(i) || !TabVisible(i)) continue;
    SetSelected(i);
    if (onEntered) onEntered();
    return;
  }
}

std::string GridRules::EditList(const Grid& grid, int /*row*/, int col) {
  return grid.ColComboList(col);
}

std::optional<std::string> GridRules::Accept(int /*row*/, int /*col*/, std::string_view text) {
  return std::string(text);
}

namespace {

bool MayEditCell(const Grid& grid, GridRules& rules, int row, int col) {
  const bool isCell = row >= grid.FixedRows() && row < grid.Rows() && col >= 0 && col < grid.Cols();
  return isCell && rules.MayEdit(row, col);
}

std::string RecordName(const Grid& grid) {
  const TableSpec* table = FindTable(grid.Name());
  return std::string(table ? table->record : "");
}

EditOutcome StoreEdit(Grid& grid, GridRules& rules, int row, int col, const std::string& text) {
  if (text == grid.TextMatrix(row, col)) return EditOutcome::Unchanged;
  const Change change(grid, "Edit " + RecordName(grid));
  grid.SetTextMatrix(row, col, text);
  rules.Edited(row, col);
  return EditOutcome::Accepted;
}

}  // namespace

EditOutcome EditCell(Grid& grid, GridRules& rules, int row, int col, std::string_view text) {
  if (!MayEditCell(grid, rules, row, col)) return EditOutcome::NotAllowed;
  return FinishEdit(grid, rules, row, col, text);
}

EditOutcome FinishEdit(Grid& grid, GridRules& rules, int row, int col, std::string_view text) {
  std::string value(text);
  const std::string list = rules.EditList(grid, row, col);
  if (!list.empty()) {
    const auto entries = ComboEntries(list);
    const auto entry = std::find_if(entries.begin(), entries.end(), [&](const auto& each) {
      return Trim(each.second) == Trim(text);
    });
    if (entry == entries.end()) return EditOutcome::Refused;
    value = Trim(entry->first);
  }
  if (value == grid.TextMatrix(row, col)) return EditOutcome::Unchanged;
  if (list.empty() && value == grid.DisplayText(row, col)) return EditOutcome::Unchanged;

  const std::optional<std::string> accepted = rules.Accept(row, col, value);
  return accepted ? StoreEdit(grid, rules, row, col, *accepted) : EditOutcome::Refused;
}

EditOutcome WritePicked(Grid& grid, GridRules& rules, int row, int col, std::string_view text) {
  if (!MayEditCell(grid, rules, row, col)) return EditOutcome::NotAllowed;
  return StoreEdit(grid, rules, row, col, std::string(text));
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

void Screen::AddGrid(Grid& grid, GridRules* rules) { grids_.push_back({&grid, rules}); }

bool Screen::Enter(Field& field, std::string_view text) {
  if (!field.Enabled() || !field.Visible()) return false;
  const std::pair<Field*, std::string> asRefused(&field, text);
  const bool wasRefused = std::find(refused_.begin(), refused_.end(), asRefused) != refused_.end();
  if (field.Text() == text && !wasRefused) return true;
  field.SetText(text);
  if (field.Text() != text && field.Kind() != FieldKind::Text) return false;
  return Check(field);
}

bool Screen::Check(Field& field) {
  std::erase_if(refused_, [&](const auto& each) { return each.first == &field; });
  if (!field.onEntered || field.onEntered()) return true;
  refused_.emplace_back(&field, field.Text());
  Focus(field);
  return false;
}

bool Screen::RefusedTextStands() {
  const auto refused = refused_;
  for (const auto& [field, text] : refused)
    if (field->Text() == text && !Check(*field)) return true;
  return false;
}

void Screen::Press(Field& field) {
  if (!field.Enabled() || !field.Visible() || !field.onPressed) return;
  if (&field == defaultButton && RefusedTextStands()) return;
  field.onPressed();
}

EditOutcome Screen::Edit(Grid& grid, int row, int col, std::string_view text) {
  GridRules* rules = FindGrid(grid.Name()).rules;
  return rules ? EditCell(grid, *rules, row, col, text) : EditOutcome::NotAllowed;
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

Screen* OpenScreen(const Ledger& ledger, std::string_view name) {
  for (auto screen = ledger.openScreens.rbegin(); screen != ledger.openScreens.rend(); ++screen)
    if ((*screen)->Name() == name) return *screen;
  return nullptr;
}

void WindowCatalogue::Add(std::string_view name, WindowOpener opener) {
  openers_.emplace_back(name, std::move(opener));
}

bool WindowCatalogue::Has(std::string_view name) const {
  return std::any_of(openers_.begin(), openers_.end(),
                     [&](const auto& each) { return each.first == name; });
}

bool WindowCatalogue::Open(Ledger& ledger, std::string_view name,
                           const std::vector<std::string>& words) const {
  for (const auto& [window, opener] : openers_)
    if (window == name) return opener(ledger, words);
  return false;
}

}  // namespace lm
