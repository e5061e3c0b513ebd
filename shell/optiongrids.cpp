#include "shell/optiongrids.h"

#include <algorithm>
#include <iterator>
#include <set>

#include "core/messagebox.h"
#include "core/numbers.h"
#include "core/optioncheck.h"
#include "core/platform.h"
#include "core/rows.h"
#include "core/tables.h"
#include "core/text.h"

namespace lm {
namespace {

constexpr ColumnSpec kColourColumns[] = {{.key = "NAME", .caption = "Used for", .width = 3000},
                                         {.key = "COLOR", .caption = "Colour", .width = 1300}};
constexpr ColumnSpec kCategoryColumns[] = {{.key = "ID", .caption = "", .hidden = true},
                                           {.key = "NAME", .caption = "Category", .width = 4200},
                                           {.key = "COLOR", .caption = "Colour", .width = 1300}};
constexpr ColumnSpec kRateColumns[] = {
    {.key = "SESS_TYPE", .caption = "Session Type", .width = 3400},
    {.key = "RATE", .caption = "Rate", .type = DataType::Money, .width = 1500}};

constexpr std::string_view kNoText = " ";  // a pattern that shows nothing of a number

struct DefaultRate {
  std::string_view caption;
  std::size_t item;  // of the option, whose order is not that of the list
};
constexpr DefaultRate kDefaultRates[] = {{"NHS Normal", 0},
                                         {"NHS OOH Normal", 1},
                                         {"NHS OOH Deputising", 2},
                                         {"NHS Unpensioned", 4},
                                         {"Private", 3}};

void Shape(Grid& grid, const TableSpec& table) {
  MakeBlank(grid, table);
  grid.SetColWidth(0, 0);
  for (const ColumnSpec& column : table.columns)
    grid.SetColHidden(grid.ColIndex(column.key), column.hidden);
  grid.SetColFormat(grid.FindCol("COLOR"), kNoText);
}

void ShowColour(Grid& grid, int row, std::string_view colour) {
  grid.SetTextMatrix(row, "COLOR", colour);
  grid.SetCell(CellSetting::flexcpPicture, row, grid.ColIndex("COLOR"), kSwatch);
}

bool IsColourCell(const Grid& grid, int row, int col) {
  return row >= grid.FixedRows() && row < grid.Rows() && col == grid.ColIndex("COLOR");
}

bool PickColour(Ledger& ledger, Grid& grid, int row, std::string_view title) {
  const auto chosen =
      ledger.platform.system.AskColour(title, ValInt(grid.TextMatrix(row, "COLOR")));
  if (chosen) ShowColour(grid, row, PlainText(*chosen));
  return chosen.has_value();
}

std::optional<std::string> EnteredColour(Ledger& ledger, std::string_view typed) {
  const std::string text(Trim(typed));
  if (AllDigits(text) && text.size() <= 8 && ValInt(text) <= Rgb(255, 255, 255))
    return PlainText(ValInt(text));
  ShowMessage(ledger, "Invalid Colour", "Click on the colour to choose another one.");
  return std::nullopt;
}

// What is typed for one entry of a packed option.
std::optional<std::string> EnteredOption(Ledger& ledger, Option option, std::string_view typed) {
  CheckedOption checked = CheckOption(*FindOption(option), typed);
  if (!checked.text) ShowMessage(ledger, checked.prompt, checked.reason);
  return std::move(checked.text);
}

}  // namespace

// Colours

ColourGrid::ColourGrid(Ledger& ledger, std::string name, std::span<const Option> options)
    : grid(std::move(name)), ledger_(ledger), options_(options) {
  Shape(grid, {grid.Name(), kColourColumns});
  for (const Option option : options_) {
    const int row = grid.AddItem("");
    grid.SetTextMatrix(row, "NAME", FindOption(option)->caption);
    ShowColour(grid, row, GetOption(ledger_, option));
  }
}

std::string ColourGrid::Text(int option) const {
  const auto at = std::ranges::find(options_, option);
  return at == options_.end()
             ? ""
             : grid.TextMatrix(grid.FixedRows() + static_cast<int>(at - options_.begin()), "COLOR");
}

void ColourGrid::SetDefaults() {
  int row = grid.FixedRows();
  for (const Option option : options_) ShowColour(grid, row++, FindOption(option)->text);
}

void ColourGrid::Store() const {
  for (const Option option : options_) SetOption(ledger_, option, Text(option));
}

void ColourGrid::Pressed(int row, int col) {
  if (IsColourCell(grid, row, col)) Opened(row);
}

bool ColourGrid::MayEdit(int row, int col) { return IsColourCell(grid, row, col); }

std::optional<std::string> ColourGrid::Accept(int, int, std::string_view text) {
  return EnteredColour(ledger_, text);
}

void ColourGrid::Edited(int, int) {
  if (onChanged) onChanged();
}

void ColourGrid::Opened(int row) {
  if (PickColour(ledger_, grid, row, grid.TextMatrix(row, "NAME"))) Edited(row, 0);
}

// Event categories

CategoryGrid::CategoryGrid(Ledger& ledger) : ledger_(ledger) {
  Shape(grid, {grid.Name(), kCategoryColumns});
  for (const EventCategory& category : EventCategories(ledger_)) AddRow(category);
  before_ = EventCategoriesText(Categories());
}

void CategoryGrid::AddRow(const EventCategory& category) {
  const int row = grid.AddItem("");
  grid.SetTextMatrix(row, "ID", std::to_string(category.code));
  grid.SetTextMatrix(row, "NAME", category.name);
  ShowColour(grid, row, std::to_string(category.colour));
}

std::vector<EventCategory> CategoryGrid::Categories() const {
  std::vector<EventCategory> categories;
  for (int row = grid.FixedRows(); row < grid.Rows(); ++row)
    categories.push_back({ValInt(grid.TextMatrix(row, "ID")), grid.TextMatrix(row, "NAME"),
                          ValInt(grid.TextMatrix(row, "COLOR"))});
  return categories;
}

void CategoryGrid::SetDefaultColours() {
  for (const EventCategory& category : EventCategoriesIn(FindOption(optEventCategories)->text))
    if (const int row = grid.FindRow(std::to_string(category.code), "ID"); row >= 0)
      ShowColour(grid, row, std::to_string(category.colour));
}

void CategoryGrid::Store() const {
  const std::string now = EventCategoriesText(Categories());
  if (now != before_) SetOption(ledger_, optEventCategories, now);
}

void CategoryGrid::Pressed(int row, int col) {
  if (IsColourCell(grid, row, col)) Opened(row);
}

// A code that some event still bears would give that event this category.
int CategoryGrid::NextCode() const {
  std::set<int> taken;
  for (const EventCategory& category : Categories()) taken.insert(category.code);
  int next = std::max(taken.empty() ? 0 : *taken.rbegin(), 0) + 1;
  for (const int row : Records(ledger_.fgEvents))
    taken.insert(ValInt(ledger_.fgEvents.TextMatrix(row, "CATEGORY")));
  while (taken.contains(next)) ++next;
  return next;
}

int CategoryGrid::Add() {
  AddRow({NextCode(), "[New Category]", Rgb(192, 192, 192)});
  const int row = grid.Rows() - 1;
  grid.Select(row, grid.ColIndex("NAME"));
  return row;
}

void CategoryGrid::Delete(int row) {
  constexpr std::string_view kTitle = "Delete Event Category";
  if (row < grid.FixedRows() || row >= grid.Rows()) {
    ShowMessage(ledger_, kTitle, "There is no category selected to delete.");
    return;
  }
  const int code = ValInt(grid.TextMatrix(row, "ID"));
  const auto isOfCategory = [&](int event) {
    const std::string category = ledger_.fgEvents.TextMatrix(event, "CATEGORY");
    return !Trim(category).empty() && ValInt(category) == code;
  };
  const Records events(ledger_.fgEvents);
  if (code < 0)
    ShowMessage(ledger_, kTitle, "This is a standard category and cannot be deleted.");
  else if (std::any_of(events.begin(), events.end(), isOfCategory))
    ShowMessage(ledger_, "Category being used",
                "This category is being used by at least one event so cannot be deleted.");
  else if (Ask(ledger_, "Delete event category '" + grid.TextMatrix(row, "NAME") + "'?", "",
               kTitle))
    grid.RemoveItem(row);
}

std::optional<std::string> CategoryGrid::Accept(int, int col, std::string_view text) {
  if (col == grid.ColIndex("COLOR")) return EnteredColour(ledger_, text);
  if (Trim(text).empty()) {
    ShowMessage(ledger_, "A category needs a name");
    return std::nullopt;
  }
  return EnteredOption(ledger_, optEventCategories, Trim(text));
}

void CategoryGrid::Edited(int row, int col) {
  if (col == grid.ColIndex("COLOR")) ShowColour(grid, row, grid.TextMatrix(row, col));
}

void CategoryGrid::Opened(int row) { PickColour(ledger_, grid, row, "Category Colour"); }

// Default rates

DefaultRatesGrid::DefaultRatesGrid(Ledger& ledger) : ledger_(ledger) {
  Shape(grid, {grid.Name(), kRateColumns});
  const std::string option = GetOption(ledger_, optDefaultRates);
  const auto rates = Split(option, '|');
  for (const DefaultRate& each : kDefaultRates) {
    const int row = grid.AddItem("");
    grid.SetTextMatrix(row, "SESS_TYPE", each.caption);
    if (each.item < rates.size()) grid.SetTextMatrix(row, "RATE", rates[each.item]);
  }
}

void DefaultRatesGrid::Store() const {
  const std::string option = GetOption(ledger_, optDefaultRates);
  std::vector<std::string> rates;
  for (const std::string_view rate : Split(option, '|')) rates.emplace_back(rate);
  rates.resize(std::max(rates.size(), std::size(kDefaultRates)));
  int row = grid.FixedRows();
  for (const DefaultRate& each : kDefaultRates) rates[each.item] = grid.TextMatrix(row++, "RATE");
  SetOption(ledger_, optDefaultRates, Join(rates, "|"));
}

bool DefaultRatesGrid::MayEdit(int, int col) { return col == grid.ColIndex("RATE"); }

std::optional<std::string> DefaultRatesGrid::Accept(int, int, std::string_view text) {
  return EnteredOption(ledger_, optDefaultRates, text);
}

}  // namespace lm
