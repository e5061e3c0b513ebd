#include "records/practicelist.h"

#include "core/formatting.h"
#include "core/messagebox.h"
#include "core/rows.h"
#include "entry/checks.h"
#include "records/practices.h"
#include "records/windows.h"

namespace lm {

std::string PracticeListRules::IdOf(int row) const {
  return ledger_.fgPractices.TextMatrix(row, "ID");
}

bool PracticeListRules::MayEdit(int row, int col) {
  const std::string& key = ledger_.fgPractices.ColKey(col);
  if (key.empty() || key == "ID" || ledger_.fgPractices.IsSubtotal(row)) return false;
  if (key == "GPNET_MATCH")
    ShowMessage(ledger_,
                "This column contains the practice name and address from GPnetworks, and is "
                "required to ensure sessions imported from there are matched to the correct "
                "practice in LedgerMinder.",
                "To cancel this edit close this message box then press the Escape key.");
  return true;
}

std::string PracticeListRules::EditList(const Grid& grid, int row, int col) {
  if (grid.ColKey(col) != "BRANCHOF") return GridRules::EditList(grid, row, col);
  return "| " + PracticeList(ledger_);  // the blank first, so that the link can be cleared
}

Picker PracticeListRules::PickerOf(int /*row*/, int col) {
  return IsRateColumn(ledger_.fgPractices.ColKey(col)) ? Picker::Numbers : Picker::None;
}

std::optional<std::string> PracticeListRules::Accept(int row, int col, std::string_view text) {
  const std::string& key = ledger_.fgPractices.ColKey(col);
  if (key == "NAME" && text.find_first_of("><*|.") != std::string_view::npos) {
    ShowMessage(ledger_, "Some characters not allowed in Practice name.");
    return std::nullopt;
  }
  if (key == "BRANCHOF" && !text.empty() &&
      PracticeName(ledger_, text) == PracticeName(ledger_, IdOf(row))) {
    ShowMessage(ledger_, "A Practice cannot be a Branch Surgery of itself.");
    return std::nullopt;
  }
  if (key == "MILEAGE") return MileageText(text);
  if (IsRateColumn(key)) return EnterAmount(ledger_, text, "");
  return std::string(text);
}

void PracticeListRules::Edited(int row, int /*col*/) {
  MarkEdited(ledger_, ledger_.fgPractices, row);
}

void PracticeListRules::Opened(int row) { OpenPractice(ledger_, IdOf(row)); }

void PracticeListRules::AddPressed() { NewPractice(ledger_); }

void PracticeListRules::DeletePressed(int row) { DeletePractice(ledger_, IdOf(row)); }

}  // namespace lm
