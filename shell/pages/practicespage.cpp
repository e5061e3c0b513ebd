#include "shell/pages/practicespage.h"

namespace lm {
namespace {

constexpr PageSpec kSpec{Page::Practices, "Practices", "practices", "mnuViewPractices",
                         "cmdPracticePage"};

constexpr RecordList::Texts kTexts{"Practices",
                                   "No practices yet. Add the first one with the green plus."};

}  // namespace

PracticesPage::PracticesPage(frmMain& theWindow)
    : MainPage(theWindow, kSpec), list_(AddList(ledger.fgPractices, kTexts, &rules_)) {
  SetFilter(txtFilterPractices);
  AddButton({&cmdAddPractice, "plus", "frmPractice"}, "Add Practice",
            [this] { rules_.AddPressed(); });
  AddButton({&cmdEditPractice, "edit", "frmPractice"}, "Edit Practice", [this] {
    const int row = list_.SelectedRecord("Edit Practice", "There is no practice selected to edit.");
    if (row >= 0) rules_.Opened(row);
  });
  AddButton({&cmdDeletePractice, "delete"}, "Delete Practice", [this] { DeleteSelected(list_); });
  SetItemButtons(cmdAddPractice, cmdEditPractice, cmdDeletePractice);

  SetListMenu("mnuPopPractices");
  OfferEntry("cmdAddPractice");
  for (const char* entry : {"cmdEditPractice", "cmdDeletePractice"})
    OfferEntry(entry, [this] { return EnabledIf(list_.OnRecord()); });

  AddTip({"Practices",
          "This page lists the practices you work at. Double click a practice to open it. Hourly "
          "rates entered here come before the rates on the Options screen."});
  AddListTips([this] { return ledger.fgPractices.HasData(); });
}

}  // namespace lm
