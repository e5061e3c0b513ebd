#include "tests/records/surgery.h"

namespace lm::test {
namespace {

TEST(SessionWindow, NeedsAPractice) {
  TestLedger empty;
  EXPECT_FALSE(frmSession(empty).New("03/02/2026", "", ""));
  EXPECT_FALSE(frmSession(empty).Copy("1"));
  ASSERT_EQ(empty.shown.messages.size(), 2u);
  EXPECT_EQ(empty.shown.messages[0].mainPrompt, "Unable to create new session");
}

TEST(SessionWindow, NewSessionStartsEmpty) {
  Surgery surgery;
  frmSession window(surgery);
  ASSERT_TRUE(window.New("03/02/2026", "09:30", "1"));
  EXPECT_EQ(window.Caption(), "New Session");
  EXPECT_EQ(window.cPractice.Text(), "Riverside");
  EXPECT_EQ(window.cSess_Type.ItemData(), "1");
  EXPECT_EQ(window.cSTime.Text(), "09:30");
  EXPECT_EQ(window.cRate.Text() + " " + Sums(window), "0.00 0.00 0.00 0.00");
  EXPECT_EQ(window.cEmployerContribRate.Text(), "14.38");
  EXPECT_EQ(window.lblInvoiceDetails.Text(), "Not invoiced yet");
  EXPECT_EQ(window.lblFormDetails.Text(), "Not pensioned yet");
  EXPECT_FALSE(window.imgRefreshPensionContribution.Visible());
  EXPECT_FALSE(window.fgExtras.HasData());

  frmSession unplaced(surgery);
  ASSERT_TRUE(unplaced.New("03/02/2026", "", ""));
  EXPECT_EQ(unplaced.cPractice.Selected(), -1);

  surgery.ledger.fgPractices.RemoveItem(2);
  frmSession onlyOne(surgery);
  ASSERT_TRUE(onlyOne.New("03/02/2026", "", "77"));
  EXPECT_EQ(onlyOne.cPractice.Text(), "Abbey");
}

TEST(SessionWindow, EveryColumnButTheFiveHasItsControl) {
  Surgery surgery;
  frmSession window(surgery);
  const Grid& sessions = surgery.ledger.fgSessions;
  for (int col = sessions.FixedCols(); col < sessions.Cols(); ++col) {
    const std::string& key = sessions.ColKey(col);
    const bool byHand = key == "INCLUDEEMPLOYERCONTRIB" || key == "SOURCE";
    EXPECT_EQ(window.FindField("c" + key) == nullptr, byHand) << key;
  }
}

TEST(SessionWindow, FieldsAreCheckedWhenTheyAreLeft) {
  struct Case {
    const char* field;
    const char* typed;
    const char* shown;  // the field afterwards
    const char* message;
    const char* reason;
  };
  const Case cases[] = {
      {"cSDate", "tom", "04/02/2026", "", ""},
      {"cSDate", "", "", "", ""},
      {"cSDate", "banana", "banana", "Please enter a valid start date.", ""},
      {"cEDate", "29/2/2026", "29/2/2026", "Please enter a valid end date.",
       "There aren't this many days in the month."},
      {"cSTime", "6:30", "18:30", "", ""},
      {"cSTime", "half past", "half past", "Please enter a valid start time.", ""},
      {"cETime", "9:75", "9:75", "Please enter a valid end time.",
       "The minutes must be between 00 and 59."},
      {"cETime", "", "", "", ""},
      {"cRate", "", "0.00", "", ""},
      {"cRate", "  ", "0.00", "", ""},
      {"cRate", "1,000", "1000.00", "", ""},
      {"cRate", "250000", "250000.00", "", ""},
      {"cRate", "12,3x", "12,3x", "The rate must be blank or a number.", ""},
  };
  for (const Case& each : cases) {
    Surgery surgery;
    frmSession window(surgery);
    window.New("03/02/2026", "08:00", "2");
    window.cETime.SetText("10:00");
    Field& field = *window.FindField(each.field);
    EXPECT_EQ(window.Enter(field, each.typed), each.message == std::string()) << each.typed;
    EXPECT_EQ(field.Text(), each.shown) << each.field;
    if (*each.message) {
      EXPECT_EQ(surgery.OneMessage(), Prompts(each.message, each.reason));
      EXPECT_EQ(window.Focused(), &field);
      // The text that was refused does not reach the table.
      window.Press(window.cmdOk);
      EXPECT_FALSE(window.Closed());
      EXPECT_EQ(surgery.OneMessage(), Prompts(each.message, each.reason));
      EXPECT_FALSE(surgery.ledger.fgSessions.HasData());
    } else {
      EXPECT_TRUE(surgery.shown.messages.empty()) << each.typed;
    }
  }
  Surgery surgery;
  frmSession window(surgery);
  window.New("03/02/2026", "", "2");
  EXPECT_TRUE(window.Enter(window.cRate, "£1,234.5"_w));
  EXPECT_EQ(window.cRate.Text() + " " + window.cPensionable.Text(), "1234.50 1234.50");
}

TEST(SessionWindow, RecalculatesByType) {
  struct Case {
    const char* type;
    const char* sums;
  };
  const Case cases[] = {{"NHS Normal", "100.00 12.94 112.94"},
                        {"NHS OOH", "100.00 14.38 114.38"},
                        {"NHS Unpensioned", "100.00 0.00 100.00"},
                        {"Private", "100.00 0.00 100.00"}};
  for (const Case& each : cases) {
    Surgery surgery;
    frmSession window(surgery);
    window.New("03/02/2026", "", "2");
    window.Enter(window.cSess_Type, each.type);
    window.Enter(window.cRate, "100");
    EXPECT_EQ(Sums(window), each.sums) << each.type;
  }
}

TEST(SessionWindow, FeeFollowsTimesAndTypeButNotPracticeAndTypedEndDate) {
  Surgery surgery;
  frmSession window(surgery);
  window.New("03/02/2026", "", "1");
  window.Enter(window.cSTime, "9am");
  EXPECT_EQ(window.cRate.Text(), "0.00");  // no end yet
  window.Enter(window.cETime, "12:30");
  EXPECT_EQ(window.cRate.Text(), "350.00");
  window.Enter(window.cSess_Type, "NHS OOH");
  EXPECT_EQ(window.cRate.Text(), "256.66");  // 3.5 hours at the Single 73.33 are 256.655
  window.Enter(window.cSess_Type, "Private");
  EXPECT_EQ(window.cRate.Text(), "256.66");  // no hourly rate: the fee stands
  EXPECT_EQ(window.lblFormDetails.Text(), "Not pensionable");
  EXPECT_EQ(window.cTotal.Text(), "256.66");

  window.Enter(window.cSess_Type, "NHS Normal");
  window.Enter(window.cPractice, "Abbey");
  EXPECT_EQ(window.cRate.Text(), "350.00");
  window.Enter(window.cPractice, "Riverside");
  window.Enter(window.cETime, "8am");
  EXPECT_EQ(window.cRate.Text(), "0.00");  // ends before it starts
  window.Enter(window.cEDate, "4/2/2026");
  EXPECT_EQ(window.cRate.Text(), "0.00");
  window.Enter(window.cSDate, "2/2/2026");
  EXPECT_EQ(window.cRate.Text(), "4700.00");
}

TEST(SessionWindow, PickersWriteAndRunTheirRule) {
  struct Case {
    const char* button;
    const char* press;  // in the picker
    const char* field;
    const char* text;
    const char* rate;  // 100 an hour from the times, or what stood there
    const char* total;
  };
  const Case cases[] = {
      {"cmdStart", "cmdToday", "cSDate", "03/02/2026", "9950.00", "11237.73"},
      {"cmdStartTime", "cmdOK", "cSTime", "06:30", "7550.00", "8527.12"},
      {"cmdEnd", "cmdToday", "cEDate", "03/02/2026", "350.00", "395.30"},
      {"cmdEndTime", "cmdOK", "cETime", "10:00", "7550.00", "8527.12"},
      {"cmdRate", "cmdOK", "cRate", "20", "20", "22.59"},
  };
  for (const Case& each : cases) {
    Surgery surgery;
    frmSession window(surgery);
    window.New("04/02/2026", "06:30", "1");
    window.cEDate.SetText("07/02/2026");
    window.cETime.SetText("10:00");
    window.cRate.SetText("20");
    if (each.button == std::string("cmdEnd")) window.cSDate.SetText("03/02/2026");
    surgery.shown.modal = {[&](Screen& picker) { picker.Press(*picker.FindField(each.press)); }};
    window.Press(*window.FindField(each.button));
    EXPECT_EQ(window.FindField(each.field)->Text(), each.text) << each.button;
    EXPECT_EQ(window.cRate.Text() + " " + window.cTotal.Text(),
              each.rate + std::string(" ") + each.total)
        << each.button;
  }
}

TEST(SessionWindow, OkTestsDatesAndTimes) {
  struct Case {
    const char* start;
    const char* startTime;
    const char* end;
    const char* endTime;
    const char* message;
  };
  const std::string order = "The end date cannot be earlier than the start date.";
  const std::string overnight = "The session end time must be after the start time";
  const Case cases[] = {
      {"03/02/2026", "09:00", "02/02/2026", "12:00", order.c_str()},
      {"01/03/2026", "09:00", "02/02/2026", "12:00", order.c_str()},  // days compare, not texts
      {"03/02/2026", "20:00", "", "08:00", overnight.c_str()},
      {"03/02/2026", "20:00", "03/02/2026", "08:00", overnight.c_str()},
      {"03/02/2026", "20:00", "04/02/2026", "08:00", ""},
      {"03/02/2026", "09:00", "", "09:00", ""},
      {"03/02/2026", "", "", "09:00", ""},
      {"03/02/2026", "09:00", "", "", ""},
      {"", "", "02/02/2026", "", ""},
      {"banana", "x", "also", "y", ""},  // a damaged cell is no reason to lock the user in
  };
  for (const Case& each : cases) {
    Surgery surgery;
    frmSession window(surgery);
    window.New(each.start, each.startTime, "1");
    window.cEDate.SetText(each.end);
    window.cETime.SetText(each.endTime);
    window.Press(window.cmdOk);
    EXPECT_EQ(surgery.shown.TakeMessage(), each.message) << each.start << each.startTime;
    EXPECT_EQ(window.Closed(), each.message == std::string());
    EXPECT_EQ(surgery.ledger.fgSessions.HasData(), window.Closed());
  }
}

TEST(SessionWindow, OkSavesNewSession) {
  for (const char* position : {"BOTTOM", "TOP"}) {
    Surgery surgery;
    SetOption(surgery, optNewRowPosition, position);
    surgery.AddSession({"ID=41", "SDATE=01/01/2026"});
    frmSession window(surgery);
    window.New("03/02/2026", "09:00", "1");
    window.Enter(window.cETime, "10:30");
    window.Enter(window.cNotes, "mine");
    window.Enter(window.cPublicNote, "theirs");
    EXPECT_EQ(Marks(window), std::vector<bool>({false, true, true, false, false}));
    window.Press(window.cmdAddExtra);
    const int item = window.fgExtras.Row();
    EXPECT_EQ(window.tabMain.Text(), "Extras");
    EXPECT_EQ(window.Edit(window.fgExtras, item, window.fgExtras.ColIndex("RATE"), "x"),
              EditOutcome::Refused);
    EXPECT_EQ(window.Edit(window.fgExtras, item, window.fgExtras.ColIndex("RATE"), "1,000"),
              EditOutcome::Accepted);
    EXPECT_EQ(window.cExtras.Text(), "1000.00");
    EXPECT_EQ(Sums(window), "1150.00 148.83 1298.83");
    EXPECT_FALSE(surgery.ledger.fgExtras.HasData());
    window.Press(window.cmdOk);
    ASSERT_TRUE(window.Closed());

    const Grid& sessions = surgery.ledger.fgSessions;
    const int row = sessions.FindRow("42", "ID");
    ASSERT_EQ(row, position == std::string("BOTTOM") ? 3 : 2);
    EXPECT_EQ(sessions.Row(), row);
    EXPECT_EQ(StateOfRow(surgery, sessions, row), RowState::New);
    EXPECT_EQ(Cells(sessions, row,
                    {"PRACTICE", "SESS_TYPE", "SDATE", "STIME", "ETIME", "RATE", "EXTRAS"}),
              "1 1 03/02/2026 09:00 10:30 150.00 1000.00");
    EXPECT_EQ(Cells(sessions, row,
                    {"EMPLOYERCONTRIB", "EMPLOYERCONTRIBRATE", "TOTAL", "NOTES", "PUBLICNOTE"}),
              "148.83 14.38 1298.83 mine theirs");
    EXPECT_EQ(Cells(surgery.ledger.fgExtras, 2, {"ID", "SESSID", "ITEM", "RATE"}),
              "1 42 [New Extra] 1000");
  }
}

TEST(SessionWindow, OkKeepsWhatItDoesNotEdit) {
  Surgery surgery;
  // Practice and type are in no list; source and include belong to others.
  const int row =
      surgery.AddSession({"PRACTICE=99", "SESS_TYPE=3", "SOURCE=GPNET", "INCLUDEEMPLOYERCONTRIB=1",
                          "INVOICE=7", "RATE=12,3x", "SDATE=banana", "EXTRAS="});
  const Grid& sessions = surgery.ledger.fgSessions;
  frmSession window(surgery);
  ASSERT_TRUE(window.OpenSession("1"));
  EXPECT_EQ(window.cSess_Type.Selected(), -1);
  EXPECT_EQ(window.cPractice.Selected(), -1);
  EXPECT_EQ(window.cExtras.Text(), "0.00");
  window.Press(window.cmdOk);
  ASSERT_TRUE(window.Closed());
  EXPECT_EQ(sessions.Rows(), 3);
  EXPECT_EQ(StateOfRow(surgery, sessions, row), RowState::Edited);
  EXPECT_EQ(Cells(sessions, row,
                  {"PRACTICE", "SESS_TYPE", "SOURCE", "INCLUDEEMPLOYERCONTRIB", "INVOICE", "RATE",
                   "SDATE"}),
            "99 3 GPNET 1 7 12,3x banana");
}

TEST(SessionWindow, UnknownSessionDoesNotOpen) {
  Surgery surgery;
  surgery.AddSession({"ID="});
  for (const char* id : {"", "99"}) {
    EXPECT_FALSE(frmSession(surgery).OpenSession(id));
    EXPECT_FALSE(frmSession(surgery).Copy(id));
  }
  EXPECT_EQ(surgery.shown.messages.size(), 4u);
}

TEST(SessionWindow, OpensTheRecordBelowAGroupRow) {
  Surgery surgery;
  surgery.AddSession({"NOTES=mine"});
  Grid& sessions = surgery.ledger.fgSessions;
  const int group = sessions.AddItem("", 2);
  sessions.SetTextMatrix(group, "ID", "1");
  sessions.SetRowOutlineLevel(group, 1);
  frmSession window(surgery);
  ASSERT_TRUE(window.OpenSession("1"));
  EXPECT_EQ(window.cNotes.Text(), "mine");
}

TEST(SessionWindow, NumbersEndAt32767) {
  Surgery surgery;
  surgery.AddSession({"ID=32766", "SDATE=01/01/2026"});
  for (const bool fits : {true, false}) {
    frmSession window(surgery);
    window.New(fits ? "03/02/2026" : "04/02/2026", "09:00", "1");
    window.Press(window.cmdAddExtra);
    window.Press(window.cmdOk);
    EXPECT_EQ(window.Closed(), fits);
    EXPECT_EQ(surgery.OneMessage().first, fits ? "(0 messages)" : "This session cannot be saved");
    EXPECT_EQ(surgery.ledger.fgSessions.Rows(), 4);
    EXPECT_EQ(surgery.ledger.fgExtras.Rows(), 3);
    EXPECT_EQ(window.cID.Text(), fits ? "32767" : "");
  }
}

TEST(SessionWindow, DuplicatesAskFirst) {
  Surgery surgery;
  surgery.AddSession({});
  const auto save = [&](const char* id, const char* practice, const char* time, Answer answer) {
    surgery.shown.messages.clear();
    surgery.shown.answers = {answer};
    frmSession window(surgery);
    if (*id)
      window.OpenSession(id);
    else
      window.New("02/02/2026", time, practice);
    window.Press(window.cmdOk);
    surgery.shown.answers.clear();
    return window.Closed();
  };
  EXPECT_TRUE(save("1", "", "", Answer::No));  // its own row is no duplicate
  EXPECT_TRUE(surgery.shown.messages.empty());
  EXPECT_TRUE(save("", "1", "09:01", Answer::No));
  EXPECT_TRUE(surgery.shown.messages.empty());
  EXPECT_FALSE(save("", "2", "09:00", Answer::No));  // another practice plays no part
  EXPECT_EQ(surgery.shown.messages[0].title, "Duplicate Session");
  EXPECT_EQ(surgery.OneMessage().first,
            "A session already exists with this date and time.\r\nSave this session anyway?");
  EXPECT_TRUE(save("", "2", "09:00", Answer::Yes));
  EXPECT_EQ(surgery.ledger.fgSessions.Rows(), 5);
  EXPECT_FALSE(save("1", "", "", Answer::No));  // now another row has its date and time
  EXPECT_TRUE(save("", "2", "", Answer::No));   // without a time there is no test
}

TEST(SessionWindow, DeleteClosesOnYes) {
  for (const bool yes : {false, true}) {
    Surgery surgery;
    surgery.AddSession({});
    surgery.AddExtra({"SESSID=1"});
    frmSession stored(surgery);
    stored.OpenSession("1");
    frmSession fresh(surgery);
    fresh.New("03/02/2026", "", "1");
    for (frmSession* window : {&stored, &fresh}) {
      surgery.shown.answers = {yes ? Answer::Yes : Answer::No};
      window->Press(window->cmdDelete);
      EXPECT_EQ(window->Closed(), yes);
    }
    EXPECT_EQ(surgery.ledger.fgSessions.HasData(), !yes);
    EXPECT_EQ(surgery.ledger.fgExtras.HasData(), !yes);
  }
}

TEST(SessionWindow, GoesOnWithANewSessionOfThePracticeAndType) {
  Surgery surgery;
  SetOption(surgery, optNewRowPosition, "BOTTOM");
  frmSession window(surgery);
  ASSERT_TRUE(window.New("03/02/2026", "", ""));
  window.Enter(window.cPractice, "Riverside");
  window.Enter(window.cSess_Type, "NHS OOH");
  window.Enter(window.cSTime, "18:30");
  window.Enter(window.cETime, "20:30");
  window.Enter(window.cNotes, "key under the mat");
  window.Press(window.cmdAddExtra);
  window.Press(window.cmdOkNew);
  EXPECT_FALSE(window.Closed());
  EXPECT_FALSE(window.ContentChanged()) << "nothing to lose yet";
  EXPECT_EQ(window.Focused(), &window.cSDate);
  EXPECT_EQ(window.Caption() + '|' + window.cPractice.Text() + '|' + window.cSess_Type.Text(),
            "New Session|Riverside|NHS OOH");
  EXPECT_EQ(window.cID.Text() + window.cSDate.Text() + window.cSTime.Text() + window.cETime.Text() +
                window.cNotes.Text(),
            "");
  EXPECT_EQ(window.cRate.Text() + " " + Sums(window), "0.00 0.00 0.00 0.00");
  EXPECT_FALSE(window.fgExtras.HasData());

  window.Press(window.cmdOkNew);
  EXPECT_EQ(surgery.OneMessage().first, "This session has no date") << "keys pressed twice";
  window.Enter(window.cSDate, "4/2");
  window.Enter(window.cSTime, "18:30");
  window.Enter(window.cETime, "19:30");
  window.Press(window.cmdOk);
  EXPECT_TRUE(window.Closed());
  const Grid& sessions = surgery.ledger.fgSessions;
  const int first = sessions.FixedRows();
  ASSERT_EQ(sessions.Rows() - first, 2);
  EXPECT_EQ(Cells(sessions, first, {"ID", "SDATE", "SESS_TYPE", "RATE", "NOTES"}),
            "1 03/02/2026 2 146.66 key under the mat");
  EXPECT_EQ(Cells(sessions, first + 1, {"ID", "SDATE", "SESS_TYPE", "RATE", "NOTES"}),
            "2 04/02/2026 2 73.33 ");
  EXPECT_EQ(surgery.ledger.fgExtras.TextMatrix(surgery.ledger.fgExtras.FixedRows(), "SESSID"), "1");
  surgery.ledger.history.Undo();
  EXPECT_EQ(sessions.Rows() - first, 1) << "each is a step of its own";
}

TEST(SessionWindow, OkAndNewLeavesNothingOfALockedSession) {
  Surgery surgery;
  surgery.AddSession({"ID=7", "INVOICE=INV-00001", "FORMS=A"});
  frmSession window(surgery);
  ASSERT_TRUE(window.OpenSession("7"));
  window.Press(window.cmdOkNew);
  EXPECT_TRUE(window.cSDate.Enabled() && window.cPractice.Enabled());
  EXPECT_EQ(window.cInvoice.Text() + window.cForms.Text(), "");
  EXPECT_EQ(window.lblInvoiceDetails.Text() + '|' + window.lblFormDetails.Text(),
            "Not invoiced yet|Not pensioned yet");
}

TEST(SessionWindow, SaysThatThePracticeHasNoRate) {
  Surgery surgery;
  frmSession window(surgery);
  ASSERT_TRUE(window.New("03/02/2026", "", ""));
  EXPECT_FALSE(window.lblNoRate.Visible()) << "no practice yet";
  window.Enter(window.cPractice, "Abbey");
  EXPECT_TRUE(window.lblNoRate.Visible());
  EXPECT_EQ(window.lblNoRate.Text(),
            "Abbey has no rate for NHS Normal sessions. Type the fee, or enter the rate in the "
            "practice's window.");
  window.Enter(window.cRate, "250");
  EXPECT_FALSE(window.lblNoRate.Visible()) << "a fee by hand";
  window.Enter(window.cRate, "");
  EXPECT_TRUE(window.lblNoRate.Visible());
  window.Enter(window.cPractice, "Riverside");
  EXPECT_FALSE(window.lblNoRate.Visible());
  window.Enter(window.cSess_Type, "Private");
  EXPECT_TRUE(window.lblNoRate.Visible());
}

}  // namespace
}  // namespace lm::test
