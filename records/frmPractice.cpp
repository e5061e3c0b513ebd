#include "records/frmPractice.h"

#include "core/change.h"
#include "core/numbers.h"
#include "core/options.h"
#include "core/rows.h"
#include "entry/checks.h"
#include "entry/pickers.h"
#include "records/practices.h"
#include "records/sessionrules.h"

namespace lm {

frmPractice::frmPractice(Ledger& theLedger) : Screen(theLedger, "frmPractice", "Practice") {
  txtID.SetVisible(false);
  for (TextField* box : {&txtPartners, &txtNotes, &txtInvoiceNote, &txtGPNet_Match})
    box->multiLine = true;

  lblMileageHelp.SetText(
      "Return distance between home and the practice (used for mileage expenses).");
  lblInvoiceNoteHelp.SetText(
      "This default invoice note overrides any default invoice note specified on the Options "
      "screen.");
  lblRatesHelp.SetText("These rates override any specified on the Options screen.");
  lblRatesUse.SetText(
      "If  rates are specified here, the session rate is calculated automatically when the session "
      "duration or type is changed.");

  const bool retiredForms = OptionIsTrue(ledger, optHasRetiredForms);
  txtRate_OOHD.SetVisible(retiredForms);
  cmdRate_OOHD.SetVisible(retiredForms);

  cmdOk.SetText("&OK");
  cmdCancel.SetText("&Cancel");
  defaultButton = &cmdOk;
  cancelButton = &cmdCancel;
  holds = "this practice";
  Bind();
}

void frmPractice::Bind() {
  const std::pair<TextField*, Button*> rates[] = {{&txtRate_Normal, &cmdRate_Normal},
                                                  {&txtRate_OOHS, &cmdRate_OOHS},
                                                  {&txtRate_OOHD, &cmdRate_OOHD},
                                                  {&txtRate_Unpensioned, &cmdRate_Unpensioned},
                                                  {&txtRate_Private, &cmdRate_Private}};
  for (const auto& [box, button] : rates) {
    box->onEntered = [this, field = box] { return CheckRate(*field); };
    button->onPressed = [this, field = box] { OpenPicker(*this, *field, Picker::Numbers, "Rate"); };
  }
  txtMileage.onEntered = [this] { return CheckMileage(); };
  cmdOk.onPressed = [this] { Save(); };
  cmdCancel.onPressed = [this] { Close(); };
}

Field* frmPractice::BoxOf(int col) const {
  const std::string& key = ledger.fgPractices.ColKey(col);
  return key.empty() ? nullptr : FindField("txt" + key);
}

void frmPractice::Load(int row) {
  for (int col = 0; col < ledger.fgPractices.Cols(); ++col)
    if (Field* box = BoxOf(col)) box->SetText(ledger.fgPractices.TextMatrix(row, col));
}

void frmPractice::New() {
  SetCaption("New Practice");
  Load(-1);
  txtName.SetText("[New Practice]");
  Focus(txtName);
}

bool frmPractice::Open(std::string_view id) {
  const int row = RecordRow(ledger.fgPractices, id);
  if (row < 0) return false;
  SetCaption("Practice");
  Load(row);
  return true;
}

bool frmPractice::CheckRate(Field& field) {
  const auto rate = EnterRate(ledger, field.Text());
  if (rate) field.SetText(*rate);
  return rate.has_value();
}

bool frmPractice::CheckMileage() {
  const auto miles = MileageText(txtMileage.Text());
  if (miles) txtMileage.SetText(*miles);
  return miles.has_value();
}

void frmPractice::Save() {
  Grid& practices = ledger.fgPractices;
  int row = RecordRow(practices, txtID.Text());
  const Change change(ledger, row < 0 ? "New Practice" : "Edit Practice");
  if (row < 0) {
    txtID.SetText(PlainText(NextId(practices)));
    row = AddRecord(ledger, practices);
  }
  for (int col = 0; col < practices.Cols(); ++col)
    if (const Field* box = BoxOf(col)) practices.SetTextMatrix(row, col, box->Text());
  MarkEdited(ledger, practices, row);
  practices.Select(row, std::max(practices.Col(), practices.FixedCols()));
  Close();
}

}  // namespace lm
