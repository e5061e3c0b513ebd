// Simple MAPI, looked up at run time, so that the program starts where there is none.
#include <QtGlobal>

#if defined(Q_OS_WIN)

#include "core/windowsheader.h"

#include <QApplication>
#include <QDir>
#include <QSettings>
#include <QWidget>
#include <string>

#include "shell/qt/desktopmail.h"
#include "shell/qt/qtext.h"

namespace lm {
namespace {

// The structures of Simple MAPI, for narrow (char) and wide (wchar_t) texts.
template <typename Char>
struct MapiRecipient {
  ULONG reserved;
  ULONG kind;
  Char* name;
  Char* address;
  ULONG entrySize;
  void* entry;
};

template <typename Char>
struct MapiFile {
  ULONG reserved;
  ULONG flags;
  ULONG position;
  Char* path;
  Char* name;
  void* type;
};

template <typename Char>
struct MapiLetter {
  ULONG reserved;
  Char* subject;
  Char* text;
  Char* type;
  Char* received;
  Char* conversation;
  ULONG flags;
  MapiRecipient<Char>* sender;
  ULONG recipientCount;
  MapiRecipient<Char>* recipients;
  ULONG fileCount;
  MapiFile<Char>* files;
};

template <typename Char>
using SendMail = ULONG(WINAPI*)(ULONG_PTR session, ULONG_PTR window, MapiLetter<Char>* letter,
                                ULONG flags, ULONG reserved);

constexpr ULONG kTo = 1;                      // MAPI_TO
constexpr ULONG kNoPlace = 0xFFFFFFFF;        // the attachment stands nowhere in the text
constexpr ULONG kLogonAndDialog = 0x1 | 0x8;  // MAPI_LOGON_UI, MAPI_DIALOG
constexpr ULONG kSuccess = 0;
constexpr ULONG kUserAbort = 1;

template <typename Char>
struct Texts {
  std::basic_string<Char> name, address, subject, body, path, file;
};

template <typename Char>
MailOutcome Send(SendMail<Char> send, Texts<Char> texts) {
  MapiRecipient<Char> recipient{0, kTo, texts.name.data(), texts.address.data(), 0, nullptr};
  MapiFile<Char> file{0, 0, kNoPlace, texts.path.data(), texts.file.data(), nullptr};
  MapiLetter<Char> letter{};
  letter.subject = texts.subject.data();
  letter.text = texts.body.data();
  letter.recipientCount = texts.name.empty() ? 0 : 1;
  letter.recipients = texts.name.empty() ? nullptr : &recipient;
  letter.fileCount = texts.path.empty() ? 0 : 1;
  letter.files = texts.path.empty() ? nullptr : &file;
  const QWidget* window = QApplication::activeWindow();
  switch (
      send(0, window ? static_cast<ULONG_PTR>(window->winId()) : 0, &letter, kLogonAndDialog, 0)) {
    case kSuccess:
      return MailOutcome::Sent;
    case kUserAbort:
      return MailOutcome::Cancelled;
    default:
      return MailOutcome::Failed;
  }
}

template <typename Function>
Function Find(HMODULE library, const char* name) {
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

}  // namespace

// The library itself is always there; the registry says whether a mail program answers it.
bool DesktopMail::Available() {
  const QSettings messaging("HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows Messaging Subsystem",
                            QSettings::NativeFormat);
  return messaging.value("MAPI").toString() == "1";
}

MailOutcome DesktopMail::Compose(const MailMessage& message) {
  const HMODULE library = LoadLibraryW(L"mapi32.dll");
  if (!library) return MailOutcome::Failed;
  const QString to = ToQt(message.to), address = to.isEmpty() ? to : "SMTP:" + to;
  const QString subject = ToQt(message.subject), body = ToQt(message.body);
  const QString path = QDir::toNativeSeparators(FromPath(message.attachment));
  const QString name = ToQt(message.attachmentName);
  MailOutcome outcome = MailOutcome::Failed;
  if (const auto wide = Find<SendMail<wchar_t>>(library, "MAPISendMailW")) {
    outcome =
        Send<wchar_t>(wide, {to.toStdWString(), address.toStdWString(), subject.toStdWString(),
                             body.toStdWString(), path.toStdWString(), name.toStdWString()});
  } else if (const auto narrow = Find<SendMail<char>>(library, "MAPISendMail")) {
    const auto local = [](const QString& text) { return text.toLocal8Bit().toStdString(); };
    outcome = Send<char>(
        narrow, {local(to), local(address), local(subject), local(body), local(path), local(name)});
  }
  FreeLibrary(library);
  return outcome;
}

}  // namespace lm

#endif
