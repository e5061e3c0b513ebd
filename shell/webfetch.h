// Reads an address of the web, for the ports of the desktop and the command line.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>

namespace lm::native {

struct FetchLimits {
  std::chrono::milliseconds time = std::chrono::seconds(30);  // of the whole fetch
  std::size_t bytes = std::size_t{20} * 1024 * 1024;          // of a body, unpacked
  std::string trusted;  // a file of certificates instead of the machine's own; not on Windows
};

// The body of an http or https address in UTF-8, as it came, an error page's too. "" on any
// failure: no answer in time, a body that breaks off or is too large, a certificate that does not
// hold, a redirect elsewhere than to http and https, or too many. `cancelled` is asked many times a
// second, on the caller's thread, and ends the fetch. No cookies, no credentials, no cache, no
// proxy.
std::string FetchFromWeb(const std::string& url, const std::function<bool()>& cancelled,
                         const FetchLimits& limits = {});

}  // namespace lm::native
