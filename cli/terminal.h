// The platform as the command line offers it: messages become JSON lines and take their answers
// from a list, a window on top goes on reading the script.
#pragma once

#include <deque>
#include <filesystem>
#include <functional>
#include <iosfwd>
#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "connections/outlookstandin.h"
#include "core/platform.h"
#include "core/screen.h"

namespace lm {

using Json = nlohmann::ordered_json;

// A Windows-1252 text as JSON holds it.
std::string Utf8(std::string_view text);

class Terminal : public MessagePort,
                 public ClockPort,
                 public WindowPort,
                 public ProgressPort,
                 public SystemPort,
                 public MailPort,
                 public WebPort {
 public:
  explicit Terminal(std::ostream& output);
  void SetOutput(std::ostream& output) { output_ = &output; }

  void Emit(const Json& line);

  // "yes", "no", "cancel" or "ok"; false for another word.
  bool AddAnswer(std::string_view word);
  // What the next file dialog gives; an empty path cancels it. Without a filter, counted from 0, it
  // is the first that the file's extension fits.
  void AddPath(std::filesystem::path path, std::optional<std::size_t> filter = {}) {
    paths_.push_back({std::move(path), filter});
  }
  // What the next colour dialog gives; none cancels it.
  void AddColour(int colour) { colours_.push_back(colour); }
  // What the web answers from now on for an address, or for a path ("/version.dat") on any host; ""
  // is no answer.
  void Serve(const std::string& address, std::string body) { served_[address] = std::move(body); }
  int BoxesShown() const { return boxesShown_; }

  std::optional<Date> fixedNow;
  bool ignoreOtherInstances = false;
  bool reachesWeb = false;
  std::unique_ptr<OutlookStandIn> outlook;  // as platform.outlook has it
  const WindowCatalogue* catalogue = nullptr;
  Ledger* ledger = nullptr;
  // Goes on with the script until the screen has closed.
  std::function<void(Screen&)> runWindow;

  Answer Show(const MessageBoxText& message) override;
  void ShowTip(const MessageBoxText& message, std::function<void()> stopTips) override;
  Date Now() override;
  void ShowModal(Screen& screen) override;
  bool OpenRecord(std::string_view window, std::string_view id) override;
  void BusyPointer(bool) override {}
  void ShowGuide(std::string_view heading) override;
  void Show(int, std::string_view) override {}
  bool Cancelled() override { return false; }
  void Hide() override {}
  void ShowLastOpened(std::string_view) override {}
  std::vector<std::string> RunningProcesses() override;
  std::string UserName() override;
  std::filesystem::path ExecutableDirectory() override;
  std::filesystem::path UserDataDirectory() override;
  std::filesystem::path DocumentsDirectory() override;
  bool Open(std::string_view target) override;
  bool StartCalculator() override { return false; }
  void SetClipboard(std::string_view) override {}
  std::filesystem::path AskOpenFile(std::string_view title, const FileFilter& filter,
                                    const std::filesystem::path& start) override {
    return AskFile(title, {filter}, start).path;
  }
  SaveTarget AskSaveFile(std::string_view title, const std::vector<FileFilter>& filters,
                         const std::filesystem::path& start) override {
    return AskFile(title, filters, start);
  }
  std::optional<int> AskColour(std::string_view title, int start) override;

  bool Available() override { return true; }
  MailOutcome Compose(const MailMessage& message) override;  // a JSON line, always handed over

  // From what a script serves; from the web itself only once a command has said so.
  std::string Get(const std::string& url, const std::function<bool()>& cancelled) override;

  Platform platform{*this, *this, *this, *this, *this, *this, *this};

 private:
  std::ostream* output_;
  SaveTarget AskFile(std::string_view title, const std::vector<FileFilter>& filters,
                     const std::filesystem::path& start);
  // As a script names it: what lies in the program directory without that in front.
  std::string OwnName(std::string_view path) const;

  std::deque<Answer> answers_;
  struct TypedPath {
    std::filesystem::path path;
    std::optional<std::size_t> filter;
  };
  std::deque<TypedPath> paths_;
  std::deque<int> colours_;
  std::map<std::string, std::string> served_;
  int boxesShown_ = 0;
};

}  // namespace lm
