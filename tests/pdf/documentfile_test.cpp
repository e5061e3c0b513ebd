// The file of a document takes its place when it is complete; until then a file of that name is
// safe.
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <iterator>

#include "core/files.h"
#include "pdf/clsPDFCreator.h"
#include "tests/support/scripted_platform.h"

#ifndef _WIN32
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#endif

namespace lm {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kOld = "a good file";

class DocumentFileTest : public testing::Test {
 protected:
  void SetUp() override {
    std::string error;
    ASSERT_TRUE(ReplaceFile(path_, kOld, error)) << error;
  }

  std::string Bytes() {
    std::string error;
    return ReadFile(path_, error).value_or(error);
  }

  // Names of the files, parted by blanks.
  std::string Files() {
    std::string names;
    for (const auto& entry : fs::directory_iterator(directory_.Path()))
      names += entry.path().filename().string() + " ";
    return names;
  }

  void Begin() { writer_.BeginDoc(PathText(path_)); }

  void DrawPages(int count) {
    for (int page = 0; page < count; ++page) {
      writer_.BeginPage();
      for (int i = 0; i < 2000; ++i) writer_.DrawLine(i, i, i + 1, i);
      writer_.EndPage();
    }
  }

  test::TempDirectory directory_;
  test::ScriptedPlatform platform_;
  fs::path path_ = directory_.Path() / "out.pdf";
  clsPDFCreator writer_{platform_};
};

TEST_F(DocumentFileTest, ReplacesTheOldFileAtTheEnd) {
  Begin();
  const auto before = writer_.FileSize();
  EXPECT_GT(before, 0);
  DrawPages(20);
  EXPECT_GT(writer_.FileSize(), before);
  EXPECT_EQ(Bytes(), kOld);
  writer_.EndDoc();
  EXPECT_EQ(writer_.ErrDescription(), "");
  EXPECT_EQ(writer_.FileSize(), std::ssize(Bytes()));
  EXPECT_TRUE(Bytes().starts_with("%PDF-1.3"));
  EXPECT_EQ(Files(), "out.pdf ");
}

TEST_F(DocumentFileTest, LeavesTheOldFileWhenGivenUp) {
  const auto abort = [&] { writer_.Abort(); };
  const auto destroy = [&] {
    clsPDFCreator another(platform_);
    another.BeginDoc(PathText(path_));
    another.BeginPage();
    writer_.Abort();
  };
  const auto beginWhereNoneCan = [&] {
    writer_.BeginDoc(PathText(directory_.Path() / "no" / "x"));
  };
  const std::function<void()> ways[] = {abort, destroy, beginWhereNoneCan};
  for (const auto& giveUp : ways) {
    Begin();
    DrawPages(20);
    giveUp();
    EXPECT_EQ(writer_.FileSize(), 0);
    EXPECT_EQ(Bytes(), kOld);
    EXPECT_EQ(Files(), "out.pdf ");
  }

  // One document after another in the same file: the first one is given up.
  Begin();
  writer_.BeginPage();
  Begin();
  EXPECT_EQ(Bytes(), kOld);
  EXPECT_TRUE(writer_.EndDoc());
  EXPECT_EQ(writer_.FileSize(), std::ssize(Bytes()));
  EXPECT_EQ(Files(), "out.pdf ");
}

TEST_F(DocumentFileTest, SaysAtOnceWhereNoFileCanBe) {
  std::vector<fs::path> nowhere{directory_.Path(), directory_.Path() / "none" / "x.pdf",
                                path_ / "below a file.pdf"};
#ifndef _WIN32
  nowhere.emplace_back("/dev/null");
#endif
  for (const fs::path& path : nowhere) {
    writer_.Abort();
    EXPECT_EQ(writer_.BeginDoc(PathText(path)), "");
    EXPECT_EQ(writer_.ErrNumber(), 75);
    EXPECT_TRUE(
        writer_.ErrDescription().starts_with(PathText(path) + " - The file cannot be written: "));
    writer_.BeginPage();
    EXPECT_EQ(writer_.ErrDescription(), "No document is open");
  }
  EXPECT_EQ(Files(), "out.pdf ");
}

#ifndef _WIN32

// No file of the process grows beyond this.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{bytes, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }

 private:
  rlimit before_{};
  void (*handler_)(int) = std::signal(SIGXFSZ, SIG_IGN);
};

TEST_F(DocumentFileTest, LeavesTheOldFileOnAFullDisk) {
  for (const int pages : {1, 20}) {  // at the end, and in the middle of a long document
    Begin();
    {
      const FullDisk disk(10'000);
      DrawPages(pages);
      EXPECT_EQ(writer_.ErrNumber(), pages == 1 ? 0 : 75);
      EXPECT_FALSE(writer_.EndDoc());
    }
    EXPECT_EQ(writer_.ErrNumber(), 75);
    EXPECT_EQ(writer_.ErrSource(), "PageWriter.EndDoc");
    EXPECT_EQ(writer_.ErrDescription(), "The file cannot be written: File too large");
    EXPECT_EQ(writer_.FileSize(), 0);
    EXPECT_EQ(Bytes(), kOld);
    EXPECT_EQ(Files(), "out.pdf ");
    writer_.OpenDoc([](std::string_view) { ADD_FAILURE() << "there is no document to open"; });
    EXPECT_EQ(writer_.ErrDescription(), "No finished document");
    writer_.Abort();
  }
}

// The administrator may write everywhere.
class OrdinaryUser {
 public:
  OrdinaryUser() {
    if (administrator_) (void)!seteuid(65534);
  }
  ~OrdinaryUser() {
    if (administrator_) (void)!seteuid(0);
  }

 private:
  const bool administrator_ = geteuid() == 0;
};

TEST_F(DocumentFileTest, RespectsWhatIsReadOnly) {
  fs::permissions(directory_.Path(), fs::perms::all);
  fs::permissions(path_, fs::perms{0444});
  {
    const OrdinaryUser user;
    Begin();
    EXPECT_EQ(writer_.ErrNumber(), 75);
    EXPECT_NE(writer_.BeginDoc(PathText(directory_.Path() / "other.pdf")), "");
    writer_.Abort();
  }
  fs::permissions(path_, fs::perms{0666});
  fs::permissions(directory_.Path(), fs::perms{0555});
  {
    const OrdinaryUser user;
    Begin();
    EXPECT_EQ(writer_.ErrNumber(), 75);
  }
  fs::permissions(directory_.Path(), fs::perms::all);
  EXPECT_EQ(Bytes(), kOld);
  EXPECT_EQ(Files(), "out.pdf ");
}

#endif

}  // namespace
}  // namespace lm
