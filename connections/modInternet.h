// The one door to the web.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/ledger.h"

namespace lm {

// Whether a text names something on the web: "http...", "www...", "webcal://...", in any case.
bool IsWebAddress(std::string_view address);

// The whole body of an address, as it came, taken for Windows-1252; "" on any failure. Its progress
// is shown, and nothing comes of a fetch that the user cancels. "webcal://" is fetched as https, an
// address without a scheme too.
std::optional<std::string> HttpGet(Ledger& ledger, std::string_view url);

}  // namespace lm
