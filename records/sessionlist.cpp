#include "records/sessionlist.h"

#include <algorithm>
#include <array>

#include "core/dates.h"
#include "core/messagebox.h"
#include "core/platform.h"
#include "core/rows.h"
#include "entry/checks.h"
#include "records/sessionlock.h"
#include "records/sessionrules.h"
#include "records/windows.h"

namespace lm {
namespace {

// Written by other windows, by the rules or by form creation, never by hand.
constexpr std::array<std::string_view, 7> kNeverEdited{
    "ID", "INVOICE", "EXTRAS", "TOTAL", "FORMS", "EXPENSES", "EMPLOYERCONTRIB"};

struct TimeColumn {
  std::string_view key;
  Picker picker;
  std::string_view message;
};

constexpr TimeColumn kTimeColumns[] = {{"SDATE", Picker::Calendar, kInvalidStartDate},
                                       {"EDATE", Picker::Calendar, kInvalidEndDate},
                                       {"STIME", Picker::Clock, kInvalidStartTime},
                                       {"ETIME", Picker::Clock, kInvalidEndTime}};

const TimeColumn* FindTimeColumn(std::string_view key) {
  for (const TimeColumn& column : kTimeColumns)
    if (column.key == key) return &column;
  return nullptr;
}

bool IsNote(std::string_view key) { return key == "NOTES" || key == "PUBLICNOTE"; }

}  // namespace

bool SessionListRules::IsSession(int row) const { return IsRecord(ledger_.fgSessions, row); }

// "" for what is no session, and after its message for a damaged one.
std::string SessionListRules::IdToOpen(int row) const {
  const std::string id = IsSession(row) ? ledger_.fgSessions.TextMatrix(row, "ID") : "";
  if (IsSession(row) && id.empty())
    ShowMessage(ledger_, "This session is damaged",
                "Its row has no ID, by which a session is opened and copied. It can be deleted.");
  return id;
}

bool SessionListRules::MayEdit(int row, int col) {
  const std::string& key = ledger_.fgSessions.ColKey(col);
  if (key.empty() || !IsSession(row)) return false;
  if (std::find(kNeverEdited.begin(), kNeverEdited.end(), key) != kNeverEdited.end()) return false;
  return IsNote(key) || !IsSessionLocked(ledger_, row);
}

Picker SessionListRules::PickerOf(int /*row*/, int col) {
  const std::string& key = ledger_.fgSessions.ColKey(col);
  if (const TimeColumn* column = FindTimeColumn(key)) return column->picker;
  return key == "RATE" ? Picker::Numbers : Picker::None;
}

std::optional<std::string> SessionListRules::Accept(int /*row*/, int col, std::string_view typed) {
  const std::string& key = ledger_.fgSessions.ColKey(col);
  if (const TimeColumn* column = FindTimeColumn(key))
    return column->picker == Picker::Calendar ? EnterDate(ledger_, typed, column->message)
                                              : EnterTime(ledger_, typed, column->message);
  if (key != "RATE") return std::string(typed);

  const auto amount = EnterAmount(ledger_, typed, kInvalidRate);
  return amount && amount->empty() ? "0" : amount;
}

void SessionListRules::Edited(int row, int col) {
  const std::string& key = ledger_.fgSessions.ColKey(col);
  const bool timed = FindTimeColumn(key) != nullptr;
  if (timed) GridFeeFromTimes(ledger_, row);
  if (timed || key == "RATE" || key == "SESS_TYPE") GridRecalculation(ledger_, row);
  MarkEdited(ledger_, ledger_.fgSessions, row);
}

std::string SessionListRules::LockedBy(int row) { return SessionLockText(ledger_, row); }

void SessionListRules::LockPressed(int row) { OpenSessionLock(ledger_, row); }

void SessionListRules::Opened(int row) {
  if (const std::string id = IdToOpen(row); !id.empty()) OpenSession(ledger_, id);
}

void SessionListRules::CopyPressed(int row) {
  if (const std::string id = IdToOpen(row); !id.empty()) CopySession(ledger_, id);
}

void SessionListRules::AddPressed() { NewSession(ledger_, CellText(ledger_.platform.clock.Now())); }

void SessionListRules::DeletePressed(int row) {
  if (IsSession(row))
    DeleteSessionOfRow(ledger_, row);
  else
    ShowMessage(ledger_, "Delete Session", "There is no session selected to delete.");
}

}  // namespace lm
