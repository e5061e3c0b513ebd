#include "shell/webfetch.h"

#if !defined(_WIN32)

#include <curl/curl.h>

#include <memory>

namespace lm::native {
namespace {

constexpr int kAskEvery = 50;  // ms

struct EasyCloser {
  void operator()(CURL* easy) const { curl_easy_cleanup(easy); }
};
struct MultiCloser {
  void operator()(CURLM* multi) const { curl_multi_cleanup(multi); }
};

struct Body {
  std::string text;
  std::size_t most;
};

std::size_t Append(const char* bytes, std::size_t, std::size_t count, void* into) {
  Body& body = *static_cast<Body*>(into);
  if (count > body.most - body.text.size()) return CURL_WRITEFUNC_ERROR;
  body.text.append(bytes, count);
  return count;
}

void Prepare(CURL* easy, const std::string& url, const FetchLimits& limits, Body& body) {
  curl_easy_setopt(easy, CURLOPT_URL, url.c_str());
  curl_easy_setopt(easy, CURLOPT_USERAGENT, "lm wininet");
  curl_easy_setopt(easy, CURLOPT_PROTOCOLS_STR, "http,https");
  curl_easy_setopt(easy, CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
  curl_easy_setopt(easy, CURLOPT_FOLLOWLOCATION, 1L);
  curl_easy_setopt(easy, CURLOPT_MAXREDIRS, 10L);
  curl_easy_setopt(easy, CURLOPT_NETRC, static_cast<long>(CURL_NETRC_IGNORED));
  curl_easy_setopt(easy, CURLOPT_PROXY, "");            // direct access
  curl_easy_setopt(easy, CURLOPT_ACCEPT_ENCODING, "");  // what can be unpacked
  curl_easy_setopt(easy, CURLOPT_TIMEOUT_MS, static_cast<long>(limits.time.count()));
  curl_easy_setopt(easy, CURLOPT_MAXFILESIZE_LARGE, static_cast<curl_off_t>(limits.bytes));
  curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L);
  curl_easy_setopt(easy, CURLOPT_WRITEFUNCTION, Append);
  curl_easy_setopt(easy, CURLOPT_WRITEDATA, &body);
  if (!limits.trusted.empty()) curl_easy_setopt(easy, CURLOPT_CAINFO, limits.trusted.c_str());
}

bool Succeeded(CURLM* multi) {
  int left = 0;
  const CURLMsg* message = curl_multi_info_read(multi, &left);
  return message && message->msg == CURLMSG_DONE && message->data.result == CURLE_OK;
}

bool Run(CURLM* multi, const std::function<bool()>& cancelled) {
  for (int running = 1; running > 0;) {
    if (curl_multi_perform(multi, &running) != CURLM_OK) return false;
    if (running == 0) break;
    if (cancelled()) return false;
    if (curl_multi_poll(multi, nullptr, 0, kAskEvery, nullptr) != CURLM_OK) return false;
  }
  return Succeeded(multi);
}

}  // namespace

std::string FetchFromWeb(const std::string& url, const std::function<bool()>& cancelled,
                         const FetchLimits& limits) {
  static const bool ready = curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
  const std::unique_ptr<CURL, EasyCloser> easy(ready ? curl_easy_init() : nullptr);
  const std::unique_ptr<CURLM, MultiCloser> multi(ready ? curl_multi_init() : nullptr);
  if (!easy || !multi) return "";
  Body body{"", limits.bytes};
  Prepare(easy.get(), url, limits, body);
  curl_multi_add_handle(multi.get(), easy.get());
  const bool whole = Run(multi.get(), cancelled);
  curl_multi_remove_handle(multi.get(), easy.get());
  return whole ? std::move(body.text) : "";
}

}  // namespace lm::native

#endif
