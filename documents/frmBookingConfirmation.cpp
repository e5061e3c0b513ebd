#include "documents/frmBookingConfirmation.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "core/formatting.h"
#include "core/messagebox.h"
#include "core/options.h"
#include "core/platform.h"
#include "core/rows.h"
#include "core/tables.h"
#include "core/text.h"
#include "documents/email.h"
#include "documents/mergefields.h"
#include "records/practices.h"
#include "records/sessionlines.h"

namespace lm {
namespace {

constexpr ColumnSpec kColumns[] = {
    SessionColumn("ID"),
    {"SDATE", "Start Date", DataType::Date, "", 1300},
    {"STIME", "Start Time", DataType::Date, "", 1100},
    {"EDATE", "End Date", DataType::Date, "", 1300},
    {"ETIME", "End Time", DataType::Date, "", 1100},
    {"RATE", "Rate", DataType::Money, "£#,##0.00"_w, 1200},
    {"SESS_TYPE", "Session Type", DataType::Text, "", 1900},
};
constexpr TableSpec kTable{"fgUpcomingSessions", kColumns};
constexpr int kTickColumn = 0;
constexpr int kTickWidth = 400;  // twips

bool IsTicked(const Grid& grid, int row) {
  return grid.Cell(CellSetting::flexcpChecked, row, kTickColumn) == "TRUE";
}

void SetTick(Grid& grid, int row, bool on) {
  grid.SetCell(CellSetting::flexcpChecked, row, kTickColumn, on ? "TRUE" : "FALSE");
}

}  // namespace

frmBookingConfirmation::frmBookingConfirmation(Ledger& theLedger)
    : Screen(theLedger, "frmBookingConfirmation", "Booking Confirmation") {
  for (TextField* box : {&txtMsgIntro, &txtMsgSessions, &txtMsgEnding}) box->multiLine = true;
  txtMsgSubject.SetText(GetOption(ledger, optBookingSubject));
  txtMsgIntro.SetText(GetOption(ledger, optBookingHeader));
  txtMsgSessions.SetText(GetOption(ledger, optBookingLine));
  txtMsgEnding.SetText(GetOption(ledger, optBookingFooter));
  lblNoSessions.SetText("There are no sessions from today on at this practice.");

  MakeSessionLines(fgUpcomingSessions, kTable, ledger.fgSessions);
  fgUpcomingSessions.SetColWidth(kTickColumn, kTickWidth);
  AddGrid(fgUpcomingSessions);

  cboPractice.SetItems(PracticeItems(ledger));
  cboPractice.SetSelected(0);
  cboPractice.onEntered = [this] {
    FillSessions();
    return true;
  };
  cmdCreateConfirmation.SetText("&Create Confirmation");
  cmdCreateConfirmation.onPressed = [this] { CreateConfirmation(); };
  cmdSendByEmail.SetText("&Send By E-mail");
  cmdSendByEmail.onPressed = [this] { SendByEmail(); };
  cmdSaveTemplate.SetText("Save &Template");
  cmdSaveTemplate.onPressed = [this] { SaveTemplate(); };
  cmdClose.SetText("C&lose");
  cmdClose.onPressed = [this] { Close(); };
  defaultButton = &cmdCreateConfirmation;
  cancelButton = &cmdClose;
  FillSessions();
}

void frmBookingConfirmation::ChoosePractice(std::string_view id) {
  const std::string chosen = cboPractice.ItemData();
  if (!cboPractice.SelectData(id)) cboPractice.SelectData(chosen);
  FillSessions();
}

void frmBookingConfirmation::FillSessions() {
  const Grid& sessions = ledger.fgSessions;
  const std::string practice = cboPractice.ItemData();
  const Date today = std::floor(ledger.platform.clock.Now());
  struct Upcoming {
    Date start;
    int row;
  };
  std::vector<Upcoming> upcoming;
  for (const int row : Records(sessions)) {
    if (practice.empty() || sessions.TextMatrix(row, "PRACTICE") != practice) continue;
    const std::optional<Date> day = CellDate(sessions.TextMatrix(row, "SDATE"));
    if (!day || *day < today) continue;
    upcoming.push_back({*day + CellTime(sessions.TextMatrix(row, "STIME")).value_or(0), row});
  }
  std::ranges::stable_sort(upcoming, {}, &Upcoming::start);

  const RedrawOff redrawOff(fgUpcomingSessions);
  fgUpcomingSessions.ClearData();
  for (const Upcoming& session : upcoming)
    SetTick(fgUpcomingSessions, AddSessionLine(fgUpcomingSessions, sessions, session.row), false);
  lblNoSessions.SetVisible(upcoming.empty());
}

void frmBookingConfirmation::CellClicked(Grid& grid, int row, int col) {
  if (&grid == &fgUpcomingSessions && row >= grid.FixedRows() && col == kTickColumn)
    SetTick(grid, row, !IsTicked(grid, row));
}

std::string frmBookingConfirmation::Confirmation() {
  const RecordIndex index(ledger);
  const MergeFields fields(ledger, index);
  std::vector<std::string> pieces{fields.Merge(txtMsgIntro.Text(), {})};
  const Grid& grid = fgUpcomingSessions;
  for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
    if (!IsTicked(grid, row)) continue;
    MergeContext context;
    context.session = grid.TextMatrix(row, "ID");
    pieces.push_back(fields.Merge(txtMsgSessions.Text(), context));
  }
  if (pieces.size() == 1) {
    ShowMessage(ledger, "No sessions have been selected",
                "Use the check boxes at the left side of the Upcoming Sessions grid to select "
                "which sessions will be included in the booking confirmation.",
                Buttons::Ok, Icon::Exclamation, "Booking Confirmation");
    return "";
  }
  pieces.push_back(fields.Merge(txtMsgEnding.Text(), {}));
  return Join(pieces, "\r\n");
}

void frmBookingConfirmation::CreateConfirmation() {
  const std::string text = Confirmation();
  if (text.empty()) return;
  ledger.platform.system.SetClipboard(text);
  ShowMessage(ledger, "The following confirmation has been copied to the clipboard", text,
              Buttons::Ok, Icon::Done, "Booking Confirmation");
}

void frmBookingConfirmation::SendByEmail() {
  const std::string text = Confirmation();
  if (text.empty()) return;
  SendEmail(ledger, PracticeCell(ledger, cboPractice.ItemData(), "EMAIL"),
            Merge(ledger, txtMsgSubject.Text(), {}), text);
}

void frmBookingConfirmation::SaveTemplate() {
  const std::pair<int, const TextField*> texts[] = {{optBookingSubject, &txtMsgSubject},
                                                    {optBookingHeader, &txtMsgIntro},
                                                    {optBookingLine, &txtMsgSessions},
                                                    {optBookingFooter, &txtMsgEnding}};
  for (const auto& [option, box] : texts) SetOption(ledger, option, box->Text());
  if (SaveOptions(ledger))
    ShowMessage(ledger, "Template saved", "", Buttons::Ok, Icon::Done, "Booking Confirmation");
}

}  // namespace lm
