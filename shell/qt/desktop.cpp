#include "shell/qt/desktop.h"

#include <QApplication>

#include "core/messagebox.h"
#include "core/options.h"
#include "core/screen.h"
#include "shell/native.h"
#include "shell/qt/frmHelp.h"
#include "shell/qt/frmMesgBox.h"
#include "shell/qt/frmSplashScreen.h"
#include "shell/qt/progresswindow.h"
#include "shell/qt/qtext.h"
#include "shell/qt/tipstrip.h"
#include "shell/qt/views.h"
#include "shell/webfetch.h"

namespace lm {
namespace {

constexpr int kProgressDelay =
    500;                            // ms of work before its window comes, so that it does not flash
constexpr int kPaintInterval = 40;  // ms

// The window over which the next one opens.
QWidget* TopWindow() {
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  QWidget* main = MainWindowWidget();
  return main && main->isVisible() ? main : nullptr;
}

// A message must be readable with an ordinary pointer, whatever work stands behind it.
class OrdinaryPointer {
 public:
  OrdinaryPointer() {
    while (QApplication::overrideCursor()) {
      cursors_.push_back(*QApplication::overrideCursor());
      QApplication::restoreOverrideCursor();
    }
  }
  ~OrdinaryPointer() {
    for (auto cursor = cursors_.rbegin(); cursor != cursors_.rend(); ++cursor)
      QApplication::setOverrideCursor(*cursor);
  }
  OrdinaryPointer(const OrdinaryPointer&) = delete;
  OrdinaryPointer& operator=(const OrdinaryPointer&) = delete;

 private:
  std::vector<QCursor> cursors_;
};

}  // namespace

Answer DesktopMessages::Show(const MessageBoxText& message) {
  const OrdinaryPointer ordinaryPointer;
  frmMesgBox box(message, TopWindow());
  if (message.sound) QApplication::beep();
  box.exec();
  return box.Pressed();
}

void DesktopMessages::ShowTip(const MessageBoxText& message, std::function<void()> stopTips) {
  if (TipStrip* tips = MainWindowTips())
    tips->Add(ToQt(message.mainPrompt), ToQt(message.minorPrompt), std::move(stopTips));
}

Date DesktopClock::Now() { return native::LocalTime(); }

void DesktopWindows::ShowModal(Screen& screen) {
  const OrdinaryPointer ordinaryPointer;
  RunView(screen, TopWindow());
}

bool DesktopWindows::OpenRecord(std::string_view window, std::string_view id) {
  return catalogue_ && catalogue_->Open(*ledger_, window, {"open", std::string(id)});
}

void DesktopWindows::SetCatalogue(Ledger& ledger, const WindowCatalogue& catalogue) {
  ledger_ = &ledger;
  catalogue_ = &catalogue;
}

void DesktopWindows::BusyPointer(bool on) {
  if (on)
    QApplication::setOverrideCursor(Qt::WaitCursor);
  else
    QApplication::restoreOverrideCursor();
}

void DesktopWindows::ShowGuide(std::string_view heading) {
  ShowGuideBeside(TopWindow(), ToQt(heading)).openLink = [this](const QString& address) {
    if (ledger_) OpenLink(*ledger_, FromQt(address));
  };
}

DesktopProgress::DesktopProgress() = default;
DesktopProgress::~DesktopProgress() { delete window_; }

void DesktopProgress::Show(int percent, std::string_view text) {
  if (splash_) return splash_->SetProgressBar(percent, text);
  if (!window_) {
    if (percent < 0) return;  // a text for a bar that is not there
    window_ = new ProgressWindow(TopWindow());
    begun_.start();
    painted_.start();
  }
  window_->SetProgress(percent, text);
  if (!PaintDue()) return;
  QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  painted_.restart();
}

bool DesktopProgress::PaintDue() {
  if (window_->isVisible()) return painted_.elapsed() >= kPaintInterval;
  if (begun_.elapsed() < kProgressDelay) return false;
  window_->show();
  return true;
}

bool DesktopProgress::Cancelled() {
  if (!window_) return false;
  window_->OfferCancel();
  if (PaintDue()) {
    QApplication::processEvents();  // clicks reach this window alone, for it is modal
    painted_.restart();
  }
  return window_ && window_->Cancelled();
}

void DesktopProgress::Hide() {
  if (!window_) return;
  // What was clicked and typed meanwhile falls on this window, not on the one below.
  if (window_->isVisible()) QApplication::processEvents();
  delete window_;
}

void DesktopProgress::ShowLastOpened(std::string_view text) {
  if (splash_) splash_->ShowLastOpened(text);
}

void DesktopProgress::OpenSplash() {
  splash_ = std::make_unique<frmSplashScreen>(ProgramVersion());
  splash_->show();
  QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void DesktopProgress::CloseSplash() { splash_.reset(); }

std::string DesktopWeb::Get(const std::string& url, const std::function<bool()>& cancelled) {
  return native::FetchFromWeb(url, cancelled);
}

}  // namespace lm
