#include "records/sessionrules.h"

#include <gtest/gtest.h>

#include "core/options.h"
#include "core/rows.h"
#include "core/text.h"
#include "records/practices.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

using test::TestLedger;

// Riverside pays 73.33 an hour for NHS Normal, Hilltop has no rates of its own.
struct SessionRules : testing::Test {
  TestLedger t;
  Ledger& ledger = t.ledger;
  Grid& sessions = ledger.fgSessions;

  void SetUp() override {
    SetOption(ledger, optDefaultRates, "50|60|70|80|");
    t.AddRow(ledger.fgPractices, {"ID=1", "NAME=Riverside", "RATE_NORMAL=73.33", "RATE_OOHS=0"});
    t.AddRow(ledger.fgPractices, {"ID=2", "NAME=Hilltop"});
  }
};

TEST_F(SessionRules, TheHourlyRateComesFromThePracticeThenFromTheDefaults) {
  const struct {
    int type;
    const char* practice;
    std::optional<Single> rate;
  } cases[] = {
      {1, "1", 73.33f},       {1, "2", 50.0f},      {1, "", 50.0f},
      {1, "-1", 50.0f},       {1, "banana", 50.0f}, {2, "1", 0.0f},  // a nought is a rate
      {2, "2", 60.0f},        {3, "2", 70.0f},      {0, "2", 80.0f},
      {4, "2", std::nullopt}, {9, "1", 73.33f},     {-1, "2", 50.0f},
  };
  for (const auto& c : cases)
    EXPECT_EQ(HourlyRate(ledger, c.type, c.practice), c.rate) << c.type << " " << c.practice;

  SetOption(ledger, optDefaultRates, "55");
  EXPECT_EQ(HourlyRate(ledger, 1, ""), 55.0f);
  EXPECT_EQ(HourlyRate(ledger, 0, ""), std::nullopt);
}

TEST_F(SessionRules, TheWindowsFeeIsHoursTimesRateInSingles) {
  const struct {
    int type;
    SessionTimes times;
    std::optional<std::string> fee;
  } cases[] = {
      {1, {"03/02/2026", "09:00", "", "09:30"}, "36.67"},  // 36.665 as a Single reads
      {1, {"03/02/2026", "09:00", "", "17:00"}, "586.64"},
      {1, {"03/02/2026", "09:00", "", "09:00"}, "0.00"},
      {1, {"03/02/2026", "22:00", "04/02/2026", "06:00"}, "586.64"},
      {1, {"03/02/2026", "22:00", "", "06:00"}, "0.00"},  // overnight without an end date
      {1, {"03/02/2026", "09:00", "01/02/2026", "17:00"}, "0.00"},
      {1, {"", "09:00", "", "17:00"}, std::nullopt},
      {1, {"03/02/2026", "", "", "17:00"}, std::nullopt},
      {1, {"03/02/2026", "09:00", "", ""}, std::nullopt},
      {1, {"banana", "09:00", "", "17:00"}, std::nullopt},
      {1, {"03/02/2026", "09:00", "31/02/2026", "17:00"}, std::nullopt},
      {1, {"03/02/2026", "09:00", "", "25:99"}, std::nullopt},
      {4, {"03/02/2026", "09:00", "", "17:00"}, std::nullopt},
  };
  for (const auto& c : cases)
    EXPECT_EQ(FeeFromTimes(ledger, c.type, "1", c.times), c.fee)
        << c.times.startDate << " " << c.times.startTime << " - " << c.times.endTime;
}

TEST_F(SessionRules, TheListsFeeIsThePlainTextOfASingle) {
  const struct {
    const char *type, *endTime, *fee;
  } cases[] = {{"1", "09:30", "36.67"},
               {"0", "10:30", "120"},
               {"0", "08:00", "0"},
               {"4", "10:30", "5"},
               {"0", "banana", "5"}};
  for (const auto& c : cases) {
    const int row =
        t.AddRow(sessions, {"PRACTICE=1", std::string("SESS_TYPE=") + c.type, "SDATE=03/02/2026",
                            "STIME=09:00", std::string("ETIME=") + c.endTime, "RATE=5"});
    GridFeeFromTimes(ledger, row);
    EXPECT_EQ(sessions.TextMatrix(row, "RATE"), c.fee) << c.type << " " << c.endTime;
  }
}

TEST_F(SessionRules, TheWindowRecalculates) {
  const struct {
    int type;
    const char *rate, *extras, *expenses, *percent, *pensionable, *contribution, *total;
  } cases[] = {
      {1, "100.00", "0", "0", "14.38", "100.00", "12.94", "112.94"},
      {2, "100.00", "0", "0", "14.38", "100.00", "14.38", "114.38"},
      {4, "100.00", "0", "0", "14.38", "100.00", "0.00", "100.00"},
      {0, "100.00", "20", "5.5", "14.38", "120.00", "0.00", "125.50"},
      {1, "200", "50.50", "10", "14.00", "250.50", "31.56", "292.06"},
      {1, "banana", "", "12,3x", "", "0.00", "0.00", "12.00"},
      {1, "1e999", "", "", "1e999", "1.00", "0.01", "1.01"},  // Val stops at the "e"
  };
  for (const auto& c : cases) {
    const SessionSums sums = WindowRecalculation(c.type, c.rate, c.extras, c.expenses, c.percent);
    EXPECT_EQ(sums.pensionable, c.pensionable) << c.type << " " << c.rate;
    EXPECT_EQ(sums.employerContrib, c.contribution) << c.type << " " << c.rate;
    EXPECT_EQ(sums.total, c.total) << c.type << " " << c.rate;
  }
  const std::string huge(300, '9');
  EXPECT_FALSE(WindowRecalculation(1, huge, huge, huge, huge).total.empty());
}

TEST_F(SessionRules, TheListRecalculatesByTheRowsOwnPercentage) {
  SetOption(ledger, optEmployerContribRate, "99");
  const struct {
    const char *type, *rate, *extras, *expenses, *percent, *contribution, *total;
  } cases[] = {
      {"1", "100", "", "", "14.38", "12.94", "112.94"},
      {"2", "100", "", "", "14.38", "14.38", "114.38"},
      {"0", "100", "20", "5.5", "14.38", "0", "125.5"},
      {"4", "100.125", "", "", "14.38", "0", "100.125"},  // the total is not rounded
      {"1", "banana", "", "7", "14.38", "0.00", "7"},
      {"2", "100", "", "", "", "0.00", "100"},
  };
  for (const auto& c : cases) {
    const int row = t.AddRow(
        sessions, {std::string("SESS_TYPE=") + c.type, std::string("RATE=") + c.rate,
                   std::string("EXTRAS=") + c.extras, std::string("EXPENSES=") + c.expenses,
                   std::string("EMPLOYERCONTRIBRATE=") + c.percent});
    GridRecalculation(ledger, row);
    EXPECT_EQ(sessions.TextMatrix(row, "EMPLOYERCONTRIB"), c.contribution) << c.type << c.rate;
    EXPECT_EQ(sessions.TextMatrix(row, "TOTAL"), c.total) << c.type << c.rate;
  }
}

// The window works the percentage out in doubles, the list in singles: they part company here, and
// a merged rule would fail one of the two.
TEST_F(SessionRules, WindowAndListDifferWhereTheirKindsDo) {
  int differing = 0;
  const int row = t.AddRow(sessions, {"SESS_TYPE=2", "EMPLOYERCONTRIBRATE=14.38"});
  for (int pence = 1; pence < 200000; pence += 7) {
    const std::string rate = PlainText(pence / 100.0);
    sessions.SetTextMatrix(row, "RATE", rate);
    GridRecalculation(ledger, row);
    const std::string window = WindowRecalculation(2, rate, "", "", "14.38").employerContrib;
    const std::string& list = sessions.TextMatrix(row, "EMPLOYERCONTRIB");
    if (window != list) ++differing;
    EXPECT_NEAR(Val(window), Val(list), 0.0101) << rate;
  }
  EXPECT_GT(differing, 0);
}

TEST_F(SessionRules, HiddenItemsDoNotCountInTheSum) {
  Grid items("fgExtras");
  items.SetCols(1);
  items.SetColKey(0, "RATE");
  EXPECT_EQ(SumOfItems(items), "0.00");
  for (const char* rate : {"10.10", "0.005", "12,3x", "banana", "", "1000"}) items.AddItem(rate);
  EXPECT_EQ(SumOfItems(items), "1022.10");
  items.SetRowHidden(items.Rows() - 1, true);
  EXPECT_EQ(SumOfItems(items), "22.10");
  EXPECT_EQ(SumOfItems(Grid("noColumns")), "0.00");
}

TEST_F(SessionRules, SessionsThatStartTogether) {
  t.AddRow(sessions, {"ID=1", "SDATE=02/02/2026", "STIME=09:00", "PRACTICE=1"});
  sessions.SetRowOutlineLevel(t.AddRow(sessions, {"ID=9", "SDATE=02/02/2026", "STIME=10:00"}), 1);
  t.AddRow(sessions, {"ID=2", "SDATE=02/02/2026", "STIME=11:00"});
  t.AddRow(sessions, {"ID=", "SDATE=", "STIME="});
  const struct {
    const char *date, *time, *exceptId;
    bool found;
  } cases[] = {{"02/02/2026", "09:00", "", true},  {"02/02/2026", "09:00", "1", false},
               {"02/02/2026", "11:00", "1", true}, {"02/02/2026", "10:00", "", false},
               {"2/2/2026", "09:00", "", false},   {"02/02/2026", "12:00", "", false},
               {"02/02/2026", "", "", false},      {"", "", "", false}};
  for (const auto& each : cases)
    EXPECT_EQ(StartsTogether(ledger, each.date, each.time, each.exceptId), each.found)
        << each.date << each.time << each.exceptId;
}

TEST_F(SessionRules, FormLettersGoInOnceAndComeOut) {
  const struct {
    const char *before, *letter, *with, *without;
  } cases[] = {{"", "A", "A", ""},
               {"A", "B", "A,B", "A"},
               {"A,B", "B", "A,B", "A"},
               {"A,B", "A", "A,B", "B"},
               {"A", "A", "A", ""},
               {"SOLO", "SOLO", "SOLO", ""},
               {"A,B,C", "B", "A,B,C", "A,,C"},
               {"C", "D", "C,D", "C"}};
  for (const auto& c : cases) {
    EXPECT_EQ(WithFormLetter(c.before, c.letter), c.with) << c.before << " + " << c.letter;
    EXPECT_EQ(WithoutFormLetter(c.before, c.letter), c.without) << c.before << " - " << c.letter;
  }

  const int row = t.AddRow(sessions, {"FORMS=A"});
  AddFormLetter(ledger, row, "A");
  RemoveFormLetter(ledger, row, "SOLO");
  EXPECT_EQ(StateOfRow(ledger, sessions, row), RowState::Saved);
  AddFormLetter(ledger, row, "B");
  EXPECT_EQ(sessions.TextMatrix(row, "FORMS"), "A,B");
  EXPECT_EQ(StateOfRow(ledger, sessions, row), RowState::Edited);
}

TEST_F(SessionRules, ALockedSessionIsNotDeleted) {
  const struct {
    const char *invoice, *forms, *message;
  } cases[] = {{"4", "A", "A session cannot be deleted once it has been put on an invoice"},
               {"4", "", "A session cannot be deleted once it has been put on an invoice"},
               {"", "SOLO", "A session cannot be deleted once it has been put on a pension form"}};
  for (const auto& c : cases) {
    const int row = t.AddRow(sessions, {std::string("INVOICE=") + c.invoice,
                                        std::string("FORMS=") + c.forms, "PRACTICE=1"});
    EXPECT_TRUE(IsSessionLocked(ledger, row));
    t.shown.answers = {Answer::Yes};
    const int rows = sessions.Rows();
    EXPECT_FALSE(DeleteSession(ledger, sessions.TextMatrix(row, "ID")));
    EXPECT_EQ(sessions.Rows(), rows);
    EXPECT_EQ(t.shown.TakeMessage(), c.message);
  }
}

TEST_F(SessionRules, ADeletedSessionTakesItsItemsAlong) {
  t.AddRow(sessions, {"ID=7", "PRACTICE=1"});
  t.AddRow(sessions, {"ID=8", "PRACTICE=1"});
  for (const char* session : {"7", "8", "7", "77", "7"}) {
    t.AddRow(ledger.fgExtras, {std::string("SESSID=") + session});
    t.AddRow(ledger.fgSessionExpenses, {std::string("SESSID=") + session});
  }
  EXPECT_FALSE(DeleteSession(ledger, "99"));
  EXPECT_TRUE(t.shown.messages.empty());

  EXPECT_FALSE(DeleteSession(ledger, "7"));  // the safe answer is No
  EXPECT_EQ(t.shown.messages.back().mainPrompt, "Delete Session");
  EXPECT_EQ(t.shown.messages.back().minorPrompt, "Delete this session for practice 'Riverside'?");
  EXPECT_GE(SessionRow(ledger, "7"), 0);

  t.shown.answers = {Answer::Yes};
  EXPECT_TRUE(DeleteSession(ledger, sessions.TextMatrix(SessionRow(ledger, "7"), "ID")));
  EXPECT_EQ(SessionRow(ledger, "7"), -1);
  EXPECT_GE(SessionRow(ledger, "8"), 0);
  for (const Grid* items : {&ledger.fgExtras, &ledger.fgSessionExpenses}) {
    EXPECT_EQ(items->Rows(), items->FixedRows() + 2);
    EXPECT_EQ(items->FindRow("7", "SESSID"), -1);
  }

  t.shown.answers = {Answer::Yes};
  EXPECT_TRUE(DeleteSession(ledger, ""));
  EXPECT_EQ(t.shown.TakeMessage(), "Delete this session?");
  EXPECT_GE(SessionRow(ledger, "8"), 0);
}

TEST_F(SessionRules, ASessionIsFoundPastAGroupRowThatBearsItsId) {
  const int group = t.AddRow(sessions, {"ID=5"});
  sessions.SetRowOutlineLevel(group, 1);
  EXPECT_EQ(SessionRow(ledger, "5"), -1);
  const int row = t.AddRow(sessions, {"ID=5"});
  EXPECT_EQ(SessionRow(ledger, "5"), row);
  EXPECT_EQ(SessionRow(ledger, ""), -1);
}

TEST_F(SessionRules, StatusTexts) {
  sessions.SetColComboList(sessions.ColIndex("INVOICE"), "#3;INV-00003");
  EXPECT_EQ(InvoiceStatusText(ledger, -1), "Not invoiced yet");
  EXPECT_EQ(InvoiceStatusText(ledger, t.AddRow(sessions, {})), "Not invoiced yet");
  EXPECT_EQ(InvoiceStatusText(ledger, t.AddRow(sessions, {"INVOICE=3"})), "INV-00003");
  EXPECT_EQ(UnpensionedText(kTypeOohStandard), "Not pensioned yet");
  EXPECT_EQ(UnpensionedText(kTypeUnpensioned), "Not pensionable");

  for (const auto& [country, shown] :
       {std::pair{"england", true}, {"England", true}, {"Scotland", false}, {"", false}}) {
    SetOption(ledger, optPensionCountry, country);
    EXPECT_EQ(ShowsEmployerContrib(ledger), shown) << country;
  }
}

}  // namespace
}  // namespace lm
