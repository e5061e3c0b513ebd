#include "pension/windows.h"

#include <vector>

#include "core/messagebox.h"
#include "core/rows.h"
#include "core/text.h"
#include "pension/forms.h"
#include "pension/frmPensionA.h"
#include "pension/frmPensionB.h"
#include "pension/frmPensionForms.h"
#include "pension/frmPensionSOLO.h"
#include "pension/locks.h"

namespace lm {
namespace {

using Words = std::vector<std::string>;

// One window of a kind at a time, whichever form it shows.
template <typename Window>
bool ShowForm(Ledger& ledger, int row) {
  Window window(ledger);
  return ShowRecord(window, "", "The pension form window is already open.", [&] {
    const FormRow record{window.Form(), ledger.*window.Form().table, row};
    return (!IsRecord(record.cells, row) || HasMonth(ledger, record)) && window.Open(row);
  });
}

// What follows "open", whether it came as one word or as several; "" for anything else.
std::string FormName(const Words& words) {
  if (words.size() < 2 || words[0] != "open") return "";
  return Join({words.begin() + 1, words.end()}, " ");
}

// By practice and month ("1 042024"), for a form of a month alone by that ("042024").
int RowByName(const Ledger& ledger, const PensionForm& form, const std::string& name) {
  const auto blank = name.rfind(' ');
  const bool hasPractice = blank != std::string::npos;
  const std::string practice = hasPractice ? name.substr(0, blank) : "";
  const Month month = Month::OfKey(hasPractice ? name.substr(blank + 1) : name);
  const int row = hasPractice == form.ofPractice ? RowOfForm(ledger, form, month, practice) : -1;
  return row < 0 ? RecordRow(ledger.*form.table, name) : row;
}

template <const PensionForm& form>
bool FormByWords(Ledger& ledger, const Words& words) {
  return form.open(ledger, RowByName(ledger, form, FormName(words)));
}

bool FormsByWords(Ledger& ledger, const Words&) { return OpenPensionForms(ledger); }

}  // namespace

bool OpenPensionForms(Ledger& ledger) {
  if (!ledger.fgSessions.HasData()) {
    ShowMessage(ledger, "Pension forms cannot be created if there are no Sessions.");
    return false;
  }
  frmPensionForms window(ledger);
  ShowModal(window);
  return true;
}

bool OpenFormA(Ledger& ledger, int row) { return ShowForm<frmPensionA>(ledger, row); }
bool OpenFormB(Ledger& ledger, int row) { return ShowForm<frmPensionB>(ledger, row); }
bool OpenFormSolo(Ledger& ledger, int row) { return ShowForm<frmPensionSOLO>(ledger, row); }

void AddPensionWindows(WindowCatalogue& catalogue) {
  catalogue.Add("frmPensionForms", FormsByWords);
  catalogue.Add("frmPensionA", FormByWords<kFormA>);
  catalogue.Add("frmPensionB", FormByWords<kFormB>);
  catalogue.Add("frmPensionSOLO", FormByWords<kFormSolo>);
}

}  // namespace lm
