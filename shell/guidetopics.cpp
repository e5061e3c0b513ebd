#include "shell/guidetopics.h"

#include <algorithm>

namespace lm {
namespace {

constexpr GuideTopic kTopics[] = {
    // Pages
    {"Calendar", "calendar"},
    {"Sessions", "sessions"},
    {"Events", "events"},
    {"Invoices", "invoices"},
    {"Reports", "reports"},
    {"Practices", "practices"},
    {"Pension", "pension-forms"},
    {"Expenses", "general-expenses"},
    {"My Details", "my-details"},
    {"LM Today", "lm-today"},
    // Windows
    {"frmWelcome", "the-first-start"},
    {"frmGettingStarted", "the-first-start"},
    {"frmPractice", "practices"},
    {"frmRateCompare", "what-practices-pay"},
    {"frmPaymentReminders", "money-that-is-owed"},
    {"frmSession", "a-session"},
    {"frmAddSessions", "several-sessions-at-once"},
    {"frmPopupCalendar", "dates-times-and-amounts"},
    {"frmPopupClock", "dates-times-and-amounts"},
    {"frmPopupNumbers", "dates-times-and-amounts"},
    {"frmAddExpenses", "general-expenses"},
    {"frmEvent", "events"},
    {"frmPrepareInvoices", "preparing-invoices"},
    {"frmInvoice", "an-invoice"},
    {"frmBookingConfirmation", "booking-confirmation"},
    {"frmPensionForms", "preparing-pension-forms"},
    {"frmPensionA", "a-pension-form"},
    {"frmPensionB", "a-pension-form"},
    {"frmPensionSOLO", "a-pension-form"},
    {"frmChart", "charts"},
    {"frmChartOptions", "charts"},
    {"frmExportCalendar", "a-calendar-for-your-phone"},
    {"frmImportCalendar", "sessions-from-a-calendar"},
    {"frmSynchroniseOutlook", "outlook"},
    {"frmImportWizard", "sessions-from-booking-services"},
    {"frmConfigure", "options"},
    {"frmGetPassword", "a-password"},
    {"frmShortcutKeys", "shortcut-keys"},
    {"frmFind", "finding"},
    {"frmAbout", "about-and-updates"},
};

}  // namespace

std::span<const GuideTopic> GuideTopics() { return kTopics; }

std::string_view GuideHeading(std::string_view place) {
  const auto* topic = std::ranges::find(kTopics, place, &GuideTopic::place);
  return topic == std::end(kTopics) ? "" : topic->heading;
}

}  // namespace lm
