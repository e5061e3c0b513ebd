// What keeps forms from being changed or deleted, with its words.
#include "pension/locks.h"

#include "tests/pension/rules_desk.h"

namespace lm {
namespace {

using test::RulesDesk;

TEST(Locks, AFormThatWasSentCannotBeDeleted) {
  const std::string kSentA =
      "Delete Pension Form|A Pension Form cannot be deleted once it has been sent|To delete the "
      "form, you must set the 'Sent to Practice', ";
  const std::string kSentInWindow =
      "Delete Pension Form|A pension form cannot be deleted once it has been sent to the Health "
      "Authority|To delete the form you must set the 'Sent to HA' field to empty. ";
  struct Case {
    Grid Ledger::*table;
    std::vector<std::string> locks;
    std::string inList, inWindow;
  };
  const Case kCases[] = {
      {&Ledger::fgPensionA,
       {"SENTTOPRACTICE", "RCVDFROMPRACTICE", "SENTTOHA"},
       kSentA + "'Rcvd From Practice', and 'Sent to HA' columns to blank.",
       kSentA + "'Received From Practice', and 'Sent to HA' dates to blank."},
      {&Ledger::fgPensionB,
       {"SENTTOHA"},
       "Delete Pension Form|A Pension Form cannot be deleted once it has been sent to the Health "
       "Authority|To delete the form, you must set the 'Sent to HA' column to blank.",
       kSentInWindow},
      {&Ledger::fgPensionSolo,
       {"SENTTOHA"},
       "LedgerMinder|Delete Pension Form|A Pension Form cannot be deleted once it has been sent to "
       "the Health Authority.",
       kSentInWindow},
  };
  for (const Case& c : kCases) {
    RulesDesk desk;
    Grid& forms = desk.ledger.*c.table;
    const int row = desk.AddRow(forms, {"NOTES=kept"});
    const FormRow record{*FormOfTable(forms), forms, row};
    EXPECT_TRUE(MayDelete(desk, record, AskedFrom::List));
    EXPECT_TRUE(MayDelete(desk, record, AskedFrom::Window));
    EXPECT_TRUE(desk.shown.messages.empty());
    for (const std::string& key : c.locks) {
      forms.SetTextMatrix(row, key, "05/04/2024");
      EXPECT_FALSE(MayDelete(desk, record, AskedFrom::List));
      EXPECT_EQ(desk.OneMessage(), c.inList) << key;
      EXPECT_FALSE(MayDelete(desk, record, AskedFrom::Window));
      EXPECT_EQ(desk.OneMessage(), c.inWindow) << key;
      forms.SetTextMatrix(row, key, "");
    }
  }
}

// Form B stands for April 2024, Form D for May.
struct LockedMonths : RulesDesk {
  LockedMonths() {
    AddRow(ledger.fgPensionB, {"MONTH=01/04/2024"});
    AddRow(ledger.fgPensionD, {"MONTH=01/05/2024"});
  }
};

TEST(Locks, AReceivedDateInAMonthThatIsDone) {
  struct Case {
    const PensionForm* form;
    const char* date;
    bool free;
  };
  const Case kCases[] = {
      {&kFormA, "30/04/2024", false}, {&kFormA, "01/05/2024", true}, {&kFormA, "", true},
      {&kFormA, "banana", true},      {&kFormC, "30/04/2024", true}, {&kFormC, "01/05/2024", false},
  };
  for (const Case& c : kCases) {
    LockedMonths desk;
    const PensionForm& form = *c.form;
    EXPECT_EQ(MayChangeReceivedDate(desk, form, c.date), c.free) << c.date;
    EXPECT_EQ(MaySetReceivedDate(desk, form, c.date, AskedFrom::List), c.free) << c.date;
    EXPECT_EQ(desk.shown.messages.size(), c.free ? 0U : 2U);
  }
}

TEST(Locks, WordsOfTheReceivedDate) {
  LockedMonths desk;
  MayChangeReceivedDate(desk, kFormA, "05/04/2024");
  EXPECT_EQ(desk.OneMessage(),
            "LedgerMinder|Unable to change date|A pension Form B has already been created from the "
            "Form A's received in Apr 2024. This date can therefore not be changed.\r\n\r\nIf you "
            "need to unlock this Form A, you will need to delete the Form B for Apr 2024.");
  MayChangeReceivedDate(desk, kFormC, "05/05/2024");
  EXPECT_EQ(desk.OneMessage(),
            "LedgerMinder|Unable to change date|A pension Form D has already been created from the "
            "Form C's received in May 2024. This date can therefore not be changed.\r\n\r\nIf you "
            "need to unlock this Form C, you will need to delete the Form D for May 2024.");

  const auto refusal = [](const std::string& month, const std::string& longMonth,
                          const std::string& form, const std::string& monthForm,
                          const std::string& middle) {
    return "LedgerMinder|Unable to set the 'Rcvd From Practice' date in " + month + "|A " +
           monthForm + " has already been created for the month of " + longMonth + ".\r\n\r\nAs " +
           monthForm + " is created from all " + form + "'s returned that month, a " + form +
           " cannot be marked as received " + middle + ".\r\n\r\nTo set this " + form +
           " as received in this month you must first delete the " + monthForm +
           " for the month of " + month + ". You can then enter the " + form +
           " as returned this month, and then recreate the " + monthForm + " for the month.";
  };
  MaySetReceivedDate(desk, kFormA, "05/04/2024", AskedFrom::Window);
  EXPECT_EQ(desk.OneMessage(), refusal("Apr 2024", "April 2024", "Form A", "Form B",
                                       "for a month for which a Form B has already been created"));
  MaySetReceivedDate(desk, kFormA, "05/04/2024", AskedFrom::List);
  EXPECT_EQ(desk.OneMessage(), refusal("Apr 2024", "April 2024", "Form A", "Form B",
                                       "for a month in which a Form B has already been created"));
  MaySetReceivedDate(desk, kFormC, "05/05/2024", AskedFrom::List);
  EXPECT_EQ(desk.OneMessage(), refusal("May 2024", "May 2024", "Form C", "Form D",
                                       "in a month a Form D has already been created for"));
}

}  // namespace
}  // namespace lm
