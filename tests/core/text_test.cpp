#include "core/text.h"

#include "core/files.h"
#include "core/messagebox.h"
#include "tests/support/scripted_platform.h"

#include <gtest/gtest.h>

namespace lm {
namespace {

struct Pair {
  std::string_view in, out;
};

std::string AllCodes() {
  std::string all;
  for (int code = 0; code < 256; ++code) all += static_cast<char>(code);
  return all;
}

TEST(Text, EveryWindows1252CodeSurvivesUtf8) {
  const std::string all = AllCodes();
  EXPECT_EQ(FromUtf8(ToUtf8(all)), all);
  EXPECT_EQ(ToUtf8("\x80 \xA3 \x92 \x81 \xFF"), "€ £ ’ \xC2\x81 ÿ");
}

TEST(Text, FromUtf8MarksWhatHasNoPlace) {
  const Pair cases[] = {
      {"£5 – café",
       "\xA3"
       "5 \x96 caf\xE9"},
      {"日本", "??"},
      {"😀!", "?!"},
      {"\xC2\x80", "?"},             // the code itself is the euro's
      {"\x80\xBF", "??"},            // continuation bytes alone
      {"\xC3", "?"},                 // cut off
      {"\xE2\x82", "?"},             // cut off after two of three
      {"\xE2\x82x", "?x"},           // the next character is not swallowed
      {"\xC0\xAF", "??"},            // overlong
      {"\xED\xA0\x80", "???"},       // surrogate
      {"\xF4\x90\x80\x80", "????"},  // above the last code
      {"\xFF\xFE", "??"},
      {"", ""},
  };
  for (const Pair& c : cases) EXPECT_EQ(FromUtf8(c.in), c.out) << c.in;
}

TEST(Text, CaseCoversAccentedLetters) {
  EXPECT_EQ(ToUpper(FromUtf8("aé÷šœžÿßµ")), FromUtf8("AÉ÷ŠŒŽŸßµ"));
  EXPECT_EQ(ToLower(FromUtf8("AÉ×ŠŒŽŸ")), FromUtf8("aé×šœžÿ"));
  for (const char c : AllCodes()) {
    EXPECT_EQ(ToUpper(ToLower(ToUpper(c))), ToUpper(c));
    EXPECT_EQ(ToLower(ToUpper(ToLower(c))), ToLower(c));
  }
}

TEST(Text, TrimTakesBlanksOnly) {
  const Pair cases[] = {{"  a b ", "a b"}, {"   ", ""}, {"", ""}, {"\ta\n ", "\ta\n"}, {"a", "a"}};
  for (const Pair& c : cases) EXPECT_EQ(Trim(c.in), c.out);
}

TEST(Text, ReplaceDoesNotLookAgain) {
  EXPECT_EQ(Replace("a//b///c", "//", "/"), "a/b//c");
  EXPECT_EQ(Replace("aaa", "a", "aa"), "aaaaaa");
  EXPECT_EQ(Replace("abc", "", "x"), "abc");
  EXPECT_EQ(Replace("xabx", "x", ""), "ab");
  EXPECT_EQ(RemoveAny(" :;,.-/\\9 30", " :;,.-/\\"), "930");
}

TEST(Text, SplitAndJoinAreInverse) {
  for (const std::string_view text : {"", "|", "a", "a|b", "|a||b|"}) {
    std::vector<std::string> pieces;
    for (const std::string_view piece : Split(text, '|')) pieces.emplace_back(piece);
    EXPECT_EQ(Join(pieces, "|"), text);
    EXPECT_EQ(pieces.size(),
              1u + static_cast<std::size_t>(std::count(text.begin(), text.end(), '|')));
  }
}

TEST(Text, LineBreaksBecomeCrLf) {
  const std::pair<const char*, const char*> kCases[] = {
      {"", ""},           {"a b", "a b"},       {"a\nb", "a\r\nb"},
      {"a\rb", "a\r\nb"}, {"a\r\nb", "a\r\nb"}, {"\n\r\r\n\n", "\r\n\r\n\r\n\r\n"},
      {"a\r", "a\r\n"},
  };
  for (const auto& [text, expected] : kCases) EXPECT_EQ(WithCrLf(text), expected);
}

TEST(Text, ComparisonsIgnoreCase) {
  EXPECT_TRUE(EqualsIgnoreCase("Riverside", "RIVERSIDE"));
  EXPECT_TRUE(EqualsIgnoreCase("\xE9", "\xC9"));
  EXPECT_FALSE(EqualsIgnoreCase("River", "Riverside"));
  EXPECT_LT(CompareIgnoreCase("abc", "ABD"), 0);
  EXPECT_LT(CompareIgnoreCase("ab", "ABC"), 0);
  EXPECT_GT(CompareIgnoreCase("\xE9", "z"), 0);  // codes above 127 are not negative
  EXPECT_EQ(CompareIgnoreCase("", ""), 0);
}

TEST(Text, DigitsAndPadding) {
  EXPECT_TRUE(AllDigits("007"));
  for (const std::string_view text : {"", " 7", "7.0", "-7", "\xB2"}) EXPECT_FALSE(AllDigits(text));
  EXPECT_EQ(PadLeft("7", 3, '0'), "007");
  EXPECT_EQ(PadLeft("1234", 3, '0'), "123");
  EXPECT_EQ(PadLeft("", 0, '0'), "");
}

TEST(Text, LiteralsBecomeOneByteASign) {
  EXPECT_EQ("£5 – “€”…"_w,
            "\xA3"
            "5 \x96 \x93\x80\x94\x85");
  EXPECT_EQ(ToUtf8("‘naïve’ • —"_w), "‘naïve’ • —");
}

// Folders may have names that the program's own texts cannot hold.
TEST(Text, PathsKeepEveryCharacter) {
  for (const std::string utf8 : {"C:/Users/nigel/\xC5\x81\xC3\xB3"
                                 "d\xC5\xBA",
                                 "/\xE6\x9D\xB1/\xF0\x9F\x8F\xA5/a", "plain", "\x1A", "\x1A;",
                                 "\x1A"
                                 "d800;",
                                 "\x1A"
                                 "110000;"}) {
    EXPECT_EQ(ToUtf8(MarkedFromUtf8(utf8)), utf8);
    EXPECT_EQ(PathText(PathFromUtf8(utf8)), MarkedFromUtf8(utf8));
  }
  EXPECT_EQ(MarkedFromUtf8("\xFF\xC5"), "??");
  EXPECT_EQ(FromUtf8("\xC5\x81"), "?") << "records do not";
}

TEST(Text, AnNBehindABackslashOfAPathBeginsNoLine) {
  test::TestLedger test;
  ShowMessage(test, "Missing\\nFile", PathInMessage(PathFromUtf8("C:\\Users\\nigel")));
  EXPECT_EQ(test.shown.messages[0].mainPrompt, "Missing\r\nFile");
  EXPECT_EQ(ToUtf8(test.shown.messages[0].minorPrompt), "C:\\Users\\nigel");
}

}  // namespace
}  // namespace lm
