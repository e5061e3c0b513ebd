// The standard reports: a matrix of practices and months, or days, with what was worked, billed,
// paid and contributed. What a report adds up stands in a table; nothing is written for one report
// alone.
#pragma once

#include <array>
#include <span>
#include <string_view>

#include "core/dates.h"
#include "core/ledger.h"

namespace lm {

// How the figures of a report show.
enum class ReportFigures {
  Hours,  // days in the matrix, "36:30" in the cells
  Money,
  Count
};

// The keys of one sum on the pension forms; "" for a form that does not take part.
struct FormKeys {
  std::string_view b, d, solo;
};

struct StandardReport {
  std::string_view name;
  ReportFigures figures = ReportFigures::Money;
  std::array<int, 3> metrics{-1, -1, -1};  // added up; -1 for none
  int over = -1;                           // the metric by which they are divided
  bool hourly = false;                     // divided by hours: that metric counts days
  std::span<const FormKeys> forms = {};    // in place of metrics: a column for each form
  bool mileage = false;                    // sessions times the miles to the practice and back

  bool IsAverage() const { return over >= 0; }
};

// In the order of the list; a report is known by its index.
std::span<const StandardReport> StandardReports();

// Reports on practices by pension month, and those on forms, know no days.
constexpr bool IsMonthly(int report) { return report >= 30 && report <= 36; }

struct ReportRequest {
  int report = 0;
  DateRange days{};
  bool byDay = false;
};

// The reason why there is no such report over these days, "" when there is one. Dates are texts of
// fields.
std::string_view WhyNoReport(std::string_view start, std::string_view end);

// Row 0, hidden, holds the IDs of the practices, row 1 their names; column 0 the periods; the last
// row and column are the totals. A record whose date is no date, or whose practice is gone, adds
// nothing. The days are to be those of WhyNoReport.
void RunStandardReport(const Ledger& ledger, const ReportRequest& request, Grid& report);

// Hides the columns, and makes slivers of the rows, whose total is 0; shows the others.
void HideZeros(const Ledger& ledger, Grid& report, bool rows, bool columns);

constexpr int kReportRow = 270;  // twips
constexpr int kReportSliver = 15;

}  // namespace lm
