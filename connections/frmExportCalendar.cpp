#include "connections/frmExportCalendar.h"

#include "connections/icalexport.h"
#include "core/files.h"
#include "core/formatting.h"
#include "core/messagebox.h"
#include "core/platform.h"
#include "core/savefile.h"
#include "core/text.h"
#include "entry/pickedboxes.h"

namespace lm {
namespace {

constexpr std::string_view kTitle = "Export Calendar";

}  // namespace

frmExportCalendar::frmExportCalendar(Ledger& theLedger)
    : Screen(theLedger, "frmExportCalendar", kTitle) {
  BindDate({txtSDate, cmdStartDate, "Start Date"});
  BindDate({txtEDate, cmdEndDate, "End Date"});
  std::vector<ComboItem> practices = PracticeItems(ledger);
  practices.insert(practices.begin(), {"<ALL PRACTICES>", ""});
  cboPractice.SetItems(std::move(practices));
  cboPractice.SetSelected(0);
  cboExportClass.SetItems({{"Private", ""}, {"Public", ""}});
  cboExportClass.SetSelected(0);
  txtExportFile.SetText(
      NativePathText(ledger.platform.system.DocumentsDirectory() / "LedgerMinder Sessions.ics"));
  cmdSelectExportFile.onPressed = [this] { SelectFile(); };
  cmdExport.onPressed = [this] { Export(); };
  cmdCancel.onPressed = [this] { Close(); };
  defaultButton = &cmdExport;
  cancelButton = &cmdCancel;
}

void frmExportCalendar::SelectFile() {
  const auto target =
      AskWhereToSave(ledger, kTitle, "Unable to export the calendar.\\n",
                     {{"iCalendar File (*.ics)", "*.ics"}}, PathFromText(txtExportFile.Text()));
  if (target) txtExportFile.SetText(NativePathText(target->path));
}

void frmExportCalendar::Export() {
  const std::string file(Trim(txtExportFile.Text()));
  if (file.empty()) {
    ShowMessage(ledger, kTitle, "No export file has been specified.");
    return;
  }
  CalendarRequest request;
  if (const auto first = CellDate(txtSDate.Text())) request.days.first = *first;
  if (const auto last = CellDate(txtEDate.Text())) request.days.last = *last;
  if (cboPractice.Selected() > 0) request.practice = cboPractice.ItemData();
  request.category = txtExportCategory.Text();
  request.access = cboExportClass.Text();
  request.rfc5545 = chkRfc5545.Checked();
  const CalendarOutcome outcome = ExportCalendar(ledger, request, PathFromText(file));
  if (outcome == CalendarOutcome::NoSessions)
    ShowMessage(ledger, "Calendar not exported", "There were no Sessions to export.", Buttons::Ok,
                Icon::Exclamation, kTitle);
  if (outcome == CalendarOutcome::Written)
    ShowMessage(ledger, "Calendar exported succesfully",
                "Session information saved to the file;\\n" + PathInMessage(PathFromText(file)),
                Buttons::Ok, Icon::Done);
}

}  // namespace lm
