// The texts of the user guide as they stand in the program: headings that links and the contents
// lead to, pictures made to fit, tables in the colours of the palette.
#pragma once

#include <QTextBrowser>
#include <vector>

namespace lm {

// The anchor by which a link names a heading: "General expenses" is "general-expenses".
QString HeadingAnchor(const QString& heading);

class GuideBrowser : public QTextBrowser {
  Q_OBJECT
 public:
  struct Heading {
    QString text;
    QString anchor;
    int level;     // 1 is the title
    int position;  // in the document
  };

  explicit GuideBrowser(QWidget* parent = nullptr);
  // A text of the guide, "templates.md", and a heading in it; "" is its top, as is a heading that
  // it does not have. False when there is no such text.
  bool GoTo(const QString& text, const QString& heading);
  QString Text() const { return text_; }
  void GoBack();
  const std::vector<Heading>& Headings() const { return headings_; }
  // The heading under which the text at the top stands, by its number; -1 above the first.
  int HeadingInSight() const;

 signals:
  void textLoaded();
  void mayGoBack(bool available);
  // A link that leads out of the guide.
  void leftByLink(const QString& address);

 protected:
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  QVariant loadResource(int type, const QUrl& name) override;

 private:
  struct Place {
    QString text;
    int top;  // of the scroll bar
  };

  bool Load(const QString& text);
  void ScrollTo(int top);
  void FollowLink(const QUrl& link);

  QTextDocument* guide_ = nullptr;
  QString text_;
  std::vector<Heading> headings_;
  std::vector<Place> left_;  // for GoBack, the latest last
};

}  // namespace lm
