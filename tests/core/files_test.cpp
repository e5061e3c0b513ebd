#include "core/files.h"

#include <gtest/gtest.h>

#include <fstream>

#include "core/text.h"
#include "tests/support/scripted_platform.h"

#ifndef _WIN32
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#endif

namespace lm {
namespace {

namespace fs = std::filesystem;
using namespace std::string_view_literals;

std::string Content(const fs::path& path) {
  std::string error;
  return ReadFile(path, error).value_or("(unreadable: " + error + ")");
}

int FilesIn(const fs::path& folder) {
  return static_cast<int>(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

TEST(Files, ReplacesAndReadsAllBytes) {
  const test::TempDirectory folder;
  const fs::path path = folder.Path() / "file.dat";
  std::string error;
  for (const std::string& bytes :
       {std::string("\0\r\n\x1a\xff", 5), std::string(), std::string(3'000'000, 'x')}) {
    ASSERT_TRUE(ReplaceFile(path, bytes, error)) << error;
    EXPECT_EQ(Content(path), bytes);
  }
  EXPECT_EQ(FilesIn(folder.Path()), 1);
}

TEST(Files, TellsWhyNotAndLeavesWhatIsThere) {
  const test::TempDirectory folder;
  const fs::path file = folder.Path() / "file.dat";
  std::string error;
  ASSERT_TRUE(ReplaceFile(file, "old", error));
  fs::create_directory(folder.Path() / "sub");
  std::ofstream(folder.Path() / "sub" / "kept") << "kept";
  for (const fs::path& path :
       {file / "below a file", folder.Path() / "no such folder" / "file", folder.Path() / "sub"}) {
    error.clear();
    EXPECT_FALSE(ReplaceFile(path, "new", error)) << path;
    EXPECT_FALSE(error.empty());
    error.clear();
    EXPECT_FALSE(ReadFile(path, error)) << path;
    EXPECT_FALSE(error.empty());
  }
  EXPECT_EQ(FilesIn(folder.Path()), 2);
  EXPECT_EQ(Content(folder.Path() / "sub" / "kept"), "kept");
  EXPECT_FALSE(MakeFolder(file / "below a file", error));
  EXPECT_FALSE(MakeFolder(file, error));
  EXPECT_TRUE(MakeFolder(folder.Path() / "a" / "b", error));
  EXPECT_TRUE(IsWritableFolder(folder.Path() / "a" / "b"));
  EXPECT_EQ(FilesIn(folder.Path() / "a" / "b"), 0);
  EXPECT_FALSE(IsWritableFolder(file));
  EXPECT_FALSE(IsWritableFolder(folder.Path() / "none"));
}

TEST(Files, PathsAreTextsOfTheProgram) {
  for (const std::string_view text : {"Invoices/plain.pdf"sv, "Caf\xE9 \x80/\x93x\x94.dat"sv})
    EXPECT_EQ(PathText(PathFromText(text)), text);
  EXPECT_TRUE(PathFromText("\xE9").u8string() == u8"\u00e9");
}

#ifndef _WIN32

TEST(Files, KeepsALinkAndThePermissions) {
  const test::TempDirectory folder;
  const fs::path real = folder.Path() / "real.dat";
  const fs::path link = folder.Path() / "link.dat";
  std::string error;
  ASSERT_TRUE(ReplaceFile(real, "old", error));
  ASSERT_EQ(::chmod(real.c_str(), 0640), 0);
  fs::create_symlink(real, link);
  ASSERT_TRUE(ReplaceFile(link, "new", error)) << error;
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(Content(real), "new");
  EXPECT_EQ(fs::status(real).permissions(), fs::perms{0640});
}

// A limit on the size of a file stands in for the full disk.
TEST(Files, AFullDiskLeavesTheOldFileWhole) {
  const test::TempDirectory folder;
  const fs::path path = folder.Path() / "file.dat";
  std::string error;
  ASSERT_TRUE(ReplaceFile(path, "old", error));
  const pid_t child = ::fork();
  if (child == 0) {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{100'000, 100'000};
    ::setrlimit(RLIMIT_FSIZE, &limit);
    std::string reason;
    const bool replaced = ReplaceFile(path, std::string(1'000'000, 'n'), reason);
    ::_exit(!replaced && !reason.empty() ? 0 : 1);
  }
  int status = -1;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(Content(path), "old");
  EXPECT_EQ(FilesIn(folder.Path()), 1);
}

TEST(Files, KilledAtAnyMomentTheFileIsTheOldOneOrTheNew) {
  const test::TempDirectory folder;
  const fs::path path = folder.Path() / "file.dat";
  const std::string contents[] = {std::string(400'000, 'a'), std::string(300'000, 'b')};
  std::string error;
  ASSERT_TRUE(ReplaceFile(path, contents[0], error));
  for (unsigned round = 0; round < 40; ++round) {
    const pid_t child = ::fork();
    if (child == 0) {
      std::string ignored;
      for (unsigned i = 0;; ++i) (void)ReplaceFile(path, contents[i % 2], ignored);
    }
    ::usleep(200 + round * 313 % 5000);
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    const std::string found = Content(path);
    ASSERT_TRUE(found == contents[0] || found == contents[1])
        << found.size() << " bytes in round " << round;
  }
}

#endif

}  // namespace
}  // namespace lm
