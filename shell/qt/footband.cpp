#include "shell/qt/footband.h"

#include <QLabel>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

#include "shell/qt/gridview.h"
#include "shell/qt/qtext.h"

namespace lm {
namespace {

// Pixels.
constexpr int kAir = 4;        // above and below a line
constexpr int kCellEdge = 5;   // between a figure and the line of its column
constexpr int kLabelEdge = 8;  // around the words
constexpr int kSlack = 2;      // bold figures are drawn a little wider than they measure
constexpr double kTint = 0.06;

}  // namespace

FootBand::FootBand(GridView& list, std::function<ListFoot()> read, std::function<void()> showAll)
    : list_(list), read_(std::move(read)), count_(new QLabel(this)) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  count_->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
  connect(count_, &QLabel::linkActivated, this, [showAll = std::move(showAll)] { showAll(); });
  const auto arrange = [this] { Arrange(); };
  const QHeaderView* header = list.horizontalHeader();
  connect(header, &QHeaderView::sectionResized, this, arrange);
  connect(header, &QHeaderView::sectionMoved, this, arrange);
  connect(header, &QHeaderView::geometriesChanged, this, arrange);
  connect(list.horizontalScrollBar(), &QScrollBar::valueChanged, this, arrange);
  hide();
}

void FootBand::Refresh() {
  foot_ = read_();
  setVisible(!foot_.count.empty());
  setToolTip(Sums().join(u'\n'));
  // The band is drawn, and so silent; its words are a label.
  QString said = ToQt(foot_.Sentence());
  if (!foot_.sums.empty()) said = tr("%1. Sums: %2").arg(said, Sums().join(QStringLiteral(", ")));
  if (count_->accessibleName() != said) count_->setAccessibleName(said);
  updateGeometry();
  Arrange();
}

QStringList FootBand::Sums() const {
  QStringList sums;
  for (const FootSum& sum : foot_.sums)
    sums << ToQt(sum.caption) + QStringLiteral(" ") + ToQt(sum.text);
  return sums;
}

QFont FootBand::SumFont() const {
  QFont font = list_.Style().font;
  font.setBold(true);
  return font;
}

QSize FootBand::sizeHint() const {
  return {0, std::max(QFontMetrics(SumFont()).height(), count_->sizeHint().height()) + 2 * kAir};
}

std::vector<FootBand::Place> FootBand::Places() const {
  std::vector<Place> places;
  const Grid* grid = list_.Shown();
  const QHeaderView* header = list_.horizontalHeader();
  const QFontMetrics metrics(SumFont());
  for (const FootSum& sum : foot_.sums) {
    const int col = grid ? grid->FindCol(sum.key) : -1;
    if (col < 0 || header->isSectionHidden(col)) continue;
    const QPoint end(header->sectionViewportPosition(col) + header->sectionSize(col) - kCellEdge,
                     0);
    const QString text = ToQt(sum.text);
    if (end.x() > header->viewport()->width()) continue;
    const int right = header->viewport()->mapTo(parentWidget(), end).x() - x();
    places.push_back({right - metrics.horizontalAdvance(text) - kSlack, right, text});
  }
  std::ranges::sort(places, {}, &Place::right);
  return places;
}

// The words take the room in front of the first sum; where it is short, those about the records
// that are out of sight go into the tip.
void FootBand::Arrange() {
  int room = width();
  for (const Place& place : Places())
    if (place.right > 0) room = std::min(room, place.left);
  const QString count = ToQt(foot_.count).toHtmlEscaped();
  const QString outside = ToQt(foot_.outside).toHtmlEscaped();
  const auto link = [](const QString& text) {
    return QStringLiteral("<a href=\"all\">%1</a>").arg(text);
  };
  count_->setText(outside.isEmpty() ? count : tr("%1; %2").arg(count, link(outside)));
  if (!outside.isEmpty() && count_->sizeHint().width() + 2 * kLabelEdge > room)
    count_->setText(link(count));
  count_->setToolTip(outside.isEmpty() ? QString()
                                       : tr("%1. A click shows all.").arg(ToQt(foot_.Sentence())));
  count_->setGeometry(kLabelEdge, 0,
                      std::clamp(room - 2 * kLabelEdge, 0, count_->sizeHint().width()), height());
  update();
}

void FootBand::resizeEvent(QResizeEvent*) { Arrange(); }

void FootBand::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const ListStyle& style = list_.Style();
  painter.fillRect(rect(), MixedColour(style.base, style.text, kTint));
  painter.setPen(style.line);
  painter.drawRect(rect().adjusted(0, -1, -1, -1));
  painter.setFont(SumFont());
  painter.setPen(style.text);
  int free = 0;  // a sum is not written over the one before it
  for (const Place& place : Places()) {
    const QRect room(std::max(free, place.left), 0, place.right - std::max(free, place.left),
                     height());
    if (room.width() > 0)
      painter.drawText(room, int(Qt::AlignRight | Qt::AlignVCenter),
                       painter.fontMetrics().elidedText(place.text, Qt::ElideRight, room.width()));
    free = place.right + kCellEdge;
  }
}

}  // namespace lm
