// The Calendar page: five views of the sessions and events, a tab for each. The view in front is
// filled anew when it is shown, moved, or when records change; the others cost nothing.
#pragma once

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "calendar/views.h"
#include "shell/pages/mainpage.h"

namespace lm {

class CalendarPage : public MainPage {
 public:
  explicit CalendarPage(frmMain& window);
  ~CalendarPage() override;

  TabField tabCalendar{&window, "tabCalendar", {"Week", "Detail", "Month", "Planner", "Year"}};
  LabelField lblCalendarPeriod{&window, "lblCalendarPeriod"};
  Button cmdMonthDown{&window, "cmdMonthDown"};
  Button cmdGoToToday{&window, "cmdGoToToday"};
  Button cmdMonthUp{&window, "cmdMonthUp"};
  Button cmdShowHideWeekends{&window, "cmdShowHideWeekends"};
  Button cmdShowHideEmptyRows{&window, "cmdShowHideEmptyRows"};
  // What the pointer rests on; the picture's visibility is that of the whole.
  LabelField picCalendarToolTip{&window, "picCalendarToolTip"};
  LabelField lblCalendarTooltipTitle{&window, "lblCalendarTooltipTitle"};
  LabelField txtCalendarTooltipDetails{&window, "txtCalendarTooltipDetails"};
  LabelField imgCalendarTooltip{&window, "imgCalendarTooltip"};

  Grid fgWeek{"fgWeek"}, fgTimeTable{"fgTimeTable"}, fgMonth{"fgMonth"}, fgPlanner{"fgPlanner"},
      fgYear{"fgYear"};
  const std::array<Grid*, 5> views{&fgWeek, &fgTimeTable, &fgMonth, &fgPlanner, &fgYear};

  const CalendarPeriod& Period() const { return period_; }
  CalendarView View() const { return static_cast<CalendarView>(tabCalendar.Selected()); }

  // The colours of the sessions with what they stand for.
  struct LegendEntry {
    Colour colour;
    std::string_view caption;
  };
  std::vector<LegendEntry> Legend() const;

  bool Shows(const Grid& grid) const override;
  Grid* GridInFront() const override;
  void BringToFront(const Grid& grid) override;
  std::string Title() const override;
  std::string_view MenuOf(const Grid& grid) const override;
  void CellClicked(Grid& grid, int row, int col) override;
  void DataLoaded() override;

 protected:
  void Rebuild() override;

 private:
  class Rules;

  void AddButtons();
  void AddCommands();
  void AddMenu();
  void ShowView(CalendarView view);
  void Move(int direction);
  void GoTo(Date day);
  void ToggleWeekends();
  void HideToolTip();

  // The cell under the cursor of the view in front, and what stands there.
  CellPlace Cell() const;
  std::string Tag() const;
  TaggedRecord Record() const;  // the first; of the kind 0 where there is none
  bool IsOn(char kind) const { return Record().kind == kind; }

  void Add();
  void AddEvent();
  void Open();
  void Edit();
  void Delete();
  void Copy();
  void Invoice(bool (*change)(Ledger& ledger, const std::string& id));

  CalendarRecords records_{ledger};
  CalendarPeriod period_;
  std::vector<std::unique_ptr<Rules>> rules_;  // in the order of the tabs
};

}  // namespace lm
