#include "cli/script.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "cli/chartjson.h"
#include "cli/gridcells.h"
#include "cli/outlookjson.h"
#include "cli/words.h"
#include "core/clsMD5.h"
#include "core/files.h"
#include "core/format.h"
#include "core/options.h"
#include "core/optiontable.h"
#include "core/rows.h"
#include "core/tables.h"
#include "core/text.h"
#include "documents/mergefields.h"
#include "documents/words.h"
#include "entry/money.h"
#include "entry/parsedate.h"
#include "entry/parsetime.h"
#include "reports/frmChart.h"
#include "shell/entry.h"
#include "shell/listfoot.h"
#include "shell/pages/mainpage.h"
#include "shell/severalrows.h"

namespace lm {
namespace {

Json CellsOf(const Grid& grid, int row, std::span<const std::string> keys) {
  Json cells = Json::object();
  if (!keys.empty()) {
    for (const std::string& key : keys)
      cells[Utf8(key)] = Utf8(grid.TextMatrix(row, grid.FindCol(key)));
    return cells;
  }
  for (int col = 0; col < grid.Cols(); ++col) {
    const std::string& key = grid.ColKey(col);
    if (!key.empty()) cells[Utf8(key)] = Utf8(grid.TextMatrix(row, col));
  }
  return cells;
}

// A grid without column keys (a picker's month) is told by column number.
Json NumberedCells(const Grid& grid, int row) {
  Json cells = Json::object();
  for (int col = 0; col < grid.Cols(); ++col)
    cells[std::to_string(col)] = Utf8(grid.TextMatrix(row, col));
  return cells;
}

bool HasKeys(const Grid& grid) {
  for (int col = 0; col < grid.Cols(); ++col)
    if (!grid.ColKey(col).empty()) return true;
  return false;
}

// "invoice=3": the records that merge fields draw on.
MergeContext ContextOf(std::span<const std::string> words) {
  static constexpr std::pair<std::string_view, std::string MergeContext::*> kNames[] = {
      {"invoice", &MergeContext::invoice},
      {"session", &MergeContext::session},
      {"extra", &MergeContext::extra},
      {"expense", &MergeContext::expense}};
  MergeContext context;
  for (const std::string& word : words) {
    const std::size_t equals = word.find('=');
    const auto* known = std::find_if(std::begin(kNames), std::end(kNames), [&](const auto& each) {
      return each.first == word.substr(0, equals);
    });
    if (equals == std::string::npos || known == std::end(kNames))
      throw ScriptError("merge knows invoice=, session=, extra= and expense=, not " + word);
    context.*known->second = word.substr(equals + 1);
  }
  return context;
}

std::string_view NameOf(EditOutcome outcome) {
  switch (outcome) {
    case EditOutcome::Unchanged:
      return "unchanged";
    case EditOutcome::Accepted:
      return "accepted";
    case EditOutcome::Refused:
      return "refused";
    case EditOutcome::NotAllowed:
      break;
  }
  return "not allowed";
}

}  // namespace

const std::vector<Script::Action>& Script::Actions() {
  static const std::vector<Action> actions{
      {"load", 0, &Script::DoLoad},       {"open", 1, &Script::DoOpen},
      {"set", 2, &Script::DoSet},         {"press", 1, &Script::DoPress},
      {"select", 2, &Script::DoSelect},   {"cell", 4, &Script::DoCell},
      {"click", 3, &Script::DoClick},     {"menu", 3, &Script::DoMenu},
      {"cells", 1, &Script::DoCells},     {"hover", 3, &Script::DoHover},
      {"drag", 5, &Script::DoDrag},       {"doubleclick", 3, &Script::DoDoubleClick},
      {"sort", 2, &Script::DoSort},       {"movecolumn", 3, &Script::DoMoveColumn},
      {"foot", 1, &Script::DoFoot},       {"selectrows", 2, &Script::DoSelectRows},
      {"show", 1, &Script::DoShow},       {"dump", 1, &Script::DoDump},
      {"option", 1, &Script::DoOption},   {"answer", 0, &Script::DoAnswers},
      {"parse", 1, &Script::DoParse},     {"digest", 0, &Script::DoDigest},
      {"words", 1, &Script::DoWords},     {"format", 2, &Script::DoFormat},
      {"merge", 1, &Script::DoMerge},     {"save", 0, &Script::DoSave},
      {"undo", 0, &Script::DoUndo},       {"redo", 0, &Script::DoRedo},
      {"path", 1, &Script::DoPath},       {"colour", 1, &Script::DoColour},
      {"chart", 0, &Script::DoChart},     {"serve", 2, &Script::DoServe},
      {"outlook", 0, &Script::DoOutlook},
  };
  return actions;
}

Script::Script(Terminal& terminal, Ledger& ledger, WindowCatalogue& windows)
    : terminal_(terminal), ledger_(ledger), windows_(windows) {
  terminal_.catalogue = &windows_;
  terminal_.ledger = &ledger_;
  terminal_.runWindow = [this](Screen& screen) {
    if (!failure_) RunLines(&screen);
    // The script is over and the window still open: it goes as Cancel takes it, without questions.
    if (!screen.Closed()) screen.Close();
  };
}

Script::~Script() { terminal_.runWindow = nullptr; }

bool Script::Run(std::istream& lines) {
  lines_ = &lines;
  RunLines(nullptr);
  if (!failure_) return true;
  try {
    std::rethrow_exception(failure_);
  } catch (const std::exception& error) {
    terminal_.Emit({{"error", Utf8(error.what())}});
  }
  return false;
}

// Lines until the window on top has closed. A failure unwinds through the windows that are open,
// so it is kept and looked at again in Run.
void Script::RunLines(Screen* until) {
  std::string line;
  while (!failure_ && !(until && until->Closed()) && std::getline(*lines_, line)) {
    try {
      RunLine(line);
    } catch (...) {
      failure_ = std::current_exception();
    }
  }
}

void Script::RunLine(const std::string& line) {
  const std::vector<std::string> words = SplitWords(line);
  if (words.empty() || words.front().starts_with('#')) return;
  const auto& actions = Actions();
  const auto action = std::find_if(actions.begin(), actions.end(),
                                   [&](const Action& each) { return each.name == words.front(); });
  if (action == actions.end()) throw ScriptError("unknown action: " + words.front());
  const Words rest = Words(words).subspan(1);
  static constexpr std::string_view kWithMenuOpen[] = {"press", "show", "answer"};
  if (std::ranges::find(kWithMenuOpen, action->name) == std::end(kWithMenuOpen)) menu_.clear();
  if (rest.size() < action->leastWords) throw ScriptError("too few words for " + words.front());
  (this->*action->run)(rest);
}

void Script::DoLoad(Words words) {
  // The windows that are open go on with the main window when they have closed.
  if (!ledger_.openScreens.empty()) throw ScriptError("a window is open: " + Top()->Name());
  main_.reset();
  EntryHooks hooks;
  hooks.createMain = [this]() -> frmMain& {
    main_ = std::make_unique<frmMain>(ledger_, windows_);
    return *main_;
  };
  if (!RunEntryProcedure(ledger_, hooks, words.empty() ? "" : words[0])) {
    main_.reset();
    throw ScriptError("the program did not start");
  }
  terminal_.Emit({{"opened", main_->Name()}, {"caption", Utf8(main_->Caption())}});
}

void Script::DoOpen(Words words) {
  RequireLoaded();
  if (!windows_.Has(words[0])) throw ScriptError("unknown window: " + words[0]);
  const bool isOpen = OpenScreen(ledger_, words[0]) != nullptr;
  const int boxes = terminal_.BoxesShown();
  const bool opened = windows_.Open(ledger_, words[0], {words.begin() + 1, words.end()});
  if (opened) return;
  // A window may refuse with its message, and a second one of its name does. A record that is not
  // there is an error, whether a message says so or not.
  const bool ofRecord = words.size() > 1 && (words[1] == "open" || words[1] == "copy");
  if (terminal_.BoxesShown() == boxes || (ofRecord && !isOpen))
    throw ScriptError("nothing to open: " + Join({words.begin(), words.end()}, " "));
}

void Script::DoSet(Words words) {
  Field& field = NamedField(words[0], false);
  if (!field.Enabled() || !field.Visible()) throw ScriptError("disabled: " + field.Name());
  if (const auto* choice = dynamic_cast<const ChoiceField*>(&field);
      choice && EntryNamed(*choice, words[1]) < 0)
    throw ScriptError("no such item: " + words[1]);
  if (field.Kind() == FieldKind::Label || field.Kind() == FieldKind::Button)
    throw ScriptError("not to be set: " + field.Name());
  const bool isBox = field.Kind() == FieldKind::Check;
  const std::string text = isBox ? ToUpper(words[1]) : words[1];
  if (isBox && text != "TRUE" && text != "FALSE")
    throw ScriptError("a box takes TRUE or FALSE, not " + words[1]);
  field.Owner().Enter(field, text);
  EmitField(field);
}

void Script::DoPress(Words words) {
  Field& field = NamedField(words[0], true);
  bool offered = field.Enabled() && field.Visible();
  for (const MenuEntry& entry : std::exchange(menu_, {}))
    if (entry.command == &field) offered = entry.visible && entry.enabled;
  if (!offered) throw ScriptError("disabled: " + field.Name());
  field.Owner().Press(field);
}

void Script::DoSelect(Words words) {
  Screen* owner = nullptr;
  const auto [grid, rules] = NamedGrid(words[0], &owner);
  const int row = NamedRow(*grid, words[1]);
  grid->Select(row, std::max(grid->Col(), grid->FixedCols()));
  EmitRow(*grid, row, {});
}

void Script::DoCell(Words words) {
  Screen* owner = nullptr;
  const auto [grid, rules] = NamedGrid(words[0], &owner);
  const int row = NamedRow(*grid, words[1]);
  const int col = NamedColumn(*grid, words[2]);
  grid->Select(row, col);
  const int idCol = grid->FindCol("ID");
  const std::string id = grid->TextMatrix(row, idCol);
  const EditOutcome outcome =
      owner ? owner->Edit(*grid, row, col, words[3]) : EditOutcome::NotAllowed;
  // What follows an edit may have moved the row: a grouped list sorts itself anew.
  const int now = id.empty() ? row : grid->FindRow(id, -1, idCol);
  EmitRow(*grid, now < 0 ? row : now, {}, NameOf(outcome));
}

void Script::DoClick(Words words) {
  Screen* owner = nullptr;
  const auto [grid, rules] = NamedGrid(words[0], &owner);
  if (!owner) throw ScriptError("no window shows " + words[0]);
  owner->Click(*grid, ValInt(words[1]), ValInt(words[2]));
}

void Script::DoMenu(Words words) {
  Screen* owner = nullptr;
  Grid& grid = *NamedGrid(words[0], &owner).grid;
  if (!owner) throw ScriptError("no window shows " + words[0]);
  const bool numbered = AllDigits(words[1]) && ValInt(words[1]) < grid.Rows();
  const int row = numbered ? ValInt(words[1]) : NamedRow(grid, words[1]);
  const int col = AllDigits(words[2]) ? ValInt(words[2]) : NamedColumn(grid, words[2]);
  if (owner == main_.get()) main_->BringToFront(grid);
  grid.Select(row, col);
  menu_ = owner->ContextMenu(grid);
  Json entries = Json::array();
  for (const MenuEntry& entry : menu_)
    if (entry.command)
      entries.push_back({{"entry", entry.command->Name()},
                         {"caption", Utf8(entry.command->Text())},
                         {"enabled", entry.enabled},
                         {"visible", entry.visible}});
  terminal_.Emit({{"menu", entries}});
}

void Script::DoCells(Words words) {
  const Grid& grid = *NamedGrid(words[0]).grid;
  const int only = words.size() > 1 ? ValInt(words[1]) : -1;
  for (int row = 0; row < grid.Rows(); ++row)
    if (only < 0 || row == only) terminal_.Emit(RowOfCells(grid, row));
}

Script::PointedCell Script::Point(Words words) {
  PointedCell cell{nullptr, nullptr, ValInt(words[1]), ValInt(words[2])};
  cell.grid = NamedGrid(words[0], &cell.owner).grid;
  if (!cell.owner) throw ScriptError("no window shows " + words[0]);
  if (cell.owner == main_.get()) main_->BringToFront(*cell.grid);
  if (cell.row >= cell.grid->Rows() || cell.col >= cell.grid->Cols())
    throw ScriptError("no such cell: " + words[1] + " " + words[2]);
  return cell;
}

void Script::DoHover(Words words) {
  const PointedCell cell = Point(words);
  cell.owner->Hover(*cell.grid, cell.row, cell.col);
}

void Script::DoDoubleClick(Words words) {
  const PointedCell cell = Point(words);
  cell.owner->DoubleClick(*cell.grid, cell.row, cell.col);
}

void Script::DoDrag(Words words) {
  const PointedCell cell = Point(words);
  cell.owner->Drag(*cell.grid, cell.row, cell.col, ValInt(words[3]), ValInt(words[4]));
}

void Script::DoSort(Words words) {
  RequireLoaded();
  Grid& grid = *NamedGrid(words[0]).grid;
  main_->HeaderClicked(grid, NamedColumn(grid, words[1]));
}

void Script::DoSelectRows(Words words) {
  RequireLoaded();
  Grid& grid = *NamedGrid(words[0]).grid;
  main_->BringToFront(grid);
  RecordList* list = main_->FrontPage().ListOf(grid);
  if (!list) throw ScriptError("no list of records: " + words[0]);
  std::vector<int> rows;
  for (const std::string& word : words.subspan(1)) rows.push_back(NamedRow(grid, word));
  grid.Select(rows.back(), std::max(grid.Col(), grid.FixedCols()));
  list->SelectRows(std::move(rows));
  terminal_.Emit({{"selected", words[0]}, {"text", Utf8(SelectionText(*list))}});
}

void Script::DoFoot(Words words) {
  RequireLoaded();
  Grid& grid = *NamedGrid(words[0]).grid;
  main_->BringToFront(grid);
  const MainPage& page = main_->FrontPage();
  const RecordList* list = page.ListOf(grid);
  if (!list) throw ScriptError("no list of records: " + words[0]);
  if (words.size() > 1 && words[1] == "all") page.ShowAll();
  const ListFoot foot = FootOf(*list);
  Json sums = Json::object();
  for (const FootSum& sum : foot.sums) sums[sum.key] = sum.text;
  terminal_.Emit({{"foot", words[0]}, {"text", Utf8(foot.Sentence())}, {"sums", sums}});
}

void Script::DoMoveColumn(Words words) {
  RequireLoaded();
  Grid& grid = *NamedGrid(words[0]).grid;
  main_->ColumnMoved(grid, NamedColumn(grid, words[1]), ValInt(words[2]));
}

void Script::DoChart(Words) {
  const auto* window = dynamic_cast<const frmChart*>(Top());
  if (!window) throw ScriptError("no chart is open");
  terminal_.Emit(ChartLine(window->Shown()));
}

void Script::DoShow(Words words) {
  for (const std::string& name : words) EmitField(NamedField(name, true));
}

void Script::DoDump(Words words) {
  const Grid& grid = *NamedGrid(words[0]).grid;
  for (int row = grid.FixedRows(); row < grid.Rows(); ++row) EmitRow(grid, row, words.subspan(1));
}

void Script::DoOption(Words words) {
  const OptionSpec* named = FindOption(words[0]);
  const int option = named ? named->number : ValInt(words[0]);
  if (!named && (!AllDigits(words[0]) || option >= kOptionCount))
    throw ScriptError("no such option: " + words[0]);
  if (words.size() > 1) SetOption(ledger_, option, WithCrLf(words[1]));
  EmitResult(GetOption(ledger_, option));
}

void Script::DoAnswers(Words words) {
  for (const std::string& word : words)
    if (!terminal_.AddAnswer(word)) throw ScriptError("unknown answer: " + word);
}

// The second word is the number of the filter, from 1.
void Script::DoPath(Words words) {
  std::optional<std::size_t> filter;
  if (words.size() > 1) {
    if (!AllDigits(words[1]) || ValInt(words[1]) < 1)
      throw ScriptError("a filter is a number from 1, not " + words[1]);
    filter = static_cast<std::size_t>(ValInt(words[1])) - 1;
  }
  terminal_.AddPath(PathFromText(words[0]), filter);
}

void Script::DoServe(Words words) {
  if (words[1].empty()) return terminal_.Serve(words[0], "");
  std::string error;
  auto body = ReadFile(PathFromText(words[1]), error);
  if (!body) throw ScriptError("cannot read " + words[1] + ": " + error);
  terminal_.Serve(words[0], std::move(*body));
}

void Script::DoOutlook(Words words) {
  if (words.empty()) {
    if (!terminal_.outlook) throw ScriptError("there is no Outlook");
    for (const auto& each : terminal_.outlook->Appointments())
      terminal_.Emit({{"appointment", AppointmentJson(each)}});
    for (const auto& each : terminal_.outlook->Deleted())
      terminal_.Emit({{"deleted", AppointmentJson(each)}});
    return;
  }
  terminal_.outlook.reset();
  terminal_.platform.outlook = nullptr;
  if (words[0].empty()) return;
  std::string error;
  const auto json = ReadFile(PathFromText(words[0]), error);
  auto outlook = std::make_unique<OutlookStandIn>();
  if (json) error = ReadAppointments(*json, *outlook);
  if (!error.empty()) throw ScriptError("cannot read " + words[0] + ": " + error);
  terminal_.outlook = std::move(outlook);
  terminal_.platform.outlook = terminal_.outlook.get();
}

void Script::DoColour(Words words) {
  if (!AllDigits(words[0])) throw ScriptError("a colour is a number, not " + words[0]);
  terminal_.AddColour(ValInt(words[0]));
}

void Script::DoParse(Words words) {
  const std::string& kind = words[0];
  const std::string text = words.size() > 1 ? words[1] : "";
  const Date now = terminal_.Now();
  std::string result;
  std::string message;
  if (kind == "date")
    ParseDate(text, now, result, message);
  else if (kind == "time")
    ParseTime(text, now, result, message);
  else if (kind == "money")
    result = CleanMoney(text);
  else if (kind == "val")
    result = PlainText(Val(text));
  else
    throw ScriptError("parse knows date, time, money and val, not " + kind);
  EmitResult(result, message);
}

void Script::DoDigest(Words words) {
  EmitResult(clsMD5().DigestStrToHexStr(words.empty() ? "" : words[0]));
}

void Script::DoWords(Words words) { EmitResult(MoneyInWords(words[0])); }

void Script::DoFormat(Words words) { EmitResult(Format(words[0], words[1])); }

void Script::DoMerge(Words words) {
  EmitResult(Merge(ledger_, words[0], ContextOf(words.subspan(1))));
}

void Script::DoUndo(Words) { Replay("mnuUndo", ledger_.history.UndoCaption()); }

void Script::DoRedo(Words) { Replay("mnuRedo", ledger_.history.RedoCaption()); }

void Script::Replay(const std::string& command, const std::string& step) {
  RequireLoaded();
  main_->RefreshCommands();
  Field& entry = *main_->FindField(command);
  if (step.empty()) throw ScriptError(command + ": there is nothing");
  if (!entry.Enabled()) throw ScriptError(command + ": a window is open");
  main_->Press(entry);
  EmitResult(step, main_->lblStatus.Text());
}

void Script::DoSave(Words) {
  RequireLoaded();
  if (!main_->SaveAll()) throw ScriptError("not saved");
  for (const std::string_view name : {"Options.dat", "LedgerMinder.dat"})
    terminal_.Emit({{"file", name}});
}

void Script::RequireLoaded() const {
  if (!main_) throw ScriptError("nothing is loaded");
}

Screen* Script::Top() const {
  return ledger_.openScreens.empty() ? main_.get() : ledger_.openScreens.back();
}

Field& Script::NamedField(const std::string& name, bool alsoMainWindow) const {
  Screen* top = Top();
  Field* field = top ? top->FindField(name) : nullptr;
  if (!field && alsoMainWindow && main_) field = main_->FindField(name);
  if (!field) throw ScriptError("unknown field: " + name);
  return *field;
}

Screen::ListedGrid Script::NamedGrid(const std::string& name, Screen** owner) const {
  for (Screen* screen : {Top(), static_cast<Screen*>(main_.get())}) {
    if (!screen) continue;
    const Screen::ListedGrid found = screen->FindGrid(name);
    if (!found.grid) continue;
    if (owner) *owner = screen;
    return found;
  }
  if (Grid* table = ledger_.Table(name)) return {table, nullptr};
  throw ScriptError("unknown table: " + name);
}

int Script::NamedRow(const Grid& grid, const std::string& word) const {
  int row = -1;
  if (word == "last")
    row = grid.Rows() - 1;
  else if (word.starts_with('#'))
    row = grid.FindRow(word.substr(1), -1, grid.FindCol("ID"));
  else if (AllDigits(word))
    row = ValInt(word);
  if (row < grid.FixedRows() || row >= grid.Rows()) throw ScriptError("no such row: " + word);
  return row;
}

// By its key, or by its caption: not every grid has keys.
int Script::NamedColumn(const Grid& grid, const std::string& key) const {
  int col = grid.FindCol(key);
  for (int each = 0; col < 0 && each < grid.Cols(); ++each)
    if (grid.ColVisible(each) && grid.TextMatrix(CaptionRow(grid), each) == key) col = each;
  if (col < 0) throw ScriptError("unknown column: " + key);
  return col;
}

void Script::EmitField(const Field& field) {
  Json line{{"field", field.Name()},
            {"text", Utf8(field.Text())},
            {"enabled", field.Enabled()},
            {"visible", field.Visible()}};
  if (const auto* box = dynamic_cast<const CheckField*>(&field)) line["checked"] = box->Checked();
  if (const auto* combo = dynamic_cast<const ComboField*>(&field)) {
    line["items"] = Json::array();
    for (const ComboItem& item : combo->Items()) line["items"].push_back(Utf8(item.text));
  }
  if (const auto* tabs = dynamic_cast<const TabField*>(&field)) {
    line["items"] = Json::array();
    for (int i = 0; i < tabs->Count(); ++i)
      if (tabs->TabVisible(i)) line["items"].push_back(Utf8(tabs->TabCaption(i)));
  }
  terminal_.Emit(line);
}

void Script::EmitRow(const Grid& grid, int row, Words keys, std::string_view edit) {
  Json line{{"row", row}};
  line["cells"] = HasKeys(grid) ? CellsOf(grid, row, keys) : NumberedCells(grid, row);
  if (const int level = grid.RowOutlineLevel(row)) line["level"] = level;
  if (!grid.RowVisible(row)) line["hidden"] = true;
  if (!edit.empty()) line["edit"] = edit;
  terminal_.Emit(line);
}

void Script::EmitResult(std::string_view result, std::string_view message) {
  terminal_.Emit({{"result", Utf8(result)}, {"message", Utf8(message)}});
}

}  // namespace lm
