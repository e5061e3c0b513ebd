#include "shell/qt/frmMesgBox.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMainWindow>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QUrl>
#include <QVBoxLayout>

#include "shell/qt/freearea.h"
#include "shell/qt/icons.h"
#include "shell/qt/qtext.h"

namespace lm {
namespace {

constexpr int kIconSize = 40;
constexpr int kTextWidth = 420;  // device-independent pixels

struct IconSpec {
  int number;
  const char* objectName;
  const char* drawing;
  const char* spoken;
  QColor (*colour)();
};

constexpr IconSpec kIcons[] = {
    {0, "picCritical", "critical", "Error", DangerColour},
    {1, "picExclamation", "exclamation", "Warning", WarningColour},
    {4, "picExclamation", "exclamation", "Warning", WarningColour},
    {2, "picInformation", "information", "Information", AccentColour},
    {3, "picQuestion", "question", "Question", AccentColour},
    {5, "picCompleted", "completed", "Done", GoodColour},
    {6, "picTip", "tip", "Tip", WarningColour},
};

const IconSpec& IconOf(Icon icon) {
  for (const IconSpec& spec : kIcons)
    if (spec.number == static_cast<int>(icon)) return spec;
  return kIcons[3];
}

struct ButtonSpec {
  Answer answer;
  const char* objectName;
  const char* caption;
};

constexpr ButtonSpec kButtons[] = {
    {Answer::Ok, "cmdOk", "&OK"},
    {Answer::Yes, "cmdYes", "&Yes"},
    {Answer::No, "cmdNo", "&No"},
    {Answer::Cancel, "cmdCancel", "&Cancel"},
};

const ButtonSpec& ButtonOf(Answer answer) {
  for (const ButtonSpec& spec : kButtons)
    if (spec.answer == answer) return spec;
  return kButtons[0];
}

QLabel* TextLabel(const char* name, std::string_view text) {
  auto* label = new QLabel(ToQt(text).remove(u'\r'));
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setMinimumWidth(kTextWidth);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return label;
}

// A text of many lines scrolls, so that the buttons stay on the screen.
QWidget* LongText(QLabel* label, int tallest) {
  const int height = label->heightForWidth(kTextWidth);
  if (height <= tallest) return label;
  auto* area = new QScrollArea;
  label->setFixedSize(kTextWidth, height);
  area->setWidget(label);
  area->setFrameShape(QFrame::NoFrame);
  area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  area->setFixedSize(kTextWidth + area->verticalScrollBar()->sizeHint().width() + 4, tallest);
  area->setAccessibleName(label->text());
  return area;
}

}  // namespace

std::vector<Answer> AnswersOf(Buttons buttons) {
  switch (buttons) {
    case Buttons::OkCancel:
      return {Answer::Ok, Answer::Cancel};
    case Buttons::YesNoCancel:
      return {Answer::Yes, Answer::No, Answer::Cancel};
    case Buttons::YesNo:
      return {Answer::Yes, Answer::No};
    case Buttons::Ok:
      break;
  }
  return {Answer::Ok};
}

Answer SafeAnswer(Buttons buttons) { return AnswersOf(buttons).back(); }

Answer EnterAnswer(Buttons buttons) {
  return buttons == Buttons::OkCancel ? Answer::Ok : SafeAnswer(buttons);
}

QWidget* MainWindowWidget() {
  for (QWidget* window : QApplication::topLevelWidgets())
    if (qobject_cast<QMainWindow*>(window)) return window;
  return nullptr;
}

void CentreWindow(QWidget& window) {
  QWidget* main = MainWindowWidget();
  const bool overMain = main && main->isVisible() && !main->isMinimized();
  const QRect area = FreeArea(overMain ? *main : window);
  QRect place(QPoint(), window.size());
  place.moveCenter(overMain ? main->geometry().center() : area.center());
  window.setGeometry(Inside(place, area));
}

frmMesgBox::frmMesgBox(const MessageBoxText& message, QWidget* parent)
    : QDialog(parent), safe_(SafeAnswer(message.buttons)), pressed_(safe_) {
  setObjectName("frmMesgBox");
  setWindowTitle(ToQt(message.title));
  // Heard when it comes up: none of its texts takes the focus.
  setAccessibleDescription(ToQt(message.mainPrompt + " " + message.minorPrompt).simplified());

  auto* outer = new QVBoxLayout(this);
  outer->setContentsMargins(20, 20, 20, 16);
  outer->setSpacing(20);
  outer->setSizeConstraint(QLayout::SetFixedSize);

  const IconSpec& spec = IconOf(message.icon);
  auto* picture = new QLabel;
  picture->setObjectName(spec.objectName);
  picture->setAccessibleName(tr(spec.spoken));
  picture->setPixmap(LineIcon(spec.drawing, spec.colour())
                         .pixmap(QSize(kIconSize, kIconSize), devicePixelRatioF()));

  auto* texts = new QVBoxLayout;
  texts->setSpacing(10);
  AddTexts(message, *texts);
  auto* row = new QHBoxLayout;
  row->setSpacing(16);
  row->addWidget(picture, 0, Qt::AlignTop);
  row->addLayout(texts, 1);
  outer->addLayout(row);
  AddButtons(message, *outer);
}

void frmMesgBox::AddTexts(const MessageBoxText& message, QVBoxLayout& column) {
  QLabel* mainPrompt = TextLabel("txtMainPrompt", message.mainPrompt);
  QFont bold = mainPrompt->font();
  bold.setBold(true);
  bold.setPointSizeF(bold.pointSizeF() * 1.1);
  mainPrompt->setFont(bold);
  column.addWidget(LongText(mainPrompt, FreeArea(*this).height() / 4));
  if (!message.minorPrompt.empty())
    column.addWidget(
        LongText(TextLabel("txtMinorPrompt", message.minorPrompt), FreeArea(*this).height() / 2));
  if (!message.link.empty()) {
    const QString address = ToQt(message.link);
    auto* link = new QLabel(QStringLiteral("<a href=\"%1\">%1</a>").arg(address.toHtmlEscaped()));
    link->setObjectName("lblWebLink");
    link->setTextInteractionFlags(Qt::TextBrowserInteraction);
    connect(link, &QLabel::linkActivated, this,
            [](const QString& target) { QDesktopServices::openUrl(QUrl::fromUserInput(target)); });
    column.addWidget(link);
  }
}

void frmMesgBox::AddButtons(const MessageBoxText& message, QVBoxLayout& column) {
  auto* row = new QHBoxLayout;
  row->setSpacing(8);
  row->addStretch();
  for (Answer answer : AnswersOf(message.buttons)) {
    const ButtonSpec& spec = ButtonOf(answer);
    auto* button = new QPushButton(spec.caption);
    button->setObjectName(spec.objectName);
    button->setMinimumWidth(88);
    button->setAutoDefault(true);
    connect(button, &QPushButton::clicked, this, [this, answer] {
      pressed_ = answer;
      accept();
    });
    row->addWidget(button);
    if (answer == EnterAnswer(message.buttons)) {
      button->setDefault(true);
      enterButton_ = button;
    }
  }
  column.addLayout(row);
}

void frmMesgBox::showEvent(QShowEvent* event) {
  adjustSize();
  CentreWindow(*this);
  // Otherwise the first button would have the focus, and Enter with it.
  enterButton_->setFocus();
  QDialog::showEvent(event);
}

void frmMesgBox::reject() {
  pressed_ = safe_;
  QDialog::reject();
}

}  // namespace lm
