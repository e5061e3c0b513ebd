#include "shell/qt/calendarprint.h"

#include <QCoreApplication>
#include <QPainter>
#include <QPrinter>
#include <memory>

#include "shell/frmMain.h"
#include "shell/qt/calendargrid.h"
#include "shell/qt/calendarwidget.h"
#include "shell/qt/printpreview.h"
#include "shell/qt/qtext.h"

namespace lm {
namespace {

constexpr QSize kView(1400, 900);  // pixels, drawn to the width of the paper
constexpr int kTitleGap = 12;

// The view in front, larger than the screen if need be, so that nothing has to be scrolled.
std::unique_ptr<QWidget> WholeView(frmMain& screen, const CalendarPage& page) {
  Grid& grid = *page.GridInFront();
  std::unique_ptr<QWidget> view(MakeCalendarView(page, page.View(), grid));
  int rows = 0;
  for (int row = 0; row < grid.Rows(); ++row) rows += !grid.RowHidden(row);
  view->setAttribute(Qt::WA_DontShowOnScreen);
  for (CalendarGrid* part : view->findChildren<CalendarGrid*>()) {
    part->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    part->Bind(screen, grid);
  }
  view->show();
  view->resize(kView.width(), std::max(kView.height(), (rows + 4) * 20));
  // Columns stretch when the event loop comes round.
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  return view;
}

}  // namespace

bool PaintCalendar(QPagedPaintDevice& paper, frmMain& screen, const CalendarPage& page) {
  QPainter painter;
  if (!painter.begin(&paper)) return false;
  const std::unique_ptr<QWidget> view = WholeView(screen, page);
  QFont font = view->font();
  font.setPixelSize(22);
  font.setBold(true);
  painter.setFont(font);
  const int title = QFontMetrics(font).height() + kTitleGap;
  const QSize whole = view->size() + QSize(0, title);
  const double scale = std::min(double(painter.device()->width()) / whole.width(),
                                double(painter.device()->height()) / whole.height());
  painter.scale(scale, scale);
  painter.drawText(0, QFontMetrics(font).ascent(), ToQt(page.Title()));
  view->render(&painter, QPoint(0, title));
  for (CalendarGrid* part : view->findChildren<CalendarGrid*>()) part->Unbind();
  return true;
}

void PrintCalendar(frmMain& screen, const CalendarPage& page, QWidget* parent) {
  ShowPrintPreview(
      ToQt(page.Title()), [&](QPrinter& paper) { PaintCalendar(paper, screen, page); }, parent);
}

}  // namespace lm
