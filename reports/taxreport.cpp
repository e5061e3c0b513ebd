#include "reports/taxreport.h"

#include <algorithm>
#include <array>
#include <span>
#include <unordered_map>
#include <vector>

#include "core/numbers.h"
#include "core/pounds.h"
#include "core/rows.h"
#include "core/text.h"
#include "reports/rowtags.h"

namespace lm {
namespace {

constexpr std::string_view kPounds = "£#,##0.00"_w;
constexpr int kCols = 8, kItem = 3;
constexpr int kTitleHeight = 320, kBlankHeight = 90;  // twips
constexpr std::string_view kClosed = "right", kOpen = "down";

struct TaxColumn {
  int width;  // twips
  Alignment alignment;
};
constexpr std::array<TaxColumn, kCols> kColumns{{{1320, Alignment::Left},
                                                 {2100, Alignment::General},
                                                 {1380, Alignment::Left},
                                                 {1200, Alignment::Right},
                                                 {1500, Alignment::Right},
                                                 {1500, Alignment::Right},
                                                 {1500, Alignment::Right},
                                                 {1500, Alignment::Right}}};

constexpr Colour kHeadingFore = 9180180, kHeadingBack = 16766926, kWhite = Rgb(255, 255, 255);

struct TaxSection {
  std::string_view title;
  std::string_view heading;         // the captions, parted by tabs
  std::span<const int> amountCols;  // whose totals stand in the title row
};

constexpr int kIncomeAmounts[] = {3, 4, 7};
constexpr int kSessionExpenseAmounts[] = {4};
constexpr int kExpenseAmounts[] = {3};
constexpr int kPensionAmounts[] = {2, 3, 4, 5, 6, 7};

constexpr TaxSection kIncome{"Income", "Payment Date\tPractice\tInvoice\tRate\tExtras\t\t\tTotal",
                             kIncomeAmounts};
constexpr TaxSection kSessionExpenses{
    "Session Expenses", "Expense Date\tPractice\tCategory\tItem\tAmount", kSessionExpenseAmounts};
constexpr TaxSection kGeneralExpenses{"General Expenses", "Expense Date\tCategory\tItem \tAmount",
                                      kExpenseAmounts};
constexpr TaxSection kPension{
    "Pension Contributions",
    "Sent to HA\tForm\tMy Contrib.\tAVCs\tAdded Years\tAdditional\tERRBO\tTotal", kPensionAmounts};

struct TaxRow {
  Date day = 0;
  std::vector<std::string> texts;  // of column 0 and the following, those in front of the amounts
  std::vector<Currency> amounts;   // in the order of the section's amount columns
  std::string tag = {}, form = {}, finder = {};
};

// Figures stand right, texts left, whatever else stands in their column.
void AlignLikeFigures(const TaxSection& section, int row, Grid& report) {
  for (int col = 2; col < kCols; ++col) {
    const bool figure = std::ranges::find(section.amountCols, col) != section.amountCols.end();
    if (figure || !report.TextMatrix(row, col).empty())
      report.SetCell(CellSetting::flexcpAlignment, row, col,
                     PlainText(static_cast<int>(figure ? Alignment::Right : Alignment::Left)));
  }
}

void AddRow(const TaxSection& section, const TaxRow& each, Grid& report) {
  const int row = report.AddItem("");
  for (std::size_t i = 0; i < each.texts.size(); ++i)
    report.SetTextMatrix(row, static_cast<int>(i), each.texts[i]);
  for (std::size_t i = 0; i < each.amounts.size(); ++i) {
    const int col = section.amountCols[i];
    report.SetTextMatrix(row, col, each.amounts[i].ToText());
    report.SetCell(CellSetting::flexcpFormat, row, col, kPounds);
  }
  AlignLikeFigures(section, row, report);
  report.SetCellColour(CellSetting::flexcpBackColor, {row, 0, row, kCols - 1}, kWhite);
  report.SetCell(CellSetting::flexcpData, row, 1, each.tag);
  report.SetCell(CellSetting::flexcpData, row, 2, each.finder);
  report.SetDataOfRow(row, each.form);
  report.SetRowHidden(row, true);
}

void AddTotals(const TaxSection& section, const std::vector<TaxRow>& rows, int title,
               Grid& report) {
  for (std::size_t i = 0; i < section.amountCols.size(); ++i) {
    Currency sum;
    for (const TaxRow& row : rows) sum += row.amounts[i];
    const int col = section.amountCols[i];
    report.SetTextMatrix(title, col, sum.ToText());
    report.SetCell(CellSetting::flexcpFormat, title, col, kPounds);
  }
  AlignLikeFigures(section, title, report);
}

void AddSection(const TaxSection& section, const std::vector<TaxRow>& rows, Grid& report) {
  const int title = report.AddItem("");
  report.SetTextMatrix(title, 0,
                       std::string(section.title) + " (" + std::to_string(rows.size()) + ")");
  report.SetCell(CellSetting::flexcpData, title, 0, section.title);
  report.SetCell(CellSetting::flexcpFontBold, {title, 0, title, kCols - 1}, "TRUE");
  if (!rows.empty()) report.SetCell(CellSetting::flexcpPicture, title, 0, kClosed);
  report.SetRowHeight(title, kTitleHeight);
  AddTotals(section, rows, title, report);

  const int heading = report.AddItem(section.heading);
  report.SetCellColour(CellSetting::flexcpForeColor, {heading, 0, heading, kCols - 1},
                       kHeadingFore);
  report.SetCellColour(CellSetting::flexcpBackColor, {heading, 0, heading, kCols - 1},
                       kHeadingBack);
  AlignLikeFigures(section, heading, report);
  report.SetRowHidden(heading, true);
  for (const TaxRow& row : rows) AddRow(section, row, report);
  const int blank = report.AddItem("");
  report.SetRowHeight(blank, kBlankHeight);
  report.SetRowHidden(blank, true);
}

// ---- The records of a year

class Year {
 public:
  Year(const Ledger& ledger, const DateRange& days)
      : ledger_(ledger), days_(days), practices_(ledger.fgPractices.RowsBy("ID")) {}

  std::vector<TaxRow> Income() const;
  std::vector<TaxRow> SessionExpenses() const;
  std::vector<TaxRow> GeneralExpenses() const;
  std::vector<TaxRow> Contributions() const;

 private:
  // What tells one form's contributions from another's.
  struct FormSpec {
    const Grid& table;
    std::string_view name;
    std::array<std::string_view, 5> keys;
    std::string_view total;  // "": the sum of the five
  };
  void AddForms(const FormSpec& form, std::vector<TaxRow>& rows) const;
  std::optional<Date> DayIn(const Grid& table, int row, std::string_view key) const {
    const auto day = CellDate(table.TextMatrix(row, key));
    return days_.Has(day) ? day : std::nullopt;
  }
  std::string PracticeOf(const Grid& table, int row) const {
    const auto found = practices_.find(table.TextMatrix(row, "PRACTICE"));
    return found == practices_.end() ? "" : ledger_.fgPractices.TextMatrix(found->second, "NAME");
  }

  const Ledger& ledger_;
  DateRange days_;
  std::unordered_map<std::string, int> practices_;
};

// Rate and extras alone: what is paid for expenses and by employers is no income.
std::vector<TaxRow> Year::Income() const {
  const Grid& invoices = ledger_.fgInvoices;
  const Grid& sessions = ledger_.fgSessions;
  std::vector<TaxRow> rows;
  std::unordered_map<std::string, std::size_t> rowOfInvoice;
  for (const int row : Records(invoices)) {
    const auto paid = DayIn(invoices, row, "PAYDATE");
    if (!paid) continue;
    const std::string id = invoices.TextMatrix(row, "ID");
    rowOfInvoice.try_emplace(id, rows.size());
    rows.push_back({*paid,
                    {invoices.TextMatrix(row, "PAYDATE"), PracticeOf(invoices, row),
                     invoices.TextMatrix(row, "NUMBER")},
                    {{}, {}, {}},
                    "I" + id});
  }
  const int invoice = sessions.ColIndex("INVOICE"), rate = sessions.ColIndex("RATE"),
            extras = sessions.ColIndex("EXTRAS");
  for (const int row : Records(sessions)) {
    const auto found = rowOfInvoice.find(sessions.TextMatrix(row, invoice));
    if (found == rowOfInvoice.end()) continue;
    std::vector<Currency>& amounts = rows[found->second].amounts;
    amounts[0] += CurrencyOf(sessions.TextMatrix(row, rate));
    amounts[1] += CurrencyOf(sessions.TextMatrix(row, extras));
  }
  for (TaxRow& row : rows) row.amounts[2] = row.amounts[0] + row.amounts[1];
  std::ranges::stable_sort(rows, {}, &TaxRow::day);
  return rows;
}

std::vector<TaxRow> Year::SessionExpenses() const {
  const Grid& expenses = ledger_.fgSessionExpenses;
  const Grid& sessions = ledger_.fgSessions;
  std::unordered_map<std::string, std::vector<int>> expensesOf;
  for (const int row : Records(expenses))
    expensesOf[expenses.TextMatrix(row, "SESSID")].push_back(row);
  std::vector<TaxRow> rows;
  if (expensesOf.empty()) return rows;
  const int date = sessions.ColIndex("SDATE"), id = sessions.ColIndex("ID");
  for (const int row : Records(sessions)) {
    const std::string day = sessions.TextMatrix(row, date);
    if (!days_.Has(CellDate(day))) continue;
    const std::string session = sessions.TextMatrix(row, id);
    const auto found = expensesOf.find(session);
    if (session.empty() || found == expensesOf.end()) continue;
    const std::string practice = PracticeOf(sessions, row);
    for (const int expense : found->second)
      rows.push_back({0,
                      {day, practice, expenses.DisplayText(expense, "CATEGORY"),
                       expenses.TextMatrix(expense, "ITEM")},
                      {CurrencyOf(expenses.TextMatrix(expense, "RATE"))},
                      "S" + session});
  }
  return rows;
}

std::vector<TaxRow> Year::GeneralExpenses() const {
  const Grid& expenses = ledger_.fgExpenses;
  std::vector<TaxRow> rows;
  for (const int row : Records(expenses))
    if (DayIn(expenses, row, "DATE"))
      rows.push_back({0,
                      {expenses.TextMatrix(row, "DATE"), expenses.DisplayText(row, "CATEGORY"),
                       expenses.TextMatrix(row, "ITEM")},
                      {CurrencyOf(expenses.TextMatrix(row, "AMOUNT"))}});
  return rows;
}

void Year::AddForms(const FormSpec& form, std::vector<TaxRow>& rows) const {
  const Grid& table = form.table;
  const bool ofPractice = table.FindCol("PRACTICE") >= 0;
  for (const int row : Records(table)) {
    if (!DayIn(table, row, "SENTTOHA")) continue;
    std::string name = std::string(form.name) + " (" + table.TextMatrix(row, "MONTH") + ")";
    if (ofPractice) name += " " + PracticeOf(table, row);
    TaxRow added{0, {table.TextMatrix(row, "SENTTOHA"), name}, {}};
    Currency sum;
    for (const std::string_view key : form.keys) {
      added.amounts.push_back(CurrencyOf(table.TextMatrix(row, key)));
      sum += added.amounts.back();
    }
    added.amounts.push_back(form.total.empty() ? sum
                                               : CurrencyOf(table.TextMatrix(row, form.total)));
    added.tag = "P" + table.TextMatrix(row, "ID");
    added.form = form.name;
    if (added.tag.size() == 1) added.finder = FormFinder(table, row);
    rows.push_back(std::move(added));
  }
}

std::vector<TaxRow> Year::Contributions() const {
  std::vector<TaxRow> rows;
  AddForms({ledger_.fgPensionB,
            "B",
            {"CONTRIBUTION", "AVC", "EXTRA_YEARS", "ADDITIONAL", "ERRBO"},
            "TOTAL_CONTRIB"},
           rows);
  AddForms({ledger_.fgPensionSolo,
            "SOLO",
            {"MY_CONTRIB", "AVC", "EXTRAYEARS", "ADDITIONAL", "ERRBO"},
            ""},
           rows);
  return rows;
}

int LastYearOf(std::string_view label) {
  return ValInt(label.substr(label.size() - std::min<std::size_t>(label.size(), 4)));
}

}  // namespace

std::string TaxYearLabel(int firstYear) {
  const int first = std::clamp(firstYear, 1900, 9998);
  return std::to_string(first) + " - " + std::to_string(first + 1);
}

std::string MovedTaxYear(std::string_view label, int years) {
  return TaxYearLabel(LastYearOf(label) - 1 + years);
}

DateRange DaysOfTaxYear(std::string_view label) {
  const int last = LastYearOf(label);
  return {DateSerial(last - 1, 4, 6), DateSerial(last, 4, 5)};
}

void FillTaxReport(const Ledger& ledger, const DateRange& days, Grid& report) {
  const RedrawOff off(report);
  report.SetRows(0);
  report.SetFixedRows(0);
  report.SetFixedCols(0);
  report.SetCols(kCols);
  for (int col = 0; col < kCols; ++col) {
    const TaxColumn& column = kColumns[static_cast<std::size_t>(col)];
    report.SetColWidth(col, column.width);
    report.SetColAlignment(col, column.alignment);
  }
  report.SetColDataType(0, DataType::Date);
  report.SetColKey(kItem, "ITEM");  // by which a view gives it the room that is left
  const Year year(ledger, days);
  AddSection(kIncome, year.Income(), report);
  AddSection(kSessionExpenses, year.SessionExpenses(), report);
  AddSection(kGeneralExpenses, year.GeneralExpenses(), report);
  AddSection(kPension, year.Contributions(), report);
}

bool IsTaxSection(const Grid& report, int row) {
  return !report.Cell(CellSetting::flexcpData, row, 0).empty();
}

void ToggleTaxSection(Grid& report, int row) {
  if (!IsTaxSection(report, row)) return;
  const RedrawOff off(report);
  const bool opens = report.RowHidden(row + 1);
  for (int each = row + 1; each < report.Rows() && !IsTaxSection(report, each); ++each)
    report.SetRowHidden(each, !opens);
  if (!report.Cell(CellSetting::flexcpPicture, row, 0).empty())
    report.SetCell(CellSetting::flexcpPicture, row, 0, opens ? kOpen : kClosed);
}

}  // namespace lm
