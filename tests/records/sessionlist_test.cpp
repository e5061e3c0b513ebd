#include "records/sessionlist.h"

#include <gtest/gtest.h>

#include "core/formatting.h"
#include "core/options.h"
#include "core/rows.h"
#include "core/text.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

using test::TestLedger;

struct SessionList : testing::Test {
  TestLedger t;
  Ledger& ledger = t.ledger;
  Grid& sessions = ledger.fgSessions;
  SessionListRules rules{ledger};
  int row = -1;

  void SetUp() override {
    SetOption(ledger, optPensionCountry, "England");
    t.AddRow(ledger.fgPractices, {"ID=1", "NAME=Riverside", "RATE_NORMAL=40", "RATE_OOHS=60"});
    row = t.AddRow(sessions, {"PRACTICE=1", "SESS_TYPE=1", "SDATE=03/02/2026", "STIME=09:00",
                              "ETIME=12:00", "RATE=95", "EMPLOYERCONTRIBRATE=14.38"});
    t.AddRow(sessions, {"PRACTICE=1"});
    FormatTables(ledger);
  }
  EditOutcome Edit(std::string_view key, std::string_view text) {
    return EditCell(sessions, rules, row, sessions.ColIndex(key), text);
  }
  std::string Cell(std::string_view key) const { return sessions.TextMatrix(row, key); }
};

TEST_F(SessionList, OnlyTheNotesOfALockedSessionAreOpen) {
  const std::vector<std::string> never{"ID",    "INVOICE",  "EXTRAS",         "TOTAL",
                                       "FORMS", "EXPENSES", "EMPLOYERCONTRIB"};
  for (const auto& [key, lock] : {std::pair{"", ""}, {"FORMS", "A"}, {"INVOICE", "2"}}) {
    sessions.SetTextMatrix(row, key, lock);
    const bool locked = *lock != '\0';
    for (const char* open : {"PRACTICE", "SESS_TYPE", "SDATE", "EDATE", "STIME", "ETIME", "RATE"})
      EXPECT_EQ(rules.MayEdit(row, sessions.ColIndex(open)), !locked) << open << " " << lock;
    for (const char* note : {"NOTES", "PUBLICNOTE"})
      EXPECT_TRUE(rules.MayEdit(row, sessions.ColIndex(note))) << note << " " << lock;
    for (const std::string& column : never)
      EXPECT_FALSE(rules.MayEdit(row, sessions.ColIndex(column))) << column;
    if (locked) sessions.SetTextMatrix(row, key, "");
  }
  EXPECT_FALSE(rules.MayEdit(row, 0));
  EXPECT_FALSE(rules.MayEdit(row, -1));
  EXPECT_FALSE(rules.MayEdit(-1, sessions.ColIndex("NOTES")));
  sessions.SetRowOutlineLevel(row, 1);
  EXPECT_FALSE(rules.MayEdit(row, sessions.ColIndex("NOTES")));
}

TEST_F(SessionList, ALockedSessionSaysOnWhatItStandsAndOpensIt) {
  t.AddRow(ledger.fgInvoices, {"ID=2", "NUMBER=INV-00002"});
  FormatTables(ledger);
  sessions.SetTextMatrix(row, "ID", "7");
  const struct {
    const char *invoice, *forms, *text, *opened;
  } kCases[] = {
      {"", "", "", ""},
      {"2", "", "On INV-00002", "frmInvoice 2"},
      {"2", "A", "On INV-00002 and Form A", "frmInvoice 2"},
      {"2", "A,B", "On INV-00002, Form A and Form B", "frmInvoice 2"},
      {"", "SOLO", "On Form SOLO", "frmPensionSOLO 1 022026"},
      {"", "A,B", "On Form A and Form B", "frmPensionA 1 022026"},
      {"99", "", "On an invoice", ""},  // which is gone: the session itself opens
  };
  for (const auto& [invoice, forms, text, opened] : kCases) {
    sessions.SetTextMatrix(row, "INVOICE", invoice);
    sessions.SetTextMatrix(row, "FORMS", forms);
    EXPECT_EQ(rules.LockedBy(row), text);
    t.shown.opened.clear();
    rules.LockPressed(row);
    EXPECT_EQ(t.shown.opened.empty() ? "" : t.shown.opened.front(), opened) << text;
  }
  for (const int none : {-1, 0, sessions.Rows()}) {
    EXPECT_EQ(rules.LockedBy(none), "");
    rules.LockPressed(none);
  }
  sessions.SetRowOutlineLevel(row, 1);
  EXPECT_EQ(rules.LockedBy(row), "") << "a group";
}

TEST_F(SessionList, TypedTextIsReadOrRefusedWithItsMessage) {
  const struct {
    const char *key, *typed;
    EditOutcome outcome;
    const char *stored, *message;
  } cases[] = {
      {"SDATE", "banana", EditOutcome::Refused, "03/02/2026", "Please enter a valid start date."},
      {"EDATE", "31/2/2026", EditOutcome::Refused, "", "Please enter a valid end date."},
      {"STIME", "xyz", EditOutcome::Refused, "09:00", "Please enter a valid start time."},
      {"ETIME", "99:99", EditOutcome::Refused, "12:00", "Please enter a valid end time."},
      {"RATE", "12,3x", EditOutcome::Refused, "95", "The rate must be blank or a number."},
      {"RATE", "1,000", EditOutcome::Accepted, "1000", ""},
      {"RATE", " 1,234.5 ", EditOutcome::Accepted, "1234.50", ""},
      {"RATE", "  ", EditOutcome::Accepted, "0", ""},
      {"SDATE", "tom", EditOutcome::Accepted, "04/02/2026", ""},
      {"EDATE", "5", EditOutcome::Accepted, "05/02/2026", ""},
      {"EDATE", "", EditOutcome::Accepted, "", ""},
      {"SESS_TYPE", "Nonsense", EditOutcome::Refused, "1", ""},
      {"NOTES", "Keys at desk", EditOutcome::Accepted, "Keys at desk", ""},
      {"TOTAL", "1", EditOutcome::NotAllowed, nullptr, ""},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Edit(c.key, c.typed), c.outcome) << c.key << " " << c.typed;
    if (c.stored) {
      EXPECT_EQ(Cell(c.key), c.stored) << c.key << " " << c.typed;
    }
    EXPECT_EQ(t.shown.TakeMessage(), c.message) << c.key << " " << c.typed;
  }
  EXPECT_EQ(StateOfRow(ledger, sessions, row), RowState::Edited);
  EXPECT_EQ(StateOfRow(ledger, sessions, row + 1), RowState::Saved);
}

TEST_F(SessionList, TimesBringTheFeeAndTheSumsTypeOnlyTheSums) {
  EXPECT_EQ(Edit("ETIME", "11"), EditOutcome::Accepted);
  EXPECT_EQ(Cell("RATE"), "80");
  EXPECT_EQ(Cell("EMPLOYERCONTRIB"), "10.35");  // 72.00 x 14.38%
  EXPECT_EQ(Cell("TOTAL"), "90.35");

  EXPECT_EQ(Edit("SESS_TYPE", "NHS OOH"), EditOutcome::Accepted);
  EXPECT_EQ(Cell("SESS_TYPE"), "2");
  EXPECT_EQ(Cell("RATE"), "80");  // the fee is not looked up again
  EXPECT_EQ(Cell("EMPLOYERCONTRIB"), "11.50");
  EXPECT_EQ(Cell("TOTAL"), "91.5");

  EXPECT_EQ(Edit("RATE", "100"), EditOutcome::Accepted);
  EXPECT_EQ(Cell("TOTAL"), "114.38");

  EXPECT_EQ(Edit("ETIME", "8am"), EditOutcome::Accepted);
  EXPECT_EQ(Cell("RATE"), "0");
  EXPECT_EQ(Cell("TOTAL"), "0");
}

TEST_F(SessionList, TheSameDateTypedAfreshIsNoEdit) {
  EXPECT_EQ(Edit("SDATE", "today"), EditOutcome::Unchanged);
  EXPECT_EQ(Cell("RATE"), "95");  // an agreed fee stays
  EXPECT_EQ(StateOfRow(ledger, sessions, row), RowState::Saved);

  // What a picker wrote arrives without having been typed.
  sessions.SetTextMatrix(row, "ETIME", "10:00");
  rules.Edited(row, sessions.ColIndex("ETIME"));
  EXPECT_EQ(Cell("RATE"), "40");
}

TEST_F(SessionList, RowsThatAreNoSessionAreLeftAlone) {
  sessions.SetRowOutlineLevel(row + 1, 1);
  for (const int none : {-1, 0, row + 1, sessions.Rows()}) {
    t.shown.answers = {Answer::Yes};
    const int rows = sessions.Rows();
    rules.DeletePressed(none);
    rules.Opened(none);
    EXPECT_EQ(sessions.Rows(), rows) << none;
    EXPECT_EQ(t.shown.messages.back().minorPrompt, "There is no session selected to delete.");
  }
  t.shown.answers = {Answer::Yes};
  rules.DeletePressed(row);
  EXPECT_EQ(sessions.Rows(), sessions.FixedRows() + 1);
}

// Items with an empty SESSID are nobody's, not such a session's.
TEST_F(SessionList, ASessionWithoutAnIdIsToldAndCanBeDeleted) {
  t.AddRow(ledger.fgExtras, {"SESSID=", "RATE=5"});
  t.AddRow(ledger.fgSessionExpenses, {"SESSID=", "RATE=7"});
  sessions.SetTextMatrix(row, "ID", "");
  t.shown.modal = {[](Screen& screen) { FAIL() << screen.Name() << " opened"; }};
  rules.CopyPressed(row);
  rules.Opened(row);
  ASSERT_EQ(t.shown.messages.size(), 2u);
  for (const MessageBoxText& box : t.shown.messages)
    EXPECT_EQ(box.mainPrompt, "This session is damaged");

  const int rows = sessions.Rows();
  t.shown.answers = {Answer::No, Answer::Yes};
  rules.DeletePressed(row);
  EXPECT_EQ(sessions.Rows(), rows);
  rules.DeletePressed(row);
  EXPECT_EQ(sessions.Rows(), rows - 1);
  EXPECT_TRUE(ledger.fgExtras.HasData() && ledger.fgSessionExpenses.HasData());
}

TEST_F(SessionList, APracticeIsChosenByItsIdWhereTwoBearOneName) {
  t.AddRow(ledger.fgPractices, {"ID=12", "NAME=Riverside"});
  t.AddRow(ledger.fgPractices, {"ID=3", "NAME=Abbey"});
  FormatTables(ledger);
  const struct {
    const char *held, *word;
    EditOutcome outcome;
    const char* stored;
  } kCases[] = {
      {"1", "Riverside", EditOutcome::Unchanged, "1"},
      {"12", "Riverside", EditOutcome::Unchanged, "12"},  // shows that text already
      {"12", "#1", EditOutcome::Accepted, "1"},
      {"1", "#12", EditOutcome::Accepted, "12"},
      {"12", "#12", EditOutcome::Unchanged, "12"},
      {"3", " Riverside ", EditOutcome::Accepted, "1"},  // the first
      {"3", "#99", EditOutcome::Refused, "3"},
      {"3", "#", EditOutcome::Refused, "3"},
      {"3", "", EditOutcome::Refused, "3"},
      {"99", "", EditOutcome::Refused, "99"},  // a practice that is gone shows nothing
      {"99", "Abbey", EditOutcome::Accepted, "3"},
  };
  for (const auto& each : kCases) {
    sessions.SetTextMatrix(row, "PRACTICE", each.held);
    EXPECT_EQ(Edit("PRACTICE", each.word), each.outcome) << each.held << " " << each.word;
    EXPECT_EQ(Cell("PRACTICE"), each.stored) << each.held << " " << each.word;
  }
}

TEST_F(SessionList, LineBreaksOfANoteAreOfOneKind) {
  for (const char* typed : {"a\nb", "a\rb", "a\r\nb"}) {
    sessions.SetTextMatrix(row, "NOTES", "");
    EXPECT_EQ(Edit("NOTES", typed), EditOutcome::Accepted);
    EXPECT_EQ(Cell("NOTES"), "a\r\nb");
    EXPECT_EQ(Edit("NOTES", "a\nb"), EditOutcome::Unchanged);
  }
  sessions.SetTextMatrix(row, "NOTES", "a\nb");  // of an old file
  EXPECT_EQ(Edit("NOTES", "a\r\nb"), EditOutcome::Unchanged);
  EXPECT_EQ(Cell("NOTES"), "a\nb");
}

}  // namespace
}  // namespace lm
