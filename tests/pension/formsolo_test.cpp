// Form SOLO: one provider's out-of-hours sessions of a month.
#include "tests/pension/rules_desk.h"

namespace lm {
namespace {

using test::Cells;
using test::CellsOf;
using test::RulesDesk;

const std::vector<std::string> kFigures = {
    "SESSIONS",   "AMOUNT", "EXPENSES",   "PENSIONABLE", "MY_CONTRIB",   "AVC",
    "EXTRAYEARS", "ERRBO",  "ADDITIONAL", "EMP_CONTRIB", "TOTAL_CONTRIB"};

TEST(FormSolo, Figures) {
  struct Case {
    std::vector<Cells> sessions;
    const char *avc, *years, *country;
    const char* figures;
  };
  const Case kCases[] = {
      {{{"RATE=1000"}},
       "",
       "",
       "England",
       "1 1000.00 0.00 1000.00 60.00 0.00 0.00 0.00 0 143.80 203.80"},
      {{{"RATE=1000"}},
       "",
       "",
       "Northern Ireland",
       "1 1000.00 0.00 1000.00 60.00 0.00 0.00 0.00 0 133.00 193.00"},
      {{{"RATE=1000"}},
       "",
       "",
       "NORTHERN IRELAND",
       "1 1000.00 0.00 1000.00 60.00 0.00 0.00 0.00 0 143.80 203.80"},
      {{{"RATE=100", "EXTRAS=50", "EXPENSES=7.5"}},
       "10%",
       "5",
       "England",
       "1 100.00 7.50 150.00 9.00 15.00 7.50 0.00 0 21.57 53.07"},
      {{{"RATE=1,000.10", "EXPENSES=1,000"}, {"RATE=0.2", "EXTRAS=12,3x"}},
       "12.345",
       "0",
       "Scotland",
       "2 1000.30 1000.00 1123.30 67.40 12.35 0.00 0.00 0 161.53 241.28"},
      // Sums are singles: seven digits.
      {{{"RATE=123456.78"}},
       "0",
       "0",
       "England",
       "1 123456.80 0.00 123456.80 7407.41 0.00 0.00 0.00 0 17753.09 25160.50"},
      {{{"RATE=banana", "EXTRAS="}},
       "x%",
       "x",
       "",
       "1 0.00 0.00 0.00 0.00 0.00 0.00 0.00 0 0.00 0.00"},
  };
  for (const Case& c : kCases) {
    RulesDesk desk;
    SetOption(desk, optDefaultAVC, c.avc);
    SetOption(desk, optExtraYearsContrib, c.years);
    SetOption(desk, optPensionCountry, c.country);
    for (const Cells& more : c.sessions) {
      const int row = desk.AddSession("3", "05/04/2024", "0", more);
      desk.ledger.fgSessions.SetTextMatrix(row, "SESS_TYPE", "2");
    }
    ASSERT_TRUE(desk.MakeSolo("3", "042024")) << c.figures;
    EXPECT_EQ(CellsOf(desk.ledger.fgPensionSolo, 2, kFigures), c.figures);
    EXPECT_EQ(CellsOf(desk.ledger.fgPensionSolo, 2, {"ID", "PRACTICE", "MONTH"}), " 3 01/04/2024");
    EXPECT_EQ(StateOfRow(desk, desk.ledger.fgPensionSolo, 2), RowState::New);
  }
}

TEST(FormSolo, TakesSessionsOverFromOtherForms) {
  RulesDesk desk;
  const Cells kOoh = {"SESS_TYPE=2"};
  desk.AddSession("1", "05/04/2024", "10", {"SESS_TYPE=2", "FORMS=A,B"});
  desk.AddSession("1", "06/04/2024", "20");
  desk.AddSession("1", "06/05/2024", "40", kOoh);
  desk.AddSession("3", "06/04/2024", "80", kOoh);
  ASSERT_TRUE(desk.MakeSolo("1", "042024"));
  EXPECT_EQ(desk.Letters(), "SOLO - - -");
  EXPECT_EQ(StateOfRow(desk, desk.ledger.fgSessions, 2), RowState::Edited);
  EXPECT_FALSE(desk.MakeSolo("2", "042024"));
  EXPECT_FALSE(desk.MakeSolo("1", ""));

  desk.shown.answers = {Answer::Yes};
  EXPECT_EQ(desk.MakeAll(kFormSolo, "042024"), 2);
  EXPECT_EQ(desk.Letters(), "SOLO - - SOLO");
  EXPECT_EQ(desk.shown.progress.front(), "0 Preparing Form Solo 1: Riverside");
  EXPECT_EQ(desk.shown.progress.back(), "hide");
}

TEST(FormSolo, AsksBeforeItOverwritesAndBeforeItGoes) {
  RulesDesk desk;
  desk.AddSession("3", "05/04/2024", "10", {"SESS_TYPE=2"});
  ASSERT_TRUE(desk.MakeSolo("3", "042024"));
  desk.Questions();
  const std::string heading =
      "Create Form Solo|A Locum Form Solo has already been calculated for Night Care for Apr "
      "2024|";
  EXPECT_FALSE(desk.MakeSolo("3", "042024"));
  EXPECT_EQ(desk.Questions(), heading + "Do you wish to overwrite it?\n");
  desk.ledger.fgPensionSolo.SetTextMatrix(2, "SENTTOHA", "01/05/2024");
  desk.shown.answers = {Answer::Yes};
  EXPECT_TRUE(desk.MakeSolo("3", "042024"));
  EXPECT_EQ(desk.Questions(), heading +
                                  "This form has already been sent to the HA.\r\nDo you wish to "
                                  "overwrite it?\n");
  EXPECT_EQ(desk.ledger.fgPensionSolo.Rows(), 3);
  EXPECT_EQ(desk.Letters(), "SOLO");

  EXPECT_FALSE(desk.Delete(kFormSolo, "042024", "3"));
  EXPECT_EQ(desk.Questions(),
            "LedgerMinder|Delete Pension Form|Delete Pension Form Solo for 'Night Care' for April "
            "2024?\n");
  desk.shown.answers = {Answer::Yes};
  EXPECT_TRUE(desk.Delete(kFormSolo, "042024", "3"));
  EXPECT_EQ(desk.Letters(), "-");
  EXPECT_FALSE(desk.ledger.fgPensionSolo.HasData());
}

// The month is told by the end of the cell alone.
TEST(FormSolo, RowByTheEndOfTheMonthCell) {
  RulesDesk desk;
  const std::pair<const char*, bool> kCases[] = {{"01/04/2024", true},  {"31/04/2024", true},
                                                 {"04/2024", true},     {"1/4/2024", false},
                                                 {"01/05/2024", false}, {"", false}};
  for (const auto& [month, found] : kCases) {
    desk.ledger.fgPensionSolo.ClearData();
    desk.AddRow(desk.ledger.fgPensionSolo, {"PRACTICE=3", "MONTH=" + std::string(month)});
    EXPECT_EQ(desk.Row(kFormSolo, "042024", "3") == 2, found) << month;
    EXPECT_EQ(desk.Row(kFormSolo, "", "3"), -1) << month;
    EXPECT_EQ(desk.Row(kFormSolo, "042024", "1"), -1) << month;
  }
}

TEST(FormSolo, TotalAfterAnEdit) {
  RulesDesk desk;
  Grid& forms = desk.ledger.fgPensionSolo;
  const int row =
      desk.AddRow(forms, {"MY_CONTRIB=60.00", "EMP_CONTRIB=1143.80",
                          "AVC=", "EXTRAYEARS= ", "ADDITIONAL=0.125", "TOTAL_CONTRIB=1"});
  Recalculate(desk, kFormSolo, forms, row, "NOTES");
  EXPECT_EQ(CellsOf(forms, row, {"TOTAL_CONTRIB"}), "1");
  EXPECT_EQ(StateOfRow(desk, forms, row), RowState::Saved);
  Recalculate(desk, kFormSolo, forms, row, "EXTRAYEARS");
  EXPECT_EQ(CellsOf(forms, row, {"EXTRAYEARS", "TOTAL_CONTRIB"}), "0 1203.925");
  EXPECT_EQ(CellsOf(forms, row, {"AVC"}), "");
  EXPECT_EQ(StateOfRow(desk, forms, row), RowState::Edited);
  forms.SetTextMatrix(row, "ERRBO", "1.075");
  Recalculate(desk, kFormSolo, forms, row, "ERRBO");
  EXPECT_EQ(CellsOf(forms, row, {"TOTAL_CONTRIB"}), "1205");
}

}  // namespace
}  // namespace lm
