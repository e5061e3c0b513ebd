// Files of earlier versions, made by hand: the tables that they lacked, the columns that they named
// otherwise, and the correction of return dates.
#include "core/upgrades.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

#include "core/datafile.h"
#include "core/datafilecodec.h"
#include "core/files.h"
#include "core/options.h"
#include "core/rows.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

namespace fs = std::filesystem;
using Texts = std::vector<std::string>;

void Remove(Grid& grid, const Texts& keys) {
  for (const std::string& key : keys) {
    ASSERT_GE(grid.FindCol(key), 0) << key;
    grid.SetColPosition(grid.FindCol(key), grid.Cols() - 1);
    grid.SetCols(grid.Cols() - 1);
  }
}

void Append(Grid& grid, const std::string& key) {
  grid.SetCols(grid.Cols() + 1);
  const int col = grid.Cols() - 1;
  grid.SetTextMatrix(0, col, key);
  grid.SetTextMatrix(1, col, key);
  grid.SetColKey(col, key);
}

std::string Keys(const Grid& grid) {
  std::string keys;
  for (int col = 1; col < grid.Cols(); ++col) keys += (col > 1 ? " " : "") + grid.ColKey(col);
  return keys;
}

// All that a table holds, captions, keys and order of columns too.
std::string Whole(const Grid& grid) {
  std::string text;
  for (int row = 0; row < grid.Rows(); ++row) grid.WriteRecord(row, text);
  return text;
}
Texts AllTables(const Ledger& ledger) {
  Texts tables;
  for (const Grid* grid : ledger.dataTables) tables.push_back(Whole(*grid));
  return tables;
}

// A ledger whose tables are made old by a test, and the one that loads the file of them.
struct OldFile : testing::Test {
  test::TestLedger old;
  Ledger& before = old.ledger;
  test::TestLedger now;
  Ledger& ledger = now.ledger;

  OldFile() {
    now.AddRow(ledger.fgPractices, {"NAME=Not from the file"});
    old.AddRow(before.fgPractices, {"NAME=Riverside"});
  }
  std::string Bytes(std::size_t sections, std::string_view version) {
    return EncodeDataFile(std::span(before.dataTables).first(sections), "", version, old.shown.now);
  }
  bool Load(std::size_t sections = kDataTables, std::string_view version = "3.4.0") {
    return LoadBytes(Bytes(sections, version));
  }
  bool LoadBytes(const std::string& bytes) {
    std::string error;
    EXPECT_TRUE(ReplaceFile(ledger.DataFile(), bytes, error)) << error;
    return LoadData(ledger);
  }
  std::string Content(const fs::path& path) {
    std::string error;
    return ReadFile(path, error).value_or("(none)");
  }
  // Saved and loaded again nothing changes any more, and nothing is asked or told.
  void ExpectSettled() {
    ASSERT_TRUE(Save(ledger));
    now.shown.messages.clear();
    const Texts tables = AllTables(ledger);
    ASSERT_TRUE(LoadData(ledger));
    EXPECT_EQ(AllTables(ledger), tables);
    EXPECT_EQ(now.shown.messages.size(), 0u);
  }
  static std::string First(const Grid& grid, std::string_view key) {
    return grid.TextMatrix(grid.FixedRows(), key);
  }
};

TEST_F(OldFile, OfFewerTablesIsCompletedBlank) {
  const std::pair<std::size_t, Texts> kCases[] = {
      {5,
       {"Extras", "Pension SOLO", "Pension C", "Pension D", "Expenses", "Session Expenses",
        "Events", "Pension Payments"}},
      {6,
       {"Pension SOLO", "Pension C", "Pension D", "Expenses", "Session Expenses", "Events",
        "Pension Payments"}},
      {7, {"Pension C", "Pension D", "Expenses", "Session Expenses", "Events", "Pension Payments"}},
      {9, {"Expenses", "Session Expenses", "Events", "Pension Payments"}},
      {10, {"Session Expenses", "Events", "Pension Payments"}},
      {11, {"Events", "Pension Payments"}},
      {12, {"Pension Payments"}},
      {13, {}}};
  for (const auto& [sections, added] : kCases) {
    now.shown.progress.clear();
    ASSERT_TRUE(Load(sections)) << sections;
    EXPECT_EQ(now.shown.messages.size(), 0u) << sections;
    Texts told;
    for (const std::string& line : now.shown.progress)
      if (line.find("Initialising") != std::string::npos) told.push_back(line);
    Texts expected;
    for (const std::string& table : added)
      expected.push_back("-1 Initialising " + table + " grid...");
    EXPECT_EQ(told, expected);
    EXPECT_EQ(First(ledger.fgPractices, "NAME"), "Riverside");
    for (std::size_t i = sections; i < kTables.size(); ++i) {
      Grid blank("");
      MakeBlank(blank, kTables[i]);
      EXPECT_EQ(Whole(*ledger.dataTables[i]), Whole(blank)) << kTables[i].name;
    }
    ExpectSettled();
  }
}

TEST_F(OldFile, OfOtherCountsIsDamaged) {
  for (const std::size_t sections : {0U, 1U, 4U, 8U}) {
    const std::string bytes = Bytes(sections, "3.1.0");
    EXPECT_FALSE(LoadBytes(bytes)) << sections;
    EXPECT_TRUE(ledger.dataIncomplete);
    EXPECT_FALSE(Save(ledger));
    EXPECT_EQ(Content(ledger.DataFile()), bytes);
  }
}

// Version 4 always writes thirteen.
TEST_F(OldFile, OfTodayWithFewerTablesWasCutOff) {
  ASSERT_TRUE(Load(11, "4.0.0"));
  ASSERT_EQ(now.shown.messages.size(), 1u);
  EXPECT_EQ(now.shown.messages[0].mainPrompt, "A part of the data file is missing");
  EXPECT_NE(now.shown.messages[0].minorPrompt.find("now: Events, PensionPayments."),
            std::string::npos);
}

TEST_F(OldFile, ACurrentFilePassesUnchanged) {
  old.AddRow(before.fgSessions, {"RATE=100", "TOTAL=100.00", "EMPLOYERCONTRIB=0.00"});
  old.AddRow(before.fgInvoices, {"AMOUNT=1234.50", "CDATE=01/02/2020"});
  old.AddRow(before.fgPensionA, {"MONTH=01/02/2020"});
  before.fgSessions.SetColPosition(before.fgSessions.ColIndex("TOTAL"), 2);
  const Texts tables = AllTables(before);
  ASSERT_TRUE(Load(kDataTables, ProgramVersion()));
  EXPECT_EQ(AllTables(ledger), tables);
  EXPECT_EQ(now.shown.messages.size(), 0u);
}

TEST_F(OldFile, OfTheFirstFormatGetsNotesExtrasAndTotals) {
  old.AddRow(before.fgSessions, {"ID=7", "RATE=85.50"});
  Remove(before.fgSessions,
         {"PUBLICNOTE", "EXTRAS", "TOTAL", "EMPLOYERCONTRIB", "EXPENSES", "SESS_TYPE", "FORMS",
          "SOURCE", "EMPLOYERCONTRIBRATE", "INCLUDEEMPLOYERCONTRIB"});
  before.fgSessions.SetTextMatrix(0, before.fgSessions.ColIndex("NOTES"), "Notes");
  EXPECT_EQ(Keys(before.fgSessions), "ID PRACTICE INVOICE SDATE EDATE STIME ETIME RATE NOTES");
  ASSERT_TRUE(Load(5, "2.0.0"));
  EXPECT_EQ(Keys(ledger.fgSessions),
            "ID PRACTICE INVOICE SDATE EDATE STIME ETIME RATE EXTRAS EMPLOYERCONTRIB EXPENSES "
            "TOTAL SESS_TYPE NOTES PUBLICNOTE FORMS SOURCE EMPLOYERCONTRIBRATE "
            "INCLUDEEMPLOYERCONTRIB");
  EXPECT_EQ(ledger.fgSessions.TextMatrix(0, ledger.fgSessions.ColIndex("NOTES")), "Private Note");
  EXPECT_EQ(First(ledger.fgSessions, "TOTAL"), "85.50");
  EXPECT_EQ(First(ledger.fgSessions, "EMPLOYERCONTRIB"), "0.00");
  EXPECT_EQ(First(ledger.fgSessions, "SESS_TYPE"), "1");
  ExpectSettled();
}

TEST_F(OldFile, FlagsBecomeTheSessionType) {
  Grid& sessions = before.fgSessions;
  Remove(sessions, {"SESS_TYPE"});
  for (const char* flag : {"OOH", "DEPUT", "PRIVATE"}) Append(sessions, flag);
  const struct {
    const char *ooh, *deput, *priv, *type;
  } kCases[] = {{"0", "0", "0", "1"},  {"-1", "0", "0", "2"},  {"-1", "-1", "0", "3"},
                {"0", "-1", "", "3"},  {"-1", "0", "-1", "0"}, {"", "-1", "-1", "0"},
                {"1", "TRUE", "", "1"}};
  for (const auto& each : kCases)
    old.AddRow(sessions, {std::string("OOH=") + each.ooh, std::string("DEPUT=") + each.deput,
                          std::string("PRIVATE=") + each.priv});
  // The user had moved a flag, and a column of a later version stands at the end.
  sessions.SetColPosition(sessions.FindCol("DEPUT"), 1);
  Append(sessions, "LATER");
  ASSERT_TRUE(Load());
  int row = ledger.fgSessions.FixedRows();
  for (const auto& each : kCases)
    EXPECT_EQ(ledger.fgSessions.TextMatrix(row++, "SESS_TYPE"), each.type);
  EXPECT_EQ(ledger.fgSessions.ColIndex("SESS_TYPE"), ledger.fgSessions.ColIndex("TOTAL") + 1);
  for (const char* flag : {"OOH", "DEPUT", "PRIVATE"})
    EXPECT_LT(ledger.fgSessions.FindCol(flag), 0) << flag;
  EXPECT_GT(ledger.fgSessions.FindCol("LATER"), 0);
  ExpectSettled();
}

TEST_F(OldFile, FlagsBesideASessionTypeAreLeftAlone) {
  Append(before.fgSessions, "PRIVATE");
  old.AddRow(before.fgSessions, {"SESS_TYPE=2", "PRIVATE=-1", "TOTAL=1", "EMPLOYERCONTRIB=1"});
  ASSERT_TRUE(Load());
  EXPECT_EQ(First(ledger.fgSessions, "SESS_TYPE"), "2");
  EXPECT_GT(ledger.fgSessions.FindCol("PRIVATE"), 0);
}

TEST_F(OldFile, MissingColumnsComeWhereTheyBelong) {
  const struct {
    const char* table;
    Texts missing;
    const char* keys;  // around them
  } kCases[] = {
      {"fgSessions",
       {"EMPLOYERCONTRIB", "EXPENSES", "SOURCE"},
       " RATE EXTRAS EMPLOYERCONTRIB EXPENSES TOTAL "},
      {"fgPensionB",
       {"AVC", "TOTAL_CONTRIB", "EXTRA_YEARS", "ADDITIONAL", "ERRBO", "EMPLOYERCONTRIB"},
       " CONTRIBUTION AVC EXTRA_YEARS ADDITIONAL ERRBO TOTAL_CONTRIB EMPLOYERCONTRIB "},
      {"fgPractices", {"MILEAGE", "BRANCHOF", "ODS_CODE", "GPNET_MATCH"}, "ID NAME BRANCHOF PCT "},
      {"fgPractices", {"INVOICENOTE", "RATE_NORMAL", "RATE_OOHD"}, " PCODE ODS_CODE ADDR1 "},
      {"fgInvoices",
       {"SENTBY", "IDATE", "EMPLOYERCONTRIB"},
       " CDATE IDATE SDATE SENTBY AMOUNT EMPLOYERCONTRIB PAYDATE "},
      {"fgPensionD", {"EXTRA_YEARS"}, " EMP_CONTRIB EXTRA_YEARS TOTAL_CONTRIB "},
      {"fgPensionC",
       {"SENTTOPRACTICE", "RCVDFROMPRACTICE"},
       " TOTAL_PAID SENTTOPRACTICE RCVDFROMPRACTICE SENTTOHA "},
      {"fgEvents", {"LOCATION"}, " TITLE LOCATION CATEGORY "},
      {"fgExpenses", {"EXPENSEREPETITIONID"}, " Notes EXPENSEREPETITIONID"},
      {"fgPensionSolo",
       {"EXTRAYEARS", "ERRBO", "ADDITIONAL"},
       " AVC EXTRAYEARS ERRBO ADDITIONAL EMP_CONTRIB "},
      {"fgPensionA", {"EMPLOYERCONTRIB"}, " CONTRIBUTION EMPLOYERCONTRIB SENTTOPRACTICE "}};
  for (const auto& each : kCases) {
    for (std::size_t i = 1; i < kTables.size(); ++i) MakeBlank(*before.dataTables[i], kTables[i]);
    MakeBlank(before.fgPractices, kTables[0]);
    Remove(*before.Table(each.table), each.missing);
    ASSERT_TRUE(Load());
    EXPECT_NE((Keys(*ledger.Table(each.table))).find(each.keys), std::string::npos)
        << Keys(*ledger.Table(each.table));
    ExpectSettled();
  }
}

TEST_F(OldFile, ColumnsFindTheirPlacesInAnyOrder) {
  Grid& sessions = before.fgSessions;
  Remove(sessions, {"EXPENSES", "FORMS", "SOURCE"});
  sessions.SetColPosition(sessions.ColIndex("TOTAL"), 1);
  sessions.SetColPosition(sessions.ColIndex("PUBLICNOTE"), 1);
  Grid& practices = before.fgPractices;
  Remove(practices, {"BRANCHOF", "MILEAGE", "INVOICENOTE", "ODS_CODE"});
  for (const char* key : {"PCODE", "NOTES", "NAME"})
    practices.SetColPosition(practices.ColIndex(key), key == std::string("NAME") ? 9 : 1);
  ASSERT_TRUE(Load());
  EXPECT_TRUE(Keys(ledger.fgSessions).starts_with("PUBLICNOTE EXPENSES TOTAL ID "));
  EXPECT_TRUE(Keys(ledger.fgSessions).ends_with(" INCLUDEEMPLOYERCONTRIB FORMS SOURCE"));
  EXPECT_TRUE(Keys(ledger.fgPractices).starts_with("NOTES PCODE ODS_CODE BRANCHOF ID "))
      << Keys(ledger.fgPractices);
  EXPECT_TRUE(Keys(ledger.fgPractices).ends_with(" GPNET_MATCH MILEAGE INVOICENOTE"));
  ExpectSettled();
}

TEST_F(OldFile, CellsAndCaptionsAreMended) {
  old.AddRow(before.fgInvoices, {"AMOUNT=1,234,567.50", "CDATE=05/03/2010", "NUMBER=1,2"});
  Remove(before.fgInvoices, {"IDATE"});
  old.AddRow(before.fgSessions, {"RATE=10", "TOTAL=", "EMPLOYERCONTRIB="});
  old.AddRow(before.fgSessions, {"RATE=10", "TOTAL=12.00", "EMPLOYERCONTRIB=2.00"});
  for (const auto& [table, key] : {std::pair{&before.fgPensionB, "EXTRA_YEARS"},
                                   {&before.fgPensionD, "EXTRA_YEARS"},
                                   {&before.fgPensionSolo, "EXTRAYEARS"}})
    table->SetTextMatrix(0, table->ColIndex(key), "Extra Years");
  before.fgPensionA.SetTextMatrix(0, before.fgPensionA.ColIndex("CONTRIBUTION"), "Contribution");
  before.fgPractices.SetTextMatrix(0, before.fgPractices.ColIndex("PCODE"), "Practice Code");
  before.fgSessionExpenses.SetTextMatrix(0, 1, "");
  before.fgSessionExpenses.SetTextMatrix(0, 3, "Thing");
  ASSERT_TRUE(Load());
  EXPECT_EQ(First(ledger.fgInvoices, "AMOUNT"), "1234567.50");
  EXPECT_EQ(First(ledger.fgInvoices, "NUMBER"), "1,2");
  EXPECT_EQ(First(ledger.fgInvoices, "IDATE"), "05/03/2010");
  const int row = ledger.fgSessions.FixedRows();
  EXPECT_EQ(ledger.fgSessions.TextMatrix(row, "TOTAL"), "0.00");
  EXPECT_EQ(ledger.fgSessions.TextMatrix(row, "EMPLOYERCONTRIB"), "0.00");
  EXPECT_EQ(ledger.fgSessions.TextMatrix(row + 1, "TOTAL"), "12.00");
  const auto caption = [](const Grid& grid, const char* key) {
    return grid.TextMatrix(0, grid.ColIndex(key));
  };
  EXPECT_EQ(caption(ledger.fgPensionB, "EXTRA_YEARS"), "Added Years");
  EXPECT_EQ(caption(ledger.fgPensionD, "EXTRA_YEARS"), "Added Years");
  EXPECT_EQ(caption(ledger.fgPensionSolo, "EXTRAYEARS"), "Added Years");
  EXPECT_EQ(caption(ledger.fgPensionA, "CONTRIBUTION"), "My Contrib.");
  EXPECT_EQ(caption(ledger.fgPractices, "PCODE"), "EA Code");
  EXPECT_EQ(caption(ledger.fgSessionExpenses, "ITEM"), "Item") << "made anew";
  ExpectSettled();
}

TEST_F(OldFile, SessionExpensesWithRowsAreNotMadeAnew) {
  before.fgSessionExpenses.SetTextMatrix(0, 1, "");
  old.AddRow(before.fgSessionExpenses, {"ITEM=Train"});
  ASSERT_TRUE(Load());
  EXPECT_EQ(First(ledger.fgSessionExpenses, "ITEM"), "Train");
}

// Sections that prove whole, and hold what no version ever wrote.
TEST_F(OldFile, StrangeTablesAreTakenAsFarAsTheyGo) {
  const std::function<void(Grid&)> kShapes[] = {
      [](Grid& grid) { grid.SetRows(0); },
      [](Grid& grid) { grid.SetRows(1); },
      [](Grid& grid) { grid.SetCols(1); },
      [](Grid& grid) {
        grid.SetCols(2);
        grid.SetTextMatrix(1, 1, "");
        grid.AddItem("\tlost");
      },
      [](Grid& grid) {
        for (const char* key : {"OOH", "OOH", "PRIVATE", "TOTAL", "ID"}) Append(grid, key);
        grid.AddItem("");
      },
  };
  for (const std::size_t sections : {5U, 7U, 13U}) {
    for (const auto& shape : kShapes) {
      for (std::size_t i = 0; i < kTables.size(); ++i) {
        MakeBlank(*before.dataTables[i], kTables[i]);
        shape(*before.dataTables[i]);
      }
      ASSERT_TRUE(Load(sections, "3.9.0"));
      for (std::size_t i = 0; i < kTables.size(); ++i)
        for (const ColumnSpec& column : kTables[i].columns)
          EXPECT_GT(ledger.dataTables[i]->ColIndex(column.key), 0) << column.key;
      ExpectSettled();
    }
  }
}

// ---- Return dates

struct ReturnDates : OldFile {
  const fs::path backup = ledger.File("LedgerMinderBackup 03 Feb 2026 3_2_0.bak");

  ReturnDates() {
    old.AddRow(before.fgPensionA, {"MONTH=01/03/2009", "NOTES=late"});
    old.AddRow(before.fgPensionA, {"MONTH=01/03/2009", "RCVDFROMPRACTICE=31/03/2009"});
    old.AddRow(before.fgPensionA, {"MONTH=01/03/2009", "RCVDFROMPRACTICE=01/04/2009"});
    old.AddRow(before.fgPensionA, {"MONTH=March", "RCVDFROMPRACTICE="});
    old.AddRow(before.fgPensionA, {"MONTH=01/03/2009", "RCVDFROMPRACTICE=soon"});
    old.AddRow(before.fgPensionC, {"MONTH=01/02/2008"});
  }
  static std::string Row(const Grid& forms, int row) {
    row += forms.FixedRows();
    return forms.TextMatrix(row, "RCVDFROMPRACTICE") + "|" + forms.TextMatrix(row, "NOTES");
  }
};

TEST_F(ReturnDates, AreSetAfterAQuestionAndABackup) {
  now.shown.answers = {Answer::Yes};
  const std::string file = Bytes(kDataTables, "3.2.9");
  ASSERT_TRUE(LoadBytes(file));
  ASSERT_EQ(now.shown.messages.size(), 2u);
  const MessageBoxText& question = now.shown.messages[0];
  EXPECT_EQ(question.mainPrompt, "Pension calculations for Forms B and D have changed");
  EXPECT_EQ(question.title, "Upgrade Information");
  EXPECT_EQ(question.buttons, Buttons::YesNo);
  EXPECT_TRUE(question.link.ends_with("/PensionDataCorrection.htm"));
  EXPECT_TRUE(question.minorPrompt.starts_with(
      "Forms B and D are now calculated from the date Forms A and C were returned to you from the "
      "practices i.e. the date the income is received. Prior "));
  EXPECT_TRUE(question.minorPrompt.ends_with(
      "\r\n\r\nDo you want your data changed now (click No to exit without any changes)?"));
  EXPECT_EQ(now.shown.messages[1].mainPrompt,
            "'Rcvd From Practice' dates changed succesfully on Forms A and C.");
  EXPECT_EQ(Content(backup), file);

  const Grid& a = ledger.fgPensionA;
  EXPECT_EQ(Row(a, 0), "01/03/2009|late\r\n** 'Rcvd From Practice' set to 01/03/2009.");
  EXPECT_EQ(Row(a, 1), "31/03/2009|");
  EXPECT_EQ(Row(a, 2),
            "01/03/2009|\r\n** 'Rcvd From Practice' corrected (01/04/2009 - 01/03/2009).");
  EXPECT_EQ(Row(a, 3), "|");
  EXPECT_EQ(Row(a, 4), "soon|");
  EXPECT_EQ(Row(ledger.fgPensionC, 0), "01/02/2008|\r\n** 'Rcvd From Practice' set to 01/02/2008.");
  const RowState states[] = {RowState::Edited, RowState::Saved, RowState::Edited, RowState::Saved,
                             RowState::Saved};
  for (int row = 0; row < 5; ++row)
    EXPECT_EQ(StateOfRow(ledger, a, a.FixedRows() + row), states[row]) << row;
  ExpectSettled();
  // The backup holds what was before.
  now.shown.answers = {Answer::Yes};
  ASSERT_TRUE(LoadData(ledger, backup));
  EXPECT_EQ(Row(ledger.fgPensionA, 0),
            "01/03/2009|late\r\n** 'Rcvd From Practice' set to 01/03/2009.");
}

TEST_F(ReturnDates, NoFailsTheLoadAndChangesNothing) {
  const std::string file = Bytes(kDataTables, "3.0.0");
  EXPECT_FALSE(LoadBytes(file));
  EXPECT_EQ(now.shown.messages.size(), 1u);
  EXPECT_TRUE(ledger.dataIncomplete);
  EXPECT_FALSE(Save(ledger));
  EXPECT_EQ(Content(ledger.DataFile()), file);
  EXPECT_FALSE(fs::exists(backup));
}

TEST_F(ReturnDates, WithoutABackupNothingIsChanged) {
  fs::create_directories(backup / "in the way");
  now.shown.answers = {Answer::Yes};
  EXPECT_FALSE(Load(kDataTables, "3.1.0"));
  ASSERT_EQ(now.shown.messages.size(), 2u);
  EXPECT_TRUE(now.shown.messages[1].mainPrompt.starts_with("Unable to save backup.\r\n"));
  EXPECT_TRUE(ledger.dataIncomplete);
  EXPECT_EQ(Row(ledger.fgPensionA, 0), "|late");
}

// Not of the one that was loaded before.
TEST_F(ReturnDates, GoByTheVersionOfTheFileThatIsLoaded) {
  const auto withoutHeader = [](const std::string& file) {
    return file.substr(0, 32) + file.substr(file.find(kSectionEnd));
  };
  const std::pair<std::string, std::size_t> kFiles[] = {
      {Bytes(kDataTables, ProgramVersion()), 0},
      {Bytes(kDataTables, "3.1.0"), 1},
      {Bytes(kDataTables, ProgramVersion()), 0},
      {withoutHeader(Bytes(kDataTables, "3.1.0")), 1},
  };
  for (const auto& [file, questions] : kFiles) {
    now.shown.messages.clear();
    LoadBytes(file);
    EXPECT_EQ(now.shown.messages.size(), questions);
    EXPECT_EQ(ledger.dataIncomplete, questions > 0);
  }
}

TEST_F(ReturnDates, GoByTheTwoNumbersAndTheForms) {
  for (const auto& [version, asked] : {std::pair{"3.2.9", true},
                                       {"3.3.0", false},
                                       {"2.2.0", true},
                                       {"2.3.0", false},
                                       {"4.0.0", false},
                                       {"3.10.0", false}}) {
    now.shown.messages.clear();
    EXPECT_EQ(Load(kDataTables, version), !asked) << version;
    EXPECT_EQ(!now.shown.messages.empty(), asked) << version;
  }
  before.fgPensionA.ClearData();
  now.shown.messages.clear();
  EXPECT_FALSE(Load(kDataTables, "3.2.0")) << "Form C alone";
  before.fgPensionC.ClearData();
  old.AddRow(before.fgPensionB, {"MONTH=01/03/2009"});
  now.shown.messages.clear();
  EXPECT_TRUE(Load(kDataTables, "3.2.0"));
  EXPECT_EQ(now.shown.messages.size(), 0u);
}

}  // namespace
}  // namespace lm
