// Reads an address of the web, for the ports of the desktop and the command line.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace lm::native {

constexpr int kFetchSeconds = 30;                                    // of the whole fetch
constexpr std::size_t kMostFetched = std::size_t{20} * 1024 * 1024;  // bytes of a body

// The body of an http or https address in UTF-8, as it came, an error page's too. "" on any
// failure: no answer in time, a body that breaks off or is too large, a certificate that does not
// hold, a redirect elsewhere than to http and https or the eleventh. `cancelled` is asked several
// times a second and ends the fetch. `trusted` is a file of certificates instead of the machine's
// own.
std::string FetchFromWeb(const std::string& url, const std::function<bool()>& cancelled,
                         const std::string& trusted = "");

}  // namespace lm::native
