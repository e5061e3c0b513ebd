#include "pension/locks.h"

#include <algorithm>
#include <string>

#include "core/messagebox.h"
#include "core/platform.h"
#include "core/text.h"
#include "pension/forms.h"

namespace lm {
namespace {

constexpr std::string_view kTitle = "Delete Pension Form";
constexpr std::string_view kDatesByPractice[] = {"SENTTOPRACTICE", "RCVDFROMPRACTICE", "SENTTOHA"};
constexpr std::string_view kDateToHA[] = {"SENTTOHA"};
constexpr SentLock::Step kStepsByPractice[] = {
    {"RCVDFROMPRACTICE", "received back from the Practice"},
    {"SENTTOPRACTICE", "sent to the Practice"}};
constexpr SentLock::Step kStepToHA[] = {{"SENTTOHA", "sent to the HA"}};

constexpr SentLock::Words kToHAInList = {
    kTitle, "A Pension Form cannot be deleted once it has been sent to the Health Authority",
    "To delete the form, you must set the 'Sent to HA' column to blank."};
constexpr SentLock::Words kToHAInWindow = {
    kTitle, "A pension form cannot be deleted once it has been sent to the Health Authority",
    "To delete the form you must set the 'Sent to HA' field to empty. "};
constexpr SentLock::Words kSoloInList = {
    "", kTitle, "A Pension Form cannot be deleted once it has been sent to the Health Authority."};

}  // namespace

constinit const SentLock kSentByPractice = {
    kDatesByPractice,
    {kTitle, "A Pension Form cannot be deleted once it has been sent",
     "To delete the form, you must set the 'Sent to Practice', 'Rcvd From Practice', and 'Sent to "
     "HA' columns to blank."},
    {kTitle, "A Pension Form cannot be deleted once it has been sent",
     "To delete the form, you must set the 'Sent to Practice', 'Received From Practice', and 'Sent "
     "to HA' dates to blank."},
    kStepsByPractice};
constinit const SentLock kSentToHA = {kDateToHA, kToHAInList, kToHAInWindow, kStepToHA};
constinit const SentLock kSoloSentToHA = {kDateToHA, kSoloInList, kToHAInWindow, kStepToHA};

bool MayDelete(Ledger& ledger, const FormRow& record, AskedFrom from) {
  const SentLock& sent = *record.form.sent;
  const auto isSet = [&](std::string_view date) { return !record.Cell(date).empty(); };
  if (std::ranges::none_of(sent.dates, isSet)) return true;
  const SentLock::Words& words = from == AskedFrom::List ? sent.inList : sent.inWindow;
  ShowMessage(ledger, words.heading, words.text, Buttons::Ok, Icon::Exclamation, words.title);
  return false;
}

bool HasMonth(Ledger& ledger, const FormRow& record) {
  if (record.InMonth()) return true;
  ShowMessage(ledger, "The month of this pension form is damaged",
              "It reads \"" + record.Cell("MONTH") +
                  "\". Without its month the form can be neither opened nor printed, but it can be "
                  "deleted.");
  return false;
}

bool MayChangeReceivedDate(Ledger& ledger, const PensionForm& form, std::string_view oldDate) {
  const Month returned = Month::OfCell(oldDate);
  if (RowOfForm(ledger, *form.takenUpBy, returned) < 0) return true;
  const std::string month = returned.Text("mmm yyyy");
  const std::string name(form.name);
  const std::string monthForm(form.takenUpBy->name);
  ShowMessage(ledger, "Unable to change date",
              "A pension " + monthForm + " has already been created from the " + name +
                  "'s received in " + month +
                  ". This date can therefore not be changed.\\n\\nIf you need to unlock this " +
                  name + ", you will need to delete the " + monthForm + " for " + month + ".");
  return false;
}

bool MaySetReceivedDate(Ledger& ledger, const PensionForm& form, std::string_view newDate,
                        AskedFrom from) {
  const Month returned = Month::OfCell(newDate);
  if (RowOfForm(ledger, *form.takenUpBy, returned) < 0) return true;
  const std::string month = returned.Text("mmm yyyy");
  const std::string name(form.name);
  const std::string monthForm(form.takenUpBy->name);
  const std::string refused(from == AskedFrom::List ? form.refusedInList : form.refusedInWindow);
  ShowMessage(
      ledger, "Unable to set the 'Rcvd From Practice' date in " + month,
      "A " + monthForm + " has already been created for the month of " +
          returned.Text("mmmm yyyy") + ".\\n\\nAs " + monthForm + " is created from all " + name +
          "'s returned that month, a " + name + " cannot be marked as received " + refused +
          ".\\n\\nTo set this " + name + " as received in this month you must first delete the " +
          monthForm + " for the month of " + month + ". You can then enter the " + name +
          " as returned this month, and then recreate the " + monthForm + " for the month.");
  return false;
}

int RowTakenUpBy(const Ledger& ledger, const FormRow& record) {
  const PensionForm* takenUpBy = record.form.takenUpBy;
  const Month received = takenUpBy ? Month::OfCell(record.Cell("RCVDFROMPRACTICE")) : Month();
  return received ? RowOfForm(ledger, *takenUpBy, received) : -1;
}

std::string FormLockText(const Ledger& ledger, const FormRow& record) {
  if (RowTakenUpBy(ledger, record) >= 0)
    return "On " + std::string(record.form.takenUpBy->name) + " for " +
           Month::OfCell(record.Cell("RCVDFROMPRACTICE")).Text("mmm yyyy");
  const auto lockedBy = [&](const SentLock::Step& step) {
    if (record.Cell(step.date).empty()) return std::string();
    std::string words =
        std::string(step.words) + " on " + record.cells.DisplayText(record.row, step.date);
    words.front() = ToUpper(words.substr(0, 1)).front();
    return words;
  };
  std::string text = lockedBy(kStepToHA[0]);
  for (const SentLock::Step& step : record.form.sent->steps)
    if (text.empty()) text = lockedBy(step);
  return text;
}

}  // namespace lm
