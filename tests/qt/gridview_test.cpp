#include "shell/qt/gridview.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>

#include "core/options.h"
#include "core/tables.h"
#include "shell/qt/qtext.h"
#include "tests/qt/demo.h"

namespace lm::test {
namespace {

class Rules : public GridRules {
 public:
  bool MayEdit(int, int) override {
    ++asked;
    return mayEdit;
  }
  std::optional<std::string> Accept(int, int, std::string_view text) override {
    if (text == "bad") return std::nullopt;
    return std::string(text);
  }
  void Edited(int row, int col) override { edited.emplace_back(row, col); }
  void Opened(int row) override { opened.push_back(row); }
  std::string LockedBy(int row) override { return row == lockedRow ? "On a form" : ""; }
  void LockPressed(int row) override { locksPressed.push_back(row); }
  void AddPressed() override { ++added; }
  void DeletePressed(int row) override { deleted.push_back(row); }

  bool mayEdit = true;
  int lockedRow = -1;
  int asked = 0;
  int added = 0;
  std::vector<std::pair<int, int>> edited;
  std::vector<int> opened, deleted, locksPressed;
};

class ListScreen : public Screen {
 public:
  explicit ListScreen(Ledger& theLedger) : Screen(theLedger, "ListScreen") {
    grid.SetRows(2);
    grid.SetFixedRows(2);
    grid.SetRowHidden(1, true);
    grid.SetCols(5);
    grid.SetFixedCols(1);
    grid.SetColWidth(0, 120);
    const char* keys[] = {"", "ID", "NAME", "KIND", "RATE"};
    for (int col = 1; col < 5; ++col) {
      grid.SetColKey(col, keys[col]);
      grid.SetTextMatrix(0, col, keys[col]);
    }
    grid.SetColHidden(1, true);
    grid.SetColComboList(3, "#1;First|#2;Second");
    grid.SetColDataType(4, DataType::Money);
    grid.SetColFormat(4, "#,##0.00");
    AddGrid(grid, &rules);
  }
  int AddRow(int id) {
    return grid.AddItem("\t" + std::to_string(id) + "\tName " + std::to_string(id) + "\t1\t" +
                        std::to_string(id * 10));
  }
  Grid grid{"fgList"};
  Rules rules;
  std::vector<std::pair<int, int>> clicked;

 protected:
  void CellClicked(Grid&, int row, int col) override { clicked.emplace_back(row, col); }
};

struct ShownList {
  TestLedger test;
  ListScreen screen{test.ledger};
  GridView view;

  explicit ShownList(int rows = 3) {
    for (int id = 1; id <= rows; ++id) screen.AddRow(id);
    view.Bind(screen, screen.grid);
    view.resize(600, 400);
    view.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&view));
  }
  ~ShownList() { view.Unbind(); }
  QModelIndex Cell(int row, int col) { return view.Model().index(row, col); }
  QPoint Middle(int row, int col) { return view.visualRect(Cell(row, col)).center(); }
  QLineEdit* Editor() {
    QCoreApplication::sendPostedEvents(nullptr,
                                       QEvent::DeferredDelete);  // of editors closed before
    return view.viewport()->findChild<QLineEdit*>();
  }
};

TEST(GridView, ALockedRowWearsAPadlockThatSaysWhyAndOpensWhatLocksIt) {
  ShownList list;
  const QRect marker = list.view.visualRect(list.Cell(1, 0));
  const QImage before = list.view.viewport()->grab(marker).toImage();
  list.screen.rules.lockedRow = 3;
  list.view.viewport()->update();
  EXPECT_NE(list.view.viewport()->grab(marker).toImage(), before);
  EXPECT_EQ(list.Cell(1, 0).data(Qt::ToolTipRole).toString(), "On a form");
  EXPECT_EQ(list.Cell(1, 2).data(Qt::AccessibleDescriptionRole).toString(), "Locked. On a form");
  EXPECT_EQ(list.Cell(0, 2).data(Qt::AccessibleDescriptionRole).toString(), "");

  for (const int row : {0, 1})
    QTest::mouseDClick(list.view.viewport(), Qt::LeftButton, {}, list.Middle(row, 0));
  EXPECT_EQ(list.screen.rules.locksPressed, std::vector<int>{3});
  EXPECT_EQ(list.screen.rules.opened, std::vector<int>{2}) << "the row without a lock";

  list.screen.rules.mayEdit = false;
  list.view.EditCellAt(2, 2);
  EXPECT_FALSE(QToolTip::isVisible()) << "no lock, nothing to say";
  list.view.EditCellAt(3, 2);
  EXPECT_EQ(QToolTip::text(), "Locked. On a form");
}

TEST(GridView, ShowsTheVisibleRowsAndColumnsAsTheGridDisplaysThem) {
  ShownList list;
  EXPECT_EQ(list.view.Model().rowCount(), 3);
  EXPECT_TRUE(list.view.isColumnHidden(1));
  EXPECT_EQ(list.Cell(0, 3).data().toString(), "First");
  EXPECT_EQ(list.Cell(0, 4).data().toString(), "10.00");
  EXPECT_TRUE(list.Cell(0, 4).data(Qt::TextAlignmentRole).value<Qt::Alignment>() & Qt::AlignRight);
  EXPECT_EQ(list.view.horizontalHeader()->sectionSize(0), 14);
  list.screen.grid.SetRowHidden(3, true);
  list.screen.AddRow(9);
  QApplication::processEvents();
  EXPECT_EQ(list.view.Model().rowCount(), 3);
  EXPECT_EQ(list.Cell(2, 2).data().toString(), "Name 9");
}

TEST(GridView, OneChangedCellTouchesOneRow) {
  ShownList list(200);
  QSignalSpy changes(&list.view.Model(), &QAbstractItemModel::dataChanged);
  QSignalSpy resets(&list.view.Model(), &QAbstractItemModel::modelReset);
  list.screen.grid.SetTextMatrix(7, 2, "Other");
  QApplication::processEvents();
  ASSERT_EQ(changes.count(), 1);
  EXPECT_EQ(resets.count(), 0);
  EXPECT_EQ(changes[0][0].toModelIndex().row(), 5);
  EXPECT_EQ(changes[0][1].toModelIndex().row(), 5);
  for (int i = 0; i < 100; ++i) list.screen.AddRow(300 + i);
  list.screen.grid.RemoveItem(2);
  QApplication::processEvents();
  EXPECT_EQ(resets.count(), 1) << "many changes of rows are read once";
  EXPECT_EQ(list.view.Model().rowCount(), 299);
}

TEST(GridView, FiftyThousandRowsComeQuickly) {
  ShownList list(0);
  {
    const RedrawOff redrawOff(list.screen.grid);
    for (int id = 1; id <= 50000; ++id) list.screen.AddRow(id);
  }
  QElapsedTimer timer;
  timer.start();
  list.view.Model().Sync();
  list.view.grab();
  EXPECT_LT(timer.elapsed(), 1500);
  EXPECT_EQ(list.view.Model().rowCount(), 50000);
}

TEST(GridView, EditsInPlaceThroughTheRulesAndAsksOnce) {
  ShownList list;
  list.screen.grid.Select(2, 2);
  list.view.setFocus();
  QTest::keyClick(&list.view, Qt::Key_F2);
  ASSERT_NE(list.Editor(), nullptr);
  EXPECT_EQ(list.Editor()->text(), "Name 1");
  QTest::keyClick(list.Editor(), Qt::Key_Return);
  EXPECT_TRUE(list.screen.rules.edited.empty()) << "an unchanged text is no edit";

  QTest::keyClick(&list.view, Qt::Key_X);
  ASSERT_NE(list.Editor(), nullptr);
  EXPECT_EQ(list.Editor()->text(), "x") << "typing begins the edit";
  QTest::keyClicks(list.Editor(), "yz");
  QTest::keyClick(list.Editor(), Qt::Key_Return);
  EXPECT_EQ(list.screen.grid.TextMatrix(2, 2), "xyz");
  EXPECT_EQ(list.screen.rules.edited, (std::vector<std::pair<int, int>>{{2, 2}}));
  EXPECT_EQ(list.screen.rules.asked, 2);
}

TEST(GridView, RefusedTextKeepsItsEditor) {
  ShownList list;
  list.view.EditCellAt(2, 2, QString("bad"));
  ASSERT_NE(list.Editor(), nullptr);
  QTest::keyClick(list.Editor(), Qt::Key_Return);
  EXPECT_FALSE(list.view.CommitEditor());
  QTest::mouseClick(list.view.viewport(), Qt::LeftButton, {}, list.Middle(2, 2));
  EXPECT_EQ(list.view.Model().GridRow(list.view.currentIndex()), 2)
      << "a click leads nowhere meanwhile";
  ASSERT_NE(list.Editor(), nullptr);
  QTest::keyClick(list.Editor(), Qt::Key_Escape);
  EXPECT_TRUE(list.view.CommitEditor());
  EXPECT_EQ(list.screen.grid.TextMatrix(2, 2), "Name 1");
}

TEST(GridView, CellsWithAListChooseAnEntry) {
  ShownList list;
  list.view.EditCellAt(2, 3);
  auto* combo = list.view.viewport()->findChild<QComboBox*>();
  ASSERT_NE(combo, nullptr);
  EXPECT_EQ(combo->currentText(), "First");
  combo->hidePopup();
  combo->setCurrentIndex(1);
  emit combo->activated(1);
  EXPECT_EQ(list.screen.grid.TextMatrix(2, 3), "2");
  list.screen.rules.mayEdit = false;
  list.view.EditCellAt(3, 2);
  EXPECT_EQ(list.Editor(), nullptr);
}

TEST(GridView, AListThatDroppedDownIsStillTheEditor) {
  ShownList list;
  list.screen.grid.Select(3, 3);
  QTest::keyClicks(&list.view, "s");
  QApplication::processEvents();
  auto* combo = list.view.viewport()->findChild<QComboBox*>();
  ASSERT_NE(combo, nullptr);
  ASSERT_TRUE(combo->view()->isVisible());
  EXPECT_EQ(combo->currentText(), "Second") << "the letter chose it";
  // As on a desktop, where the list takes the focus for reasons of its own.
  QFocusEvent left(QEvent::FocusOut, Qt::OtherFocusReason);
  QApplication::sendEvent(combo, &left);
  QApplication::processEvents();
  ASSERT_TRUE(list.view.viewport()->findChild<QComboBox*>());
  QTest::keyClick(combo->view(), Qt::Key_Return);
  EXPECT_EQ(list.screen.grid.TextMatrix(3, 3), "2");
  EXPECT_TRUE(list.view.hasFocus());
}

TEST(GridView, TabInADroppedListTakesWhatIsHighlightedAndGoesOn) {
  const struct {
    const char* what;
    const char* held;
    int highlighted;
    int key;
    const char* stored;
    int next;  // the column that is open for typing afterwards
  } kCases[] = {
      {"another entry", "1", 1, Qt::Key_Tab, "2", 4},
      {"the same entry", "1", 0, Qt::Key_Tab, "1", 4},
      {"nothing highlighted", "9", -1, Qt::Key_Tab, "9", 4},
      {"backwards", "1", 1, Qt::Key_Backtab, "2", 2},
  };
  for (const auto& each : kCases) {
    ShownList list;
    list.screen.grid.SetTextMatrix(2, 3, each.held);
    list.view.EditCellAt(2, 3);
    QApplication::processEvents();
    auto* combo = list.view.viewport()->findChild<QComboBox*>();
    ASSERT_NE(combo, nullptr) << each.what;
    ASSERT_TRUE(combo->view()->isVisible()) << each.what;
    EXPECT_EQ(combo->currentIndex(), *each.held == '1' ? 0 : -1) << each.what;
    if (each.highlighted >= 0)
      combo->view()->setCurrentIndex(combo->model()->index(each.highlighted, 0));
    QTest::keyClick(combo->view(), static_cast<Qt::Key>(each.key));
    QApplication::processEvents();
    EXPECT_EQ(list.screen.grid.TextMatrix(2, 3), each.stored) << each.what;
    ASSERT_NE(list.Editor(), nullptr) << each.what;
    EXPECT_EQ(list.view.currentIndex().column(), each.next) << each.what;
    QTest::keyClicks(list.Editor(), "35");
    QTest::keyClick(list.Editor(), Qt::Key_Return);
    EXPECT_EQ(list.screen.grid.TextMatrix(2, each.next), "35") << each.what;
  }
}

TEST(GridView, TheSecondOfTwoEntriesWithOneTextIsChosenByItsId) {
  ShownList list;
  list.screen.grid.SetColComboList(3, "#1;Same|#2;Same|#3;Other");
  list.screen.grid.SetTextMatrix(2, 3, "2");
  list.view.EditCellAt(2, 3);
  auto* combo = list.view.viewport()->findChild<QComboBox*>();
  ASSERT_NE(combo, nullptr);
  EXPECT_EQ(combo->currentIndex(), 1);
  EXPECT_TRUE(list.view.CommitEditor());
  EXPECT_TRUE(list.screen.rules.edited.empty()) << "opened and left";
  list.view.EditCellAt(3, 3);
  combo = list.view.viewport()->findChildren<QComboBox*>().last();
  combo->hidePopup();
  combo->setCurrentIndex(1);
  emit combo->activated(1);
  EXPECT_EQ(list.screen.grid.TextMatrix(3, 3), "2");
}

TEST(GridView, ACellOfSeveralLinesIsOpenedAndLeftAsItWas) {
  ShownList list;
  for (const char* lines : {"a\r\nb", "a\nb"}) {
    list.screen.grid.SetTextMatrix(2, 2, lines);
    list.view.EditCellAt(2, 2);
    ASSERT_NE(list.Editor(), nullptr);
    QTest::keyClick(list.Editor(), Qt::Key_Return);
    EXPECT_EQ(list.screen.grid.TextMatrix(2, 2), lines);
  }
  EXPECT_TRUE(list.screen.rules.edited.empty());
}

TEST(GridView, NoCursorOnTheMarkers) {
  ShownList list;
  list.screen.grid.Select(3, 4);
  QTest::keyClick(&list.view, Qt::Key_Home);
  EXPECT_EQ(list.view.currentIndex().column(), 2);
  QTest::keyClick(&list.view, Qt::Key_Left);
  EXPECT_EQ(list.view.currentIndex().column(), 2);
}

TEST(GridView, KeysAndMouseReachTheRules) {
  ShownList list;
  list.view.setFocus();
  list.screen.grid.Select(3, 2);
  QTest::keyClick(&list.view, Qt::Key_Return);
  QTest::keyClick(&list.view, Qt::Key_Delete);
  QTest::keyClick(&list.view, Qt::Key_Insert);
  EXPECT_EQ(list.screen.rules.opened, std::vector<int>{3});
  EXPECT_EQ(list.screen.rules.deleted, std::vector<int>{3});
  EXPECT_EQ(list.screen.rules.added, 1);
  QTest::mouseDClick(list.view.viewport(), Qt::LeftButton, {}, list.Middle(2, 2));
  EXPECT_EQ(list.screen.rules.opened, (std::vector<int>{3, 4}));
  QTest::mouseClick(list.view.viewport(), Qt::LeftButton, {}, list.Middle(0, 4));
  EXPECT_EQ(list.screen.grid.Row(), 2);
  EXPECT_EQ(list.screen.grid.Col(), 4);
  list.view.setProperty("editsInPlace", true);
  QTest::keyClick(&list.view, Qt::Key_Return);
  EXPECT_EQ(list.screen.rules.added, 2);
}

TEST(GridView, ATickIsShownAndReachesTheScreen) {
  ShownList list;
  Grid& grid = list.screen.grid;
  grid.SetColWidth(0, 400);
  for (int row = 2; row < 5; ++row)
    grid.SetCell(CellSetting::flexcpChecked, row, 0, row == 2 ? "TRUE" : "FALSE");
  QApplication::processEvents();
  EXPECT_EQ(list.Cell(0, 0).data(Qt::CheckStateRole), Qt::Checked);
  EXPECT_EQ(list.Cell(1, 0).data(Qt::CheckStateRole), Qt::Unchecked);
  EXPECT_FALSE(list.Cell(0, 2).data(Qt::CheckStateRole).isValid());
  const QImage ticked = list.view.grab(list.view.visualRect(list.Cell(0, 0))).toImage();
  EXPECT_NE(list.view.grab(list.view.visualRect(list.Cell(1, 0))).toImage(), ticked);

  QTest::mouseClick(list.view.viewport(), Qt::LeftButton, {}, list.Middle(1, 0));
  QTest::mouseClick(list.view.viewport(), Qt::LeftButton, {}, list.Middle(2, 2));
  QTest::keyClick(&list.view, Qt::Key_Space);
  EXPECT_EQ(list.screen.clicked, (std::vector<std::pair<int, int>>{{3, 0}, {4, 0}}))
      << "a click beside the boxes only chooses the row";
  EXPECT_EQ(list.Editor(), nullptr);
}

TEST(GridView, RowsGrowWithTheWrappedColumn) {
  ShownList list(2);
  const int plain = list.view.rowHeight(0);
  list.screen.grid.SetTextMatrix(2, "NAME", "One line\nand another");
  list.view.setProperty("wrappedColumn", "NAME");
  list.screen.grid.SetRowHidden(3, false);
  list.screen.grid.SetTextMatrix(3, "NAME", std::string(300, 'x') + " " + std::string(10, 'y'));
  list.screen.AddRow(3);
  QApplication::processEvents();
  const int line = QFontMetrics(list.view.Style().font).lineSpacing();
  EXPECT_GE(list.view.rowHeight(0), plain + line - 2);
  EXPECT_EQ(list.view.rowHeight(2), plain);
  EXPECT_EQ(list.view.horizontalHeader()->length(), list.view.viewport()->width())
      << "the column takes the room that is left";
  list.screen.grid.SetTextMatrix(4, "NAME",
                                 "word word word word word word word word word word "
                                 "word word word word word word word word word word");
  const int wide = list.view.rowHeight(2);
  EXPECT_GT(wide, plain) << "a text set later counts too";
  list.view.resize(420, 400);
  QApplication::processEvents();
  EXPECT_GT(list.view.rowHeight(2), wide) << "a narrow list needs more lines";
}

TEST(GridView, APictureIsPressedAndTypingGoesToItsColumn) {
  ShownList list;
  list.view.setProperty("typedColumn", "RATE");
  list.screen.grid.SetCell(CellSetting::flexcpPicture, 3, 3, "help");
  QApplication::processEvents();
  const auto pressed = [&] { return std::exchange(list.screen.clicked, {}); };
  const std::vector<std::pair<int, int>> once{{3, 3}};
  QTest::mouseClick(list.view.viewport(), Qt::LeftButton, {}, list.Middle(1, 3));
  EXPECT_EQ(pressed(), once);
  QTest::mouseClick(list.view.viewport(), Qt::LeftButton, {}, list.Middle(0, 3));
  EXPECT_TRUE(pressed().empty()) << "no picture there";
  QTest::mouseDClick(list.view.viewport(), Qt::LeftButton, {}, list.Middle(1, 3));
  EXPECT_TRUE(list.screen.rules.opened.empty()) << "a second press opens no row";
  pressed();
  list.view.setCurrentIndex(list.Cell(1, 2));
  QTest::keyClick(&list.view, Qt::Key_Space);
  EXPECT_EQ(pressed(), once);
  QTest::keyClicks(&list.view, "7");
  ASSERT_NE(list.Editor(), nullptr);
  QTest::keyClick(list.Editor(), Qt::Key_Return);
  EXPECT_EQ(list.screen.grid.TextMatrix(3, "RATE"), "7");
}

TEST(GridView, CaptionsOfTwoLinesStandOnTwo) {
  ShownList list;
  const int height = list.view.horizontalHeader()->height();
  list.screen.grid.SetTextMatrix(0, 3, "Session\nType");
  list.screen.grid.SetColWidth(3, -1);
  list.screen.grid.SetColWidth(2, 3000);
  QApplication::processEvents();
  EXPECT_GE(list.view.horizontalHeader()->height(),
            height + QFontMetrics(list.view.Style().font).height() - 4);
  EXPECT_LT(list.view.columnWidth(3),
            QFontMetrics(list.view.Style().font).horizontalAdvance("Session Type") + 24);
}

TEST(GridView, GroupsOpenAndClose) {
  ShownList list(4);
  Grid& grid = list.screen.grid;
  grid.Subtotal(SubtotalFunction::Sum, grid.ColIndex("KIND"), grid.ColIndex("RATE"), {});
  QApplication::processEvents();
  ASSERT_EQ(list.view.Model().rowCount(), 5);
  EXPECT_EQ(list.Cell(0, 2).data().toString(), "First") << "the title stands at the left edge";
  EXPECT_EQ(list.Cell(0, 4).data().toString(), "100.00");
  EXPECT_EQ(list.view.columnSpan(0, 2), 2);
  EXPECT_EQ(list.Cell(0, 2).data(Qt::AccessibleDescriptionRole).toString(), "open");
  QTest::mouseClick(list.view.viewport(), Qt::LeftButton, {}, list.Middle(0, 2));
  EXPECT_EQ(list.view.Model().rowCount(), 1);
  EXPECT_EQ(list.Cell(0, 2).data(Qt::AccessibleDescriptionRole).toString(), "folded");
  QTest::keyClick(&list.view, Qt::Key_Right);
  EXPECT_EQ(list.view.Model().rowCount(), 5);
  list.view.EditCellAt(2, 2);
  EXPECT_EQ(list.Editor(), nullptr) << "a group row is no record";
  EXPECT_TRUE(list.screen.rules.opened.empty());
}

TEST(GridView, GroupTitlesLeaveMovedSumsAlone) {
  ShownList list(4);
  Grid& grid = list.screen.grid;
  const auto shown = [&] {
    grid.ClearSubtotals();
    grid.Subtotal(SubtotalFunction::Sum, grid.ColIndex("KIND"), grid.ColIndex("RATE"), {});
    QApplication::processEvents();
    QStringList texts;
    for (int col = 1; col < grid.Cols(); ++col)
      if (grid.ColVisible(col)) texts << list.Cell(0, col).data().toString();
    return texts.join("|").toStdString();
  };
  EXPECT_EQ(shown(), "First||100.00");
  grid.SetColPosition(grid.ColIndex("RATE"), 3);
  EXPECT_EQ(shown(), "First|100.00|");
  grid.SetColPosition(grid.ColIndex("RATE"), 2);
  EXPECT_EQ(shown(), "100.00|First|");
}

TEST(GridView, HeadersSortMoveAndSize) {
  ShownList list;
  std::vector<int> clicked;
  std::vector<std::pair<int, int>> moved;
  list.view.onHeaderClicked = [&](int col) { clicked.push_back(col); };
  list.view.onColumnMoved = [&](int from, int to) {
    moved.emplace_back(from, to);
    list.screen.grid.SetColPosition(from, to);
  };
  QHeaderView* header = list.view.horizontalHeader();
  emit header->sectionClicked(2);
  emit header->sectionClicked(0);
  EXPECT_EQ(clicked, std::vector<int>{2}) << "the marker does not sort";
  header->resizeSection(2, 144);
  EXPECT_EQ(list.screen.grid.ColWidth(2), PixelsToTwips(144, list.view.logicalDpiX()));
  header->moveSection(4, 2);
  header->moveSection(2, 0);
  QApplication::processEvents();
  EXPECT_EQ(moved, (std::vector<std::pair<int, int>>{{4, 2}})) << "nothing moves before the marker";
  EXPECT_EQ(list.screen.grid.ColKey(2), "RATE");
  EXPECT_EQ(header->visualIndex(2), 2);
  EXPECT_EQ(list.view.horizontalHeader()->model()->headerData(2, Qt::Horizontal).toString(),
            "RATE");
}

TEST(GridView, MergedCellsSpan) {
  ShownList list;
  list.screen.grid.SetMergeCol(3, true);
  list.screen.grid.SetMergeCells(MergeSetting::Free);
  QApplication::processEvents();
  EXPECT_EQ(list.view.rowSpan(0, 3), 3);
  EXPECT_EQ(list.view.rowSpan(0, 2), 1);
}

TEST(ListStyle, DefaultsLeaveThePaletteAndOwnColoursStayReadable) {
  TestLedger test;
  QPalette dark;
  dark.setColor(QPalette::Base, QColor(30, 30, 30));
  dark.setColor(QPalette::Text, QColor(220, 220, 220));
  EXPECT_EQ(ListStyleOf(test, dark).base, QColor(30, 30, 30));
  EXPECT_EQ(ListStyleOf(test, dark).text, QColor(220, 220, 220));
  SetOption(test, optColourBackground, "13434879");  // pale
  EXPECT_EQ(ListStyleOf(test, dark).text, QColor(Qt::black));
  for (const char* damaged : {"banana", "-7", "99999999999", "1e300"}) {
    SetOption(test, optColourGridLines, damaged);
    SetOption(test, optFontSize, damaged);
    const ListStyle style = ListStyleOf(test, dark);
    EXPECT_TRUE(style.line.isValid()) << damaged;
    EXPECT_LE(style.font.pointSizeF(), 36) << damaged;
  }
  SetOption(test, optGridLines, "Vertical Only");
  EXPECT_FALSE(ListStyleOf(test, dark).horizontalLines);
}

}  // namespace
}  // namespace lm::test
