// A platform for tests: it records what was shown, answers from a list, and keeps its own time.
#pragma once

#include <deque>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/ledger.h"
#include "core/platform.h"
#include "core/screen.h"

namespace lm::test {

// A folder that is gone when the test is over.
class TempDirectory {
 public:
  TempDirectory();
  ~TempDirectory();
  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

class ScriptedPlatform : public MessagePort,
                         public ClockPort,
                         public WindowPort,
                         public ProgressPort,
                         public SystemPort,
                         public MailPort,
                         public WebPort {
 public:
  // What was shown, in order.
  std::vector<MessageBoxText> messages;
  std::vector<MessageBoxText> tips;
  std::vector<std::string> progress;  // "12 Loading Preferences..."
  std::string lastOpened;
  std::vector<std::string> opened;  // links, files and records: "frmInvoice 12"
  std::vector<std::string> guides;  // headings at which the guide was opened
  bool opens = true;                // whether links, files and the calculator open
  // The main prompt of the last message, "" when none was shown since the last call.
  std::string TakeMessage();

  // Answers to come; with none left a box takes its safe button: Cancel, else No, else OK.
  std::deque<Answer> answers;
  // Runs in place of the next modal windows, in order; with none left a window is closed.
  std::deque<std::function<void(Screen&)>> modal;

  Date now;
  std::vector<std::string> processes{"ledgerminder"};
  std::string userName = "tester";
  std::filesystem::path openFile, saveFile, executableDirectory, userDataDirectory,
      documentsDirectory;
  std::filesystem::path saveStart;  // what the last dialog to save offered
  std::size_t saveFilter = 0;
  std::optional<bool> openWith;  // of data files; none: not for the program to say
  bool openWithFails = false;
  std::optional<int> colour;                               // what the user chooses
  std::vector<std::pair<std::string, int>> colourDialogs;  // title and colour shown first
  const WindowCatalogue* catalogue = nullptr;
  int busy = 0;
  std::string clipboard;
  std::vector<MailMessage> mails;  // what the mail program was given
  bool mailAvailable = true;
  MailOutcome mailOutcome = MailOutcome::Sent;
  std::map<std::string, std::string> web;  // bodies by address; others have no answer
  std::vector<std::string> fetched;        // addresses that were asked for
  int cancelAfter = -1;                    // questions until the user presses Cancel; -1: never

  ScriptedPlatform();

  Answer Show(const MessageBoxText& message) override;
  void ShowTip(const MessageBoxText& message, std::function<void()> stopTips) override;
  Date Now() override { return now; }
  void ShowModal(Screen& screen) override;
  bool OpenRecord(std::string_view window, std::string_view id) override;
  void BusyPointer(bool on) override { busy += on ? 1 : -1; }
  void ShowGuide(std::string_view heading) override { guides.emplace_back(heading); }
  void Show(int percent, std::string_view text) override;
  bool Cancelled() override { return cancelAfter >= 0 && cancelAfter-- == 0; }
  void Hide() override { progress.emplace_back("hide"); }
  void ShowLastOpened(std::string_view text) override { lastOpened = text; }
  std::vector<std::string> RunningProcesses() override { return processes; }
  std::string UserName() override { return userName; }
  std::filesystem::path ExecutableDirectory() override { return executableDirectory; }
  std::filesystem::path UserDataDirectory() override { return userDataDirectory; }
  std::filesystem::path DocumentsDirectory() override { return documentsDirectory; }
  bool Open(std::string_view target) override;
  bool StartCalculator() override { return opens; }
  void SetClipboard(std::string_view text) override { clipboard = text; }
  std::filesystem::path AskOpenFile(std::string_view, const FileFilter&,
                                    const std::filesystem::path&) override {
    return openFile;
  }
  SaveTarget AskSaveFile(std::string_view, const std::vector<FileFilter>&,
                         const std::filesystem::path& start) override {
    saveStart = start;
    return {saveFile, saveFilter};
  }
  std::optional<bool> OpenWithOffered() override { return openWith; }
  bool OfferOpenWith(bool offered) override {
    if (openWithFails) return false;
    openWith = offered;
    return true;
  }
  std::optional<int> AskColour(std::string_view title, int start) override {
    colourDialogs.push_back({std::string(title), start});
    return colour;
  }

  bool Available() override { return mailAvailable; }
  MailOutcome Compose(const MailMessage& message) override {
    mails.push_back(message);
    return mailOutcome;
  }

  std::string Get(const std::string& url, const std::function<bool()>& cancelled) override;

  Platform platform{*this, *this, *this, *this, *this, *this, *this};
};

// A clock that stands at 3 February 2026, 10:30.
ClockPort& StandingClock();

// A ledger in a temporary program directory, on Tuesday 3 February 2026 at 10:30, with the
// default options set and nothing loaded; `starting` is over.
struct TestLedger {
  TempDirectory directory;
  ScriptedPlatform shown;
  Ledger ledger{shown.platform};

  TestLedger();
  operator Ledger&() { return ledger; }

  // A row of a table from "KEY=text" words, those that the table has; an ID is given when none
  // stands there.
  int AddRow(Grid& grid, const std::vector<std::string>& cells);
};

}  // namespace lm::test
