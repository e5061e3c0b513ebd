// The dialog from which a month's forms are made.
#pragma once

#include "core/screen.h"
#include "pension/month.h"

namespace lm {

class FormPrinter;
class MonthSessions;
struct PensionForm;

class frmPensionForms : public Screen {
 public:
  explicit frmPensionForms(Ledger& ledger);

  ComboField cboPractice{this, "cboPractice"};

  TextField txtMonth{this, "txtMonth"};
  LabelField lblMonth{this, "lblMonth"};
  Button cmdMonthDown{this, "cmdMonthDown"};
  Button cmdMonthUp{this, "cmdMonthUp"};

  // Exactly one of the four is ticked: all forms, A, B, SOLO.
  CheckField optForm0{this, "optForm0"};
  CheckField optForm1{this, "optForm1"};
  CheckField optForm2{this, "optForm2"};
  CheckField optForm3{this, "optForm3"};
  LabelField imgPensionHelp1{this, "imgPensionHelp1"};

  LabelField lblPreview{this, "lblPreview"};  // what Prepare Forms would do

  Button cmdPrepareForms{this, "cmdPrepareForms"};
  Button cmdClose{this, "cmdClose"};

 private:
  void BindMonth();
  void Choose(CheckField& option);
  void MoveMonth(int months);
  void ShowMonth();
  Month ChosenMonth() const { return Month::OfCell(txtMonth.Text()); }

  void ShowPreview();
  void PrepareForms();
  // Each returns the number of forms made.
  int PrepareAll(FormPrinter& printer, const MonthSessions& sessions);
  int PrepareOfPractices(FormPrinter& printer, const PensionForm& form,
                         const MonthSessions& sessions);
  int PrepareFormB(FormPrinter& printer, const MonthSessions& sessions);
  int MakeForms(FormPrinter& printer, const PensionForm& form, const MonthSessions& sessions);
};

}  // namespace lm
