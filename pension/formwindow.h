// What the windows of Forms A, B and SOLO share. Each shows one form as the paper has it and holds
// a working copy of its row: nothing but a deletion reaches the table before Ok.
#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/numbers.h"
#include "core/screen.h"
#include "pension/formpdf.h"

namespace lm {

class FormWindow;

constexpr std::string_view kSentToHANote =
    "Values cannot be changed and the Form cannot be deleted if the \"Sent to HA\" date has been "
    "set.";

// A line of fgDetails. It shows a cell of the form or a figure worked out from several; neither is
// a line that the window fills itself, or a label alone.
struct FormLine {
  std::string_view label;
  std::string_view letter = "";  // the box of the paper form
  std::string_view key = "";
  Double (*figure)(const FormWindow& form) = nullptr;
  bool editable = false;
  void (*help)(FormWindow& form) = nullptr;
};

struct FormWindowSpec {
  std::string_view name;   // "frmPensionA"
  std::string_view title;  // "Pension Form A"
  FormKind kind;
  Grid Ledger::*table;
  std::span<const FormLine> lines;
};

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
  TextField cNotes{this, "cNotes"};

  Grid fgDetails{"fgDetails"};

  Button cmdOk{this, "cmdOk"};
  Button cmdCancel{this, "cmdCancel"};
  Button cmdDeleteForm{this, "cmdDeleteForm"};
  Button cmdViewFormPDF{this, "cmdViewFormPDF"};

  // Of the working copy: a cell, and the pounds in it (0 for what is no number).
  std::string Cell(std::string_view key) const;
  Double Pounds(std::string_view key) const;
  std::string MonthKey() const;
  std::string PracticeId() const { return cPracticeID.Text(); }

  // A press on the ICON cell of a line with a help mark shows its help.
  void CellClicked(Grid& grid, int row, int col) override;

 protected:
  FormWindow(Ledger& ledger, const FormWindowSpec& spec, std::vector<std::string> tabs);

  // A date with its popup; `changed` runs after another date was typed or picked, and false there
  // refuses it.
  void BindDate(TextField& box, Button& button, std::string_view caption,
                std::function<bool()> changed = {});
  void SetLine(std::size_t line, std::string_view value);
  Grid& Working() { return working_; }
  static constexpr int kWorkingRow = 2;

 private:
  class DetailRules;

  // After the working copy was filled.
  virtual void Filled() {}
  // After a figure of the working copy was changed.
  virtual void Recalculate(std::string_view /*editedKey*/) {}
  virtual bool MayDelete() = 0;
  virtual bool DeleteForm() = 0;

  void MakeDetails();
  void ShowFigures();
  void MarkNotes();
  bool MayEditLine(int row) const;
  void FigureEdited(int row);
  int Row() const;
  void TakeFields();
  void Ok();
  void Store();
  void Delete();

  const FormWindowSpec& spec_;
  Grid& table_;
  Grid working_{"fgWorking"};  // the form's columns with one row
  int openedRow_ = -1;
  bool figuresChanged_ = false;
  std::unique_ptr<DetailRules> detailRules_;
};

}  // namespace lm
