#include "shell/qt/guidebrowser.h"

#include <QAbstractTextDocumentLayout>
#include <QEvent>
#include <QFile>
#include <QImageReader>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextTable>
#include <QUrlQuery>
#include <utility>

namespace lm {
namespace {

constexpr const char* kFolder = ":/guide/";

// Device-independent pixels.
constexpr int kMargin = 20;
constexpr int kWidestPicture = 640;  // also where the window is wider
constexpr int kTablePadding = 5;

std::vector<GuideBrowser::Heading> DressHeadings(QTextDocument& document) {
  std::vector<GuideBrowser::Heading> headings;
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    const int level = block.blockFormat().headingLevel();
    if (level == 0) continue;
    headings.push_back({block.text(), HeadingAnchor(block.text()), level, block.position()});
    QTextBlockFormat format = block.blockFormat();
    format.setTopMargin(level == 1 ? 0 : level == 2 ? 28 : 20);
    format.setBottomMargin(8);
    QTextCursor(block).setBlockFormat(format);
  }
  return headings;
}

void DressTables(const QTextDocument& document, const QBrush& border) {
  for (QTextFrame* frame : document.rootFrame()->childFrames())
    if (auto* table = qobject_cast<QTextTable*>(frame)) {
      QTextTableFormat format = table->format();
      format.setBorderCollapse(true);
      format.setBorder(1);
      format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
      format.setBorderBrush(border);
      format.setCellPadding(kTablePadding);
      format.setCellSpacing(0);
      format.setTopMargin(8);
      format.setBottomMargin(12);
      table->setFormat(format);
    }
}

std::vector<QTextCursor> PicturesOf(QTextDocument& document) {
  std::vector<QTextCursor> pictures;
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
    for (auto part = block.begin(); !part.atEnd(); ++part) {
      const QTextFragment fragment = part.fragment();
      if (!fragment.charFormat().isImageFormat()) continue;
      QTextCursor& cursor = pictures.emplace_back(&document);
      cursor.setPosition(fragment.position());
      cursor.setPosition(fragment.position() + fragment.length(), QTextCursor::KeepAnchor);
    }
  return pictures;
}

// Pictures beside each other in a table share the width. As each tells its size, it is read when
// it comes into sight and not before.
void FitPictures(QTextDocument& document, int width) {
  for (QTextCursor& cursor : PicturesOf(document)) {
    const QTextTable* table = cursor.currentTable();
    const int room = table ? width / table->columns() - 2 * kTablePadding - 2 : width;
    QTextImageFormat picture = cursor.charFormat().toImageFormat();
    const QString file = picture.name().section(u'?', 0, 0);
    const QSize size = QImageReader(kFolder + file).size();
    if (size.isEmpty()) continue;
    const int shown = std::min(size.width(), room);
    picture.setWidth(shown);
    picture.setHeight(double(size.height()) * shown / size.width());
    picture.setName(QStringLiteral("%1?width=%2").arg(file).arg(shown));
    cursor.setCharFormat(picture);
  }
}

}  // namespace

QString HeadingAnchor(const QString& heading) {
  QString anchor;
  for (const QChar c : heading.toLower())
    if (c.isLetterOrNumber() || c == u'-' || c == u'_')
      anchor += c;
    else if (c.isSpace())
      anchor += u'-';
  return anchor;
}

GuideBrowser::GuideBrowser(QWidget* parent) : QTextBrowser(parent) {
  setOpenLinks(false);
  setAccessibleName(tr("User Guide"));
  setMinimumWidth(300);
  connect(this, &QTextBrowser::anchorClicked, this, &GuideBrowser::FollowLink);
}

bool GuideBrowser::GoTo(const QString& text, const QString& heading) {
  const Place left{text_, verticalScrollBar()->value()};
  if (text != text_ && !Load(text)) return false;
  if (!left.text.isEmpty()) {
    left_.push_back(left);
    emit mayGoBack(true);
  }
  int position = 0;
  for (const Heading& each : headings_)
    if (each.anchor == heading) position = each.position;
  QTextCursor cursor(document());
  cursor.setPosition(position);
  setTextCursor(cursor);
  ScrollTo(position == 0 ? 0 : verticalScrollBar()->value() + cursorRect(cursor).top() - kMargin);
  return true;
}

void GuideBrowser::GoBack() {
  if (left_.empty()) return;
  const Place place = left_.back();
  left_.pop_back();
  emit mayGoBack(!left_.empty());
  if (place.text != text_) Load(place.text);
  ScrollTo(place.top);
}

// The text is dressed before it is laid out, which takes its time.
bool GuideBrowser::Load(const QString& text) {
  QFile file(kFolder + text);
  if (!file.open(QIODevice::ReadOnly)) return false;
  auto* guide = new QTextDocument(this);
  guide->setDefaultFont(font());
  guide->setDocumentMargin(kMargin);
  guide->setMarkdown(QString::fromUtf8(file.readAll()));
  headings_ = DressHeadings(*guide);
  DressTables(*guide, palette().brush(QPalette::Disabled, QPalette::Text));
  FitPictures(*guide, std::min(kWidestPicture, viewport()->width() - 2 * kMargin));
  setDocument(guide);
  delete std::exchange(guide_, guide);
  text_ = text;
  emit textLoaded();
  return true;
}

// All of the text must be laid out for the bar to know how far it goes.
void GuideBrowser::ScrollTo(int top) {
  document()->documentLayout()->documentSize();
  verticalScrollBar()->setValue(top);
}

int GuideBrowser::HeadingInSight() const {
  const int top = cursorForPosition(QPoint(kMargin, 2 * kMargin)).position();
  int found = -1;
  for (const Heading& heading : headings_)
    if (heading.position <= top) ++found;
  return found;
}

void GuideBrowser::FollowLink(const QUrl& link) {
  const QString text = link.path().isEmpty() ? text_ : link.path();
  if (!link.isRelative() || !GoTo(text, link.fragment())) emit leftByLink(link.toString());
}

// A picture comes in the size in which it is shown, for this screen's dots.
QVariant GuideBrowser::loadResource(int type, const QUrl& name) {
  const int width = QUrlQuery(name).queryItemValue("width").toInt();
  if (type != QTextDocument::ImageResource || width == 0)
    return QTextBrowser::loadResource(type, name);
  QImage picture(kFolder + name.path());
  const int dots = qRound(width * devicePixelRatioF());
  if (picture.width() > dots) picture = picture.scaledToWidth(dots, Qt::SmoothTransformation);
  picture.setDevicePixelRatio(double(picture.width()) / width);
  return picture;
}

void GuideBrowser::resizeEvent(QResizeEvent* event) {
  const QTextCursor top = cursorForPosition(QPoint(kMargin, kMargin));  // while laid out as it was
  QTextBrowser::resizeEvent(event);
  if (event->size().width() == event->oldSize().width() || text_.isEmpty()) return;
  FitPictures(*document(), std::min(kWidestPicture, viewport()->width() - 2 * kMargin));
  ScrollTo(verticalScrollBar()->value() + cursorRect(top).top() - kMargin);
}

// Colours are taken from the palette when the text is loaded.
void GuideBrowser::changeEvent(QEvent* event) {
  QTextBrowser::changeEvent(event);
  if (event->type() != QEvent::PaletteChange || text_.isEmpty()) return;
  const int top = verticalScrollBar()->value();
  Load(text_);
  ScrollTo(top);
}

}  // namespace lm
