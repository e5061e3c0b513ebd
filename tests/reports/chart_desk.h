// A report's matrix made by hand, as a refresh leaves it.
#pragma once

#include <string>
#include <vector>

#include "core/dates.h"
#include "core/format.h"
#include "core/grid.h"
#include "core/numbers.h"

namespace lm::test {

struct ReportRow {
  std::string period;
  std::vector<std::string> cells;
};

// `totals` stands in the last row, one a column; the last column holds "1" in every row, so that a
// total that is charted shows.
struct ReportMatrix {
  Grid grid{"fgReports"};

  ReportMatrix(const std::vector<std::string>& names, const std::vector<ReportRow>& rows,
               const std::string& format = "#,##0.00", const std::string& heading = "TOTAL",
               const std::vector<std::string>& totals = {}) {
    const int cols = static_cast<int>(names.size()) + 2;
    grid.SetCols(cols);
    grid.SetRows(2);
    grid.SetFixedRows(2);
    grid.SetFixedCols(1);
    grid.SetRowHidden(0, true);
    for (int col = 1; col + 1 < cols; ++col) {
      grid.SetTextMatrix(0, col, std::to_string(col));
      grid.SetTextMatrix(1, col, names[static_cast<std::size_t>(col) - 1]);
    }
    grid.SetTextMatrix(1, cols - 1, heading);
    for (const ReportRow& row : rows) Add(row.period, row.cells);
    Add(heading, totals);
    for (int col = 1; col < cols; ++col) grid.SetColFormat(col, format);
  }

  void Add(const std::string& period, const std::vector<std::string>& cells) {
    const int row = grid.AddItem(period);
    for (std::size_t i = 0; i < cells.size(); ++i)
      grid.SetTextMatrix(row, static_cast<int>(i) + 1, cells[i]);
    grid.SetTextMatrix(row, grid.Cols() - 1, "1");
  }

  operator const Grid&() const { return grid; }
};

inline std::vector<std::string> Numbered(const std::string& name, int count) {
  std::vector<std::string> names;
  for (int i = 1; i <= count; ++i) names.push_back(name + " " + std::to_string(i));
  return names;
}

// So many days from 3 February 2026 on; each practice has its number every day.
inline std::vector<ReportRow> Days(int days, int practices) {
  std::vector<ReportRow> rows;
  for (int day = 0; day < days; ++day) {
    rows.push_back({FormatDate(DateSerial(2026, 2, 3 + day), "dd mmm yy"), {}});
    for (int i = 1; i <= practices; ++i) rows.back().cells.push_back(std::to_string(i));
  }
  return rows;
}

// What the doctor of the pictures earned in a year; Harbour only began in June.
inline ReportMatrix YearOfWork() {
  std::vector<ReportRow> rows;
  const double kRiverside[] = {1250, 980, 1420, 1100, 600, 1380, 1510, 0, 1290, 1400, 1350, 700};
  const double kElm[] = {400, 820, 360, 0, 910, 450, 380, 220, 640, 510, 0, 300};
  const double kHarbour[] = {0, 0, 0, 0, 0, 720, 810, 240, 960, 1080, 1120, 480};
  const double kOutOfHours[] = {310, 0, 290, 330, 0, 310, 620, 300, 0, 350, 310, 640};
  for (int month = 0; month < 12; ++month)
    rows.push_back({FormatDate(DateSerial(2025, 4 + month, 1), "mmm yy"),
                    {PlainText(kRiverside[month]), PlainText(kElm[month]),
                     PlainText(kHarbour[month]), PlainText(kOutOfHours[month])}});
  return {
      {"Riverside Surgery", "Elm Tree Medical Centre", "Harbour Practice", "County OOH Service"},
      rows};
}

}  // namespace lm::test
