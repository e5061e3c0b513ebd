#include "entry/pickers.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/text.h"
#include "entry/frmPopupCalendar.h"
#include "entry/frmPopupClock.h"
#include "entry/frmPopupNumbers.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

constexpr CellSetting kDate = CellSetting::flexcpData;
constexpr CellSetting kBack = CellSetting::flexcpBackColor;

class Window : public Screen {
 public:
  using Screen::Screen;
  TextField cText{this, "cText"};
};

class Pickers : public testing::Test {
 protected:
  test::TestLedger test;  // Tuesday 3 February 2026
  Window window{test.ledger, "frmWindow"};
  int written = 0;

  // What the field holds after a picker was opened on `text` and driven by `acts`.
  template <class Picking>
  std::string After(Picker kind, std::string_view text, const std::function<void(Picking&)>& acts) {
    test.shown.modal.push_back([&](Screen& screen) {
      EXPECT_EQ(screen.Caption(), "Start");
      acts(dynamic_cast<Picking&>(screen));
    });
    window.cText.SetText(text);
    OpenPicker(window, window.cText, kind, "Start", [this] { ++written; });
    return window.cText.Text();
  }
  std::string Calendar(std::string_view text, const std::function<void(frmPopupCalendar&)>& acts) {
    return After<frmPopupCalendar>(Picker::Calendar, text, acts);
  }
  std::string Clock(std::string_view text, const std::function<void(frmPopupClock&)>& acts) {
    return After<frmPopupClock>(Picker::Clock, text, acts);
  }
  std::string Numbers(std::string_view text, const std::function<void(frmPopupNumbers&)>& acts) {
    return After<frmPopupNumbers>(Picker::Numbers, text, acts);
  }
};

// The days shown, with their columns and dates, must be the month's own, in order.
void ExpectMonth(const frmPopupCalendar& calendar, int year, int month) {
  Date next = DateSerial(year, month, 1);
  for (int row = 1; row < calendar.fg.Rows(); ++row) {
    for (int col = 0; col < calendar.fg.Cols(); ++col) {
      const std::string date = calendar.fg.Cell(kDate, row, col);
      EXPECT_EQ(date.empty(), calendar.fg.TextMatrix(row, col).empty());
      if (date.empty()) continue;
      EXPECT_EQ(date, CellText(next));
      EXPECT_EQ(calendar.fg.TextMatrix(row, col), std::to_string(ToCivilDate(next).day));
      EXPECT_EQ(WeekdayMondayFirst(next), col + 1);
      next += 1;
    }
  }
  EXPECT_EQ(next, DateSerial(year, month + 1, 1));
}

TEST_F(Pickers, CalendarShowsTheMonthAndMarksToday) {
  Calendar("", [](frmPopupCalendar& shown) {
    EXPECT_EQ(shown.lblMonth.Text(), "February 2026");
    EXPECT_EQ(shown.fg.TextMatrix(0, 6), "Su");
    ExpectMonth(shown, 2026, 2);
    EXPECT_EQ(shown.fg.Cell(kDate, shown.fg.Row(), shown.fg.Col()), "03/02/2026");
    int marked = 0;
    for (int row = 1; row < shown.fg.Rows(); ++row) {
      for (int col = 0; col < shown.fg.Cols(); ++col) {
        if (shown.fg.CellColour(kBack, row, col) == kNoColour) continue;
        EXPECT_EQ(shown.fg.Cell(kDate, row, col), "03/02/2026");
        ++marked;
      }
    }
    EXPECT_EQ(marked, 1);
  });
  // A month of six weeks, a leap February, and the ends of the years that can be typed.
  const struct {
    std::string text;
    int year, month;
  } months[] = {{"31/08/2026", 2026, 8},  {"29/02/2024", 2024, 2}, {"01/01/1900", 1900, 1},
                {"31/12/2199", 2199, 12}, {"banana", 2026, 2},     {"31/02/2018", 2026, 2},
                {"31/12/9999", 2026, 2},  {"31/12/1899", 2026, 2}, {"\xFF", 2026, 2}};
  for (const auto& each : months) {
    Calendar(each.text,
             [&](frmPopupCalendar& shown) { ExpectMonth(shown, each.year, each.month); });
  }
  EXPECT_EQ(written, 0);
}

TEST_F(Pickers, CalendarWritesWhatIsChosenAndNothingElse) {
  EXPECT_EQ(Calendar("15/06/2017", [](auto& shown) { shown.Click(shown.fg, 1, 3); }), "01/06/2017");
  EXPECT_EQ(Calendar("tom", [](auto& shown) { shown.Press(shown.cmdToday); }), "03/02/2026");
  EXPECT_EQ(Calendar("15/06/2017", [](auto& shown) { shown.Press(shown.cmdClear); }), "");
  EXPECT_EQ(Calendar("", [](auto& shown) { shown.Press(shown.cmdClear); }), "");
  EXPECT_EQ(written, 4);

  EXPECT_EQ(Calendar("15/06/2017", [](auto& shown) { shown.CloseRequested(); }), "15/06/2017");
  const std::string unchanged = Calendar("15/06/2017", [](auto& shown) {
    shown.Click(shown.fg, 0, 3);  // the headings, a day of May, outside, a list not open
    shown.Click(shown.fg, 1, 0);
    shown.Click(shown.fg, 99, -1);
    shown.Click(shown.fgMonths, 0, 0);
    EXPECT_FALSE(shown.Closed());
    ExpectMonth(shown, 2017, 6);
  });
  EXPECT_EQ(unchanged, "15/06/2017");
  EXPECT_EQ(written, 4);
}

TEST_F(Pickers, CalendarMovesByMonthAndByYear) {
  Calendar("31/01/2026", [](frmPopupCalendar& shown) {
    shown.Press(shown.cmdMonthUp);
    ExpectMonth(shown, 2026, 2);
    shown.Press(shown.cmdMonthDown);
    shown.Press(shown.cmdMonthDown);
    ExpectMonth(shown, 2025, 12);

    shown.Press(shown.lblMonth);
    EXPECT_TRUE(shown.MonthsOpen());
    EXPECT_EQ(shown.fgMonths.TextMatrix(2, 3), "Dec");
    shown.Press(shown.cmdMonthDown);
    EXPECT_EQ(shown.lblMonth.Text(), "December 2024");
    shown.Click(shown.fgMonths, 0, 1);
    EXPECT_FALSE(shown.MonthsOpen());
    ExpectMonth(shown, 2024, 2);

    shown.Press(shown.lblMonth);
    shown.Press(shown.lblMonth);
    EXPECT_FALSE(shown.MonthsOpen());
  });
  Calendar("31/12/2199", [](frmPopupCalendar& shown) {
    shown.Press(shown.cmdMonthUp);
    ExpectMonth(shown, 2199, 12);
  });
}

TEST_F(Pickers, CalendarAnswersTheKeyboard) {
  const std::string moved = Calendar("28/02/2024", [](frmPopupCalendar& shown) {
    EXPECT_TRUE(shown.KeyPressed(39, 0));  // right, down, page up
    EXPECT_TRUE(shown.KeyPressed(40, 0));
    EXPECT_TRUE(shown.KeyPressed(33, 0));
    EXPECT_FALSE(shown.KeyPressed(65, 'a'));
    shown.MoveDay(-7);
    shown.KeyPressed(13, '\r');
  });
  EXPECT_EQ(moved, "31/01/2024");
}

TEST_F(Pickers, CalendarHandsItsDateBack) {
  frmPopupCalendar calendar(test.ledger, "Invoice Sent");
  std::string result = "left over";
  test.shown.modal.push_back([&](Screen&) { calendar.Press(calendar.cmdToday); });
  calendar.ChooseDate("", result);
  EXPECT_EQ(result, "03/02/2026");
  test.shown.modal.push_back([&](Screen&) { calendar.CloseRequested(); });
  calendar.ChooseDate("01/01/2026", result);
  EXPECT_EQ(result, "");
}

TEST_F(Pickers, ClockShowsATimeAndGivesItBack) {
  const struct {
    std::string text, hour, minutes, half, result;
  } cases[] = {
      {"13:05", "1", "05", "PM", "13:05"},  {"00:30", "12", "30", "AM", "00:30"},
      {"12:00", "12", "00", "PM", "12:00"}, {"9:07", "9", "07", "AM", "09:07"},
      {"23:59", "11", "59", "PM", "23:59"}, {"", "9", "00", "AM", "09:00"},
      {"banana", "9", "00", "AM", "09:00"}, {"25:00", "9", "00", "AM", "09:00"},
  };
  for (const auto& each : cases) {
    const std::string result = Clock(each.text, [&](frmPopupClock& shown) {
      EXPECT_EQ(shown.lblHour.Text(), each.hour) << each.text;
      EXPECT_EQ(shown.lblMins.Text(), each.minutes) << each.text;
      EXPECT_EQ(shown.IsPM(), each.half == "PM") << each.text;
      const Field& chosen = each.half == "PM" ? shown.lblPM : shown.lblAM;
      EXPECT_EQ(chosen.Text(), "• "_w.data() + each.half) << each.text;
      shown.Press(shown.cmdOK);
    });
    EXPECT_EQ(result, each.result) << each.text;
  }
}

TEST_F(Pickers, ClockTakesHoursMinutesAndHalves) {
  const struct {
    std::string text, expected;
    std::function<void(frmPopupClock&)> acts;
  } cases[] = {
      {"13:07", "15:07", [](auto& clock) { clock.Click(clock.fg, 0, 3); }},
      {"13:07", "13:55", [](auto& clock) { clock.Click(clock.fg, 3, 5); }},
      {"13:07", "12:07", [](auto& clock) { clock.Click(clock.fg, 0, 0); }},
      {"13:07", "23:07", [](auto& clock) { clock.Click(clock.fg, 1, 5); }},
      {"13:07", "13:07", [](auto& clock) { clock.Click(clock.fg, 4, -1); }},
      {"13:07", "01:07", [](auto& clock) { clock.Press(clock.lblAM); }},
      {"00:30", "12:30", [](auto& clock) { clock.Press(clock.lblPM); }},
      {"13:07", "13:08", [](auto& clock) { clock.Press(clock.lblMins); }},
      {"13:59", "13:00", [](auto& clock) { clock.MoveMinutes(1); }},
      {"12:00", "23:59", [](auto& clock) { clock.MoveHour(-1), clock.MoveMinutes(-61); }},
      {"09:00", "22:00", [](auto& clock) { clock.KeyPressed(39, 0), clock.KeyPressed(80, 'p'); }},
  };
  for (const auto& each : cases) {
    const std::string result = Clock(each.text, [&](frmPopupClock& clock) {
      each.acts(clock);
      clock.Press(clock.cmdOK);
    });
    EXPECT_EQ(result, each.expected) << each.text;
  }
  written = 0;
  const std::string cancelled = Clock("odd", [](frmPopupClock& clock) {
    clock.MoveHour(2);
    clock.CloseRequested();
  });
  EXPECT_EQ(cancelled, "odd");
  EXPECT_EQ(written, 0);
}

TEST_F(Pickers, NumberPadGrowsAnAmount) {
  const struct {
    std::string text, keys, shown, result;
  } cases[] = {
      {"", "", "0", "0"},
      {"", "07", "7", "7"},
      {"", "00", "0", "0"},
      {"0", ".5", "0.5", "0.50"},
      {"12.50", "7.", "12.50", "12.50"},
      {"12.5", "7", "12.50", "12.50"},
      {"12", "5.1.23", "125.12", "125.12"},
      {"12", "5.", "125.", "125"},
      {"12.50", "\b\b\b", "12", "12"},
      {"12", "\b\b\b", "0", "0"},
      {"-5", "\b", "0", "0"},
      {"-9999", "99", "-99999", "-99999"},
      {"99999", "9", "99999", "99999"},
      {"9999", "99", "99999", "99999"},
      {"99999", ".99", "99999.99", "99999.99"},
      {"1,250", "", "1250", "1250"},
      {"150000", "3", "150000", "150000"},
      {"100,000", "", "100000", "100000"},
      {"123456.789", ".", "123456.79", "123456.79"},
      {"-100000", "3", "-100000", "-100000"},
      {"150000", "\b\b3", "15003", "15003"},
      {"12,3x", "3", "3", "3"},
  };
  for (const auto& each : cases) {
    const std::string result = Numbers(each.text, [&](frmPopupNumbers& pad) {
      for (const char key : each.keys) EXPECT_TRUE(pad.KeyPressed(key, key));
      EXPECT_EQ(pad.lblNumbers.Text(), each.shown) << each.text;
      pad.Press(pad.cmdOK);
    });
    EXPECT_EQ(result, each.result) << each.text;
  }
}

TEST_F(Pickers, NumberPadButtons) {
  const std::string result = Numbers("55", [](frmPopupNumbers& pad) {
    pad.Press(pad.cmdClear);
    for (const char* name :
         {"cmdNumber4", "cmdNumber0", "cmdNumber9", "cmdBackspace", "cmdDecimal", "cmdNumber2"}) {
      Field* button = pad.FindField(name);
      ASSERT_NE(button, nullptr) << name;
      pad.Press(*button);
    }
    EXPECT_FALSE(pad.Key('x'));
    EXPECT_FALSE(pad.Key(0));
    pad.Press(pad.cmdOK);
  });
  EXPECT_EQ(result, "40.20");
  written = 0;
  EXPECT_EQ(Numbers("odd", [](frmPopupNumbers& pad) { pad.Press(pad.cmdCancel); }), "odd");
  EXPECT_EQ(written, 0);
}

TEST_F(Pickers, WhatAPickerWritesIsNotParsedAgain) {
  window.cText.onEntered = [] {
    ADD_FAILURE() << "parsed";
    return true;
  };
  EXPECT_EQ(Clock("06:30", [](frmPopupClock& clock) { clock.Press(clock.cmdOK); }), "06:30");
  EXPECT_EQ(written, 1);
}

TEST_F(Pickers, CellsGetTheirTextOrNothing) {
  test.shown.modal.push_back([](Screen& screen) {
    auto& calendar = dynamic_cast<frmPopupCalendar&>(screen);
    calendar.Press(calendar.cmdClear);
  });
  EXPECT_EQ(PickForCell(test.ledger, Picker::Calendar, "01/01/2026", "Date"), std::string());
  EXPECT_EQ(PickForCell(test.ledger, Picker::Clock, "09:00", "Time"), std::nullopt);
  EXPECT_EQ(PickForCell(test.ledger, Picker::None, "x", ""), std::nullopt);
  OpenPicker(window, window.cText, Picker::None, "", [this] { ++written; });
  EXPECT_EQ(written, 0);
}

}  // namespace
}  // namespace lm
