#include "core/messagebox.h"

#include "core/files.h"
#include "core/options.h"
#include "core/text.h"

namespace lm {
namespace {

std::string WithBreaks(std::string_view prompt) { return Replace(prompt, "\\n", "\r\n"); }

}  // namespace

std::string PathInMessage(const std::filesystem::path& path) {
  return Replace(NativePathText(path), "\\", MarkedCharacter(U'\\'));
}

Answer ShowMessage(Ledger& ledger, std::string_view mainPrompt, std::string_view minorPrompt,
                   Buttons buttons, Icon icon, std::string_view windowTitle, std::string_view link,
                   std::optional<Answer> unattended) {
  MessageBoxText message;
  message.mainPrompt = WithBreaks(mainPrompt);
  message.minorPrompt = WithBreaks(minorPrompt);
  message.buttons = buttons;
  message.icon = icon;
  message.title = windowTitle.empty() ? kProductName : windowTitle;
  message.link = link;
  message.unattended = unattended;
  message.sound =
      icon != Icon::Done && icon != Icon::Tip && !OptionIsTrue(ledger, optSilentMessages);
  MessagePort& port = ledger.answering ? *ledger.answering : ledger.platform.messages;
  return port.Show(message);
}

bool Ask(Ledger& ledger, std::string_view mainPrompt, std::string_view minorPrompt,
         std::string_view windowTitle, std::optional<Answer> unattended) {
  return ShowMessage(ledger, mainPrompt, minorPrompt, Buttons::YesNo, Icon::Question, windowTitle,
                     "", unattended) == Answer::Yes;
}

void ShowTip(Ledger& ledger, std::string_view mainPrompt, std::string_view text) {
  if (EqualsIgnoreCase(GetOption(ledger, optShowTips), "FALSE")) return;
  if (!ledger.shownTips.emplace(text).second) return;
  MessageBoxText message;
  message.mainPrompt = WithBreaks(mainPrompt);
  message.minorPrompt = WithBreaks(text);
  message.icon = Icon::Tip;
  message.title = "LedgerMinder Tip";
  message.sound = false;
  ledger.platform.messages.ShowTip(message, [&ledger] { SetOption(ledger, optShowTips, "FALSE"); });
}

bool OpenLink(Ledger& ledger, std::string_view address) {
  const bool bare = EqualsIgnoreCase(address.substr(0, 3), "www");
  const std::string target = (bare ? "https://" : "") + std::string(address);
  if (ledger.platform.system.Open(target)) return true;
  const bool isPage = target.starts_with("http");
  ShowMessage(ledger, isPage ? "The web page could not be opened" : "The file could not be opened",
              target + (isPage ? "\\n\\nNo web browser answered."
                               : "\\n\\nNo program for files of this kind answered."));
  return false;
}

std::string WebPage(std::string_view page) { return std::string(kWebsite) + std::string(page); }

}  // namespace lm
