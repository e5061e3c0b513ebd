#include "core/options.h"

#include <algorithm>

#include "core/datafile.h"
#include "core/dates.h"
#include "core/platform.h"
#include "core/text.h"

#ifndef LEDGERMINDER_VERSION
#error "LEDGERMINDER_VERSION is set by the build"
#endif

namespace lm {
namespace {

constexpr int kOptionRow = 0;
constexpr int kDetailsRow = 1;

struct OptionText {
  int option;
  std::string_view text;
};

// What an option holds whose cell is empty at a start. The version, the upgrade date and the
// password hash are worked out instead.
constexpr OptionText kDefaults[] = {
    {optColourAlternateRows, "16777215"},
    {optFontSize, "9"},
    {optFontName, "Arial"},
    {optFontColour, "0"},
    {optUpcomingDays, "7"},
    {optInvoicePrefix, "INV-"},
    {optInvoiceStartNumber, "1"},
    {optDefaultAVC, "0.00"},
    {optColourBackground, "16777215"},
    {optColourGridLines, "14609391"},
    {optInvoiceNumberFormat, "00000"},
    {optReserved34, "FALSE"},
    {optPensionCountry, "England"},
    {optAllBranchesOnOneInvoice, "FALSE"},
    {optMandatoryContribution, "6.0"},
    {optTodayUninvoiced, "TRUE"},
    {optTodayUnsent, "TRUE"},
    {optTodayUnpaid, "TRUE"},
    {optTodayUnreturnedFormA, "TRUE"},
    {optStartPage, "LM Today"},
    {optMileageRate, "0.40"},
    {optExpenseCategories, "#0;Mileage|#1;Materials|#2;Travel|#3;Other"},
    {optEditedRowColour, "16776960"},
    {optNewRowColour, "16711680"},
    {optColourSessNormal, "34304"},
    {optColourSessOOH, "55040"},
    {optColourSessDeput, "55040"},
    {optColourSessPrivate, "34559"},
    {optNewRowPosition, "BOTTOM"},
    {optEventCategories,
     "-1;National Holiday;65535|-2;Vacation;35468|-3;Noteable Day;9699476|1;Training/Study;4849812|"
     "2;Appraisal;4849812|3;Maternity/Paternity;8651007|4;School Holiday;13539071"},
    {optGridLines, "Horizontal and Vertical"},
    {optColourToday, "27094"},
    {optExtraYearsContrib, "0"},
    {optDefaultRates, "|||"},
    {optTodayUnreturnedFormC, "TRUE"},
    {optColourWeekends, "11206655"},
    {optColourWorkday, "16777215"},
    {optTodayRecentExpenses, "TRUE"},
    {optTodayRecentlyPaid, "TRUE"},
    {optTodayPensionContribs, "TRUE"},
    {optTodaySessionExpenses, "TRUE"},
    {optTodayBalance, "TRUE"},
    {optFinancePeriod, "60"},
    {optRowsPerHour, "2"},
    {optTodayUnpensioned, "TRUE"},
    {optTodayUpcomingSessions, "TRUE"},
    {optTodayUpcomingEvents, "TRUE"},
    {optReserved84, "FALSE"},
    {optInvoiceEmailSubject, "Invoice from {My Title} {My Name}"},
    {optInvoiceEmailBody,
     "Dear {Practice Manager},\r\n\r\n"
     "Please find attached my latest invoice for {Invoice Total|£#,##0.00}.\r\n\r\n"
     "Regards\r\n{My Title} {My Name}\r\n{My Qualifications}"_w},
    {optBookingSubject, "Booking confirmation from {My Title} {My Name}"},
    {optBookingHeader, "This is to confirm the booking of the following sessions."},
    {optBookingLine,
     "{Start Date|ddd dd/mm/yyyy}  {Start Time} - {End Time}    {Session Rate|£#,##0.00}"_w},
    {optBookingFooter, "Yours Sincerely\r\n{My Title} {My Name}\r\n{My Qualifications}"},
    {optColourSessUnpensioned, "9764756"},
    {optShowCalendarTips, "TRUE"},
    {optReserved93, "TRUE"},
    {optReserved94, "0"},
    {optRecentExpensePeriod, "30"},
    {optIconsInToolbar, "TRUE"},
    {optReceiptSubject, "Receipt for payment of invoice {Invoice Number}"},
    {optReceiptBody,
     "Dear {Practice Manager},\r\n\r\n"
     "Thank you for your recent payment of invoice {Invoice Number}.\r\n\r\n"
     "Regards\r\n{My Title} {My Name}\r\n{My Qualifications}"},
    {optAutoSetInvoiceDate, "FALSE"},
    {optAutoSetReceiptDate, "FALSE"},
    {optCurrentSessionsPast, "10"},
    {optCurrentSessionsFuture, "20"},
    {optColourUninvoiced, "16725815"},
    {optColourInvoicedUnpaid, "2171391"},
    {optColourInvoicedPaid, "59136"},
    {optCalendarColouredBy, "SESS_TYPE"},
    {optEmployerContribRate, "14.00"},
    {optRowsPerDay, "5"},
    {optPensionFormsFlag, "TRUE"},
    {optReserved118, "A"},
    {optICalDaysBack, "30"},
};

// What a first start presets: the options that have no default, so that an emptied field stays
// empty later on, and the employer rate of today, lest a new user be told of its change.
constexpr OptionText kFirstInstall[] = {
    {optAutoSave, "TRUE"},
    {optConfirmExit, "TRUE"},
    {optInvoiceTemplate, "Light Blue.tmpl"},
    {optDateFormat, "dd/mm/yyyy"},
    {optTimeFormat, "hh:nn"},
    {optShowNameInTitle, "TRUE"},
    {optStartMaximised, "FALSE"},
    {optOutlookPermanentDelete, "FALSE"},
    {optSilentMessages, "FALSE"},
    {optShowTips, "TRUE"},
    {optICalPrivateNote, "FALSE"},
    {optOutlookPrivateNote, "FALSE"},
    {optShowSessionStatusIcons, "TRUE"},
    {optAutoBackupDays, "7"},
    {optSignatureOnForms, "FALSE"},
    {optHasRetiredForms, "FALSE"},
    {optEmployerContribRate, "14.38"},
};

bool IsOption(int option) { return option >= 0 && option < kOptionCount; }
bool IsDetail(int field) { return field >= 0 && field <= kLastNameField; }

void EnsureShape(Grid& grid) {
  if (grid.Cols() != kOptionCount) grid.SetCols(kOptionCount);
  if (grid.Rows() <= kDetailsRow) grid.SetRows(kDetailsRow + 1);
}

void SetIfEmpty(Ledger& ledger, int option, std::string_view text) {
  if (GetOption(ledger, option).empty()) SetOption(ledger, option, text);
}

// The first of the five fields belongs to old values; a text of four fields lacks it.
void PadDefaultRates(Ledger& ledger) {
  const std::string rates = GetOption(ledger, optDefaultRates);
  if (std::count(rates.begin(), rates.end(), '|') < 4)
    SetOption(ledger, optDefaultRates, "|" + rates);
}

}  // namespace

std::string_view ProgramVersion() { return LEDGERMINDER_VERSION; }

std::string GetOption(const Ledger& ledger, int option) {
  return ledger.fgOptions.TextMatrix(kOptionRow, IsOption(option) ? option : -1);
}

void SetOption(Ledger& ledger, int option, std::string_view text) {
  if (!IsOption(option)) return;
  EnsureShape(ledger.fgOptions);
  ledger.fgOptions.SetTextMatrix(kOptionRow, option, text);
}

bool OptionIsTrue(const Ledger& ledger, int option) {
  return EqualsIgnoreCase(GetOption(ledger, option), "TRUE");
}

std::string MyDetail(const Ledger& ledger, int field) {
  return ledger.fgOptions.TextMatrix(kDetailsRow, IsDetail(field) ? field : -1);
}

void SetMyDetail(Ledger& ledger, int field, std::string_view text) {
  if (!IsDetail(field)) return;
  EnsureShape(ledger.fgOptions);
  ledger.fgOptions.SetTextMatrix(kDetailsRow, field, text);
}

std::string MyName(const Ledger& ledger) {
  return std::string(
      Trim(MyDetail(ledger, kFirstNameField) + " " + MyDetail(ledger, kLastNameField)));
}

bool SaveOptions(Ledger& ledger) {
  return SaveGridFile(ledger, ledger.File("Options.dat"), ledger.fgOptions);
}

void SetDefaultOptions(Ledger& ledger) {
  EnsureShape(ledger.fgOptions);
  for (const auto& [option, text] : kDefaults) SetIfEmpty(ledger, option, text);
  SetIfEmpty(ledger, optPasswordHash, DigestOf(""));
  PadDefaultRates(ledger);

  const std::string today = CellText(ledger.platform.clock.Now());
  SetIfEmpty(ledger, optUpgradeDate, today);
  SetOption(ledger, optVersionInstalled, ProgramVersion());
  if (GetOption(ledger, optVersionLastRun) != ProgramVersion()) {
    SetOption(ledger, optVersionLastRun, ProgramVersion());
    SetOption(ledger, optUpgradeDate, today);
    SaveOptions(ledger);
  }
}

void SetFirstInstallOptions(Ledger& ledger) {
  for (const auto& [option, text] : kFirstInstall) SetOption(ledger, option, text);
}

}  // namespace lm
