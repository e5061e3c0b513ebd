#include "shell/qt/charttypelist.h"

#include <QPainter>
#include <QStyledItemDelegate>

#include "shell/qt/icons.h"

namespace lm {
namespace {

constexpr QSize kPicture(36, 36), kEntry(96, 88);

// In the order of ChartType.
constexpr const char* kDrawings[] = {"chartcolumns", "chartstacked", "chartpercent",
                                     "chartlines",   "chartareas",   "chartpie"};

// A picture above its words; what is chosen has a ground of its own.
class PictureDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override { return kEntry; }

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    constexpr int kAir = 4;
    const bool chosen = option.state & QStyle::State_Selected;
    const QRect field = option.rect.adjusted(kAir, kAir, -kAir, 0);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (chosen) {
      painter->setPen(Qt::NoPen);
      painter->setBrush(option.palette.brush(QPalette::Highlight));
      painter->drawRoundedRect(field, kAir, kAir);
    }
    const QRect picture(field.left() + (field.width() - kPicture.width()) / 2, field.top() + kAir,
                        kPicture.width(), kPicture.height());
    index.data(Qt::DecorationRole)
        .value<QIcon>()
        .paint(painter, picture, Qt::AlignCenter, chosen ? QIcon::Selected : QIcon::Normal);
    painter->setPen(option.palette.color(chosen ? QPalette::HighlightedText : QPalette::Text));
    painter->setFont(option.font);
    painter->drawText(
        QRect(field.left(), picture.bottom() + 1, field.width(), field.bottom() - picture.bottom()),
        Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, index.data().toString());
    painter->restore();
  }
};

}  // namespace

ChartTypeList::ChartTypeList(QWidget* parent) : QListWidget(parent) {
  setViewMode(QListView::IconMode);
  setFlow(QListView::LeftToRight);
  setMovement(QListView::Static);
  setWrapping(false);
  setItemDelegate(new PictureDelegate(this));
  setGridSize(kEntry);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFixedSize(kEntry.width() * static_cast<int>(std::size(kDrawings)) + 2 * frameWidth() + 4,
               kEntry.height() + 2 * frameWidth() + 4);
}

void ChartTypeList::AttachTo(Screen&) {
  for (int row = 0; row < count() && row < static_cast<int>(std::size(kDrawings)); ++row)
    item(row)->setIcon(LineIcon(kDrawings[row]));
}

}  // namespace lm
