#include "documents/templatetexts.h"

#include <gtest/gtest.h>

namespace lm {
namespace {

TEST(TemplateTexts, ClosedUp) {
  const struct {
    const char *text, *closed;
  } cases[] = {
      {"", ""},
      {"1 High Street", "1 High Street"},
      {"Mill\r\n\r\nDorset\r\n", "Mill\r\nDorset"},
      {"\r\n  \r\nDorset", "Dorset"},
      {"Mill\nDorset", "Mill\r\nDorset"},
      {" Alex  Morgan ", "Alex Morgan"},
      {"1 High Street, , Dorset, ", "1 High Street, Dorset"},
      {", \r\nDorset", "Dorset"},
      {" \xB7 MBBS", "MBBS"},
      {"GMC 1 \xB7 ", "GMC 1"},
      {"Flat 2,3 and 1,234.50", "Flat 2,3 and 1,234.50"},
  };
  for (const auto& each : cases) EXPECT_EQ(ClosedUp(each.text), each.closed) << each.text;
}

TEST(TemplateTexts, LongWordsAreBrokenAndLoseNothing) {
  const TextMeasure letters = [](std::string_view text) {
    return static_cast<double>(text.size());
  };
  const struct {
    const char *text, *broken;
  } cases[] = {
      {"short words stay", "short words stay"},
      {"abcdefghijklmnop", "abcdefghij klmnop"},
      {"alex@example.uk", "alex@ example.uk"},
      {"a@bcdefghijklm", "a@bcdefghi jklm"},  // too early a sign
      {"x abcdefghijkl\r\nabcdefghijk y", "x abcdefghij kl\r\nabcdefghij k y"},
  };
  for (const auto& each : cases) {
    const std::string broken = WithLongWordsBroken(each.text, 10, letters);
    EXPECT_EQ(broken, each.broken);
    EXPECT_LE(WidestWord(broken, letters), 10);
  }
  // Narrower than a letter: one a line, and an end.
  EXPECT_EQ(WithLongWordsBroken("abc", 0.5, letters), "a b c");
}

}  // namespace
}  // namespace lm
