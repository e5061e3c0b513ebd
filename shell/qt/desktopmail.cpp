#include "shell/qt/desktopmail.h"

#include <QCursor>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTimer>

#include "core/text.h"
#include "shell/qt/qtext.h"

namespace lm {

DesktopMail::DesktopMail(int patience) : patience_(patience) {}
DesktopMail::~DesktopMail() = default;

QString DesktopMail::NamedAttachment(const MailMessage& message) {
  const QFileInfo file(FromPath(message.attachment));
  const QString name = QFileInfo(ToQt(message.attachmentName)).fileName();
  if (name.isEmpty() || name == file.fileName()) return file.absoluteFilePath();
  auto folder = std::make_unique<QTemporaryDir>();
  const QString copy = folder->filePath(name);
  if (!folder->isValid() || !QFile::copy(file.absoluteFilePath(), copy)) return {};
  copies_.push_back(std::move(folder));
  return copy;
}

MailOutcome DesktopMail::Run(const QString& program, const QStringList& arguments) {
  auto owned = std::make_unique<QProcess>();
  QProcess& composer = *owned;
  composer.setStandardInputFile(QProcess::nullDevice());
  composer.setStandardOutputFile(QProcess::nullDevice());
  composer.setStandardErrorFile(QProcess::nullDevice());
  composer.start(program, arguments);

  QEventLoop waiting;
  QObject::connect(&composer, &QProcess::finished, &waiting, &QEventLoop::quit);
  QObject::connect(&composer, &QProcess::errorOccurred, &waiting, &QEventLoop::quit);
  QTimer::singleShot(patience_, &waiting, &QEventLoop::quit);
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  if (composer.state() != QProcess::NotRunning) waiting.exec(QEventLoop::ExcludeUserInputEvents);
  QGuiApplication::restoreOverrideCursor();

  if (composer.state() != QProcess::NotRunning) {
    composers_.push_back(std::move(owned));
    return MailOutcome::Sent;
  }
  const bool done = composer.error() == QProcess::UnknownError &&
                    composer.exitStatus() == QProcess::NormalExit && composer.exitCode() == 0;
  return done ? MailOutcome::Sent : MailOutcome::Failed;
}

#if !defined(Q_OS_WIN) && !defined(Q_OS_MACOS)

namespace {

constexpr const char* kComposer = "xdg-email";

}  // namespace

bool DesktopMail::Available() { return !QStandardPaths::findExecutable(kComposer).isEmpty(); }

MailOutcome DesktopMail::Compose(const MailMessage& message) {
  QStringList arguments{"--utf8"};
  // An option with an empty text is refused.
  if (!message.subject.empty()) arguments << "--subject" << ToQt(message.subject);
  if (!message.body.empty()) arguments << "--body" << ToQt(Replace(message.body, "\r\n", "\n"));
  if (!message.attachment.empty()) {
    const QString file = NamedAttachment(message);
    if (file.isEmpty()) return MailOutcome::Failed;
    arguments << "--attach" << file;
  }
  if (!message.to.empty()) arguments << ToQt(message.to);
  return Run(kComposer, arguments);
}

#endif

}  // namespace lm
