// A year of work for the tests of reports: all session types, a branch, a practice that is gone,
// a night, empty and damaged cells.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "core/ledger.h"
#include "core/text.h"
#include "tests/support/scripted_platform.h"

namespace lm::test {

struct PracticeYear {
  TestLedger test;
  Ledger& ledger{test.ledger};

  PracticeYear() {
    Add(ledger.fgPractices, {"ID=1", "NAME=Riverside Surgery", "MILEAGE=12.5"});
    Add(ledger.fgPractices, {"ID=2", "NAME=Old Mill", "MILEAGE="});
    Add(ledger.fgPractices, {"ID=3", "NAME=Old Mill", "BRANCHOF=2", "MILEAGE=8"});
    Session("1", "06/01/2026", "09:00", "12:30", "1", "300", "20", "12.40", "35");
    Session("1", "07/01/2026", "09:00", "17:00", "2", "640", "", "5", "");
    Session("2", "07/01/2026", "20:00", "08:00", "3", "1,000.50", "", "", "", "08/01/2026");
    Session("3", "15/02/2026", "10:00", "11:00", "0", "110", "15", "3", "");
    Session("1", "16/02/2026", "", "", "4", "200", "", "", "");
    Session("9", "16/02/2026", "09:00", "10:00", "1", "99", "", "", "");  // a practice that is gone
    Session("-1", "16/02/2026", "09:00", "10:00", "1", "98", "", "", "");  // none
    Session("1", "31/02/2026", "09:00", "10:00", "1", "97", "", "", "");   // no date
    Session("1", "01/03/2026", "09:00", "10:00", "1", "96", "", "", "");
  }

  int Add(Grid& grid, const std::vector<std::string>& cells) { return test.AddRow(grid, cells); }
  int Session(const std::string& practice, const std::string& day, const std::string& from,
              const std::string& to, const std::string& type, const std::string& rate,
              const std::string& extras, const std::string& expenses, const std::string& employer,
              const std::string& endDay = "") {
    return Add(ledger.fgSessions,
               {"PRACTICE=" + practice, "SDATE=" + day, "EDATE=" + endDay, "STIME=" + from,
                "ETIME=" + to, "SESS_TYPE=" + type, "RATE=" + rate, "EXTRAS=" + extras,
                "EXPENSES=" + expenses, "EMPLOYERCONTRIB=" + employer, "TOTAL=" + rate});
  }
};

// As a list on the screen is grouped.
inline void GroupByPractice(Grid& table) {
  const int practice = table.ColIndex("PRACTICE");
  table.Sort(SortSetting::GenericDescending, practice);
  table.Subtotal(SubtotalFunction::Sum, practice, table.FindCol("RATE"), {});
}

// The shown cells of a row, parted by "|".
inline std::string RowText(const Grid& grid, int row) {
  std::string text;
  for (int col = 0; col < grid.Cols(); ++col)
    text += (col > 0 ? "|" : "") + grid.DisplayText(row, col);
  return ToUtf8(text);
}

}  // namespace lm::test
