#include "shell/qt/openwith.h"

#include <QtGlobal>

#ifdef Q_OS_WIN
#include <QCoreApplication>
#include <QDir>
#include <QSettings>

#include "core/windowsheader.h"
// behind that one
#include <shlobj.h>
#endif

namespace lm {

#ifdef Q_OS_WIN

namespace {

// Other programs have .dat files too: theirs stay theirs, this program is one more of the list.
constexpr const char* kKind = "LedgerMinder.DataFile";
constexpr const char* kOffer = ".dat/OpenWithProgids/LedgerMinder.DataFile";

// The user's own, not those of all users.
struct Classes : QSettings {
  Classes() : QSettings(QStringLiteral("HKEY_CURRENT_USER\\Software\\Classes"), NativeFormat) {}
};

QString Command() {
  return '"' + QDir::toNativeSeparators(QCoreApplication::applicationFilePath()) + "\" \"%1\"";
}

QString KeyOf(const char* name) { return QLatin1String(kKind) + '/' + QLatin1String(name); }

}  // namespace

// One that was moved to another folder is not the one that is offered.
std::optional<bool> OpenWithOffered() {
  Classes classes;
  return classes.contains(QLatin1String(kOffer)) &&
         classes.value(KeyOf("shell/open/command/.")).toString() == Command();
}

bool OfferOpenWith(bool offered) {
  Classes classes;
  if (offered) {
    classes.setValue(KeyOf("."), QStringLiteral("LedgerMinder records"));
    classes.setValue(KeyOf("shell/open/command/."), Command());
    classes.setValue(QLatin1String(kOffer), QString());
  } else {
    classes.remove(QLatin1String(kOffer));
    classes.remove(QLatin1String(kKind));
  }
  classes.sync();
  SHChangeNotify(SHCNE_ASSOCCHANGED, SHCNF_IDLIST, nullptr, nullptr);
  return classes.status() == QSettings::NoError;
}

#else

std::optional<bool> OpenWithOffered() { return std::nullopt; }
bool OfferOpenWith(bool) { return false; }

#endif

}  // namespace lm
