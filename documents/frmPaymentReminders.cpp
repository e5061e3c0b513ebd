#include "documents/frmPaymentReminders.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <unordered_set>

#include "core/format.h"
#include "core/messagebox.h"
#include "core/platform.h"
#include "core/pounds.h"
#include "core/rows.h"
#include "core/tables.h"
#include "core/text.h"
#include "documents/reminders.h"
#include "entry/ticks.h"
#include "records/practices.h"
#include "records/windows.h"

namespace lm {
namespace {

// Whoever was reminded within these days is not ticked beforehand.
constexpr int kDaysOfPatience = 7;

constexpr ColumnSpec kColumns[] = {
    {"SEND", "Send", DataType::Text, "", 700},
    {"PRACTICE", "Practice", DataType::Text, "", 3400},
    {"INVOICES", "Overdue\nInvoices", DataType::Money, "0", 1000},
    {"AMOUNT", "Overdue\nAmount", DataType::Money, kAmountFormat, 1300},
    {"DAYS", "Days\nOverdue", DataType::Money, "0", 1000},
    {"TOTAL", "All That\nIs Owed", DataType::Money, kAmountFormat, 1300},
    {"REMINDDATE", "Last\nReminder", DataType::Date, "", 1300},
    {"EMAIL", "E-mail Address", DataType::Text, "", 3000},
};
constexpr TableSpec kTable{"fgReminders", kColumns};

bool RemindedLately(const Statement& statement, Date today) {
  const auto last = CellDate(statement.lastReminder);
  return last && std::floor(today) - std::floor(*last) < kDaysOfPatience;
}

}  // namespace

class frmPaymentReminders::Rules : public GridRules {
 public:
  explicit Rules(frmPaymentReminders& window) : window_(window) {}
  bool MayEdit(int, int col) override { return window_.fgReminders.ColKey(col) == "SEND"; }
  // A tick has a list only so that it shows no text.
  std::string EditList(const Grid&, int, int) override { return ""; }
  std::optional<std::string> Accept(int, int, std::string_view typed) override {
    return EnterTick(typed);
  }
  void Edited(int row, int) override {
    Grid& lines = window_.fgReminders;
    SetTick(lines, row, "SEND", IsTicked(lines, row, "SEND"));
  }
  void Opened(int row) override {
    OpenPractice(window_.ledger, window_.fgReminders.DataOfRow(row));
  }

 private:
  frmPaymentReminders& window_;
};

frmPaymentReminders::frmPaymentReminders(Ledger& theLedger)
    : Screen(theLedger, "frmPaymentReminders", "Payment Reminders"),
      rules_(std::make_unique<Rules>(*this)) {
  MakeBlank(fgReminders, kTable);
  fgReminders.SetColWidth(0, 0);
  for (const ColumnSpec& column : kColumns) {
    const int col = fgReminders.ColIndex(column.key);
    fgReminders.SetColDataType(col, column.type);
    fgReminders.SetColFormat(col, column.format);
  }
  const Grid& invoices = ledger.fgInvoices;
  fgReminders.SetColFormat(fgReminders.ColIndex("REMINDDATE"),
                           invoices.ColFormat(invoices.ColIndex("REMINDDATE")));
  MakeTickColumn(fgReminders, "SEND");
  AddGrid(fgReminders, rules_.get());

  for (CheckField* option : {&optBy0, &optBy1})
    option->onEntered = [this, option] {
      Choose(*option);
      return true;
    };
  cmdSend.SetText("&Send Reminders");
  cmdSend.onPressed = [this] { Send(); };
  cmdClose.SetText("C&lose");
  cmdClose.onPressed = [this] { Close(); };
  defaultButton = &cmdSend;
  cancelButton = &cmdClose;
  Choose(optBy0);
  ShowStatements();
}

frmPaymentReminders::~frmPaymentReminders() = default;

void frmPaymentReminders::Choose(const CheckField& option) {
  for (CheckField* each : {&optBy0, &optBy1}) each->SetChecked(each == &option);
}

void frmPaymentReminders::ShowStatements() {
  statements_ = OverdueStatements(ledger);
  const Date today = ledger.platform.clock.Now();
  std::size_t count = 0;
  Currency sum;
  const RedrawOff redrawOff(fgReminders);
  fgReminders.ClearData();
  for (const Statement& statement : statements_) {
    const int row = fgReminders.AddItem("");
    const std::pair<std::string_view, std::string> cells[] = {
        {"PRACTICE", PracticeName(ledger, statement.practice)},
        {"INVOICES", std::to_string(statement.overdueInvoices.size())},
        {"AMOUNT", statement.overdue.ToText()},
        {"DAYS", PlainText(statement.oldestDays)},
        {"TOTAL", statement.total.ToText()},
        {"REMINDDATE", statement.lastReminder},
        {"EMAIL", PracticeCell(ledger, statement.practice, "EMAIL")}};
    for (const auto& [key, text] : cells) fgReminders.SetTextMatrix(row, key, text);
    fgReminders.SetDataOfRow(row, statement.practice);
    SetTick(fgReminders, row, "SEND", !RemindedLately(statement, today));
    count += statement.overdueInvoices.size();
    sum += statement.overdue;
  }
  const auto plural = [](std::size_t n, std::string_view one, std::string_view more) {
    return Counted(static_cast<std::ptrdiff_t>(n), one, more);
  };
  lblSummary.SetText(statements_.empty() ? "No invoice is overdue."
                                         : plural(count, "invoice", "invoices") + " of " +
                                               plural(statements_.size(), "practice", "practices") +
                                               (count == 1 ? " is" : " are") + " overdue, " +
                                               Format(sum, "£#,##0.00"_w) + ".");
  cmdSend.SetEnabled(!statements_.empty());
  if (!statements_.empty())
    fgReminders.Select(fgReminders.FixedRows(), fgReminders.ColIndex("PRACTICE"));
}

void frmPaymentReminders::CellClicked(Grid& grid, int row, int col) {
  if (row >= grid.FixedRows() && grid.ColKey(col) == "SEND")
    SetTick(grid, row, "SEND", !IsTicked(grid, row, "SEND"));
}

void frmPaymentReminders::Send() {
  std::unordered_set<std::string> ticked;
  for (const int row : Records(fgReminders))
    if (IsTicked(fgReminders, row, "SEND")) ticked.insert(fgReminders.DataOfRow(row));
  std::vector<Statement> chosen;
  std::ranges::copy_if(statements_, std::back_inserter(chosen),
                       [&](const Statement& each) { return ticked.contains(each.practice); });
  if (chosen.empty()) {
    ShowMessage(ledger, "No practice is ticked",
                "To choose who is reminded, tick the boxes in the 'Send' column.");
    return;
  }
  const int sent =
      SendStatements(ledger, chosen, optBy0.Checked() ? RemindBy::Email : RemindBy::Letter);
  if (sent == 0) return;
  ShowStatements();
  SetDefaultButton(cmdClose);
  Focus(cmdClose);
}

}  // namespace lm
