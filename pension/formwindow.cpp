#include "pension/formwindow.h"

#include <algorithm>

#include "core/change.h"
#include "core/format.h"
#include "core/messagebox.h"
#include "core/rows.h"
#include "core/text.h"
#include "entry/checks.h"
#include "entry/pickedboxes.h"
#include "pension/formlist.h"
#include "pension/formpdf.h"
#include "pension/forms.h"
#include "pension/locks.h"
#include "records/practices.h"
#include "records/sessionrules.h"

namespace lm {
namespace {

constexpr ColumnSpec kDetailColumns[] = {
    {"EDIT", "", DataType::Text, "", -1, true},
    {"LABEL", "", DataType::Text, "", 7000},
    {"VALUE", "", DataType::Money, kAmountFormat, 1500},
    {"LETTER", "", DataType::Text, "", 500},
    {"ICON", "", DataType::Text, "", 500},
};
constexpr TableSpec kDetailTable{"fgDetails", kDetailColumns};
constexpr int kFirstLine = 2;

constexpr std::string_view kNotesTab = "Notes";

}  // namespace

class FormWindow::DetailRules : public GridRules {
 public:
  explicit DetailRules(FormWindow& window) : window_(window) {}

  bool MayEdit(int row, int col) override { return col == ValueCol() && window_.MayEditLine(row); }
  Picker PickerOf(int row, int col) override {
    return MayEdit(row, col) ? Picker::Numbers : Picker::None;
  }
  std::optional<std::string> Accept(int, int, std::string_view text) override {
    return EnterAmount(window_.ledger, text);
  }
  void Edited(int row, int) override { window_.FigureEdited(row); }
  // The dates of the form say it too, but not on the line.
  std::string LockedBy(int row) override {
    const std::string& sent = window_.cSentToHA.Text();
    return window_.IsFigureToType(row) && !sent.empty() ? "Sent to the HA on " + sent : "";
  }
  bool InvitesTyping(int row, int col) override {
    return col == ValueCol() && window_.IsFigureToType(row);
  }
  void Opened(int row) override {
    if (MayEdit(row, ValueCol())) window_.RequestCellEdit(window_.fgDetails, row, ValueCol());
  }

 private:
  int ValueCol() const { return window_.fgDetails.ColIndex("VALUE"); }

  FormWindow& window_;
};

FormWindow::FormWindow(Ledger& theLedger, const PensionForm& form, std::vector<std::string> tabs)
    : Screen(theLedger, "frmPension" + std::string(form.letter)),
      tabMain(this, "tabMain", std::move(tabs)),
      form_(form),
      table_(theLedger.*form.table),
      detailRules_(std::make_unique<DetailRules>(*this)) {
  cMonth.SetVisible(false);
  cPracticeID.SetVisible(false);
  cNotes.multiLine = true;
  cNotes.onEntered = [this] {
    MarkNotes();
    return true;
  };
  BindDate({cSentToHA, cmdSentToHA, "Sent To HA"}, [this] {
    ShowTypedOver();
    return true;
  });
  MakeDetails();
  const auto typedOver = [](const FormFigure& figure) { return figure.editable; };
  lblTypedOver.SetVisible(std::ranges::any_of(form_.figures, typedOver));
  AddGrid(fgDetails, detailRules_.get());

  cmdOk.SetText("&OK");
  cmdOk.onPressed = [this] { Ok(); };
  cmdCancel.SetText("&Cancel");
  cmdCancel.onPressed = [this] { Close(); };
  cmdDeleteForm.SetText("&Delete Form");
  cmdDeleteForm.onPressed = [this] { Delete(); };
  cmdViewFormPDF.SetText("&View Form");
  cmdViewFormPDF.onPressed = [this] { OpenFormDocument(ledger, form_, Row()); };
  defaultButton = &cmdOk;
  cancelButton = &cmdCancel;
  holds = "this form";
}

FormWindow::~FormWindow() = default;

// ---- Showing the form

bool FormWindow::Open(int row) {
  if (!IsRecord(table_, row)) return false;
  openedRow_ = row;
  MakeBlank(working_, *FindTable(table_.Name()));
  working_.AddItem("");
  for (int col = 0; col < working_.Cols(); ++col) {
    const std::string& key = working_.ColKey(col);
    if (key.empty()) continue;
    working_.SetTextMatrix(kWorkingRow, col, table_.TextMatrix(row, key));
    if (Field* field = FindField("c" + key)) field->SetText(working_.TextMatrix(kWorkingRow, col));
  }
  const FormRow record = Record();
  cPracticeID.SetText(record.Practice());
  lblMonth.SetText(record.InMonth().Text("Mmmm yyyy"));
  std::string caption = "Pension Form " + std::string(form_.letter) + " - " + lblMonth.Text();
  if (form_.ofPractice) caption += " - " + PracticeName(ledger, record.Practice());
  SetCaption(caption);
  MarkNotes();
  ShowFigures();
  ShowTypedOver();
  Filled();
  return true;
}

void FormWindow::MakeDetails() {
  MakeFormList(fgDetails, kDetailTable, ledger);
  fgDetails.SetColAlignment(fgDetails.ColIndex("LETTER"), Alignment::Centre);
  for (const FormFigure& line : form_.figures) {
    const int row = fgDetails.AddItem("");
    fgDetails.SetTextMatrix(row, "EDIT", line.editable ? "Y" : "");
    fgDetails.SetTextMatrix(row, "LABEL", line.label);
    fgDetails.SetTextMatrix(row, "LETTER", line.letter);
    if (line.help)
      fgDetails.SetCell(CellSetting::flexcpPicture, row, fgDetails.ColIndex("ICON"), "help");
  }
}

void FormWindow::SetLine(std::size_t line, std::string_view value) {
  fgDetails.SetTextMatrix(kFirstLine + static_cast<int>(line), "VALUE", value);
}

void FormWindow::ShowFigures() {
  const RedrawOff redrawOff(fgDetails);
  const FormRow record = Record();
  for (std::size_t i = 0; i < form_.figures.size(); ++i) {
    const FormFigure& figure = form_.figures[i];
    if (figure.worked && !figure.inWindow.empty()) {
      SetLine(i, Format(figure.worked(record), figure.inWindow));
    } else if (figure.worked) {
      SetLine(i, PlainText(figure.worked(record)));
    } else if (!figure.key.empty()) {
      const std::string cell = record.Cell(figure.key);
      SetLine(i, Trim(cell).empty() ? "0" : cell);
    }
  }
}

void FormWindow::MarkNotes() {
  for (int tab = 0; tab < tabMain.Count(); ++tab)
    if (tabMain.TabCaption(tab) == kNotesTab) tabMain.SetTabMarked(tab, !cNotes.Text().empty());
}

void FormWindow::CellClicked(Grid& grid, int row, int col) {
  if (&grid != &fgDetails || col != fgDetails.ColIndex("ICON")) return;
  if (row < kFirstLine || row >= fgDetails.Rows()) return;
  const FormFigure& figure = form_.figures[static_cast<std::size_t>(row - kFirstLine)];
  if (figure.help) figure.help(ledger, Record());
}

// ---- Changing it

bool FormWindow::MayEditLine(int row) const {
  return IsFigureToType(row) && cSentToHA.Text().empty();
}

bool FormWindow::IsFigureToType(int row) const { return fgDetails.TextMatrix(row, "EDIT") == "Y"; }

void FormWindow::ShowTypedOver() {
  const bool sent = !cSentToHA.Text().empty();
  lblTypedOver.SetText(sent ? "The figures are locked, since the form was sent to the HA on " +
                                  cSentToHA.Text() + "."
                            : "Figures with a pencil may be typed over.");
}

void FormWindow::FigureEdited(int row) {
  const std::string_view key = form_.figures[static_cast<std::size_t>(row - kFirstLine)].key;
  working_.SetTextMatrix(kWorkingRow, key, fgDetails.TextMatrix(row, "VALUE"));
  Recalculate(ledger, form_, working_, kWorkingRow, key);
  figuresChanged_ = true;
  ShowFigures();
}

// Windows opened from this one may have removed or sorted rows; -1 when the form is gone.
int FormWindow::Row() const {
  const auto isForm = [&](int row) {
    const FormRow each{form_, table_, row};
    return each.Cell("MONTH") == cMonth.Text() && each.Practice() == cPracticeID.Text();
  };
  if (IsRecord(table_, openedRow_) && isForm(openedRow_)) return openedRow_;
  for (const int row : Records(table_))
    if (isForm(row)) return row;
  return -1;
}

void FormWindow::TakeFields() {
  for (int col = 0; col < working_.Cols(); ++col)
    if (const Field* field = FindField("c" + working_.ColKey(col)))
      working_.SetTextMatrix(kWorkingRow, col, field->Text());
}

void FormWindow::Ok() {
  Answer recreate = Answer::No;
  if (figuresChanged_)
    recreate = ShowMessage(
        ledger, "Recreate Pension Form",
        "The figures have been changed but a PDF form with the new figures has not been created "
        "yet.\\n\\nDo you want to recreate the pension form now?",
        Buttons::YesNoCancel, Icon::Question);
  if (recreate == Answer::Cancel) return;
  Store();
  if (recreate == Answer::Yes) {
    FormPrinter printer(ledger);
    printer.Write(form_, Row());
    printer.Finish();
  }
  Close();
}

void FormWindow::Store() {
  const int row = Row();
  if (row < 0) return;
  TakeFields();
  const Change change(ledger, "Edit " + std::string(form_.name));
  bool changed = false;
  for (int col = 0; col < working_.Cols(); ++col) {
    const std::string& key = working_.ColKey(col);
    const std::string cell = working_.TextMatrix(kWorkingRow, col);
    if (key.empty() || table_.TextMatrix(row, key) == cell) continue;
    table_.SetTextMatrix(row, key, cell);
    changed = true;
  }
  if (changed) MarkEdited(ledger, table_, row);
}

void FormWindow::Delete() {
  TakeFields();
  if (MayDelete(ledger, Record(), AskedFrom::Window) && DeleteForm(ledger, form_, Row())) Close();
}

}  // namespace lm
