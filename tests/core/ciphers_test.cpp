#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

#include "core/clsMD5.h"
#include "core/clsRC4.h"

namespace lm {
namespace {

// A text whose bytes take every value but a few.
std::string Patterned(std::size_t size) {
  std::string text(size, '\0');
  for (std::size_t i = 0; i < size; ++i) text[i] = static_cast<char>((i * 7 + size) % 251);
  return text;
}

std::string Hex(std::string_view text) {
  std::string hex;
  for (const char c : text) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    hex += kDigits[static_cast<unsigned char>(c) >> 4];
    hex += kDigits[static_cast<unsigned char>(c) & 15];
  }
  return hex;
}

TEST(Digest, StandardTexts) {
  const std::pair<std::string, std::string> cases[] = {
      {"", "D41D8CD98F00B204E9800998ECF8427E"},
      {"abc", "900150983CD24FB0D6963F7D28E17F72"},
      {"message digest", "F96B697D7CB7938D525A2F31AAF161D0"},
      {"abcdefghijklmnopqrstuvwxyz", "C3FCD3D76192E4007DFB496CCA67E13B"},
  };
  for (const auto& [text, digest] : cases)
    EXPECT_EQ(clsMD5().DigestStrToHexStr(text), digest) << text;
}

// From a second writing of the steps in another language, which was compared with a standard MD5.
TEST(Digest, DepartsAtTheEndOfABlockOnly) {
  const struct {
    std::size_t length;
    std::string digest;
  } cases[] = {
      {55, "C4F7A596FD044675728399E605766107"},    // standard
      {56, "76C793A16CE4A20C5F1D72944DCCE8BB"},    // departs
      {57, "FC30A959910237FCFAE1C52BB2E674B5"},    // standard: the total is below 120
      {63, "87D902F847F4E841F5FF6061BD6D6E33"},    // standard
      {64, "D53D88B9C478672E5FB200324158F02E"},    // standard
      {119, "5A74003039C1D72A88148184AB24559A"},   // standard
      {120, "32CB338F8008E1A569F65078AD6B2243"},   // departs
      {121, "21A6FFE75E78A565F0343F75CF690D18"},   // departs
      {127, "816102BE95D55EAE1E1871EF7E9510FD"},   // departs
      {128, "921F0558BC42B9779A5F0B62C383F1CB"},   // standard
      {177, "6DEB90EAF998D4A6B9B8FA927CCDB884"},   // standard
      {184, "484BA4289C3A980E50357A48A36BF55B"},   // departs
      {191, "E44C9CFF94A83A7C800040388C007381"},   // departs
      {192, "41195F7B922526FDB21EB07234D85F8F"},   // standard
      {249, "388A90E8D64F378916283269CAD8B5FE"},   // departs
      {1000, "05057E6E220D85A40445833AB84FA26B"},  // standard
  };
  for (const auto& [length, digest] : cases)
    EXPECT_EQ(clsMD5().DigestStrToHexStr(Patterned(length)), digest) << length;
}

TEST(Digest, FedInPiecesItIsTheSame) {
  for (const std::size_t length : {1U, 63U, 64U, 65U, 121U, 130U, 191U, 500U}) {
    const std::string text = Patterned(length);
    for (const std::size_t piece : {1U, 7U, 63U, 64U, 65U, 200U}) {
      clsMD5 digest;
      digest.MD5Init();
      for (std::size_t at = 0; at < length; at += piece)
        digest.MD5Update(reinterpret_cast<const unsigned char*>(text.data()) + at,
                         static_cast<std::ptrdiff_t>(std::min(piece, length - at)));
      digest.MD5Final();
      EXPECT_EQ(digest.GetValues(), clsMD5().DigestStrToHexStr(text)) << length << " by " << piece;
    }
  }
}

TEST(Digest, ALengthInBitsBeyondThirtyOneBitsIsAnOverflow) {
  const char byte = 'x';  // the length alone is looked at
  EXPECT_THROW(clsMD5().DigestStrToHexStr({&byte, std::size_t{1} << 28}), std::overflow_error);
  clsMD5 digest;
  digest.MD5Init();
  const auto* bytes = reinterpret_cast<const unsigned char*>(&byte);
  digest.MD5Update(bytes, 1);
  EXPECT_THROW(digest.MD5Update(bytes, std::numeric_limits<std::int32_t>::max()),
               std::overflow_error);
}

TEST(Rc4, PublishedVectors) {
  const struct {
    std::string_view key, clear, ciphered;
  } cases[] = {
      {"Key", "Plaintext", "bbf316e8d940af0ad3"},
      {"Wiki", "pedia", "1021bf0420"},
      {"Secret", "Attack at dawn", "45a01f645fc35b383552544b9bf5"},
  };
  for (const auto& [key, clear, ciphered] : cases)
    EXPECT_EQ(Hex(clsRC4().EncryptString(clear, key)), ciphered) << key;

  const std::string keystream =
      clsRC4().EncryptString(std::string(4112, '\0'), "\x01\x02\x03\x04\x05");
  EXPECT_EQ(Hex(keystream.substr(0, 16)), "b2396305f03dc027ccc3524a0a1118a8");
  EXPECT_EQ(Hex(keystream.substr(4096)), "ff25b58995996707e51fbdf08b34d875");
}

TEST(Rc4, EachCallStartsAfreshAndUndoesItself) {
  clsRC4 cipher;
  cipher.key("first");
  const std::string long40 = cipher.EncryptString(Patterned(40));
  for (std::size_t length = 0; length <= 40; ++length) {
    const std::string text = Patterned(40).substr(0, length);
    EXPECT_EQ(cipher.EncryptString(text), long40.substr(0, length));
    EXPECT_EQ(cipher.DecryptString(cipher.EncryptString(text)), text);
  }
  EXPECT_NE(cipher.EncryptString("text", "second"), cipher.EncryptString("text", "first"));
  cipher.EncryptString("text", "second");
  EXPECT_EQ(cipher.EncryptString("text", ""), cipher.EncryptString("text", "second"))
      << "no key keeps the last";
  EXPECT_THROW(clsRC4().EncryptString("text"), std::invalid_argument);
}

TEST(Base64, StandardTextsAndEveryLength) {
  const clsRC4 cipher;
  const std::pair<std::string, std::string> cases[] = {
      {"", ""},
      {"f", "Zg=="},
      {"fo", "Zm8="},
      {"foo", "Zm9v"},
      {"foob", "Zm9vYg=="},
      {"fooba", "Zm9vYmE="},
      {"foobar", "Zm9vYmFy"},
      {"\xFB\xEF\xFF", "++//"},
  };
  for (const auto& [text, encoded] : cases) {
    EXPECT_EQ(cipher.Encode64(text), encoded);
    EXPECT_EQ(cipher.Decode64(encoded), text);
  }
  for (std::size_t length = 0; length < 70; ++length) {
    const std::string text = Patterned(length * 37).substr(0, length);
    EXPECT_EQ(cipher.Decode64(cipher.Encode64(text)), text) << length;
  }
  const std::vector<unsigned char> bytes{0, 255, 128, 7};
  EXPECT_EQ(cipher.DecodeArray64(cipher.EncodeArray64(bytes)), bytes);
}

TEST(Base64, ReadsBrokenLinesAndRefusesTheRest) {
  const clsRC4 cipher;
  for (const std::string_view text :
       {"Zm9v\r\nYmFy", "Zm9vYmFy\r\n", "\r\nZ\r\nm9vYmFy", "Zm9v=YmFy====", "Zm9vY=mFy"})
    EXPECT_EQ(cipher.Decode64(text), "foobar") << text;
  // A lone CR or LF, a sign outside the alphabet at each place, one character alone, bits left
  // over.
  for (const std::string_view text :
       {"Zm9v\nYmFy", "Zm9v\rYmFy", "Zm9vYmFy\r", "!m9v", "Z!9v", "Zm!v", "Zm9!", "Zm9vYmF\xFF",
        "Zm 9v", "Z", "Zm9vY", "Zh", "Zm9", "Zm9vZ!", "Zm9vZm!"})
    EXPECT_THROW(cipher.Decode64(text), std::invalid_argument) << text;
  const std::string broken = "Zm9v\r\nYmFy";
  EXPECT_EQ(clsRC4().DecryptString(broken, "key", true),
            clsRC4().DecryptString("Zm9vYmFy", "key", true));
}

}  // namespace
}  // namespace lm
