#include "core/formatting.h"

#include <algorithm>
#include <map>

#include "core/eventcategories.h"
#include "core/options.h"
#include "core/rows.h"
#include "core/sessiontypes.h"
#include "core/text.h"

namespace lm {

namespace {

constexpr std::string_view kPaymentMethods = "BACS|Cheque|Direct Debit|Standing Order|Cash";
constexpr std::string_view kPaymentForms = "B|SOLO";

std::string ColumnList(const std::vector<ComboItem>& items) {
  std::string list;
  for (const ComboItem& item : items) {
    if (!list.empty()) list += '|';
    // The bar parts the entries, so a name that holds one shows a stroke in its place.
    list += "#" + item.data + ";" + Replace(item.text, "|", "/");
  }
  return list;
}

std::string EventCategoryList(const Ledger& ledger) {
  std::vector<ComboItem> items;
  for (const EventCategory& category : EventCategories(ledger))
    items.push_back({category.name, std::to_string(category.code)});
  return ColumnList(items);
}

std::string LookupList(Ledger& ledger, Lookup lookup) {
  switch (lookup) {
    case Lookup::None:
      break;
    case Lookup::Practices:
      return PracticeList(ledger);
    case Lookup::InvoiceNumbers:
      return InvoiceNumberList(ledger);
    case Lookup::SessionTypes:
      return SessionTypeList(ledger);
    case Lookup::ExpenseCategories:
      return GetOption(ledger, optExpenseCategories);
    case Lookup::EventCategories:
      return EventCategoryList(ledger);
    case Lookup::PaymentMethods:
      return std::string(kPaymentMethods);
    case Lookup::PaymentForms:
      return std::string(kPaymentForms);
  }
  return "";
}

// The pattern that a column shows with: the user's own for days and times.
std::string ShownFormat(const Ledger& ledger, const ColumnSpec& column) {
  std::string users;
  if (column.type == DataType::Date && column.format.empty())
    users = GetOption(ledger, optDateFormat);
  else if (column.type == DataType::Date && column.format == kTimeFormat)
    users = GetOption(ledger, optTimeFormat);
  return users.empty() ? std::string(column.format) : users;
}

}  // namespace

void FormatTables(Ledger& ledger) {
  const bool inEngland = ToUpper(GetOption(ledger, optPensionCountry)) == "ENGLAND";
  std::map<Lookup, std::string> lists;
  for (std::size_t i = 0; i < kTables.size(); ++i) {
    Grid& grid = *ledger.dataTables[i];
    const RedrawOff off(grid);
    for (const ColumnSpec& column : kTables[i].columns) {
      const int col = grid.ColIndex(column.key);
      grid.SetColHidden(col, column.hidden || (column.englandOnly && !inEngland));
      grid.SetColDataType(col, column.type);
      grid.SetColFormat(col, ShownFormat(ledger, column));
      if (column.lookup == Lookup::None) continue;
      const auto [list, isNew] = lists.try_emplace(column.lookup);
      if (isNew) list->second = LookupList(ledger, column.lookup);
      grid.SetColComboList(col, list->second);
    }
  }
  // Only tables of earlier years have this column.
  ledger.fgPensionC.SetColFormat(ledger.fgPensionC.ColIndex("CONTRIBUTION"), kAmountFormat);
}

std::vector<ComboItem> PracticeItems(Ledger& ledger, std::string_view exceptId) {
  const Grid& practices = ledger.fgPractices;
  const int nameCol = practices.ColIndex("NAME");
  const int idCol = practices.ColIndex("ID");
  std::vector<ComboItem> items;
  for (const int row : Records(practices)) {
    const std::string& name = practices.TextMatrix(row, nameCol);
    const std::string& id = practices.TextMatrix(row, idCol);
    const bool leftOut = !exceptId.empty() && id == exceptId;
    if (!name.empty() && !leftOut) items.push_back({name, id});
  }
  std::stable_sort(items.begin(), items.end(), [](const ComboItem& a, const ComboItem& b) {
    return CompareIgnoreCase(a.text, b.text) < 0;
  });
  return items;
}

std::string PracticeList(Ledger& ledger, std::string_view exceptId) {
  return ColumnList(PracticeItems(ledger, exceptId));
}

void RefreshPracticeLists(Ledger& ledger) {
  const std::string list = PracticeList(ledger);
  for (Grid* grid : {&ledger.fgSessions, &ledger.fgPensionPayments})
    grid->SetColComboList(grid->ColIndex("PRACTICE"), list);
}

std::vector<ComboItem> SessionTypeItems(const Ledger& ledger) {
  const bool withRetired = OffersRetiredTypes(ledger);
  std::vector<ComboItem> items;
  for (const SessionType& type : kSessionTypes)
    if (const std::string_view caption = CaptionOf(type, withRetired); !caption.empty())
      items.push_back({std::string(caption), PlainText(type.code)});
  return items;
}

std::string SessionTypeList(const Ledger& ledger) { return ColumnList(SessionTypeItems(ledger)); }

std::string InvoiceNumberList(const Ledger& ledger) {
  const Grid& invoices = ledger.fgInvoices;
  const int numberCol = invoices.ColIndex("NUMBER");
  const int idCol = invoices.ColIndex("ID");
  std::vector<ComboItem> items;
  for (const int row : Records(invoices)) {
    const std::string& id = invoices.TextMatrix(row, idCol);
    // An entry without an ID would give every session not yet invoiced a number.
    if (!id.empty()) items.push_back({invoices.TextMatrix(row, numberCol), id});
  }
  return ColumnList(items);
}

void RefreshInvoiceNumbers(Ledger& ledger) {
  ledger.fgSessions.SetColComboList(ledger.fgSessions.ColIndex("INVOICE"),
                                    InvoiceNumberList(ledger));
}

void RefreshLookUps(Ledger& ledger, const ChangedRecords& changed) {
  if (changed.Of(ledger.fgPractices)) RefreshPracticeLists(ledger);
  if (changed.Of(ledger.fgInvoices)) RefreshInvoiceNumbers(ledger);
}

}  // namespace lm
