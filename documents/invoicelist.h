// The list of invoices: which of its cells may be typed into, and what its rows do.
#pragma once

#include "core/screen.h"

namespace lm {

class InvoiceListRules : public GridRules {
 public:
  explicit InvoiceListRules(Ledger& ledger) : ledger_(ledger) {}

  bool MayEdit(int row, int col) override;
  Picker PickerOf(int row, int col) override;
  std::optional<std::string> Accept(int row, int col, std::string_view text) override;
  void Edited(int row, int col) override;
  std::string LockedBy(int row) override;
  void LockPressed(int row) override { Opened(row); }
  void Opened(int row) override;
  void AddPressed() override;
  void DeletePressed(int row) override;

 private:
  bool IsInvoice(int row) const;

  Ledger& ledger_;
};

}  // namespace lm
