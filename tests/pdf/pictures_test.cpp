// The readers of raster files, on bytes made here.
#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "pdf/error.h"
#include "pdf/images/bmp.h"
#include "pdf/images/gif.h"
#include "pdf/images/jpeg.h"
#include "pdf/images/png.h"
#include "pdf/images/tga.h"
#include "tests/pdf/picture_bytes.h"

namespace lm::pdf {
namespace {

using namespace test;

const std::string kBlueGreen = Codes({0, 0, 255, 0, 255, 0});
const std::string kFour =
    Codes({0, 0, 0, 255, 0, 0, 0, 255, 0, 0, 0, 255});            // black red green blue
const std::string kBmpTwo = Codes({255, 0, 0, 0, 0, 255, 0, 0});  // blue, green

using Reader = Picture (*)(std::string_view);

void ExpectError(Reader read, const std::string& bytes, const std::string& reason) {
  try {
    read(bytes);
    ADD_FAILURE() << "no error, expected: " << reason;
  } catch (const Error& error) {
    EXPECT_NE(std::string(error.what()).find(reason), std::string::npos) << error.what();
  }
}

TEST(Png, DepthsAndColourTypes) {
  struct Case {
    int colourType, bits;
    const char* colourSpace;
    const char* colours;
  };
  const Case cases[] = {{kPngGray, 1, "DeviceGray", "1"},   {kPngGray, 2, "DeviceGray", "1"},
                        {kPngGray, 4, "DeviceGray", "1"},   {kPngGray, 8, "DeviceGray", "1"},
                        {kPngGray, 16, "DeviceGray", "1"},  {kPngRgb, 8, "DeviceRGB", "3"},
                        {kPngRgb, 16, "DeviceRGB", "3"},    {kPngIndexed, 1, "DeviceRGB", "1"},
                        {kPngIndexed, 4, "DeviceRGB", "1"}, {kPngIndexed, 8, "DeviceRGB", "1"}};
  for (const Case& c : cases) {
    SCOPED_TRACE(std::to_string(c.colourType) + " " + std::to_string(c.bits));
    const std::string packed = EncodeFlate(std::string(40, '\0'));
    const std::string palette = c.colourType == kPngIndexed ? PngChunk("PLTE", kBlueGreen) : "";
    // The data may come in any number of chunks, one behind the other.
    const Picture picture = ReadPng(PngHeader(5, 2, c.bits, c.colourType) + palette +
                                    PngChunk("tEXt", "a") + PngChunk("IDAT", packed.substr(0, 4)) +
                                    PngChunk("IDAT", packed.substr(4)) + PngChunk("IEND", ""));
    EXPECT_EQ(picture.width, 5);
    EXPECT_EQ(picture.height, 2);
    EXPECT_EQ(picture.bits, c.bits);
    EXPECT_EQ(picture.colourSpace, c.colourSpace);
    EXPECT_EQ(picture.palette, c.colourType == kPngIndexed ? kBlueGreen : "");
    EXPECT_EQ(picture.data, packed);
    EXPECT_EQ(picture.filter, "/FlateDecode");
    EXPECT_EQ(picture.decodeParms, "<</Predictor 15 /Colors " + std::string(c.colours) +
                                       " /BitsPerComponent " + std::to_string(c.bits) +
                                       " /Columns 5>>");
  }
}

TEST(Png, Transparency) {
  struct Case {
    int colourType, bits;
    std::string transparency, mask;
  };
  const Case cases[] = {
      {kPngIndexed, 2, Codes({255, 0, 0}), "1 2"},
      {kPngIndexed, 2, Codes({0}), "0 0"},
      {kPngIndexed, 2, Codes({0, 255, 0}), ""},         // two runs
      {kPngIndexed, 2, Codes({128, 200, 255, 1}), ""},  // in part only
      {kPngIndexed, 2, Codes({1, 1, 1, 1, 0, 0}), ""},  // entries that are not there
      {kPngGray, 4, Codes({0, 7}), "7 7"},
      {kPngGray, 4, Codes({0, 16}), ""},  // no such sample
      {kPngGray, 8, Codes({7}), ""},
      {kPngGray, 16, Codes({1, 2}), "258 258"},
      {kPngRgb, 8, Codes({0, 1, 0, 2, 0, 255}), "1 1 2 2 255 255"},
  };
  for (const Case& c : cases) {
    const std::string palette = c.colourType == kPngIndexed ? PngChunk("PLTE", kFour) : "";
    const std::string file = PngHeader(2, 2, c.bits, c.colourType) + palette +
                             PngChunk("tRNS", c.transparency) + PngEnd(std::string(40, '\0'));
    EXPECT_EQ(ReadPng(file).mask, c.mask) << c.colourType << " " << c.mask;
  }
}

TEST(Png, Refused) {
  const std::string end = PngEnd(std::string(20, '\0'));
  const std::string gray = PngHeader(2, 2, 8, kPngGray);
  const std::string indexed = PngHeader(2, 2, 1, kPngIndexed);
  std::string wrongSum = gray + end;
  wrongSum[gray.size() + 12] ^= 1;
  struct Case {
    std::string bytes, reason;
  };
  const Case cases[] = {
      {"", "no PNG"},
      {"\x89PNG\n\r\x1A\n", "no PNG"},
      {gray.substr(0, 8) + end, "does not begin with its header"},
      {PngHeader(2, 2, 8, kPngGrayAlpha) + end, "alpha channel"},
      {PngHeader(2, 2, 8, kPngRgbAlpha) + end, "alpha channel"},
      {PngHeader(2, 2, 8, kPngGray, 1) + end, "Interlaced"},
      {PngHeader(2, 2, 3, kPngGray) + end, "header is damaged"},
      {PngHeader(2, 2, 4, kPngRgb) + end, "header is damaged"},
      {PngHeader(2, 2, 16, kPngIndexed) + end, "header is damaged"},
      {PngHeader(2, 2, 8, 1) + end, "header is damaged"},
      {gray + gray.substr(8) + end, "header is damaged"},
      {PngHeader(0, 2, 8, kPngGray) + end, "no pixels"},
      {PngHeader(-1, -1, 8, kPngGray) + end, "too large"},
      {PngHeader(10001, 10000, 8, kPngGray) + end, "too large"},
      {gray, "breaks off"},
      {gray + PngChunk("IEND", ""), "no data"},
      {indexed + end, "no palette"},
      {indexed + PngChunk("PLTE", "12") + end, "palette is damaged"},
      {indexed + PngChunk("PLTE", kFour) + end, "palette is damaged"},  // more than 1 bit can name
      {gray + PngChunk("IDAT", "a") + PngChunk("tEXt", "") + end, "torn"},
      {gray + PngChunk("ABCD", "") + end, "unknown chunk ABCD"},
      {wrongSum, "checksum"},
  };
  for (const Case& c : cases) ExpectError(ReadPng, c.bytes, c.reason);

  std::string wrongHint = gray + PngChunk("tIME", "abc") + end;
  wrongHint[gray.size() + 8] ^= 1;
  EXPECT_NO_THROW(ReadPng(wrongHint));  // what a picture does not need may be damaged
}

TEST(Jpeg, FrameHeader) {
  const std::string bytes = Jpeg(1);
  const Picture gray = ReadJpeg(bytes);
  EXPECT_EQ(gray.width, 8);
  EXPECT_EQ(gray.colourSpace, "DeviceGray");
  EXPECT_EQ(gray.data, bytes);
  EXPECT_EQ(gray.filter, "/DCTDecode");
  EXPECT_EQ(ReadJpeg(Jpeg(3, AdobeMark())).colourSpace, "DeviceRGB");
  EXPECT_EQ(ReadJpeg(Jpeg(3, AdobeMark())).decode, "");
  EXPECT_EQ(ReadJpeg(Jpeg(4)).colourSpace, "DeviceCMYK");
  EXPECT_EQ(ReadJpeg(Jpeg(4)).decode, "");
  EXPECT_EQ(ReadJpeg(Jpeg(4, AdobeMark())).decode, "[1 0 1 0 1 0 1 0]");

  // A thumbnail's frame inside a comment is none; fill bytes may stand before a marker.
  const std::string start = "\xFF\xD8";
  const Picture progressive = ReadJpeg(start + JpegSegment(0xFE, JpegFrame(0xC0, 1, 1, 1)) +
                                       "\xFF\xFF" + JpegFrame(0xC2, 3, 300, 200) + JpegScan(3));
  EXPECT_EQ(progressive.width, 300);
  EXPECT_EQ(progressive.height, 200);
}

TEST(Jpeg, Refused) {
  const std::string start = "\xFF\xD8";
  struct Case {
    std::string bytes, reason;
  };
  const Case cases[] = {
      {"GIF89a", "no JPEG"},
      {start + JpegFrame(0xC3, 1) + JpegScan(1), "not supported"},            // lossless
      {start + JpegFrame(0xC9, 1) + JpegScan(1), "not supported"},            // arithmetic
      {start + JpegFrame(0xC1, 1, 8, 8, 12) + JpegScan(1), "not supported"},  // 12 bits
      {start + JpegFrame(0xC0, 2) + JpegScan(2), "number of colours"},
      {start + JpegFrame(0xC0, 1, 8, 0) + JpegScan(1), "no pixels"},
      {start + JpegFrame(0xC0, 1, 65535, 65535) + JpegScan(1), "too large"},
      {start + JpegFrame(0xC0, 1) + JpegFrame(0xC0, 1) + JpegScan(1), "two frames"},
      {start + JpegScan(1), "no frame"},
      {start + Codes({0xFF, 0xE0, 0, 1}), "damaged"},
      {start + "\xFF\xE0\xFF\xFF", "breaks off"},
      {Jpeg(1).substr(0, Jpeg(1).size() - 1), "breaks off"},
  };
  for (const Case& c : cases) ExpectError(ReadJpeg, c.bytes, c.reason);
}

TEST(Bmp, DepthsAndOrders) {
  const std::string indices = Codes({1, 0, 1, 0, 0, 1});
  const std::string colours = Codes({255, 0, 0, 0, 255, 0, 0, 0, 255, 1, 2, 3});  // 2 x 2
  const std::string fields555 =
      Little(0x7C00, 2) + Little(0x03E0, 2) + Little(0x001F, 2) + Little(0, 2);
  const std::string masks565 = Little(0xF800, 4) + Little(0x07E0, 4) + Little(0x001F, 4);
  struct Case {
    const char* name;
    std::string bytes, data;
  };
  const Case cases[] = {
      {"1 bit", Bmp(3, 2, 1, 0, kBmpTwo, Codes({0x20, 0, 0, 0, 0xA0, 0, 0, 0})), indices},
      {"4 bits", Bmp(3, 2, 4, 0, kBmpTwo, Codes({0x00, 0x10, 0, 0, 0x10, 0x10, 0, 0})), indices},
      {"8 bits", Bmp(3, 2, 8, 0, kBmpTwo, Codes({0, 0, 1, 0, 1, 0, 1, 0})), indices},
      {"top-down", Bmp(3, -2, 8, 0, kBmpTwo, Codes({1, 0, 1, 0, 0, 0, 1, 0})), indices},
      {"24 bits",
       Bmp(2, 2, 24, 0, "", Codes({255, 0, 0, 3, 2, 1, 0, 0, 0, 0, 255, 0, 255, 0, 0, 0})),
       colours},
      {"32 bits", Bmp(1, 2, 32, 0, "", Codes({3, 2, 1, 9, 0, 0, 255, 9})),
       Codes({255, 0, 0, 1, 2, 3})},
      {"5-5-5", Bmp(4, 1, 16, 0, "", fields555), Codes({255, 0, 0, 0, 255, 0, 0, 0, 255, 0, 0, 0})},
      {"5-6-5", Bmp(2, 1, 16, 3, masks565, Little(0x07E0, 2) + Little(0x8410, 2)),
       Codes({0, 255, 0, 132, 130, 132})},
      {"RLE8", Bmp(3, 2, 8, 1, kBmpTwo, Codes({0, 3, 0, 0, 1, 0, 0, 0, 1, 1, 1, 0, 1, 1, 0, 1})),
       indices},
      {"RLE8 skips",
       Bmp(3, 2, 8, 1, kBmpTwo, Codes({0, 2, 2, 0, 1, 1, 0, 0, 1, 1, 0, 2, 1, 0, 9, 1, 0, 1})),
       indices},
      {"RLE4", Bmp(3, 2, 4, 2, kBmpTwo, Codes({2, 0, 1, 0x10, 0, 0, 3, 0x10, 0, 1})), indices},
      {"RLE4 single", Bmp(3, 2, 4, 2, kBmpTwo, Codes({0, 3, 0x00, 0x10, 0, 0, 3, 0x10, 0, 1})),
       indices},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const Picture picture = ReadBmp(c.bytes);
    EXPECT_EQ(picture.data, c.data);
    EXPECT_EQ(picture.filter, "");
    EXPECT_EQ(picture.bits, 8);
    const bool indexed = !picture.palette.empty();
    EXPECT_EQ(picture.palette.substr(0, 6), indexed ? kBlueGreen : "");
  }

  // OS/2: sizes of 16 bits, palette entries of 3 bytes.
  const std::string os2 = "BM" + Little(0, 8) + Little(32, 4) + Little(12, 4) + Little(3, 2) +
                          Little(1, 2) + Little(1, 2) + Little(1, 2) +
                          Codes({255, 0, 0, 0, 255, 0}) + Codes({0xA0, 0, 0, 0});
  EXPECT_EQ(ReadBmp(os2).data, Codes({1, 0, 1}));
  EXPECT_EQ(ReadBmp(os2).palette, kBlueGreen);
}

TEST(Bmp, Refused) {
  const std::string row = Codes({0, 0, 0, 0});
  struct Case {
    std::string bytes, reason;
  };
  const Case cases[] = {
      {"MB" + row, "no bitmap"},
      {Bmp(0, 1, 8, 0, kBmpTwo, row), "no pixels"},
      {Bmp(-1, 1, 8, 0, kBmpTwo, row), "no pixels"},
      {Bmp(0x7FFFFFFF, static_cast<int>(0x80000000), 24, 0, "", row), "too large"},
      {Bmp(1000, 1000, 24, 0, "", row), "breaks off"},
      {Bmp(1, 1, 5, 0, "", row), "not supported"},
      {Bmp(1, 1, 4, 1, kBmpTwo, row), "not supported"},
      {Bmp(1, 1, 24, 4, "", row), "not supported"},
      {Bmp(1, -1, 8, 1, kBmpTwo, row), "top-down"},
      {Bmp(1, 1, 8, 1, kBmpTwo, Codes({0, 5, 1})), "breaks off"},
      {Bmp(2, 1, 16, 3, Little(0xF00F, 4) + Little(0, 8), row), "bit fields"},
  };
  for (const Case& c : cases) ExpectError(ReadBmp, c.bytes, c.reason);
}

TEST(Gif, PalettesTransparencyInterlace) {
  const std::string indices = Codes({0, 1, 2, 3, 3, 3});
  const Picture global = ReadGif(Gif(3, 2, 2, kFour, "", indices));
  EXPECT_EQ(global.data, indices);
  EXPECT_EQ(global.palette, kFour);
  EXPECT_EQ(global.mask, "");

  const std::string other = Codes({9, 9, 9, 8, 8, 8, 7, 7, 7, 6, 6, 6});
  EXPECT_EQ(ReadGif(Gif(3, 2, 2, kFour, other, indices)).palette, other);
  const std::string comment = Codes({0x21, 0xFE, 2, 'h', 'i', 0});
  EXPECT_EQ(ReadGif(Gif(3, 2, 2, kFour, "", indices, 0, comment + GifTransparency(2))).mask, "2 2");
  EXPECT_EQ(ReadGif(Gif(3, 2, 2, kFour, "", indices, 0, GifTransparency(4))).mask, "");

  // Ten rows of one pixel, each holding its row's number mod 4, stored as rows 0 8, 4, 2 6, 1 3 5
  // 7 9.
  const std::string stored = Codes({0, 0, 0, 2, 2, 1, 3, 1, 3, 1});
  EXPECT_EQ(ReadGif(Gif(1, 10, 2, kFour, "", stored, 0x40)).data,
            Codes({0, 1, 2, 3, 0, 1, 2, 3, 0, 1}));
}

TEST(Gif, CodesGrowAndStartAnew) {
  std::mt19937 random(7);
  for (const int rootBits : {2, 8}) {
    for (const unsigned range : {1U, 2U, 4U}) {
      std::string indices;
      for (int i = 0; i < 200 * 150; ++i) {
        indices += static_cast<char>(random() % (rootBits == 8 ? range * 64 : range));
      }
      const std::string palette(std::size_t{3} << rootBits, 'x');
      EXPECT_EQ(ReadGif(Gif(200, 150, rootBits, palette, "", indices)).data, indices);
    }
  }
}

TEST(Gif, Refused) {
  const std::string good = Gif(3, 2, 2, kFour, "", Codes({0, 1, 2, 3, 3, 3}));
  struct Case {
    std::string bytes, reason;
  };
  const Case cases[] = {
      {"GIF90a", "no GIF"},
      {Gif(3, 2, 2, "", "", Codes({0, 1, 2, 3, 3, 3})), "no palette"},
      {Gif(0, 2, 2, kFour, "", Codes({0})), "no pixels"},
      {Gif(65535, 65535, 2, kFour, "", Codes({0})), "too large"},
      {Gif(9, 9, 2, kFour, "", Codes({0, 1})), "breaks off"},
      {good.substr(0, 25) + ";", "no picture"},
      {good.substr(0, 35) + Codes({12, 1, 0, 0}), "damaged"},  // the width of the codes
      {good.substr(0, 35) + Codes({2, 2, 0xFC, 0xFF, 0}),
       "damaged"},  // a code that is not known yet
  };
  for (const Case& c : cases) ExpectError(ReadGif, c.bytes, c.reason);
}

TEST(Tga, KindsAndCorners) {
  const std::string bgr =
      Codes({0, 0, 255, 0, 255, 0, 255, 0, 0, 3, 2, 1});  // red green blue 1-2-3
  const std::string rgb = Codes({255, 0, 0, 0, 255, 0, 0, 0, 255, 1, 2, 3});
  struct Case {
    const char* name;
    std::string bytes, data;
  };
  const Case cases[] = {
      {"top left", Tga(2, 2, 2, 24, 0x20, bgr), rgb},
      {"bottom left", Tga(2, 2, 2, 24, 0, bgr), rgb.substr(6) + rgb.substr(0, 6)},
      {"top right", Tga(2, 2, 2, 24, 0x30, bgr),
       rgb.substr(3, 3) + rgb.substr(0, 3) + rgb.substr(9) + rgb.substr(6, 3)},
      {"32 bits", Tga(2, 1, 1, 32, 0x28, Codes({3, 2, 1, 99})), Codes({1, 2, 3})},
      {"15 bits", Tga(2, 2, 1, 15, 0x20, Little(0x7C00, 2) + Little(0x0010, 2)),
       Codes({255, 0, 0, 0, 0, 132})},
      {"gray", Tga(3, 2, 1, 8, 0x20, "ab"), "ab"},
      {"run-length gray", Tga(11, 3, 2, 8, 0x20, Codes({0x83, 'a', 1, 'b', 'c'})), "aaaabc"},
      {"run-length", Tga(10, 2, 2, 24, 0x20, Codes({0x82, 3, 2, 1, 0, 6, 5, 4})),
       Codes({1, 2, 3, 1, 2, 3, 1, 2, 3, 4, 5, 6})},
      {"indexed", Tga(1, 3, 1, 8, 0x20, Codes({5, 6, 5}), Codes({0, 0, 255, 0, 255, 0}), 24, 5),
       Codes({5, 6, 5})},
  };
  for (const Case& c : cases) EXPECT_EQ(ReadTga(c.bytes).data, c.data) << c.name;

  const Picture indexed = ReadTga(cases[8].bytes);
  EXPECT_EQ(indexed.palette.size(), 768U);
  EXPECT_EQ(indexed.palette.substr(15, 6), Codes({255, 0, 0, 0, 255, 0}));
  EXPECT_EQ(ReadTga(cases[5].bytes).colourSpace, "DeviceGray");
  EXPECT_EQ(ReadTga(Tga(2, 1, 1, 24, 0, "abc", "palette not wanted", 24)).data, "cba");
}

TEST(Tga, Refused) {
  struct Case {
    std::string bytes, reason;
  };
  const Case cases[] = {
      {Tga(0, 1, 1, 8, 0, "a"), "not supported"},
      {Tga(2, 1, 1, 8, 0, "a"), "not supported"},
      {Tga(1, 1, 1, 16, 0, "ab", "abc"), "not supported"},
      {Tga(1, 1, 1, 8, 0, "a"), "no palette"},
      {Tga(1, 1, 1, 8, 0, "a", "a", 8), "palette is damaged"},
      {Tga(3, 0, 1, 8, 0, "a"), "no pixels"},
      {Tga(3, 65535, 65535, 8, 0, "a"), "too large"},
      {Tga(3, 9000, 9000, 8, 0, "a"), "breaks off"},
      {Tga(11, 3, 1, 8, 0, Codes({0x80, 'a'})), "breaks off"},
  };
  for (const Case& c : cases) ExpectError(ReadTga, c.bytes, c.reason);
}

TEST(Pictures, MaskOfAColour) {
  Picture indexed;
  indexed.palette = kFour + kFour.substr(9);
  EXPECT_EQ(MaskOfColour(indexed, 0x0000FF), "1 1");  // red stands in the low byte
  EXPECT_EQ(MaskOfColour(indexed, 0xFF0000), "3 4");
  EXPECT_EQ(MaskOfColour(indexed, 0x123456), "");

  Picture plain;
  EXPECT_EQ(MaskOfColour(plain, 0x030201), "1 1 2 2 3 3");
  plain.bits = 16;
  EXPECT_EQ(MaskOfColour(plain, 0xFF0001), "257 257 0 0 65535 65535");

  Picture gray;
  gray.colourSpace = "DeviceGray";
  EXPECT_EQ(MaskOfColour(gray, 0x333333), "51 51");
  EXPECT_EQ(MaskOfColour(gray, 0x333334), "");
  gray.bits = 4;
  EXPECT_EQ(MaskOfColour(gray, 0x333333), "3 3");
  EXPECT_EQ(MaskOfColour(gray, 0x343434), "");  // between two samples

  Picture cmyk;
  cmyk.colourSpace = "DeviceCMYK";
  EXPECT_EQ(MaskOfColour(cmyk, 0x0000FF), "0 0 255 255 255 255 0 0");
  cmyk.decode = "[1 0 1 0 1 0 1 0]";
  EXPECT_EQ(MaskOfColour(cmyk, 0x000000), "255 255 255 255 255 255 0 0");
}

// Damage of any kind ends in a picture or an Error; plain rows are never short.
TEST(Pictures, DamagedFiles) {
  struct Case {
    const char* name;
    Reader read;
    std::string bytes;
    bool brokenIsError;  // every shorter beginning is one
  };
  const std::string six = Codes({0, 1, 2, 3, 3, 3});
  const Case cases[] = {
      {"png", ReadPng,
       PngHeader(2, 2, 8, kPngIndexed) + PngChunk("PLTE", kFour) + PngChunk("tRNS", Codes({0})) +
           PngEnd(std::string(6, '\0')),
       true},
      {"jpeg", ReadJpeg, Jpeg(4, AdobeMark()), true},
      {"bmp", ReadBmp, Bmp(3, 2, 8, 0, kBmpTwo, Codes({0, 0, 1, 0, 1, 0, 1})), true},
      {"rle", ReadBmp, Bmp(3, 2, 4, 2, kBmpTwo, Codes({0, 3, 0, 16, 0, 0, 3, 16, 0, 1})), true},
      {"gif", ReadGif, Gif(3, 2, 2, kFour, "", six, 0x40, GifTransparency(1)), false},
      {"tga", ReadTga, Tga(9, 3, 2, 8, 0, Codes({0x82, 1, 2, 0, 1, 0}), kFour), true},
  };
  std::mt19937 random(11);
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    ASSERT_NO_THROW(c.read(c.bytes));
    for (std::size_t size = 0; size < c.bytes.size() && c.brokenIsError; ++size) {
      EXPECT_THROW(c.read(c.bytes.substr(0, size)), Error) << size;
    }
    for (int i = 0; i < 1000; ++i) {
      std::string damaged = c.bytes;
      for (unsigned hits = random() % 4 + 1; hits > 0; --hits) {
        damaged[random() % damaged.size()] = static_cast<char>(random());
      }
      try {
        const Picture picture = c.read(damaged);
        if (!picture.filter.empty()) continue;
        const std::size_t samples =
            picture.palette.empty() && picture.colourSpace == "DeviceRGB" ? 3 : 1;
        EXPECT_EQ(picture.data.size(), samples * static_cast<std::size_t>(picture.width) *
                                           static_cast<std::size_t>(picture.height));
      } catch (const Error&) {
      }
    }
  }
}

}  // namespace
}  // namespace lm::pdf
