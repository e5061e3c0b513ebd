// What the windows of Forms A, B and SOLO share. Each shows one form as the paper has it and holds
// a working copy of its row: nothing but a deletion reaches the table before Ok.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/screen.h"
#include "pension/form.h"

namespace lm {

constexpr std::string_view kSentToHANote =
    "Values cannot be changed and the Form cannot be deleted if the \"Sent to HA\" date has been "
    "set.";

class FormWindow : public Screen {
 public:
  ~FormWindow() override;

  // Shows the form of this row of its table. False for what is no form.
  bool Open(int row);

  TabField tabMain;

  // A column of the form's table is bound to the control "c" + its key. Month and practice tell
  // which form it is and are never shown.
  TextField cMonth{this, "cMonth"};
  TextField cPracticeID{this, "cPracticeID"};
  LabelField lblMonth{this, "lblMonth"};
  TextField cSentToHA{this, "cSentToHA"};
  Button cmdSentToHA{this, "cmdSentToHA"};
  LabelField lblTypedOver{this, "lblTypedOver"};
  TextField cNotes{this, "cNotes"};

  Grid fgDetails{"fgDetails"};

  Button cmdOk{this, "cmdOk"};
  Button cmdCancel{this, "cmdCancel"};
  Button cmdDeleteForm{this, "cmdDeleteForm"};
  Button cmdViewFormPDF{this, "cmdViewFormPDF"};

  const PensionForm& Form() const { return form_; }
  // The working copy.
  FormRow Record() const { return {form_, working_, kWorkingRow}; }

 protected:
  FormWindow(Ledger& ledger, const PensionForm& form, std::vector<std::string> tabs);

  // A press on the ICON cell of a line with a help mark shows its help.
  void CellClicked(Grid& grid, int row, int col) override;
  // A date with its popup; `changed` runs after another date was typed or picked, and false there
  // refuses it.
  void SetLine(std::size_t line, std::string_view value);

 private:
  class DetailRules;
  static constexpr int kWorkingRow = 2;

  // After the working copy was filled.
  virtual void Filled() = 0;

  void MakeDetails();
  void ShowFigures();
  void MarkNotes();
  bool MayEditLine(int row) const;
  bool IsFigureToType(int row) const;
  void ShowTypedOver();
  void FigureEdited(int row);
  int Row() const;
  void TakeFields();
  void Ok();
  void Store();
  void Delete();

  const PensionForm& form_;
  Grid& table_;
  Grid working_{"fgWorking"};  // the form's columns with one row
  int openedRow_ = -1;
  bool figuresChanged_ = false;
  std::unique_ptr<DetailRules> detailRules_;
};

}  // namespace lm
