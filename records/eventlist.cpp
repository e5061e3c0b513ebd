#include "records/eventlist.h"

#include "core/messagebox.h"
#include "core/rows.h"
#include "core/text.h"
#include "entry/checks.h"
#include "records/events.h"
#include "records/sessionrules.h"
#include "records/windows.h"

namespace lm {

bool EventListRules::MayEdit(int row, int col) {
  const std::string& key = ledger_.fgEvents.ColKey(col);
  return IsRecord(ledger_.fgEvents, row) && !key.empty() && key != "ID";
}

Picker EventListRules::PickerOf(int /*row*/, int col) {
  const std::string& key = ledger_.fgEvents.ColKey(col);
  return key == "SDATE" || key == "EDATE" ? Picker::Calendar : Picker::None;
}

// As the window has it.
std::optional<std::string> EventListRules::AcceptDate(int row, std::string_view key,
                                                      std::string_view text) {
  const bool isStart = key == "SDATE";
  const auto date = EnterDate(ledger_, text, isStart ? kInvalidStartDate : kInvalidEndDate);
  if (!date) return std::nullopt;
  const Grid& events = ledger_.fgEvents;
  std::string_view wrong;
  if (isStart && date->empty())
    wrong = kEventNeedsStart;
  else if (EndsBeforeItStarts(isStart ? *date : events.TextMatrix(row, "SDATE"),
                              isStart ? events.TextMatrix(row, "EDATE") : *date))
    wrong = kEventEndsEarly;
  if (wrong.empty()) return date;
  ShowMessage(ledger_, wrong);
  return std::nullopt;
}

std::optional<std::string> EventListRules::Accept(int row, int col, std::string_view text) {
  const std::string& key = ledger_.fgEvents.ColKey(col);
  if (key == "SDATE" || key == "EDATE") return AcceptDate(row, key, text);
  if (key != "TITLE" || !Trim(text).empty()) return std::string(text);
  ShowMessage(ledger_, kEventNeedsTitle);
  return std::nullopt;
}

void EventListRules::Edited(int row, int /*col*/) { MarkEdited(ledger_, ledger_.fgEvents, row); }

void EventListRules::Opened(int row) { OpenEvent(ledger_, ledger_.fgEvents.TextMatrix(row, "ID")); }

void EventListRules::AddPressed() { NewEvent(ledger_); }

void EventListRules::DeletePressed(int row) { DeleteEventOfRow(ledger_, row); }

}  // namespace lm
