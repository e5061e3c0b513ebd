// The operating system's services.
#include <QApplication>
#include <QClipboard>
#include <QColorDialog>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>
#include <algorithm>

#include "shell/native.h"
#include "shell/qt/desktop.h"
#include "shell/qt/liststyle.h"
#include "shell/qt/qtext.h"

namespace lm {
namespace {

constexpr std::string_view kCommandLineProgram = "ledgerminder-cli";

struct Calculator {
  const char* program;
  QStringList arguments;
};

const std::vector<Calculator>& Calculators() {
  static const std::vector<Calculator> calculators {
#if defined(Q_OS_WIN)
    {"calc.exe", {}},
#elif defined(Q_OS_MACOS)
    {"open", {"-a", "Calculator"}},
#else
    {"gnome-calculator", {}}, {"kcalc", {}}, {"mate-calc", {}}, {"qalculate-gtk", {}},
        {"galculator", {}}, {"xcalc", {}},
#endif
  };
  return calculators;
}

}  // namespace

std::vector<std::string> DesktopSystem::RunningProcesses() {
  std::vector<std::string> names = native::RunningProcesses();
  std::erase_if(names, [](const std::string& name) {
    return EqualsIgnoreCase(std::string_view(name).substr(0, kCommandLineProgram.size()),
                            kCommandLineProgram);
  });
  return names;
}

std::string DesktopSystem::UserName() { return native::UserName(); }
std::filesystem::path DesktopSystem::ExecutableDirectory() { return native::ExecutableDirectory(); }
std::filesystem::path DesktopSystem::UserDataDirectory() { return native::UserDataDirectory(); }
std::filesystem::path DesktopSystem::DocumentsDirectory() { return native::DocumentsDirectory(); }

bool DesktopSystem::Open(std::string_view target) {
  const QString name = ToQt(target);
  const QUrl url = QFileInfo::exists(name) ? QUrl::fromLocalFile(QFileInfo(name).absoluteFilePath())
                                           : QUrl::fromUserInput(name);
  return url.isValid() && QDesktopServices::openUrl(url);
}

bool DesktopSystem::StartCalculator() {
  return std::any_of(Calculators().begin(), Calculators().end(), [](const Calculator& calculator) {
    const QString program = QStandardPaths::findExecutable(calculator.program);
    return !program.isEmpty() && QProcess::startDetached(program, calculator.arguments);
  });
}

void DesktopSystem::SetClipboard(std::string_view text) {
  QApplication::clipboard()->setText(ToQt(text));
}

std::filesystem::path DesktopSystem::AskOpenFile(std::string_view title, const FileFilter& filter,
                                                 const std::filesystem::path& start) {
  return ToPath(QFileDialog::getOpenFileName(QApplication::activeWindow(), ToQt(title),
                                             FromPath(start), ToQt(filter.name)));
}

SaveTarget DesktopSystem::AskSaveFile(std::string_view title,
                                      const std::vector<FileFilter>& filters,
                                      const std::filesystem::path& start) {
  QStringList names;
  for (const FileFilter& filter : filters) names << ToQt(filter.name);
  QString chosen = names.value(0);
  const QString path = QFileDialog::getSaveFileName(QApplication::activeWindow(), ToQt(title),
                                                    FromPath(start), names.join(";;"), &chosen);
  return {ToPath(path),
          static_cast<std::size_t>(std::max(0LL, static_cast<qlonglong>(names.indexOf(chosen))))};
}

std::optional<int> DesktopSystem::AskColour(std::string_view title, int start) {
  const QColor chosen =
      QColorDialog::getColor(ToQColor(start), QApplication::activeWindow(), ToQt(title));
  if (!chosen.isValid()) return std::nullopt;
  return Rgb(chosen.red(), chosen.green(), chosen.blue());
}

}  // namespace lm
