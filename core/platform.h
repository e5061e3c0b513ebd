// What the outside world does for the program, behind small abstract classes. shell/qt implements
// them for the desktop, cli for the terminal, tests with a scripted one. Nothing else in the logic
// touches the operating system, except whole-file reading and replacing in core/files.h.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/dates.h"
#include "core/outlook.h"

namespace lm {

class Screen;

enum class Buttons { Ok = 0, OkCancel = 1, YesNoCancel = 3, YesNo = 4 };
enum class Answer { Ok = 1, Cancel = 2, Yes = 6, No = 7 };
// Critical 0, Exclamation 1 (and 4), Information 2, Question 3, Done 5, Tip 6.
enum class Icon { Critical = 0, Exclamation = 1, Information = 2, Question = 3, Done = 5, Tip = 6 };

// A message as the user sees it: line breaks are real, the title is filled.
struct MessageBoxText {
  std::string mainPrompt;
  std::string minorPrompt;
  Buttons buttons = Buttons::Ok;
  Icon icon = Icon::Information;
  std::string title;
  std::string link;                  // "" hides it
  std::optional<Answer> unattended;  // what a run without a user answers; else the safe button
  bool sound = true;
};

class MessagePort {
 public:
  virtual ~MessagePort() = default;
  virtual Answer Show(const MessageBoxText& message) = 0;
  // Without waiting. stopTips is called when the user closes the tip and wants no others.
  virtual void ShowTip(const MessageBoxText& message, std::function<void()> stopTips) = 0;
};

class ClockPort {
 public:
  virtual ~ClockPort() = default;
  virtual Date Now() = 0;  // local time
};

// Windows of the program.
class WindowPort {
 public:
  virtual ~WindowPort() = default;
  // Shows a screen and returns when it has closed.
  virtual void ShowModal(Screen& screen) = 0;
  // Opens a record's window by its name, for rooms that do not know the window: "frmInvoice",
  // "frmPensionA". False when there is no such window yet, or the record is gone.
  virtual bool OpenRecord(std::string_view window, std::string_view id) = 0;
  virtual void BusyPointer(bool on) = 0;
  // Opens the user guide beside the window in front and does not wait: at a heading as links in it
  // write it, or with "" at its top.
  virtual void ShowGuide(std::string_view heading) = 0;
};

class ProgressPort {
 public:
  virtual ~ProgressPort() = default;
  // percent is 0 to 100, or -1 to leave the bar and change the text only.
  virtual void Show(int percent, std::string_view text) = 0;
  // Whether the user wants the work to stop. Work that asks is work that can be left: its window
  // has a Cancel button from the first question on. Lets the windows paint themselves.
  virtual bool Cancelled() = 0;
  // The work that was shown is over.
  virtual void Hide() = 0;
  // The splash window's line about the last start.
  virtual void ShowLastOpened(std::string_view text) = 0;
};

struct FileFilter {
  std::string name;     // "Backup (*.bak)"
  std::string pattern;  // "*.bak"
};

// Where the user wants a file, and as which of the kinds that were offered.
struct SaveTarget {
  std::filesystem::path path;  // empty when the user cancelled
  std::size_t filter = 0;
};

class SystemPort {
 public:
  virtual ~SystemPort() = default;
  virtual std::vector<std::string> RunningProcesses() = 0;  // names of executables
  virtual std::string UserName() = 0;
  // The folder that holds the program, and the user's own data folder for this program.
  virtual std::filesystem::path ExecutableDirectory() = 0;
  virtual std::filesystem::path UserDataDirectory() = 0;
  // Where the user keeps documents; may be missing.
  virtual std::filesystem::path DocumentsDirectory() = 0;
  // A web address or a file, with the platform's default handler. False when nothing opened it.
  virtual bool Open(std::string_view target) = 0;
  virtual bool StartCalculator() = 0;
  virtual void SetClipboard(std::string_view text) = 0;
  // An empty path when the user cancelled.
  virtual std::filesystem::path AskOpenFile(std::string_view title, const FileFilter& filter,
                                            const std::filesystem::path& start) = 0;
  virtual SaveTarget AskSaveFile(std::string_view title, const std::vector<FileFilter>& filters,
                                 const std::filesystem::path& start) = 0;
  // Whether the desktop offers this program for data files ("open with"), for this user; nothing
  // where the program does not decide that.
  virtual std::optional<bool> OpenWithOffered() { return std::nullopt; }
  virtual bool OfferOpenWith(bool /*offered*/) { return false; }
  // A colour as the options hold it; nothing when the user cancelled.
  virtual std::optional<int> AskColour(std::string_view title, int start) = 0;
};

struct MailMessage {
  std::string to, subject, body;
  std::string attachmentName;        // as the recipient sees it
  std::filesystem::path attachment;  // empty: none
};

enum class MailOutcome { Sent, Cancelled, Failed };

// The desktop's own mail program, which shows the message before it goes.
class MailPort {
 public:
  virtual ~MailPort() = default;
  virtual bool Available() = 0;
  // Returns when the message was handed over; Sent where the mail program does not tell more.
  virtual MailOutcome Compose(const MailMessage& message) = 0;
};

// The web, read in whole bodies.
class WebPort {
 public:
  virtual ~WebPort() = default;
  // The body of an http or https address as it came, taken for Windows-1252; "" on any failure,
  // beyond the limits of time and size, and when `cancelled`, which is asked all the while, says
  // so.
  virtual std::string Get(const std::string& url, const std::function<bool()>& cancelled) = 0;
};

struct Platform {
  MessagePort& messages;
  ClockPort& clock;
  WindowPort& windows;
  ProgressPort& progress;
  SystemPort& system;
  MailPort& mail;
  WebPort& web;
  OutlookPort* outlook = nullptr;  // null where this machine has none
};

// Busy pointer for a scope.
class BusyPointer {
 public:
  explicit BusyPointer(Platform& platform) : platform_(platform) {
    platform_.windows.BusyPointer(true);
  }
  ~BusyPointer() { platform_.windows.BusyPointer(false); }
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;

 private:
  Platform& platform_;
};

}  // namespace lm
