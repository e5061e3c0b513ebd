#include "shell/pages/calendarpage.h"

#include <algorithm>
#include <cmath>

#include "calendar/move.h"
#include "calendar/tooltip.h"
#include "core/options.h"
#include "core/optiontable.h"
#include "core/platform.h"
#include "core/rows.h"
#include "documents/invoices.h"
#include "records/events.h"
#include "records/sessionrules.h"
#include "records/windows.h"

namespace lm {
namespace {

constexpr PageSpec kSpec{Page::Calendar, "Calendar", "calendar", "mnuViewCalendar", ""};

constexpr std::pair<std::string_view, CalendarView> kViewCommands[] = {
    {"mnuViewWeek", CalendarView::Week},   {"mnuViewTimeTable", CalendarView::Detail},
    {"mnuViewMonth", CalendarView::Month}, {"mnuViewPlanner", CalendarView::Planner},
    {"mnuViewYear", CalendarView::Year},
};

constexpr Option kTypeColours[] = {optColourSessNormal, optColourSessOOH, optColourSessUnpensioned,
                                   optColourSessPrivate};
constexpr Option kStatusColours[] = {optColourUninvoiced, optColourInvoicedUnpaid,
                                     optColourInvoicedPaid};

}  // namespace

// What the pointer does on a view.
class CalendarPage::Rules : public GridRules {
 public:
  Rules(CalendarPage& page, CalendarView view, Grid& grid)
      : page_(page), view_(view), grid_(grid) {}

  void Opened(int) override { page_.Open(); }
  void AddPressed() override { page_.Add(); }
  void DeletePressed(int) override { page_.Delete(); }

  bool MayDrag(int row, int col) override {
    const std::string id = SessionAt(row, col);
    if (id.empty()) return false;
    const std::string why = WhyNotMoved(page_.ledger, id);
    page_.window.lblStatus.SetText(why);
    return why.empty();
  }

  // In Planner the practice stays too: only the column counts.
  void Dropped(int row, int col, int toRow, int toCol) override {
    page_.HideToolTip();
    const auto day = toRow < grid_.FixedRows()
                         ? std::nullopt
                         : DayOfCell(view_, page_.period_, grid_, {toRow, toCol});
    const std::string id = SessionAt(row, col);
    if (day && !id.empty())
      MoveSession(page_.ledger, id, *day, TimeOfCell(view_, grid_, {toRow, toCol}));
  }

  void Hovered(int row, int col) override {
    const std::string tag = TagAt(grid_, row, col);
    const auto day = DayOfCell(view_, page_.period_, grid_, {row, col});
    if (tag.empty() || !day || !OptionIsTrue(page_.ledger, optShowCalendarTips))
      return page_.HideToolTip();
    const CalendarTip tip = TipOf(page_.ledger, *day, tag);
    page_.lblCalendarTooltipTitle.SetText(tip.title);
    page_.txtCalendarTooltipDetails.SetText(tip.details);
    page_.picCalendarToolTip.SetVisible(true);
    page_.imgCalendarTooltip.SetVisible(true);
  }

 private:
  // The first of several; "" for a cell of an event, or of records that had no room.
  std::string SessionAt(int row, int col) const {
    const std::string tag = TagAt(grid_, row, col);
    return KindOf(tag) == 'S' ? RecordsOf(tag).front().id : "";
  }

  CalendarPage& page_;
  CalendarView view_;
  Grid& grid_;
};

CalendarPage::CalendarPage(frmMain& theWindow) : MainPage(theWindow, kSpec) {
  for (std::size_t i = 0; i < views.size(); ++i) {
    rules_.push_back(std::make_unique<Rules>(*this, static_cast<CalendarView>(i), *views[i]));
    window.ShowGrid(*views[i], rules_.back().get());
  }
  period_.GoTo(ledger.platform.clock.Now());
  tabCalendar.onEntered = [this] {
    if (!ledger.starting) ShowView(View());
    return true;
  };
  SetTabs(tabCalendar);
  AddButtons();
  AddCommands();
  AddMenu();
  AddTip({"Calendars",
          "The calendars show your sessions and events by week, in detail, by month, as a planner "
          "and by year. Choose the view with the tabs.\\n\\nDouble click a day to add a session "
          "there, and drag a session to move it."});
  HideToolTip();
}

CalendarPage::~CalendarPage() = default;

// ---- Views

bool CalendarPage::Shows(const Grid& grid) const {
  return std::ranges::find(views, &grid) != views.end();
}

Grid* CalendarPage::GridInFront() const { return views[static_cast<std::size_t>(View())]; }

void CalendarPage::BringToFront(const Grid& grid) {
  const auto view = std::ranges::find(views, &grid);
  if (view != views.end() && *view != GridInFront())
    ShowView(static_cast<CalendarView>(view - views.begin()));
}

std::string CalendarPage::Title() const {
  return "LedgerMinder Calendar " + PeriodLabel(View(), period_);
}

std::string_view CalendarPage::MenuOf(const Grid& grid) const {
  return Shows(grid) ? "mnuPopCalendar" : "";
}

void CalendarPage::DataLoaded() { HideToolTip(); }

void CalendarPage::Rebuild() {
  Grid& grid = *GridInFront();
  FillCalendar(View(), records_, period_, grid);
  if (grid.Row() < 0) {  // the arrow keys begin at today
    const CellPlace today =
        CellOfDay(View(), period_, grid, std::floor(ledger.platform.clock.Now()));
    if (today.row >= 0) grid.Select(today.row, today.col);
  }
  lblCalendarPeriod.SetText(PeriodLabel(View(), period_));
  cmdShowHideWeekends.SetText(period_.showWeekends ? "Hide Weekends" : "Show Weekends");
  cmdShowHideEmptyRows.SetText(period_.showEmptyRows ? "Hide Empty Rows" : "Show Empty Rows");
  cmdShowHideEmptyRows.SetVisible(View() == CalendarView::Planner);
  cmdShowHideWeekends.SetVisible(View() == CalendarView::Week || View() == CalendarView::Month);
  HideToolTip();
}

void CalendarPage::ShowView(CalendarView view) {
  tabCalendar.SetSelected(static_cast<int>(view));
  if (!InFront()) return window.ShowPage(Page::Calendar);
  Rebuild();
  window.RefreshCommands();
  window.LayOut();
}

void CalendarPage::Move(int direction) {
  period_.Move(View(), direction);
  Rebuild();
}

void CalendarPage::GoTo(Date day) { period_.GoTo(day); }

void CalendarPage::ToggleWeekends() {
  period_.showWeekends = !period_.showWeekends;
  if (InFront()) Rebuild();
}

void CalendarPage::HideToolTip() {
  picCalendarToolTip.SetVisible(false);
  imgCalendarTooltip.SetVisible(false);
}

std::vector<CalendarPage::LegendEntry> CalendarPage::Legend() const {
  std::vector<LegendEntry> entries;
  const bool byType = GetOption(ledger, optCalendarColouredBy) == "SESS_TYPE";
  for (const Option option :
       byType ? std::span<const Option>(kTypeColours) : std::span<const Option>(kStatusColours))
    entries.push_back({OptionColour(ledger, option), FindOption(option)->caption});
  return entries;
}

// A click on a day of Year leads to its month.
void CalendarPage::CellClicked(Grid& grid, int row, int col) {
  HideToolTip();
  if (&grid != &fgYear) return;
  const auto day = DayOfCell(CalendarView::Year, period_, grid, {row, col});
  if (!day) return;
  GoTo(*day);
  ShowView(CalendarView::Month);
}

// ---- Buttons and commands

void CalendarPage::AddButtons() {
  AddButton({&cmdMonthDown, "left"}, "Back", [this] { Move(-1); });
  AddButton({&cmdGoToToday, "calendar"}, "Today", [this] {
    GoTo(ledger.platform.clock.Now());
    Rebuild();
  });
  AddButton({&cmdMonthUp, "right"}, "Forward", [this] { Move(+1); });
  AddButton({&cmdShowHideWeekends, ""}, "Hide Weekends", [this] { ToggleWeekends(); });
  AddButton({&cmdShowHideEmptyRows, ""}, "Hide Empty Rows", [this] {
    period_.showEmptyRows = !period_.showEmptyRows;
    Rebuild();
  });
}

void CalendarPage::AddCommands() {
  for (const auto& [command, view] : kViewCommands)
    FromEverywhere(command, {[this, view = view] { ShowView(view); }});
  FromEverywhere("mnuGoToToday", {[this] {
                   GoTo(ledger.platform.clock.Now());
                   ShowView(View());
                 }});
  FromEverywhere("mnuViewWeekends",
                 {[this] { ToggleWeekends(); }, nullptr, [this] { return period_.showWeekends; }});
  OnCommand("mnuNextPeriod", {[this] { Move(+1); }});
  OnCommand("mnuLastPeriod", {[this] { Move(-1); }});
  OnCommand("mnuNewItem", {[this] { Add(); }});
  OnCommand("mnuEditItem", {[this] { Edit(); }});
  OnCommand("mnuDeleteItem", {[this] { Delete(); }});
}

void CalendarPage::AddMenu() {
  const auto offer = [this](std::string_view entry, std::function<void()> run,
                            std::function<bool()> shown) {
    OnCommand(entry, {std::move(run)});
    OfferEntry(entry,
               [shown = std::move(shown)] { return shown() ? Offer::Enabled : Offer::Hidden; });
  };
  const auto onSession = [this] { return IsOn('S'); };
  const auto onEvent = [this] { return IsOn('E'); };
  const auto always = [] { return true; };
  const auto invoiced = [this](bool wanted) {
    return [this, wanted] {
      const int row = IsOn('S') ? RecordRow(ledger.fgSessions, Record().id) : -1;
      return row >= 0 && !ledger.fgSessions.TextMatrix(row, "INVOICE").empty() == wanted;
    };
  };
  offer(
      "mnuPopEditSession", [this] { Edit(); }, onSession);
  offer(
      "mnuPopDeleteSession", [this] { Delete(); }, onSession);
  offer(
      "mnuPopCal_CopySession", [this] { Copy(); }, onSession);
  offer(
      "mnuPopCal_AddToInvoice", [this] { Invoice(AddSessionToInvoice); }, invoiced(false));
  offer(
      "mnuPopCal_RemoveFromInvoice", [this] { Invoice(RemoveSessionFromInvoice); }, invoiced(true));
  offer(
      "mnuPopEditEvent", [this] { Edit(); }, onEvent);
  offer(
      "mnuPopDeleteEvent", [this] { Delete(); }, onEvent);
  offer(
      "mnuPopAddSession", [this] { Add(); }, always);
  offer(
      "mnuPopAddEvent", [this] { AddEvent(); }, always);
  offer(
      "mnuPopCal_ConfigureCalendarView",
      [this] {
        window.OpenWindow("frmConfigure", {"FORMATTING", "CALENDARS"});
      },
      always);
}

// ---- Records

CellPlace CalendarPage::Cell() const { return {GridInFront()->Row(), GridInFront()->Col()}; }

std::string CalendarPage::Tag() const { return TagAt(*GridInFront(), Cell().row, Cell().col); }

// A day's last line, where records had no room, stands for none of them.
TaggedRecord CalendarPage::Record() const {
  const std::string tag = Tag();
  const auto records = RecordsOf(tag);
  return KindOf(tag) == 'Z' || records.empty() ? TaggedRecord{} : records.front();
}

void CalendarPage::Add() {
  const Grid& grid = *GridInFront();
  const auto day = DayOfCell(View(), period_, grid, Cell());
  NewSession(ledger, day ? CellText(*day) : "", TimeOfCell(View(), grid, Cell()),
             PracticeOfCell(View(), grid, Cell()));
}

void CalendarPage::AddEvent() {
  const auto day = DayOfCell(View(), period_, *GridInFront(), Cell());
  NewEvent(ledger, day ? CellText(*day) : "");
}

// A double click: what stands in the cell, all of the day where it had no room, or a new session.
void CalendarPage::Open() {
  HideToolTip();
  const auto day = DayOfCell(View(), period_, *GridInFront(), Cell());
  if (KindOf(Tag()) == 'Z' && day) {
    GoTo(*day);
    ShowView(CalendarView::Week);
  } else if (!Tag().empty()) {
    Edit();
  } else if (day && Cell().row >= GridInFront()->FixedRows()) {
    Add();
  }
}

void CalendarPage::Edit() {
  const TaggedRecord record = Record();
  if (record.kind == 'S') OpenSession(ledger, record.id);
  if (record.kind == 'E') OpenEvent(ledger, record.id);
}

void CalendarPage::Delete() {
  const TaggedRecord record = Record();
  if (record.kind == 'S') DeleteSession(ledger, record.id);
  if (record.kind == 'E') DeleteEventOfRow(ledger, RecordRow(ledger.fgEvents, record.id));
}

void CalendarPage::Copy() {
  if (IsOn('S')) CopySession(ledger, Record().id);
}

void CalendarPage::Invoice(bool (*change)(Ledger& ledger, const std::string& id)) {
  if (IsOn('S')) change(ledger, Record().id);
}

}  // namespace lm
