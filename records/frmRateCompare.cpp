#include "records/frmRateCompare.h"

#include <algorithm>
#include <optional>

#include "core/format.h"
#include "core/numbers.h"
#include "core/options.h"
#include "core/rows.h"
#include "core/sessiontypes.h"
#include "core/tables.h"
#include "core/text.h"

namespace lm {
namespace {

constexpr ColumnSpec Rate(std::string_view key, std::string_view caption) {
  return {.key = key, .caption = caption, .type = DataType::Money, .format = "0.00", .width = 1300};
}

constexpr ColumnSpec kColumns[] = {
    {.key = "NAME", .caption = "", .width = 3600},
    Rate("RATE_NORMAL", "NHS\nNormal"),
    Rate("RATE_OOHS", "NHS\nOOH"),
    Rate("RATE_OOHD", "NHS\nDeputising"),
    Rate("RATE_UNPENSIONED", "NHS\nUnpensioned"),
    Rate("RATE_PRIVATE", "Private"),
};

constexpr TableSpec kTable{"fgRates", kColumns};

// The statistics, behind the header rows and the defaults.
enum StatisticsRow { kMaximum = 1, kAverage = 2, kMinimum = 3, kHeadRows = 4 };

constexpr std::string_view kNotSet = "-1";

}  // namespace

frmRateCompare::frmRateCompare(Ledger& theLedger)
    : Screen(theLedger, "frmRateCompare", "Hourly Rate Comparison") {
  lblRates.SetText("These are the default hourly rates for each practice and session type.");
  cmdCancel.onPressed = [this] { Close(); };
  cancelButton = &cmdCancel;

  MakeBlank(fgRates, kTable);
  fgRates.SetColWidth(0, 0);
  for (const ColumnSpec& column : kColumns) {
    const int col = fgRates.ColIndex(column.key);
    fgRates.SetColDataType(col, column.type);
    fgRates.SetColFormat(col, column.format);
  }
  fgRates.SetColHidden(fgRates.ColIndex("RATE_OOHD"), !OffersRetiredTypes(ledger));
  AddDefaults();
  AddPractices();
  for (const ColumnSpec& column : kColumns)
    if (column.type == DataType::Money) FillStatistics(column.key);
  AddGrid(fgRates);
}

void frmRateCompare::AddDefaults() {
  for (const char* name : {"Default", "Maximum", "Average", "Minimum"}) {
    const int row = fgRates.AddItem("");
    fgRates.SetTextMatrix(row, "NAME", name);
    fgRates.SetCell(CellSetting::flexcpFontBold, {row, 1, row, fgRates.Cols() - 1}, "TRUE");
  }
  const std::string option = GetOption(ledger, optDefaultRates);
  const auto defaults = Split(option, '|');
  for (const SessionType& type : kSessionTypes)
    if (type.defaultRate < defaults.size())
      fgRates.SetTextMatrix(fgRates.FixedRows(), type.rateColumn, defaults[type.defaultRate]);
}

void frmRateCompare::AddPractices() {
  const Grid& practices = ledger.fgPractices;
  const RedrawOff redrawOff(fgRates);
  for (const int practice : Records(practices)) {
    const int row = fgRates.AddItem("");
    for (const ColumnSpec& column : kColumns) {
      const std::string text = practices.TextMatrix(practice, column.key);
      fgRates.SetTextMatrix(row, column.key, text == kNotSet ? "" : text);
    }
  }
}

// Of the practices that have a rate in this column; a practice without one takes no part.
void frmRateCompare::FillStatistics(std::string_view key) {
  Single sum = 0;
  int count = 0;
  std::optional<Single> most, least;
  const int first = fgRates.FixedRows();
  for (int row = first + kHeadRows; row < fgRates.Rows(); ++row) {
    const std::string text = fgRates.TextMatrix(row, key);
    if (text.empty()) continue;
    const auto rate = static_cast<Single>(Val(RemoveAny(text, ",")));
    sum += rate;
    ++count;
    most = std::max(most.value_or(rate), rate);
    least = std::min(least.value_or(rate), rate);
  }
  if (count == 0) return;
  fgRates.SetTextMatrix(first + kMaximum, key, PlainText(*most));
  fgRates.SetTextMatrix(first + kAverage, key, PlainText(sum / static_cast<Single>(count)));
  fgRates.SetTextMatrix(first + kMinimum, key, PlainText(*least));
}

}  // namespace lm
