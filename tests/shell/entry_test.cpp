// The start of the program, as every driver runs it.
#include <gtest/gtest.h>

#include <fstream>

#include "core/datafile.h"
#include "core/files.h"
#include "core/messagebox.h"
#include "core/options.h"
#include "core/startup.h"
#include "core/temporaryfiles.h"
#include "records/frmWelcome.h"
#include "shell/entry.h"
#include "shell/frmMain.h"
#include "shell/pages/pensionpage.h"
#include "shell/windows.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

// One run of the program in a directory that outlives it.
struct ProgramRun {
  test::ScriptedPlatform shown;
  Ledger ledger{shown.platform};
  WindowCatalogue windows;
  std::unique_ptr<frmMain> window;
  std::vector<std::string> steps;

  explicit ProgramRun(const std::filesystem::path& directory) {
    ledger.programDirectory = directory;
    AddWindows(windows);
  }

  bool Start(std::string_view commandLine = "", bool askName = false) {
    EntryHooks hooks;
    hooks.askName = askName;
    hooks.createMain = [this]() -> frmMain& {
      window = std::make_unique<frmMain>(ledger, windows);
      window->showWindow = [this] { steps.push_back("main shown"); };
      return *window;
    };
    hooks.showSplash = [this] { steps.push_back("splash shown"); };
    hooks.closeSplash = [this] { steps.push_back("splash closed"); };
    return RunEntryProcedure(ledger, hooks, commandLine) != nullptr;
  }

  std::vector<std::string> Messages() const {
    std::vector<std::string> prompts;
    for (const MessageBoxText& message : shown.messages) prompts.push_back(message.mainPrompt);
    return prompts;
  }
};

using Texts = std::vector<std::string>;
constexpr const char* kRateMessage = "Employer pension contribution rate change to 14.38%";

struct Entry : testing::Test {
  test::TempDirectory directory;
  std::filesystem::path home = directory.Path() / "home";

  void FirstStart() { ASSERT_TRUE(ProgramRun(home).Start()); }
};

TEST_F(Entry, AStartRemovesWhatKilledRunsLeft) {
  FirstStart();
  const std::string name = TemporaryName(0);
  const auto old = std::filesystem::file_time_type::clock::now() - std::chrono::hours(48);
  std::vector<std::filesystem::path> left;
  for (const char* folder : {".", "Invoices", "Pension Forms"}) {
    left.push_back(home / folder / name);
    std::ofstream(left.back()) << "half a file";
    std::filesystem::last_write_time(left.back(), old);
  }
  ASSERT_TRUE(ProgramRun(home).Start());
  for (const auto& file : left) EXPECT_FALSE(std::filesystem::exists(file)) << file;
}

TEST_F(Entry, FirstStartMakesEverythingAndWelcomes) {
  ProgramRun run(home);
  run.shown.modal.push_back([](Screen& screen) {
    auto& welcome = dynamic_cast<frmWelcome&>(screen);
    welcome.Enter(welcome.txtFirstName, "Alex");
    welcome.Enter(welcome.txtLastName, "Morgan");
    welcome.Press(welcome.cmdOk);
  });
  ASSERT_TRUE(run.Start("", true));
  EXPECT_EQ(run.steps, (Texts{"splash shown", "splash closed", "main shown"}));
  EXPECT_FALSE(run.ledger.starting);
  EXPECT_TRUE(std::filesystem::exists(home / "Options.dat"));
  EXPECT_TRUE(std::filesystem::exists(home / "LedgerMinder.dat"));
  EXPECT_TRUE(std::filesystem::exists(home / "Security.log"));
  EXPECT_EQ(run.window->Caption(), "LedgerMinder  - Alex Morgan");
  EXPECT_EQ(run.window->CurrentPage(), Page::LMToday);
  ASSERT_FALSE(run.shown.tips.empty());
  EXPECT_EQ(run.shown.tips.back().mainPrompt, "Welcome to LedgerMinder");
  EXPECT_EQ(run.Messages(), Texts{});  // a new user is not told of an old change of rates
  EXPECT_EQ(GetOption(run.ledger, optEmployerContribRate), "14.38");
  EXPECT_EQ(GetOption(run.ledger, optPasswordHash), DigestOf(""));

  Texts steps;
  for (const std::string& step : run.shown.progress)
    if (!step.starts_with("-1 ")) steps.push_back(step);
  EXPECT_EQ(steps,
            (Texts{"3 Checking language and regional settings...",
                   "4 Checking if LedgerMinder already running...", "5 Processing security log...",
                   "12 Loading Preferences...", "18 Setting default options...",
                   "26 Loading main form...", "35 Loading and decrypting data...",
                   "97 Tidying up after loading...", "100 Loading Complete.\r\n\r\n"}));

  ProgramRun second(home);
  second.shown.modal.push_back([](Screen&) { FAIL() << "the name is asked for once"; });
  ASSERT_TRUE(second.Start("", true));
  EXPECT_EQ(second.Messages(), Texts{});
}

TEST_F(Entry, OneFileMissingEndsTheStart) {
  ProgramRun first(home);
  ASSERT_TRUE(first.Start());
  first.ledger.fgEvents.AddItem("");
  ASSERT_TRUE(first.window->SaveAll());
  const struct {
    const char* file;
    std::string message;
  } kCases[] = {
      {"LedgerMinder.dat", "Missing File"},
      {"Options.dat", "Unable to find the file " + PathInMessage(home / "Options.dat")},
  };
  for (const auto& [file, message] : kCases) {
    const auto aside = home / "aside";
    std::filesystem::rename(home / file, aside);
    ProgramRun run(home);
    EXPECT_FALSE(run.Start()) << file;
    EXPECT_EQ(run.Messages(), Texts{message});
    EXPECT_EQ(run.steps, (Texts{"splash shown", "splash closed"}));
    EXPECT_FALSE(std::filesystem::exists(home / file)) << "nothing is made in its place";
    std::filesystem::rename(aside, home / file);
  }
}

TEST_F(Entry, SecondInstance) {
  ProgramRun stopped(home);
  stopped.shown.processes = {"LedgerMinder.exe", "ledgerminder", "bash"};
  stopped.shown.answers = {Answer::Ok};
  EXPECT_FALSE(stopped.Start());
  EXPECT_EQ(stopped.Messages(), Texts{"LedgerMinder already open"});
  EXPECT_FALSE(std::filesystem::exists(home)) << "nothing was written";

  ProgramRun going(home);
  going.shown.processes = stopped.shown.processes;
  going.shown.answers = {Answer::Cancel};
  EXPECT_TRUE(going.Start());
}

TEST_F(Entry, CommandLineNamesADataFile) {
  FirstStart();
  const auto named = directory.Path() / "my other.dat";
  std::filesystem::copy_file(home / "LedgerMinder.dat", named);
  const struct {
    std::string commandLine;
    bool starts;
    const char* autoSave;
    Texts messages;
  } kCases[] = {
      {"\"\"\"\"", true, "TRUE", {}},
      {" ", true, "TRUE", {}},
      {"\"" + PathText(named) + "\"", true, "FALSE", {"Auto Save turned off"}},
      {"/nowhere/at/all.dat", false, "FALSE", {"Auto Save turned off", "Missing File"}},
  };
  for (const auto& [commandLine, starts, autoSave, messages] : kCases) {
    ProgramRun run(home);
    EXPECT_EQ(run.Start(commandLine), starts) << commandLine;
    EXPECT_EQ(run.Messages(), messages) << commandLine;
    EXPECT_EQ(GetOption(run.ledger, optAutoSave), autoSave) << commandLine;
    // A load that went well stores it for later runs; one that failed writes nothing.
    ProgramRun next(home);
    ASSERT_TRUE(next.Start());
    EXPECT_EQ(GetOption(next.ledger, optAutoSave), starts ? autoSave : "TRUE") << commandLine;
    SetOption(next.ledger, optAutoSave, "TRUE");
    ASSERT_TRUE(SaveOptions(next.ledger));
  }
}

TEST_F(Entry, StartPageAndTidying) {
  const struct {
    const char* option;
    Page page;
  } kPagesAtStart[] = {{"sessions", Page::Sessions}, {"INVOICES", Page::Invoices},
                       {"Calendar", Page::Calendar}, {"LM Today", Page::LMToday},
                       {"Practices", Page::LMToday}, {"", Page::LMToday}};
  FirstStart();
  for (const auto& [option, page] : kPagesAtStart) {
    {
      ProgramRun before(home);
      ASSERT_TRUE(before.Start());
      SetOption(before.ledger, optStartPage, option);
      SetOption(before.ledger, optInvoiceTemplate, "Old.tpl");
      SaveOptions(before.ledger);
    }
    ProgramRun run(home);
    ASSERT_TRUE(run.Start());
    EXPECT_EQ(run.window->CurrentPage(), page) << option;
    EXPECT_EQ(GetOption(run.ledger, optInvoiceTemplate), "Light Blue.tmpl");
  }
}

TEST_F(Entry, RetiredFormsShowOnlyToThoseWhoHaveThem) {
  FirstStart();
  for (const bool retired : {false, true, false}) {
    {
      ProgramRun before(home);
      ASSERT_TRUE(before.Start());
      before.ledger.fgPensionC.ClearData();
      if (retired) before.ledger.fgPensionC.AddItem("");
      ASSERT_TRUE(before.window->SaveAll());
    }
    ProgramRun run(home);
    ASSERT_TRUE(run.Start());
    EXPECT_EQ(GetOption(run.ledger, optHasRetiredForms), retired ? "TRUE" : "FALSE");
    const TabField& tabs = run.window->PageOf<PensionPage>().tabForm;
    for (const int tab : {3, 4}) EXPECT_EQ(tabs.TabVisible(tab), retired);
    const Grid& sessions = run.ledger.fgSessions;
    const std::string& types = sessions.ColComboList(sessions.ColIndex("SESS_TYPE"));
    EXPECT_EQ(types.find("Deputising") != std::string::npos, retired);
  }
}

TEST_F(Entry, EmployerRateFollowsTheCountry) {
  const struct {
    const char* country;
    const char* rate;
    bool raised;
  } kCases[] = {{"England", "14.3", true},
                {"ENGLAND", "14.380", false},
                {"england", "banana", true},
                {"Scotland", "14.3", false},
                {"England", "14.38", false}};
  FirstStart();
  for (const auto& [country, rate, raised] : kCases) {
    {
      ProgramRun before(home);
      ASSERT_TRUE(before.Start());
      SetOption(before.ledger, optPensionCountry, country);
      SetOption(before.ledger, optEmployerContribRate, rate);
      SaveOptions(before.ledger);
    }
    ProgramRun run(home);
    ASSERT_TRUE(run.Start());
    EXPECT_EQ(run.Messages(), raised ? Texts{kRateMessage} : Texts{}) << country << rate;
    EXPECT_EQ(GetOption(run.ledger, optEmployerContribRate), raised ? "14.38" : rate);
    EXPECT_TRUE(!raised || run.shown.messages[0].link.ends_with("/EmployerContrib.php"));
  }
}

}  // namespace
}  // namespace lm
