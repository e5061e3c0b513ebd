// The list of events: what may be typed into its cells, and what its rows do.
#pragma once

#include "core/screen.h"

namespace lm {

class EventListRules : public GridRules {
 public:
  explicit EventListRules(Ledger& ledger) : ledger_(ledger) {}

  bool MayEdit(int row, int col) override;
  Picker PickerOf(int row, int col) override;
  std::optional<std::string> Accept(int row, int col, std::string_view text) override;
  void Edited(int row, int col) override;
  void Opened(int row) override;
  void AddPressed() override;
  void DeletePressed(int row) override;

 private:
  std::optional<std::string> AcceptDate(int row, std::string_view key, std::string_view text);

  Ledger& ledger_;
};

}  // namespace lm
