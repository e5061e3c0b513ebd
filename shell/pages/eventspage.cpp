#include "shell/pages/eventspage.h"

#include <cmath>

#include "core/dates.h"
#include "core/platform.h"

namespace lm {
namespace {

constexpr PageSpec kSpec{Page::Events, "Events", "events", "mnuVewEvents", "cmdEventPage"};

constexpr RecordList::Texts kTexts{
    "Events", "No events here. Add a holiday or a course with the green plus."};

enum EventTab { kAll, kUpcoming, kPast };

}  // namespace

EventsPage::EventsPage(frmMain& theWindow)
    : MainPage(theWindow, kSpec), list_(AddList(ledger.fgEvents, kTexts, &rules_)) {
  list_.FilterBy(tabEvents, [this](int tab) { return ShownOn(tab); });
  SetTabs(tabEvents);
  SetFilter(txtFilterEvents);
  AddButtons();
  AddCommands();
  AddListTips([this] { return ledger.fgEvents.HasData(); });
}

void EventsPage::AddButtons() {
  AddButton({&cmdAddEvent, "plus", "frmEvent"}, "Add Event", [this] { rules_.AddPressed(); });
  AddButton({&cmdEditEvent, "edit", "frmEvent"}, "Edit Event", [this] {
    const int row = list_.SelectedRecord("Edit Event", "There is no event selected to edit.");
    if (row >= 0) rules_.Opened(row);
  });
  AddButton({&cmdDeleteEvent, "delete"}, "Delete Event", [this] { DeleteSelected(list_); });
  SetItemButtons(cmdAddEvent, cmdEditEvent, cmdDeleteEvent);
}

void EventsPage::AddCommands() {
  FromEverywhere("mnuEvent", Pressing(cmdAddEvent));
  OnCommand("mnuPopAddEvent", Pressing(cmdAddEvent));
  OnCommand("mnuPopEditEvent", Pressing(cmdEditEvent));
  OnCommand("mnuPopDeleteEvent", Pressing(cmdDeleteEvent));
  SetListMenu("mnuPopEvents");
  OfferEntry("mnuPopAddEvent");
  for (const char* entry : {"mnuPopEditEvent", "mnuPopDeleteEvent"})
    OfferEntry(entry, [this] { return EnabledIf(list_.OnRecord()); });
}

// An event whose dates are damaged is on every tab, so that it can be found and mended.
RowTest EventsPage::ShownOn(int tab) const {
  if (tab == kAll) return [](int) { return true; };
  const Grid& events = ledger.fgEvents;
  return [&events, tab, start = events.ColIndex("SDATE"), end = events.ColIndex("EDATE"),
          today = std::floor(ledger.platform.clock.Now())](int row) {
    auto last = CellDate(events.TextMatrix(row, end));
    if (!last) last = CellDate(events.TextMatrix(row, start));
    return !last || (*last >= today) == (tab == kUpcoming);
  };
}

}  // namespace lm
