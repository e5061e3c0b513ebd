#include "core/ledger.h"

#include "core/options.h"
#include "core/text.h"

namespace lm {

Ledger::Ledger(Platform& platform) : platform(platform) {
  for (std::size_t i = 0; i < kTables.size(); ++i) MakeBlank(*dataTables[i], kTables[i]);
  fgPensionC.DeclareKey("CONTRIBUTION");  // of earlier years
  for (Grid* table : dataTables) table->SetHistory(&history);
  MakeBlank(fgShortcuts, kShortcutsTable);
  fgOptions.SetCols(kOptionCount);
  fgOptions.SetRows(2);
  fgOptions.SetFixedRows(2);
  fgOptions.SetRowHidden(1, true);
}

Ledger::~Ledger() = default;

Grid* Ledger::Table(std::string_view name) {
  for (Grid* table : dataTables)
    if (EqualsIgnoreCase(table->Name(), name)) return table;
  for (Grid* table : {&fgOptions, &fgShortcuts, &fgTemp})
    if (EqualsIgnoreCase(table->Name(), name)) return table;
  return nullptr;
}

}  // namespace lm
