#include "pension/locks.h"

#include <algorithm>
#include <initializer_list>

#include "core/messagebox.h"
#include "core/platform.h"
#include "core/text.h"
#include "pension/forms.h"
#include "pension/months.h"

namespace lm {
namespace {

constexpr std::string_view kDeleteTitle = "Delete Pension Form";

bool HasDate(const Grid& forms, int row, std::initializer_list<std::string_view> keys) {
  return std::ranges::any_of(
      keys, [&](std::string_view key) { return !forms.TextMatrix(row, key).empty(); });
}

void RefuseDeletion(Ledger& ledger, std::string_view heading, std::string_view text) {
  ShowMessage(ledger, heading, text, Buttons::Ok, Icon::Exclamation, kDeleteTitle);
}

void RefuseDeletionInWindow(Ledger& ledger) {
  RefuseDeletion(ledger,
                 "A pension form cannot be deleted once it has been sent to the Health Authority",
                 "To delete the form you must set the 'Sent to HA' field to empty. ");
}

// Forms that come back from practices, and the form of the month in which they do.
struct ReturnedForm {
  std::string_view table;
  std::string_view form, monthForm;
  std::string_view refusedInList, refusedInWindow;  // how it cannot be marked as received
};

constexpr ReturnedForm kReturnedForms[] = {
    {"fgPensionA", "A", "B", "for a month in which a Form B has already been created",
     "for a month for which a Form B has already been created"},
    {"fgPensionC", "C", "D", "in a month a Form D has already been created for",
     "in a month a Form D has already been created for"},
};

const ReturnedForm& FormOf(const Grid& table) {
  return EqualsIgnoreCase(table.Name(), kReturnedForms[1].table) ? kReturnedForms[1]
                                                                 : kReturnedForms[0];
}

}  // namespace

bool MayDeleteFormA(Ledger& ledger, const Grid& forms, int row, AskedFrom from) {
  if (!HasDate(forms, row, {"SENTTOPRACTICE", "RCVDFROMPRACTICE", "SENTTOHA"})) return true;
  RefuseDeletion(ledger, "A Pension Form cannot be deleted once it has been sent",
                 from == AskedFrom::List
                     ? "To delete the form, you must set the 'Sent to Practice', 'Rcvd From "
                       "Practice', and 'Sent to HA' columns to blank."
                     : "To delete the form, you must set the 'Sent to Practice', 'Received From "
                       "Practice', and 'Sent to HA' dates to blank.");
  return false;
}

bool MayDeleteFormB(Ledger& ledger, const Grid& forms, int row, AskedFrom from) {
  if (!HasDate(forms, row, {"SENTTOHA"})) return true;
  if (from == AskedFrom::Window)
    RefuseDeletionInWindow(ledger);
  else
    RefuseDeletion(ledger,
                   "A Pension Form cannot be deleted once it has been sent to the Health Authority",
                   "To delete the form, you must set the 'Sent to HA' column to blank.");
  return false;
}

bool MayDeleteFormSolo(Ledger& ledger, const Grid& forms, int row, AskedFrom from) {
  if (!HasDate(forms, row, {"SENTTOHA"})) return true;
  if (from == AskedFrom::Window)
    RefuseDeletionInWindow(ledger);
  else
    ShowMessage(ledger, kDeleteTitle,
                "A Pension Form cannot be deleted once it has been sent to the Health Authority.");
  return false;
}

bool MayChangeReceivedDate(Ledger& ledger, const Grid& table, std::string_view oldDate) {
  const ReturnedForm& returned = FormOf(table);
  const std::string key = MonthKeyOf(oldDate);
  if (!FormBExists(ledger, key, returned.monthForm)) return true;
  const std::string month = MonthText(key, "mmm yyyy");
  const std::string form = "Form " + std::string(returned.form);
  const std::string monthForm = "Form " + std::string(returned.monthForm);
  ShowMessage(ledger, "Unable to change date",
              "A pension " + monthForm + " has already been created from the " + form +
                  "'s received in " + month +
                  ". This date can therefore not be changed.\\n\\nIf you need to unlock this " +
                  form + ", you will need to delete the " + monthForm + " for " + month + ".");
  return false;
}

bool MaySetReceivedDate(Ledger& ledger, const Grid& table, std::string_view newDate,
                        AskedFrom from) {
  const ReturnedForm& returned = FormOf(table);
  const std::string key = MonthKeyOf(newDate);
  if (!FormBExists(ledger, key, returned.monthForm)) return true;
  const std::string month = MonthText(key, "mmm yyyy");
  const std::string form = "Form " + std::string(returned.form);
  const std::string monthForm = "Form " + std::string(returned.monthForm);
  const std::string refused(from == AskedFrom::List ? returned.refusedInList
                                                    : returned.refusedInWindow);
  ShowMessage(
      ledger, "Unable to set the 'Rcvd From Practice' date in " + month,
      "A " + monthForm + " has already been created for the month of " +
          MonthText(key, "mmmm yyyy") + ".\\n\\nAs " + monthForm + " is created from all " + form +
          "'s returned that month, a " + form + " cannot be marked as received " + refused +
          ".\\n\\nTo set this " + form + " as received in this month you must first delete the " +
          monthForm + " for the month of " + month + ". You can then enter the " + form +
          " as returned this month, and then recreate the " + monthForm + " for the month.");
  return false;
}

}  // namespace lm
