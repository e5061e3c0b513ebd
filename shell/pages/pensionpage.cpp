#include "shell/pages/pensionpage.h"

#include "core/messagebox.h"
#include "core/options.h"
#include "core/text.h"
#include "pension/form.h"
#include "pension/lists.h"

namespace lm {
namespace {

constexpr PageSpec kSpec{Page::Pension, "Pension", "pension", "mnuViewPension", "cmdPensionPage"};

struct FormTab {
  Grid Ledger::*table;
  std::string_view title;  // on paper
  RecordList::Texts texts;
};

// In the order of tabForm.
constexpr FormTab kTabs[] = {
    {&Ledger::fgPensionA,
     "Locum Form A",
     {"Forms A",
      "No Forms A yet. They are made from a month's NHS Normal sessions: begin with the green "
      "plus."}},
    {&Ledger::fgPensionB,
     "Locum Form B",
     {"Forms B",
      "No Forms B yet. Enter the day each Form A came back from its practice, then make the "
      "month's Form B with the green plus."}},
    {&Ledger::fgPensionSolo,
     "Locum Form Solo",
     {"Forms SOLO",
      "No Forms SOLO yet. They are made from a month's NHS OOH sessions: begin with the green "
      "plus."}},
    {&Ledger::fgPensionC,
     "Locum Form C",
     {"Forms C", "There are no Forms C. They belong to earlier years."}},
    {&Ledger::fgPensionD,
     "Locum Form D",
     {"Forms D", "There are no Forms D. They belong to earlier years."}},
    {&Ledger::fgPensionPayments,
     "Pension Payments",
     {"Pension payments", "No pension payments yet. Record the first one with the green plus."}},
};

bool IsRetired(const Grid& table) {
  const PensionForm* form = FormOfTable(table);
  return form && form->IsRetired();
}

}  // namespace

PensionPage::PensionPage(frmMain& theWindow) : MainPage(theWindow, kSpec) {
  AddLists();
  AddButtons();
  AddCommands();
  AddTip({"Pension Forms",
          "There is one Form A for each practice and month, one Form B for each month and one Form "
          "SOLO for each out-of-hours provider and month."});
  TabChosen();
}

void PensionPage::AddLists() {
  for (const FormTab& tab : kTabs) {
    Grid& table = ledger.*tab.table;
    rules_.push_back(PensionListRules(ledger, table));
    AddList(table, tab.texts, rules_.back().get());
  }
  SetTabs(tabForm);
  SetFilter(txtFilterPension);
  tabForm.onEntered = [this] {
    TabChosen();
    return true;
  };
}

void PensionPage::AddButtons() {
  const auto onForms = [this] { return !OnPayments(); };
  AddButton({&cmdAddPensionForm, "plus"}, "", [this] { Add(); });
  AddButton({&cmdEditPensionForm, "edit", "", onForms}, "Edit Form", [this] { Edit(); });
  AddButton({&cmdViewPensionForm, "pdf", "", onForms}, "View Form",
            [this] { OpenDocument(false); });
  AddButton({&cmdViewPensionForm_Options, "down", "", onForms, "mnuPopDocument"}, "",
            [this] { OpenDocument(false); });
  cmdViewPensionForm_Options.SetToolTip("Open or recreate the form's document");
  AddButton({&cmdDeletePensionForm, "delete"}, "", [this] { DeleteSelected(List()); });
  SetItemButtons(cmdAddPensionForm, cmdEditPensionForm, cmdDeletePensionForm);
}

void PensionPage::AddCommands() {
  OnCommand("mnuPopOpenDocument", {[this] { OpenDocument(false); }});
  OnCommand("mnuPopRecreateAndOpenDocument", {[this] { OpenDocument(true); }});

  SetListMenu("mnuPopPension");
  OfferEntry("cmdAddPensionForm");
  OfferEntry("cmdDeletePensionForm", [this] { return EnabledIf(List().OnRecord()); });
  const auto onForm = [this] {
    return OnPayments() ? Offer::Hidden : EnabledIf(List().OnRecord());
  };
  OfferEntry("cmdEditPensionForm", onForm);
  OfferEntry("mnuPopOpenDocument", onForm);
  OfferEntry("mnuPopRecreateAndOpenDocument",
             [=, this] { return IsRetired(List().Table()) ? Offer::Disabled : onForm(); });
}

void PensionPage::BringToFront(const Grid& grid) {
  for (int tab = 0; tab < tabForm.Count(); ++tab)
    if (&(ledger.*kTabs[tab].table) == &grid) tabForm.SetSelected(tab);
  TabChosen();
}

std::string PensionPage::Title() const {
  return std::string(kTabs[static_cast<std::size_t>(tabForm.Selected())].title);
}

void PensionPage::DataLoaded() {
  MainPage::DataLoaded();
  const bool retired = !EqualsIgnoreCase(GetOption(ledger, optHasRetiredForms), "FALSE");
  for (int tab = 0; tab < tabForm.Count(); ++tab)
    tabForm.SetTabVisible(tab, retired || !IsRetired(ledger.*kTabs[tab].table));
  if (tabForm.TabVisible(tabForm.Selected())) return;
  tabForm.SetSelected(0);
  TabChosen();
}

bool PensionPage::OnPayments() const { return &List().Table() == &ledger.fgPensionPayments; }

void PensionPage::TabChosen() {
  cmdAddPensionForm.SetText(OnPayments() ? "Add Payment" : "Prepare Pension Forms");
  cmdDeletePensionForm.SetText(OnPayments() ? "Delete Payment" : "Delete Form");
  RefreshButtons();
  window.LayOut();
}

void PensionPage::Add() {
  Grid& payments = ledger.fgPensionPayments;
  const int rows = payments.Rows();
  Rules().AddPressed();
  if (OnPayments() && payments.Rows() > rows)
    window.RequestCellEdit(payments, payments.Row(), payments.Col());
}

void PensionPage::Edit() {
  const std::string title = "Edit " + tabForm.Text();
  if (List().SelectedRow() < 0)
    ShowMessage(ledger, title, "Select a pension form to view by clicking on any row.");
  else if (!List().OnRecord())
    ShowMessage(ledger, title, "Select an ungrouped row.");
  else
    Rules().Opened(List().SelectedRow());
}

void PensionPage::OpenDocument(bool recreate) {
  OpenDocumentOfRow(ledger, List().Table(), List().SelectedRow(), recreate);
}

}  // namespace lm
