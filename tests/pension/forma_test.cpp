// Form A: its figures, what it asks before it is made, what it leaves on the sessions.
#include <filesystem>
#include <fstream>

#include "tests/pension/rules_desk.h"

namespace lm {
namespace {

namespace fs = std::filesystem;
using test::Cells;
using test::CellsOf;
using test::RulesDesk;

const std::vector<std::string> kFigures = {"SESSIONS", "AMOUNT", "PENSIONABLE", "CONTRIBUTION",
                                           "EMPLOYERCONTRIB"};

TEST(FormA, Figures) {
  struct Case {
    std::vector<Cells> sessions;  // more cells of each
    const char* rate;
    const char* figures;
  };
  const Case kCases[] = {
      {{{"RATE=1000"}}, "6.0", "1 1000.00 900.00 54.00 0.00"},
      // Expenses are never paid on; the contribution is what the sessions hold.
      {{{"RATE=1,000", "EXTRAS=1,000.50", "EXPENSES=70", "EMPLOYERCONTRIB=1,129.42"},
        {"RATE=0.5", "EMPLOYERCONTRIB=0.33"}},
       "9.8%",
       "2 2001.00 1800.90 176.49 1129.75"},
      // A plain 0.9 would give 900.05, and 11.48.
      {{{"RATE=1000.05"}}, "0", "1 1000.05 900.04 0.00 0.00"},
      {{{"RATE=102"}}, "12.5", "1 102.00 91.80 11.47 0.00"},
      {{{"RATE=1002.5"}}, "6", "1 1002.50 902.25 54.13 0.00"},
      // The single next to the fee goes into the sum as it is: 8863.6504, 123456.7812.
      {{{"RATE=8863.65"}}, "0", "1 8863.65 7977.29 0.00 0.00"},
      {{{"RATE=123456.78"}}, "0", "1 123456.78 111111.10 0.00 0.00"},
      {{{"RATE=0.00004"}, {"RATE=0.00004"}}, "0", "2 0.00 0.00 0.00 0.00"},
      {{{"RATE=12,3x", "EXTRAS=banana", "EMPLOYERCONTRIB="}}, "x", "1 123.00 110.70 0.00 0.00"},
  };
  for (const Case& c : kCases) {
    RulesDesk desk;
    SetOption(desk, optMandatoryContribution, c.rate);
    for (const Cells& more : c.sessions) desk.AddSession("1", "05/04/2024", "0", more);
    ASSERT_TRUE(desk.MakeA("1", "042024")) << c.figures;
    EXPECT_EQ(CellsOf(desk.ledger.fgPensionA, 2, kFigures), c.figures);
  }
}

TEST(FormA, TakesThePracticesNormalSessionsOfTheMonth) {
  RulesDesk desk;
  desk.AddSession("1", "30/04/2024", "10");
  desk.AddSession("1", "01/05/2024", "20");
  desk.AddSession("2", "05/04/2024", "40");
  for (const char* type : {"0", "2", "3", "4", "", "x"})
    desk.AddSession("1", "05/04/2024", "80", {"SESS_TYPE=" + std::string(type)});
  ASSERT_TRUE(desk.MakeA("1", "042024"));
  EXPECT_EQ(desk.Letters(), "A - - - - - - - -");
  const Grid& forms = desk.ledger.fgPensionA;
  EXPECT_EQ(CellsOf(forms, 2, {"ID", "PRACTICE", "MONTH", "SESSIONS", "AMOUNT", "NOTES"}),
            " 1 01/04/2024 1 10.00 ");
  EXPECT_EQ(StateOfRow(desk, forms, 2), RowState::New);
  EXPECT_EQ(StateOfRow(desk, desk.ledger.fgSessions, 2), RowState::Edited);
  EXPECT_EQ(StateOfRow(desk, desk.ledger.fgSessions, 3), RowState::Saved);

  EXPECT_FALSE(desk.MakeA("3", "042024"));
  EXPECT_FALSE(desk.MakeA("", "042024"));
  EXPECT_FALSE(desk.MakeA("1", "banana"));
  EXPECT_EQ(forms.Rows(), 3);

  SetOption(desk, optNewRowPosition, "top");
  ASSERT_TRUE(desk.MakeA("2", "042024"));
  EXPECT_EQ(desk.Row(kFormA, "042024", "2"), 2);
  EXPECT_EQ(desk.Row(kFormA, "042024", "1"), 3);
  EXPECT_EQ(desk.Row(kFormA, "052024", "1"), -1);
  EXPECT_EQ(desk.Row(kFormA, "", "1"), -1);
}

TEST(FormA, AsksBeforeItOverwrites) {
  struct Case {
    Cells cells;
    const char* text;
  };
  const Case kCases[] = {
      {{}, "Do you wish to overwrite it?"},
      {{"SENTTOPRACTICE=01/05/2024"},
       "This form has already been sent to the Practice.\r\nDo you wish to overwrite it?"},
      {{"SENTTOPRACTICE=01/05/2024", "RCVDFROMPRACTICE=02/05/2024"},
       "This form has already been received back from the Practice.\r\nDo you wish to overwrite "
       "it?"},
      {{"RCVDFROMPRACTICE=banana"},
       "This form has already been received back from the Practice.\r\nDo you wish to overwrite "
       "it?"},
  };
  for (const Case& c : kCases) {
    RulesDesk desk;
    desk.AddSession("1", "05/04/2024", "100", {"FORMS=A"});
    desk.AddSession("1", "06/04/2024", "50");
    desk.AddFormA("1", "01/04/2024", "100.00", c.cells);
    desk.shown.answers = {Answer::No, Answer::Yes};
    EXPECT_FALSE(desk.MakeA("1", "042024"));
    EXPECT_EQ(desk.Letters(), "A -");
    EXPECT_EQ(desk.Questions(),
              "Create Form A|A Locum Form A has already been calculated for Riverside for Apr "
              "2024|" +
                  std::string(c.text) + "\n");
    EXPECT_TRUE(desk.MakeA("1", "042024"));
    EXPECT_EQ(desk.Letters(), "A A");
    ASSERT_EQ(desk.ledger.fgPensionA.Rows(), 3);
    EXPECT_EQ(CellsOf(desk.ledger.fgPensionA, 2, {"AMOUNT", "RCVDFROMPRACTICE"}), "150.00 ");
  }
}

TEST(FormA, IsFrozenByTheFormBOfTheMonthInWhichItCameBack) {
  RulesDesk desk;
  desk.AddSession("1", "05/04/2024", "100", {"FORMS=A,B"});
  desk.AddFormA("1", "01/04/2024", "100.00", {"RCVDFROMPRACTICE=09/06/2024"});
  desk.AddRow(desk.ledger.fgPensionB, {"MONTH=01/06/2024"});
  EXPECT_FALSE(desk.MakeA("1", "042024"));
  EXPECT_EQ(desk.OneMessage(),
            "Create Form A|A Locum Form A has already been calculated for Riverside for Apr 2024|"
            "This Form A has already been received back from the Practice and included on Form B "
            "for the month Jun 2024.\r\n\r\nThis Form A can therefore not be edited or deleted. To "
            "unlock this Form A the Form B for the month of Jun 2024 must be deleted first.");
  EXPECT_EQ(desk.Letters(), "A,B");
  EXPECT_EQ(desk.ledger.fgPensionA.Rows(), 3);
}

TEST(FormA, AsksWhenRatesDiffer) {
  struct Case {
    std::vector<Cells> sessions;
    bool asks;
  };
  const Case kCases[] = {
      {{{"EMPLOYERCONTRIBRATE=14.38"}, {}, {"EMPLOYERCONTRIBRATE=14.3"}}, true},
      {{{"EMPLOYERCONTRIBRATE=14.380"}, {"EMPLOYERCONTRIBRATE=14.38%"}}, false},
      {{{"EMPLOYERCONTRIBRATE="}, {"EMPLOYERCONTRIBRATE=14.38"}}, true},
      {{{"EMPLOYERCONTRIB=0"}, {"EMPLOYERCONTRIB=12.94"}}, false},
      {{{}, {"EMPLOYERCONTRIBRATE=9", "SESS_TYPE=2"}}, false},
      {{{}, {"EMPLOYERCONTRIBRATE=9", "SDATE=05/05/2024"}}, false},
  };
  for (const Case& c : kCases) {
    RulesDesk desk;
    for (const Cells& more : c.sessions) desk.AddSession("1", "05/04/2024", "10", more);
    EXPECT_EQ(desk.MakeA("1", "042024"), !c.asks);
    EXPECT_EQ(
        desk.Questions(),
        !c.asks
            ? ""
            : "Inconsistent Employer Pension Contribution Rates|The sessions to be added to a "
              "pension Form A must all have the same employer pension contribution rate.|"
              "\r\n\r\nThe sessions for pratice Riverside for month Apr 2024 do not all have the "
              "same rate.\r\n\r\nIt is strongly recommended you return to the sessions and ensure "
              "the employer contribution rate is consistent. Editing the session forces the "
              "contribution to be recalculated using the rate currently set on the Options "
              "screen. \r\n\r\nDo you still want to create this pension form A?\n");
    if (!c.asks) continue;
    EXPECT_EQ(desk.Letters().find('A'), std::string::npos);
    desk.shown.answers = {Answer::Yes};
    EXPECT_TRUE(desk.MakeA("1", "042024"));
    // The form goes with the first Yes, before the rates are looked at.
    desk.shown.answers = {Answer::Yes, Answer::No};
    EXPECT_FALSE(desk.MakeA("1", "042024"));
    EXPECT_FALSE(desk.ledger.fgPensionA.HasData());
    EXPECT_EQ(desk.Letters().find('A'), std::string::npos);
  }
}

TEST(FormsA, OneForEachPracticeInTheOrderOfTheTable) {
  RulesDesk desk;
  desk.AddRow(desk.ledger.fgPractices, {"ID=", "NAME=Nobody"});
  desk.AddSession("3", "05/04/2024", "30");
  desk.AddSession("1", "05/04/2024", "10");
  desk.AddSession("2", "05/04/2024", "20", {"SESS_TYPE=2"});
  EXPECT_EQ(desk.MakeAll(kFormA, "042024"), 2);
  EXPECT_EQ(CellsOf(desk.ledger.fgPensionA, 2, {"PRACTICE", "AMOUNT"}), "1 10.00");
  EXPECT_EQ(CellsOf(desk.ledger.fgPensionA, 3, {"PRACTICE", "AMOUNT"}), "3 30.00");
  EXPECT_EQ(desk.shown.progress,
            (std::vector<std::string>{"0 Preparing Form A 1: Riverside",
                                      "50 Preparing Form A 2: Night Care", "hide"}));
  EXPECT_EQ(desk.shown.busy, 0);
  EXPECT_TRUE(desk.ledger.fgPensionA.Redraw() && desk.ledger.fgSessions.Redraw());

  desk.Questions();
  desk.shown.answers = {Answer::No, Answer::Yes};
  EXPECT_EQ(desk.MakeAll(kFormA, "042024"), 1);
  EXPECT_EQ(std::ranges::count(desk.Questions(), '\n'), 2);
  EXPECT_EQ(desk.Letters(), "A A -");
  EXPECT_EQ(desk.MakeAll(kFormA, "banana"), 0);
}

TEST(FormsA, APracticeListedTwiceIsAskedAboutItsSecondForm) {
  RulesDesk desk;
  desk.AddRow(desk.ledger.fgPractices, {"ID=1", "NAME=Riverside again"});
  desk.AddSession("1", "05/04/2024", "10");
  EXPECT_EQ(desk.MakeAll(kFormA, "042024"), 1);
  EXPECT_EQ(desk.Questions(),
            "Create Form A|A Locum Form A has already been calculated for Riverside for Apr "
            "2024|Do you wish to overwrite it?\n");
  EXPECT_EQ(desk.ledger.fgPensionA.Rows(), 3);
}

TEST(FormA, Deletion) {
  RulesDesk desk;
  desk.AddSession("1", "05/04/2024", "10");
  desk.AddSession("1", "05/05/2024", "10");
  ASSERT_TRUE(desk.MakeA("1", "042024") && desk.MakeA("1", "052024"));
  desk.Questions();
  EXPECT_FALSE(desk.Delete(kFormA, "042024", "1"));
  EXPECT_EQ(desk.Questions(),
            "LedgerMinder|Delete Pension Form|Delete Pension Form A for 'Riverside' for April "
            "2024?\n");
  EXPECT_EQ(desk.Letters(), "A A");
  EXPECT_FALSE(desk.Delete(kFormA, "042024", "2"));
  EXPECT_EQ(desk.Questions(), "");

  // A document that cannot be removed: nothing changes.
  const fs::path document = FormFile(desk, {kFormA, desk.ledger.fgPensionA, 2});
  fs::create_directories(document / "in the way");
  desk.shown.answers = {Answer::Yes};
  EXPECT_FALSE(desk.Delete(kFormA, "042024", "1"));
  EXPECT_EQ(desk.Letters(), "A A");
  EXPECT_EQ(desk.ledger.fgPensionA.Rows(), 4);

  fs::remove_all(document);
  std::ofstream(document) << "a form";
  desk.shown.answers = {Answer::Yes};
  EXPECT_TRUE(desk.Delete(kFormA, "042024", "1"));
  EXPECT_FALSE(fs::exists(document));
  EXPECT_EQ(desk.Letters(), "- A");
  EXPECT_EQ(desk.Row(kFormA, "042024", "1"), -1);
  EXPECT_EQ(desk.Row(kFormA, "052024", "1"), 2);

  RemoveForm(desk, kFormA, 2);
  EXPECT_EQ(desk.Letters(), "- -");
  EXPECT_FALSE(desk.ledger.fgPensionA.HasData());
}

TEST(FormSums, ByTheLettersType) {
  RulesDesk desk;
  desk.AddSession("1", "05/04/2024", "10", {"EXTRAS=1", "EMPLOYERCONTRIB=2"});
  desk.AddSession("2", "05/04/2024", "20");
  desk.AddSession("1", "05/04/2024", "40", {"SESS_TYPE=2", "FORMS=A"});
  const MonthSessions april(desk, Month::OfKey("042024"));
  const FormSums all = AddSessionsToForm(desk, kFormA, april, "");
  EXPECT_EQ(all.amount.ToText() + " " + all.employer.ToText(), "31 2");
  EXPECT_EQ(all.sessions, 2);
  EXPECT_EQ(AddSessionsToForm(desk, kFormB, april, "1").amount.ToText(), "11");
  EXPECT_EQ(AddSessionsToForm(desk, kFormSolo, april, "1").amount.ToText(), "40");
  EXPECT_EQ(desk.Letters(), "A,B A A,SOLO");
}

}  // namespace
}  // namespace lm
