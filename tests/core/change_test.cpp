#include "core/change.h"

#include <gtest/gtest.h>

#include "core/rows.h"
#include "core/tables.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

using Rows = std::vector<int>;

// All that the records hold, and their markers.
std::string Texts(const Ledger& ledger) {
  std::string text;
  for (const Grid* table : ledger.dataTables) {
    for (const int row : Records(*table)) {
      text += table->Name() + " ";
      table->WriteRecord(row, text);
      text += "\n";
    }
  }
  return text;
}

std::string Markers(const Ledger& ledger, const Grid& grid) {
  std::string states;
  for (const int row : Records(grid)) {
    const RowState state = StateOfRow(ledger, grid, row);
    states += state == RowState::New ? 'N' : state == RowState::Edited ? 'E' : '-';
  }
  return states;
}

class Listener : public ChangeListener {
 public:
  explicit Listener(Ledger& ledger) : ledger_(ledger) { ledger.history.AddListener(*this); }
  ~Listener() override { ledger_.history.RemoveListener(*this); }
  void RecordsChanged(const ChangedRecords& changed) override {
    ++told;
    last = changed;
  }
  int told = 0;
  ChangedRecords last;

 private:
  Ledger& ledger_;
};

class ChangeTest : public testing::Test {
 protected:
  test::TestLedger all;
  Ledger& ledger = all.ledger;
  Grid& sessions = ledger.fgSessions;
  History& history = ledger.history;

  void SetUp() override {
    for (const char* id : {"1", "2", "3"}) {
      all.AddRow(sessions, {std::string("ID=") + id, "RATE=100"});
      all.AddRow(ledger.fgExtras, {std::string("ID=") + id, std::string("SESSID=") + id});
    }
    ClearMarkers(sessions);
    ClearMarkers(ledger.fgExtras);
  }
  int RowOf(std::string_view id) { return RecordRow(sessions, id); }
  void Edit(std::string_view id, std::string_view rate) {
    const Change change(ledger, "Edit Session");
    sessions.SetTextMatrix(RowOf(id), "RATE", rate);
    MarkEdited(ledger, sessions, RowOf(id));
  }
  void Delete(std::string_view id) {
    const Change change(ledger, "Delete Session");
    ledger.fgExtras.RemoveItem(FindRecord(ledger.fgExtras, "SESSID", id));
    sessions.RemoveItem(RowOf(id));
  }
  void Add(std::string_view id) {
    const Change change(ledger, "New Session");
    sessions.SetTextMatrix(AddRecord(ledger, sessions), "ID", id);
  }
};

TEST_F(ChangeTest, TakesEachKindOfActBackAndDoesItAgain) {
  struct Case {
    const char* caption;
    std::function<void()> act;
  };
  const Case cases[] = {
      {"Edit Session", [this] { Edit("2", "120"); }},
      {"Delete Session", [this] { Delete("1"); }},
      {"Delete Session", [this] { Delete("3"); }},
      {"New Session", [this] { Add("4"); }},
      {"All",
       [this] {
         const Change change(ledger, "All");
         Edit("1", "7");
         Delete("1");  // a row that was edited goes
         Add("5");
         Edit("5", "9");  // a row that was added is edited
         Delete("2");
         sessions.RemoveItem(RowOf("5"));
       }},
      {"Clear",
       [this] {
         const Change change(ledger, "Clear");
         sessions.ClearData();
         sessions.SetRows(sessions.Rows() + 2);
       }},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(each.caption);
    const std::string before = Texts(ledger);
    const std::string marksBefore = Markers(ledger, sessions);
    each.act();
    const std::string after = Texts(ledger);
    const std::string marksAfter = Markers(ledger, sessions);
    EXPECT_NE(before, after);
    for (int round = 0; round < 2; ++round) {
      EXPECT_EQ(history.UndoCaption(), each.caption);
      ASSERT_TRUE(history.Undo());
      EXPECT_EQ(Texts(ledger), before);
      EXPECT_EQ(Markers(ledger, sessions), marksBefore);
      EXPECT_EQ(history.RedoCaption(), each.caption);
      ASSERT_TRUE(history.Redo());
      EXPECT_EQ(Texts(ledger), after);
      EXPECT_EQ(Markers(ledger, sessions), marksAfter);
    }
    ASSERT_TRUE(history.Undo());
  }
}

TEST_F(ChangeTest, GoesBackThroughManyStepsAcrossGroupsAndOtherOrders) {
  std::vector<std::string> states{Texts(ledger)};
  const auto act = [&](auto&& step) {
    step();
    states.push_back(Texts(ledger));
  };
  act([this] { Edit("2", "120"); });
  act([this] { Delete("2"); });
  act([this] { Add("4"); });
  act([this] { Delete("1"); });

  sessions.Subtotal(SubtotalFunction::Sum, sessions.ColIndex("ID"), sessions.ColIndex("RATE"), {});
  sessions.SetColPosition(sessions.ColIndex("RATE"), 1);
  const int derived = sessions.Cols();
  sessions.SetCols(derived + 1);
  sessions.SetColDerived(derived, true);
  sessions.SetTextMatrix(RowOf("3"), derived, "Feb 2026");
  EXPECT_EQ(history.UndoCaption(), "Delete Session") << "what is only shown is no change";
  sessions.SetCols(derived);
  sessions.SetColPosition(1, sessions.ColIndex("RATE"));
  for (std::size_t at = states.size() - 1; at-- > 0;) ASSERT_TRUE(history.Undo()) << at;
  sessions.ClearSubtotals();
  sessions.Sort(SortSetting::NumericAscending, sessions.ColIndex("ID"));
  EXPECT_EQ(RowOf("1") + 1, RowOf("2"));
  EXPECT_FALSE(history.Undo());
  for (std::size_t at = 1; at < states.size(); ++at) ASSERT_TRUE(history.Redo()) << at;
  EXPECT_FALSE(history.Redo());
  EXPECT_EQ(RowOf("1"), -1);
  EXPECT_EQ(RowOf("2"), -1);
  EXPECT_GE(RowOf("4"), 0);
}

TEST_F(ChangeTest, TellsOnceWhatItDid) {
  Listener listener(ledger);
  {
    const Change change(ledger, "Outer");
    Edit("2", "120");
    Edit("2", "130");
    Delete("3");
    EXPECT_EQ(listener.told, 0);
  }
  ASSERT_EQ(listener.told, 1);
  const TableChange* changed = listener.last.Of(sessions);
  ASSERT_TRUE(changed);
  EXPECT_EQ(changed->edited, Rows{RowOf("2")});
  EXPECT_EQ(changed->added, Rows{});
  EXPECT_TRUE(changed->removed);
  EXPECT_FALSE(listener.last.Of(ledger.fgPractices));

  history.Undo();
  EXPECT_EQ(listener.told, 2);
  EXPECT_EQ(listener.last.Of(sessions)->added, Rows{RowOf("3")});
  EXPECT_FALSE(listener.last.Of(sessions)->removed);

  { const Change change(ledger, "Nothing"); }
  Edit("1", "100");
  EXPECT_EQ(listener.told, 3) << "the marker alone changed";
  EXPECT_EQ(history.UndoCaption(), "") << "and that is nothing to take back";
}

TEST_F(ChangeTest, ASaveBetweenLeavesTheRowsMarkedThatDifferFromTheFile) {
  Edit("2", "120");
  Delete("1");
  Add("4");
  ClearMarkers(sessions);
  ClearMarkers(ledger.fgExtras);
  history.Saved();
  ASSERT_TRUE(history.Undo());
  EXPECT_EQ(Markers(ledger, sessions), "--");
  ASSERT_TRUE(history.Undo());
  EXPECT_EQ(Markers(ledger, sessions), "N--") << "the file has no session 1";
  ASSERT_TRUE(history.Undo());
  EXPECT_EQ(Markers(ledger, sessions), "NE-");
}

TEST_F(ChangeTest, WhatNobodyToldClearsTheHistory) {
  const std::pair<const char*, std::function<void()>> acts[] = {
      {"a cell", [this] { sessions.SetTextMatrix(RowOf("1"), "RATE", "1"); }},
      {"a row added", [this] { sessions.AddItem(""); }},
      {"a row removed", [this] { sessions.RemoveItem(RowOf("3")); }}};
  for (const auto& [what, act] : acts) {
    Edit("2", what);
    EXPECT_NE(history.UndoCaption(), "") << what;
    act();
    EXPECT_EQ(history.UndoCaption(), "") << what;
    EXPECT_FALSE(history.Undo());
  }
  Edit("2", "5");
  sessions.Sort(SortSetting::NumericDescending, sessions.ColIndex("ID"));
  EXPECT_NE(history.UndoCaption(), "") << "another order is no change";
  const Change open(ledger, "Open");
  EXPECT_FALSE(history.Undo()) << "not in the middle of a change";
}

TEST_F(ChangeTest, ANewChangeEndsWhatCouldBeDoneAgain) {
  Delete("2");
  history.Undo();
  Edit("1", "50");
  EXPECT_EQ(history.RedoCaption(), "");
  EXPECT_EQ(history.UndoCaption(), "Edit Session");
}

TEST_F(ChangeTest, ForgetsTheOldestWhenItHoldsTooMuch) {
  const std::string large(History::kMostBytes / 8, 'x');
  for (const char digit : {'1', '2', '3', '4', '5', '6'}) {
    const Change change(ledger, std::string("Note ") + digit);
    sessions.SetTextMatrix(RowOf("1"), "NOTES", large + digit);
  }
  std::string taken;
  while (history.UndoCaption() != "") {
    taken += history.UndoCaption().back();
    history.Undo();
  }
  EXPECT_EQ(taken, "654") << "each holds the text before and after";
}

TEST_F(ChangeTest, SaysWhenDocumentsStay) {
  {
    const Change change(ledger, "Prepare Invoices");
    sessions.SetTextMatrix(RowOf("1"), "INVOICE", "7");
    history.DocumentWritten();
  }
  Edit("1", "5");
  history.Undo();
  EXPECT_FALSE(history.LeftDocuments());
  history.Undo();
  EXPECT_TRUE(history.LeftDocuments());
}

TEST_F(ChangeTest, KeepsTheLookUpListsWithTheirTables) {
  {
    const Change change(ledger, "New Practice");
    all.AddRow(ledger.fgPractices, {"ID=7", "NAME=Riverside"});
  }
  sessions.SetTextMatrix(RowOf("1"), "PRACTICE", "7");
  EXPECT_EQ(sessions.DisplayText(RowOf("1"), "PRACTICE"), "Riverside");
  {
    const Change change(ledger, "Edit Practice");
    ledger.fgPractices.SetTextMatrix(RecordRow(ledger.fgPractices, "7"), "NAME", "Hillside");
  }
  EXPECT_EQ(sessions.DisplayText(RowOf("1"), "PRACTICE"), "Hillside");
  history.Undo();
  EXPECT_EQ(sessions.DisplayText(RowOf("1"), "PRACTICE"), "Riverside");
}

}  // namespace
}  // namespace lm
