// The tax report: what a self-assessment return asks of one tax year, 6 April to 5 April, in four
// sections that open by a click on their titles.
#pragma once

#include <string>
#include <string_view>

#include "core/dates.h"
#include "core/ledger.h"

namespace lm {

// "2025 - 2026" for the year that begins in 2025, and that label some years on; the years stay
// between 1900 and 9999. A label is read by its last four characters.
std::string TaxYearLabel(int firstYear);
std::string MovedTaxYear(std::string_view label, int years);
DateRange DaysOfTaxYear(std::string_view label);

// Income goes by the day on which an invoice was paid, expenses by the day of the session or of the
// expense, contributions by the day on which the form was sent. Closed, a section shows its title
// row alone. A record's row bears its tag in the data of column 1; that of a pension form also "B"
// or "SOLO" in the row's data, and what finds a form without an ID in the data of column 2.
void FillTaxReport(const Ledger& ledger, const DateRange& year, Grid& report);

bool IsTaxSection(const Grid& report, int row);  // its title row
// Opens a closed section, closes an open one; nothing for another row.
void ToggleTaxSection(Grid& report, int row);

}  // namespace lm
