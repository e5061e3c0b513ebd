#include "core/tables.h"

#include <algorithm>
#include <limits>

#include "core/text.h"

namespace lm {

namespace {

constexpr int kDateWidth = 1300;
constexpr int kTimeWidth = 900;
constexpr int kPracticeWidth = 2200;
constexpr int kDefaultWidth = -1;
constexpr int kAtEnd = std::numeric_limits<int>::max();

using Key = std::string_view;
using Caption = std::string_view;

constexpr ColumnSpec Hidden(Key key, Caption caption, int width = kDefaultWidth) {
  return {.key = key, .caption = caption, .width = width, .hidden = true};
}
constexpr ColumnSpec Text(Key key, Caption caption, int width = kDefaultWidth) {
  return {.key = key, .caption = caption, .width = width};
}
constexpr ColumnSpec Number(Key key, Caption caption, std::string_view format = kAmountFormat,
                            int width = kDefaultWidth) {
  return {.key = key, .caption = caption, .format = format, .width = width};
}
constexpr ColumnSpec Money(Key key, Caption caption, int width = kDefaultWidth) {
  return {.key = key,
          .caption = caption,
          .type = DataType::Money,
          .format = kAmountFormat,
          .width = width};
}
constexpr ColumnSpec Day(Key key, Caption caption, int width = kDateWidth) {
  return {.key = key, .caption = caption, .type = DataType::Date, .width = width};
}
constexpr ColumnSpec Month() {
  return {.key = "MONTH",
          .caption = "Month",
          .type = DataType::Date,
          .format = kMonthFormat,
          .width = kDateWidth};
}
constexpr ColumnSpec Time(Key key, Caption caption) {
  return {.key = key,
          .caption = caption,
          .type = DataType::Date,
          .format = kTimeFormat,
          .width = kTimeWidth};
}
constexpr ColumnSpec List(Key key, Caption caption, Lookup lookup, int width = kDefaultWidth) {
  return {.key = key, .caption = caption, .width = width, .lookup = lookup};
}
constexpr ColumnSpec Before(Key neighbour, ColumnSpec column) {
  column.before = neighbour;
  return column;
}
constexpr ColumnSpec At(int position, ColumnSpec column) {
  column.position = position;
  return column;
}
constexpr ColumnSpec InEngland(ColumnSpec column) {
  column.englandOnly = true;
  return column;
}

constexpr ColumnSpec kPractices[] = {
    Hidden("ID", "ID"),
    Text("NAME", "Practice Name", kPracticeWidth),
    At(3, List("BRANCHOF", "Branch Of", Lookup::Practices, kPracticeWidth)),
    Text("PCT", "PCT"),
    Text("PCODE", "EA Code"),
    Text("ODS_CODE", "ODS Code", 1200),
    Text("ADDR1", "Address"),
    Text("ADDR2", "Address 2"),
    Text("ADDR3", "Address 3"),
    Text("ADDR4", "Address 4"),
    Text("POSTCODE", "Postcode"),
    Text("PHONE", "Phone"),
    Text("FAX", "Fax"),
    Text("EMAIL", "E-mail"),
    Text("WEB", "Website"),
    Text("PMANAGER", "Practice Manager"),
    Text("PARTNERS", "Partners"),
    Text("NOTES", "Notes"),
    At(kAtEnd, Text("MILEAGE", "Mileage")),
    At(kAtEnd, Text("INVOICENOTE", "Invoice Note")),
    At(kAtEnd, Money("RATE_NORMAL", "Rate - Normal", 1200)),
    At(kAtEnd, Money("RATE_OOHS", "Rate - OOH Standard", 1200)),
    At(kAtEnd, Money("RATE_OOHD", "Rate - OOH Deputising", 1200)),
    At(kAtEnd, Money("RATE_UNPENSIONED", "Rate - NHS Unpensioned", 1200)),
    At(kAtEnd, Money("RATE_PRIVATE", "Rate - Private", 1200)),
    At(kAtEnd, Text("GPNET_MATCH", "GPnetworks Data", 0)),
};

constexpr ColumnSpec kSessions[] = {
    Hidden("ID", "ID"),
    List("PRACTICE", "Practice", Lookup::Practices, kPracticeWidth),
    List("INVOICE", "Invoice", Lookup::InvoiceNumbers),
    Day("SDATE", "Start Date"),
    Day("EDATE", "End Date"),
    Time("STIME", "Start Time"),
    Time("ETIME", "End Time"),
    List("SESS_TYPE", "Session Type", Lookup::SessionTypes, 1440),
    Money("RATE", "Rate"),
    Money("EXTRAS", "Extras"),
    InEngland(Money("EMPLOYERCONTRIB", "Employer Pension Contrib.", 1200)),
    Before("TOTAL", Money("EXPENSES", "Expenses", 900)),
    Money("TOTAL", "Total"),
    Text("NOTES", "Private Note"),
    Text("PUBLICNOTE", "Public Note"),
    At(kAtEnd, Text("FORMS", "Forms", 650)),
    At(kAtEnd, Text("SOURCE", "Source", 0)),
    At(kAtEnd, Text("EMPLOYERCONTRIBRATE", "Employer Contrib. Rate", 0)),
    At(kAtEnd, Text("INCLUDEEMPLOYERCONTRIB", "Include Employer Contrib", 0)),
};

constexpr ColumnSpec kInvoices[] = {
    Hidden("ID", "ID"),
    Text("NUMBER", "Invoice Number"),
    List("PRACTICE", "Practice", Lookup::Practices, kPracticeWidth),
    Day("CDATE", "Date Created"),
    Day("IDATE", "Invoice Date", 1500),
    Day("SDATE", "Date Sent"),
    Text("SENTBY", "Sent Method"),
    Money("AMOUNT", "Amount"),
    InEngland(Number("EMPLOYERCONTRIB", "Employer Pension Contrib.", kAmountFormat, 1200)),
    Day("PAYDATE", "Date Paid"),
    Text("PAYMETHOD", "Payment Method"),
    Text("PAYREF", "Payment Reference"),
    Day("RECEIPTDATE", "Receipt Date"),
    Text("RECEIPTMETHOD", "Receipt Method"),
    Text("RECEIPTREF", "Receipt Reference"),
    Text("PRIVATENOTE", "Private Note"),
    Text("PUBLICNOTE", "Public Note"),
    At(kAtEnd, Day("DUEDATE", "Due")),
    At(kAtEnd, Number("REMINDERS", "Reminders", "0", 1050)),
    At(kAtEnd, Day("REMINDDATE", "Last Reminder", 1400)),
};

constexpr ColumnSpec kPensionA[] = {
    Hidden("ID", "ID"),
    List("PRACTICE", "Practice", Lookup::Practices, kPracticeWidth),
    Month(),
    Text("SESSIONS", "Sessions"),
    Number("AMOUNT", "Amount"),
    Number("PENSIONABLE", "Pensionable"),
    Number("CONTRIBUTION", "My Contrib."),
    InEngland(Number("EMPLOYERCONTRIB", "Employer Contrib.", kAmountFormat, 1200)),
    Day("SENTTOPRACTICE", "Sent To Practice"),
    Day("RCVDFROMPRACTICE", "Rcvd From Practice"),
    Day("SENTTOHA", "Sent to HA"),
    Text("NOTES", "Notes"),
};

constexpr ColumnSpec kPensionB[] = {
    Hidden("ID", "ID"),
    Month(),
    Number("AMOUNT", "Amount"),
    Number("PENSIONABLE", "Pensionable"),
    Number("CONTRIBUTION", "My Contrib."),
    Number("AVC", "AVC"),
    Before("TOTAL_CONTRIB", Number("EXTRA_YEARS", "Added Years")),
    Number("ADDITIONAL", "Additional", kAmountFormat, 1200),
    Number("ERRBO", "ERRBO", kAmountFormat, 1200),
    Number("TOTAL_CONTRIB", "Total Contrib"),
    Number("EMPLOYERCONTRIB", "Employer Contrib.", kAmountFormat, 1200),
    Day("SENTTOHA", "Sent to HA"),
    Text("NOTES", "Notes"),
};

constexpr ColumnSpec kExtras[] = {
    Hidden("ID", "ID"),    Hidden("SESSID", "Session ID"),
    Text("ITEM", "Item"),  Text("NOTES", "Private Note"),
    Money("RATE", "Rate"),
};

constexpr ColumnSpec kPensionSolo[] = {
    Hidden("ID", ""),
    List("PRACTICE", "OOH Provider", Lookup::Practices, 1800),
    Month(),
    Text("SESSIONS", "Sessions"),
    Number("AMOUNT", "Amount"),
    Number("EXPENSES", "Expenses"),
    Number("PENSIONABLE", "Pensionable"),
    Number("MY_CONTRIB", "Employee Contrib."),
    Number("AVC", "AVC"),
    Number("EXTRAYEARS", "Added Years", kAmountFormat, 1200),
    Number("ERRBO", "ERRBO", kAmountFormat, 1200),
    Number("ADDITIONAL", "Additional", kAmountFormat, 1200),
    Number("EMP_CONTRIB", "Employer Contrib."),
    Number("TOTAL_CONTRIB", "Total Contrib"),
    Day("SENTTOHA", "Sent to HA"),
    Text("NOTES", "Notes"),
};

// The two retired forms, kept for old data; they have no ID.
constexpr ColumnSpec kPensionC[] = {
    List("PRACTICE", "OOH Provider", Lookup::Practices, 1800),
    Month(),
    Number("SESSIONS", "Sessions", "#,##0"),
    Number("AMOUNT", "Amount"),
    Number("PENSIONABLE", "Pensionable"),
    Text("EMP_CONTRIB", "Employer Contrib."),
    Text("TOTAL_PAID", "Total Paid"),
    Day("SENTTOPRACTICE", "Sent To Practice", 1670),
    Day("RCVDFROMPRACTICE", "Rcvd From Practice", 1670),
    Day("SENTTOHA", "Sent to HA"),
    Text("NOTES", "Notes"),
};

constexpr ColumnSpec kPensionD[] = {
    Month(),
    Number("AMOUNT", "Amount"),
    Number("PENSIONABLE", "Pensionable"),
    Text("MY_CONTRIB", "Employee Contrib."),
    Number("AVC", "AVC"),
    Text("EMP_CONTRIB", "Employer Contrib."),
    Before("TOTAL_CONTRIB", Number("EXTRA_YEARS", "Added Years")),
    Number("TOTAL_CONTRIB", "Total Contrib"),
    Day("SENTTOHA", "Sent to HA"),
    Text("NOTES", "Notes"),
};

constexpr ColumnSpec kExpenses[] = {
    Day("DATE", "Date", 1700),  Text("ITEM", "Item", 3000),
    Number("AMOUNT", "Amount"), List("CATEGORY", "Category", Lookup::ExpenseCategories),
    Text("Notes", "Notes"),     At(kAtEnd, Text("EXPENSEREPETITIONID", "ExpenseRepetitionID", 0)),
};

constexpr ColumnSpec kSessionExpenses[] = {
    Hidden("ID", "ID"),
    Hidden("SESSID", "Session ID"),
    Text("ITEM", "Item"),
    List("CATEGORY", "Category", Lookup::ExpenseCategories),
    Text("NOTES", "Private Note"),
    Money("RATE", "Rate"),
};

constexpr ColumnSpec kEvents[] = {
    Hidden("ID", "ID"),
    Text("TITLE", "Title", 2000),
    Text("LOCATION", "Location", 1800),
    List("CATEGORY", "Category", Lookup::EventCategories, 2000),
    Day("SDATE", "Start Date", 1500),
    Day("EDATE", "End Date", 1500),
    Text("NOTES", "Notes"),
};

constexpr ColumnSpec kPensionPayments[] = {
    Hidden("ID", "ID", 0),
    Day("MONTH", "Month", 1500),
    List("FORM", "Form", Lookup::PaymentForms, 1000),
    List("PRACTICE", "OOH Provider", Lookup::Practices, 2000),
    Number("AMOUNT", "Amount", kAmountFormat, 1200),
    Day("PAYDATE", "Payment Date", 2000),
    List("METHOD", "Method", Lookup::PaymentMethods, 1000),
    Text("NOTES", "Notes"),
};

constexpr ColumnSpec kShortcuts[] = {
    Text("IDENTIFIER", "Identifier"),
    Text("KEY", "Key"),
    Text("KEYSHIFT", "Key Shift"),
};

void WriteHeader(Grid& grid, int col, const ColumnSpec& column) {
  grid.SetTextMatrix(0, col, column.caption);
  grid.SetTextMatrix(1, col, column.key);
  grid.SetColKey(col, column.key);
  grid.SetColWidth(col, column.width);
}

}  // namespace

constexpr std::array<TableSpec, kDataTables> kTables{{
    {"fgPractices", kPractices, "Practice"},
    {"fgSessions", kSessions, "Session"},
    {"fgInvoices", kInvoices, "Invoice"},
    {"fgPensionA", kPensionA, "Form A"},
    {"fgPensionB", kPensionB, "Form B"},
    {"fgExtras", kExtras, "Extra"},
    {"fgPensionSolo", kPensionSolo, "Form SOLO"},
    {"fgPensionC", kPensionC, "Form C"},
    {"fgPensionD", kPensionD, "Form D"},
    {"fgExpenses", kExpenses, "Expense"},
    {"fgSessionExpenses", kSessionExpenses, "Session Expense"},
    {"fgEvents", kEvents, "Event"},
    {"fgPensionPayments", kPensionPayments, "Pension Payment"},
}};

constexpr TableSpec kShortcutsTable{"fgShortcuts", kShortcuts};

const TableSpec* FindTable(std::string_view name) {
  for (const TableSpec& table : kTables)
    if (EqualsIgnoreCase(table.name, name)) return &table;
  return EqualsIgnoreCase(kShortcutsTable.name, name) ? &kShortcutsTable : nullptr;
}

void MakeBlank(Grid& grid, const TableSpec& table) {
  const RedrawOff off(grid);
  grid.SetRows(0);
  grid.SetCols(0);
  grid.SetCols(static_cast<int>(table.columns.size()) + 1);
  grid.SetRows(2);
  grid.SetFixedRows(2);
  grid.SetFixedCols(1);
  grid.SetRowHidden(1, true);
  grid.SetColWidth(0, kMarkerWidth);
  int col = 1;
  for (const ColumnSpec& column : table.columns) WriteHeader(grid, col++, column);
}

bool HasMarker(const Grid& grid) {
  return grid.Cols() > 1 && grid.ColKey(0).empty() && grid.ColWidth(0) == kMarkerWidth;
}

int CaptionRow(const Grid& grid) {
  for (int row = 0; row < std::min(grid.FixedRows(), grid.Rows()); ++row)
    if (!grid.RowHidden(row)) return row;
  return -1;
}

namespace {

int PlaceOf(const Grid& grid, const ColumnSpec& column, int behindDeclared) {
  if (const int before = column.before.empty() ? -1 : grid.ColIndex(column.before); before > 0)
    return before;
  return column.position > 0 ? std::min(column.position, grid.Cols()) : behindDeclared;
}

void InsertColumn(Grid& grid, const ColumnSpec& column, int position) {
  const int last = grid.Cols();
  grid.SetCols(last + 1);
  WriteHeader(grid, last, column);
  grid.SetColPosition(last, position);
}

}  // namespace

void AddMissingColumns(Grid& grid, const TableSpec& table) {
  const RedrawOff off(grid);
  int behind = 1;
  for (const ColumnSpec& column : table.columns) {
    if (grid.ColIndex(column.key) < 0) InsertColumn(grid, column, PlaceOf(grid, column, behind));
    behind = grid.ColIndex(column.key) + 1;
  }
}

void AddColumn(Grid& grid, const TableSpec& table, std::string_view key, std::string_view behind) {
  if (grid.ColIndex(key) >= 0) return;
  const int neighbour = grid.ColIndex(behind);
  for (const ColumnSpec& column : table.columns)
    if (column.key == key) InsertColumn(grid, column, neighbour >= 0 ? neighbour + 1 : grid.Cols());
}

}  // namespace lm
