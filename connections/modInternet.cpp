#include "connections/modInternet.h"

#include <algorithm>
#include <array>

#include "core/platform.h"
#include "core/text.h"

namespace lm {
namespace {

constexpr std::string_view kWebcal = "webcal://";

bool StartsIgnoringCase(std::string_view text, std::string_view start) {
  return EqualsIgnoreCase(text.substr(0, start.size()), start);
}

}  // namespace

bool IsWebAddress(std::string_view address) {
  constexpr std::array<std::string_view, 3> kStarts{"http", "www", kWebcal};
  return std::ranges::any_of(
      kStarts, [&](std::string_view start) { return StartsIgnoringCase(address, start); });
}

std::optional<std::string> HttpGet(Ledger& ledger, std::string_view url) {
  std::string address(Trim(url));
  if (StartsIgnoringCase(address, kWebcal)) address.erase(0, kWebcal.size());
  if (!StartsIgnoringCase(address, "http://") && !StartsIgnoringCase(address, "https://"))
    address.insert(0, "https://");

  ProgressPort& progress = ledger.platform.progress;
  bool cancelled = false;
  progress.Show(0, "Waiting for an answer...");
  std::string body = ledger.platform.web.Get(
      ToUtf8(address), [&] { return cancelled = cancelled || progress.Cancelled(); });
  progress.Hide();
  if (cancelled) return std::nullopt;
  return body;
}

}  // namespace lm
