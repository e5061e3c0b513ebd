#include "records/frmEvent.h"

#include <algorithm>

#include "core/change.h"
#include "core/dates.h"
#include "core/eventcategories.h"
#include "core/messagebox.h"
#include "core/numbers.h"
#include "core/platform.h"
#include "core/rows.h"
#include "core/text.h"
#include "entry/checks.h"
#include "entry/pickedboxes.h"
#include "records/events.h"
#include "records/sessionrules.h"

namespace lm {

frmEvent::frmEvent(Ledger& theLedger) : Screen(theLedger, "frmEvent", "Event") {
  cID.SetVisible(false);
  cNotes.multiLine = true;
  std::vector<ComboItem> categories;
  for (const EventCategory& category : EventCategories(ledger))
    categories.push_back({category.name, std::to_string(category.code)});
  cCategory.SetItems(std::move(categories));
  BindDate({cSDate, cmdSDate, "Start Date", kInvalidStartDate});
  BindDate({cEDate, cmdEDate, "End Date", kInvalidEndDate});
  cmdDelete.onPressed = [this] { Delete(); };
  cmdOk.onPressed = [this] { Ok(); };
  cmdCancel.onPressed = [this] { Close(); };
  defaultButton = &cmdOk;
  cancelButton = &cmdCancel;
  holds = "this event";
}

Field* frmEvent::FieldOf(int col) const {
  const std::string& key = ledger.fgEvents.ColKey(col);
  return key.empty() || key == "CATEGORY" ? nullptr : FindField("c" + key);
}

void frmEvent::New(std::string_view date) {
  SetCaption("New Event");
  cTitle.SetText("[New Event]");
  cSDate.SetText(date.empty() ? CellText(ledger.platform.clock.Now()) : date);
  cEDate.SetText(cSDate.Text());
  cCategory.SetSelected(cCategory.Count() > 0 ? 0 : -1);
  Focus(cTitle);
}

bool frmEvent::Open(std::string_view id) {
  const Grid& events = ledger.fgEvents;
  const int row = RecordRow(events, id);
  if (row < 0) return false;
  for (int col = 0; col < events.Cols(); ++col)
    if (Field* field = FieldOf(col)) field->SetText(events.TextMatrix(row, col));
  storedCategory_ = events.TextMatrix(row, "CATEGORY");
  cCategory.SelectData(storedCategory_);
  return true;
}

std::string_view frmEvent::WhatIsWrong() const {
  if (Trim(cTitle.Text()).empty()) return kEventNeedsTitle;
  if (cSDate.Text().empty()) return kEventNeedsStart;
  return EndsBeforeItStarts(cSDate.Text(), cEDate.Text()) ? kEventEndsEarly : "";
}

void frmEvent::Ok() {
  if (const std::string_view wrong = WhatIsWrong(); !wrong.empty()) {
    ShowMessage(ledger, wrong);
    return;
  }
  Grid& events = ledger.fgEvents;
  int row = RecordRow(events, cID.Text());
  const Change change(ledger, row < 0 ? "New Event" : "Edit Event");
  if (row < 0) {
    cID.SetText(PlainText(NextId(events)));
    row = AddRecord(ledger, events);
  }
  for (int col = 0; col < events.Cols(); ++col)
    if (const Field* field = FieldOf(col)) events.SetTextMatrix(row, col, field->Text());
  events.SetTextMatrix(row, "CATEGORY",
                       cCategory.Selected() < 0 ? storedCategory_ : cCategory.ItemData());
  MarkEdited(ledger, events, row);
  events.Select(row, std::max(events.Col(), events.FixedCols()));
  Close();
}

// A new event is in no table yet: there is only the window to close.
void frmEvent::Delete() {
  const bool gone = cID.Text().empty()
                        ? AskDeleteEvent(ledger, cTitle.Text(), cSDate.Text(), cEDate.Text())
                        : DeleteEventOfRow(ledger, RecordRow(ledger.fgEvents, cID.Text()));
  if (gone) Close();
}

}  // namespace lm
