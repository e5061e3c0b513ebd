// Paints the cells of a GridView and owns the editor of the cell being typed into.
#pragma once

#include <QPointer>
#include <QStyledItemDelegate>
#include <optional>
#include <string>

#include "core/screen.h"

namespace lm {

class GridView;

class GridDelegate : public QStyledItemDelegate {
  Q_OBJECT
 public:
  explicit GridDelegate(GridView* view);

  // What the next editor starts with in place of the cell's text.
  void StartWith(std::optional<QString> typed) { typed_ = std::move(typed); }
  // After the view has opened an editor and selected all of it: what was typed first must not be
  // typed over.
  void Opened();
  // True when no editor is open afterwards.
  bool Commit();
  // Of a cell's text in a column of this width, on as many lines as it takes; in pixels.
  int TextHeight(const QModelIndex& index, int width) const;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const override;
  void setEditorData(QWidget* editor, const QModelIndex& index) const override;
  void setModelData(QWidget*, QAbstractItemModel*, const QModelIndex&) const override {}
  void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const override;
  // Ticking is the view's matter, on all of the cell.
  bool editorEvent(QEvent*, QAbstractItemModel*, const QStyleOptionViewItem&,
                   const QModelIndex&) override {
    return false;
  }
  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
  void PaintLines(QPainter& painter, const QRect& rect) const;

 private:
  QWidget* ListEditor(QWidget* parent, const std::string& list) const;
  QWidget* TextEditor(QWidget* parent, int row, int col, Qt::Alignment alignment) const;
  void KeepReadable(QStyleOptionViewItem& option) const;
  void PaintMarker(QPainter& painter, const QRect& rect, int gridRow) const;
  void PaintPadlock(QPainter& painter, const QRect& room) const;
  void PaintSwatch(QPainter& painter, const QRect& rect, int gridRow, int col) const;
  // Where the cell's text begins behind the box; a box alone stands in the middle.
  int PaintTick(QPainter& painter, const QStyleOptionViewItem& cell, bool alone) const;
  void PaintExpander(QPainter& painter, const QStyleOptionViewItem& option, int gridRow) const;
  // What the open editor holds; nothing where no entry of a list is chosen.
  std::optional<CellInput> Input() const;
  void CloseEditor();
  void CommitWhenLeft();
  void EditNeighbour(int step);
  bool LeavesDroppedList(const QEvent& event);
  void Pick(QWidget& button, Picker picker);

  GridView* view_;
  std::optional<QString> typed_;
  // The open editor and its cell; set when the view makes one.
  mutable QPointer<QWidget> editor_;
  mutable int editRow_ = -1;
  mutable int editCol_ = -1;
  bool committing_ = false;
};

}  // namespace lm
