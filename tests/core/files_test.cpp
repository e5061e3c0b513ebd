#include "core/files.h"

#include <gtest/gtest.h>

#include <fstream>

#include "core/temporaryfiles.h"
#include "core/text.h"
#include "tests/support/processes.h"
#include "tests/support/scripted_platform.h"

#ifndef _WIN32
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#endif

#ifdef __linux__
#include <sys/syscall.h>

// Stands in for the system's: what had its name at the time of each flush.
namespace {
std::filesystem::path watched;
std::vector<bool> watchedAtFlush;
}  // namespace

extern "C" int fsync(int file) {
  if (!watched.empty()) watchedAtFlush.push_back(std::filesystem::exists(watched));
  return static_cast<int>(::syscall(SYS_fsync, file));
}
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

TEST(Files, ALinkToADriveThatHasGoneIsAFailedSave) {
  const test::TempDirectory folder;
  const fs::path link = folder.Path() / "link.dat";
  fs::create_symlink(folder.Path() / "away" / "file.dat", link);
  fs::create_symlink(folder.Path() / "empty mount.dat", folder.Path() / "other");
  for (const fs::path& path : {link, folder.Path() / "other"}) {
    std::string error;
    EXPECT_FALSE(ReplaceFile(path, "new", error));
    EXPECT_NE(error.find("which cannot be reached"), error.npos) << error;
    EXPECT_TRUE(fs::is_symlink(path));
  }
  EXPECT_EQ(FilesIn(folder.Path()), 2);
}

// A pipe that nobody writes to must not be opened: the program would wait for ever.
TEST(Files, WhatIsNoFileIsToldInPlainWords) {
  const test::TempDirectory folder;
  const fs::path pipe = folder.Path() / "pipe";
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  const std::pair<fs::path, const char*> cases[] = {
      {folder.Path(), "This is a folder, not a file."},
      {pipe, "This is a pipe or a device, not a file."},
      {"/dev/null", "This is a pipe or a device, not a file."}};
  for (const auto& [path, words] : cases) {
    std::string error;
    EXPECT_FALSE(ReadFile(path, error));
    EXPECT_EQ(error, words);
    EXPECT_FALSE(ReadStamp(path, error));
    error.clear();
    EXPECT_FALSE(ReplaceFile(path, "new", error));
    EXPECT_EQ(error, words);
    EXPECT_FALSE(IsOpenElsewhere(path));
  }
}

TEST(Files, ReadOnlyIsToldAndIsNotHeldByAnother) {
  const test::TempDirectory folder;
  const fs::path file = folder.Path() / "file.pdf";
  std::string error;
  ASSERT_TRUE(ReplaceFile(file, "old", error));
  {
    const test::HeldFile held(file);
    EXPECT_TRUE(IsOpenElsewhere(file));
  }
  EXPECT_FALSE(IsOpenElsewhere(file));
  ASSERT_EQ(::chmod(file.c_str(), 0444), 0);
  ASSERT_EQ(::chmod(folder.Path().c_str(), 0555), 0);
  EXPECT_TRUE(test::WithoutRights([&] {
    std::string reason;
    return !IsOpenElsewhere(file) && !ReplaceFile(file, "new", reason) && !reason.empty() &&
           !MakeFile(folder.Path() / "new", "new", reason) && !IsWritableFolder(folder.Path());
  }));
  EXPECT_EQ(Content(file), "old");
  EXPECT_EQ(FilesIn(folder.Path()), 1);
  ASSERT_EQ(::chmod(folder.Path().c_str(), 0755), 0);
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
  EXPECT_GT(FilesIn(folder.Path()), 1) << "no kill came in time";
  RemoveLeftTemporaryFiles(folder.Path());
  EXPECT_EQ(FilesIn(folder.Path()), 1);
}

TEST(Files, TemporaryFilesOfOthersStay) {
  const test::TempDirectory folder;
  const std::string own = TemporaryName(7);
  const std::string machine = own.substr(0, own.find('-') + 1);
  const auto old = fs::file_time_type::clock::now() - std::chrono::hours(25);
  const struct {
    std::string name;
    bool isOld, stays;
  } cases[] = {
      {own, false, true},  // its process runs: this one
      {TemporaryName(8), true, false},
      {machine + "00000000-1-0.tmp", false, true},  // of another machine
      {machine + "00000000-1-1.tmp", true, false},
      {"~ledgerminder-x-y.tmp", true, true},
      {own + "x", true, true},
      {"~" + own, true, true},
      {"~123-0.tmp", true, true},
      {"~ledgerminder-00000000-1-.tmp", true, true},
      {"~ledgerminder-00000000-99999999999-0.tmp", true, true},
  };
  for (const auto& each : cases) {
    std::ofstream(folder.Path() / each.name) << "x";
    if (each.isOld) fs::last_write_time(folder.Path() / each.name, old);
  }
  RemoveLeftTemporaryFiles(folder.Path());
  for (const auto& each : cases)
    EXPECT_EQ(fs::exists(folder.Path() / each.name), each.stays) << each.name;
  RemoveLeftTemporaryFiles(folder.Path() / "none");
}

#endif

std::string Held(const std::vector<FileBatch::Failure>& failures) {
  std::string names;
  for (const FileBatch::Failure& failure : failures)
    names += failure.file.filename().string() + (failure.error.empty() ? "?" : "") + ";";
  return names;
}

struct Documents {
  const test::TempDirectory folder;
  FileBatch batch;

  void Put(const std::string& name, std::string_view bytes) {
    FileReplacement file;
    std::string error;
    ASSERT_TRUE(file.Open(folder.Path() / name, error) && file.Write(bytes, error) &&
                file.CommitLater(error, batch))
        << error;
  }
};

TEST(FileBatch, NamesAppearTogetherAtTheEnd) {
  Documents documents;
  const fs::path& folder = documents.folder.Path();
  std::string error;
  ASSERT_TRUE(ReplaceFile(folder / "b.pdf", "old", error));
  documents.Put("a.pdf", "first a");
  documents.Put("b.pdf", "new");
  documents.Put("a.pdf", "second a");
  EXPECT_FALSE(fs::exists(folder / "a.pdf"));
  EXPECT_EQ(Content(folder / "b.pdf"), "old");
  EXPECT_EQ(Held(documents.batch.Finish()), "");
  EXPECT_EQ(Content(folder / "a.pdf"), "second a");
  EXPECT_EQ(Content(folder / "b.pdf"), "new");
  EXPECT_EQ(FilesIn(folder), 2);
  EXPECT_EQ(Held(documents.batch.Finish()), "");
}

#ifdef __linux__

// After a power cut a name that came before its bytes stands for an empty file.
TEST(FileBatch, FlushedBeforeANameAppears) {
  Documents documents;
  watched = documents.folder.Path() / "a.pdf";
  documents.Put("a.pdf", "a");
  documents.Put("b.pdf", "b");
  EXPECT_TRUE(watchedAtFlush.empty()) << "the batch waits for the disk at its end";
  documents.batch.Finish();
  EXPECT_EQ(watchedAtFlush, (std::vector{false, false, true})) << "two files, then their folder";

  watched = documents.folder.Path() / "c.dat";
  watchedAtFlush.clear();
  std::string error;
  ASSERT_TRUE(ReplaceFile(watched, "c", error));
  EXPECT_EQ(watchedAtFlush, (std::vector{false, true}));
  watched.clear();
}

#endif

TEST(FileBatch, WhatFailsIsToldAndTheOthersTakeTheirPlaces) {
  Documents documents;
  const fs::path& folder = documents.folder.Path();
  documents.Put("a.pdf", "a");
  documents.Put("b.pdf", "b");
  documents.Put("c.pdf", "c");
  for (const auto& entry : fs::directory_iterator(folder))
    if (fs::file_size(entry) == 1 && Content(entry.path()) == "c") fs::remove(entry.path());
  fs::create_directories(folder / "b.pdf" / "in the way");
  EXPECT_EQ(Held(documents.batch.Finish()), "c.pdf;b.pdf;");
  EXPECT_EQ(Content(folder / "a.pdf"), "a");
  EXPECT_EQ(FilesIn(folder), 2);
}

TEST(FileBatch, GivenUpItLeavesNothing) {
  const test::TempDirectory folder;
  {
    FileBatch batch;
    FileReplacement file;
    std::string error;
    ASSERT_TRUE(file.Open(folder.Path() / "a.pdf", error) && file.CommitLater(error, batch));
    EXPECT_EQ(FilesIn(folder.Path()), 1);
  }
  EXPECT_EQ(FilesIn(folder.Path()), 0);
}

}  // namespace
}  // namespace lm
