#include "records/practices.h"

#include <algorithm>

#include "core/change.h"
#include "core/messagebox.h"
#include "core/numbers.h"
#include "core/rows.h"
#include "core/sessiontypes.h"
#include "core/text.h"

namespace lm {
namespace {

bool RefersTo(const Grid& table, std::string_view practiceId) {
  return FindRecord(table, "PRACTICE", practiceId) >= 0;
}

}  // namespace

std::string PracticeCell(const Ledger& ledger, std::string_view id, std::string_view key) {
  return ledger.fgPractices.TextMatrix(RecordRow(ledger.fgPractices, id), key);
}

std::string PracticeName(const Ledger& ledger, std::string_view id) {
  return PracticeCell(ledger, id, "NAME");
}

std::string NameForFile(std::string_view name) { return RemoveAny(name, ":/\\?*<>\"|"); }

bool IsRateColumn(std::string_view key) {
  return std::ranges::find(kSessionTypes, key, &SessionType::rateColumn) != kSessionTypes.end();
}

std::optional<std::string> MileageText(std::string_view typed) {
  const std::string_view text = Trim(typed);
  if (text.empty()) return "";
  if (!IsNumeric(text)) return std::nullopt;
  const Double miles = NumericValue(text);
  return Val(text) == miles ? std::string(text) : PlainText(miles);
}

bool DeletePractice(Ledger& ledger, std::string_view id) {
  const int row = RecordRow(ledger.fgPractices, id);
  if (row < 0) {
    ShowMessage(ledger, "Delete Practice", "There is no practice selected to delete.");
    return false;
  }
  if (RefersTo(ledger.fgSessions, id)) {
    ShowMessage(ledger, "A Practice cannot be deleted while it has associated sessions.");
    return false;
  }
  if (RefersTo(ledger.fgPensionPayments, id)) {
    ShowMessage(ledger, "A Practice cannot be deleted while it has associated pension payments.");
    return false;
  }
  if (!Ask(ledger, "Delete Practice '" + ledger.fgPractices.TextMatrix(row, "NAME") + "'?"))
    return false;
  const Change change(ledger, "Delete Practice");
  ledger.fgPractices.RemoveItem(row);
  return true;
}

}  // namespace lm
