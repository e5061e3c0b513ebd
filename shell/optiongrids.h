// The lists of the options window, each a working copy of options: colours, the categories of
// events, the default rates. A colour cell is chosen with the colour picker, or typed as the number
// that the options hold.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/eventcategories.h"
#include "core/options.h"
#include "core/screen.h"

namespace lm {

// The drawing of a cell that shows the colour which its text tells.
constexpr std::string_view kSwatch = "swatch";

// NAME and COLOR, a row for each option.
class ColourGrid : public GridRules {
 public:
  ColourGrid(Ledger& ledger, std::string name, std::span<const Option> options);
  Grid grid;

  std::string Text(int option) const;  // "" for one that has no row here
  void SetDefaults();
  void Store() const;
  void Pressed(int row, int col);
  std::function<void()> onChanged;

  bool MayEdit(int row, int col) override;
  std::optional<std::string> Accept(int row, int col, std::string_view text) override;
  void Edited(int row, int col) override;
  void Opened(int row) override;

 private:
  Ledger& ledger_;
  std::span<const Option> options_;
};

// ID, NAME and COLOR, a row for each category.
class CategoryGrid : public GridRules {
 public:
  explicit CategoryGrid(Ledger& ledger);
  Grid grid{"fgEventColours"};

  // The categories that come with the program get their colours back; the user's own keep theirs.
  void SetDefaultColours();
  // Leaves the option alone where nothing was changed.
  void Store() const;
  void Pressed(int row, int col);
  // A new row, whose name is about to be typed.
  int Add();
  // Asks; a standard category, or one of an event, stays.
  void Delete(int row);

  bool MayEdit(int, int) override { return true; }
  std::optional<std::string> Accept(int row, int col, std::string_view text) override;
  void Edited(int row, int col) override;
  void Opened(int row) override;
  void DeletePressed(int row) override { Delete(row); }

 private:
  std::vector<EventCategory> Categories() const;
  int NextCode() const;
  void AddRow(const EventCategory& category);

  Ledger& ledger_;
  std::string before_;
};

// SESS_TYPE and RATE in pounds an hour, a row for each session type.
class DefaultRatesGrid : public GridRules {
 public:
  explicit DefaultRatesGrid(Ledger& ledger);
  Grid grid{"fgDefaultRates"};
  void Store() const;

  bool MayEdit(int row, int col) override;
  std::optional<std::string> Accept(int row, int col, std::string_view text) override;

 private:
  Ledger& ledger_;
};

}  // namespace lm
