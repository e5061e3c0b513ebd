#include "pension/lists.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <span>
#include <system_error>

#include "core/files.h"
#include "core/messagebox.h"
#include "core/numbers.h"
#include "core/options.h"
#include "core/platform.h"
#include "core/rows.h"
#include "core/text.h"
#include "entry/money.h"
#include "pension/formpdf.h"
#include "pension/forms.h"
#include "pension/locks.h"
#include "pension/months.h"
#include "pension/windows.h"
#include "records/practices.h"
#include "records/sessionrules.h"

namespace lm {
namespace {

constexpr std::string_view kReceived = "RCVDFROMPRACTICE";
constexpr std::string_view kInvalidDate = "Please enter a valid date.";
constexpr std::string_view kInvalidAmount = "Please enter a valid amount.";

using Keys = std::span<const std::string_view>;

constexpr std::string_view kDatesByPractice[] = {"SENTTOPRACTICE", kReceived, "SENTTOHA"};
constexpr std::string_view kDateSent[] = {"SENTTOHA"};
constexpr std::string_view kFiguresB[] = {"AVC", "ERRBO", "ADDITIONAL", "EXTRA_YEARS"};
constexpr std::string_view kFiguresSolo[] = {"AVC", "EXTRAYEARS", "ERRBO", "ADDITIONAL"};

bool Contains(Keys keys, std::string_view key) {
  return std::ranges::find(keys, key) != keys.end();
}

// What the lists of forms differ in.
struct FormList {
  std::string_view table;
  std::string_view letter;
  Keys dates;
  Keys figures;  // may be changed until the form is sent
  bool (*open)(Ledger& ledger, int row);
  bool (*mayDelete)(Ledger& ledger, int row, AskedFrom from);
  void (*recalculate)(Ledger& ledger, int row, std::string_view editedKey);
};

constexpr FormList kFormLists[] = {
    {"fgPensionA", "A", kDatesByPractice, {}, OpenFormA, MayDeleteFormA, nullptr},
    {"fgPensionB", "B", kDateSent, kFiguresB, OpenFormB, MayDeleteFormB, RecalculateFormB},
    {"fgPensionSolo", "SOLO", kDateSent, kFiguresSolo, OpenFormSolo, MayDeleteFormSolo,
     RecalculateFormSolo},
    {"fgPensionC", "C", kDatesByPractice, {}, nullptr, nullptr, nullptr},
    {"fgPensionD", "D", kDateSent, {}, nullptr, nullptr, nullptr},
};

const FormList* FindFormList(const Grid& table) {
  const auto list = std::ranges::find(kFormLists, table.Name(), &FormList::table);
  return list == std::end(kFormLists) ? nullptr : list;
}

class FormListRules : public GridRules {
 public:
  FormListRules(Ledger& ledger, Grid& table, const FormList& list)
      : ledger_(ledger), table_(table), list_(list) {}

  bool MayEdit(int row, int col) override {
    if (!IsRecord(table_, row)) return false;
    const std::string& key = table_.ColKey(col);
    if (key == kReceived)
      return MayChangeReceivedDate(ledger_, table_, table_.TextMatrix(row, col));
    if (Contains(list_.figures, key)) return table_.TextMatrix(row, "SENTTOHA").empty();
    return key == "NOTES" || Contains(list_.dates, key);
  }

  Picker PickerOf(int /*row*/, int col) override {
    const std::string& key = table_.ColKey(col);
    if (Contains(list_.figures, key)) return Picker::Numbers;
    return Contains(list_.dates, key) ? Picker::Calendar : Picker::None;
  }

  std::optional<std::string> Accept(int /*row*/, int col, std::string_view text) override {
    const std::string& key = table_.ColKey(col);
    if (Contains(list_.figures, key)) return EnterAmount(ledger_, text);
    if (!Contains(list_.dates, key)) return std::string(text);
    std::optional<std::string> date = EnterDate(ledger_, text, kInvalidDate);
    if (date && key == kReceived && !MaySetReceivedDate(ledger_, table_, *date, AskedFrom::List))
      return std::nullopt;
    return date;
  }

  void Edited(int row, int col) override {
    const std::string key = table_.ColKey(col);
    if (Contains(list_.figures, key)) list_.recalculate(ledger_, row, key);
    MarkEdited(ledger_, table_, row);
  }

  void Opened(int row) override {
    if (!IsRecord(table_, row)) return;
    if (list_.open)
      list_.open(ledger_, row);
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
    } else if (!list_.mayDelete) {
      ShowMessage(ledger_, "Delete Pension Form",
                  "Forms C and D cannot be made any more, so that those there are stay.");
    } else if (list_.mayDelete(ledger_, row, AskedFrom::List)) {
      Delete(row);
    }
  }

  std::vector<MenuEntry> ContextMenu(int row) override {
    const bool onForm = IsRecord(table_, row);
    const auto open = [this, row](bool recreate) {
      return [this, row, recreate] { OpenDocumentOfRow(ledger_, table_, row, recreate); };
    };
    return {{"&Edit Form", [this, row] { Opened(row); }, onForm},
            {"&Open Document", open(false), onForm},
            {"&Recreate then Open", open(true), onForm && list_.open},
            {"", {}},
            {"&Delete Form", [this, row] { DeletePressed(row); }, onForm}};
  }

 private:
  void Delete(int row) {
    const std::string practice = table_.TextMatrix(row, "PRACTICE");
    const std::string month = MonthKeyOf(table_.TextMatrix(row, "MONTH"));
    if (list_.letter == "A")
      DeleteFormA(ledger_, practice, month);
    else if (list_.letter == "B")
      DeleteFormB(ledger_, month);
    else
      DeleteFormSolo(ledger_, practice, month);
  }

  Ledger& ledger_;
  Grid& table_;
  const FormList& list_;
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
    if (IsDate(key)) return EnterDate(ledger_, text, kInvalidDate);
    return key == "AMOUNT" ? EnterAmount(ledger_, text) : std::string(text);
  }

  void Edited(int row, int col) override {
    if (table_.ColKey(col) == "FORM" && table_.TextMatrix(row, col) == "B")
      table_.SetTextMatrix(row, "PRACTICE", "");
    MarkEdited(ledger_, table_, row);
  }

  void AddPressed() override { AddPayment(ledger_); }

  void DeletePressed(int row) override {
    if (!IsRecord(table_, row))
      ShowMessage(ledger_, "Delete Pension Payment", "There is no payment selected to delete.");
    else if (Ask(ledger_, "Delete Pension Payment", "Delete the selected payment?"))
      table_.RemoveItem(row);
  }

  std::vector<MenuEntry> ContextMenu(int row) override {
    return {{"&Add Payment", [this] { AddPressed(); }},
            {"&Delete Payment", [this, row] { DeletePressed(row); }, IsRecord(table_, row)}};
  }

 private:
  static bool IsDate(std::string_view key) { return key == "PAYDATE" || key == "MONTH"; }

  Ledger& ledger_;
  Grid& table_;
};

// Forms C and D were written by earlier versions under names of the same kind.
bool OpenRetiredDocument(Ledger& ledger, const FormList& list, const Grid& table, int row) {
  const std::string practice = NameForFile(PracticeName(ledger, table.TextMatrix(row, "PRACTICE")));
  const std::string month = MonthText(MonthKeyOf(table.TextMatrix(row, "MONTH")), "mmm yy");
  const std::filesystem::path file =
      ledger.File("Pension Forms") /
      PathFromText("Form" + std::string(list.letter) + "_" +
                   (practice.empty() ? "" : practice + "_") + month + ".pdf");
  std::error_code ignored;
  if (std::filesystem::exists(file, ignored)) return OpenLink(ledger, PathText(file));
  ShowMessage(ledger, "The document of this form is not there",
              "Forms C and D cannot be made any more. The file would be\\n" + PathText(file));
  return false;
}

}  // namespace

std::optional<std::string> EnterAmount(Ledger& ledger, std::string_view typed) {
  if (Trim(typed).empty()) return "";
  std::string amount = MoneyCell(typed);
  if (!amount.empty()) return amount;
  ShowMessage(ledger, kInvalidAmount);
  return std::nullopt;
}

std::unique_ptr<GridRules> PensionListRules(Ledger& ledger, Grid& table) {
  if (const FormList* list = FindFormList(table))
    return std::make_unique<FormListRules>(ledger, table, *list);
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
  const int row = AddRecord(ledger, payments);
  const std::pair<std::string_view, std::string_view> cells[] = {
      {"ID", id}, {"PAYDATE", today}, {"MONTH", today}, {"AMOUNT", "0"}, {"FORM", "B"}};
  for (const auto& [key, text] : cells) payments.SetTextMatrix(row, key, text);
  payments.Select(row, payments.ColIndex("AMOUNT"));
  return row;
}

bool OpenDocumentOfRow(Ledger& ledger, const Grid& table, int row, bool recreate) {
  const FormList* list = FindFormList(table);
  if (!list || !IsRecord(table, row)) {
    ShowMessage(ledger, "View Pension Form",
                "Select a pension form to view by clicking on any row.");
    return false;
  }
  if (!list->open) return OpenRetiredDocument(ledger, *list, table, row);
  const FormKind kind = list->letter == "A"   ? FormKind::A
                        : list->letter == "B" ? FormKind::B
                                              : FormKind::Solo;
  return OpenFormDocument(ledger, kind, MonthKeyOf(table.TextMatrix(row, "MONTH")),
                          table.TextMatrix(row, "PRACTICE"), recreate);
}

}  // namespace lm
