#include "connections/frmImportWizard.h"

#include <algorithm>
#include <array>

#include "connections/importlists.h"
#include "connections/modInternet.h"
#include "core/dates.h"
#include "core/format.h"
#include "core/messagebox.h"
#include "core/options.h"
#include "core/platform.h"
#include "core/rows.h"
#include "core/text.h"
#include "entry/checks.h"
#include "entry/ticks.h"
#include "records/sessionrules.h"

namespace lm {
namespace {

constexpr std::size_t kIdLength = 32;
constexpr std::string_view kSampleId = "4k7n2m9x5c8v3b6h1g4f7d2s9a5q8w3e";
constexpr std::string_view kIdSeparators = " :;,.-/\\@?&#!=";
// Of a feed or of what a service says; the rest of an error page helps nobody.
constexpr std::size_t kMostShown = 500;

constexpr std::string_view kNextCaptions[] = {"Next >>", "Next >>", "Import", "Close"};

// What option 113 holds, joined by "|".
enum StoredChoice { kAcceptedTick, kConfirmedTick, kLastImport, kStoredChoices };

std::array<std::string, kStoredChoices> StoredChoices(const Ledger& ledger) {
  const std::string option = GetOption(ledger, optImportChoice3);
  const auto pieces = Split(option, '|');
  std::array<std::string, kStoredChoices> choices;
  for (std::size_t i = 0; i < std::min(choices.size(), pieces.size()); ++i) choices[i] = pieces[i];
  return choices;
}

void StoreChoices(Ledger& ledger, const std::array<std::string, kStoredChoices>& choices) {
  SetOption(ledger, optImportChoice3, Join({choices.begin(), choices.end()}, "|"));
}

bool IsTime(std::string_view key) { return key == "STIME" || key == "ETIME"; }

}  // namespace

frmImportWizard::frmImportWizard(Ledger& theLedger, const BookingFeed& feed)
    : Screen(theLedger, "frmImportWizard", "Import From " + std::string(feed.name)), feed_(feed) {
  const std::string name(feed.name);
  lblIntroduction.SetText("This wizard will import upcoming sessions from your " + name +
                          " account.");
  lblWebPage.SetText("More about " + name);
  lblWebPage.onPressed = [this] { OpenLink(ledger, WebPage(feed_.page)); };
  lblIDFormat.SetText("This information is provided by " + name + " and look similar to this;");
  lblIDSample.SetText(kSampleId);
  lblComplete.SetText("Import Complete");
  txtDefaultNote.multiLine = true;
  AddGrid(fgPractices, &practiceRules_);
  AddGrid(fgSessions, &sessionRules_);
  MakeUnmatchedList(ledger, fgPractices, feed.name);
  MakeOfferedList(ledger, fgSessions);

  cmdCancel.SetText("Cancel");
  cmdCancel.onPressed = [this] { Close(); };
  cmdBack.SetText("<< Back");
  cmdBack.onPressed = [this] { ShowPage(kAccount); };
  cmdNext.onPressed = [this] { Next(); };
  defaultButton = &cmdNext;
  ReadOptions();
  ShowPage(kAccount);
}

void frmImportWizard::ReadOptions() {
  txtUniqueID.SetText(GetOption(ledger, optImportChoice1));
  chkRememberLocation.SetChecked(!txtUniqueID.Text().empty());
  txtDefaultNote.SetText(GetOption(ledger, optImportChoice2));
  const auto choices = StoredChoices(ledger);
  chkAccepted.SetChecked(choices[kAcceptedTick] == "TRUE");
  chkConfirmed.SetChecked(choices[kConfirmedTick] == "TRUE");
  ShowLastImport();
}

void frmImportWizard::ShowLastImport() {
  const auto last = CellDateTime(StoredChoices(ledger)[kLastImport]);
  lblLastSuccesfulImport.SetText(last ? FormatDate(*last, "dddd dd mmm yyyy hh:nn") : "");
}

void frmImportWizard::StoreAccount(const std::string& id) {
  SetOption(ledger, optImportChoice1, chkRememberLocation.Checked() ? id : "");
  SetOption(ledger, optImportChoice2, txtDefaultNote.Text());
  auto choices = StoredChoices(ledger);
  choices[kAcceptedTick] = chkAccepted.Text();
  choices[kConfirmedTick] = chkConfirmed.Text();
  StoreChoices(ledger, choices);
  SaveOptions(ledger);
}

void frmImportWizard::StoreLastImport() {
  auto choices = StoredChoices(ledger);
  choices[kLastImport] = FormatDate(ledger.platform.clock.Now(), "dd/mm/yyyy hh:nn");
  StoreChoices(ledger, choices);
  SaveOptions(ledger);
  ShowLastImport();
}

// Pages that were left behind are not gone back to: what was done there is done.
void frmImportWizard::ShowPage(Page page) {
  frmTab.SetTabEnabled(page, true);
  frmTab.SetSelected(page);
  for (int other = 0; other < frmTab.Count(); ++other) frmTab.SetTabEnabled(other, other == page);
  const bool done = page == kComplete;
  cmdBack.SetEnabled(page == kPractices || page == kSessions);
  cmdNext.SetText(kNextCaptions[page]);
  cmdCancel.SetVisible(!done);
  cancelButton = done ? &cmdNext : &cmdCancel;
  lblStatus.SetText("");
  done ? Focus(cmdNext) : Focus(frmTab);
}

void frmImportWizard::Next() {
  switch (frmTab.Selected()) {
    case kAccount:
      return LeaveAccount();
    case kPractices:
      return LeavePractices();
    case kSessions:
      return Import();
    default:
      return Close();
  }
}

// The account

std::optional<std::string> frmImportWizard::CheckedId() {
  const std::string_view typed = Trim(txtUniqueID.Text());
  if (typed.empty()) {
    ShowMessage(ledger, "Please enter your unique GPnetwork ID",
                "This has been provided by GPnetworks and will be a 32 character code something "
                "like;\\n" +
                    std::string(kSampleId));
    Focus(txtUniqueID);
    return std::nullopt;
  }
  if (!chkAccepted.Checked() && !chkConfirmed.Checked()) {
    ShowMessage(ledger, "No statuses selected to import",
                "You must select what statuses of sessions to import e.g. Accepted, Confirmed.");
    Focus(chkAccepted);
    return std::nullopt;
  }
  std::string id = RemoveAny(typed, kIdSeparators);
  if (id.size() == kIdLength) return id;
  ShowMessage(ledger, "Please check your unique ID is correct", "It should be 32 characters long.");
  Focus(txtUniqueID);
  return std::nullopt;
}

std::optional<Feed> frmImportWizard::Fetch(const std::string& id) {
  lblStatus.SetText("Attempting to import data...");
  const auto body = HttpGet(ledger, AddressOf(feed_, id));
  if (!body) return std::nullopt;
  if (body->empty()) {
    ShowMessage(ledger, "Unable to import data",
                "Please ensure you are connected to the internet and any security software or "
                "firewall you use is not blocking LedgerMinder or the GPnetworks website.\\n\\nIf "
                "this is not the issue, the GPnetworks server may be temporarily unavailable. "
                "Please try again shortly.");
    return std::nullopt;
  }
  lblStatus.SetText("Processing imported data...");
  auto feed = ReadFeed(*body);
  if (!feed) {
    ShowMessage(ledger, "Invalid data feed",
                "LedgerMinder was able to read the data, but the information read does not match "
                "the required format.\\n\\nAn extract of the feed is as follows;\\n" +
                    body->substr(0, kMostShown));
  } else if (feed->error) {
    ShowMessage(ledger, "The following error was returned from the source",
                feed->error->substr(0, kMostShown), Buttons::Ok, Icon::Exclamation,
                "Error Importing Data");
    return std::nullopt;
  }
  return feed;
}

void frmImportWizard::LeaveAccount() {
  const auto id = CheckedId();
  if (!id) return;
  const auto feed = Fetch(*id);
  lblStatus.SetText("");
  if (!feed) return;
  const BusyPointer busy(ledger.platform);
  offer_ = OfferOf(ledger, feed->sessions, {chkAccepted.Checked(), chkConfirmed.Checked()});
  kept_ = offer_.sessions.size();
  StoreAccount(*id);
  offer_.practices.empty() ? GoToSessions() : ShowPractices();
}

// The practices

void frmImportWizard::ShowPractices() {
  {
    const RedrawOff redrawOff(fgPractices);
    MakeUnmatchedList(ledger, fgPractices, feed_.name);
    for (const UnmatchedPractice& unmatched : offer_.practices)
      AddUnmatched(fgPractices, unmatched);
    fgPractices.Select(fgPractices.FixedRows(), fgPractices.ColIndex("ACTION"));
  }
  ShowPage(kPractices);
}

void frmImportWizard::LeavePractices() {
  std::vector<std::string> actions;
  for (const int row : Records(fgPractices))
    actions.push_back(fgPractices.TextMatrix(row, "ACTION"));
  switch (ApplyPractices(ledger, offer_, actions)) {
    case PracticesApplied::Nameless:
      ShowMessage(ledger, "Error Importing Practice Details",
                  "No data can be imported because it is not in the expected format.");
      return;
    case PracticesApplied::Some:
      ShowMessage(ledger, "Error storing some Practice details");
      break;
    case PracticesApplied::All:
      break;
  }
  GoToSessions();
}

bool frmImportWizard::PracticeRules::MayEdit(int, int col) {
  return window_.fgPractices.ColKey(col) == "ACTION";
}

void frmImportWizard::PracticeRules::Opened(int row) {
  window_.RequestCellEdit(window_.fgPractices, row, window_.fgPractices.ColIndex("ACTION"));
}

// The sessions

void frmImportWizard::GoToSessions() {
  const bool allLeft = kept_ > 0 && offer_.sessions.size() == kept_;
  DropKnownSessions(ledger, offer_.sessions);
  if (!offer_.sessions.empty()) {
    ShowSessions();
    return ShowPage(kSessions);
  }
  ShowMessage(ledger, "No sessions to import",
              allLeft ? "There are no new sessions to import." : "There are no sessions to import.",
              Buttons::Ok, Icon::Information);
  ShowPage(kAccount);
}

void frmImportWizard::ShowSessions() {
  clashes_.emplace(ledger);
  const auto practices = ledger.fgPractices.RowsBy("ID");
  const auto nameOf = [&](const std::string& id) {
    const auto row = practices.find(id);
    return row == practices.end() ? "" : ledger.fgPractices.TextMatrix(row->second, "NAME");
  };
  const RedrawOff redrawOff(fgSessions);
  fgSessions.ClearData();
  for (const OfferedSession& session : offer_.sessions)
    CheckClash(AddOffered(fgSessions, session, nameOf(session.practice)));
  NameClashes();
  fgSessions.Select(fgSessions.FixedRows(), fgSessions.ColIndex("PRACTICE"));
}

void frmImportWizard::CheckClash(int row) {
  const OfferedSession session = OfferedOf(fgSessions, row);
  const auto stretch = StretchOf(session.date, session.startTime,
                                 EndDateOf(session.date, session.period), session.endTime);
  const auto clash = stretch ? clashes_->With(*stretch) : std::nullopt;
  SetClash(fgSessions, row, clash.value_or(""));
}

// COLLISION holds IDs, which say nothing to anybody: it shows practice and times.
void frmImportWizard::NameClashes() {
  const Grid& sessions = ledger.fgSessions;
  const auto rows = sessions.RowsBy("ID");
  std::vector<std::string> entries;
  for (const int line : Records(fgSessions)) {
    const auto row = rows.find(fgSessions.TextMatrix(line, "COLLISION"));
    if (row == rows.end()) continue;
    const std::string text = sessions.DisplayText(row->second, "PRACTICE") + ", " +
                             sessions.TextMatrix(row->second, "STIME") + " - " +
                             sessions.TextMatrix(row->second, "ETIME");
    entries.push_back("#" + row->first + ";" + Replace(text, "|", "/"));
  }
  fgSessions.SetColComboList(fgSessions.ColIndex("COLLISION"), Join(entries, "|"));
}

void frmImportWizard::ShowClash(const std::string& id) {
  const Grid& sessions = ledger.fgSessions;
  const int row = SessionRow(ledger, id);
  const auto cell = [&](std::string_view key) { return sessions.TextMatrix(row, key); };
  ShowMessage(ledger, "The session to be imported clashes with an existing session",
              "Practice: " + sessions.DisplayText(row, "PRACTICE") + "\\nTime: " + cell("SDATE") +
                  " " + cell("STIME") + " - " + cell("ETIME"),
              Buttons::Ok, Icon::Information, "Session Clash");
}

void frmImportWizard::CellClicked(Grid& grid, int row, int col) {
  if (&grid == &fgSessions && row >= grid.FixedRows() && grid.ColKey(col) == "IMPORT")
    SetTick(grid, row, "IMPORT", !IsTicked(grid, row, "IMPORT"));
}

bool frmImportWizard::SessionRules::MayEdit(int, int col) {
  static constexpr std::array<std::string_view, 5> kReadOnly{"PRACTICE", "DATE", "PERIOD", "STATUS",
                                                             "COLLISION"};
  return std::ranges::find(kReadOnly, window_.fgSessions.ColKey(col)) == kReadOnly.end();
}

// A tick has a list only so that it shows no text.
std::string frmImportWizard::SessionRules::EditList(const Grid&, int, int) { return ""; }

Picker frmImportWizard::SessionRules::PickerOf(int, int col) {
  const std::string& key = window_.fgSessions.ColKey(col);
  return IsTime(key) ? Picker::Clock : key == "RATE" ? Picker::Numbers : Picker::None;
}

std::optional<std::string> frmImportWizard::SessionRules::Accept(int, int col,
                                                                 std::string_view typed) {
  const std::string& key = window_.fgSessions.ColKey(col);
  if (IsTime(key))
    return EnterTime(window_.ledger, typed, key == "STIME" ? kInvalidStartTime : kInvalidEndTime);
  if (key == "RATE") {
    const auto amount = EnterAmount(window_.ledger, typed, kInvalidRate);
    return amount && amount->empty() ? "0" : amount;
  }
  return key == "IMPORT" ? EnterTick(typed) : std::string(typed);
}

void frmImportWizard::SessionRules::Edited(int row, int col) {
  Grid& lines = window_.fgSessions;
  const std::string& key = lines.ColKey(col);
  if (key == "IMPORT") return SetTick(lines, row, key, IsTicked(lines, row, key));
  if (!IsTime(key) && key != "RATE") return;
  if (IsTime(key)) lines.SetCell(CellSetting::flexcpFontBold, row, col, "");  // no guess any more
  window_.CheckClash(row);
  window_.NameClashes();
}

void frmImportWizard::SessionRules::Opened(int row) {
  const std::string clash = window_.fgSessions.TextMatrix(row, "COLLISION");
  if (clash.empty())
    window_.RequestCellEdit(window_.fgSessions, row, window_.fgSessions.Col());
  else
    window_.ShowClash(clash);
}

void frmImportWizard::Import() {
  std::vector<OfferedSession> chosen;
  for (const int row : Records(fgSessions))
    if (IsTicked(fgSessions, row, "IMPORT")) chosen.push_back(OfferedOf(fgSessions, row));
  if (chosen.empty()) {
    ShowMessage(ledger, "There are no sessions selected to import",
                "To select the sessions to import, tick the checkbox in the 'Import' column.");
    return;
  }
  const std::size_t refused = CreateSessions(ledger, chosen, txtDefaultNote.Text());
  if (refused < chosen.size()) StoreLastImport();
  lblCompleteText.SetText("All selected sessions have been imported correctly.");
  if (refused > 0) {
    ShowMessage(ledger, "Error Importing Sessions",
                "Not all session data has been imported because of an unexpected error.");
    lblCompleteText.SetText("Sessions without a date that can be read have not been imported: " +
                            std::to_string(refused) + ".");
  }
  ShowPage(kComplete);
}

}  // namespace lm
