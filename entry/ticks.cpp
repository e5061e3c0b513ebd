#include "entry/ticks.h"

#include "core/text.h"

namespace lm {

// Entries without a text: the box alone is seen.
void MakeTickColumn(Grid& lines, std::string_view key) {
  lines.SetColComboList(lines.ColIndex(key), "#TRUE;|#FALSE;");
}

void SetTick(Grid& lines, int row, std::string_view key, bool ticked) {
  const std::string_view text = ticked ? "TRUE" : "FALSE";
  lines.SetTextMatrix(row, key, text);
  lines.SetCell(CellSetting::flexcpChecked, row, lines.ColIndex(key), text);
}

bool IsTicked(const Grid& lines, int row, std::string_view key) {
  return lines.TextMatrix(row, key) == "TRUE";
}

std::optional<std::string> EnterTick(std::string_view typed) {
  const std::string tick = ToUpper(Trim(typed));
  if (tick == "TRUE" || tick == "FALSE") return tick;
  return std::nullopt;
}

}  // namespace lm
