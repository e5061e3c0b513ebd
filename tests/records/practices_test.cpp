#include "records/practices.h"

#include <gtest/gtest.h>

#include "core/formatting.h"
#include "core/options.h"
#include "core/rows.h"
#include "core/text.h"
#include "records/frmPractice.h"
#include "records/frmWelcome.h"
#include "records/practicelist.h"
#include "records/windows.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

using test::TestLedger;

struct Practices : testing::Test {
  TestLedger t;
  Ledger& ledger = t.ledger;
  Grid& practices = ledger.fgPractices;
  PracticeListRules rules{ledger};

  void SetUp() override {
    t.AddRow(practices, {"ID=4", "NAME=Riverside", "MILEAGE=12", "RATE_NORMAL=73.33"});
    t.AddRow(practices, {"ID=9", "NAME=Hilltop"});
    FormatTables(ledger);
  }
  int Row(std::string_view id) const { return practices.FindRow(id, "ID"); }
  EditOutcome Edit(std::string_view id, std::string_view key, std::string_view text) {
    return EditCell(practices, rules, Row(id), practices.ColIndex(key), text);
  }
};

TEST_F(Practices, LookUps) {
  EXPECT_EQ(PracticeName(ledger, "4"), "Riverside");
  EXPECT_EQ(PracticeCell(ledger, "4", "mileage"), "12");
  for (const char* unknown : {"", "5", "-1", "banana"})
    EXPECT_EQ(PracticeName(ledger, unknown), "");
  EXPECT_EQ(NameForFile("St. A/B: \"East\" <1>|?*\\"), "St. AB East 1");
}

TEST_F(Practices, MilesAreBlankOrANumberThatReadsWhole) {
  const struct {
    const char* typed;
    std::optional<std::string> stored;
  } cases[] = {{" 12.50 ", "12.50"}, {"1,000", "1000"},        {"1E3", "1000"},
               {"  ", ""},           {"twelve", std::nullopt}, {"12 miles", std::nullopt}};
  for (const auto& c : cases) EXPECT_EQ(MileageText(c.typed), c.stored) << c.typed;
}

TEST_F(Practices, DeletingIsRefusedWhileSomethingRefersToIt) {
  EXPECT_FALSE(DeletePractice(ledger, ""));
  EXPECT_EQ(t.shown.messages.back().minorPrompt, "There is no practice selected to delete.");
  EXPECT_EQ(t.shown.TakeMessage(), "Delete Practice");

  t.shown.answers = {Answer::Yes};
  const int session = t.AddRow(ledger.fgSessions, {"PRACTICE=4"});
  EXPECT_FALSE(DeletePractice(ledger, "4"));
  EXPECT_EQ(t.shown.TakeMessage(),
            "A Practice cannot be deleted while it has associated sessions.");
  ledger.fgSessions.RemoveItem(session);

  const int payment = t.AddRow(ledger.fgPensionPayments, {"PRACTICE=4"});
  EXPECT_FALSE(DeletePractice(ledger, "4"));
  EXPECT_EQ(t.shown.TakeMessage(),
            "A Practice cannot be deleted while it has associated pension payments.");
  ledger.fgPensionPayments.RemoveItem(payment);

  t.shown.answers.clear();  // the safe answer is No
  EXPECT_FALSE(DeletePractice(ledger, "4"));
  EXPECT_EQ(t.shown.TakeMessage(), "Delete Practice 'Riverside'?");
  EXPECT_GE(Row("4"), 0);

  practices.SetTextMatrix(Row("9"), "BRANCHOF", "4");
  const int group = t.AddRow(ledger.fgSessions, {"PRACTICE=4"});  // of a practice named "4"
  ledger.fgSessions.SetRowOutlineLevel(group, 1);
  t.shown.answers = {Answer::Yes};
  EXPECT_TRUE(DeletePractice(ledger, practices.TextMatrix(Row("4"), "ID")));
  EXPECT_EQ(Row("4"), -1);
  EXPECT_EQ(practices.TextMatrix(Row("9"), "BRANCHOF"), "4");
}

TEST_F(Practices, TheListAcceptsAndRefuses) {
  const struct {
    const char *key, *typed;
    EditOutcome outcome;
    const char *stored, *message;
  } cases[] = {
      {"NAME", "Dr. Who", EditOutcome::Refused, "Hilltop",
       "Some characters not allowed in Practice name."},
      {"NAME", "A|B", EditOutcome::Refused, "Hilltop",
       "Some characters not allowed in Practice name."},
      {"NAME", "Hilltop East", EditOutcome::Accepted, "Hilltop East", ""},
      {"BRANCHOF", "Hilltop East", EditOutcome::Refused, "",
       "A Practice cannot be a Branch Surgery of itself."},
      {"BRANCHOF", "Riverside", EditOutcome::Accepted, "4", ""},
      {"BRANCHOF", "", EditOutcome::Accepted, "", ""},
      {"MILEAGE", "far", EditOutcome::Refused, "", ""},
      {"MILEAGE", " 1,000 ", EditOutcome::Accepted, "1000", ""},
      {"RATE_PRIVATE", "much", EditOutcome::Refused, "", ""},
      {"RATE_PRIVATE", "100000", EditOutcome::Refused, "", ""},
      {"RATE_PRIVATE", "1,234.5", EditOutcome::Accepted, "1234.50", ""},
      {"RATE_PRIVATE", "  ", EditOutcome::Accepted, "", ""},
      {"PHONE", "01234 5", EditOutcome::Accepted, "01234 5", ""},
      {"ID", "1", EditOutcome::NotAllowed, "9", ""},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Edit("9", c.key, c.typed), c.outcome) << c.key << " " << c.typed;
    EXPECT_EQ(practices.TextMatrix(Row("9"), c.key), c.stored) << c.key << " " << c.typed;
    EXPECT_EQ(t.shown.TakeMessage(), c.message) << c.key << " " << c.typed;
  }
  EXPECT_EQ(StateOfRow(ledger, practices, Row("9")), RowState::Edited);
  EXPECT_EQ(StateOfRow(ledger, practices, Row("4")), RowState::Saved);
  EXPECT_FALSE(rules.MayEdit(Row("9"), 0));  // the change marker
}

TEST_F(Practices, ANewNameShowsInTheListsOfOtherTables) {
  EXPECT_EQ(Edit("9", "NAME", "Avenue"), EditOutcome::Accepted);
  const Grid& sessions = ledger.fgSessions;
  EXPECT_EQ(sessions.ColComboList(sessions.ColIndex("PRACTICE")), "#9;Avenue|#4;Riverside");
  const int branch = practices.ColIndex("BRANCHOF");
  EXPECT_EQ(rules.EditList(practices, Row("4"), branch), "| #9;Avenue|#4;Riverside");
}

TEST_F(Practices, TheFeedsColumnWarnsFirst) {
  EXPECT_EQ(Edit("9", "GPNET_MATCH", "Hilltop, 1 The Hill"), EditOutcome::Accepted);
  EXPECT_EQ(t.shown.messages.back().minorPrompt,
            "To cancel this edit close this message box then press the Escape key.");
}

TEST_F(Practices, TheWindowWalksEveryColumn) {
  for (const char* option : {"TRUE", "FALSE"}) {
    SetOption(ledger, optHasRetiredForms, option);
    frmPractice window(ledger);
    for (int col = 1; col < practices.Cols(); ++col) {
      const std::string& key = practices.ColKey(col);
      EXPECT_EQ(window.FindField("txt" + key) != nullptr, key != "BRANCHOF") << key;
    }
    EXPECT_EQ(window.txtRate_OOHD.Visible(), std::string(option) == "TRUE");
    EXPECT_FALSE(window.txtID.Visible());
  }
}

TEST_F(Practices, ANewPracticeIsSaved) {
  for (const auto& [position, atTop] : {std::pair{"bottom", false}, {"TOP", true}}) {
    SetOption(ledger, optNewRowPosition, position);
    t.shown.modal.push_back([&](Screen& screen) {
      auto& window = dynamic_cast<frmPractice&>(screen);
      EXPECT_EQ(window.txtName.Text(), "[New Practice]");
      EXPECT_EQ(window.Focused(), &window.txtName);
      EXPECT_TRUE(window.Enter(window.txtName, "St. Mary's"));  // the list would refuse the stop
      EXPECT_TRUE(window.Enter(window.txtRate_Private, "1,000"));
      EXPECT_TRUE(window.Enter(window.txtRate_Normal, std::string("£1,234.5"_w)));
      EXPECT_TRUE(window.Enter(window.txtMileage, "1,000"));
      window.Press(window.cmdOk);
      EXPECT_TRUE(window.Closed());
    });
    const std::string id = std::to_string(NextId(practices));
    EXPECT_TRUE(NewPractice(ledger));
    const int row = Row(id);
    EXPECT_EQ(row, atTop ? practices.FixedRows() : practices.Rows() - 1);
    EXPECT_EQ(PracticeName(ledger, id), "St. Mary's");
    EXPECT_EQ(PracticeCell(ledger, id, "RATE_PRIVATE"), "1000.00");
    EXPECT_EQ(PracticeCell(ledger, id, "RATE_NORMAL"), "1234.50");
    EXPECT_EQ(PracticeCell(ledger, id, "MILEAGE"), "1000");
    EXPECT_EQ(StateOfRow(ledger, practices, row), RowState::New);
  }
  practices.ClearData();
  frmPractice first(ledger);
  first.New();
  first.Press(first.cmdOk);
  EXPECT_EQ(PracticeName(ledger, "1"), "[New Practice]");
}

TEST_F(Practices, AnEditedPracticeKeepsWhatHasNoBox) {
  practices.SetTextMatrix(Row("4"), "BRANCHOF", "9");
  practices.SetTextMatrix(Row("4"), "RATE_OOHD", "12");   // its box is not shown
  practices.SetTextMatrix(Row("4"), "MILEAGE", "12,3x");  // damaged, and nobody touched it
  t.shown.modal.push_back([&](Screen& screen) {
    auto& window = dynamic_cast<frmPractice&>(screen);
    EXPECT_EQ(window.txtRate_Normal.Text(), "73.33");
    EXPECT_FALSE(window.Enter(window.txtRate_Normal, "lots"));
    EXPECT_EQ(t.shown.TakeMessage(), "The rate must be blank or a number.");
    window.Press(window.cmdOk);  // the refused text is not saved past the check
    EXPECT_FALSE(window.Closed());
    EXPECT_EQ(window.Focused(), &window.txtRate_Normal);
    EXPECT_TRUE(window.Enter(window.txtRate_Normal, ""));
    EXPECT_TRUE(window.Enter(window.txtNotes, "Ring the bell"));
    window.Press(window.cmdOk);
  });
  EXPECT_TRUE(OpenPractice(ledger, "4"));
  EXPECT_EQ(PracticeCell(ledger, "4", "NOTES"), "Ring the bell");
  EXPECT_EQ(PracticeCell(ledger, "4", "RATE_NORMAL"), "");
  EXPECT_EQ(PracticeCell(ledger, "4", "BRANCHOF"), "9");
  EXPECT_EQ(PracticeCell(ledger, "4", "RATE_OOHD"), "12");
  EXPECT_EQ(PracticeCell(ledger, "4", "MILEAGE"), "12,3x");
  EXPECT_EQ(StateOfRow(ledger, practices, Row("4")), RowState::Edited);
}

TEST_F(Practices, CancelledOrUnknownWindowsLeaveNoTrace) {
  t.shown.modal.push_back([](Screen& screen) { screen.Enter(*screen.FindField("txtName"), "X"); });
  EXPECT_TRUE(OpenPractice(ledger, "9"));
  EXPECT_EQ(PracticeName(ledger, "9"), "Hilltop");
  EXPECT_FALSE(OpenPractice(ledger, "77"));
  EXPECT_FALSE(OpenPractice(ledger, ""));
}

TEST_F(Practices, TheCatalogueOpensByWords) {
  WindowCatalogue catalogue;
  AddRecordWindows(catalogue);
  EXPECT_TRUE(catalogue.Open(ledger, "frmPractice", {"open", "4"}));
  EXPECT_FALSE(catalogue.Open(ledger, "frmPractice", {"open"}));
  EXPECT_FALSE(catalogue.Open(ledger, "frmPractice", {}));
  EXPECT_FALSE(catalogue.Open(ledger, "frmSession", {"fly"}));

  Screen already(ledger, "frmSession");
  ledger.openScreens.push_back(&already);
  EXPECT_FALSE(catalogue.Open(ledger, "frmSession", {"new", "03/02/2026"}));
  EXPECT_EQ(t.shown.TakeMessage(), "The session window is already open");
  ledger.openScreens.clear();
}

TEST_F(Practices, APracticeStandsInOneWindow) {
  t.shown.modal = {[&](Screen& outer) {
                     outer.Enter(*outer.FindField("txtNotes"), "typed here");
                     EXPECT_FALSE(OpenPractice(ledger, "4"));
                     EXPECT_EQ(t.shown.TakeMessage(), "The practice window is already open.");
                     EXPECT_TRUE(OpenPractice(ledger, "9")) << "another one";
                     outer.Press(*outer.FindField("cmdOk"));
                   },
                   [](Screen& inner) { inner.Close(); }};
  EXPECT_TRUE(OpenPractice(ledger, "4"));
  EXPECT_EQ(practices.TextMatrix(Row("4"), "NOTES"), "typed here");
  EXPECT_TRUE(OpenPractice(ledger, "4")) << "it has closed";
}

TEST_F(Practices, TheWelcomeWindowStoresTheName) {
  SetMyDetail(ledger, kLastNameField, "Grey");
  frmWelcome later(ledger);
  later.Enter(later.txtLastName, "Green");
  later.Press(later.cmdCancel);
  EXPECT_EQ(MyDetail(ledger, kLastNameField), "Grey");

  frmWelcome window(ledger);
  EXPECT_EQ(window.txtLastName.Text(), "Grey");
  window.Enter(window.txtTitle, "Dr");
  window.Enter(window.txtFirstName, " Ann ");
  window.Press(window.cmdOk);
  EXPECT_TRUE(window.Closed());
  EXPECT_EQ(MyName(ledger), "Ann Grey");
  EXPECT_TRUE(std::filesystem::exists(ledger.File("Options.dat")));
}

}  // namespace
}  // namespace lm
