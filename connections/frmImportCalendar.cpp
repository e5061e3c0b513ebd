#include "connections/frmImportCalendar.h"

#include <system_error>

#include "connections/modInternet.h"
#include "core/dates.h"
#include "core/files.h"
#include "core/format.h"
#include "core/messagebox.h"
#include "core/options.h"
#include "core/text.h"

namespace lm {
namespace {

constexpr std::uintmax_t kMostBytes = std::uintmax_t{200} * 1024 * 1024;  // of a calendar's file
constexpr std::string_view kCancelled = "The import was cancelled. No session has been created.";

// The work that is shown is over, however it ended.
class ProgressScope {
 public:
  explicit ProgressScope(Platform& platform) : busy_(platform), progress_(platform.progress) {}
  ~ProgressScope() { progress_.Hide(); }
  ProgressScope(const ProgressScope&) = delete;
  ProgressScope& operator=(const ProgressScope&) = delete;

 private:
  BusyPointer busy_;
  ProgressPort& progress_;
};

}  // namespace

frmImportCalendar::frmImportCalendar(Ledger& theLedger)
    : Screen(theLedger, "frmImportCalendar", "Import Calendar") {
  txtICalAddress.SetText(GetOption(ledger, optICalAddress));
  ShowLastImport();
  cmdSelectCalendar.onPressed = [this] { SelectCalendar(); };
  cmdImportFromICal.onPressed = [this] { Import(); };
  cmdOptions.onPressed = [this] { ChangeOptions(); };
  cmdClose.onPressed = [this] { Close(); };
  defaultButton = &cmdImportFromICal;
  cancelButton = &cmdClose;
}

void frmImportCalendar::SelectCalendar() {
  const std::filesystem::path chosen = ledger.platform.system.AskOpenFile(
      "Select Calendar...", {"iCalendar (*.ics)", "*.ics"}, ledger.programDirectory);
  if (!chosen.empty()) txtICalAddress.SetText(NativePathText(chosen));
}

// The address is an option too: what was typed here stays unless it was changed there.
void frmImportCalendar::ChangeOptions() {
  const std::string before = GetOption(ledger, optICalAddress);
  ledger.platform.windows.OpenRecord("frmConfigure", "ICALENDAR");
  if (const std::string now = GetOption(ledger, optICalAddress); now != before)
    txtICalAddress.SetText(now);
}

void frmImportCalendar::ShowLastImport() {
  const auto last = CellDateTime(GetOption(ledger, optICalLastFile));
  lblLastSync_ICal.SetText(last ? FormatDate(*last, "dddd dd mmm yyyy hh:nn") : "");
}

void frmImportCalendar::ShowStatus(int percent, std::string_view text) {
  lblStatus.SetText(text);
  ledger.platform.progress.Show(percent, text);
}

void frmImportCalendar::Import() {
  const std::string address(Trim(txtICalAddress.Text()));
  lblStatus.SetText("");
  if (address.empty()) {
    ShowMessage(ledger, "No calendar has been specified",
                "You must enter the address of a calendar in the Calendar Address box.");
    return Focus(txtICalAddress);
  }
  const auto text = TextOf(address);
  if (!text) return;
  const CalendarText calendar(*text);
  if (!MayBeRead(calendar)) return;
  const CalendarImport import = Read(calendar);
  if (import.cancelled) return lblStatus.SetText(kCancelled);
  if (import.tooMany) return RefuseTooMany();
  lblStatus.SetText("Calendar importing complete.");
  hasImported_ = true;
  StoreLastImport(address);
  ShowResult(import);
}

std::optional<std::string> frmImportCalendar::TextOf(const std::string& address) {
  const ProgressScope scope(ledger.platform);
  ShowStatus(0, "Getting remote calendar data...");
  std::optional<std::string> text;
  if (!IsWebAddress(address)) {
    text = TextOfFile(address);
  } else if (text = HttpGet(ledger, address); !text) {
    lblStatus.SetText(kCancelled);
    return std::nullopt;
  } else if (text->empty()) {
    ShowMessage(ledger, "Unable to connect to the calendar",
                "The address of the calendar has been entered incorrectly or the website is not "
                "responding.");
    text.reset();
  }
  if (!text) lblStatus.SetText("");
  return text;
}

std::optional<std::string> frmImportCalendar::TextOfFile(const std::string& address) {
  const std::filesystem::path path = PathFromText(address);
  std::error_code failed;
  if (!std::filesystem::exists(path, failed)) {
    ShowMessage(ledger, "Missing Calendar File", "The entered calendar file was not found.");
    return std::nullopt;
  }
  std::string error;
  const std::uintmax_t size = std::filesystem::file_size(path, failed);
  auto text = !failed && size > kMostBytes ? std::nullopt : ReadFile(path, error);
  if (text && !text->empty()) return text;
  if (!failed && size > kMostBytes) error = "It is larger than 200 MB.";
  ShowMessage(ledger, "Unable to open the calendar",
              "The address of the calendar has been entered incorrectly." +
                  (error.empty() ? "" : "\\n\\n" + error));
  return std::nullopt;
}

bool frmImportCalendar::MayBeRead(const CalendarText& calendar) {
  const auto fault = calendar.Fault();
  if (!fault) return true;
  lblStatus.SetText("");
  ShowMessage(ledger, "Inavlid Calendar Format",
              std::string(fault->message) + "\\n\\n" + fault->detail, Buttons::Ok,
              Icon::Exclamation, "Incorrect file format");
  return false;
}

void frmImportCalendar::RefuseTooMany() {
  lblStatus.SetText("");
  ShowMessage(ledger, "Too many appointments",
              "The calendar asks for more than " + Format(kMostSessions, "#,##0") +
                  " sessions, more than can be meant. No session has been created.");
}

CalendarImport frmImportCalendar::Read(const CalendarText& calendar) {
  const ProgressScope scope(ledger.platform);
  ShowStatus(0, "Processing remote calendar data...");
  CalendarImport import =
      ReadCalendar(ledger, calendar, ledger.platform.clock.Now(), [this](int number, double done) {
        ShowStatus(static_cast<int>(done * 100),
                   "Processing session " + std::to_string(number) + "...");
        return !ledger.platform.progress.Cancelled();
      });
  if (!import.cancelled && !import.tooMany)
    CreateSessions(ledger, import.sessions, optICalPrivateNote);
  return import;
}

void frmImportCalendar::StoreLastImport(const std::string& address) {
  SetOption(ledger, optICalLastFile, FormatDate(ledger.platform.clock.Now(), "dd/mm/yyyy hh:nn"));
  SetOption(ledger, optICalAddress, address);
  SaveOptions(ledger);
  ShowLastImport();
}

void frmImportCalendar::ShowResult(const CalendarImport& import) {
  const std::string result = ResultText(import);
  if (import.errors == 0) {
    ShowMessage(ledger, "Calendar Synchronised", result, Buttons::Ok, Icon::Done);
  } else if (Ask(ledger, "Calendar Synchronised",
                 result + "\\n\\nWould you like to review the synchronisation errors?")) {
    ShowMessage(ledger, "All errors refer to the remote calendar", import.errorLines, Buttons::Ok,
                Icon::Exclamation, "Synchronisation Errors");
  }
}

}  // namespace lm
