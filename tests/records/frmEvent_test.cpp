// Calendar events: their window, and what may be typed into their list.
#include "records/frmEvent.h"

#include <gtest/gtest.h>

#include "core/eventcategories.h"
#include "records/eventlist.h"
#include "records/events.h"
#include "records/windows.h"
#include "tests/records/surgery.h"

namespace lm::test {
namespace {

struct Events : testing::Test {
  Surgery test;
  Grid& events = test.ledger.fgEvents;

  int Add(const std::vector<std::string>& cells) { return test.AddRow(events, cells); }
  std::string Row(int row) {
    return Cells(events, row, {"ID", "TITLE", "LOCATION", "CATEGORY", "SDATE", "EDATE", "NOTES"});
  }
};

TEST_F(Events, ANewOneBeginsOnItsDay) {
  frmEvent window(test);
  window.New("09/02/2026");
  EXPECT_EQ(window.cTitle.Text(), "[New Event]");
  EXPECT_EQ(window.cSDate.Text() + " " + window.cEDate.Text(), "09/02/2026 09/02/2026");
  EXPECT_EQ(window.cCategory.Text(), "National Holiday");
  EXPECT_EQ(window.cCategory.Count(), 7);
  window.Enter(window.cTitle, "Skiing");
  window.Enter(window.cCategory, "Vacation");
  window.Enter(window.cEDate, "15/2");
  window.Press(window.cmdOk);
  EXPECT_TRUE(window.Closed());
  EXPECT_EQ(Row(events.FixedRows()), "1 Skiing  -2 09/02/2026 15/02/2026 ");
  EXPECT_EQ(StateOfRow(test, events, events.FixedRows()), RowState::New);
  EXPECT_TRUE(test.ledger.history.Undo());
  EXPECT_FALSE(events.HasData());
}

TEST_F(Events, WhatIsWrongIsToldInThisOrder) {
  const struct {
    const char *title, *start, *end, *told;
  } kCases[] = {
      {"", "", "", "A title must be entered."},
      {"Course", "", "", "A start date must be entered."},
      {"Course", "09/02/2026", "08/02/2026", "The end date cannot be earlier than the start date."},
      {"Course", "09/02/2026", "09/02/2026", ""},
      {"Course", "09/02/2026", "", ""}};
  for (const auto& each : kCases) {
    frmEvent window(test);
    window.New("01/02/2026");
    window.Enter(window.cTitle, each.title);
    window.Enter(window.cSDate, each.start);
    window.Enter(window.cEDate, each.end);
    window.Press(window.cmdOk);
    EXPECT_EQ(test.shown.TakeMessage(), each.told);
    EXPECT_EQ(window.Closed(), *each.told == 0);
  }
  frmEvent window(test);
  window.New("01/02/2026");
  EXPECT_FALSE(window.Enter(window.cSDate, "banana"));
  EXPECT_EQ(test.shown.TakeMessage(), "Please enter a valid start date.");
  EXPECT_FALSE(window.Enter(window.cEDate, "banana"));
  EXPECT_EQ(test.shown.TakeMessage(), "Please enter a valid end date.");
}

TEST_F(Events, AnUnknownCategoryStays) {
  const int row = Add({"ID=4", "TITLE=Old", "CATEGORY=99", "SDATE=09/02/2026"});
  test.shown.modal.push_back([&](Screen& screen) {
    auto& window = dynamic_cast<frmEvent&>(screen);
    EXPECT_EQ(window.cCategory.Selected(), -1);
    window.Enter(window.cLocation, "Leeds");
    window.Press(window.cmdOk);
  });
  EXPECT_TRUE(OpenEvent(test, "4"));
  EXPECT_EQ(Row(row), "4 Old Leeds 99 09/02/2026  ");
  EXPECT_FALSE(OpenEvent(test, "5"));
}

TEST_F(Events, DeletedFromTheWindowAndTheList) {
  const int row = Add({"ID=4", "TITLE=Course", "SDATE=09/02/2026"});
  Add({"TITLE=No number", "SDATE=10/02/2026"});
  frmEvent opened(test);
  ASSERT_TRUE(opened.Open("4"));
  opened.Press(opened.cmdDelete);  // No
  EXPECT_EQ(test.OneMessage(), (Prompts{"Delete event 'Course'?", "Mon 9 Feb 2026"}));
  EXPECT_FALSE(opened.Closed());
  test.shown.answers = {Answer::Yes};
  opened.Press(opened.cmdDelete);
  EXPECT_TRUE(opened.Closed());
  ASSERT_EQ(events.Rows(), events.FixedRows() + 1);

  frmEvent fresh(test);
  fresh.New("");
  test.shown.answers = {Answer::Yes, Answer::Yes};
  fresh.Press(fresh.cmdDelete);
  EXPECT_TRUE(fresh.Closed());
  EXPECT_EQ(events.Rows(), events.FixedRows() + 1);
  EXPECT_TRUE(DeleteEventOfRow(test, row));  // one without an ID goes too
  EXPECT_FALSE(events.HasData());
  test.shown.messages.clear();
  EXPECT_FALSE(DeleteEventOfRow(test, -1));
  EXPECT_EQ(test.OneMessage(), (Prompts{"Delete Event", "There is no event selected to delete."}));
}

TEST_F(Events, TheListTakesWhatTheWindowTakes) {
  const int row = Add({"ID=1", "TITLE=Course", "SDATE=09/02/2026", "EDATE=10/02/2026"});
  EventListRules rules(test);
  const struct {
    const char *key, *typed, *stored, *told;
  } kCases[] = {
      {"SDATE", "8/2", "08/02/2026", ""},
      {"SDATE", "11/2", "08/02/2026", "The end date cannot be earlier than the start date."},
      {"SDATE", "", "08/02/2026", "A start date must be entered."},
      {"EDATE", "7/2", "10/02/2026", "The end date cannot be earlier than the start date."},
      {"EDATE", "", "", ""},
      {"EDATE", "banana", "", "Please enter a valid end date."},
      {"TITLE", " ", "Course", "A title must be entered."},
      {"CATEGORY", "Appraisal", "2", ""},
      {"NOTES", "bring forms", "bring forms", ""}};
  for (const auto& each : kCases) {
    EditCell(events, rules, row, events.ColIndex(each.key), each.typed);
    EXPECT_EQ(events.TextMatrix(row, each.key), each.stored) << each.key;
    EXPECT_EQ(test.shown.TakeMessage(), each.told) << each.key;
  }
}

TEST(EventCategoryOption, DamagedEntriesAreLeftOut) {
  TestLedger test;
  SetOption(test, optEventCategories, "1;Course;255||x;No code;1|2|-3;Old;|4;Big;99999999999");
  const auto categories = EventCategories(test);
  ASSERT_EQ(categories.size(), 3u);
  EXPECT_EQ(categories[0].name + " " + std::to_string(categories[0].colour), "Course 255");
  EXPECT_EQ(categories[1].code, -3);
  SetOption(test, optEventCategories, EventCategoriesText({categories.data(), 2}));
  EXPECT_EQ(GetOption(test, optEventCategories), "1;Course;255|-3;Old;0");
}

}  // namespace
}  // namespace lm::test
