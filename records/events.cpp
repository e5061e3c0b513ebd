#include "records/events.h"

#include "core/change.h"
#include "core/dates.h"
#include "core/format.h"
#include "core/messagebox.h"
#include "core/rows.h"

namespace lm {

bool EndsBeforeItStarts(std::string_view startDate, std::string_view endDate) {
  const auto start = CellDate(startDate), end = CellDate(endDate);
  return start && end && *end < *start;
}

bool AskDeleteEvent(Ledger& ledger, const std::string& title, std::string_view startDate,
                    std::string_view endDate) {
  std::string days = DayText(startDate);
  const std::string end = DayText(endDate);
  if (!days.empty() && !end.empty() && end != days) days += " to " + end;
  return Ask(ledger, "Delete event '" + title + "'?", days);
}

bool DeleteEventOfRow(Ledger& ledger, int row) {
  Grid& events = ledger.fgEvents;
  if (row < events.FixedRows()) {
    ShowMessage(ledger, "Delete Event", "There is no event selected to delete.");
    return false;
  }
  if (!IsRecord(events, row)) {
    ShowMessage(ledger, "Delete Event", "Select an ungrouped row.");
    return false;
  }
  if (!AskDeleteEvent(ledger, events.TextMatrix(row, "TITLE"), events.TextMatrix(row, "SDATE"),
                      events.TextMatrix(row, "EDATE")))
    return false;
  const Change change(ledger, "Delete Event");
  events.RemoveItem(row);
  return true;
}

}  // namespace lm
