#include "pension/shippedforms.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "core/files.h"
#include "pension/formcoordinates.h"
#include "tests/support/scripted_platform.h"

namespace lm {
namespace {

namespace fs = std::filesystem;

std::string BytesOf(const fs::path& file) {
  std::string error;
  return ReadFile(file, error).value_or("unreadable: " + error);
}

TEST(ShippedForms, ThereIsAStandInForEachBlank) {
  ASSERT_EQ(ShippedForms().size(), FormBlanks().size());
  std::size_t i = 0;
  for (const ShippedFile& file : ShippedForms()) {
    EXPECT_EQ(file.folder, kBlankFolder);
    EXPECT_EQ(file.name, FormBlanks()[i++].file);
  }
}

TEST(ShippedForms, ArePlacedWhereNoOfficialFormIs) {
  test::TestLedger test;
  const fs::path folder = test.ledger.File(kBlankFolder);
  fs::remove_all(folder);  // older directories may lack it
  ASSERT_TRUE(PlaceShippedForms(test));
  for (const ShippedFile& file : ShippedForms())
    EXPECT_EQ(BytesOf(folder / file.name), file.bytes) << file.name;

  std::string error;
  const fs::path official = folder / "GP Solo 2023-04.pdf";
  ASSERT_TRUE(ReplaceFile(official, "the official form", error));
  fs::remove(folder / "GP A 2024-04.pdf");
  ASSERT_TRUE(PlaceShippedForms(test));
  EXPECT_EQ(BytesOf(official), "the official form");
  EXPECT_TRUE(fs::exists(folder / "GP A 2024-04.pdf"));
  EXPECT_TRUE(test.shown.messages.empty());
}

TEST(ShippedForms, AFailureIsToldOnce) {
  test::TestLedger test;
  std::string error;
  fs::remove_all(test.ledger.File(kBlankFolder));
  ASSERT_TRUE(ReplaceFile(test.ledger.File(kBlankFolder), "a file", error));
  EXPECT_FALSE(PlaceShippedForms(test));
  EXPECT_EQ(test.shown.messages.size(), 1u);
  EXPECT_EQ(test.shown.TakeMessage(),
            "Unable to write the blank pension forms that come with LedgerMinder");
}

}  // namespace
}  // namespace lm
