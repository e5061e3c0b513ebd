// The list of general expenses: what may be typed into its cells, and what its rows do.
#pragma once

#include "core/screen.h"

namespace lm {

class ExpenseListRules : public GridRules {
 public:
  explicit ExpenseListRules(Ledger& ledger) : ledger_(ledger) {}

  bool MayEdit(int row, int col) override;
  Picker PickerOf(int row, int col) override;
  std::optional<std::string> Accept(int row, int col, std::string_view text) override;
  void Edited(int row, int col) override;
  void AddPressed() override;
  void DeletePressed(int row) override;

 private:
  Ledger& ledger_;
};

}  // namespace lm
