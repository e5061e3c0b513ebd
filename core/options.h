// The options store: all user settings, by number, in row 0 of fgOptions; the My Details fields
// in row 1. Values are texts; an empty cell is an option not set.
#pragma once

#include <string>
#include <string_view>

#include "core/ledger.h"

namespace lm {

constexpr int kOptionCount = 120;

// What row 1 holds. The user's own first and last name stand behind the fields of My Details.
enum MyDetailField : int {
  kAddress1Field = 0,
  kAddress2Field = 1,
  kAddress3Field = 2,
  kAddress4Field = 3,
  kPostcodeField = 4,
  kGmcNumberField = 5,
  kEmailField = 6,
  kTelephoneField = 7,
  kIndemnityCompanyField = 8,
  kIndemnityNumberField = 9,
  kQualificationsField = 10,
  kMobileField = 11,
  kPerformersNumberField = 12,
  kInsuranceNumberField = 13,
  kTaxReferenceField = 14,
  kBirthDateField = 15,
  kAuthorityField = 16,
  kMyTitleField = 17,
  kSchemeNumberField = 18,
  kBankDetailsField = 19,
  kOdsCodeField = 20,
  kMyDetailsFields,  // how many the page of My Details has
  kFirstNameField = kMyDetailsFields,
  kLastNameField,
  // Where practices pay, and in how many days.
  kAccountNameField,
  kSortCodeField,
  kAccountNumberField,
  kDaysToPayField
};

enum Option : int {
  optAutoSave = 1,
  optPasswordHash = 2,
  optConfirmExit = 3,
  optInvoiceTemplate = 5,
  optDateFormat = 6,
  optTimeFormat = 7,
  optInvoiceNote = 9,
  optColourAlternateRows = 10,
  optFontSize = 11,
  optFontName = 12,
  optFontColour = 13,
  optUpcomingDays = 14,
  optInvoicePrefix = 18,
  optInvoiceStartNumber = 19,
  optShowNameInTitle = 20,
  optStartMaximised = 21,
  optDefaultAVC = 22,
  optOutlookSyncState = 24,
  optOutlookMissing = 25,
  optOutlookSensitivity = 26,
  optOutlookImportance = 27,
  optOutlookPermanentDelete = 28,
  optSilentMessages = 29,
  optColourBackground = 30,
  optColourGridLines = 31,
  optInvoiceSuffix = 32,
  optInvoiceNumberFormat = 33,
  optReserved34 = 34,
  optPensionCountry = 38,
  optAllBranchesOnOneInvoice = 39,
  optShowTips = 40,
  optMandatoryContribution = 41,
  optLastBackupDate = 42,
  optLastBackupFile = 43,
  optTodayUninvoiced = 44,
  optTodayUnsent = 45,
  optTodayUnpaid = 46,
  optTodayUnreturnedFormA = 47,
  optStartPage = 48,
  optUpgradeDate = 49,
  optVersionLastRun = 50,
  optMileageRate = 51,
  optExpenseCategories = 52,
  optEditedRowColour = 53,
  optNewRowColour = 54,
  optColourSessNormal = 55,
  optColourSessOOH = 56,
  optColourSessDeput = 57,
  optColourSessPrivate = 58,
  optNewRowPosition = 59,
  optEventCategories = 60,
  optGridLines = 61,
  optColourToday = 62,
  optExtraYearsContrib = 63,
  optDefaultRates = 64,
  optICalLastFile = 65,
  optICalAddress = 66,
  optICalPrivateNote = 67,
  optOutlookPrivateNote = 68,
  optICalCategory = 69,
  optTodayUnreturnedFormC = 70,
  optColourWeekends = 71,
  optColourWorkday = 72,
  optTodayRecentExpenses = 73,
  optTodayRecentlyPaid = 74,
  optTodayPensionContribs = 75,
  optTodaySessionExpenses = 76,
  optTodayBalance = 77,
  optFinancePeriod = 78,
  optRowsPerHour = 79,
  optShowSessionStatusIcons = 80,
  optTodayUnpensioned = 81,
  optTodayUpcomingSessions = 82,
  optTodayUpcomingEvents = 83,
  optReserved84 = 84,
  optInvoiceEmailSubject = 85,
  optInvoiceEmailBody = 86,
  optBookingSubject = 87,
  optBookingHeader = 88,
  optBookingLine = 89,
  optBookingFooter = 90,
  optColourSessUnpensioned = 91,
  optShowCalendarTips = 92,
  optReserved93 = 93,
  optReserved94 = 94,
  optAutoBackupDays = 95,
  optRecentExpensePeriod = 96,
  optIconsInToolbar = 97,
  optReceiptSubject = 98,
  optReceiptBody = 99,
  optAutoSetInvoiceDate = 100,
  optAutoSetReceiptDate = 101,
  optVersionInstalled = 102,
  optCurrentSessionsPast = 103,
  optCurrentSessionsFuture = 104,
  optSignatureOnForms = 105,
  optImportChoice1 = 106,
  optImportChoice2 = 107,
  optColourUninvoiced = 108,
  optColourInvoicedUnpaid = 109,
  optColourInvoicedPaid = 110,
  optCalendarColouredBy = 111,
  optOutlookTimeFrame = 112,
  optImportChoice3 = 113,
  optHasRetiredForms = 114,
  optEmployerContribRate = 115,
  optRowsPerDay = 116,
  optPensionFormsFlag = 117,
  optReserved118 = 118,
  optICalDaysBack = 119,
};

// The program's version, major.minor.revision.
std::string_view ProgramVersion();

std::string GetOption(const Ledger& ledger, int option);            // "" outside 0 to 119
void SetOption(Ledger& ledger, int option, std::string_view text);  // in memory only
bool OptionIsTrue(const Ledger& ledger, int option);                // "TRUE", ignoring case

// As it was typed last, saved or not: documents show what their writer sees on the page.
std::string MyDetail(const Ledger& ledger, int field);
void SetMyDetail(Ledger& ledger, int field, std::string_view text);
// What is typed on the page waits until a save stores it, so that nothing else that saves the
// options takes it along, and until a reload drops it.
void TypeMyDetail(Ledger& ledger, int field, std::string_view text);
void StoreTypedDetails(Ledger& ledger);
// First and last name joined by a blank, an empty one left out; the title stands apart.
std::string MyName(const Ledger& ledger);

// Saves "Options.dat" at once; false after its message.
bool SaveOptions(Ledger& ledger);

// At every start: 120 columns, and the default in each cell that is empty.
void SetDefaultOptions(Ledger& ledger);

// A first start: sensible values for the options without a default.
void SetFirstInstallOptions(Ledger& ledger);

}  // namespace lm
