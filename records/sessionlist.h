// The list of sessions: which of its cells may be typed into, and what follows an edit.
#pragma once

#include "core/screen.h"

namespace lm {

class SessionListRules : public GridRules {
 public:
  explicit SessionListRules(Ledger& ledger) : ledger_(ledger) {}

  bool MayEdit(int row, int col) override;
  Picker PickerOf(int row, int col) override;
  std::optional<std::string> Accept(int row, int col, std::string_view text) override;
  void Edited(int row, int col) override;
  std::string LockedBy(int row) override;
  void LockPressed(int row) override;
  void Opened(int row) override;
  void AddPressed() override;
  void DeletePressed(int row) override;
  void CopyPressed(int row);

 private:
  bool IsSession(int row) const;
  std::string IdToOpen(int row) const;

  Ledger& ledger_;
};

}  // namespace lm
