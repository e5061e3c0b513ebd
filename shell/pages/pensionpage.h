// The Pension page: the forms of each kind and the payments, a tab for each.
#pragma once

#include <memory>
#include <vector>

#include "shell/pages/mainpage.h"

namespace lm {

class PensionPage : public MainPage {
 public:
  explicit PensionPage(frmMain& window);

  TabField tabForm{
      &window, "tabForm", {"Form A", "Form B", "Form SOLO", "Form C", "Form D", "Payments"}};
  TextField txtFilterPension{&window, "txtFilterPension"};
  Button cmdAddPensionForm{&window, "cmdAddPensionForm"};  // on the tab of payments: adds one
  Button cmdEditPensionForm{&window, "cmdEditPensionForm"};
  Button cmdViewPensionForm{&window, "cmdViewPensionForm"};
  Button cmdViewPensionForm_Options{&window, "cmdViewPensionForm_Options"};
  Button cmdDeletePensionForm{&window, "cmdDeletePensionForm"};

  Grid* GridInFront() const override { return &List().Table(); }
  void BringToFront(const Grid& grid) override;
  std::string Title() const override;
  // The tabs of the retired Forms C and D show only to users who have such forms.
  void DataLoaded() override;

 private:
  void AddLists();
  void AddButtons();
  void AddCommands();
  RecordList& List() const { return *Lists()[static_cast<std::size_t>(tabForm.Selected())]; }
  GridRules& Rules() const { return *rules_[static_cast<std::size_t>(tabForm.Selected())]; }
  bool OnPayments() const;
  void TabChosen();
  void Add();
  void Edit();
  void OpenDocument(bool recreate);

  std::vector<std::unique_ptr<GridRules>> rules_;  // in the order of tabForm
};

}  // namespace lm
