// By WinINet, whose calls wait: they run on a thread of their own, which is given up by closing the
// handles under it.
#include "shell/webfetch.h"

#if defined(_WIN32)

#include <windows.h>
#include <wininet.h>

#include <array>
#include <atomic>
#include <thread>

namespace lm::native {
namespace {

constexpr int kAskEvery = 50;  // ms

class Fetch {
 public:
  Fetch(std::string url, std::size_t most)
      : url_(std::move(url)),
        most_(most),
        session_(InternetOpenA("lm wininet", INTERNET_OPEN_TYPE_DIRECT, nullptr, nullptr, 0)) {}
  ~Fetch() {
    Close();
    if (thread_.joinable()) thread_.join();
  }
  Fetch(const Fetch&) = delete;
  Fetch& operator=(const Fetch&) = delete;

  void Start() {
    thread_ = std::thread([this] {
      whole_ = Read();
      done_ = true;
    });
  }
  bool Done() const { return done_; }
  void Close() {
    if (const HINTERNET session = session_.exchange(nullptr)) InternetCloseHandle(session);
  }
  std::string Body() const { return done_ && whole_ ? body_ : ""; }

 private:
  bool Read() {
    constexpr DWORD kFlags = INTERNET_FLAG_NO_CACHE_WRITE | INTERNET_FLAG_RELOAD |
                             INTERNET_FLAG_NO_COOKIES | INTERNET_FLAG_NO_AUTH | INTERNET_FLAG_NO_UI;
    const HINTERNET page = InternetOpenUrlA(session_, url_.c_str(), nullptr, 0, kFlags, 0);
    if (!page) return false;
    std::array<char, 16384> block;
    DWORD read = 0;
    bool whole = true;
    while ((whole = InternetReadFile(page, block.data(), static_cast<DWORD>(block.size()), &read) &&
                    read <= most_ - body_.size()) &&
           read > 0)
      body_.append(block.data(), read);
    InternetCloseHandle(page);
    return whole;
  }

  const std::string url_;
  const std::size_t most_;
  std::atomic<HINTERNET> session_;
  std::string body_;
  std::atomic<bool> whole_ = false, done_ = false;
  std::thread thread_;
};

bool IsWeb(const std::string& url) {
  return url.compare(0, 7, "http://") == 0 || url.compare(0, 8, "https://") == 0;
}

}  // namespace

std::string FetchFromWeb(const std::string& url, const std::function<bool()>& cancelled,
                         const FetchLimits& limits) {
  if (!IsWeb(url)) return "";
  const auto end = std::chrono::steady_clock::now() + limits.time;
  Fetch fetch(url, limits.bytes);
  fetch.Start();
  while (!fetch.Done() && std::chrono::steady_clock::now() < end && !cancelled())
    std::this_thread::sleep_for(std::chrono::milliseconds(kAskEvery));
  return fetch.Body();
}

}  // namespace lm::native

#endif
