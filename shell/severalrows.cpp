#include "shell/severalrows.h"

#include <algorithm>

#include "core/change.h"
#include "core/format.h"
#include "core/messagebox.h"
#include "core/platform.h"
#include "core/pounds.h"
#include "core/rows.h"
#include "core/tables.h"
#include "core/text.h"
#include "documents/invoices.h"
#include "shell/find.h"
#include "shell/listfoot.h"

namespace lm {
namespace {

constexpr std::size_t kNamed = 5;  // records that a question names

// Says Yes to the questions about single records, after the user did so for all of them, and keeps
// why some were refused.
class YesToAll : public MessagePort {
 public:
  explicit YesToAll(Ledger& ledger) : ledger_(ledger) { ledger_.answering = this; }
  ~YesToAll() override { ledger_.answering = nullptr; }
  YesToAll(const YesToAll&) = delete;
  YesToAll& operator=(const YesToAll&) = delete;

  Answer Show(const MessageBoxText& message) override {
    if (message.buttons == Buttons::YesNo || message.buttons == Buttons::YesNoCancel)
      return Answer::Yes;
    if (message.icon != Icon::Done && message.icon != Icon::Information) lastRefusal_ = message;
    return Answer::Ok;
  }
  void ShowTip(const MessageBoxText&, std::function<void()>) override {}
  // Nothing when none was refused.
  const std::optional<MessageBoxText>& LastRefusal() const { return lastRefusal_; }

 private:
  Ledger& ledger_;
  std::optional<MessageBoxText> lastRefusal_;
};

// "03/02/2026, Riverside Surgery 09:00 NHS Normal, 384.00"
std::string Described(const Ledger& ledger, const Grid& table, int row) {
  const SearchedKind* kind = KindOf(ledger, table);
  if (!kind) return "";
  const FoundLine line = LineOf(ledger, *kind, row);
  std::vector<std::string> parts{line.date, line.what, line.amount};
  std::erase(parts, "");
  return Join(parts, ", ");
}

std::string FirstOnes(const Ledger& ledger, const Grid& table, const RowNumbers& rows) {
  std::string text;
  for (std::size_t i = 0; i < std::min(rows.size(), kNamed); ++i)
    text += (i == 0 ? "" : "\\n") + Described(ledger, table, rows[i]);
  if (rows.size() > kNamed)
    text += "\\nand " + Format(static_cast<int>(rows.size() - kNamed), "#,##0") + " more";
  return text;
}

std::string CountOf(const RecordList& list, std::size_t count) {
  return Counted(static_cast<std::ptrdiff_t>(count), list.OneRecord(), list.ManyRecords());
}

void TellStayed(Ledger& ledger, const RecordList& list, std::size_t stayed,
                const std::optional<MessageBoxText>& why, std::string_view title) {
  if (stayed == 0) return;
  const std::string reason = why ? why->mainPrompt + "\\n" + why->minorPrompt : "";
  ShowMessage(ledger, CountOf(list, stayed) + (stayed == 1 ? " was" : " were") + " left as before",
              reason, Buttons::Ok, Icon::Information, title);
}

int AmountColumn(const Grid& table) {
  for (const std::string_view key : {"TOTAL", "AMOUNT"})
    if (const int col = table.FindCol(key); col >= 0) return col;
  return -1;
}

// A cell as a spreadsheet reads it.
std::string CopiedCell(const Grid& table, int row, int col) {
  std::string text = table.DisplayText(row, col);
  if (table.ColFormat(col).find('#') != std::string::npos) text = RemoveAny(text, ",");
  std::ranges::replace_if(
      text, [](char c) { return c == '\t' || c == '\r' || c == '\n'; }, ' ');
  return text;
}

std::string Line(const Grid& table, int row) {
  std::string line;
  for (int col = HasMarker(table) ? 1 : 0; col < table.Cols(); ++col)
    if (table.ColVisible(col)) line += CopiedCell(table, row, col) + '\t';
  if (!line.empty()) line.pop_back();
  return line + "\r\n";
}

}  // namespace

std::string SelectionText(const RecordList& list) {
  const RowNumbers rows = list.SelectedRows();
  if (rows.size() < 2) return "";
  const Grid& table = list.Table();
  std::string text = CountOf(list, rows.size()) + " selected";
  const int col = AmountColumn(table);
  if (col < 0) return text;
  Currency sum;
  for (const int row : rows) sum += CurrencyOf(table.TextMatrix(row, col));
  return text + ", " + Format(sum, "£#,##0.00"_w);
}

void DeleteSeveral(Ledger& ledger, const RecordList& list, GridRules& rules) {
  Grid& table = list.Table();
  const RowNumbers rows = list.SelectedRows();
  if (!Ask(ledger, "Delete " + CountOf(list, rows.size()) + "?", FirstOnes(ledger, table, rows),
           "Delete"))
    return;
  const int before = table.Rows();
  std::optional<MessageBoxText> refusal;
  {
    const Change change(ledger, "Delete " + std::string(list.ShownTexts().name));
    const RedrawOff redrawOff(table);
    const YesToAll yes(ledger);
    for (auto row = rows.rbegin(); row != rows.rend(); ++row) rules.DeletePressed(*row);
    refusal = yes.LastRefusal();
  }
  const int gone = before - table.Rows();
  TellStayed(ledger, list, rows.size() - static_cast<std::size_t>(std::max(gone, 0)), refusal,
             "Delete");
}

void PutOnInvoices(Ledger& ledger, const RecordList& list) {
  const Grid& sessions = list.Table();
  const RowNumbers rows = list.SelectedRows();
  RowNumbers free;
  std::ranges::copy_if(rows, std::back_inserter(free),
                       [&](int row) { return sessions.TextMatrix(row, "INVOICE").empty(); });
  if (free.empty())
    return void(ShowMessage(ledger, "Add To Invoice", "These sessions are on invoices already."));
  const std::string caption = CountOf(list, free.size());
  if (!Ask(ledger, "Put " + caption + " on invoices?",
           FirstOnes(ledger, sessions, free) +
               "\\n\\nEach goes on the unsent invoice of its practice, or on a new one.",
           "Add To Invoice"))
    return;
  std::optional<MessageBoxText> refusal;
  {
    const Change change(ledger, "Add To Invoice");
    const YesToAll yes(ledger);
    for (const int row : free) AddSessionToInvoice(ledger, sessions.TextMatrix(row, "ID"));
    refusal = yes.LastRefusal();
  }
  const auto stayed = std::ranges::count_if(
      rows, [&](int row) { return sessions.TextMatrix(row, "INVOICE").empty(); });
  TellStayed(ledger, list, rows.size() - free.size() + static_cast<std::size_t>(stayed), refusal,
             "Add To Invoice");
}

void MarkInvoices(Ledger& ledger, const RecordList& list, std::string_view key,
                  std::string_view day) {
  Grid& invoices = list.Table();
  const int col = invoices.ColIndex(key);
  std::size_t had = 0;
  {
    const Change change(ledger, key == "SDATE" ? "Mark As Sent" : "Mark As Paid");
    for (const int row : list.SelectedRows()) {
      if (!invoices.TextMatrix(row, col).empty()) {
        ++had;
        continue;
      }
      invoices.SetTextMatrix(row, col, day);
      MarkEdited(ledger, invoices, row);
    }
  }
  TellStayed(ledger, list, had, std::nullopt, key == "SDATE" ? "Mark As Sent" : "Mark As Paid");
}

std::string CopiedRows(const RecordList& list) {
  const Grid& table = list.Table();
  std::string text = Line(table, CaptionRow(table));
  for (const int row : list.SelectedRows()) text += Line(table, row);
  return text;
}

}  // namespace lm
