#include "pension/windows.h"

#include <vector>

#include "core/messagebox.h"
#include "core/text.h"
#include "pension/forms.h"
#include "pension/frmPensionA.h"
#include "pension/frmPensionB.h"
#include "pension/frmPensionForms.h"
#include "pension/frmPensionSOLO.h"

namespace lm {
namespace {

using Words = std::vector<std::string>;

// One window of a kind at a time: two working copies would overwrite each other's rows.
template <typename Window>
bool ShowForm(Ledger& ledger, int row) {
  Window window(ledger);
  if (OpenScreen(ledger, window.Name())) {
    ShowMessage(ledger, "The pension form window is already open.");
    return false;
  }
  if (!window.Open(row)) return false;
  ShowModal(window);
  return true;
}

int RowOfId(const Grid& forms, std::string_view id) {
  const int col = forms.ColIndex("ID");
  int row = id.empty() ? -1 : forms.FindRow(id, -1, col);
  while (row >= 0 && forms.IsSubtotal(row)) row = forms.FindRow(id, row + 1, col);
  return row;
}

// What follows "open", whether it came as one word or as several; "" for anything else.
std::string FormName(const Words& words) {
  if (words.size() < 2 || words[0] != "open") return "";
  return Join({words.begin() + 1, words.end()}, " ");
}

// A form of a practice's month ("1 042024").
int RowOfPracticeForm(const Ledger& ledger, const Grid& forms, const std::string& name,
                      int (*formRow)(const Ledger&, const std::string&, std::string_view)) {
  const auto blank = name.rfind(' ');
  const int row = blank == std::string::npos
                      ? -1
                      : formRow(ledger, name.substr(0, blank), name.substr(blank + 1));
  return row < 0 ? RowOfId(forms, name) : row;
}

bool FormsByWords(Ledger& ledger, const Words&) { return OpenPensionForms(ledger); }

bool FormAByWords(Ledger& ledger, const Words& words) {
  return OpenFormA(ledger, RowOfPracticeForm(ledger, ledger.fgPensionA, FormName(words), FormARow));
}

bool FormBByWords(Ledger& ledger, const Words& words) {
  const std::string name = FormName(words);
  const int row = FormBRow(ledger, name);
  return OpenFormB(ledger, row < 0 ? RowOfId(ledger.fgPensionB, name) : row);
}

bool FormSoloByWords(Ledger& ledger, const Words& words) {
  return OpenFormSolo(
      ledger, RowOfPracticeForm(ledger, ledger.fgPensionSolo, FormName(words), FormSoloRow));
}

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
  catalogue.Add("frmPensionA", FormAByWords);
  catalogue.Add("frmPensionB", FormBByWords);
  catalogue.Add("frmPensionSOLO", FormSoloByWords);
}

}  // namespace lm
