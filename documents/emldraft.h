// A message as a draft in a file (RFC 5322, with the attachment by RFC 2045 and 2046), which mail
// programs open for sending.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/dates.h"
#include "core/platform.h"

namespace lm {

// A text for one line of a message's head: line breaks, which would begin a header of their own,
// and other control characters become blanks.
std::string OneLine(std::string_view text);

// The file's bytes; empty, with the reason in `error`, when the attachment cannot be read. Address
// and subject are put into one line each.
std::optional<std::string> EmlDraft(const MailMessage& message, Date now, std::string& error);

}  // namespace lm
