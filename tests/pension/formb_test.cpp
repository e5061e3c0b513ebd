// Form B: made of the Forms A that came back in a month, whatever month they are for.
#include <filesystem>

#include "tests/pension/rules_desk.h"

namespace lm {
namespace {

namespace fs = std::filesystem;
using test::Cells;
using test::CellsOf;
using test::RulesDesk;

const std::vector<std::string> kFigures = {"AMOUNT",     "PENSIONABLE",   "CONTRIBUTION",
                                           "AVC",        "EXTRA_YEARS",   "ERRBO",
                                           "ADDITIONAL", "TOTAL_CONTRIB", "EMPLOYERCONTRIB"};

TEST(FormB, Figures) {
  struct Case {
    std::vector<Cells> formsA;
    const char *rate, *avc, *years;
    const char* figures;
  };
  const Cells kThousand = {"AMOUNT=1000.00", "PENSIONABLE=900.00", "EMPLOYERCONTRIB=129.42"};
  const Case kCases[] = {
      {{kThousand}, "6.0", "10%", "0", "1000.00 900.00 54.00 90.00 0.00 0 0 144.00 129.42"},
      {{kThousand}, "6.0", "50.00", "0", "1000.00 900.00 54.00 50.00 0.00 0 0 104.00 129.42"},
      {{kThousand}, "6.0", "%", "5", "1000.00 900.00 54.00 0.00 45.00 0 0 99.00 129.42"},
      {{kThousand}, "", "10% ", "", "1000.00 900.00 0.00 10.00 0.00 0 0 10.00 129.42"},
      // Worked out from the amount: the two Forms A show 5.40 each. The sums keep four decimals,
      // the employer's as they are.
      {{{"AMOUNT=100.05", "PENSIONABLE=90.04", "CONTRIBUTION=5.40", "EMPLOYERCONTRIB=12.50005"},
        {"AMOUNT=100.05", "PENSIONABLE=90.04", "CONTRIBUTION=5.40", "EMPLOYERCONTRIB=0.5"}},
       "6.0",
       "0",
       "0",
       "200.10 180.08 10.81 0.00 0.00 0 0 10.81 13"},
      // The widened single beside the plain 0.9; the total is of the figures before they are cut to
      // pence.
      {{{"AMOUNT=1000.05"}},
       "100",
       "100%",
       "100",
       "1000.05 0.00 900.04 900.05 900.05 0 0 2700.13 0"},
      // With the widened one these would be 9.22.
      {{{"AMOUNT=102.50"}}, "0", "10%", "10", "102.50 0.00 0.00 9.23 9.23 0 0 18.45 0"},
      // Figures above seven digits are those of a single.
      {{{"AMOUNT=1234567.89"}},
       "10",
       "0",
       "0",
       "1234567.89 0.00 111111.10 0.00 0.00 0 0 111111.10 0"},
      {{{"AMOUNT=banana", "PENSIONABLE=12,3x"}},
       "6",
       "x%",
       "x",
       "0.00 12.00 0.00 0.00 0.00 0 0 0.00 0"},
  };
  for (const Case& c : kCases) {
    RulesDesk desk;
    SetOption(desk, optMandatoryContribution, c.rate);
    SetOption(desk, optDefaultAVC, c.avc);
    SetOption(desk, optExtraYearsContrib, c.years);
    for (const Cells& more : c.formsA) {
      const int row = desk.AddFormA("1", "01/03/2024", "0", more);
      desk.ledger.fgPensionA.SetTextMatrix(row, "RCVDFROMPRACTICE", "05/04/2024");
    }
    ASSERT_TRUE(desk.MakeB("042024")) << c.figures;
    EXPECT_EQ(CellsOf(desk.ledger.fgPensionB, 2, kFigures), c.figures);
    EXPECT_EQ(CellsOf(desk.ledger.fgPensionB, 2, {"ID", "MONTH", "SENTTOHA"}), " 01/04/2024 ");
    EXPECT_EQ(StateOfRow(desk, desk.ledger.fgPensionB, 2), RowState::New);
  }
}

TEST(FormB, GoesByTheDateOnWhichAFormCameBack) {
  RulesDesk desk;
  desk.AddSession("1", "05/03/2024", "10", {"FORMS=A"});
  desk.AddSession("1", "05/04/2024", "20", {"FORMS=A"});
  desk.AddSession("2", "05/03/2024", "40", {"FORMS=A"});
  desk.AddSession("1", "06/03/2024", "80");  // entered after the form
  desk.AddSession("1", "07/03/2024", "80", {"FORMS=A,C"});
  desk.AddSession("1", "08/03/2024", "80", {"FORMS=A", "SESS_TYPE=2"});
  desk.AddFormA("1", "01/03/2024", "10.00", {"RCVDFROMPRACTICE=02/04/2024"});
  desk.AddFormA("1", "01/04/2024", "20.00", {"RCVDFROMPRACTICE=02/05/2024"});
  desk.AddFormA("2", "01/03/2024", "40.00", {"RCVDFROMPRACTICE=banana"});

  EXPECT_FALSE(desk.MakeB("032024"));
  EXPECT_FALSE(desk.MakeB(""));
  EXPECT_EQ(desk.Letters(), "A A A - A,C A");
  EXPECT_FALSE(desk.ledger.fgPensionB.HasData());

  ASSERT_TRUE(desk.MakeB("042024"));
  EXPECT_EQ(desk.Letters(), "A,B A A - A,C A");
  EXPECT_EQ(CellsOf(desk.ledger.fgPensionB, 2, {"AMOUNT"}), "10.00");
  EXPECT_EQ(StateOfRow(desk, desk.ledger.fgSessions, 2), RowState::Edited);
  EXPECT_EQ(StateOfRow(desk, desk.ledger.fgSessions, 3), RowState::Saved);

  // The form of a practice that is gone is summed all the same.
  desk.AddFormA("77", "01/02/2024", "5.00", {"RCVDFROMPRACTICE=30/4/2024"});
  desk.shown.answers = {Answer::Yes};
  ASSERT_TRUE(desk.MakeB("042024"));
  EXPECT_EQ(CellsOf(desk.ledger.fgPensionB, 2, {"AMOUNT"}), "15.00");
  EXPECT_EQ(desk.ledger.fgPensionB.Rows(), 3);
}

TEST(FormB, AsksBeforeItOverwrites) {
  RulesDesk desk;
  desk.AddSession("1", "05/03/2024", "10", {"FORMS=A,B"});
  desk.AddFormA("1", "01/03/2024", "10.00", {"RCVDFROMPRACTICE=02/04/2024"});
  const int row = desk.AddRow(desk.ledger.fgPensionB, {"MONTH=01/04/2024"});
  const std::string heading =
      "Create Form B|A Locum Form B has already been calculated for April 24.|";
  EXPECT_FALSE(desk.MakeB("052024"));
  EXPECT_FALSE(desk.MakeB("042024"));
  EXPECT_EQ(desk.Questions(), heading + "Do you wish to overwrite it?\n");
  desk.ledger.fgPensionB.SetTextMatrix(row, "SENTTOHA", "09/05/2024");
  EXPECT_FALSE(desk.MakeB("042024"));
  EXPECT_EQ(desk.Questions(), heading +
                                  "This form has already been sent to the HA.\r\nDo you wish to "
                                  "overwrite it?\n");
  EXPECT_EQ(desk.Letters(), "A,B");
  desk.shown.answers = {Answer::Yes};
  EXPECT_TRUE(desk.MakeB("042024"));
  EXPECT_EQ(desk.Letters(), "A,B");
  EXPECT_EQ(desk.ledger.fgPensionB.Rows(), row + 1);
  // It goes with the Yes, whether another can be made or not.
  desk.ledger.fgPensionA.SetTextMatrix(2, "RCVDFROMPRACTICE", "");
  desk.shown.answers = {Answer::Yes};
  EXPECT_FALSE(desk.MakeB("042024"));
  EXPECT_EQ(desk.Row(kFormB, "042024"), -1);
}

TEST(FormB, DeletionUnlocksItsFormsA) {
  RulesDesk desk;
  desk.AddSession("1", "05/03/2024", "10", {"FORMS=A"});
  desk.AddSession("1", "05/04/2024", "10", {"FORMS=A"});
  desk.AddFormA("1", "01/03/2024", "10.00", {"RCVDFROMPRACTICE=02/04/2024"});
  desk.AddFormA("1", "01/04/2024", "10.00", {"RCVDFROMPRACTICE=02/05/2024"});
  ASSERT_TRUE(desk.MakeB("042024") && desk.MakeB("052024"));
  desk.Questions();
  EXPECT_FALSE(desk.Delete(kFormB, "042024"));
  EXPECT_EQ(desk.Questions(),
            "LedgerMinder|Delete Pension Form|Delete Pension Form B for April 2024?\n");
  EXPECT_EQ(desk.Letters(), "A,B A,B");
  EXPECT_FALSE(desk.Delete(kFormB, "062024"));
  EXPECT_EQ(desk.Questions(), "");

  const fs::path document = FormFile(desk, {kFormB, desk.ledger.fgPensionB, 2});
  fs::create_directories(document / "in the way");
  desk.shown.answers = {Answer::Yes};
  EXPECT_FALSE(desk.Delete(kFormB, "042024"));
  EXPECT_EQ(desk.Letters(), "A,B A,B");

  fs::remove_all(document);
  desk.shown.answers = {Answer::Yes};
  EXPECT_TRUE(desk.Delete(kFormB, "042024"));
  EXPECT_EQ(desk.Letters(), "A A,B");
  EXPECT_EQ(desk.Row(kFormB, "042024"), -1);
  EXPECT_GT(desk.Row(kFormB, "052024"), 0);
}

TEST(FormB, IsLookedUpByMonthAndLetter) {
  RulesDesk desk;
  desk.AddRow(desk.ledger.fgPensionB, {"MONTH=banana"});
  const int row = desk.AddRow(desk.ledger.fgPensionB, {"MONTH=1/4/2024"});
  desk.AddRow(desk.ledger.fgPensionD, {"MONTH=01/05/2024"});
  EXPECT_EQ(desk.Row(kFormB, "042024"), row);
  EXPECT_EQ(desk.Row(kFormB, ""), -1);
  EXPECT_EQ(desk.Row(kFormD, "042024"), -1);
  EXPECT_GT(desk.Row(kFormD, "052024"), 0);
  EXPECT_EQ(desk.Row(kFormB, "052024"), -1);
}

TEST(FormB, ContributionRate) {
  struct Case {
    const char *pensionable, *contribution;
    std::optional<Single> rate;
  };
  const Case kCases[] = {
      {"900.00", "54.00", 6.0f},         {"900.00", "112.50", 12.5f},
      {"900.04", "54.01", 6.0f},         {"1000.00", "52.05", 5.2f},  // half to even
      {"1000.00", "52.15", 5.22f},       {"0.00", "54.00", std::nullopt},
      {"banana", "54.00", std::nullopt}, {"900.00", "", 0.0f}};
  for (const Case& c : kCases) {
    RulesDesk desk;
    desk.AddRow(desk.ledger.fgPensionB,
                {"MONTH=01/04/2024", "PENSIONABLE=" + std::string(c.pensionable),
                 "CONTRIBUTION=" + std::string(c.contribution)});
    EXPECT_EQ(RateOfFormB(desk, Month::OfKey("042024")), c.rate)
        << c.pensionable << " " << c.contribution;
    EXPECT_EQ(RateOfFormB(desk, Month::OfKey("052024")), std::nullopt);
  }
}

TEST(FormB, TotalAfterAnEdit) {
  struct Case {
    const char *country, *edited;
    const char* cells;  // AVC, EXTRA_YEARS, ERRBO, ADDITIONAL, TOTAL_CONTRIB after it
  };
  const Case kCases[] = {
      {"England", "AVC", "0|900.50| ||1,954.51"},
      {"England", "ERRBO", "|900.50|0|0|1,954.51"},
      {"England", "additional", "|900.50|0|0|1,954.51"},
      {"Scotland", "EXTRA_YEARS", "|900.50|0|0|1,954.51"},
      {"scotland", "AVC", "0|900.50| ||1,954.51"},
      {"England", "NOTES", "|900.50| ||1.00"},
      {"England", "SENTTOHA", "|900.50| ||1.00"},
  };
  for (const Case& c : kCases) {
    RulesDesk desk;
    SetOption(desk, optPensionCountry, c.country);
    Grid& forms = desk.ledger.fgPensionB;
    const int row = desk.AddRow(
        forms, {"CONTRIBUTION=1054.01", "EXTRA_YEARS=900.50", "ERRBO= ", "TOTAL_CONTRIB=1.00"});
    Recalculate(desk, kFormB, forms, row, c.edited);
    std::string cells;
    for (const char* key : {"AVC", "EXTRA_YEARS", "ERRBO", "ADDITIONAL", "TOTAL_CONTRIB"})
      cells += (cells.empty() && key[1] == 'V' ? "" : "|") + forms.TextMatrix(row, key);
    EXPECT_EQ(cells, c.cells) << c.edited;
    EXPECT_EQ(StateOfRow(desk, forms, row),
              cells.ends_with("1.00") ? RowState::Saved : RowState::Edited);
    EXPECT_EQ(desk.shown.messages.size(), std::string(c.country) == "scotland" ? 1U : 0U);
  }
}

TEST(FormB, NoAvcInScotland) {
  RulesDesk desk;
  SetOption(desk, optPensionCountry, "Scotland");
  Grid& forms = desk.ledger.fgPensionB;
  const int row = desk.AddRow(forms, {"CONTRIBUTION=54.00", "AVC=90"});
  Recalculate(desk, kFormB, forms, row, "AVC");
  EXPECT_EQ(CellsOf(forms, row, {"AVC", "TOTAL_CONTRIB"}), "0 54.00");
  EXPECT_EQ(desk.OneMessage(),
            "LedgerMinder|AVCs on Scottish Pension Forms|You currently have your pension options "
            "set to use the Scottish pension forms.\r\n\r\nScottish pension Form B has no "
            "provision for AVCs. These must be entered on a seperate form. This has not been "
            "implemented in LedgerMinder yet.\r\n\r\nYou can change the country for your pension "
            "calculations on the Options screen.");
}

}  // namespace
}  // namespace lm
