#include "documents/shippedtemplates.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "core/files.h"
#include "core/options.h"
#include "core/startup.h"
#include "documents/template.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

namespace fs = std::filesystem;

std::string BytesOf(const fs::path& file) {
  std::string error;
  return ReadFile(file, error).value_or("unreadable: " + error);
}

TEST(ShippedTemplates, TheFirstChoiceOfANewUserIsAmongThem) {
  test::TestLedger test;
  SetFirstInstallOptions(test);
  const std::string chosen = GetOption(test, optInvoiceTemplate);
  EXPECT_EQ(chosen, "Light Blue.tmpl");
  EXPECT_TRUE(std::ranges::any_of(ShippedTemplates(),
                                  [&](const ShippedFile& file) { return file.name == chosen; }));
}

TEST(ShippedTemplates, AreTheSourcesEnciphered) {
  const fs::path sources = fs::path(SOURCE_DIR) / "data/templates";
  std::size_t count = 0;
  for (const auto& source : fs::directory_iterator(sources)) {
    fs::path name = source.path().filename();
    const bool isTemplate = name.extension() == ".xml";
    if (!isTemplate && name.extension() != ".png") continue;
    ++count;
    const std::string bytes = BytesOf(source.path());
    if (isTemplate) name.replace_extension(".tmpl");
    const auto shipped = std::ranges::find_if(
        ShippedTemplates(), [&](const ShippedFile& file) { return file.name == name.string(); });
    ASSERT_NE(shipped, ShippedTemplates().end()) << name;
    EXPECT_EQ(shipped->bytes, isTemplate ? EncipherTemplate(bytes) : bytes) << name;
  }
  EXPECT_EQ(ShippedTemplates().size(), count);
}

TEST(ShippedTemplates, ArePlacedWhereTheyAreMissing) {
  test::TestLedger test;
  const fs::path folder = test.ledger.File("Invoice Templates");
  fs::remove_all(folder);  // older directories may lack it
  ASSERT_TRUE(PlaceShippedTemplates(test));
  for (const ShippedFile& file : ShippedTemplates())
    EXPECT_EQ(BytesOf(test.ledger.File(file.folder) / file.name), file.bytes) << file.name;

  std::string error;
  const fs::path changed = folder / "Light Blue.tmpl";
  ASSERT_TRUE(ReplaceFile(changed, "the user's own", error));
  ASSERT_TRUE(PlaceShippedTemplates(test));
  EXPECT_EQ(BytesOf(changed), "the user's own");
  fs::remove(changed);
  ASSERT_TRUE(PlaceShippedTemplates(test));
  EXPECT_TRUE(LoadTemplate(test, changed));
  EXPECT_TRUE(test.shown.messages.empty());
}

TEST(ShippedTemplates, AFailureIsToldOnce) {
  test::TestLedger test;
  std::string error;
  fs::remove_all(test.ledger.File("Invoice Templates"));
  ASSERT_TRUE(ReplaceFile(test.ledger.File("Invoice Templates"), "a file", error));
  EXPECT_FALSE(PlaceShippedTemplates(test));
  EXPECT_EQ(test.shown.messages.size(), 1u);
  EXPECT_EQ(test.shown.TakeMessage(),
            "Unable to write the invoice templates that come with LedgerMinder");
}

}  // namespace
}  // namespace lm
