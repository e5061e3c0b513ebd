#include "shell/qt/calendarwidget.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QStackedWidget>
#include <QTabBar>
#include <QVBoxLayout>

#include "shell/qt/calendargrid.h"
#include "shell/qt/icons.h"
#include "shell/qt/liststyle.h"
#include "shell/qt/pagewidgets.h"
#include "shell/qt/qtext.h"

namespace lm {
namespace {

constexpr int kSwatch = 12;  // pixels

// The colours of the sessions and what they stand for; read anew at each painting, since the
// options may have changed.
class Legend : public QWidget {
 public:
  explicit Legend(const CalendarPage& page) : page_(page) {
    setFixedHeight(std::max(fontMetrics().height(), kSwatch) + 4);
    setAccessibleName(tr("Colours of sessions"));
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    int x = 0;
    for (const CalendarPage::LegendEntry& entry : page_.Legend()) {
      const QString caption = ToQt(entry.caption);
      painter.setPen(palette().color(QPalette::Dark));
      painter.setBrush(ToQColor(entry.colour));
      painter.drawRect(x, (height() - kSwatch) / 2, kSwatch, kSwatch);
      painter.setPen(palette().color(QPalette::WindowText));
      x += kSwatch + 6;
      painter.drawText(x, 0, width(), height(), Qt::AlignVCenter, caption);
      x += fontMetrics().horizontalAdvance(caption) + 18;
    }
  }

 private:
  const CalendarPage& page_;
};

QFrame* MakeToolTip(QWidget* page) {
  auto* frame = new QFrame(page);
  frame->setObjectName("picCalendarToolTip");
  frame->setFrameShape(QFrame::StyledPanel);
  frame->setAutoFillBackground(true);
  frame->setBackgroundRole(QPalette::ToolTipBase);
  frame->setAttribute(Qt::WA_TransparentForMouseEvents);
  auto* across = new QHBoxLayout(frame);
  across->setContentsMargins(10, 8, 10, 8);
  across->setSpacing(8);
  auto* picture = Named<QLabel>("imgCalendarTooltip");
  picture->setPixmap(LineIcon("calendar").pixmap(QSize(16, 16)));
  picture->setAlignment(Qt::AlignTop);
  across->addWidget(picture);
  auto* texts = new QVBoxLayout;
  auto* title = Named<QLabel>("lblCalendarTooltipTitle");
  QFont bold = title->font();
  bold.setBold(true);
  title->setFont(bold);
  texts->addWidget(title);
  texts->addWidget(Named<QLabel>("txtCalendarTooltipDetails"));
  for (QLabel* label : frame->findChildren<QLabel*>())
    label->setForegroundRole(QPalette::ToolTipText);
  across->addLayout(texts);
  frame->hide();
  return frame;
}

// Beside the pointer, within the page.
void PlaceToolTip(QFrame& frame, const QPoint& global) {
  if (!frame.isVisible()) return;
  frame.adjustSize();
  const QWidget& page = *frame.parentWidget();
  QPoint place = page.mapFromGlobal(global) + QPoint(14, 18);
  place.setX(std::clamp(place.x(), 0, std::max(0, page.width() - frame.width())));
  if (place.y() + frame.height() > page.height()) place.ry() -= frame.height() + 30;
  frame.move(place.x(), std::max(0, place.y()));
  frame.raise();
}

}  // namespace

// The headings stay while the body scrolls, and leave room beside them for its scroll bar.
QWidget* MakeCalendarView(const CalendarPage& page, CalendarView view, const Grid& grid) {
  auto* frame = new QFrame;
  frame->setFrameShape(QFrame::StyledPanel);
  auto* column = new QVBoxLayout(frame);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  auto* body = new CalendarGrid(page, view);
  body->setObjectName(ToQt(grid.Name()));
  body->setAccessibleName(ToQt(page.tabCalendar.TabCaption(static_cast<int>(view))));
  auto* headings = new CalendarGrid(page, view);
  headings->SetHeadingsOf(ToQt(grid.Name()));
  headings->setFocusPolicy(Qt::NoFocus);
  headings->setAccessibleName(QObject::tr("Headings of %1").arg(body->accessibleName()));
  auto* room = new QWidget;
  auto* top = new QHBoxLayout;
  top->setSpacing(0);
  top->addWidget(headings, 1);
  top->addWidget(room);
  column->addLayout(top);
  column->addWidget(body, 1);
  QScrollBar* bar = body->verticalScrollBar();
  const auto leaveRoom = [room, bar] {
    room->setFixedWidth(bar->maximum() > bar->minimum() ? bar->sizeHint().width() : 0);
  };
  QObject::connect(bar, &QScrollBar::rangeChanged, room, leaveRoom);
  QObject::connect(body, &CalendarGrid::laidOut, room, leaveRoom);
  leaveRoom();
  return frame;
}

QWidget* MakeCalendarWidget(const MainPage& mainPage) {
  const auto& page = static_cast<const CalendarPage&>(mainPage);
  auto* widget = new QWidget;
  QVBoxLayout* column = MakeColumn(widget);
  auto* top = new QHBoxLayout;
  top->setSpacing(6);
  QFrame* toolTip = MakeToolTip(widget);
  const auto rested = [toolTip](const QPoint& global) { PlaceToolTip(*toolTip, global); };

  const std::vector<PageButton>& buttons = page.Buttons();
  for (const PageButton& button : buttons) {
    if (button.button == &page.cmdShowHideWeekends) {
      top->addSpacing(10);
      auto* period = Named<QLabel>("lblCalendarPeriod");
      QFont font = period->font();
      font.setPointSizeF(font.pointSizeF() * 1.2);
      font.setBold(true);
      period->setFont(font);
      top->addWidget(period, 1);
    }
    top->addWidget(MakePageButton(button));
  }
  column->addLayout(top);
  column->addWidget(MakeTabs(page.tabCalendar));
  auto* stack = new QStackedWidget;
  for (std::size_t i = 0; i < page.views.size(); ++i)
    stack->addWidget(MakeCalendarView(page, static_cast<CalendarView>(i), *page.views[i]));
  for (CalendarGrid* part : stack->findChildren<CalendarGrid*>())
    QObject::connect(part, &CalendarGrid::rested, part, rested);
  column->addWidget(stack, 1);
  column->addWidget(new Legend(page));
  return widget;
}

}  // namespace lm
