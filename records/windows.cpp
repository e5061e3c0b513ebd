#include "records/windows.h"

#include "records/frmAddExpenses.h"
#include "records/frmAddSessions.h"
#include "records/frmEvent.h"
#include "records/frmPractice.h"
#include "records/frmRateCompare.h"
#include "records/frmSession.h"
#include "records/frmWelcome.h"

namespace lm {
namespace {

using Words = std::vector<std::string>;

std::string Word(const Words& words, std::size_t index) {
  return index < words.size() ? words[index] : "";
}

// One session window at a time, whatever it shows.
template <typename Fill>
bool ShowSession(Ledger& ledger, Fill fill) {
  frmSession window(ledger);
  return ShowRecord(window, "", "The session window is already open", [&] { return fill(window); });
}

bool PracticeByWords(Ledger& ledger, const Words& words) {
  if (Word(words, 0) == "new") return NewPractice(ledger);
  return Word(words, 0) == "open" && OpenPractice(ledger, Word(words, 1));
}

bool SessionByWords(Ledger& ledger, const Words& words) {
  const std::string operation = Word(words, 0);
  if (operation == "new") return NewSession(ledger, Word(words, 1), Word(words, 2), Word(words, 3));
  if (operation == "open") return OpenSession(ledger, Word(words, 1));
  return operation == "copy" && CopySession(ledger, Word(words, 1));
}

bool EventByWords(Ledger& ledger, const Words& words) {
  if (Word(words, 0) == "new") return NewEvent(ledger, Word(words, 1));
  return Word(words, 0) == "open" && OpenEvent(ledger, Word(words, 1));
}

bool Welcome(Ledger& ledger, const Words&) {
  frmWelcome window(ledger);
  ShowModal(window);
  return true;
}

}  // namespace

bool NewPractice(Ledger& ledger) {
  frmPractice window(ledger);
  window.New();
  ShowModal(window);
  return true;
}

bool OpenPractice(Ledger& ledger, std::string_view id) {
  frmPractice window(ledger);
  return ShowRecord(window, id, "The practice window is already open.",
                    [&] { return window.Open(id); });
}

bool NewSession(Ledger& ledger, std::string_view date, std::string_view time,
                std::string_view practiceId) {
  return ShowSession(ledger,
                     [&](frmSession& window) { return window.New(date, time, practiceId); });
}

bool OpenSession(Ledger& ledger, std::string_view id) {
  return ShowSession(ledger, [&](frmSession& window) { return window.OpenSession(id); });
}

bool CopySession(Ledger& ledger, std::string_view id) {
  return ShowSession(ledger, [&](frmSession& window) { return window.Copy(id); });
}

bool AddSessions(Ledger& ledger) {
  if (!frmSession::HasPractices(ledger, "Unable to create new sessions")) return false;
  frmAddSessions window(ledger);
  return ShowRecord(window, "", "The sessions window is already open.", [] { return true; });
}

bool NewEvent(Ledger& ledger, std::string_view date) {
  frmEvent window(ledger);
  window.New(date);
  ShowModal(window);
  return true;
}

bool OpenEvent(Ledger& ledger, std::string_view id) {
  frmEvent window(ledger);
  return ShowRecord(window, id, "The event window is already open.",
                    [&] { return window.Open(id); });
}

bool NewExpense(Ledger& ledger) {
  frmAddExpenses window(ledger);
  ShowModal(window);
  return true;
}

bool CompareRates(Ledger& ledger) {
  frmRateCompare window(ledger);
  return ShowRecord(window, "", "The rate comparison is already open.", [] { return true; });
}

void AddRecordWindows(WindowCatalogue& catalogue) {
  catalogue.Add("frmAddExpenses", [](Ledger& ledger, const Words&) { return NewExpense(ledger); });
  catalogue.Add("frmAddSessions", [](Ledger& ledger, const Words&) { return AddSessions(ledger); });
  catalogue.Add("frmEvent", EventByWords);
  catalogue.Add("frmPractice", PracticeByWords);
  catalogue.Add("frmRateCompare",
                [](Ledger& ledger, const Words&) { return CompareRates(ledger); });
  catalogue.Add("frmSession", SessionByWords);
  catalogue.Add("frmWelcome", Welcome);
}

}  // namespace lm
