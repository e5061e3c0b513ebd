#include "shell/native.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <algorithm>
#include <filesystem>

#include "tests/support/processes.h"

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

#endif

}  // namespace
}  // namespace lm
