// The desktop's side of the ports.
#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <functional>
#include <memory>

#include "core/platform.h"
#include "shell/nativeoutlook.h"
#include "shell/qt/desktopmail.h"
#include "shell/qt/openwith.h"

class QDialog;

namespace lm {

class ProgressWindow;
class frmSplashScreen;
class WindowCatalogue;
class Ledger;

class DesktopMessages : public MessagePort {
 public:
  Answer Show(const MessageBoxText& message) override;
  // In the strip of the main window; nowhere while there is none.
  void ShowTip(const MessageBoxText& message, std::function<void()> stopTips) override;
};

class DesktopClock : public ClockPort {
 public:
  Date Now() override;
};

class DesktopWindows : public WindowPort {
 public:
  void ShowModal(Screen& screen) override;
  bool OpenRecord(std::string_view window, std::string_view id) override;
  void BusyPointer(bool on) override;  // nested
  void ShowGuide(std::string_view heading) override;

  // Where OpenRecord finds its windows; both outlive this.
  void SetCatalogue(Ledger& ledger, const WindowCatalogue& catalogue);

 private:
  Ledger* ledger_ = nullptr;
  const WindowCatalogue* catalogue_ = nullptr;
};

class DesktopProgress : public ProgressPort {
 public:
  DesktopProgress();
  ~DesktopProgress() override;
  void Show(int percent, std::string_view text) override;
  bool Cancelled() override;
  void Hide() override;
  void ShowLastOpened(std::string_view text) override;
  // The splash stands during the start and shows its progress; that of other work has a window,
  // which comes when the work lasts.
  void OpenSplash();
  void CloseSplash();

 private:
  // Whether the window is to paint itself now; it comes when the work has lasted.
  bool PaintDue();

  std::unique_ptr<frmSplashScreen> splash_;
  QPointer<ProgressWindow> window_;  // while work is under way; goes with the window below it
  QElapsedTimer begun_;
  QElapsedTimer painted_;
};

class DesktopSystem : public SystemPort {
 public:
  // Without the command line program, which is no second window over the same data.
  std::vector<std::string> RunningProcesses() override;
  std::string UserName() override;
  std::filesystem::path ExecutableDirectory() override;
  std::filesystem::path UserDataDirectory() override;
  std::filesystem::path DocumentsDirectory() override;
  bool Open(std::string_view target) override;
  bool StartCalculator() override;
  void SetClipboard(std::string_view text) override;
  std::filesystem::path AskOpenFile(std::string_view title, const FileFilter& filter,
                                    const std::filesystem::path& start) override;
  SaveTarget AskSaveFile(std::string_view title, const std::vector<FileFilter>& filters,
                         const std::filesystem::path& start) override;
  std::optional<bool> OpenWithOffered() override { return lm::OpenWithOffered(); }
  bool OfferOpenWith(bool offered) override { return lm::OfferOpenWith(offered); }
  std::optional<int> AskColour(std::string_view title, int start) override;
};

class DesktopWeb : public WebPort {
 public:
  std::string Get(const std::string& url, const std::function<bool()>& cancelled) override;
};

struct DesktopPlatform {
  DesktopMessages messages;
  DesktopClock clock;
  DesktopWindows windows;
  DesktopProgress progress;
  DesktopSystem system;
  DesktopMail mail;
  DesktopWeb web;
  std::unique_ptr<OutlookPort> outlook = native::MakeOutlook();
  Platform platform{messages, clock, windows, progress, system, mail, web, outlook.get()};
};

}  // namespace lm
