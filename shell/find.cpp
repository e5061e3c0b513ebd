#include "shell/find.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <unordered_map>

#include "core/dates.h"
#include "core/platform.h"
#include "core/rows.h"
#include "core/tables.h"
#include "core/text.h"
#include "documents/moneyowed.h"
#include "pension/form.h"

namespace lm {
namespace {

bool Holds(const Grid& table, int row, std::string_view key) {
  return !table.TextMatrix(row, key).empty();
}

std::string Both(std::string a, std::string_view b) {
  if (!a.empty() && !b.empty()) a += ", ";
  return a.append(b);
}

std::string StateOfInvoice(const Grid& table, int row, Date today) {
  return Both(Holds(table, row, "SDATE") ? "sent" : "not sent",
              Both(Holds(table, row, "PAYDATE") ? "paid" : "unpaid",
                   DaysOverdue(PaymentStateOf(table, row), today) > 0 ? "overdue" : ""));
}

std::string StateOfSession(const Grid& table, int row, Date) {
  const bool invoiced = Holds(table, row, "INVOICE"), onForm = Holds(table, row, "FORMS");
  return Both(invoiced ? "invoiced" : "not invoiced", invoiced || onForm ? "locked" : "");
}

std::string StateOfForm(const Grid& table, int row, Date) {
  const PensionForm* form = FormOfTable(table);
  const bool sent =
      form && form->sent && std::ranges::any_of(form->sent->dates, [&](std::string_view date) {
        return Holds(table, row, date);
      });
  return sent ? "sent, locked" : "not sent";
}

std::string StateOfPayment(const Grid& table, int row, Date) {
  return Holds(table, row, "PAYDATE") ? "paid" : "unpaid";
}

SearchedKind FormKind(std::string_view caption, std::string_view names, Grid Ledger::*table,
                      std::vector<std::string_view> what) {
  return {caption, names, table, "", "MONTH", std::move(what), "AMOUNT", {"NOTES"}, StateOfForm};
}

// Those of which there are few come first.
const std::vector<SearchedKind>& Kinds() {
  static const std::vector<SearchedKind> kKinds = {
      {"Practices",
       "practice practices",
       &Ledger::fgPractices,
       "frmPractice",
       "",
       {"NAME"},
       "",
       {"POSTCODE", "PHONE", "NOTES"}},
      {"Invoices",
       "invoice invoices",
       &Ledger::fgInvoices,
       "frmInvoice",
       "IDATE",
       {"NUMBER", "PRACTICE"},
       "AMOUNT",
       {"PRIVATENOTE", "PUBLICNOTE"},
       StateOfInvoice},
      FormKind("Forms A", "form a forms a pension", &Ledger::fgPensionA, {"PRACTICE"}),
      FormKind("Forms B", "form b forms b pension", &Ledger::fgPensionB, {}),
      FormKind("Forms SOLO", "form solo forms solo pension", &Ledger::fgPensionSolo, {"PRACTICE"}),
      FormKind("Forms C", "form c forms c pension", &Ledger::fgPensionC, {"PRACTICE"}),
      FormKind("Forms D", "form d forms d pension", &Ledger::fgPensionD, {}),
      {"Pension payments",
       "pension payment payments",
       &Ledger::fgPensionPayments,
       "",
       "PAYDATE",
       {"FORM", "MONTH", "PRACTICE"},
       "AMOUNT",
       {"METHOD", "NOTES"},
       StateOfPayment},
      {"Events",
       "event events",
       &Ledger::fgEvents,
       "frmEvent",
       "SDATE",
       {"TITLE"},
       "",
       {"CATEGORY", "LOCATION", "NOTES"}},
      {"Expenses",
       "expense expenses",
       &Ledger::fgExpenses,
       "",
       "DATE",
       {"ITEM"},
       "AMOUNT",
       {"CATEGORY", "Notes"}},
      {"Sessions",
       "session sessions",
       &Ledger::fgSessions,
       "frmSession",
       "SDATE",
       {"PRACTICE", "STIME", "SESS_TYPE"},
       "TOTAL",
       {"INVOICE", "NOTES", "PUBLICNOTE"},
       StateOfSession},
  };
  return kKinds;
}

// What a state is called otherwise.
std::string StateWords(const std::string& state) {
  return state + ' ' + Replace(state, "not ", "un") + ' ' + Replace(state, "unpaid", "not paid");
}

// Hidden by its declaration is what no user reads, such as an ID.
void AddCells(TextIndex& index, const Grid& table) {
  for (const ColumnSpec& column : FindTable(table.Name())->columns)
    if (!column.hidden && column.width != 0) index.AddCell(table.ColIndex(column.key));
}

// Extras and expenses are found as what they belong to.
void AddItemsOfSessions(TextIndex& index, const Ledger& ledger) {
  std::unordered_map<std::string, std::string> items;
  for (const Grid* table : {&ledger.fgExtras, &ledger.fgSessionExpenses})
    for (const int row : Records(*table))
      items[table->TextMatrix(row, "SESSID")] +=
          table->TextMatrix(row, "ITEM") + ' ' + table->TextMatrix(row, "NOTES") + ' ';
  index.AddByCell(ledger.fgSessions.ColIndex("ID"),
                  [&sessions = ledger.fgSessions, items = std::move(items)](int row) {
                    const auto found = items.find(sessions.TextMatrix(row, "ID"));
                    return found == items.end() ? std::string() : found->second;
                  });
}

// Whether its invoice is paid, too.
void AddInvoicesOfSessions(TextIndex& index, const Ledger& ledger, Date today) {
  index.AddByCell(ledger.fgSessions.ColIndex("INVOICE"),
                  [&ledger, today, invoices = ledger.fgInvoices.RowsBy("ID")](int row) {
                    const auto found = invoices.find(ledger.fgSessions.TextMatrix(row, "INVOICE"));
                    return found == invoices.end() ? std::string()
                                                   : StateWords(StateOfInvoice(
                                                         ledger.fgInvoices, found->second, today));
                  });
}

// The place of each row among the records, the newest first; those without a date last. What has
// no date of its own goes by name.
std::vector<int> Places(const Grid& table, const SearchedKind& kind) {
  std::vector<int> rows;
  for (const int row : Records(table)) rows.push_back(row);
  const auto size = static_cast<std::size_t>(table.Rows());
  if (kind.date.empty()) {
    std::vector<std::string> names(size);
    for (const int row : rows)
      names[static_cast<std::size_t>(row)] = ToLower(table.DisplayText(row, kind.what.front()));
    std::ranges::stable_sort(rows, {}, [&](int row) -> const std::string& {
      return names[static_cast<std::size_t>(row)];
    });
  } else {
    std::vector<Date> days(size);
    const int date = table.ColIndex(kind.date), time = table.FindCol("STIME");
    for (const int row : rows)
      days[static_cast<std::size_t>(row)] =
          CellDate(table.TextMatrix(row, date)).value_or(std::numeric_limits<Date>::lowest()) +
          CellTime(table.TextMatrix(row, time)).value_or(0);
    std::ranges::stable_sort(rows, std::ranges::greater(),
                             [&](int row) { return days[static_cast<std::size_t>(row)]; });
  }
  std::vector<int> places(size);
  for (std::size_t place = 0; place < rows.size(); ++place)
    places[static_cast<std::size_t>(rows[place])] = static_cast<int>(place);
  return places;
}

std::string Joined(const Grid& table, int row, const std::vector<std::string_view>& keys) {
  std::string text;
  for (const std::string_view key : keys)
    text = Both(std::move(text), Trim(table.DisplayText(row, key)));
  return Replace(Replace(text, "\r\n", " "), "\t", " ");
}

}  // namespace

RecordSearch::RecordSearch(Ledger& ledger) {
  const Date today = ledger.platform.clock.Now();
  for (const SearchedKind& kind : Kinds()) {
    const Grid& table = ledger.*kind.table;
    if (!table.HasData()) continue;
    kinds_.push_back({&kind, TextIndex(table), Places(table, kind)});
    Searched& searched = kinds_.back();
    AddCells(searched.index, table);
    searched.index.AddText([names = kind.names](int) { return std::string(names); });
    if (kind.state)
      searched.index.AddText(
          [&table, state = kind.state, today](int row) { return state(table, row, today); },
          StateWords);
    if (&table == &ledger.fgSessions) {
      AddItemsOfSessions(searched.index, ledger);
      AddInvoicesOfSessions(searched.index, ledger, today);
    }
    searched.index.Read();
  }
}

std::vector<FoundRecords> RecordSearch::Find(const std::vector<SearchWord>& words,
                                             std::size_t mostOfKind) const {
  std::vector<FoundRecords> found;
  if (words.empty()) return found;
  for (const Searched& searched : kinds_) {
    FoundRecords records{searched.kind, searched.index.Matching(words)};
    records.count = records.rows.size();
    if (records.rows.empty()) continue;
    const auto shown = static_cast<std::ptrdiff_t>(std::min(records.count, mostOfKind));
    std::ranges::partial_sort(records.rows, records.rows.begin() + shown, {}, [&](int row) {
      return searched.places[static_cast<std::size_t>(row)];
    });
    records.rows.resize(static_cast<std::size_t>(shown));
    found.push_back(std::move(records));
  }
  return found;
}

const SearchedKind* KindOf(const Ledger& ledger, const Grid& table) {
  for (const SearchedKind& kind : Kinds())
    if (&(ledger.*kind.table) == &table) return &kind;
  return nullptr;
}

FoundLine LineOf(const Ledger& ledger, const SearchedKind& kind, int row) {
  const Grid& table = ledger.*kind.table;
  const auto shown = [&](std::string_view key) {
    return key.empty() ? std::string() : table.DisplayText(row, key);
  };
  FoundLine line{shown(kind.date), Joined(table, row, kind.what), Joined(table, row, kind.notes),
                 shown(kind.amount)};
  if (kind.state)
    line.details = Both(kind.state(table, row, ledger.platform.clock.Now()), line.details);
  return line;
}

}  // namespace lm
