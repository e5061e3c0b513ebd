#include "core/datafile.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "core/clsRC4.h"
#include "core/files.h"
#include "core/frmGetPassword.h"
#include "core/keys.h"
#include "core/options.h"
#include "core/rows.h"
#include "core/shortcuts.h"
#include "core/text.h"
#include "tests/support/processes.h"
#include "tests/support/scripted_platform.h"

#ifndef _WIN32
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#endif

namespace lm {
namespace {

namespace fs = std::filesystem;

std::string Content(const fs::path& path) {
  std::string error;
  return ReadFile(path, error).value_or("(unreadable)");
}

void Write(const fs::path& path, std::string_view text) {
  std::string error;
  ASSERT_TRUE(ReplaceFile(path, text, error)) << error;
}

// A ledger with a row in each table but the retired ones, saved.
struct SavedLedger : test::TestLedger {
  const fs::path file = ledger.File("LedgerMinder.dat");

  SavedLedger() {
    AddRow(ledger.fgPractices, {"NAME=Riverside", "ADDR1=1 High St, \"Annexe\""});
    AddRow(ledger.fgSessions, {"PRACTICE=1", "SDATE=03/02/2026", "RATE=banana", "TOTAL=320.00"});
    AddRow(ledger.fgInvoices, {"NUMBER=INV-00001", "AMOUNT=320.00"});
    for (Grid* grid : {&ledger.fgPensionA, &ledger.fgPensionB, &ledger.fgExtras,
                       &ledger.fgPensionSolo, &ledger.fgExpenses, &ledger.fgSessionExpenses,
                       &ledger.fgEvents, &ledger.fgPensionPayments})
      AddRow(*grid, {"NOTES=of " + grid->Name()});
    EXPECT_TRUE(Save(ledger));
    EXPECT_EQ(shown.TakeMessage(), "");
  }

  std::vector<std::string> Sections() const {
    std::vector<std::string> sections;
    const std::string text = Content(file);
    for (const auto section : Split(text, kSectionEnd)) sections.emplace_back(section);
    return sections;
  }
};

std::vector<std::string> Cells(const Grid& grid) {
  std::vector<std::string> cells;
  for (int row = 0; row < grid.Rows(); ++row)
    for (int col = 0; col < grid.Cols(); ++col) cells.push_back(grid.TextMatrix(row, col));
  return cells;
}

TEST(DataFile, ComesBackAsItWas) {
  SavedLedger saved;
  Ledger loaded(saved.shown.platform);
  loaded.programDirectory = saved.ledger.programDirectory;
  ASSERT_TRUE(LoadData(loaded));
  EXPECT_TRUE(saved.shown.messages.empty());
  EXPECT_FALSE(loaded.dataIncomplete);
  EXPECT_EQ(loaded.dataFileVersion, ProgramVersion());
  for (std::size_t i = 0; i < kTables.size(); ++i) {
    const Grid& before = *saved.ledger.dataTables[i];
    const Grid& after = *loaded.dataTables[i];
    EXPECT_EQ(after.Rows(), before.Rows()) << kTables[i].name;
    EXPECT_EQ(after.Cols(), before.Cols()) << kTables[i].name;
    if (before.Name() == "fgSessions") continue;
    EXPECT_EQ(Cells(after), Cells(before)) << kTables[i].name;
  }
  // A session's money cells are never empty after a load.
  EXPECT_EQ(loaded.fgSessions.TextMatrix(2, "EMPLOYERCONTRIB"), "0.00");
  EXPECT_EQ(loaded.fgSessions.TextMatrix(2, "TOTAL"), "320.00");
  EXPECT_EQ(loaded.fgSessions.TextMatrix(2, "RATE"), "banana");
  EXPECT_TRUE(loaded.fgExtras.ColHidden(loaded.fgExtras.ColIndex("SESSID")));
  EXPECT_EQ(FindShortcut(loaded, 83, kCtrlBit), 2);
  for (const Grid* grid : saved.ledger.dataTables)
    for (int row = 2; row < grid->Rows(); ++row)
      EXPECT_EQ(StateOfRow(saved, *grid, row), RowState::Saved);
}

TEST(DataFile, AnOlderTableGetsTodaysColumns) {
  SavedLedger saved;
  Ledger& ledger = saved.ledger;
  Grid& invoices = ledger.fgInvoices;
  saved.AddRow(invoices, {"CDATE=01/02/2026", "AMOUNT=1,320.00"});
  invoices.SetColPosition(invoices.ColIndex("IDATE"), invoices.Cols() - 1);
  invoices.SetCols(invoices.Cols() - 1);
  ASSERT_TRUE(Save(ledger));
  ASSERT_TRUE(LoadData(ledger));
  EXPECT_EQ(invoices.ColIndex("IDATE"), invoices.ColIndex("CDATE") + 1);
  EXPECT_EQ(invoices.TextMatrix(3, "IDATE"), "01/02/2026");
  EXPECT_EQ(invoices.TextMatrix(3, "AMOUNT"), "1320.00");
}

// What a bad file says, and that it stays as it is, the tables before the damage hold their rows,
// the others none, and nothing can be saved over it.
TEST(DataFile, EveryDamageIsToldAndNothingIsOverwritten) {
  const auto join = [](const std::vector<std::string>& sections) {
    return Join(sections, std::string(1, kSectionEnd));
  };
  const SavedLedger good;
  const auto sections = good.Sections();
  ASSERT_EQ(sections.size(), 14u);
  const auto with = [&](std::size_t index, const std::string& text) {
    auto changed = sections;
    changed[index] = text;
    return join(changed);
  };
  const auto firstSections = [&](std::ptrdiff_t count) {
    return join({sections.begin(), sections.begin() + count});
  };
  const auto header = [&](const std::string& clear) {
    return with(0, sections[0].substr(0, 32) + clsRC4().EncryptString(clear, HeaderKey(), true));
  };
  const std::string whole = join(sections);
  const std::string notOurs = "This is not a LedgerMinder data file";
  const struct {
    std::string text, message;
    int tablesRead;
  } cases[] = {
      {"", notOurs, 0},
      {whole.substr(0, 31), notOurs, 0},
      {"%PDF-1.4 and so on, for longer than thirty-two characters", notOurs, 0},
      {ToLower(whole.substr(0, 32)) + whole.substr(32), notOurs, 0},
      {whole.substr(0, 32), "Decryption Error: Practices", 0},
      {with(0, sections[0].substr(0, 36)), "Decryption Error: Header", 0},
      {with(0, sections[0].substr(0, 32) + "!!!!"), "Decryption Error: Header", 0},
      {header("4.0\x1f"
              "03-02-2026 10:30:00\x1f\x1f"),
       "Decryption Error: Header", 0},
      {header("4.0.0\x1f"
              "whenever\x1f"
              "more\x1f"
              "than this\x1f"),
       "", 13},  // the version alone is read
      {header("4.0.0"), "Decryption Error: Header", 0},
      {header("4.0.99\x1f"
              "03-02-2026 10:30:00\x1f"),
       "", 13},
      {header("3.9.0\x1f"
              "03-02-2026 10:30:00\x1f"),
       "", 13},
      {header("4.1.0\x1f"
              "03-02-2026 10:30:00\x1f"),
       "This file was saved by a newer version of LedgerMinder", 0},
      {header("12.0.0\x1f"
              "03-02-2026 10:30:00\x1f"),
       "This file was saved by a newer version of LedgerMinder", 0},
      {whole + kSectionEnd, "Decryption Error: File", 0},
      {whole.substr(0, whole.find_last_not_of('=')), "Decryption Error: PensionPayments", 12},
      {whole.substr(0, whole.size() - 5), "Decryption Error: PensionPayments", 12},
      {whole + "A", "Decryption Error: PensionPayments", 12},
      {firstSections(5), "Decryption Error: PensionB", 4},  // cut at the end of a section
      {firstSections(9), "Decryption Error: PensionD", 8},
      {with(2, ""), "Decryption Error: Sessions", 1},
      {with(2, sections[3]), "", 13},  // another table's own section is whole
      {with(9, sections[9].substr(4)), "Decryption Error: PensionD", 8},
  };
  for (const auto& [text, message, tablesRead] : cases) {
    SavedLedger saved;
    Write(saved.file, text);
    Ledger ledger(saved.shown.platform);
    ledger.programDirectory = saved.ledger.programDirectory;
    EXPECT_EQ(LoadData(ledger), message.empty()) << message;
    EXPECT_EQ(saved.shown.TakeMessage(), message) << text.size();
    EXPECT_EQ(ledger.dataIncomplete, !message.empty());
    EXPECT_EQ(saved.shown.busy, 0);
    if (message.empty()) continue;
    for (int i = 0; i < kDataTables; ++i) {
      const Grid& grid = *ledger.dataTables[static_cast<std::size_t>(i)];
      const bool retired = grid.Name() == "fgPensionC" || grid.Name() == "fgPensionD";
      EXPECT_EQ(grid.HasData(), i < tablesRead && !retired) << grid.Name() << " in " << message;
      EXPECT_GT(grid.Cols(), 2) << grid.Name();
    }
    EXPECT_FALSE(Save(ledger));
    EXPECT_EQ(saved.shown.TakeMessage(), "The data was not loaded completely");
    EXPECT_FALSE(WriteDataFile(ledger, ledger.File("backup.bak")));
    EXPECT_EQ(Content(saved.file), text);
    // A backup that loads ends it.
    Write(ledger.File("good.bak"), whole);
    EXPECT_TRUE(LoadData(ledger, ledger.File("good.bak")))
        << saved.shown.messages.back().mainPrompt;
    saved.shown.TakeMessage();
    EXPECT_TRUE(Save(ledger));
  }
}

TEST(DataFile, CutAnywhereItIsTold) {
  SavedLedger saved;
  const std::string whole = Content(saved.file);
  Ledger ledger(saved.shown.platform);
  ledger.programDirectory = saved.ledger.programDirectory;
  const std::size_t last = whole.find_last_not_of('=');  // "=" at the end says nothing
  for (std::size_t length = 0; length <= last; length += 61) {
    Write(saved.file, whole.substr(0, length));
    saved.shown.TakeMessage();
    const bool loaded = LoadData(ledger);
    ASSERT_EQ(saved.shown.messages.size(), 1u) << length;
    // Between two tables it reads like a file of earlier years, which had fewer.
    ASSERT_EQ(loaded, saved.shown.TakeMessage() == "A part of the data file is missing") << length;
    saved.shown.messages.clear();
  }
}

// Once the data is loaded, a reload that fails before it touches the tables does no harm.
TEST(DataFile, AReloadThatFindsNoFileKeepsTheWork) {
  SavedLedger saved;
  ASSERT_TRUE(LoadData(saved));
  fs::remove(saved.file);
  EXPECT_FALSE(LoadData(saved));
  EXPECT_EQ(saved.shown.TakeMessage(), "Missing File");
  EXPECT_TRUE(saved.ledger.fgSessions.HasData());
  EXPECT_TRUE(Save(saved));
  EXPECT_TRUE(LoadData(saved));
}

TEST(DataFile, APasswordIsAskedForOnceAndStaysInForce) {
  SavedLedger saved;
  Ledger& ledger = saved.ledger;
  ledger.dataPassword = "Open, Sesame \xA3";
  ASSERT_TRUE(Save(ledger));

  const auto entering = [&](std::string password, bool cancel = false) {
    saved.shown.modal.push_back([password, cancel](Screen& screen) {
      auto& window = dynamic_cast<frmGetPassword&>(screen);
      EXPECT_EQ(window.Caption(), "Enter Password");
      EXPECT_EQ(window.lblFilename.Text(), "LedgerMinder.dat");
      window.Enter(window.txtPassword, password);
      window.Press(cancel ? window.cmdCancel : window.cmdOk);
    });
  };
  const auto load = [&](Ledger& into) {
    into.programDirectory = ledger.programDirectory;
    return LoadData(into);
  };
  Ledger other(saved.shown.platform);
  entering("");
  EXPECT_FALSE(load(other));
  entering("Open, Sesame \xA3", true);
  EXPECT_FALSE(load(other));
  EXPECT_EQ(saved.shown.TakeMessage(), "");
  entering("open, sesame \xA3");
  EXPECT_FALSE(load(other));
  EXPECT_EQ(saved.shown.messages.back().minorPrompt,
            "Passwords are case sensitive.\r\nPlease ensure you do not have CAPS LOCK on.");
  EXPECT_EQ(saved.shown.TakeMessage(), "Incorrect Password");
  EXPECT_FALSE(Save(other)) << "nothing was loaded yet";
  saved.shown.TakeMessage();

  entering("Open, Sesame \xA3");
  ASSERT_TRUE(load(other));
  EXPECT_EQ(other.dataPassword, "Open, Sesame \xA3");
  EXPECT_EQ(GetOption(other, optPasswordHash), DigestOf("Open, Sesame \xA3"));
  ASSERT_TRUE(Save(other));
  entering("Open, Sesame \xA3");
  EXPECT_TRUE(load(other));
  EXPECT_TRUE(other.fgSessions.HasData());

  // A file without a password, such as an old backup, is read and saved without one.
  const SavedLedger open;
  ASSERT_TRUE(LoadData(other, open.file));
  EXPECT_EQ(other.dataPassword, "");
  EXPECT_EQ(GetOption(other, optPasswordHash), DigestOf(""));
}

TEST(DataFile, ThePasswordWindowHelps) {
  test::TestLedger test;
  test.shown.modal.push_back([](Screen& screen) {
    auto& window = dynamic_cast<frmGetPassword&>(screen);
    EXPECT_TRUE(window.txtPassword.password);
    window.Enter(window.txtPassword, "typed");
    window.Press(window.cmdHelp);
    EXPECT_FALSE(window.Closed());
  });
  EXPECT_EQ(AskPassword(test, "x.dat"), "") << "closed by its frame is cancelled";
  EXPECT_EQ(test.shown.TakeMessage(), "Password Help");
}

// Written under the password, read before it is known.
TEST(DataFile, ShortcutKeysUnderAPasswordAreLost) {
  SavedLedger saved;
  SetDefaultShortcuts(saved);
  saved.ledger.dataPassword = "secret";
  ASSERT_TRUE(SaveShortcuts(saved));
  ASSERT_TRUE(Save(saved));
  Ledger next(saved.shown.platform);
  next.programDirectory = saved.ledger.programDirectory;
  saved.shown.modal.push_back([](Screen& screen) {
    screen.Enter(*screen.FindField("txtPassword"), "secret");
    screen.Close();
  });
  EXPECT_TRUE(LoadData(next));
  EXPECT_EQ(saved.shown.TakeMessage(), "Decryption Error: Shortcuts");
  EXPECT_FALSE(next.fgShortcuts.HasData());
  EXPECT_EQ(FindShortcut(next, 83, kCtrlBit), -1);
}

// Two programs on one folder: each has loaded, and both save.
struct TwoPrograms : testing::Test {
  SavedLedger first;
  Ledger second{first.shown.platform};
  const fs::path kept = first.ledger.File("LedgerMinder kept 03 Feb 2026 1030.dat");

  TwoPrograms() {
    second.programDirectory = first.ledger.programDirectory;
    EXPECT_TRUE(LoadData(second));
    first.AddRow(first.ledger.fgEvents, {"TITLE=of the first"});
    first.AddRow(second.fgEvents, {"TITLE=of the second"});
    EXPECT_TRUE(Save(first));
  }

  std::string EventsIn(const fs::path& file) {
    Ledger read(first.shown.platform);
    read.programDirectory = first.ledger.programDirectory;
    EXPECT_TRUE(LoadData(read, file));
    std::string titles;
    for (int row = 2; row < read.fgEvents.Rows(); ++row)
      titles += read.fgEvents.TextMatrix(row, "TITLE") + ";";
    return titles;
  }
};

TEST_F(TwoPrograms, NoLeavesBothVersions) {
  const std::string before = Content(first.file);
  MarkNew(second, second.fgEvents, second.fgEvents.Rows() - 1);
  first.shown.answers = {Answer::No};
  EXPECT_FALSE(Save(second));
  EXPECT_EQ(first.shown.TakeMessage(), "The data file holds another version of your records");
  EXPECT_EQ(Content(first.file), before);
  EXPECT_FALSE(fs::exists(kept));
  EXPECT_TRUE(HasUnsavedRows(second));
}

TEST_F(TwoPrograms, YesKeepsTheOtherVersionBesideTheNewOne) {
  first.shown.answers = {Answer::Yes};
  EXPECT_TRUE(Save(second));
  ASSERT_EQ(first.shown.messages.size(), 1u);
  EXPECT_NE(first.shown.messages[0].minorPrompt.find("'" + kept.filename().string() + "'"),
            std::string::npos);
  EXPECT_EQ(EventsIn(kept), ";of the first;");
  EXPECT_EQ(EventsIn(first.file), ";of the second;");
  // The next saves of the same program ask nothing.
  EXPECT_TRUE(Save(second));
  EXPECT_EQ(first.shown.messages.size(), 1u);
}

TEST_F(TwoPrograms, AKeptFileIsNeverOverwritten) {
  first.shown.answers = {Answer::Yes, Answer::Yes};
  EXPECT_TRUE(Save(second));
  EXPECT_TRUE(Save(first));
  EXPECT_EQ(EventsIn(kept), ";of the first;");
  EXPECT_EQ(EventsIn(first.ledger.File("LedgerMinder kept 03 Feb 2026 1030 (2).dat")),
            ";of the second;");
  EXPECT_EQ(EventsIn(first.file), ";of the first;");
}

TEST_F(TwoPrograms, WithoutAUserTheOtherVersionIsKept) {
  EXPECT_TRUE(Save(second));
  EXPECT_EQ(EventsIn(kept), ";of the first;");
}

#ifndef _WIN32

TEST_F(TwoPrograms, WhatCannotBeKeptIsNotReplaced) {
  const std::string before = Content(first.file);
  second.programDirectory /= "linked";
  fs::create_directory(second.programDirectory);
  fs::create_symlink(first.file, second.DataFile());
  ASSERT_EQ(::chmod(second.programDirectory.c_str(), 0555), 0);
  EXPECT_TRUE(test::WithoutRights([&] {
    return !Save(second) && first.shown.messages.size() == 2;  // the question and the reason
  }));
  EXPECT_EQ(Content(first.file), before);
}

#endif

// Opened from another file, this run knows nothing of the one that it would replace.
TEST_F(TwoPrograms, ARunOfAnotherFileReplacesNothingUnasked) {
  Ledger other(first.shown.platform);
  other.programDirectory = first.ledger.programDirectory;
  fs::copy_file(first.file, other.File("old.bak"));
  ASSERT_TRUE(LoadData(other, other.File("old.bak")));
  first.shown.answers = {Answer::No};
  EXPECT_FALSE(Save(other));
  fs::remove(other.DataFile());
  EXPECT_TRUE(Save(other)) << "nothing is lost where nothing stands";
}

TEST(DataFile, UnreadableOptionsAreTold) {
  test::TestLedger test;
  const fs::path path = test.ledger.File("Options.dat");
  for (const std::string& text : {std::string(), std::string("garbage"), Content(path).substr(8)}) {
    Write(path, text);
    EXPECT_FALSE(LoadGridFile(test, path, test.ledger.fgOptions));
    EXPECT_EQ(test.shown.TakeMessage(), "Error loading the Options file");
    EXPECT_EQ(Content(path), text);
  }
  EXPECT_EQ(test.shown.progress.back(), "-1 Loading " + NativePathText(path) + "...");
}

TEST(DataFile, AFailedSaveKeepsTheMarkers) {
  SavedLedger saved;
  Ledger& ledger = saved.ledger;
  const int row = AddRecord(ledger, ledger.fgEvents);
  ledger.programDirectory = ledger.File("Options.dat") / "below a file";
  EXPECT_FALSE(Save(ledger));
  EXPECT_NE(saved.shown.TakeMessage(), "");
  EXPECT_EQ(StateOfRow(ledger, ledger.fgEvents, row), RowState::New);
}

#ifndef _WIN32

// The limit on the size of a file stands in for the full disk: the options fit, the data does not.
TEST(DataFile, AFullDiskKeepsTheOldFileAndTheMarkers) {
  SavedLedger saved;
  const std::string before = Content(saved.file);
  const pid_t child = ::fork();
  if (child == 0) {
    Ledger& ledger = saved.ledger;
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{20'000, 20'000};
    ::setrlimit(RLIMIT_FSIZE, &limit);
    const int row = saved.AddRow(ledger.fgEvents, {"NOTES=" + std::string(50'000, 'n')});
    MarkNew(ledger, ledger.fgEvents, row);
    const bool failed = !Save(ledger) && saved.shown.messages.size() == 1 && HasUnsavedRows(ledger);
    ::_exit(failed ? 0 : 1);
  }
  int status = -1;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(Content(saved.file), before);
  const auto files = std::distance(fs::directory_iterator(saved.ledger.programDirectory),
                                   fs::directory_iterator());
  EXPECT_EQ(files, 2);
}

#endif

}  // namespace
}  // namespace lm
