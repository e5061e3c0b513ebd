#include "shell/native.h"

#include <gtest/gtest.h>

#ifdef __linux__
#include <unistd.h>
#endif

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "tests/support/processes.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

#ifdef __linux__

// Another user may not look at this program's executable, only at the command that started it.
TEST(Native, TellsTheProgramsOfOtherUsers) {
  const auto own = std::filesystem::read_symlink("/proc/self/exe").filename().string();
  const auto tellsOwn = [&] {
    const auto names = native::RunningProcesses();
    return std::ranges::count(names, own) >= 1 && std::ranges::count(names, "") == 0;
  };
  EXPECT_TRUE(tellsOwn());
  const auto executable = std::filesystem::path("/proc") / std::to_string(::getpid()) / "exe";
  EXPECT_TRUE(test::WithoutRights([&] {
    std::error_code unreadable;
    (void)std::filesystem::read_symlink(executable, unreadable);
    // The count goes beyond the process that asks, which is of this name too.
    const auto names = native::RunningProcesses();
    return (unreadable || ::geteuid() != 65534) && std::ranges::count(names, own) >= 2;
  }));
}

// An environment variable for a scope.
class Variable {
 public:
  Variable(const char* name, const std::string& value) : name_(name) {
    if (const char* old = std::getenv(name)) old_ = old;
    ::setenv(name, value.c_str(), 1);
  }
  ~Variable() { old_ ? ::setenv(name_, old_->c_str(), 1) : ::unsetenv(name_); }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;

 private:
  const char* name_;
  std::optional<std::string> old_;
};

TEST(Native, FindsTheDocumentsOfTheDesktop) {
  const test::TempDirectory home;
  const Variable homeIsThere("HOME", home.Path().string()), settings("XDG_CONFIG_HOME", "");
  EXPECT_EQ(native::DocumentsDirectory(), home.Path());
  std::filesystem::create_directories(home.Path() / "Documents");
  std::filesystem::create_directories(home.Path() / "Papers");
  std::filesystem::create_directories(home.Path() / ".config");
  EXPECT_EQ(native::DocumentsDirectory(), home.Path() / "Documents");
  const struct {
    std::string line, folder;
  } kCases[] = {{"#XDG_DOCUMENTS_DIR=\"$HOME/Papers\"", "Documents"},
                {"XDG_DOCUMENTS_DIR=\"$HOME/Papers\"", "Papers"},
                {"XDG_DOCUMENTS_DIR=\"" + (home.Path() / "Papers").string() + "\"", "Papers"},
                {"XDG_DOCUMENTS_DIR=\"$HOME/Gone\"", ""},
                {"XDG_DOCUMENTS_DIR=\"", ""}};
  for (const auto& each : kCases) {
    std::ofstream(home.Path() / ".config" / "user-dirs.dirs") << each.line << '\n';
    EXPECT_EQ(native::DocumentsDirectory(),
              each.folder.empty() ? home.Path() : home.Path() / each.folder)
        << each.line;
  }
}

#endif

}  // namespace
}  // namespace lm
