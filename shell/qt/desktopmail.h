// The desktop's own mail program: through xdg-email, Simple MAPI or the scripting of Mail.
#pragma once

#include <QString>
#include <QStringList>
#include <memory>
#include <vector>

#include "core/platform.h"

class QProcess;
class QTemporaryDir;

namespace lm {

class DesktopMail : public MailPort {
 public:
  // A composer that has run so long without failing has the message. In ms.
  static constexpr int kPatience = 5000;

  explicit DesktopMail(int patience = kPatience);
  ~DesktopMail() override;
  bool Available() override;
  MailOutcome Compose(const MailMessage& message) override;

 private:
  // The attachment under the name that the recipient sees: itself, or a copy; "" when it cannot be
  // copied.
  QString NamedAttachment(const MailMessage& message);
  MailOutcome Run(const QString& program, const QStringList& arguments);

  int patience_;
  // Composers read their attachments when they please, so both stay until the program ends.
  std::vector<std::unique_ptr<QTemporaryDir>> copies_;
  std::vector<std::unique_ptr<QProcess>> composers_;
};

}  // namespace lm
