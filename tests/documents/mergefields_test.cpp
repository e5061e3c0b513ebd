#include "documents/mergefields.h"

#include <gtest/gtest.h>

#include <map>

#include "core/options.h"
#include "core/text.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

// Two practices, an invoice of the first with two sessions, and a session of the second on none.
// Every cell and every detail that a field may show holds a text of its own.
struct Records : test::TestLedger {
  Records() {
    AddRow(ledger.fgPractices,
           {"ID=1", "NAME=Riverside Surgery", "PMANAGER=Mrs Page", "ADDR1=1 Quay St", "ADDR2=Wharf",
            "ADDR3=Port", "ADDR4=Shire", "POSTCODE=AB1 2CD", "EMAIL=pm@river", "PHONE=0111",
            "FAX=0222", "PCODE=EA5", "ODS_CODE=ODS6", "WEB=river.example"});
    AddRow(ledger.fgPractices, {"ID=2", "NAME=Old Mill"});
    AddRow(ledger.fgInvoices,
           {"ID=7", "PRACTICE=1", "NUMBER=INV-00007", "AMOUNT=1234.5", "EMPLOYERCONTRIB=38.83",
            "PUBLICNOTE=Thank you", "IDATE=28/02/2026"});
    AddRow(ledger.fgInvoices, {"ID=8", "PRACTICE=99"});
    AddRow(ledger.fgSessions,
           {"ID=3", "PRACTICE=1", "INVOICE=7", "SDATE=03/02/2026", "STIME=09:00",
            "EDATE=04/02/2026", "ETIME=17:30", "RATE=100.10", "EXTRAS=0.2", "EXPENSES=5.69",
            "TOTAL=144.82", "EMPLOYERCONTRIB=38.83", "EMPLOYERCONTRIBRATE=14.3",
            "PUBLICNOTE=Dr Quay's list", "SESS_TYPE=1"});
    AddRow(ledger.fgSessions, {"ID=4", "PRACTICE=2", "INVOICE=7", "RATE=50", "EXTRAS=12,3x",
                               "EXPENSES=banana", "SESS_TYPE=3"});
    AddRow(ledger.fgSessions, {"ID=5", "PRACTICE=2", "RATE=999", "SESS_TYPE=0"});
    AddRow(ledger.fgExtras, {"ID=1", "SESSID=3", "ITEM=Report", "RATE=0.2"});
    AddRow(ledger.fgSessionExpenses,
           {"ID=2", "SESSID=3", "ITEM=Mileage", "RATE=5.69", "CATEGORY=0"});
    for (int field = 0; field < kMyDetailsFields; ++field)
      SetMyDetail(ledger, field, "detail " + std::to_string(field));
    SetMyDetail(ledger, kFirstNameField, "Ann");
    SetMyDetail(ledger, kLastNameField, "Morgan");
    SetOption(ledger, optEmployerContribRate, "14.38");
  }

  std::string Of(std::string_view caption, const MergeContext& context = kAll) {
    return Merge(ledger, caption, context);
  }

  static inline const MergeContext kAll{"7", "3", "1", "2"};
};

TEST(MergeFields, EachNameShowsItsSource) {
  const std::map<std::string, std::vector<std::string>> namesOfValue = {
      {"03/02/2026", {"START DATE", "DATE"}},
      {"09:00", {"START TIME"}},
      {"04/02/2026", {"END DATE"}},
      {"17:30", {"END TIME"}},
      {"100.10", {"SESSION RATE", "RATE"}},
      {"0.2", {"SESSION EXTRAS", "EXTRAS", "EXTRA RATE"}},
      {"5.69", {"SESSION EXPENSES", "EXPENSES", "EXPENSE RATE", "INVOICE EXPENSES"}},
      {"144.82", {"SESSION TOTAL"}},
      {"100.3", {"SESSION PENSIONABLE"}},
      {"38.83", {"SESSION EMPLOYERCONTRIB", "INVOICE EMPLOYERCONTRIB"}},
      {"14.3", {"SESSION EMPLOYERCONTRIBRATE"}},
      {"14.38", {"EMPLOYERCONTRIBRATE"}},
      {"Dr Quay's list", {"SESSION NOTE"}},
      {"Riverside Surgery", {"SESSION PRACTICE", "PRACTICE NAME", "PRACTICE"}},
      {"NHS Normal", {"SESSION TYPE"}},
      {"Report", {"EXTRA ITEM"}},
      {"Mileage", {"EXPENSE ITEM"}},
      {"0", {"EXPENSE CATEGORY"}},
      {"Mrs Page", {"PRACTICE MANAGER"}},
      {"1 Quay St", {"PRACTICE ADDRESS 1"}},
      {"Wharf", {"PRACTICE ADDRESS 2"}},
      {"Port", {"PRACTICE ADDRESS 3"}},
      {"Shire", {"PRACTICE ADDRESS 4"}},
      {"AB1 2CD", {"PRACTICE POSTCODE", "PRACTICE POST CODE"}},
      {"pm@river", {"PRACTICE EMAIL"}},
      {"0111", {"PRACTICE PHONE"}},
      {"0222", {"PRACTICE FAX"}},
      {"EA5", {"PRACTICE EA CODE"}},
      {"ODS6", {"PRACTICE ODS CODE"}},
      {"river.example", {"PRACTICE WEBSITE"}},
      {"1234.5", {"INVOICE TOTAL", "INVOICE AMOUNT"}},
      {"INV-00007", {"INVOICE NUMBER"}},
      {"Thank you", {"INVOICE NOTE", "INVOICE NOTES"}},
      {"28/02/2026", {"INVOICE DATE"}},
      {"162.3", {"INVOICE PENSIONABLE"}},
      {"150.1", {"INVOICE RATES"}},
      {"12.2", {"INVOICE EXTRAS"}},
      {"10:30", {"TIME", "NOW"}},
      {"", {"PAGE"}},
      {"Ann Morgan", {"MY NAME", "MY FULLNAME"}},
      {"Ann", {"MY FIRST NAME", "MY FIRSTNAME"}},
      {"Morgan", {"MY LAST NAME", "MY LASTNAME", "MY SURNAME"}},
      {"detail 17", {"MY TITLE"}},
      {"detail 0", {"MY ADDRESS 1"}},
      {"detail 1", {"MY ADDRESS 2"}},
      {"detail 2", {"MY ADDRESS 3"}},
      {"detail 3", {"MY ADDRESS 4"}},
      {"detail 4", {"MY POSTCODE", "MY POST CODE"}},
      {"detail 6", {"MY EMAIL"}},
      {"detail 7", {"MY PHONE", "MY PHONE NUMBER", "MY PHONENUMER"}},
      {"detail 15", {"MY DOB", "MY D.O.B."}},
      {"detail 10", {"MY QUALIFICATIONS"}},
      {"detail 5", {"MY GMCNUMBER", "MY GMC NUMBER"}},
      {"detail 12", {"MY SUPPLISTNUMBER"}},
      {"detail 8", {"MY PROFINDCOMPANY"}},
      {"detail 9", {"MY PROFINDNUMBER"}},
      {"detail 20", {"MY ODSCODE"}},
  };
  Records records;
  for (const auto& [value, names] : namesOfValue)
    for (const std::string& name : names) {
      EXPECT_TRUE(IsMergeField(ToLower(name))) << name;
      EXPECT_EQ(records.Of("{" + name + "}"), value) << name;
    }
}

TEST(MergeFields, BracketsNamesAndFormats) {
  struct {
    const char* caption;
    const char* merged;
  } const cases[] = {
      {"", ""},
      {"no field } here", "no field } here"},
      {"No. {invoice number}!", "No. INV-00007!"},
      {"{Invoice Number}{PRACTICE PHONE}", "INV-000070111"},
      {"{ invoice number | }", "INV-00007"},
      {"a{PAGE}b{NOSUCHFIELD|0.00}c{}d{|}e", "abcde"},
      {"{INVOICE TOTAL|#,##0.00}", "1,234.50"},
      {"{INVOICE TOTAL|\xA3#,##0.00 \"net\"}",
       "\xA3"
       "1,234.50 net"},
      {"{INVOICE TOTAL| [Money as Words] }",
       "one thousand two hundred and thirty four pounds fifty pence"},
      {"{MY TITLE|0.00}", "detail 17"},
      {"{PAGE|0.00}{PAGE|[MONEY AS WORDS]}", ""},
      {"{INVOICE DATE|dddd d mmmm yyyy}", "Saturday 28 February 2026"},
      {"{DATE|yyyy}", "2026"},
      {"{START TIME|h:nn AMPM}", "9:00 AM"},
      // The first bar parts name and format, the first bracket ends the field.
      {"{INVOICE TOTAL|0.00|x}}", "1234.50|x}"},
      {"{MY {INVOICE NUMBER} x", " x"},
      // Without its end a field takes the rest.
      {"a{INVOICE NUMBER and more", "a"},
      {"a{INVOICE NUMBER", "aINV-00007"},
      {"a{", "a"},
  };
  Records records;
  for (const auto& [caption, merged] : cases) EXPECT_EQ(records.Of(caption), merged) << caption;

  SetMyDetail(records.ledger, kMyTitleField, "{MY SURNAME}");
  EXPECT_EQ(records.Of("{MY TITLE}"), "{MY SURNAME}") << "values are not merged again";
  const std::string brackets(1'000'000, '{');
  EXPECT_EQ(records.Of("x" + brackets), "x");
}

TEST(MergeFields, RecordsThatAreNotThereLeaveTheirFieldsEmpty) {
  Records records;
  const std::string caption =
      "{RATE}{SESSION PENSIONABLE}{SESSION PRACTICE}{SESSION TYPE}{EXTRA ITEM}{EXPENSE RATE}"
      "{PRACTICE}{INVOICE TOTAL}{INVOICE RATES}{INVOICE EXPENSES|0.00}";
  EXPECT_EQ(records.Of(caption, {}), "");
  EXPECT_EQ(records.Of(caption, {"77", "77", "77", "77"}), "");
  EXPECT_EQ(records.Of("[{PRACTICE}]{SESSION PRACTICE} {RATE}", {.session = "5"}),
            "[]Old Mill 999");
  EXPECT_EQ(records.Of("[{PRACTICE}] {INVOICE RATES|0.00}", {.invoice = "8"}), "[] 0.00");
}

TEST(MergeFields, SessionTypes) {
  Records records;
  const std::pair<const char*, const char*> texts[] = {
      {"0", "Private"}, {"1", "NHS Normal"},      {"2", "NHS OOH"},
      {"3", ""},        {"4", "NHS Unpensioned"}, {"", ""},
      {"x", ""}};
  Grid& sessions = records.ledger.fgSessions;
  for (const auto& [code, text] : texts) {
    sessions.SetTextMatrix(sessions.FindRow("3", "ID"), "SESS_TYPE", code);
    EXPECT_EQ(records.Of("{SESSION TYPE}"), text) << code;
  }
}

TEST(MergeFields, BranchAndPagesAreThereWhereTheyAreOfUse) {
  Records records;
  EXPECT_EQ(records.Of("{SESSION BRANCH}"), "Riverside Surgery") << "the other is elsewhere";
  records.ledger.fgSessions.SetTextMatrix(records.ledger.fgSessions.FindRow("4", "ID"), "PRACTICE",
                                          "1");
  EXPECT_EQ(records.Of("[{SESSION BRANCH}]"), "[]");
  MergeContext numbered = Records::kAll;
  numbered.pageNumbers = true;
  EXPECT_EQ(records.Of("{PAGE} of {Pages}", numbered), "#PAGE of #PAGES");
  EXPECT_EQ(records.Of("[{PAGE}{PAGES}]"), "[]");
}

// A hundred thousand pounds and more do not hold their pence in single precision.
TEST(MergeFields, SumsAreSingles) {
  Records records;
  Grid& sessions = records.ledger.fgSessions;
  const int first = sessions.FindRow("3", "ID");
  const int second = sessions.FindRow("4", "ID");
  const struct {
    const char *first, *second, *sum;
  } cases[] = {
      {"100.25", "50.25", "150.5"},      {"0.1", "0.2", "0.3"}, {"36.665", "0", "36.665"},
      {"123456.78", "0.01", "123456.8"}, {"1e9", "x", "1"},     {"-5", "5", "0"},
  };
  for (const auto& each : cases) {
    sessions.SetTextMatrix(first, "RATE", each.first);
    sessions.SetTextMatrix(second, "RATE", each.second);
    EXPECT_EQ(records.Of("{INVOICE RATES}"), each.sum);
  }
  const std::string beyondSingle(60, '9');
  sessions.SetTextMatrix(first, "RATE", beyondSingle);
  sessions.SetTextMatrix(second, "RATE", "-" + beyondSingle);
  EXPECT_EQ(records.Of("{INVOICE RATES}"), "0");
}

TEST(MergeFields, ManyCaptionsOverOneIndex) {
  Records records;
  Ledger& ledger = records.ledger;
  ledger.fgSessions.SetTextMatrix(ledger.fgSessions.FindRow("5", "ID"), "INVOICE", "8");
  const RecordIndex index(ledger);
  const MergeFields fields(ledger, index);
  for (const char* invoice : {"7", "8", "7", "", "8"}) {
    const std::string rates = invoice == std::string("7") ? "150.1" : *invoice ? "999" : "";
    EXPECT_EQ(fields.Merge("{INVOICE RATES}", {.invoice = invoice}), rates);
  }
}

}  // namespace
}  // namespace lm
