// How a list gives its columns more room than they have of their own.
#include <QRegularExpression>
#include <algorithm>

#include "core/tables.h"
#include "core/text.h"
#include "shell/qt/gridview.h"
#include "shell/qt/qtext.h"

namespace lm {
namespace {

constexpr int kWidestFit = 640;     // pixels of a column that shall fit a long note
constexpr int kWidestChoice = 200;  // of one that shall show its choices
constexpr int kSpare = 12;          // of a column's padding, where many stand beside each other
constexpr int kHeadingRoom = 16;    // pixels beside a word of a heading

// Null when the user has given the column a width.
const ColumnSpec* ShippedColumn(const Grid& grid, int col) {
  const TableSpec* table = FindTable(grid.Name());
  if (!table) return nullptr;
  for (const ColumnSpec& column : table->columns)
    if (EqualsIgnoreCase(column.key, grid.ColKey(col)))
      return column.width == grid.ColWidth(col) ? &column : nullptr;
  return nullptr;
}

}  // namespace

void GridView::FitColumn(int col) {
  if (!Shown() || col < model_->FirstColumn() || !Shown()->ColVisible(col) || Wraps(col)) return;
  const int widest = std::min(WidestText(col, model_->rowCount()), kWidestFit);
  Shown()->SetColWidth(col, PixelsToTwips(widest, logicalDpiX()));
}

// A column that the user has not sized cuts neither the words of its heading nor, where it is
// chosen from a list, the usual choices. In pixels.
int GridView::RoomForWords(int col) const {
  const ColumnSpec* column = ShippedColumn(*Shown(), col);
  if (!column) return 0;
  const QFontMetrics metrics(style_.font);
  int widest = 0;
  const QString caption = ToQt(Shown()->TextMatrix(CaptionRow(*Shown()), col));
  for (const QString& word : caption.split(QRegularExpression("\\s")))
    widest = std::max(widest, metrics.horizontalAdvance(word) + kHeadingRoom);
  if (column->lookup != Lookup::None)
    widest = std::max(widest, std::min(sizeHintForColumn(col) - kSpare, kWidestChoice));
  return widest;
}

void GridView::GiveRoomToLast() {
  if (!lastTakesRoom_ || !Shown() || !model_->IsRead()) return;
  QHeaderView& header = *horizontalHeader();
  int last = -1, before = 0;
  for (int col = 0; col < header.count(); ++col) {
    if (header.isSectionHidden(col)) continue;
    if (last >= 0) before += header.sectionSize(last);
    last = col;
  }
  if (last < model_->FirstColumn()) return;
  const bool wasReading = std::exchange(reading_, true);
  header.resizeSection(last, std::max(ColumnWidth(last), viewport()->width() - before));
  reading_ = wasReading;
}

}  // namespace lm
