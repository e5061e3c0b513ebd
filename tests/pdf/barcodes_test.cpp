// What the bars say is read back without the encoder's tables: by arithmetic where the symbology
// has one, and by a reader program on the rendered page where one is installed.
#include "pdf/barcodes.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <set>

#include "core/files.h"
#include "pdf/clsPDFCreator.h"
#include "tests/support/scripted_platform.h"
#include "tests/support/tools.h"

namespace lm::pdf {
namespace {

enum Kind { k128, k39, kEan13, kEan8, kInterleaved, kStandard };

// Two of five elements are wide; their places weigh 1, 2, 4, 7 and 0, and 11 stands for 0.
char TwoOfFive(std::string_view elements) {
  constexpr std::array<int, 5> kWeights{1, 2, 4, 7, 0};
  int sum = 0, wide = 0;
  for (std::size_t i = 0; i < kWeights.size(); ++i) {
    if (elements[i] == '1') continue;
    sum += kWeights[i];
    ++wide;
  }
  EXPECT_EQ(wide, 2);
  return static_cast<char>('0' + sum % 11);
}

std::string EverySecond(std::string_view elements, std::size_t from, std::size_t count) {
  std::string picked;
  for (std::size_t i = 0; i < count; ++i) picked += elements[from + 2 * i];
  return picked;
}

TEST(BarCodes, TwoOfFiveReadsBackByItsWeights) {
  const std::string code = "0123456789";
  const BarCode inter = EncodeBarCode(kInterleaved, code);
  ASSERT_EQ(inter.elements.size(), 4 + 50 + 3U);
  EXPECT_TRUE(inter.elements.starts_with("1111"));
  EXPECT_TRUE(inter.elements.ends_with("311"));
  std::string read;
  for (std::size_t at = 4; at < 54; at += 10) {
    read += TwoOfFive(EverySecond(inter.elements, at, 5));
    read += TwoOfFive(EverySecond(inter.elements, at + 1, 5));
  }
  EXPECT_EQ(read, code);
  EXPECT_EQ(EncodeBarCode(kInterleaved, "123").text, "0123");

  const BarCode standard = EncodeBarCode(kStandard, code);
  ASSERT_EQ(standard.elements.size(), 6 + 100 + 5U);
  EXPECT_EQ(EverySecond(standard.elements, 0, 3), "331");
  EXPECT_TRUE(standard.elements.ends_with("31113"));
  read.clear();
  for (std::size_t at = 6; at < 106; at += 10)
    read += TwoOfFive(EverySecond(standard.elements, at, 5));
  EXPECT_EQ(read, code);
  EXPECT_EQ(EverySecond(standard.elements, 1, 55), std::string(55, '1'));
}

TEST(BarCodes, CheckDigits) {
  const struct {
    const char *digits, check;
  } cases[] = {{"400638133393", '1'},
               {"590123412345", '7'},
               {"9638507", '4'},
               {"5512345", '7'},
               {"000000000000", '0'}};
  for (const auto& c : cases) EXPECT_EQ(EanCheckDigit(c.digits), c.check) << c.digits;
  EXPECT_EQ(EncodeBarCode(kEan13, "400638133393").text, "4006381333931");
  EXPECT_EQ(EncodeBarCode(kEan13, "4006381333931").elements,
            EncodeBarCode(kEan13, "400638133393").elements);
}

// A sign is six elements of 11 modules, its bars of an even number; no two are alike.
TEST(BarCodes, Code128SignsAreLawful) {
  std::set<std::string> signs;
  const auto take = [&](const BarCode& bars) {
    EXPECT_TRUE(bars.elements.ends_with("2331112"));
    EXPECT_EQ((bars.Modules() - 13) % 11, 0);
    for (std::size_t at = 0; at + 7 < bars.elements.size(); at += 6) {
      const std::string sign = bars.elements.substr(at, 6);
      int bar = 0, all = 0;
      for (std::size_t i = 0; i < 6; ++i) (i % 2 ? all : bar) += sign[i] - '0';
      EXPECT_EQ(bar % 2, 0) << sign;
      EXPECT_EQ(bar + all, 11) << sign;
      signs.insert(sign);
    }
  };
  std::string pairs;
  for (int pair = 0; pair < 100; ++pair)
    pairs += {static_cast<char>('0' + pair / 10), static_cast<char>('0' + pair % 10)};
  take(EncodeBarCode(k128, pairs));
  EXPECT_GE(signs.size(), 101U);  // a hundred pairs and the beginning
  take(EncodeBarCode(k128, "a\x01z"));
  take(EncodeBarCode(k128, "\x01"));
  EXPECT_LE(signs.size(), 106U);
}

TEST(BarCodes, Code128TakesPairsOfDigitsWhereItPays) {
  const struct {
    const char* code;
    int signs;  // with the beginning and the check sign, without the end
  } cases[] = {
      {"A", 3},        {"12", 3}, {"123", 5}, {"1234", 4}, {"12345", 6},  // C 12 34 B 5
      {"A1234", 6},                                                       // B A C 12 34
      {"A12345", 7},                                                      // B A 1 C 23 45
      {"A1234B", 8},                                                      // four within do not pay
      {"A123456B", 9},                                                    // B A C 12 34 56 B B
      {"a\tb", 7},                                                        // B a A tab B b
      {"\tAB", 5},                                                        // A tab A B
  };
  for (const auto& c : cases) {
    EXPECT_EQ((EncodeBarCode(k128, c.code).Modules() - 13) / 11, c.signs) << c.code;
  }
}

TEST(BarCodes, WhatACodeCannotHoldIsRefusedWithTheReason) {
  const struct {
    int kind;
    std::string code;
  } cases[] = {{k128, ""},
               {k128, "caf\xE9"},
               {k128, std::string(201, 'a')},
               {k39, "lower"},
               {k39, "A*B"},
               {kEan13, "12345678901"},
               {kEan13, "4006381333932"},
               {kEan13, "40063813339X"},
               {kEan8, "123456"},
               {kEan8, "96385075"},
               {kInterleaved, "12A4"},
               {kStandard, "1.5"},
               {6, "1"},
               {-1, "1"}};
  for (const auto& c : cases) {
    try {
      EncodeBarCode(c.kind, c.code);
      ADD_FAILURE() << c.kind << " " << c.code;
    } catch (const Error& error) {
      EXPECT_STRNE(error.what(), "");
    }
  }
}

std::string Capture(const std::string& command, const std::filesystem::path& output) {
  if (test::RunTool(command + " > '" + output.string() + "' 2>/dev/null") != 0) return "";
  std::string error;
  return ReadFile(output, error).value_or("");
}

TEST(BarCodes, AReaderReadsTheRenderedPage) {
  if (test::RunTool("command -v zbarimg > /dev/null && command -v pdftoppm > /dev/null") != 0) {
    GTEST_SKIP() << "no bar code reader is installed";
  }
  const struct {
    int kind;
    std::string code, read;
  } cases[] = {
      {k128, "Invoice 00123456", "CODE-128:Invoice 00123456"},
      {k128, "12345", "CODE-128:12345"},
      {k128, " !\"#$%&'()*+,-./:;<=>?@[\\]^_", "CODE-128: !\"#$%&'()*+,-./:;<=>?@[\\]^_"},
      {k128, "ABCDEFGHIJKLMNOPQRSTUVWXYZ", "CODE-128:ABCDEFGHIJKLMNOPQRSTUVWXYZ"},
      {k128, "`abcdefghijklmnopqrstuvwxyz{|}~", "CODE-128:`abcdefghijklmnopqrstuvwxyz{|}~"},
      {k128, "00010203040506070809101112131415161718",
       "CODE-128:00010203040506070809101112131415161718"},
      {k128, "19202122232425262728293031323334353637",
       "CODE-128:19202122232425262728293031323334353637"},
      {k128, "38394041424344454647484950515253545556",
       "CODE-128:38394041424344454647484950515253545556"},
      {k128, "57585960616263646566676869707172737475",
       "CODE-128:57585960616263646566676869707172737475"},
      {k128, "76777879808182838485868788899091929394",
       "CODE-128:76777879808182838485868788899091929394"},
      {k128, "9596979899", "CODE-128:9596979899"},
      {k128, "a\tB", "CODE-128:a\tB"},
      {k39, "0123456789-. $/+%", "CODE-39:0123456789-. $/+%"},
      {k39, "ABCDEFGHIJKLM", "CODE-39:ABCDEFGHIJKLM"},
      {k39, "NOPQRSTUVWXYZ", "CODE-39:NOPQRSTUVWXYZ"},
      {kEan13, "400638133393", "EAN-13:4006381333931"},
      {kEan13, "590123412345", "EAN-13:5901234123457"},
      {kEan13, "978020137962", "EAN-13:9780201379624"},
      {kEan13, "123456789012", "EAN-13:1234567890128"},
      {kEan13, "212345678901", "EAN-13:2123456789010"},
      {kEan13, "312345678901", "EAN-13:3123456789019"},
      {kEan13, "612345678901", "EAN-13:6123456789016"},
      {kEan13, "712345678901", "EAN-13:7123456789015"},
      {kEan13, "812345678901", "EAN-13:8123456789014"},
      {kEan13, "012345678901", "EAN-13:0123456789012"},
      {k128, "\tAB", "CODE-128:\tAB"},
      {kEan8, "9638507", "EAN-8:96385074"},
      {kEan8, "1234567", "EAN-8:12345670"},
      {kInterleaved, "0123456789", "I2/5:0123456789"},
      {kInterleaved, "9876543210135", "I2/5:09876543210135"},
  };
  test::TempDirectory directory;
  const auto pdf = directory.Path() / "bars.pdf";
  clsPDFCreator creator(test::StandingClock());
  creator.SetScale(2);
  creator.SetPaperSize(255, 150, 25);
  creator.BeginDoc(pdf.string());
  constexpr double kModule = 0.33;  // mm, as on goods
  for (const auto& c : cases) {
    creator.BeginPage();
    creator.DrawBarCode(c.kind, c.code, 8, 4, kModule * EncodeBarCode(c.kind, c.code).Modules(),
                        16);
    ASSERT_EQ(creator.ErrDescription(), "") << c.code;
  }
  creator.EndDoc();

  const std::string pages = (directory.Path() / "page").string();
  ASSERT_EQ(test::RunTool("pdftoppm -r 300 -gray '" + pdf.string() + "' '" + pages + "'"), 0);
  std::string expected;
  for (const auto& c : cases) expected += c.read + "\n";
  EXPECT_EQ(Capture("zbarimg -q '" + pages + "'-*.pgm", directory.Path() / "read.txt"), expected);
}

}  // namespace
}  // namespace lm::pdf
