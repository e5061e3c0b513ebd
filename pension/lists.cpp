#include "pension/lists.h"

#include <algorithm>

#include "core/change.h"
#include "core/messagebox.h"
#include "core/numbers.h"
#include "core/platform.h"
#include "core/rows.h"
#include "entry/checks.h"
#include "pension/formpdf.h"
#include "pension/forms.h"
#include "pension/locks.h"
#include "pension/windows.h"

namespace lm {
namespace {

constexpr std::string_view kReceived = "RCVDFROMPRACTICE";

bool IsDate(const PensionForm& form, std::string_view key) {
  return std::ranges::find(form.sent->dates, key) != form.sent->dates.end();
}

class FormListRules : public GridRules {
 public:
  FormListRules(Ledger& ledger, Grid& table, const PensionForm& form)
      : ledger_(ledger), table_(table), form_(form) {}

  bool MayEdit(int row, int col) override {
    if (!IsRecord(table_, row)) return false;
    const std::string& key = table_.ColKey(col);
    if (key == kReceived) return MayChangeReceivedDate(ledger_, form_, table_.TextMatrix(row, col));
    if (form_.EditableFigure(key)) return table_.TextMatrix(row, "SENTTOHA").empty();
    return key == "NOTES" || IsDate(form_, key);
  }

  Picker PickerOf(int /*row*/, int col) override {
    const std::string& key = table_.ColKey(col);
    if (form_.EditableFigure(key)) return Picker::Numbers;
    return IsDate(form_, key) ? Picker::Calendar : Picker::None;
  }

  std::optional<std::string> Accept(int /*row*/, int col, std::string_view text) override {
    const std::string& key = table_.ColKey(col);
    if (form_.EditableFigure(key)) return EnterAmount(ledger_, text);
    if (!IsDate(form_, key)) return std::string(text);
    std::optional<std::string> date = EnterDate(ledger_, text);
    if (date && key == kReceived && !MaySetReceivedDate(ledger_, form_, *date, AskedFrom::List))
      return std::nullopt;
    return date;
  }

  void Edited(int row, int col) override {
    const std::string key = table_.ColKey(col);
    Recalculate(ledger_, form_, table_, row, key);
    MarkEdited(ledger_, table_, row);
  }

  std::string LockedBy(int row) override {
    return IsRecord(table_, row) ? FormLockText(ledger_, {form_, table_, row}) : "";
  }

  void LockPressed(int row) override {
    if (LockedBy(row).empty()) return;
    const int other = RowTakenUpBy(ledger_, {form_, table_, row});
    if (other >= 0 && form_.takenUpBy->open)
      form_.takenUpBy->open(ledger_, other);
    else
      Opened(row);
  }

  void Opened(int row) override {
    if (!IsRecord(table_, row)) return;
    if (form_.open)
      form_.open(ledger_, row);
    else
      ShowMessage(ledger_,
                  "To open the pension form, click the PDF button (red and white button) at the "
                  "top of the page.",
                  "", Buttons::Ok, Icon::Information);
  }

  void AddPressed() override { OpenPensionForms(ledger_); }

  void DeletePressed(int row) override {
    if (!IsRecord(table_, row)) {
      const bool onGroup = row >= table_.FixedRows();
      ShowMessage(ledger_, "Delete Pension Form",
                  onGroup ? "Select an ungrouped row." : "There is no form selected to delete.");
    } else if (MayDelete(ledger_, {form_, table_, row}, AskedFrom::List)) {
      DeleteForm(ledger_, form_, row);
    }
  }

 private:
  Ledger& ledger_;
  Grid& table_;
  const PensionForm& form_;
};

class PaymentListRules : public GridRules {
 public:
  explicit PaymentListRules(Ledger& ledger) : ledger_(ledger), table_(ledger.fgPensionPayments) {}

  bool MayEdit(int row, int col) override {
    const std::string& key = table_.ColKey(col);
    if (!IsRecord(table_, row) || key.empty() || key == "ID") return false;
    // A Form B goes to no provider.
    return key != "PRACTICE" || table_.TextMatrix(row, "FORM") != "B";
  }

  Picker PickerOf(int /*row*/, int col) override {
    const std::string& key = table_.ColKey(col);
    if (key == "AMOUNT") return Picker::Numbers;
    return IsDate(key) ? Picker::Calendar : Picker::None;
  }

  std::optional<std::string> Accept(int /*row*/, int col, std::string_view text) override {
    const std::string& key = table_.ColKey(col);
    if (IsDate(key)) return EnterDate(ledger_, text);
    return key == "AMOUNT" ? EnterAmount(ledger_, text) : std::string(text);
  }

  void Edited(int row, int col) override {
    if (table_.ColKey(col) == "FORM" && table_.TextMatrix(row, col) == "B")
      table_.SetTextMatrix(row, "PRACTICE", "");
    MarkEdited(ledger_, table_, row);
  }

  void AddPressed() override { AddPayment(ledger_); }

  void DeletePressed(int row) override {
    if (!IsRecord(table_, row)) {
      ShowMessage(ledger_, "Delete Pension Payment", "There is no payment selected to delete.");
    } else if (Ask(ledger_, "Delete Pension Payment", "Delete the selected payment?")) {
      const Change change(ledger_, "Delete Pension Payment");
      table_.RemoveItem(row);
    }
  }

 private:
  static bool IsDate(std::string_view key) { return key == "PAYDATE" || key == "MONTH"; }

  Ledger& ledger_;
  Grid& table_;
};

}  // namespace

std::unique_ptr<GridRules> PensionListRules(Ledger& ledger, Grid& table) {
  if (const PensionForm* form = FormOfTable(table))
    return std::make_unique<FormListRules>(ledger, table, *form);
  return std::make_unique<PaymentListRules>(ledger);
}

int AddPayment(Ledger& ledger) {
  if (!ledger.fgPractices.HasData()) {
    ShowMessage(ledger, "Pension payments cannot be created if there are no Practices.");
    return -1;
  }
  Grid& payments = ledger.fgPensionPayments;
  const std::string today = CellText(ledger.platform.clock.Now());
  const std::string id = PlainText(NextId(payments));
  const Change change(ledger, "Add Payment");
  const int row = AddRecord(ledger, payments);
  const std::pair<std::string_view, std::string_view> cells[] = {
      {"ID", id}, {"PAYDATE", today}, {"MONTH", today}, {"AMOUNT", "0"}, {"FORM", "B"}};
  for (const auto& [key, text] : cells) payments.SetTextMatrix(row, key, text);
  payments.Select(row, payments.ColIndex("AMOUNT"));
  return row;
}

bool OpenDocumentOfRow(Ledger& ledger, const Grid& table, int row, bool recreate) {
  const PensionForm* form = FormOfTable(table);
  if (!form || !IsRecord(table, row)) {
    ShowMessage(ledger, "View Pension Form",
                "Select a pension form to view by clicking on any row.");
    return false;
  }
  return OpenFormDocument(ledger, *form, row, recreate);
}

}  // namespace lm
