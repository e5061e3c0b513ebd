// A busy ledger for benchmarks of what goes over all records.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "core/celltexts.h"
#include "core/dates.h"
#include "core/formatting.h"
#include "tests/support/scripted_platform.h"

namespace lm::bench {

constexpr int kPractices = 60;

// So many sessions over the ten years from 1 January 2016, of all types, each with its notes and on
// an invoice of its practice and month; an extra and an expense for every tenth.
inline test::TestLedger& BusyLedger(int sessions) {
  static std::map<int, std::unique_ptr<test::TestLedger>> made;
  auto& test = made[sessions];
  if (test) return *test;
  test = std::make_unique<test::TestLedger>();
  Ledger& ledger = test->ledger;
  for (int i = 1; i <= kPractices; ++i)
    test->AddRow(ledger.fgPractices, {"NAME=Practice " + std::to_string(i), "MILEAGE=12"});
  const auto fill = [](Grid& grid, int row,
                       std::initializer_list<std::pair<const char*, std::string>> cells) {
    for (const auto& [key, text] : cells) grid.SetTextMatrix(row, key, text);
  };
  const RedrawOff off(ledger.fgSessions);
  for (int i = 1; i <= sessions; ++i) {
    const std::string id = std::to_string(i);
    const Date day = DateSerial(2016, 1, 1 + static_cast<int>(i * 31LL % 3650));
    fill(ledger.fgSessions, ledger.fgSessions.AddItem(""),
         {{"ID", id},
          {"PRACTICE", std::to_string(1 + i * 7 % kPractices)},
          {"INVOICE", std::to_string(1 + i % (sessions / 5 + 1))},
          {"SDATE", CellText(day)},
          {"STIME", "09:00"},
          {"ETIME", "12:30"},
          {"SESS_TYPE", std::to_string(i % 5)},
          {"RATE", "287.50"},
          {"EXTRAS", "20.00"},
          {"EXPENSES", "12.40"},
          {"EMPLOYERCONTRIB", "41.20"},
          {"TOTAL", "361.10"},
          {"FORMS", "A,B"},
          {"NOTES", "Covered for Dr Smith & left the keys at reception"}});
    if (i % 5 == 0)
      fill(ledger.fgInvoices, ledger.fgInvoices.AddItem(""),
           {{"ID", std::to_string(i / 5)},
            {"NUMBER", "INV-" + id},
            {"PRACTICE", std::to_string(1 + i * 7 % kPractices)},
            {"CDATE", CellText(day)},
            {"SDATE", CellText(day + 3)},
            {"PAYDATE", CellText(day + 30)},
            {"AMOUNT", "1805.50"}});
    if (i % 10 == 0) {
      fill(ledger.fgExtras, ledger.fgExtras.AddItem(""),
           {{"ID", id}, {"SESSID", id}, {"ITEM", "Home visit"}, {"RATE", "20.00"}});
      fill(ledger.fgSessionExpenses, ledger.fgSessionExpenses.AddItem(""),
           {{"ID", id}, {"SESSID", id}, {"ITEM", "Parking"}, {"CATEGORY", "0"}, {"RATE", "12.40"}});
    }
  }
  FormatTables(ledger);
  return *test;
}

}  // namespace lm::bench
