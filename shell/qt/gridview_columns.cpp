// How wide the columns of a list are, in pixels.
#include <QRegularExpression>
#include <algorithm>

#include "core/tables.h"
#include "core/text.h"
#include "shell/qt/gridview.h"
#include "shell/qt/qtext.h"

namespace lm {
namespace {

constexpr int kColumnPadding = 24;
constexpr const char* kLargeSum = "88,888.88";
constexpr int kMeasuredRows = 60;  // rows looked at for the width of a column without one
constexpr int kSignWidth = 14;     // room for its sign
constexpr int kNarrowest = 56, kWidest = 260;
constexpr int kWidestFit = 640;     // pixels of a column that shall fit a long note
constexpr int kWidestChoice = 200;  // of one that shall show its choices
constexpr int kSpare = 12;          // of a column's padding, where many stand beside each other
constexpr int kHeadingRoom = 16;    // pixels beside a word of a heading

int WidestLine(const QFontMetrics& metrics, const QString& text) {
  int widest = 0;
  for (const QString& line : text.split('\n'))
    widest = std::max(widest, metrics.horizontalAdvance(line));
  return widest;
}

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

// A column without a width of its own fits what it shows, and grows with it.
int GridView::ColumnWidth(int col) {
  const int twips = Shown()->ColWidth(col);
  const bool marker = model_->HasMarker() && col == 0;
  if (twips > 0)
    return std::max(TwipsToPixels(twips, logicalDpiX()), marker ? kSignWidth : RoomForWords(col));
  const std::string& key = Shown()->ColKey(col);
  int& width = measured_[key.empty() ? Shown()->TextMatrix(CaptionRow(*Shown()), col) : key];
  width = std::max(width, std::clamp(sizeHintForColumn(col), kNarrowest, kWidest));
  return width;
}

int GridView::sizeHintForColumn(int col) const { return WidestText(col, kMeasuredRows); }

// With its padding, over the first rows.
int GridView::WidestText(int col, int rows) const {
  QFont bold = style_.font;
  bold.setBold(true);
  const QFontMetrics metrics(style_.font), boldMetrics(bold);
  int widest =
      WidestLine(metrics, model_->headerData(col, Qt::Horizontal, Qt::DisplayRole).toString());
  // The sums of groups come later.
  if (Shown()->ColFormat(col).find('#') != std::string::npos)
    widest = std::max(widest, boldMetrics.horizontalAdvance(kLargeSum));
  for (int shown = 0; shown < std::min(model_->rowCount(), rows); ++shown) {
    const int row = model_->GridRow(model_->index(shown, 0));
    if (IsGroup(row) && col >= model_->TitleColumn(row) && col < model_->TitleEnd(row)) continue;
    const QString text = model_->index(shown, col).data().toString();
    widest = std::max(widest, (IsGroup(row) ? boldMetrics : metrics).horizontalAdvance(text));
  }
  return widest + kColumnPadding;
}

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
