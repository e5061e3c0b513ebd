// A Grid as Qt sees it. The rows of the model are the visible data rows, its columns all columns of
// the grid in their order. Changes of rows or layout are gathered and read once, when the event
// loop comes round or Sync is called.
#pragma once

#include <QAbstractTableModel>
#include <functional>
#include <vector>

#include "core/grid.h"

namespace lm {

class GridModel : public QAbstractTableModel, private GridObserver {
  Q_OBJECT
 public:
  explicit GridModel(QObject* parent = nullptr) : QAbstractTableModel(parent) {}
  ~GridModel() override;

  // The grid's one observer is this model until another grid, or null, is set.
  void SetGrid(Grid* grid);
  Grid* Shown() const { return grid_; }
  void Sync();
  bool IsRead() const { return !stale_; }
  // Asked before it reads; what it may not read yet waits for a Sync.
  std::function<bool()> mayRead;

  int GridRow(const QModelIndex& index) const;  // -1 for an invalid index
  int ModelRow(int gridRow) const;              // -1 when the row is not visible
  // The narrow first column that shows a row's state by its colour.
  bool HasMarker() const;
  // The first column that shows something.
  int FirstColumn() const { return firstColumn_; }
  int TitleColumn(int gridRow) const;  // where a group's title stands
  bool HasTick(int gridRow, int col) const;
  // The name of the picture in a cell; "" for none.
  QString PictureOf(int gridRow, int col) const;
  // A box to tick or a picture to press.
  bool IsPressed(int gridRow, int col) const;
  // The column of this row that holds one; -1 for none.
  int PressedColumn(int gridRow) const;
  // The first column behind a group's title that shows something else.
  int TitleEnd(int gridRow) const;
  void SetEditable(bool editable) { editable_ = editable; }
  // Shows the heading rows in place of the data rows: the fixed part of a calendar.
  void SetHeadings(bool headings) { headings_ = headings; }
  // A white ground is the list's own, which is dark on a dark desktop.
  void SetWhiteIsPlain(bool plain) { whiteIsPlain_ = plain; }
  // Layout changes that the view itself makes are not read back.
  void IgnoreLayout(bool ignore) { ignoreLayout_ = ignore; }

  // Why a row is locked, "" when it is not; nothing set: none is.
  std::function<QString(int gridRow)> lockOf;
  // What readers of the screen hear beside a cell's text.
  std::function<QString(int gridRow, int col)> spokenNote;
  // What screen readers hear of a cell, in place of its text.
  std::function<QString(int gridRow, int col)> spokenText;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

 signals:
  void cursorMoved();

 private:
  void CellsChanged(Grid& grid, const CellRange& range) override;
  void RowsInserted(Grid& grid, int row, int count) override;
  void RowsRemoved(Grid& grid, int row, int count) override;
  void LayoutChanged(Grid& grid) override;
  void CursorMoved(Grid& grid) override;
  void GridReset(Grid& grid) override;

  void ReadLater();
  void ReadRows();
  std::string ShownText(int gridRow, int col) const;
  QColor OwnGround(int gridRow, int col) const;  // invalid where there is none
  QVariant Ground(int gridRow, int col) const;
  Qt::Alignment AlignmentOf(int gridRow, int col) const;

  Grid* grid_ = nullptr;
  std::vector<int> rows_;       // grid row of each model row
  std::vector<int> positions_;  // model row of each grid row, -1 for one not shown
  int columns_ = 0;
  int firstColumn_ = 0;
  bool stale_ = false;
  bool editable_ = false;
  bool ignoreLayout_ = false;
  bool headings_ = false;
  bool whiteIsPlain_ = false;
};

}  // namespace lm
