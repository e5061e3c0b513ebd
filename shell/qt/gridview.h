// The one list widget: shows any Grid and lets the user sort, move and size columns, open rows,
// edit in place, and open and close groups.
#pragma once

#include <QBasicTimer>
#include <QHeaderView>
#include <QTableView>
#include <functional>
#include <map>
#include <optional>
#include <string>

#include "core/screen.h"
#include "shell/qt/gridmodel.h"
#include "shell/qt/liststyle.h"

namespace lm {

class GridDelegate;

class GridView : public QTableView {
  Q_OBJECT
  // A list without an editor window: a double click edits in place and Enter adds a row.
  Q_PROPERTY(bool editsInPlace MEMBER editsInPlace_)
  // A list of choices: the cursor is a cell, and a click or the space bar takes it.
  Q_PROPERTY(bool choice READ IsChoice WRITE SetChoice)
  // A list that is there only while it has rows.
  Q_PROPERTY(bool hidesWhenEmpty MEMBER hidesWhenEmpty_)
  // The last column takes the room that the others leave.
  Q_PROPERTY(bool fillsWidth READ FillsWidth WRITE SetFillsWidth)
  // The column of this key takes the room that the others leave, and rows grow with its texts.
  Q_PROPERTY(QString wrappedColumn MEMBER wrappedColumn_)
  // What is typed goes to the column of this key, wherever in the row the cursor stands.
  Q_PROPERTY(QString typedColumn MEMBER typedColumn_)
  // What stands in the middle of an empty list.
  Q_PROPERTY(QString emptyText MEMBER emptyText_)
  // A list of sections: a bold text in the first column spreads over the empty cells behind it, and
  // a white ground is the list's own.
  Q_PROPERTY(bool sections READ HasSections WRITE SetSections)
  // Of a view of headings: the grid of which it shows the fixed rows.
  Q_PROPERTY(QString headingsOf READ HeadingsOf WRITE SetHeadingsOf)

 public:
  explicit GridView(QWidget* parent = nullptr);

  // Shows a grid of the screen. Both outlive the view or are taken back with Unbind.
  void Bind(Screen& screen, Grid& grid);
  void Unbind();
  Grid* Shown() const { return model_->Shown(); }
  GridModel& Model() { return *model_; }
  const GridModel& Model() const { return *model_; }
  const ListStyle& Style() const { return style_; }

  // Out of sight the list reads nothing; it catches up when it is shown. Of lists of which there
  // are many behind each other.
  void ReadWhenShown();

  // The user's acts on headers; without them a header neither sorts nor moves.
  std::function<void(int col)> onHeaderClicked;
  std::function<void(int from, int to)> onColumnMoved;
  // The menu of a header, -1 for the room beside the columns; `place` is one of the screen.
  std::function<void(int col, const QPoint& place)> onHeaderMenu;
  // Several rows may be selected: which, those that the user deletes, and those that he copies.
  std::function<void(std::vector<int> gridRows)> onSelected;
  std::function<void()> onDelete;
  std::function<void()> onCopy;
  void LetSelectSeveral() { setSelectionMode(ExtendedSelection); }
  // What stands in the middle while the list is empty, where that is no single text.
  std::function<QString()> whenEmpty;
  // Asked before a click does anything: false when a box beside the list holds a refused text.
  std::function<bool()> mayLeaveBoxes;
  // The arrow in a header; -1 takes it away.
  void SetSortMark(int col, bool descending);

  // Opens the cell for typing when the rules allow, with `typed` in place of its text if given.
  void EditCellAt(int gridRow, int col, const std::optional<QString>& typed = {});
  // As wide as its heading and its widest text, which stays its width; nothing for a hidden one.
  void FitColumn(int col);
  // Why the row is locked; "" when it is not.
  QString LockOf(int gridRow) const;
  // Stores what the open editor holds. False when it was refused: the editor is still open then.
  bool CommitEditor();

  // Everything anew from the grid and the options.
  void ReadLayout();

  bool HasSections() const { return sections_; }
  void SetSections(bool sections);
  bool IsChoice() const { return choice_; }
  void SetChoice(bool choice);
  bool FillsWidth() const { return horizontalHeader()->stretchLastSection(); }
  const QString& HeadingsOf() const { return headingsOf_; }
  void SetHeadingsOf(const QString& grid);
  void SetFillsWidth(bool fills) { horizontalHeader()->setStretchLastSection(fills); }
  // The last column in sight takes what room the others leave, and never less than its own width.
  void LetLastTakeRoom() { lastTakesRoom_ = true; }
  void ReadStyle();

 protected:
  void dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                   const QList<int>& roles) override;
  void keyPressEvent(QKeyEvent* event) override;
  QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
  int sizeHintForColumn(int column) const override;
  // Shift+F10 opens the menu of the cell, as the menu key does, with Ctrl that of its header. True
  // when it was that key.
  bool OpenedMenu(const QKeyEvent& event);
  // The header, and which columns are shown how wide.
  virtual void ReadColumns();
  // The heights of the rows.
  virtual void ReadRows();
  Screen* Owner() const { return screen_; }
  // Fills its room: columns without a width of their own share what is left, there is no header,
  // and the cursor is a cell. Of calendars.
  void FillRoom();

 private:
  friend class GridDelegate;

  void ReadSpans();
  bool HasCaptions() const;
  // A column named by a property; -1 when it names none.
  int Named(const QString& key) const;
  bool Wraps(int col) const { return col >= 0 && col == Named(wrappedColumn_); }
  void ReadCursor();
  int ColumnWidth(int col);
  int HeaderHeight() const;
  int WidestText(int col, int rows) const;
  int RoomForWords(int col) const;
  void GiveRoomToLast();
  void HeaderSized(int col, int pixels);
  void HeaderMoved(int col, int from, int to);
  int CurrentRow() const { return model_->GridRow(currentIndex()); }
  bool IsGroup(int gridRow) const { return gridRow >= 0 && Shown()->IsSubtotal(gridRow); }
  void ToggleGroup(int gridRow);
  void SetGroupOpen(int gridRow, bool open);
  void OpenRow(int gridRow);
  bool InvitesTyping(int gridRow, int col) const;
  QString NoteOf(int gridRow, int col) const;
  void TellLock(const QModelIndex& cell);
  bool HandleKey(const QKeyEvent& event);

  GridModel* model_;
  GridDelegate* delegate_;
  Screen* screen_ = nullptr;
  GridRules* rules_ = nullptr;
  ListStyle style_;
  std::map<std::string, int> measured_;  // widths of columns that have none of their own, in pixels
  QBasicTimer slowClick_;
  bool reading_ = false;     // the view is being set up from the grid
  bool wasCurrent_ = false;  // the pressed cell had been the current one
  bool editsInPlace_ = false;
  bool choice_ = false;
  bool hidesWhenEmpty_ = false;
  bool sections_ = false;
  bool fillsRoom_ = false;
  bool lastTakesRoom_ = false;
  QString headingsOf_;
  QString wrappedColumn_, typedColumn_;
  QString emptyText_;
};

}  // namespace lm
