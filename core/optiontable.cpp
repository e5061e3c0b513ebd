#include "core/optiontable.h"

#include <algorithm>
#include <iterator>

#include "core/text.h"

namespace lm {
namespace {

using Kind = OptionKind;

// ---- What may be typed

constexpr std::string_view kMustBeNumber = "This figure must be a valid number.";
constexpr std::string_view kMustBeNumberOrBlank = "This figure must be a valid number or blank.";
constexpr std::string_view kPercentageRange = "Percentage figures must be between 0 and 100.";
constexpr std::string_view kNumberOrNothing = "Enter a number or leave blank.";
constexpr std::string_view kUpTo999 = "This figure must be a number between 0 and 999.";

constexpr OptionCheck kBackupPeriod{
    .mayBeBlank = true, .prompt = "Automatic Backup Period", .noNumber = kNumberOrNothing};
constexpr OptionCheck kSyncPeriod{
    .mayBeBlank = true, .prompt = "Outlook Synchronisation Period", .noNumber = kNumberOrNothing};
constexpr OptionCheck kAvc{.strip = " £$-"_w,
                           .least = 0,
                           .most = 100,
                           .mayBeBlank = true,
                           .mayBePercent = true,
                           .pattern = "0.00",
                           .prompt = "Invalid Value",
                           .noNumber = kMustBeNumberOrBlank,
                           .outOfRange = kPercentageRange};
constexpr OptionCheck kContribution{.strip = " £$-%"_w,
                                    .least = 0,
                                    .most = 100,
                                    .prompt = "Inavlid Value",
                                    .noNumber = kMustBeNumber,
                                    .outOfRange = kPercentageRange};
constexpr OptionCheck kEmployerRate{.strip = " =+£$-%"_w,
                                    .least = 0,
                                    .most = 100,
                                    .pattern = "0.00",
                                    .prompt = "Inavlid Value",
                                    .noNumber = kMustBeNumber,
                                    .outOfRange = kPercentageRange};
constexpr OptionCheck kMileage{.strip = " £$-%"_w,
                               .most = 1000,
                               .pattern = "0.00",
                               .prompt = "Inavlid Value",
                               .noNumber = kMustBeNumber,
                               .outOfRange = "This figure cannot be more than 1000."};
constexpr OptionCheck kDays{.most = 180,
                            .belowMost = true,
                            .noNumber = "This figure must be a number.",
                            .outOfRange = "This figure must be less than 180."};
constexpr OptionCheck kExpensePeriod{.least = 0,
                                     .most = 999,
                                     .prompt = "Invalid Value",
                                     .noNumber = kUpTo999,
                                     .outOfRange = kUpTo999};
constexpr OptionCheck kDaysOrDefault{
    .least = 0, .mayBeBlank = true, .noNumber = kNumberOrNothing, .outOfRange = kNumberOrNothing};
constexpr OptionCheck kStartNumber{.keep = "0123456789", .least = 1};
constexpr OptionCheck kNumberFormat{.keep = "0"};
constexpr OptionCheck kDefaultRate{.strip = " £$-+"_w,
                                   .mayBeBlank = true,
                                   .prompt = "Invalid Value",
                                   .noNumber = kMustBeNumberOrBlank};
constexpr OptionCheck kCategoryName{
    .forbidden = "|;",
    .prompt = "Inavlid Category Name",
    .noNumber = "Category Names cannot contain the characters '|' or ';'."};

// ---- Longer defaults

constexpr std::string_view kInvoiceEmail =
    "Dear {Practice Manager},\r\n\r\n"
    "Please find attached my latest invoice for {Invoice Total|£#,##0.00}.\r\n\r\n"
    "Regards\r\n{My Title} {My Name}\r\n{My Qualifications}"_w;
constexpr std::string_view kBookingLine =
    "{Start Date|ddd dd/mm/yyyy}  {Start Time} - {End Time}    {Session Rate|£#,##0.00}"_w;
constexpr std::string_view kBookingFooter =
    "Yours Sincerely\r\n{My Title} {My Name}\r\n{My Qualifications}";
constexpr std::string_view kReceipt =
    "Dear {Practice Manager},\r\n\r\n"
    "Thank you for your recent payment of invoice {Invoice Number}.\r\n\r\n"
    "Regards\r\n{My Title} {My Name}\r\n{My Qualifications}";

// ---- The options. The password's digest, the versions and the upgrade date are worked out at each
// start. The first values are of options that have no default, so that an emptied field stays
// empty later on, and the employer rate of today, lest a new user be told of its change.

#define OPTION(name) name, #name

constexpr OptionSpec kOptions[] = {
    {OPTION(optAutoSave), Kind::Boolean, "", "TRUE", "&Save automatically on exit", "chkAutoSave"},
    {OPTION(optPasswordHash), Kind::Text},
    {OPTION(optConfirmExit), Kind::Boolean, "", "TRUE", "&Ask before closing", "chkConfirmClosing"},
    {OPTION(optInvoiceTemplate), Kind::File, "", "Light Blue.tmpl", "&Template for new invoices",
     "lstTemplates"},
    {OPTION(optDateFormat), Kind::Choice, "", "dd/mm/yyyy", "&Date format", "cboDateFormat",
     "d/m/yy|dd/mm/yyyy|dd mmm yyyy|ddd dd/mm/yyyy|ddd dd mmm yyyy|ddd dd mmmm yyyy|dddd dd mmmm "
     "yyyy"},
    {OPTION(optTimeFormat), Kind::Choice, "", "hh:nn", "&Time format", "cboTimeFormat",
     "hh:nn|h:nn AMPM|hhnn"},
    {OPTION(optInvoiceNote), Kind::Lines, "", "", "Default invoice &note", "txtInvoiceNote"},
    {OPTION(optColourAlternateRows), Kind::Colour, "16777215", "", "Alternate Rows",
     "fgColours_Grids"},
    {OPTION(optFontSize), Kind::Choice, "9", "", "Font si&ze", "cboFontSize", "8; 8|9; 9|10|11|12"},
    {OPTION(optFontName), Kind::Choice, "Arial", "", "&Font", "cboFontFace",
     "Arial|Arial Narrow|Courier New|Tahoma|Times New Roman|Verdana"},
    {OPTION(optFontColour), Kind::Colour, "0", "", "Text Colour", "picFontColor"},
    {OPTION(optUpcomingDays), Kind::Number, "7", "", "&Days ahead", "txtUpcomingDays", "", &kDays},
    {OPTION(optInvoicePrefix), Kind::Text, "INV-", "", "&Prefix", "txtInvoicePrefix"},
    {OPTION(optInvoiceStartNumber), Kind::Number, "1", "", "&Next invoice number",
     "txtInvStartNumber", "", &kStartNumber},
    {OPTION(optShowNameInTitle), Kind::Boolean, "", "TRUE", "Show my &name in the title bar",
     "chkNameInTitleBar"},
    {OPTION(optStartMaximised), Kind::Boolean, "", "FALSE", "Open &maximised", "chkMaximizeWindow"},
    {OPTION(optDefaultAVC), Kind::Money, "0.00", "",
     "&AVC (Additional Voluntary Contribution) to appear on forms B and SOLO:", "txtDefaultAVC", "",
     &kAvc},
    {OPTION(optOutlookSyncState), Kind::Date},
    {OPTION(optOutlookMissing), Kind::Choice, "", "0", "&Appointments that are not in LedgerMinder",
     "cboInOutlookNotInLM",
     "0;Do Nothing|2;Create a matching Session in LedgerMinder|1;Delete the appointment from "
     "Outlook"},
    {OPTION(optOutlookSensitivity), Kind::Choice, "", "Normal", "S&ensitivity of new appointments",
     "cboSensitivity", "Normal|Personal|Private|Confidential"},
    {OPTION(optOutlookImportance), Kind::Choice, "", "Normal", "&Importance of new appointments",
     "cboImportance", "Normal|High|Low"},
    {OPTION(optOutlookPermanentDelete), Kind::Boolean, "", "FALSE",
     "When &deleting sessions from Outlook, permanently delete them", "chkPermanentDeleteAppt"},
    {OPTION(optSilentMessages), Kind::Boolean, "", "FALSE", "No so&und with messages",
     "chkSilentMsg"},
    {OPTION(optColourBackground), Kind::Colour, "16777215", "", "Background", "fgColours_Grids"},
    {OPTION(optColourGridLines), Kind::Colour, "14609391", "", "Gridline Colour",
     "picGridLineColor"},
    {OPTION(optInvoiceSuffix), Kind::Text, "", "", "&Suffix", "txtInvoiceSuffix"},
    {OPTION(optInvoiceNumberFormat), Kind::Text, "00000", "", "&Format, a 0 for each figure",
     "txtInvNumFormat", "", &kNumberFormat},
    {OPTION(optReserved34), Kind::Boolean, "FALSE"},
    {OPTION(optPensionCountry), Kind::Choice, "England", "", "Pension &country",
     "cboPensionCountry", "England|Northern Ireland|Scotland|Wales"},
    {OPTION(optAllBranchesOnOneInvoice), Kind::Boolean, "FALSE", "",
     "Put all &branch surgeries on one invoice", "chkAllBranchesOnOneInvoice"},
    {OPTION(optShowTips), Kind::Boolean, "", "TRUE", "Show t&ips", "chkShowTips"},
    {OPTION(optMandatoryContribution), Kind::Percentage, "6.0", "",
     "&Mandatory contribution  to appear on forms B and SOLO:", "txtMandatoryContribution", "",
     &kContribution},
    {OPTION(optLastBackupDate), Kind::Date},
    {OPTION(optLastBackupFile), Kind::Text},
    {OPTION(optTodayUninvoiced), Kind::Boolean, "TRUE", "", "&Uninvoiced Sessions",
     "chkUninvoicedSessions"},
    {OPTION(optTodayUnsent), Kind::Boolean, "TRUE", "", "Unsen&t Invoices", "chkUnsentInvoices"},
    {OPTION(optTodayUnpaid), Kind::Boolean, "TRUE", "", "Unp&aid Invoices", "chkUnpaidInvoices"},
    {OPTION(optTodayUnreturnedFormA), Kind::Boolean, "TRUE", "", "Unreturned Pension &Form A's",
     "chkUnreturnedFormAs"},
    {OPTION(optStartPage), Kind::Choice, "LM Today", "", "Start &page", "cboStartupPage",
     "LM Today|Calendar|Invoices|Sessions"},
    {OPTION(optUpgradeDate), Kind::Date},
    {OPTION(optVersionLastRun), Kind::Text},
    {OPTION(optMileageRate), Kind::Money, "0.40", "", "&Mileage rate in pounds a mile",
     "txtMileageExpenseRate", "", &kMileage},
    {OPTION(optExpenseCategories), Kind::Packed, "#0;Mileage|#1;Materials|#2;Travel|#3;Other", "",
     "Expense categories"},
    {OPTION(optEditedRowColour), Kind::Colour, "16776960", "", "Edited Row Header",
     "fgColours_Grids"},
    {OPTION(optNewRowColour), Kind::Colour, "16711680", "", "New Row Header", "fgColours_Grids"},
    {OPTION(optColourSessNormal), Kind::Colour, "34304", "", "NHS Normal", "fgColours_SessType"},
    {OPTION(optColourSessOOH), Kind::Colour, "55040", "", "NHS OOH Normal", "fgColours_SessType"},
    {OPTION(optColourSessDeput), Kind::Colour, "55040"},
    {OPTION(optColourSessPrivate), Kind::Colour, "34559", "", "NHS Private", "fgColours_SessType"},
    {OPTION(optNewRowPosition), Kind::Choice, "BOTTOM", "", "Ne&w rows go to the",
     "cboNewRowPosition", "TOP;Top|BOTTOM;Bottom"},
    {OPTION(optEventCategories), Kind::Packed,
     "-1;National Holiday;65535|-2;Vacation;35468|-3;Noteable Day;9699476|1;Training/Study;4849812|"
     "2;Appraisal;4849812|3;Maternity/Paternity;8651007|4;School Holiday;13539071",
     "", "Event categories", "fgEventColours", "", &kCategoryName},
    {OPTION(optGridLines), Kind::Choice, "Horizontal and Vertical", "", "&Grid lines",
     "cboGridLines", "Horizontal and Vertical|Horizontal Only|Vertical Only|None"},
    {OPTION(optColourToday), Kind::Colour, "27094", "", "Today Indicator", "fgColours_Calendar"},
    {OPTION(optExtraYearsContrib), Kind::Percentage, "0", "",
     "Added &Years Contribution to appear on Forms B and SOLO:", "txtExtraYearsContrib", "",
     &kContribution},
    {OPTION(optDefaultRates), Kind::Packed, "|||", "", "Default hourly rates", "fgDefaultRates", "",
     &kDefaultRate},
    {OPTION(optICalLastFile), Kind::Date},
    {OPTION(optICalAddress), Kind::Text, "", "", "A&ddress or file of the calendar",
     "txtICalAddress"},
    {OPTION(optICalPrivateNote), Kind::Text, "", "", "&Private note of imported sessions",
     "txtSyncIcal_PrivateNote"},
    {OPTION(optOutlookPrivateNote), Kind::Text, "", "", "&Private note of imported sessions",
     "txtSyncOutlook_PrivateNote"},
    {OPTION(optICalCategory), Kind::Text, "", "", "&Categories to import", "txtICalCategory"},
    {OPTION(optTodayUnreturnedFormC), Kind::Boolean, "TRUE", "", "Pension Form &C's",
     "chkUnreturnedFormCs"},
    {OPTION(optColourWeekends), Kind::Colour, "11206655", "", "Weekends", "fgColours_Calendar"},
    {OPTION(optColourWorkday), Kind::Colour, "16777215", "", "Workday", "fgColours_Calendar"},
    {OPTION(optTodayRecentExpenses), Kind::Boolean, "TRUE", "", "&Expenses", "chkRecentExpenses"},
    {OPTION(optTodayRecentlyPaid), Kind::Boolean, "TRUE", "", "&Income Received",
     "chkRecentlyPaidInvoices"},
    {OPTION(optTodayPensionContribs), Kind::Boolean, "TRUE", "", "&Pension Contributions",
     "chkPensionContributions"},
    {OPTION(optTodaySessionExpenses), Kind::Boolean, "TRUE", "", "Session E&xpenses",
     "chkSessionExpenses"},
    {OPTION(optTodayBalance), Kind::Boolean, "TRUE", "", "&Balance", "chkBalance"},
    {OPTION(optFinancePeriod), Kind::Number, "60", "", "Days bac&k", "txtFinancePeriod", "",
     &kDays},
    {OPTION(optRowsPerHour), Kind::Choice, "2", "", "Rows per &hour", "cboRowsPerHour",
     "2;2 (30 minute slots)|3;3 (20 minute slots)|4;4 (15 minute slots)|6;6 (10 minute slots)"},
    {OPTION(optShowSessionStatusIcons), Kind::Boolean, "", "TRUE",
     "Show session status &icons (invoiced and pensioned):", "chkShowSessionStatusIcons"},
    {OPTION(optTodayUnpensioned), Kind::Boolean, "TRUE", "", "Unpensio&ned Sessions",
     "chkUnpensionedSessions"},
    {OPTION(optTodayUpcomingSessions), Kind::Boolean, "TRUE", "", "Upcoming &Sessions",
     "chkUpcomingSessions"},
    {OPTION(optTodayUpcomingEvents), Kind::Boolean, "TRUE", "", "E&vents", "chkUpcomingEvents"},
    {OPTION(optReserved84), Kind::Boolean, "FALSE"},
    {OPTION(optInvoiceEmailSubject), Kind::Text, "Invoice from {My Title} {My Name}", "",
     "&Subject", "txtInvoiceEmailSubject"},
    {OPTION(optInvoiceEmailBody), Kind::Lines, kInvoiceEmail, "", "&Text", "txtInvoiceEmailBody"},
    {OPTION(optBookingSubject), Kind::Text, "Booking confirmation from {My Title} {My Name}"},
    {OPTION(optBookingHeader), Kind::Lines,
     "This is to confirm the booking of the following sessions."},
    {OPTION(optBookingLine), Kind::Text, kBookingLine},
    {OPTION(optBookingFooter), Kind::Lines, kBookingFooter},
    {OPTION(optColourSessUnpensioned), Kind::Colour, "9764756", "", "NHS Unpensioned",
     "fgColours_SessType"},
    {OPTION(optShowCalendarTips), Kind::Boolean, "TRUE", "", "Show &tooltips on the calendar",
     "chkShowCalendarToolTips"},
    {OPTION(optReserved93), Kind::Boolean, "TRUE"},
    {OPTION(optReserved94), Kind::Number, "0"},
    {OPTION(optAutoBackupDays), Kind::Number, "", "7", "&Days between automatic backups",
     "txtAutoBackupPeriod", "", &kBackupPeriod},
    {OPTION(optRecentExpensePeriod), Kind::Number, "30", "",
     "Days that an expense &counts as recent", "txtRecentExpensePeriod", "", &kExpensePeriod},
    {OPTION(optIconsInToolbar), Kind::Boolean, "TRUE", "", "Show i&cons in the shortcut bar",
     "chkShowIconsInToolbar"},
    {OPTION(optReceiptSubject), Kind::Text, "Receipt for payment of invoice {Invoice Number}", "",
     "&Subject", "txtReceiptSubject"},
    {OPTION(optReceiptBody), Kind::Lines, kReceipt, "", "&Text", "txtReceiptBody"},
    {OPTION(optAutoSetInvoiceDate), Kind::Boolean, "FALSE", "",
     "Set the sent &date when an invoice is e-mailed", "chkAutoSetInvoiceDate"},
    {OPTION(optAutoSetReceiptDate), Kind::Boolean, "FALSE", "",
     "Set the receipt &date when a receipt is e-mailed", "chkAutoSetReceiptDate"},
    {OPTION(optVersionInstalled), Kind::Text},
    {OPTION(optCurrentSessionsPast), Kind::Number, "10", "", "Days back on the 'Current' tab",
     "txtCurrentSessionsPeriod_Past", "", &kDaysOrDefault},
    {OPTION(optCurrentSessionsFuture), Kind::Number, "20", "", "Days ahead on the 'Current' tab",
     "txtCurrentSessionsPeriod_Future", "", &kDaysOrDefault},
    {OPTION(optSignatureOnForms), Kind::Boolean, "", "FALSE", "&Put my signature on pension forms",
     "chkIncludeSignatureOnForms"},
    {OPTION(optImportChoice1), Kind::Text},
    {OPTION(optImportChoice2), Kind::Text},
    {OPTION(optColourUninvoiced), Kind::Colour, "16725815", "", "Uninvoiced",
     "fgColours_InvoiceStatus"},
    {OPTION(optColourInvoicedUnpaid), Kind::Colour, "2171391", "", "Invoiced but unpaid",
     "fgColours_InvoiceStatus"},
    {OPTION(optColourInvoicedPaid), Kind::Colour, "59136", "", "Invoiced and paid",
     "fgColours_InvoiceStatus"},
    {OPTION(optCalendarColouredBy), Kind::Choice, "SESS_TYPE", "", "Colour sessions by",
     "optColouredBySessType|optColouredByInvoiceStatus",
     "SESS_TYPE;Session Type|INV_STATUS;Invoice Status"},
    {OPTION(optOutlookTimeFrame), Kind::Number, "", "", "Days to s&ynchronise",
     "txtSyncOutlook_TimeFrame", "", &kSyncPeriod},
    {OPTION(optImportChoice3), Kind::Packed},
    {OPTION(optHasRetiredForms), Kind::Boolean, "", "FALSE"},
    {OPTION(optEmployerContribRate), Kind::Percentage, "14.00", "14.38",
     "&Employer Contribution Rate:", "txtEmployerContribRate", "", &kEmployerRate},
    {OPTION(optRowsPerDay), Kind::Choice, "5", "", "Rows per &day", "cboRowsPerDay",
     "2|3|4|5|6|7|8|9|10|11|12"},
    {OPTION(optPensionFormsFlag), Kind::Boolean, "TRUE"},
    {OPTION(optReserved118), Kind::Text, "A"},
    {OPTION(optICalDaysBack), Kind::Number, "30", "",
     "Only import appointments no older than this number of &days:", "txtiCalNumberOfDaysBack", "",
     &kDaysOrDefault},
};

#undef OPTION

}  // namespace

std::span<const OptionSpec> OptionSpecs() { return kOptions; }

const OptionSpec* FindOption(int number) {
  const auto* found = std::ranges::find_if(
      kOptions, [&](const OptionSpec& option) { return option.number == number; });
  return found != std::end(kOptions) ? found : nullptr;
}

const OptionSpec* FindOption(std::string_view name) {
  const auto* found = std::ranges::find_if(
      kOptions, [&](const OptionSpec& option) { return EqualsIgnoreCase(option.name, name); });
  return found != std::end(kOptions) ? found : nullptr;
}

std::vector<OptionChoice> ChoicesOf(const OptionSpec& option) {
  std::vector<OptionChoice> choices;
  if (option.choices.empty()) return choices;
  for (const std::string_view entry : Split(option.choices, '|')) {
    const auto parts = Split(entry, ';');
    choices.push_back({parts.front(), parts.back()});
  }
  return choices;
}

}  // namespace lm
