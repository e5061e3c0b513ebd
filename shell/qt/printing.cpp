#include "shell/qt/printing.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <algorithm>
#include <vector>

#include "shell/grouping.h"
#include "shell/qt/liststyle.h"
#include "shell/qt/qtext.h"

namespace lm {
namespace {

constexpr int kDefaultWidth = 1200;  // twips of a column without a width
constexpr double kFontPoints = 8.5;

class GridPainter {
 public:
  GridPainter(QPagedPaintDevice& paper, const Ledger& ledger, const Grid& grid,
              const std::string& title)
      : paper_(paper),
        grid_(grid),
        title_(ToQt(title)),
        font_(ListStyleOf(ledger, QPalette()).font) {
    font_.setPointSizeF(kFontPoints);
  }

  int Paint() {
    if (!painter_.begin(&paper_)) return 0;
    painter_.setFont(font_);
    lineHeight_ = painter_.fontMetrics().height() * 3 / 2;
    padding_ = painter_.fontMetrics().averageCharWidth();
    MeasureColumns();
    BeginPage();
    for (int row = grid_.FixedRows(); row < grid_.Rows(); ++row) {
      if (!grid_.RowVisible(row)) continue;
      if (y_ + 2 * lineHeight_ > painter_.viewport().height()) {
        paper_.newPage();
        BeginPage();
      }
      PaintRow(row, grid_.IsSubtotal(row));
    }
    painter_.end();
    return page_;
  }

 private:
  std::string ShownText(int row, int col) const {
    return grid_.IsSubtotal(row) ? ShownInGroup(grid_, row, col, 1) : grid_.DisplayText(row, col);
  }

  struct Column {
    int col;
    int left;
    int width;
    Qt::Alignment alignment;
  };

  void MeasureColumns() {
    int total = 0;
    for (int col = 1; col < grid_.Cols(); ++col) {
      if (!grid_.ColVisible(col)) continue;
      const int width = grid_.ColWidth(col) > 0 ? grid_.ColWidth(col) : kDefaultWidth;
      const bool figures =
          grid_.ColDataType(col) == DataType::Money || !grid_.ColFormat(col).empty();
      columns_.push_back({col, total, width, figures ? Qt::AlignRight : Qt::AlignLeft});
      total += width;
    }
    // A narrow list keeps its own widths, a wide one is made to fit.
    const int own = TwipsToPixels(total, paper_.logicalDpiX());
    const double scale =
        static_cast<double>(std::min(own, painter_.viewport().width())) / std::max(total, 1);
    for (Column& column : columns_) {
      column.left = static_cast<int>(column.left * scale);
      column.width = static_cast<int>(column.width * scale);
    }
  }

  void BeginPage() {
    ++page_;
    y_ = 0;
    QFont heading = font_;
    heading.setPointSizeF(kFontPoints * 1.5);
    heading.setBold(true);
    painter_.setFont(heading);
    const int height = painter_.fontMetrics().height();
    painter_.drawText(QRect(0, 0, painter_.viewport().width(), height), Qt::AlignLeft, title_);
    painter_.setFont(font_);
    const QRect foot(0, painter_.viewport().height() - lineHeight_, painter_.viewport().width(),
                     lineHeight_);
    painter_.drawText(foot, Qt::AlignRight | Qt::AlignBottom, QObject::tr("Page %1").arg(page_));
    y_ = height + lineHeight_ / 2;
    if (grid_.FixedRows() > 0) PaintRow(0, true);
  }

  void PaintRow(int row, bool bold) {
    QFont font = font_;
    font.setBold(bold);
    painter_.setFont(font);
    for (const Column& column : columns_) {
      const QRect cell(column.left + padding_, y_, column.width - 2 * padding_, lineHeight_);
      const QString text = ToQt(ShownText(row, column.col)).replace('\n', ' ').remove('\r');
      painter_.drawText(cell,
                        static_cast<int>(column.alignment | Qt::AlignVCenter) | Qt::TextSingleLine,
                        painter_.fontMetrics().elidedText(text, Qt::ElideRight, cell.width()));
    }
    y_ += lineHeight_;
    painter_.setPen(QPen(row == 0 ? Qt::black : Qt::lightGray, row == 0 ? 2 : 1));
    if (!columns_.empty())
      painter_.drawLine(0, y_, columns_.back().left + columns_.back().width, y_);
    painter_.setPen(Qt::black);
  }

  QPagedPaintDevice& paper_;
  const Grid& grid_;
  QString title_;
  QFont font_;
  QPainter painter_;
  std::vector<Column> columns_;
  int lineHeight_ = 0;
  int padding_ = 0;
  int y_ = 0;
  int page_ = 0;
};

}  // namespace

int PaintGrid(QPagedPaintDevice& paper, const Ledger& ledger, const Grid& grid,
              const std::string& title) {
  return GridPainter(paper, ledger, grid, title).Paint();
}

void PrintGrid(const Ledger& ledger, Grid& grid, const std::string& title, QWidget* parent) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageOrientation(QPageLayout::Landscape);
  printer.setDocName(ToQt(title));
  QPrintPreviewDialog preview(&printer, parent);
  preview.setWindowTitle(ToQt(title));
  QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, &preview,
                   [&](QPrinter* paper) { PaintGrid(*paper, ledger, grid, title); });
  preview.resize(1000, 720);
  preview.exec();
}

}  // namespace lm
