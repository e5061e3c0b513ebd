// Exports: types, tags, escapes and values; the XML read back; files that cannot be written.
#include "reports/exports.h"

#include <filesystem>
#include <pugixml.hpp>

#include "core/files.h"
#include "core/formatting.h"
#include "reports/exportcolumns.h"
#include "reports/groupingreport.h"
#include "reports/standardreport.h"
#include "reports/taxreport.h"
#include "reports/xmlescape.h"
#include "tests/reports/practice_year.h"

namespace lm::test {
namespace {

template <typename Write>
std::string Written(const Write& write) {
  clsStringBuilder file;
  write(file);
  return file.ToString();
}

std::string Of(const Ledger& ledger, const ExportedGrid& exported, GridFormat format) {
  return Written([&](clsStringBuilder& file) { WriteGrid(ledger, exported, format, file); });
}

pugi::xml_document Parsed(const std::string& text) {
  pugi::xml_document document;
  const auto result = document.load_buffer(text.data(), text.size());
  EXPECT_TRUE(result) << result.description();
  return document;
}

TEST(ExportColumns, TypesGoByTheKey) {
  const struct {
    const char *key, *word;
  } cases[] = {{"SDATE", "date"},
               {"sdate", "date"},
               {"ETIME", "time"},
               {"RATE", "decimal"},
               {"RATE_UNPENSIONED", "decimal"},
               {"MILEAGE", "decimal"},
               {"SESSIONS", "integer"},
               {"NOTES", "string"},
               {"MONTH", "string"},
               {"", "string"},
               {"ZZZ", "string"},
               {"ADDITIONAL", "decimal"},
               {"TOTAL_PAID", "decimal"},
               {"INCLUDEEMPLOYERCONTRIB", "boolean"}};
  for (const auto& each : cases) EXPECT_EQ(TypeWord(TypeOfColumn(each.key)), each.word) << each.key;
}

TEST(ExportColumns, TagsAreNames) {
  const struct {
    std::string caption, tag;
  } cases[] = {{" Start Date ", "start_date"},
               {"My Contrib.", "my_contrib"},
               {"Rate - Normal", "rate_-_normal"},
               {"", "column_7"},
               {"3M & Co", "_3m__co"},
               {"<b>", "b"},
               {FromUtf8("Café"), "caf"}};
  for (const auto& each : cases) EXPECT_EQ(TagOf(each.caption, 7), each.tag);
}

TEST(Escapes, LeaveOutOnlyWhatXmlCannotHold) {
  const std::string text = std::string("a\x01\0b", 4) + "<&>'\"\t\r\n" + FromUtf8("£é€") + "\x7F";
  std::string latin, ascii;
  LatinEscape().Append(latin, text);
  AsciiEscape().Append(ascii, text);
  EXPECT_EQ(latin, "ab&lt;&amp;&gt;&apos;&quot;\t\r\n&#163;\xE9&#8364;\x7F");
  EXPECT_EQ(ascii, "ab&lt;&amp;&gt;&apos;&quot;\t\r\n&#163;&#233;&#8364;&#127;");
}

TEST(ExportValues, AreWhatOtherProgramsRead) {
  PracticeYear year;
  Grid& sessions = year.ledger.fgSessions;
  FormatTables(year.ledger);
  const struct {
    const char *key, *cell, *word, *text;
  } cases[] = {{"RATE", "12.50", "decimal", "12.50"},
               {"RATE", "-12.50", "decimal", "-12.50"},
               {"RATE", "1,234.50", "decimal", "1234.50"},
               {"RATE", "007", "decimal", "007"},
               {"RATE", "1e2", "decimal", "100"},
               {"RATE", "-", "string", "-"},
               {"RATE", "lots", "string", "lots"},
               {"RATE", "", "string", ""},
               {"SDATE", "05/01/2026", "date", "2026-01-05"},
               {"SDATE", "31/02/2026", "string", "31/02/2026"},
               {"STIME", "9:30", "time", "09:30"},
               {"STIME", "24:00", "string", "24:00"},
               {"SESS_TYPE", "2", "string", "NHS OOH"},
               {"SESS_TYPE", "17", "string", ""},
               {"PRACTICE", "2", "string", "Old Mill"},
               {"PRACTICE", "-1", "string", ""},
               {"INVOICE", "404", "string", ""},
               {"INCLUDEEMPLOYERCONTRIB", "-1", "boolean", "1"},
               {"INCLUDEEMPLOYERCONTRIB", "1", "boolean", "1"},
               {"INCLUDEEMPLOYERCONTRIB", "FALSE", "boolean", "0"}};
  for (const auto& each : cases) {
    sessions.SetTextMatrix(2, each.key, each.cell);
    const ExportValue value =
        ExportValues(year.ledger, sessions).Of(ColumnOfKey(sessions, each.key), 2, each.cell);
    EXPECT_EQ(value.text, each.text) << each.key << ' ' << each.cell;
    EXPECT_EQ(TypeWord(value.type), each.word) << each.key << ' ' << each.cell;
  }
}

// A ledger with what is hard to export.
struct Hostile : PracticeYear {
  Hostile() {
    Grid& sessions = ledger.fgSessions;
    note = FromUtf8("Fee < £5 & \"paid\" – Â\r\nsecond 'line'") + std::string("\0\x02", 2);
    sessions.SetTextMatrix(2, "NOTES", note);
    sessions.SetTextMatrix(2, "INVOICE", "4");
    sessions.SetTextMatrix(3, "INVOICE", "404");
    sessions.SetTextMatrix(3, "RATE", "lots");
    Add(ledger.fgInvoices, {"ID=4", "NUMBER=INV-00004", "PRACTICE=1"});
    Add(ledger.fgExtras, {"SESSID=1", "ITEM=Home visit", "RATE=20", "NOTES="});
    Add(ledger.fgSessionExpenses, {"SESSID=1", "ITEM=Parking", "RATE=2.5", "CATEGORY=0"});
    Add(ledger.fgPensionA, {"PRACTICE=1", "MONTH=01/02/2026", "SESSIONS=3"});
    FormatTables(ledger);
  }
  std::string note;
};

TEST(AllData, IsReadBackWhole) {
  Hostile year;
  GroupByPractice(year.ledger.fgSessions);
  year.ledger.fgSessions.SetRowHidden(4, true);  // by a tab
  const std::string text = Written([&](auto& file) { WriteAllData(year.ledger, file); });
  EXPECT_EQ(text.find('\n'), text.find("\r\n") + 1);
  const auto document = Parsed(text);
  const auto data = document.child("locumdata");
  EXPECT_STREQ(data.child("creator").text().get(), "LedgerMinder");
  EXPECT_STREQ(data.child("created").text().get(), "2026-02-03T10:30:00");
  const auto sessions = data.child("sessions").children("session");
  EXPECT_EQ(std::distance(sessions.begin(), sessions.end()), 9);
  int found = 0;
  for (const auto session : sessions) {
    if (session.child("extraitems")) {
      ++found;
      EXPECT_EQ(FromUtf8(session.child("private_note").text().get()),
                FromUtf8("Fee < £5 & \"paid\" – Â\nsecond 'line'"));
      EXPECT_STREQ(session.child("practice").text().get(), "Riverside Surgery");
      EXPECT_STREQ(session.child("invoice").text().get(), "INV-00004");
      EXPECT_STREQ(session.child("start_date").attribute("type").value(), "date");
      const auto extra = session.child("extraitems").child("extra");
      EXPECT_STREQ(extra.child("item").text().get(), "Home visit");
      EXPECT_TRUE(extra.child("private_note").text().empty());
      const auto expense = session.child("sessionexpenses").child("expense");
      EXPECT_STREQ(expense.child("category").text().get(), "Mileage");
    }
    const std::string rate = session.child("rate").text().get();
    if (rate == "lots") {
      EXPECT_STREQ(session.child("rate").attribute("type").value(), "string");
      EXPECT_TRUE(session.child("invoice").text().empty());
    }
    if (rate == "97") {  // on 31 February
      EXPECT_STREQ(session.child("start_date").attribute("type").value(), "string");
    }
    if (rate == "1000.50") ++found;  // was stored with a comma
  }
  EXPECT_EQ(found, 2);
  EXPECT_STREQ(data.child("pension_a").child("item").child("month").text().get(), "February 2026");
  for (const char* table :
       {"practices", "invoices", "expenses", "pension_b", "pension_c", "pension_d", "pension_solo"})
    EXPECT_TRUE(data.child(table)) << table;
}

TEST(AllData, ColumnsOutOfSightStayOut) {
  Hostile year;
  Grid& sessions = year.ledger.fgSessions;
  sessions.SetColWidth(sessions.ColIndex("PUBLICNOTE"), 0);
  sessions.SetColHidden(sessions.ColIndex("FORMS"), true);
  sessions.SetColPosition(sessions.ColIndex("TOTAL"), 1);
  const std::string text = Written([&](auto& file) { WriteAllData(year.ledger, file); });
  const auto document = Parsed(text);
  const auto session = document.child("locumdata").child("sessions").child("session");
  EXPECT_STREQ(session.first_child().name(), "total");
  EXPECT_STREQ(session.child("total").text().get(), "300");
  EXPECT_STREQ(session.child("practice").text().get(), "Riverside Surgery");
  EXPECT_FALSE(session.child("public_note"));
  EXPECT_FALSE(session.child("forms"));
  EXPECT_FALSE(session.child("id"));
}

TEST(Workbook, HoldsASheetForEachTable) {
  Hostile year;
  const std::string text = Written([&](auto& file) { WriteWorkbook(year.ledger, file); });
  const auto document = Parsed(text);
  std::string names;
  for (const auto sheet : document.child("Workbook").children("Worksheet"))
    names += std::string(sheet.attribute("ss:Name").value()) + "/";
  EXPECT_EQ(names,
            "Sessions/Session Extras/Session Expenses/Practices/Events/Expenses/Invoices/"
            "Pension A/Pension B/Pension C/Pension D/Pension SOLO/");
  const auto sheets = document.child("Workbook").children("Worksheet");
  const auto extras = std::next(sheets.begin())->child("Table");
  const auto row = extras.child("Row").next_sibling("Row");
  EXPECT_STREQ(row.first_child().child("Data").text().get(), "Riverside Surgery");
  EXPECT_STREQ(row.first_child().next_sibling().child("Data").text().get(),
               "2026-01-06T00:00:00.000");
  // The first session has no invoice in sight of a cell, nor an end date: the next cells say where
  // they stand.
  const auto session = sheets.begin()->child("Table").child("Row").next_sibling("Row");
  int place = 0;
  std::string times;
  for (const auto cell : session.children("Cell")) {
    const auto index = cell.attribute("ss:Index");
    place = index ? index.as_int() : place + 1;
    if (std::string(cell.attribute("ss:StyleID").value()) == "s22")
      times += std::to_string(place) + cell.child("Data").text().get() + " ";
  }
  EXPECT_EQ(times, "51899-12-31T09:00:00.000 61899-12-31T12:30:00.000 ");
  EXPECT_EQ(text.find_first_of("\x80\xA3\xE9"), std::string::npos);
}

// A spreadsheet program counts days from 1900 and refuses a workbook with an earlier one.
TEST(Workbook, OfOneTableTakesMistypedDatesAsText) {
  PracticeYear year;
  Grid& expenses = year.ledger.fgExpenses;
  year.Add(expenses, {"DATE=05/01/0202", "ITEM=Mistyped", "AMOUNT=1"});
  year.Add(expenses, {"DATE=01/01/1900", "ITEM=The first", "AMOUNT=1"});
  const std::string text =
      Written([&](auto& file) { WriteWorkbook(year.ledger, file, &expenses); });
  EXPECT_NE(text.find("<Cell><Data ss:Type=\"String\">05/01/0202</Data>"), std::string::npos);
  EXPECT_NE(text.find("<Data ss:Type=\"DateTime\">1900-01-01T00:00:00.000</Data>"),
            std::string::npos);
  const auto document = Parsed(text);
  const auto sheets = document.child("Workbook").children("Worksheet");
  EXPECT_EQ(std::distance(sheets.begin(), sheets.end()), 1);
  EXPECT_FALSE(HasSheet(year.ledger, year.ledger.fgPensionPayments));
}

TEST(GridExport, WritesWhatIsInSight) {
  PracticeYear year;
  Ledger& ledger = year.ledger;
  Grid& expenses = ledger.fgExpenses;
  year.Add(expenses,
           {"DATE=05/01/2026", "ITEM=Tea, milk", "AMOUNT=1234.5", "CATEGORY=", "Notes=say \"hi\""});
  const int hidden = year.Add(expenses, {"DATE=06/01/2026", "ITEM=Hidden", "AMOUNT=1"});
  year.Add(expenses, {"DATE=07/01/2026", "ITEM=two\r\nlines|piped", "AMOUNT=2"});
  FormatTables(ledger);
  expenses.SetRowHidden(hidden, true);
  EXPECT_EQ(Of(ledger, {&expenses}, GridFormat::Csv),
            "Date,Item,Amount,Category,Notes\r\n"
            "05/01/2026,\"Tea, milk\",\"1,234.50\",,\"say \"\"hi\"\"\"\r\n"
            "07/01/2026,\"two\rlines|piped\",2.00,,\r\n");
  EXPECT_EQ(Of(ledger, {&expenses}, GridFormat::Pipe),
            "Date|Item|Amount|Category|Notes\r\n"
            "05/01/2026|Tea, milk|1,234.50||say \"hi\"\r\n"
            "07/01/2026|two\rlines|piped|2.00||\r\n");
  const std::string xml = Of(ledger, {&expenses, "expense"}, GridFormat::Xml);
  EXPECT_NE(xml.find("  <expense>\r\n   <date type=\"date\">2026-01-05</date>\r\n"
                     "   <item type=\"string\">Tea, milk</item>\r\n"
                     "   <amount type=\"decimal\">1234.5</amount>\r\n   <category />\r\n"),
            std::string::npos)
      << xml;
  EXPECT_EQ(xml.find("Hidden"), std::string::npos);
}

TEST(GridExport, WritesReports) {
  PracticeYear year;
  Ledger& ledger = year.ledger;
  Grid report("fgReports");
  RunStandardReport(ledger, {12, {46023, 46111}, false}, report);  // hours
  HideZeros(ledger, report, true, true);
  report.SetTextMatrix(1, 2, "3rd & Old Mill");
  const ExportedGrid exported{&report, "item", 0};
  EXPECT_EQ(Of(ledger, exported, GridFormat::Csv),
            ",Riverside Surgery,3rd & Old Mill,Old Mill,TOTAL\r\nJan 26,11:30,12:00,,23:30\r\n"
            "Feb 26,0:00,,1:00,1:00\r\nMar 26,1:00,,,1:00\r\nTOTAL,12:30,12:00,1:00,25:30\r\n");
  RunStandardReport(ledger, {14, {46023, 46111}, false}, report);  // private hours
  HideZeros(ledger, report, true, true);
  const auto document = Parsed(Of(ledger, exported, GridFormat::Xml));
  const auto item = document.child("items").child("item");
  EXPECT_STREQ(item.child("period").text().get(), "Feb 26");
  EXPECT_STREQ(item.child("total").text().get(), "1:00");
  EXPECT_FALSE(item.child("riverside_surgery"));

  Grid grouped("fgGroupingReport");
  FillGroupingReport(ledger, GroupedRecords::Sessions, {46023, 46035}, grouped);
  Regroup(grouped, {5, 1});
  const std::string csv = Of(ledger, {&grouped}, GridFormat::Csv);
  EXPECT_EQ(csv.substr(0, 23), "Practice,Session Month,");
  EXPECT_EQ(std::ranges::count(csv, '\n'), 4);
  const auto groups = Parsed(Of(ledger, {&grouped}, GridFormat::Xml));
  EXPECT_STREQ(groups.child("items").child("item").child("practice").text().get(), "Old Mill");
  EXPECT_STREQ(groups.child("items").child("item").child("hours").text().get(), "12:00");

  Grid tax("fgTaxReport");
  year.Add(ledger.fgExpenses, {"DATE=05/04/2026", "ITEM=Subscription", "AMOUNT=390"});
  FormatTables(ledger);
  FillTaxReport(ledger, DaysOfTaxYear("2025 - 2026"), tax);
  EXPECT_NE(ToUtf8(Of(ledger, {&tax, "item", 0, true}, GridFormat::Csv))
                .find("General Expenses (1),,,£390.00,,,,\r\nExpense Date,Category,Item ,Amount,,,,"
                      "\r\n05/04/2026,,Subscription,£390.00,,,,\r\nPension Contributions (0),"),
            std::string::npos);
  Parsed(Of(ledger, {&tax, "item", 0, true}, GridFormat::Xml));
}

// Captions of a report are names of practices, and its cells are values whatever they are called.
TEST(GridExport, TakesNoPracticeForAColumnOfTheTables) {
  PracticeYear year;
  const char* names[] = {"Practice", "Invoice", "Month"};
  for (int i = 0; i < 3; ++i) year.ledger.fgPractices.SetTextMatrix(2 + i, "NAME", names[i]);
  Grid report("fgReports");
  RunStandardReport(year.ledger, {0, {46023, 46111}, false}, report);
  const auto document = Parsed(Of(year.ledger, {&report, "item", 0}, GridFormat::Xml));
  std::string row;
  for (const auto cell : document.child("items").child("item").children())
    row += std::string(cell.name()) + "=" + cell.text().get() + " ";
  EXPECT_EQ(row, "period=Jan 26 practice=940 invoice=1000.5 month= total=1940.5 ");
}

TEST(ExportFiles, LeaveThoseOfTheProgramAlone) {
  PracticeYear year;
  Ledger& ledger = year.ledger;
  std::string error;
  for (const auto& file :
       {ledger.DataFile(), ledger.OptionsFile(), ledger.File("ShortcutKeys.dat")}) {
    ASSERT_TRUE(ReplaceFile(file, "the records", error));
    EXPECT_FALSE(WriteExportFile(ledger, file, [&](auto& text) { text.Append("an export"); }));
    EXPECT_EQ(year.test.shown.TakeMessage(), "Unable to export the data");
    EXPECT_EQ(ReadFile(file, error), "the records");
  }
}

TEST(ExportFiles, ReplaceWholeOrNotAtAll) {
  PracticeYear year;
  Ledger& ledger = year.ledger;
  const auto file = ledger.File("out.xml");
  std::string error;
  ASSERT_TRUE(ReplaceFile(file, "the old one", error));
  const auto write = [&](clsStringBuilder& text) {
    for (int i = 0; i < 5000; ++i) text.Append("a line of some length to fill a few blocks\r\n");
  };
  EXPECT_FALSE(WriteExportFile(ledger, ledger.File("no folder") / "out.xml", write));
  EXPECT_EQ(year.test.shown.TakeMessage(), "Unable to export the data");
  EXPECT_TRUE(WriteExportFile(ledger, file, write));
  EXPECT_EQ(std::filesystem::file_size(file), 5000u * 44);
  EXPECT_EQ(year.test.shown.TakeMessage(), "");
}

}  // namespace
}  // namespace lm::test
