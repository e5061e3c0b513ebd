// The dialog from which a month's forms are made.
#pragma once

#include <string>

#include "core/screen.h"

namespace lm {

class FormPrinter;
class MonthSessions;

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

  Button cmdPrepareForms{this, "cmdPrepareForms"};
  Button cmdClose{this, "cmdClose"};

 private:
  void BindMonth();
  void Choose(CheckField& option);
  void MoveMonth(int months);
  void ShowMonth();
  std::string MonthKey() const;

  void PrepareForms();
  void PrepareFormsA(FormPrinter& printer, const MonthSessions& sessions);
  void PrepareFormB(FormPrinter& printer);
  void PrepareFormsSolo(FormPrinter& printer, const MonthSessions& sessions);
  void PrepareAll(FormPrinter& printer, const MonthSessions& sessions);
  int MakeFormsA(FormPrinter& printer, const MonthSessions& sessions);
  int MakeFormsSolo(FormPrinter& printer, const MonthSessions& sessions);
};

}  // namespace lm
