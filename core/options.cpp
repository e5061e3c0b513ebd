#include "core/options.h"

#include <algorithm>
#include <utility>

#include "core/datafile.h"
#include "core/dates.h"
#include "core/optiontable.h"
#include "core/platform.h"
#include "core/text.h"

#ifndef LEDGERMINDER_VERSION
#error "LEDGERMINDER_VERSION is set by the build"
#endif

namespace lm {
namespace {

constexpr int kOptionRow = 0;
constexpr int kDetailsRow = 1;

bool IsOption(int option) { return option >= 0 && option < kOptionCount; }
bool IsDetail(int field) { return field >= 0 && field <= kDaysToPayField; }

void EnsureShape(Grid& grid) {
  if (grid.Cols() != kOptionCount) grid.SetCols(kOptionCount);
  if (grid.Rows() <= kDetailsRow) grid.SetRows(kDetailsRow + 1);
}

void SetIfEmpty(Ledger& ledger, int option, std::string_view text) {
  if (GetOption(ledger, option).empty()) SetOption(ledger, option, text);
}

// The first of the five fields belongs to old values; a text of four fields lacks it.
void PadDefaultRates(Ledger& ledger) {
  const std::string rates = GetOption(ledger, optDefaultRates);
  if (std::count(rates.begin(), rates.end(), '|') < 4)
    SetOption(ledger, optDefaultRates, "|" + rates);
}

}  // namespace

std::string_view ProgramVersion() { return LEDGERMINDER_VERSION; }

std::string GetOption(const Ledger& ledger, int option) {
  return ledger.fgOptions.TextMatrix(kOptionRow, IsOption(option) ? option : -1);
}

void SetOption(Ledger& ledger, int option, std::string_view text) {
  if (!IsOption(option)) return;
  EnsureShape(ledger.fgOptions);
  ledger.fgOptions.SetTextMatrix(kOptionRow, option, text);
}

bool OptionIsTrue(const Ledger& ledger, int option) {
  return EqualsIgnoreCase(GetOption(ledger, option), "TRUE");
}

namespace {

std::string StoredDetail(const Ledger& ledger, int field) {
  return ledger.fgOptions.TextMatrix(kDetailsRow, IsDetail(field) ? field : -1);
}

}  // namespace

std::string MyDetail(const Ledger& ledger, int field) {
  const auto typed = ledger.typedDetails.find(field);
  return typed == ledger.typedDetails.end() ? StoredDetail(ledger, field) : typed->second;
}

void SetMyDetail(Ledger& ledger, int field, std::string_view text) {
  if (!IsDetail(field)) return;
  EnsureShape(ledger.fgOptions);
  ledger.fgOptions.SetTextMatrix(kDetailsRow, field, text);
  ledger.typedDetails.erase(field);
}

void TypeMyDetail(Ledger& ledger, int field, std::string_view text) {
  if (!IsDetail(field)) return;
  if (StoredDetail(ledger, field) == text)
    ledger.typedDetails.erase(field);
  else
    ledger.typedDetails.insert_or_assign(field, std::string(text));
}

void StoreTypedDetails(Ledger& ledger) {
  const auto typed = std::exchange(ledger.typedDetails, {});
  for (const auto& [field, text] : typed) SetMyDetail(ledger, field, text);
}

std::string MyName(const Ledger& ledger) {
  return std::string(
      Trim(MyDetail(ledger, kFirstNameField) + " " + MyDetail(ledger, kLastNameField)));
}

bool SaveOptions(Ledger& ledger) {
  return SaveGridFile(ledger, ledger.OptionsFile(), ledger.fgOptions);
}

void SetDefaultOptions(Ledger& ledger) {
  EnsureShape(ledger.fgOptions);
  for (const OptionSpec& option : OptionSpecs()) SetIfEmpty(ledger, option.number, option.text);
  SetIfEmpty(ledger, optPasswordHash, DigestOf(""));
  PadDefaultRates(ledger);

  const std::string today = CellText(ledger.platform.clock.Now());
  SetIfEmpty(ledger, optUpgradeDate, today);
  SetOption(ledger, optVersionInstalled, ProgramVersion());
  if (GetOption(ledger, optVersionLastRun) != ProgramVersion()) {
    SetOption(ledger, optVersionLastRun, ProgramVersion());
    SetOption(ledger, optUpgradeDate, today);
    SaveOptions(ledger);
  }
}

void SetFirstInstallOptions(Ledger& ledger) {
  for (const OptionSpec& option : OptionSpecs())
    if (!option.firstValue.empty()) SetOption(ledger, option.number, option.firstValue);
}

}  // namespace lm
