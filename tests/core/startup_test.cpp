#include "core/startup.h"
#include "core/messagebox.h"

#include <gtest/gtest.h>

#include "core/datafile.h"
#include "core/files.h"
#include "core/options.h"
#include "tests/support/processes.h"
#include "tests/support/scripted_platform.h"

#ifndef _WIN32
#include <sys/resource.h>

#include <csignal>
#endif

namespace lm {
namespace {

namespace fs = std::filesystem;

TEST(Startup, TheProgramsOwnFolderServesWhenItCanBeWritten) {
  test::TestLedger test;
  EXPECT_EQ(ChooseProgramDirectory(test.shown.platform), test.shown.executableDirectory);
  std::string error;
  ASSERT_TRUE(ReplaceFile(test.ledger.File("CMakeCache.txt"), "", error));
  EXPECT_EQ(ChooseProgramDirectory(test.shown.platform), test.shown.userDataDirectory)
      << "a build folder is thrown away";
  test.shown.executableDirectory = test.ledger.File("Options.dat");  // no folder to write in
  EXPECT_EQ(ChooseProgramDirectory(test.shown.platform), test.shown.userDataDirectory);
}

TEST(Startup, AnInstalledProgramKeepsRecordsInTheUsersFolder) {
  test::TestLedger test;
  const fs::path root = test.ledger.File("usr");
  test.shown.executableDirectory = root / "bin";
  fs::create_directories(root / "bin");
  EXPECT_EQ(ChooseProgramDirectory(test.shown.platform), root / "bin");
  fs::create_directories(root / "share/doc/ledgerminder");
  std::string error;
  ASSERT_TRUE(ReplaceFile(root / "share/doc/ledgerminder/copyright", "", error));
  EXPECT_EQ(ChooseProgramDirectory(test.shown.platform), test.shown.userDataDirectory);
}

TEST(Startup, AFirstStartMakesWhatTheStartReads) {
  test::TestLedger test;
  Ledger& ledger = test.ledger;
  ledger.programDirectory /= "new";
  EXPECT_TRUE(IsFirstStart(ledger));
  test.AddRow(ledger.fgEvents, {"TITLE=left over"});
  SetOption(ledger, optInvoicePrefix, "left over");
  ASSERT_TRUE(MakeProgramDirectory(ledger));
  EXPECT_FALSE(IsFirstStart(ledger));
  for (const auto* folder : {"Invoices", "Pension Forms", "Invoice Templates", "Form Templates"})
    EXPECT_TRUE(fs::is_directory(ledger.File(folder))) << folder;

  Ledger started(test.shown.platform);
  started.programDirectory = ledger.programDirectory;
  ASSERT_TRUE(LoadGridFile(started, started.File("Options.dat"), started.fgOptions));
  SetDefaultOptions(started);
  ASSERT_TRUE(LoadData(started));
  EXPECT_TRUE(test.shown.messages.empty());
  EXPECT_EQ(GetOption(started, optAutoSave), "TRUE");
  EXPECT_EQ(GetOption(started, optInvoicePrefix), "INV-");
  for (std::size_t i = 0; i < kTables.size(); ++i) {
    EXPECT_EQ(started.dataTables[i]->Rows(), 2) << kTables[i].name;
    EXPECT_EQ(started.dataTables[i]->Cols(), static_cast<int>(kTables[i].columns.size()) + 1)
        << kTables[i].name;
  }
}

// A first start that broke off between its two files is made good; whatever else stands alone is
// somebody's.
TEST(Startup, OneBlankFileAloneIsStillAFirstStart) {
  const struct {
    const char* name;
    void (*change)(test::TestLedger& test);
    const char* lost;
    bool first;
  } cases[] = {
      {"blank data", [](test::TestLedger&) {}, "Options.dat", true},
      {"blank options", [](test::TestLedger&) {}, "LedgerMinder.dat", true},
      {"a record", [](test::TestLedger& test) { test.AddRow(test.ledger.fgEvents, {}); },
       "Options.dat", false},
      {"a password", [](test::TestLedger& test) { test.ledger.dataPassword = "secret"; },
       "Options.dat", false},
      {"a name", [](test::TestLedger& test) { SetMyDetail(test, kLastNameField, "Morgan"); },
       "LedgerMinder.dat", false},
      {"an option", [](test::TestLedger& test) { SetOption(test, optInvoicePrefix, "M-"); },
       "LedgerMinder.dat", false},
  };
  for (const auto& [name, change, lost, first] : cases) {
    SCOPED_TRACE(name);
    test::TestLedger test;
    ASSERT_TRUE(MakeProgramDirectory(test));
    change(test);
    ASSERT_TRUE(Save(test));
    fs::remove(test.ledger.File(lost));
    EXPECT_EQ(IsFirstStart(test), first);
    EXPECT_TRUE(!first || MakeProgramDirectory(test));
    EXPECT_EQ(test.shown.TakeMessage(), "");
  }
  test::TestLedger cut;
  ASSERT_TRUE(MakeProgramDirectory(cut));
  fs::remove(cut.ledger.OptionsFile());
  fs::resize_file(cut.ledger.DataFile(), 2000);
  EXPECT_FALSE(IsFirstStart(cut)) << "what cannot be read may hold anything";
}

#ifndef _WIN32

// Wherever the disk is full.
TEST(Startup, AFirstStartMakesBothFilesOrNeither) {
  int made = 0;
  for (rlim_t most = 0; most < 20'000 && made == 0; most += 250) {
    test::TestLedger test;
    test.ledger.programDirectory /= "new";
    made += test::InAnotherProcess([&] {
      std::signal(SIGXFSZ, SIG_IGN);
      const rlimit limit{most, most};
      ::setrlimit(RLIMIT_FSIZE, &limit);
      return MakeProgramDirectory(test);
    });
    EXPECT_EQ(fs::exists(test.ledger.OptionsFile()), made == 1) << most;
    EXPECT_EQ(fs::exists(test.ledger.DataFile()), made == 1) << most;
    EXPECT_EQ(IsFirstStart(test), made == 0);
  }
  EXPECT_EQ(made, 1);

  test::TestLedger test;
  test.ledger.programDirectory /= "new";
  fs::create_directories(test.ledger.OptionsFile());
  EXPECT_FALSE(MakeProgramDirectory(test));
  EXPECT_EQ(test.shown.TakeMessage(), "This is a folder, not a file.");
  EXPECT_FALSE(fs::exists(test.ledger.DataFile()));
}

TEST(Startup, FilesOutOfReachAreNoFirstStart) {
  test::TestLedger test;
  Ledger& ledger = test.ledger;
  ledger.programDirectory /= "new";
  fs::create_directory(ledger.programDirectory);
  ASSERT_TRUE(IsFirstStart(ledger));
  fs::create_symlink("/not mounted/LedgerMinder.dat", ledger.File("LedgerMinder.dat"));
  EXPECT_FALSE(IsFirstStart(ledger));
  ledger.programDirectory /= std::string(300, 'n');  // no file system can look there
  EXPECT_FALSE(IsFirstStart(ledger));
}

#endif

TEST(Startup, OneMissingFileIsNoFirstStart) {
  test::TestLedger test;
  Ledger& ledger = test.ledger;
  ASSERT_TRUE(MakeProgramDirectory(ledger));
  SetMyDetail(ledger, kLastNameField, "Morgan");
  ASSERT_TRUE(Save(ledger));
  fs::remove(ledger.File("LedgerMinder.dat"));
  EXPECT_FALSE(IsFirstStart(ledger));
  EXPECT_FALSE(LoadData(ledger));
  EXPECT_EQ(test.shown.messages.back().minorPrompt, PathInMessage(ledger.File("LedgerMinder.dat")));
  EXPECT_EQ(test.shown.TakeMessage(), "Missing File");
  fs::remove(ledger.File("Options.dat"));
  EXPECT_FALSE(LoadGridFile(ledger, ledger.File("Options.dat"), ledger.fgOptions));
  EXPECT_EQ(test.shown.TakeMessage(),
            "Unable to find the file " + PathInMessage(ledger.File("Options.dat")));
}

TEST(Startup, AFolderThatCannotBeMadeIsTold) {
  test::TestLedger test;
  test.ledger.programDirectory = test.ledger.File("Options.dat") / "below a file";
  EXPECT_FALSE(MakeProgramDirectory(test));
  EXPECT_NE(test.shown.TakeMessage(), "");
}

TEST(Startup, CountsProcessesByTheFrontOfTheirName) {
  const std::pair<std::vector<std::string>, bool> cases[] = {
      {{}, false},
      {{"ledgerminder"}, false},
      {{"LedgerMinder.exe", "ledgerminder"}, true},
      {{"ledgerminder", "LEDGERMINDER2.EXE"}, true},
      {{"ledgerminder", "my ledgerminder", "ledger", "ledgermind"}, false}};
  test::TestLedger test;
  for (const auto& [processes, running] : cases) {
    test.shown.processes = processes;
    EXPECT_EQ(AnotherInstanceRuns(test.shown.platform), running);
  }
}

TEST(Startup, TheSecurityLogTellsTheStartBefore) {
  test::TestLedger test;
  const auto shown = [&] {
    ProcessSecurityLog(test);
    return test.shown.lastOpened;
  };
  std::string error;
  const fs::path log = test.ledger.File("Security.log");
  EXPECT_EQ(shown(), "Last Opened: UNKNOWN - Security log not found.");
  test.shown.userName = "Dr A. User";
  EXPECT_EQ(shown(), "Last Opened: Tue 03-Feb-2026 10:30 by tester");
  EXPECT_EQ(shown(), "Last Opened: Tue 03-Feb-2026 10:30 by Dr A. User");
  for (const std::string_view text : {"", "not Base64!", "Zm9vYmFy"}) {
    ASSERT_TRUE(ReplaceFile(log, text, error));
    EXPECT_EQ(shown(), "Last Opened: UNKNOWN - Security log tampered.") << text;
    EXPECT_EQ(shown(), "Last Opened: Tue 03-Feb-2026 10:30 by Dr A. User");
  }
  EXPECT_TRUE(test.shown.messages.empty());

  fs::remove(log);
  fs::create_directories(log / "in the way");
  ProcessSecurityLog(test);
  EXPECT_EQ(test.shown.TakeMessage(), "Unexpected error processing the security log");
}

}  // namespace
}  // namespace lm
