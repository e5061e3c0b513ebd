#include "core/upgrades.h"

#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <vector>

#include "core/datafile.h"
#include "core/format.h"
#include "core/messagebox.h"
#include "core/numbers.h"
#include "core/platform.h"
#include "core/rows.h"
#include "core/sessiontypes.h"
#include "core/tables.h"
#include "core/text.h"

namespace lm {
namespace {

constexpr std::size_t kVeryOldFile = 5;  // sections of the first format that is read

// What the splash says of the tables that came later, from the sixth on.
constexpr std::array<std::string_view, kDataTables - kVeryOldFile> kLaterTables{
    "Extras",   "Pension SOLO",     "Pension C", "Pension D",
    "Expenses", "Session Expenses", "Events",    "Pension Payments"};

void AddBlankTables(Ledger& ledger, std::size_t sections) {
  for (std::size_t i = std::max(sections, kVeryOldFile); i < kTables.size(); ++i) {
    ledger.platform.progress.Show(
        -1, "Initialising " + std::string(kLaterTables[i - kVeryOldFile]) + " grid...");
    MakeBlank(*ledger.dataTables[i], kTables[i]);
  }
}

// Before extras the fee was the total.
void UpgradeVeryOldSessions(Grid& sessions) {
  AddColumn(sessions, *FindTable(sessions.Name()), "PUBLICNOTE", "NOTES");
  AddColumn(sessions, *FindTable(sessions.Name()), "EXTRAS", "RATE");
  AddColumn(sessions, *FindTable(sessions.Name()), "TOTAL", "EXTRAS");
  sessions.SetTextMatrix(0, sessions.ColIndex("NOTES"), "Private Note");
  const int rate = sessions.ColIndex("RATE"), total = sessions.ColIndex("TOTAL");
  for (const int row : Records(sessions))
    sessions.SetTextMatrix(row, total, sessions.TextMatrix(row, rate));
}

void ReplaceEmpty(Grid& grid, std::string_view key, std::string_view text) {
  const int col = grid.ColIndex(key);
  for (const int row : Records(grid))
    if (grid.TextMatrix(row, col).empty()) grid.SetTextMatrix(row, col, text);
}

void RemoveCommas(Grid& grid, std::string_view key) {
  const int col = grid.ColIndex(key);
  for (const int row : Records(grid))
    if (const std::string text = grid.TextMatrix(row, col); text.find(',') != text.npos)
      grid.SetTextMatrix(row, col, RemoveAny(text, ","));
}

// The flags that told a session's type before it had a column, the strongest first.
constexpr struct {
  std::string_view key;
  int type;
} kTypeFlags[] = {
    {"PRIVATE", kTypePrivate}, {"DEPUT", kTypeOohDeputising}, {"OOH", kTypeOohStandard}};

int TypeByFlags(const Grid& sessions, int row) {
  for (const auto& flag : kTypeFlags)
    if (Trim(sessions.TextMatrix(row, sessions.FindCol(flag.key))) == "-1") return flag.type;
  return kTypeNormal;
}

void RemoveColumn(Grid& grid, int col) {
  if (col < 0) return;
  grid.SetColPosition(col, grid.Cols() - 1);
  grid.SetCols(grid.Cols() - 1);
}

void FlagsToSessionType(Grid& sessions) {
  if (sessions.ColIndex("SESS_TYPE") >= 0) return;
  AddColumn(sessions, *FindTable(sessions.Name()), "SESS_TYPE", "TOTAL");
  const int type = sessions.ColIndex("SESS_TYPE");
  for (const int row : Records(sessions))
    sessions.SetTextMatrix(row, type, PlainText(TypeByFlags(sessions, row)));
  for (const auto& flag : kTypeFlags) RemoveColumn(sessions, sessions.FindCol(flag.key));
}

// An invoice bore the day on which it was made.
void AddInvoiceDates(Grid& invoices) {
  if (invoices.ColIndex("IDATE") >= 0) return;
  AddColumn(invoices, *FindTable(invoices.Name()), "IDATE", "CDATE");
  const int date = invoices.ColIndex("IDATE"), made = invoices.ColIndex("CDATE");
  for (const int row : Records(invoices))
    invoices.SetTextMatrix(row, date, invoices.TextMatrix(row, made));
}

constexpr std::pair<std::string_view, std::string_view> kRenamed[] = {
    {"EXTRA_YEARS", "Added Years"},
    {"EXTRAYEARS", "Added Years"},
    {"CONTRIBUTION", "My Contrib."},
    {"PCODE", "EA Code"}};

void RenameCaptions(Grid& grid) {
  for (const auto& [key, caption] : kRenamed)
    if (const int col = grid.FindCol(key); col >= 0) grid.SetTextMatrix(0, col, caption);
}

}  // namespace

void UpgradeTables(Ledger& ledger, std::size_t sections) {
  std::vector<std::unique_ptr<RedrawOff>> redrawOff;
  for (Grid* grid : ledger.dataTables) redrawOff.push_back(std::make_unique<RedrawOff>(*grid));

  AddBlankTables(ledger, sections);
  // A section of nothing is a table of nothing.
  for (std::size_t i = 0; i < kTables.size(); ++i)
    if (ledger.dataTables[i]->Rows() < ledger.dataTables[i]->FixedRows())
      MakeBlank(*ledger.dataTables[i], kTables[i]);
  if (sections == kVeryOldFile) UpgradeVeryOldSessions(ledger.fgSessions);
  Grid& sessionExpenses = ledger.fgSessionExpenses;
  if (!sessionExpenses.HasData() && sessionExpenses.TextMatrix(0, 1).empty())
    MakeBlank(sessionExpenses, *FindTable(sessionExpenses.Name()));
  RemoveCommas(ledger.fgInvoices, "AMOUNT");
  FlagsToSessionType(ledger.fgSessions);
  AddInvoiceDates(ledger.fgInvoices);
  for (std::size_t i = 0; i < kTables.size(); ++i) {
    AddMissingColumns(*ledger.dataTables[i], kTables[i]);
    RenameCaptions(*ledger.dataTables[i]);
  }
  ReplaceEmpty(ledger.fgSessions, "EMPLOYERCONTRIB", "0.00");
  ReplaceEmpty(ledger.fgSessions, "TOTAL", "0.00");
}

// ---- Return dates

namespace {

bool IsBeforeReturnDates(std::string_view version) {
  const auto numbers = Split(version, '.');
  return ValInt(numbers.front()) <= 3 && (numbers.size() < 2 || ValInt(numbers[1]) <= 2);
}

// A form whose month or date is damaged stays as it is.
void CorrectForms(Ledger& ledger, Grid& forms) {
  const int monthCol = forms.ColIndex("MONTH"), notesCol = forms.ColIndex("NOTES"),
            receivedCol = forms.ColIndex("RCVDFROMPRACTICE");
  for (const int row : Records(forms)) {
    const auto month = CellDate(forms.TextMatrix(row, monthCol));
    const std::string received = forms.TextMatrix(row, receivedCol);
    const auto date = CellDate(received);
    const bool damaged = !month || (!date && !received.empty());
    if (damaged || (date && FirstOfMonth(*date) == FirstOfMonth(*month))) continue;
    const std::string first = CellText(FirstOfMonth(*month));
    const std::string note = received.empty() ? "set to " + first + "."
                                              : "corrected (" + received + " - " + first + ").";
    forms.SetTextMatrix(row, receivedCol, first);
    forms.SetTextMatrix(row, notesCol,
                        forms.TextMatrix(row, notesCol) + "\r\n** 'Rcvd From Practice' " + note);
    MarkEdited(ledger, forms, row);
  }
}

bool AskForCorrection(Ledger& ledger) {
  return ShowMessage(
             ledger, "Pension calculations for Forms B and D have changed",
             "Forms B and D are now calculated from the date Forms A and C were returned to you "
             "from the practices i.e. the date the income is received. Prior to this version they "
             "were calculated from the month Forms A and C were for, whenever they were "
             "returned.\\n\\n"
             "This new calculation method means a Form B is only created for a month if a Form A "
             "has a 'Rcvd From Practice' date in that month.\\n\\n"
             "To ensure existing data is compatible with the new and old methods, the 'Rcvd From "
             "Practice' date must be set for all existing Forms A and C to be in the month the "
             "Form was created for. This only needs to be done once.\\n\\n"
             "More information is available on the LedgerMinder website via the link below.\\n\\n"
             "Do you want your data changed now (click No to exit without any changes)?",
             Buttons::YesNo, Icon::Question, "Upgrade Information",
             WebPage("/PensionDataCorrection.htm")) == Answer::Yes;
}

}  // namespace

bool CorrectReturnDates(Ledger& ledger, std::string_view file, std::string_view version) {
  const bool hasForms = ledger.fgPensionA.HasData() || ledger.fgPensionC.HasData();
  if (!hasForms || !IsBeforeReturnDates(version)) return true;
  if (!AskForCorrection(ledger)) return false;
  const std::string today = FormatDate(ledger.platform.clock.Now(), "dd mmm yyyy");
  if (!WriteTextFile(ledger, file, ledger.File("LedgerMinderBackup " + today + " 3_2_0.bak"),
                     "Unable to save backup.\\n"))
    return false;
  for (Grid* forms : {&ledger.fgPensionA, &ledger.fgPensionC}) CorrectForms(ledger, *forms);
  ShowMessage(ledger, "'Rcvd From Practice' dates changed succesfully on Forms A and C.", "",
              Buttons::Ok, Icon::Done);
  return true;
}

}  // namespace lm
