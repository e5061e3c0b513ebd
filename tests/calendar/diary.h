// A ledger with practices for the tests of the calendars, and what a view shows.
#pragma once

#include <gtest/gtest.h>

#include <set>

#include "calendar/views.h"
#include "core/options.h"
#include "core/text.h"
#include "tests/support/scripted_platform.h"

namespace lm::test {

// Today is Tuesday, 3 February 2026.
struct Diary : testing::Test {
  TestLedger test;
  Ledger& ledger = test.ledger;
  CalendarRecords records{ledger};
  CalendarPeriod period;
  Grid grid{"view"};

  Diary() {
    period.GoTo(test.shown.now);
    test.AddRow(ledger.fgPractices, {"ID=1", "NAME=Abbey"});
    test.AddRow(ledger.fgPractices, {"ID=2", "NAME=Moor"});
  }
  int Session(const std::string& id, const std::string& date, const std::string& start = "",
              const std::string& end = "", const std::vector<std::string>& more = {}) {
    std::vector<std::string> cells{"ID=" + id,     "SDATE=" + date, "STIME=" + start,
                                   "ETIME=" + end, "PRACTICE=1",    "SESS_TYPE=1"};
    cells.insert(cells.end(), more.begin(), more.end());
    return test.AddRow(ledger.fgSessions, cells);
  }
  int Event(const std::string& id, const std::string& title, const std::string& from,
            const std::string& to = "", const std::string& category = "-2") {
    return test.AddRow(ledger.fgEvents, {"ID=" + id, "TITLE=" + title, "SDATE=" + from,
                                         "EDATE=" + to, "CATEGORY=" + category});
  }
  void Fill(CalendarView view) { FillCalendar(view, records, period, grid); }

  std::string Text(int row, int col) const { return grid.TextMatrix(row, col); }
  std::string Tag(int row, int col) const { return TagAt(grid, row, col); }
  Colour Back(int row, int col) const {
    return grid.CellColour(CellSetting::flexcpBackColor, row, col);
  }
  Colour Of(int option) const { return OptionColour(ledger, option); }
  // The rows of a column, or the columns of a row, whose cells bear the tag: "3-5 7".
  std::string RowsWith(int col, std::string_view tag) const {
    return Ranges([&](int row) { return row < grid.Rows() && Tag(row, col) == tag; });
  }
  std::string ColsWith(int row, std::string_view tag) const {
    return Ranges([&](int col) { return col < grid.Cols() && Tag(row, col) == tag; });
  }

 private:
  template <typename Fits>
  static std::string Ranges(Fits fits) {
    std::string ranges;
    for (int i = 0; i < 200; ++i) {
      if (!fits(i)) continue;
      const int first = i;
      while (fits(i + 1)) ++i;
      ranges += (ranges.empty() ? "" : " ") + std::to_string(first) +
                (i > first ? "-" + std::to_string(i) : "");
    }
    return ranges;
  }
};

}  // namespace lm::test
