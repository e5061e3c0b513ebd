// Protected documents, opened by another program.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "core/files.h"
#include "pdf/clsPDFCreator.h"
#include "tests/support/scripted_platform.h"
#include "tests/support/tools.h"

namespace lm {
namespace {

namespace fs = std::filesystem;

bool Succeeds(const std::string& command) {
  return test::RunTool(command + " > /dev/null 2>&1") == 0;
}

std::string Bytes(const fs::path& path) {
  std::string error;
  return ReadFile(path, error).value_or("");
}

bool Has(std::string_view text, std::string_view part) { return text.find(part) != text.npos; }

TEST(Encryption, PadsAndCutsKeysAsTheFormatSays) {
  const std::string id(16, 'i');
  const pdf::Encryption off;
  EXPECT_FALSE(off.IsOn());
  EXPECT_EQ(off.Encipher("plain", 7), "plain");

  struct Case {
    int flags, keyLength;
    std::int32_t permissions;
  };
  for (const Case& each : {
           Case{0, 5, -64},
           Case{pdf::kMayPrint | pdf::kMayCopy | pdf::kMayAssemble, 5, -44},
           Case{-1 & ~pdf::kKey128, 5, -4},
           Case{pdf::kKey128, 16, -3904},
           Case{pdf::kKey128 | pdf::kMayPrint | pdf::kMayPrintWell, 16, -1852},
           Case{-1, 16, -4},
       }) {
    const pdf::Encryption encryption(each.flags, "user", "owner", id);
    EXPECT_EQ(encryption.KeyLength(), each.keyLength) << each.flags;
    EXPECT_EQ(encryption.Permissions(), each.permissions) << each.flags;
    EXPECT_EQ(encryption.OwnerEntry().size(), 32u);
    EXPECT_EQ(encryption.UserEntry().size(), 32u);
    // The cipher undoes itself, whichever object used it in between.
    const std::string enciphered = encryption.Encipher("text", 1);
    EXPECT_NE(encryption.Encipher("text", 2), enciphered);
    EXPECT_EQ(encryption.Encipher(enciphered, 1), "text");
  }
  // No owner password: the user's. Only 32 bytes of a password count.
  EXPECT_EQ(pdf::Encryption(0, "user", "", id).OwnerEntry(),
            pdf::Encryption(0, "user", "user", id).OwnerEntry());
  EXPECT_EQ(pdf::Encryption(0, std::string(40, 'x'), "o", id).UserEntry(),
            pdf::Encryption(0, std::string(32, 'x'), "o", id).UserEntry());
}

TEST(Encryption, OpensWithItsPasswords) {
  struct Case {
    int flags;
    const char *user, *owner;
  };
  for (const Case& each : {
           Case{pdf::kMayPrint, "user", "owner"},
           Case{pdf::kMayPrint, "", "owner"},
           Case{pdf::kMayPrint, "both", ""},
           Case{pdf::kKey128 | pdf::kMayPrint, "user", "owner"},
           Case{pdf::kKey128 | pdf::kMayPrint, "", "owner"},
           Case{pdf::kKey128 | pdf::kMayPrint, "", ""},
           Case{pdf::kKey128, "a password of more than thirty-two bytes", "o"},
       }) {
    SCOPED_TRACE(std::to_string(each.flags) + " " + each.user + " " + each.owner);
    test::TempDirectory directory;
    test::ScriptedPlatform platform;
    const fs::path path = directory.Path() / "locked.pdf";
    const fs::path clear = directory.Path() / "clear.pdf";
    clsPDFCreator writer(platform);
    writer.SetProtection(each.flags, each.user, each.owner);
    writer.SetDocProperty("Secret (title)", "\\", "Nobody");
    writer.SetCompression(4, 0, 0);
    writer.BeginDoc(PathText(path));
    writer.BeginPage();
    writer.DrawLine(11, 22, 33, 44);
    writer.EndDoc();
    ASSERT_EQ(writer.ErrDescription(), "");

    const std::string bytes = Bytes(path);
    EXPECT_EQ(bytes.substr(0, 8), each.flags & pdf::kKey128 ? "%PDF-1.4" : "%PDF-1.3");
    EXPECT_FALSE(Has(bytes, "/Title (Secret"));
    EXPECT_TRUE(Has(bytes, "/Encrypt "));
    EXPECT_TRUE(Has(bytes, ">Secret (title)</rdf:li>"));  // metadata stays readable

    const std::string owner = *each.owner ? each.owner : each.user;
    for (const std::string& password : {std::string(each.user), owner}) {
      const std::string open = "qpdf --password='" + password + "' ";
      EXPECT_TRUE(Succeeds(open + "--check " + path.string())) << password;
      ASSERT_TRUE(Succeeds(open + "--decrypt --qdf " + path.string() + " " + clear.string()));
      const std::string plain = Bytes(clear);
      EXPECT_TRUE(Has(plain, "/Title (Secret \\(title\\))"));
      EXPECT_TRUE(Has(plain, "11 22 m 33 44 l"));
    }
    EXPECT_FALSE(Succeeds("qpdf --password=wrong --check " + path.string()));
  }
}

TEST(Encryption, ComesBeforeTheFirstObject) {
  test::TempDirectory directory;
  const fs::path path = directory.Path() / "late.pdf";
  clsPDFCreator writer(test::StandingClock());
  writer.BeginDoc(PathText(path));
  writer.SetProtection(0, "in", "time");
  EXPECT_EQ(writer.ErrNumber(), 0);
  writer.BeginPage();
  writer.EndPage();
  writer.SetProtection(0, "too", "late");
  EXPECT_EQ(writer.ErrSource(), "PageWriter.SetProtection");
  writer.EndDoc();
  EXPECT_TRUE(Succeeds("qpdf --password=in --check " + path.string()));
}

}  // namespace
}  // namespace lm
