// By WinINet, whose calls wait: they run on a thread of their own.
#include "shell/webfetch.h"

#if defined(_WIN32)

#include "core/windowsheader.h"
// behind that one
#include <wininet.h>

#include <array>
#include <atomic>
#include <memory>
#include <thread>

namespace lm::native {
namespace {

constexpr int kAskEvery = 50;  // ms
constexpr int kMostRedirects = 10;

bool IsWeb(const std::string& url) {
  return url.compare(0, 7, "http://") == 0 || url.compare(0, 8, "https://") == 0;
}

// What the thread works on. Closing handles does not wake every call of WinINet, so nobody waits
// for the thread: it owns this too, and ends when it finds that it was given up.
class Fetch {
 public:
  Fetch(std::string url, const FetchLimits& limits)
      : url_(std::move(url)),
        most_(limits.bytes),
        session_(InternetOpenA("lm wininet", INTERNET_OPEN_TYPE_DIRECT, nullptr, nullptr, 0)) {
    DWORD patience = static_cast<DWORD>(limits.time.count());
    for (const DWORD each : {INTERNET_OPTION_CONNECT_TIMEOUT, INTERNET_OPTION_SEND_TIMEOUT,
                             INTERNET_OPTION_RECEIVE_TIMEOUT})
      InternetSetOptionA(session_, each, &patience, sizeof patience);
  }
  ~Fetch() { GiveUp(); }
  Fetch(const Fetch&) = delete;
  Fetch& operator=(const Fetch&) = delete;

  void Run() {
    whole_ = Read();
    done_ = true;
  }
  void GiveUp() {
    givenUp_ = true;
    if (const HINTERNET session = session_.exchange(nullptr)) InternetCloseHandle(session);
  }
  bool Done() const { return done_; }
  std::string Body() const { return done_ && whole_ ? body_ : ""; }

 private:
  bool Read() {
    std::string url = url_;
    for (int hop = 0; hop <= kMostRedirects && IsWeb(url) && !givenUp_; ++hop) {
      const HINTERNET page = Open(url);
      if (!page) return false;
      const std::string next = RedirectOf(page, url);
      const bool whole = next.empty() && ReadBody(page);
      InternetCloseHandle(page);
      if (next.empty()) return whole;
      url = next;
    }
    return false;
  }

  HINTERNET Open(const std::string& url) const {
    constexpr DWORD kFlags = INTERNET_FLAG_NO_CACHE_WRITE | INTERNET_FLAG_RELOAD |
                             INTERNET_FLAG_NO_COOKIES | INTERNET_FLAG_NO_AUTH |
                             INTERNET_FLAG_NO_UI | INTERNET_FLAG_NO_AUTO_REDIRECT;
    return InternetOpenUrlA(session_, url.c_str(), nullptr, 0, kFlags, 0);
  }

  bool ReadBody(HINTERNET page) {
    std::array<char, 16384> block;
    DWORD read = 0;
    do {
      if (givenUp_ ||
          !InternetReadFile(page, block.data(), static_cast<DWORD>(block.size()), &read) ||
          read > most_ - body_.size())
        return false;
      body_.append(block.data(), read);
    } while (read > 0);
    // A connection that was cut ends the body too.
    return body_.size() >= NumberOf(page, HTTP_QUERY_CONTENT_LENGTH);
  }

  // 0 where the server did not tell it.
  static DWORD NumberOf(HINTERNET page, DWORD header) {
    DWORD number = 0, size = sizeof number;
    return HttpQueryInfoA(page, header | HTTP_QUERY_FLAG_NUMBER, &number, &size, nullptr) ? number
                                                                                          : 0;
  }

  // "" for an answer that is none.
  static std::string RedirectOf(HINTERNET page, const std::string& url) {
    const DWORD status = NumberOf(page, HTTP_QUERY_STATUS_CODE);
    std::array<char, 4096> target, absolute;
    DWORD size = static_cast<DWORD>(target.size()), length = static_cast<DWORD>(absolute.size());
    if (status < 300 || status > 399 || status == HTTP_STATUS_NOT_MODIFIED ||
        !HttpQueryInfoA(page, HTTP_QUERY_LOCATION, target.data(), &size, nullptr) ||
        !InternetCombineUrlA(url.c_str(), target.data(), absolute.data(), &length, 0))
      return "";
    return {absolute.data(), length};
  }

  const std::string url_;
  const std::size_t most_;
  std::atomic<HINTERNET> session_;
  std::string body_;
  std::atomic<bool> whole_ = false, done_ = false, givenUp_ = false;
};

}  // namespace

std::string FetchFromWeb(const std::string& url, const std::function<bool()>& cancelled,
                         const FetchLimits& limits) {
  if (!IsWeb(url)) return "";
  const auto end = std::chrono::steady_clock::now() + limits.time;
  const auto fetch = std::make_shared<Fetch>(url, limits);
  std::thread([fetch] { fetch->Run(); }).detach();
  while (!fetch->Done() && std::chrono::steady_clock::now() < end && !cancelled())
    std::this_thread::sleep_for(std::chrono::milliseconds(kAskEvery));
  if (!fetch->Done()) fetch->GiveUp();
  return fetch->Body();
}

}  // namespace lm::native

#endif
