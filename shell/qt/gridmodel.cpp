#include "shell/qt/gridmodel.h"

#include <QBrush>
#include <QFont>
#include <QGuiApplication>
#include <QPalette>

#include "core/tables.h"
#include "shell/grouping.h"
#include "shell/printtable.h"
#include "shell/qt/liststyle.h"
#include "shell/qt/qtext.h"

namespace lm {
namespace {

Qt::Alignment ToQtAlignment(Alignment alignment) {
  const Qt::Alignment across = alignment == Alignment::Right    ? Qt::AlignRight
                               : alignment == Alignment::Centre ? Qt::AlignHCenter
                                                                : Qt::AlignLeft;
  return across | Qt::AlignVCenter;
}

}  // namespace

GridModel::~GridModel() {
  if (grid_) grid_->RemoveObserver(*this);
}

void GridModel::SetGrid(Grid* grid) {
  if (grid_) grid_->RemoveObserver(*this);
  grid_ = grid;
  if (grid_) grid_->AddObserver(*this);
  stale_ = true;
  Sync();
}

void GridModel::Sync() {
  if (!stale_ || (grid_ && mayRead && !mayRead())) return;
  stale_ = false;
  beginResetModel();
  ReadRows();
  endResetModel();
}

void GridModel::ReadRows() {
  rows_.clear();
  positions_.assign(grid_ ? static_cast<std::size_t>(grid_->Rows()) : 0, -1);
  columns_ = grid_ ? grid_->Cols() : 0;
  firstColumn_ = HasMarker() ? 1 : 0;
  while (firstColumn_ + 1 < columns_ && !grid_->ColVisible(firstColumn_)) ++firstColumn_;
  if (!grid_) return;
  rows_.reserve(positions_.size());
  const int fixed = std::min(grid_->FixedRows(), grid_->Rows());
  for (int row = headings_ ? 0 : fixed; row < (headings_ ? fixed : grid_->Rows()); ++row) {
    if (!grid_->RowVisible(row)) continue;
    positions_[static_cast<std::size_t>(row)] = static_cast<int>(rows_.size());
    rows_.push_back(row);
  }
}

void GridModel::ReadLater() {
  if (stale_) return;
  stale_ = true;
  QMetaObject::invokeMethod(this, &GridModel::Sync, Qt::QueuedConnection);
}

int GridModel::GridRow(const QModelIndex& index) const {
  const auto row = static_cast<std::size_t>(index.row());
  return index.isValid() && row < rows_.size() ? rows_[row] : -1;
}

int GridModel::ModelRow(int gridRow) const {
  return gridRow >= 0 && gridRow < static_cast<int>(positions_.size())
             ? positions_[static_cast<std::size_t>(gridRow)]
             : -1;
}

bool GridModel::HasMarker() const { return grid_ && lm::HasMarker(*grid_); }

bool GridModel::HasTick(int gridRow, int col) const {
  return grid_ && !grid_->Cell(CellSetting::flexcpChecked, gridRow, col).empty();
}

QString GridModel::PictureOf(int gridRow, int col) const {
  return grid_ ? ToQt(grid_->Cell(CellSetting::flexcpPicture, gridRow, col)) : QString();
}

bool GridModel::IsPressed(int gridRow, int col) const {
  return HasTick(gridRow, col) || !PictureOf(gridRow, col).isEmpty();
}

int GridModel::PressedColumn(int gridRow) const {
  for (int col = firstColumn_; col < columns_; ++col)
    if (IsPressed(gridRow, col)) return col;
  return -1;
}

int GridModel::TitleColumn(int gridRow) const { return TitlePlace(*grid_, gridRow, firstColumn_); }

int GridModel::TitleEnd(int gridRow) const {
  int col = TitleColumn(gridRow) + 1;
  while (col < columns_ && (!grid_->ColVisible(col) || ShownText(gridRow, col).empty())) ++col;
  return col;
}

std::string GridModel::ShownText(int gridRow, int col) const {
  return grid_->IsSubtotal(gridRow) ? ShownInGroup(*grid_, gridRow, col, firstColumn_)
                                    : grid_->DisplayText(gridRow, col);
}

int GridModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int GridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : columns_;
}

QColor GridModel::OwnGround(int gridRow, int col) const {
  const QColor colour = ToQColor(grid_->CellColour(CellSetting::flexcpBackColor, gridRow, col));
  return whiteIsPlain_ && colour == QColor(Qt::white) ? QColor() : colour;
}

QVariant GridModel::Ground(int gridRow, int col) const {
  const QColor colour = OwnGround(gridRow, col);
  if (colour.isValid()) return QBrush(colour);
  if (grid_->IsSubtotal(gridRow)) return QGuiApplication::palette().brush(QPalette::Button);
  return {};
}

Qt::Alignment GridModel::AlignmentOf(int gridRow, int col) const {
  const bool title = gridRow >= 0 && grid_->IsSubtotal(gridRow) && col == TitleColumn(gridRow);
  return ToQtAlignment(title ? Alignment::Left : ShownAlignment(*grid_, gridRow, col));
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  const int row = GridRow(index);
  const int col = index.column();
  if (row < 0 || row >= grid_->Rows()) return {};
  if (!grid_->ColVisible(col)) return {};  // readers of the screen would say it
  if (HasMarker() && col == 0)
    return role == Qt::ToolTipRole && lockOf ? QVariant(lockOf(row)) : QVariant();
  switch (role) {
    case Qt::DisplayRole:
      return ToQt(ShownText(row, col));
    case Qt::ToolTipRole:
      if (!PictureOf(row, col).isEmpty()) return tr("More about this line (space bar)");
      return ToQt(Replace(ShownText(row, col), "\r", ""));
    case Qt::AccessibleTextRole:
      if (spokenText) return spokenText(row, col);
      return PictureOf(row, col).isEmpty() ? QVariant() : tr("More about this line");
    case Qt::AccessibleDescriptionRole:
      return spokenNote ? QVariant(spokenNote(row, col)) : QVariant();
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(AlignmentOf(row, col));
    case Qt::CheckStateRole: {
      const std::string tick = grid_->Cell(CellSetting::flexcpChecked, row, col);
      if (tick.empty()) return {};
      return tick == "TRUE" ? Qt::Checked : Qt::Unchecked;
    }
    case Qt::BackgroundRole:
      return Ground(row, col);
    case Qt::ForegroundRole: {
      const QColor own = ToQColor(grid_->CellColour(CellSetting::flexcpForeColor, row, col));
      if (own.isValid()) return QBrush(own);
      const QColor ground = OwnGround(row, col);
      return ground.isValid() ? QVariant(QBrush(ReadableOn(ground))) : QVariant();
    }
    case Qt::FontRole: {
      if (grid_->Cell(CellSetting::flexcpFontBold, row, col) != "TRUE" && !grid_->IsSubtotal(row))
        return {};
      QFont bold;
      bold.setBold(true);
      return bold;
    }
    default:
      return {};
  }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (!grid_ || orientation != Qt::Horizontal || grid_->FixedRows() == 0) return {};
  if (section >= grid_->Cols() || !grid_->ColVisible(section)) return {};
  const int captions = CaptionRow(*grid_);
  if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
    return ToQt(grid_->TextMatrix(captions, section));
  if (role == Qt::TextAlignmentRole)
    return QVariant::fromValue(AlignmentOf(captions, section) |
                               static_cast<Qt::Alignment>(Qt::TextWordWrap));
  return {};
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
  if (!index.isValid() || (HasMarker() && index.column() == 0)) return Qt::ItemIsEnabled;
  Qt::ItemFlags shown = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  // For readers of the screen; the tick itself is the view's matter.
  if (HasTick(GridRow(index), index.column())) shown |= Qt::ItemIsUserCheckable;
  return editable_ ? shown | Qt::ItemIsEditable : shown;
}

void GridModel::CellsChanged(Grid&, const CellRange& range) {
  if (stale_) return;
  if (range.row1 < grid_->FixedRows() && columns_ > 0)
    emit headerDataChanged(Qt::Horizontal, 0, columns_ - 1);
  int first = -1, last = -1;
  for (int row = range.row1; row <= range.row2; ++row) {
    const int shown = ModelRow(row);
    if (shown < 0) continue;
    if (first < 0) first = shown;
    last = shown;
  }
  if (first >= 0 && columns_ > 0) emit dataChanged(index(first, 0), index(last, columns_ - 1));
}

void GridModel::RowsInserted(Grid&, int, int) { ReadLater(); }
void GridModel::RowsRemoved(Grid&, int, int) { ReadLater(); }
void GridModel::GridReset(Grid&) { ReadLater(); }

void GridModel::LayoutChanged(Grid&) {
  if (!ignoreLayout_) ReadLater();
}

void GridModel::CursorMoved(Grid&) {
  if (!stale_) emit cursorMoved();
}

}  // namespace lm
