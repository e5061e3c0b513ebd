// The window that exports a calendar.
#include "connections/frmExportCalendar.h"

#include <gtest/gtest.h>

#include "core/files.h"
#include "core/messagebox.h"
#include "core/text.h"
#include "tests/support/scripted_platform.h"

namespace lm::test {
namespace {

struct Sessions : TestLedger {
  Sessions() {
    AddRow(ledger.fgPractices, {"NAME=Mill"});
    AddRow(ledger.fgPractices, {"NAME=Abbey"});
    for (const char* date : {"31/01/2026", "01/02/2026", "28/02/2026", "01/03/2026"})
      for (const char* practice : {"1", "2"})
        AddRow(ledger.fgSessions,
               {std::string("SDATE=") + date, std::string("PRACTICE=") + practice, "STIME=09:00",
                "ETIME=12:00"});
  }
};

struct Window : Sessions {
  // How often a text stands in the exported file.
  int Exported(const std::string& text) {
    window.Press(window.cmdExport);
    std::string error;
    const std::string file = ReadFile(path, error).value_or("");
    int count = 0;
    for (auto at = file.find(text); at != std::string::npos; at = file.find(text, at + 1)) ++count;
    return count;
  }
  const std::filesystem::path path = directory.Path() / "LedgerMinder Sessions.ics";
  frmExportCalendar window{ledger};
};

TEST(ExportCalendar, StartsWithEverything) {
  Window test;
  EXPECT_EQ(test.window.txtExportFile.Text(), NativePathText(test.path));
  EXPECT_EQ(test.window.cboPractice.Text(), "<ALL PRACTICES>");
  EXPECT_EQ(test.window.cboPractice.EntryId(1), "2");  // Abbey
  EXPECT_EQ(test.Exported("BEGIN:VEVENT"), 8);
  ASSERT_EQ(test.shown.messages.size(), 1u);
  EXPECT_EQ(test.shown.messages[0].mainPrompt, "Calendar exported succesfully");
  EXPECT_EQ(test.shown.messages[0].minorPrompt,
            "Session information saved to the file;\r\n" + PathInMessage(test.path));
  EXPECT_EQ(test.Exported("CLASS:Private\r\n"), 8);
  EXPECT_EQ(test.Exported("CATEGORIES:"), 0);
}

TEST(ExportCalendar, TakesWhatIsAskedFor) {
  Window test;
  test.window.Enter(test.window.txtSDate, "1 feb");
  test.window.Enter(test.window.txtEDate, "28 feb");
  EXPECT_EQ(test.Exported("BEGIN:VEVENT"), 4);
  test.window.Choose(test.window.cboPractice, 2);
  EXPECT_EQ(test.Exported("LOCATION:Mill\r\n"), 2);
  EXPECT_EQ(test.Exported("LOCATION:"), 2);
  test.window.Enter(test.window.txtExportCategory, "Work");
  test.window.Choose(test.window.cboExportClass, 1);
  EXPECT_EQ(test.Exported("CATEGORIES:Work\r\nCLASS:Public\r\n"), 2);
  test.window.Tick(test.window.chkRfc5545, true);
  EXPECT_EQ(test.Exported("CATEGORIES:Work\r\nCLASS:PUBLIC\r\n"), 2);
}

TEST(ExportCalendar, RefusesWhatItCannotTake) {
  Window test;
  test.window.Enter(test.window.txtSDate, "someday");
  EXPECT_EQ(test.shown.TakeMessage(), "Please enter a valid date.");
  EXPECT_EQ(test.Exported("BEGIN"), 0);
  EXPECT_EQ(test.shown.TakeMessage(), "Please enter a valid date.");
  test.window.Enter(test.window.txtSDate, "01/04/2026");
  EXPECT_EQ(test.Exported("BEGIN"), 0);
  ASSERT_EQ(test.shown.messages.size(), 1u);
  EXPECT_EQ(test.shown.messages[0].title, "Export Calendar");
  EXPECT_EQ(test.shown.messages[0].minorPrompt, "There were no Sessions to export.");
  EXPECT_EQ(test.shown.TakeMessage(), "Calendar not exported");
  test.window.Enter(test.window.txtExportFile, " ");
  EXPECT_EQ(test.Exported("BEGIN"), 0);
  ASSERT_EQ(test.shown.messages.size(), 1u);
  EXPECT_EQ(test.shown.messages[0].minorPrompt, "No export file has been specified.");
  EXPECT_EQ(test.shown.TakeMessage(), "Export Calendar");
}

TEST(ExportCalendar, AsksForTheFile) {
  Window test;
  test.shown.saveFile = test.directory.Path() / "mine";
  test.window.Press(test.window.cmdSelectExportFile);
  EXPECT_EQ(test.shown.saveStart, test.path);
  EXPECT_EQ(test.window.txtExportFile.Text(), NativePathText(test.shown.saveFile) + ".ics");
  test.shown.saveFile = test.ledger.DataFile();
  test.window.Press(test.window.cmdSelectExportFile);
  EXPECT_NE(test.shown.TakeMessage(), "");
  test.shown.saveFile.clear();
  test.window.Press(test.window.cmdSelectExportFile);
  EXPECT_EQ(test.window.txtExportFile.Text(), NativePathText(test.directory.Path() / "mine.ics"));
}

}  // namespace
}  // namespace lm::test
