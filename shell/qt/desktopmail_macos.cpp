// Mail, through its scripting.
#include <QtGlobal>

#if defined(Q_OS_MACOS)

#include <QStringList>

#include "core/text.h"
#include "shell/qt/desktopmail.h"
#include "shell/qt/qtext.h"

namespace lm {
namespace {

// The texts come as arguments of the script, never as part of it. The first argument only keeps a
// text that begins with "-" from being read as an option.
constexpr const char* kScript = R"(on run argv
  set theFile to item 5 of argv
  if theFile is not "" then set theFile to POSIX file theFile
  tell application "Mail"
    set theMessage to make new outgoing message with properties {visible:true, subject:item 3 of argv, content:item 4 of argv & return & return}
    tell theMessage
      if item 2 of argv is not "" then make new to recipient at end of to recipients with properties {address:item 2 of argv}
      if theFile is not "" then tell content to make new attachment with properties {file name:theFile} at after last paragraph
    end tell
    activate
  end tell
end run)";

}  // namespace

bool DesktopMail::Available() { return true; }

MailOutcome DesktopMail::Compose(const MailMessage& message) {
  QString file;
  if (!message.attachment.empty()) {
    file = NamedAttachment(message);
    if (file.isEmpty()) return MailOutcome::Failed;
  }
  return Run("/usr/bin/osascript",
             {"-e", kScript, "compose", ToQt(message.to), ToQt(message.subject),
              ToQt(Replace(message.body, "\r\n", "\n")), file});
}

}  // namespace lm

#endif
