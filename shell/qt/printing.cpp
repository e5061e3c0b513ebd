#include "shell/qt/printing.h"

#include <QFontMetrics>
#include <QObject>
#include <QPainter>
#include <QPrinter>
#include <algorithm>
#include <numeric>
#include <vector>

#include "core/format.h"
#include "core/platform.h"
#include "shell/printtable.h"
#include "shell/qt/liststyle.h"
#include "shell/qt/printpreview.h"
#include "shell/qt/qtext.h"

namespace lm {
namespace {

constexpr double kFontPoints = 8.5;
constexpr double kSmallestPoints = 5;

struct Row {
  std::vector<QString> texts;
  bool bold;
  int title;
  int height = 0;
  std::vector<Alignment> alignments = {};
};

class GridPainter {
 public:
  GridPainter(QPagedPaintDevice& paper, const Ledger& ledger, const Grid& grid,
              const PrintHeading& heading)
      : paper_(paper),
        table_(MakePrintTable(grid)),
        title_(ToQt(heading.title)),
        period_(ToQt(heading.period)),
        printed_(QObject::tr("Printed %1")
                     .arg(ToQt(FormatDate(ledger.platform.clock.Now(), "dd/mm/yyyy hh:nn")))),
        font_(ListStyleOf(ledger, QPalette()).font) {
    font_.setPointSizeF(kFontPoints);
    captions_ = {{}, true, -1};
    captions_.alignments = table_.alignments;
    for (const std::string& caption : table_.captions) captions_.texts.push_back(ToQt(caption));
    for (const PrintedRow& row : table_.rows) {
      rows_.push_back({{}, row.bold, row.title});
      rows_.back().alignments = row.alignments.empty() ? table_.alignments : row.alignments;
      for (const std::string& text : row.texts)
        rows_.back().texts.push_back(ToQt(text).replace('\n', ' ').remove('\r').trimmed());
    }
  }

  int Paint() {
    if (!painter_.begin(&paper_)) return 0;
    width_ = painter_.viewport().width();
    MeasureColumns();
    for (Row& row : rows_) row.height = HeightOf(row);
    captions_.height = HeightOf(captions_);
    const std::vector<std::size_t> pages = PageStarts();
    for (std::size_t page = 0; page < pages.size(); ++page) {
      if (page > 0) paper_.newPage();
      const std::size_t end = page + 1 < pages.size() ? pages[page + 1] : rows_.size();
      PaintPage(pages[page], end, static_cast<int>(page) + 1, static_cast<int>(pages.size()));
    }
    painter_.end();
    return static_cast<int>(pages.size());
  }

 private:
  QFont FontOf(bool bold) const {
    QFont font = font_;
    font.setBold(bold);
    return font;
  }
  QFontMetrics MetricsOf(bool bold) const { return QFontMetrics(FontOf(bold), &paper_); }
  int Padding() const { return MetricsOf(false).averageCharWidth() * 4 / 5; }
  int LineHeight() const { return MetricsOf(false).height() * 5 / 4; }

  static int LongestWord(const QFontMetrics& metrics, const QString& text) {
    int longest = 0;
    for (const QString& word : text.split(' '))
      longest = std::max(longest, metrics.horizontalAdvance(word));
    return longest;
  }

  // At the ends of words; within a word only where it is wider than its column.
  static int WrapOf(const QFontMetrics& metrics, const QString& text, int width) {
    return LongestWord(metrics, text) > width ? Qt::TextWrapAnywhere : Qt::TextWordWrap;
  }

  // What a column would like to have, and what it needs: figures and days are never broken, a text
  // is where its words end.
  void MeasureTexts() {
    const QFontMetrics plain = MetricsOf(false), bold = MetricsOf(true);
    liked_.clear();
    needed_.clear();
    for (std::size_t col = 0; col < captions_.texts.size(); ++col) {
      const int heading = LongestWord(bold, captions_.texts[col]);
      int widest = heading, word = heading;
      for (const Row& row : rows_) {
        if (row.title == static_cast<int>(col)) continue;  // may run on over empty cells
        const QFontMetrics& metrics = row.bold ? bold : plain;
        const int width = metrics.horizontalAdvance(row.texts[col]);
        if (width <= word) continue;
        widest = std::max(widest, width);
        word = std::max(word, row.alignments[col] == Alignment::Left
                                  ? LongestWord(metrics, row.texts[col])
                                  : width);
      }
      const int edges = 2 * Padding() + 2;
      liked_.push_back(widest + edges);
      needed_.push_back(std::min(word + edges, width_ / 3));
    }
    for (const Row& row : rows_) MakeRoomForTitle(row);
  }

  // A title that its own and the empty cells behind it do not hold widens its column.
  void MakeRoomForTitle(const Row& row) {
    if (row.title < 0) return;
    const auto title = static_cast<std::size_t>(row.title);
    int room = 0;
    for (std::size_t col = title; col < liked_.size(); ++col) {
      if (col > title && !row.texts[col].isEmpty()) break;
      room += liked_[col];
    }
    const int wanted = MetricsOf(row.bold).horizontalAdvance(row.texts[title]) + 2 * Padding() + 2;
    if (wanted > room) liked_[title] += wanted - room;
  }

  static int Sum(const std::vector<int>& widths) {
    return std::accumulate(widths.begin(), widths.end(), 0);
  }

  void MeasureColumns() {
    MeasureTexts();
    while (Sum(needed_) > width_ && font_.pointSizeF() > kSmallestPoints) {
      font_.setPointSizeF(font_.pointSizeF() - 0.5);
      MeasureTexts();
    }
    columns_ = liked_;
    const int over = Sum(liked_) - width_;
    if (over <= 0) return;
    // Each gives of what it has beyond its need; where even the needs are too wide, of all.
    const int spare = Sum(liked_) - Sum(needed_);
    for (std::size_t col = 0; col < columns_.size(); ++col)
      columns_[col] =
          over <= spare
              ? liked_[col] - static_cast<int>(double(liked_[col] - needed_[col]) * over / spare)
              : static_cast<int>(double(needed_[col]) * width_ / Sum(needed_));
  }

  int AcrossOf(const Row& row, std::size_t col) const {
    int across = columns_[col];
    if (row.title != static_cast<int>(col)) return across;
    for (std::size_t next = col + 1; next < columns_.size() && row.texts[next].isEmpty(); ++next)
      across += columns_[next];
    return across;
  }

  int HeightOf(const Row& row) const {
    const QFontMetrics metrics = MetricsOf(row.bold);
    int tallest = metrics.height();
    for (std::size_t col = 0; col < row.texts.size(); ++col) {
      const int across = std::max(AcrossOf(row, col) - 2 * Padding(), 1);
      if (metrics.horizontalAdvance(row.texts[col]) > across)
        tallest = std::max(
            tallest, metrics
                         .boundingRect(QRect(0, 0, across, BodyHeight()),
                                       WrapOf(metrics, row.texts[col], across), row.texts[col])
                         .height());
    }
    return std::min(tallest, BodyHeight()) + LineHeight() / 3;
  }

  QFont HeadingFont() const {
    QFont heading = FontOf(true);
    heading.setPointSizeF(kFontPoints * 1.5);
    return heading;
  }
  int HeadHeight() const {
    const int title = QFontMetrics(HeadingFont(), &paper_).height();
    return title + (period_.isEmpty() ? 0 : LineHeight()) + LineHeight() / 2;
  }
  // Between the head and the foot of a page, captions included.
  int BodyHeight() const {
    return std::max(painter_.viewport().height() - HeadHeight() - 2 * LineHeight(), LineHeight());
  }

  std::vector<std::size_t> PageStarts() const {
    std::vector<std::size_t> starts{0};
    int height = captions_.height;
    for (std::size_t row = 0; row < rows_.size(); ++row) {
      height += rows_[row].height;
      if (height <= BodyHeight() || row == starts.back()) continue;
      starts.push_back(row);
      height = captions_.height + rows_[row].height;
    }
    return starts;
  }

  void PaintPage(std::size_t from, std::size_t to, int page, int pages) {
    const QRect whole = QRect(QPoint(), painter_.viewport().size());
    painter_.setPen(Qt::black);
    painter_.setFont(HeadingFont());
    painter_.drawText(whole, Qt::AlignLeft | Qt::AlignTop, title_);
    y_ = painter_.fontMetrics().height();
    painter_.setFont(FontOf(false));
    painter_.drawText(QRect(0, y_, whole.width(), LineHeight()), Qt::AlignLeft, period_);
    painter_.drawText(whole, Qt::AlignLeft | Qt::AlignBottom, printed_);
    painter_.drawText(whole, Qt::AlignRight | Qt::AlignBottom,
                      QObject::tr("Page %1 of %2").arg(page).arg(pages));
    y_ = HeadHeight();
    PaintRow(captions_, true);
    for (std::size_t row = from; row < to; ++row)
      PaintRow(rows_[row], table_.summed && row + 2 == rows_.size());
  }

  void PaintRow(const Row& row, bool heavyLine) {
    painter_.setFont(FontOf(row.bold));
    painter_.setPen(Qt::black);
    int left = 0;
    for (std::size_t col = 0; col < row.texts.size(); ++col) {
      const Alignment alignment =
          row.title == static_cast<int>(col) ? Alignment::Left : row.alignments[col];
      const int across = alignment == Alignment::Right    ? Qt::AlignRight
                         : alignment == Alignment::Centre ? Qt::AlignHCenter
                                                          : Qt::AlignLeft;
      const int width = AcrossOf(row, col) - 2 * Padding();
      painter_.drawText(
          QRect(left + Padding(), y_, width, row.height),
          across | Qt::AlignVCenter | WrapOf(MetricsOf(row.bold), row.texts[col], width),
          row.texts[col]);
      left += columns_[col];
    }
    y_ += row.height;
    painter_.setPen(QPen(heavyLine ? Qt::black : Qt::lightGray, heavyLine ? 2 : 1));
    painter_.drawLine(0, y_, left, y_);
  }

  QPagedPaintDevice& paper_;
  const PrintTable table_;
  const QString title_, period_, printed_;
  QFont font_;
  QPainter painter_;
  Row captions_;
  std::vector<Row> rows_;
  std::vector<int> liked_, needed_, columns_;  // widths in the paper's dots
  int width_ = 0;
  int y_ = 0;
};

}  // namespace

int PaintGrid(QPagedPaintDevice& paper, const Ledger& ledger, const Grid& grid,
              const PrintHeading& heading) {
  return GridPainter(paper, ledger, grid, heading).Paint();
}

void PrintGrid(const Ledger& ledger, Grid& grid, const PrintHeading& heading, QWidget* parent) {
  ShowPrintPreview(
      ToQt(heading.title), [&](QPrinter& paper) { PaintGrid(paper, ledger, grid, heading); },
      parent);
}

}  // namespace lm
