#include "shell/webfetch.h"

#include <gtest/gtest.h>

#if defined(__linux__) || defined(_WIN32)

#ifdef __linux__
#include <sys/wait.h>
#include <unistd.h>
#endif

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace lm {
namespace {

using namespace std::chrono_literals;

// tests/shell/webserver.py for the length of the tests. On Windows whoever starts them has started
// it, and tells its two ports.
class WebServer : public testing::Test {
 protected:
#ifdef _WIN32
  void SetUp() override {
    const char* ports = std::getenv("LEDGERMINDER_WEBSERVER");
    if (!ports || std::sscanf(ports, "%d %d", &http_, &https_) != 2)
      GTEST_SKIP() << "no server was started";
  }
#else
  static void SetUpTestSuite() {
    std::array<int, 2> in{}, out{};
    ASSERT_EQ(::pipe(in.data()) + ::pipe(out.data()), 0);
    process_ = ::fork();
    if (process_ == 0) {
      ::dup2(in[0], STDIN_FILENO);
      ::dup2(out[1], STDOUT_FILENO);
      for (const int end : {in[0], in[1], out[0], out[1]}) ::close(end);
      ::execlp("python3", "python3", SOURCE_DIR "/tests/shell/webserver.py", nullptr);
      ::_exit(127);
    }
    ::close(in[0]);
    ::close(out[1]);
    input_ = in[1];
    FILE* ports = ::fdopen(out[0], "r");
    ASSERT_EQ(std::fscanf(ports, "%d %d", &http_, &https_), 2);
    std::fclose(ports);
  }
  static void TearDownTestSuite() {
    ::close(input_);
    ::waitpid(process_, nullptr, 0);
  }
#endif

  static std::string Http(const std::string& page) {
    return "http://127.0.0.1:" + std::to_string(http_) + "/" + page;
  }
  static std::string Https(const std::string& page) {
    return "https://localhost:" + std::to_string(https_) + "/" + page;
  }
  static std::string Fetch(const std::string& url, const native::FetchLimits& limits = {}) {
    return native::FetchFromWeb(
        url, [] { return false; }, limits);
  }

 private:
#ifndef _WIN32
  static inline pid_t process_ = -1;
  static inline int input_ = -1;
#endif
  static inline int http_ = 0, https_ = 0;
};

TEST_F(WebServer, GivesBodiesAsTheyCame) {
  const std::string plain = "\xC2\xA3 and \x80\r\n";
  EXPECT_EQ(Fetch(Http("plain")), plain);
  EXPECT_EQ(Fetch(Http("moved")), plain);
  EXPECT_EQ(Fetch(Http("error")), "<html>gone</html>");
}

TEST_F(WebServer, SendsNothingOfTheUsers) {
  for (int visit = 0; visit < 2; ++visit) {
    const std::string asked = Fetch(Http("asked?uid=12"));
    EXPECT_TRUE(asked.starts_with("/asked?uid=12\n")) << asked;
    EXPECT_NE(asked.find("User-Agent: lm wininet"), std::string::npos) << asked;
    for (const std::string header : {"Cookie", "Authorization", "Referer"})
      EXPECT_EQ(asked.find(header), std::string::npos) << asked;
  }
}

TEST_F(WebServer, GivesNothingOfWhatIsNotWhole) {
  for (const std::string page : {"cut", "loop", "file"}) EXPECT_EQ(Fetch(Http(page)), "") << page;
  for (const std::string url : {"", "nonsense", "file:///etc/hostname", "ftp://127.0.0.1/x",
                                "http://127.0.0.1:1/", "http://no.such.host.invalid/"})
    EXPECT_EQ(Fetch(url), "") << url;
}

TEST_F(WebServer, StopsAtTheLimits) {
  native::FetchLimits small, brief;
  small.bytes = 1 << 20;
  brief.time = 300ms;
  std::vector<std::string> pages{"huge"};
#ifndef _WIN32
  pages.push_back("bomb");  // WinINet unpacks nothing
#endif
  for (const std::string& page : pages) EXPECT_EQ(Fetch(Http(page), small), "") << page;
  for (const std::string page : {"slow", "silent"}) {
    const auto begun = std::chrono::steady_clock::now();
    EXPECT_EQ(Fetch(Http(page), brief), "") << page;
    EXPECT_LT(std::chrono::steady_clock::now() - begun, 20s) << page;
  }
}

TEST_F(WebServer, IsLeftWhenTheUserCancels) {
  for (const std::string page : {"slow", "silent"}) {
    int asked = 0;
    EXPECT_EQ(native::FetchFromWeb(Http(page), [&] { return ++asked == 3; }), "") << page;
    EXPECT_EQ(asked, 3) << page;
  }
}

TEST_F(WebServer, TrustsOnlyCertificatesThatHold) {
  EXPECT_EQ(Fetch(Https("plain")), "");
#ifndef _WIN32  // there the machine alone says whom it trusts
  native::FetchLimits trusting;
  trusting.trusted = SOURCE_DIR "/tests/shell/webserver.pem";
  EXPECT_NE(Fetch(Https("plain"), trusting), "");
  std::string otherName = Https("plain");
  otherName.replace(otherName.find("localhost"), 9, "127.0.0.1");
  EXPECT_EQ(Fetch(otherName, trusting), "");
#endif
}

}  // namespace
}  // namespace lm

#endif
