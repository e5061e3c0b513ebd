// The one window for all messages: a bold main prompt, a plain minor prompt, buttons, an icon, a
// title and a web link. A backslash followed by an n in either prompt is a line break.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "core/hosts.h"
#include "core/ledger.h"
#include "core/platform.h"

namespace lm {

constexpr std::string_view kProductName = "LedgerMinder";

// A path in a prompt, as the system shows it: an n behind its backslash begins no line.
std::string PathInMessage(const std::filesystem::path& path);

Answer ShowMessage(Ledger& ledger, std::string_view mainPrompt, std::string_view minorPrompt = "",
                   Buttons buttons = Buttons::Ok, Icon icon = Icon::Exclamation,
                   std::string_view windowTitle = "", std::string_view link = "",
                   std::optional<Answer> unattended = {});

// True when the user answered Yes. A run without a user answers No, or what `unattended` says.
bool Ask(Ledger& ledger, std::string_view mainPrompt, std::string_view minorPrompt = "",
         std::string_view windowTitle = "", std::optional<Answer> unattended = {});

// A one-time message: shown once in each run, unless option 40 is false.
void ShowTip(Ledger& ledger, std::string_view mainPrompt, std::string_view text);

// A web address or file with its default handler; "www..." gets the web scheme in front. False when
// nothing opens it, after a message that says which address or file it was.
bool OpenLink(Ledger& ledger, std::string_view address);

// The address of a page of the product website: "/UnableToLoad.php".
std::string WebPage(std::string_view page);

}  // namespace lm
