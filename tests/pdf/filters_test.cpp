#include "pdf/filters.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>

#include "core/files.h"
#include "pdf/error.h"
#include "tests/pdf/handmade.h"
#include "tests/support/scripted_platform.h"
#include "tests/support/tools.h"

namespace lm::pdf {
namespace {

using std::string_literals::operator""s;

std::string Noise(std::size_t size, unsigned values) {
  std::string bytes;
  for (unsigned state = 1; bytes.size() < size;) {
    state = state * 1664525u + 1013904223u;
    bytes += static_cast<char>((state >> 16) % values);
  }
  return bytes;
}

struct Filter {
  const char* name;
  std::string (*encode)(std::string_view);
  std::string (*decode)(std::string_view, std::size_t);
};

const Filter kFilters[] = {
    {"RunLengthDecode", EncodeRunLength, DecodeRunLength},
    {"FlateDecode", [](std::string_view bytes) { return EncodeFlate(bytes); }, DecodeFlate},
    {"LZWDecode", EncodeLzw,
     [](std::string_view bytes, std::size_t cap) { return DecodeLzw(bytes, true, cap); }},
    {"ASCII85Decode", EncodeAscii85, DecodeAscii85},
    {"ASCIIHexDecode", EncodeAsciiHex, DecodeAsciiHex},
};

std::vector<std::string> Samples() {
  std::vector<std::string> samples{"", "a", "aa", "aaa", "aaab", std::string(5, '\0')};
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  samples.push_back(all);
  for (const std::size_t size : {127U, 128U, 129U, 130U, 256U, 100000U}) {
    samples.push_back(std::string(size, 'x'));
    samples.push_back(Noise(size, 3));
    samples.push_back(Noise(size, 256));
  }
  // Where the codes of LZW grow, and where its table is full.
  for (const std::size_t edge : {254U, 510U, 766U, 1790U, 3837U, 3838U, 3839U, 3840U}) {
    samples.push_back(Noise(edge, 256));
  }
  return samples;
}

TEST(Filters, RoundTrips) {
  for (const Filter& filter : kFilters) {
    for (const std::string& sample : Samples()) {
      EXPECT_TRUE(filter.decode(filter.encode(sample), kDecodeCap) == sample)
          << filter.name << " of " << sample.size() << " bytes";
    }
  }
}

TEST(Filters, StopAtTheCap) {
  const std::string zeros(100000, '\0');
  for (const Filter& filter : kFilters) {
    const std::string encoded = filter.encode(zeros);
    EXPECT_EQ(filter.decode(encoded, zeros.size()).size(), zeros.size()) << filter.name;
    EXPECT_THROW(filter.decode(encoded, zeros.size() - 1), Error) << filter.name;
  }
}

TEST(Filters, KnownBytes) {
  EXPECT_EQ(EncodeLzw("-----A---B"), "\x80\x0B\x60\x50\x22\x0C\x0C\x85\x01");
  EXPECT_EQ(EncodeAscii85("Man \0\0\0\0sure"s), "9jqo^zF*2M7~>");
  EXPECT_EQ(EncodeAscii85("Ma"), "9jn~>");
  EXPECT_EQ(EncodeAsciiHex("\x01\xFE"), "01FE>");
  EXPECT_EQ(EncodeRunLength("aaaab"),
            "\xFD"
            "a\0b\x80"s);
  EXPECT_EQ(EncodeRunLength(std::string(129, 'x')), "\x81x\0x\x80"s);
}

TEST(Filters, DecodersTakeWhatOthersWrite) {
  EXPECT_EQ(DecodeAscii85("<~9j\r\nqo ^~>rest"), "Man ");
  EXPECT_EQ(DecodeAscii85("9jqo^"), "Man ");
  EXPECT_EQ(DecodeAsciiHex(" 4 1\n4e4>zz"), "AN@");
  EXPECT_EQ(DecodeRunLength("\x02"
                            "ab"),
            "ab");  // breaks off
  EXPECT_EQ(DecodeRunLength("\xFE"), "");
  EXPECT_EQ(DecodeLzw("\x80\x0B\x60\x50\x22\x0C\x0C"), "-----A---");  // no end code
  const std::string deflated = EncodeFlate(Noise(50000, 9));
  const std::string broken = DecodeFlate(deflated.substr(0, deflated.size() / 2));
  EXPECT_GT(broken.size(), 20000u);
  EXPECT_TRUE(Noise(50000, 9).starts_with(broken));
}

TEST(Filters, DamageThrows) {
  const std::function<void()> damaged[] = {
      [] { DecodeFlate("no zlib data"); },
      [] { DecodeFlate(""); },
      [] {
        DecodeAscii85(
            "ab\x7F"
            "cd");
      },
      [] { DecodeAscii85("uuuuu"); },  // more than 32 bits
      [] { DecodeAscii85("9jzqo"); },
      [] { DecodeAsciiHex("4G"); },
      [] { DecodeLzw("\xFF\xFF\xFF"); },  // a code before its entry
      [] {
        UndoPredictor("abc", {99999, 1, 7, 1});
      },  // samples of 7 bits
      [] {
        UndoPredictor("abc", {12, 0, 8, 1});
      },  // no colours
      [] {
        UndoPredictor("abc", {12, 1, 8, -1});
      },  // no columns
      [] {
        UndoPredictor("abc", {5, 1, 8, 1});
      },  // no such predictor
      [] {
        UndoPredictor("abcdef", {12, 1, 8, 2}, 5);
      },  // above the cap
  };
  for (const auto& decode : damaged) EXPECT_THROW(decode(), Error);
}

// The width of a code grows one code later without the early change: 253 entries are made when
// code 510 is the newest, so the 255th code after the clear shows it.
TEST(Filters, LzwWithoutEarlyChange) {
  std::string bits;
  const auto put = [&bits](unsigned code, int width) {
    for (int bit = width - 1; bit >= 0; --bit) bits += code >> bit & 1 ? '1' : '0';
  };
  std::string expected;
  put(256, 9);
  for (unsigned i = 0; i < 300; ++i) {
    put(i % 256, i < 255 ? 9 : 10);
    expected += static_cast<char>(i % 256);
  }
  put(257, 10);
  std::string bytes;
  for (std::size_t at = 0; at < bits.size(); at += 8) {
    bytes += static_cast<char>(std::stoi((bits + "0000000").substr(at, 8), nullptr, 2));
  }
  EXPECT_EQ(DecodeLzw(bytes, false), expected);
  EXPECT_NE(EncodeLzw(expected), bytes);
}

TEST(Filters, PredictorsAreUndone) {
  const struct {
    std::string bytes;
    PredictorParameters parameters;
    std::string expected;
  } cases[] = {
      {"abc", {1, 1, 8, 1}, "abc"},
      {"\0"
       "abc"s,
       {15, 1, 8, 3},
       "abc"},
      {"\1\1\1\1"s, {11, 1, 8, 3}, "\1\2\3"},
      {"\1\1\1\1\1"s, {11, 2, 8, 2}, "\1\1\2\2"},
      {"\2\1\2\2\1\1"s, {12, 1, 8, 2}, "\1\2\2\3"},
      {"\0\4\4\3\2\2"s, {13, 1, 8, 2}, "\4\4\4\6"},
      {"\0\1\2\4\1\1"s, {14, 1, 8, 2}, "\1\2\2\3"},
      {"\2\1\2\2\1"s, {12, 1, 8, 2}, "\1\2\2"},  // the last row breaks off
      {"\1\1\1\2\1\1"s, {2, 1, 8, 3}, "\1\2\3\2\3\4"},
      {"\1\2\1\1"s, {2, 2, 8, 2}, "\1\2\2\3"},
      {"\x11\x11"s, {2, 1, 4, 4}, "\x12\x34"},
      {"\xFF"s, {2, 1, 1, 8}, "\xAA"},
      {"\0\xFF\0\1"s, {2, 1, 16, 2}, "\0\xFF\1\0"s},
      {"\1ab"s, {12, 2000000000, 16, 2000000000}, "ab"},
      {"", {12, 1, 8, 5}, ""},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(UndoPredictor(each.bytes, each.parameters), each.expected)
        << each.parameters.predictor << " of " << each.bytes.size();
  }
}

// What the encoders write is read by somebody else's decoders.
TEST(Filters, QpdfReadsThem) {
  test::TempDirectory directory;
  const std::string source = (directory.Path() / "a.pdf").string();
  const std::string target = (directory.Path() / "b.pdf").string();
  const std::string text = "BT ET % " + Noise(30000, 26) + "\nq Q";
  for (const Filter& filter : kFilters) {
    test::HandMade file = test::OnePage();
    file.objects[3] = test::StreamText(filter.encode(text), "/Filter /"s + filter.name);
    std::string error;
    ASSERT_TRUE(ReplaceFile(source, file.Bytes(), error));
    const std::string command =
        "qpdf --decode-level=all --stream-data=uncompress '" + source + "' '" + target + "'";
    ASSERT_EQ(test::RunTool(command), 0) << filter.name;
    const auto decoded = ReadFile(target, error);
    ASSERT_TRUE(decoded);
    EXPECT_NE(decoded->find(text), std::string::npos) << filter.name;
  }
}

}  // namespace
}  // namespace lm::pdf
