#include "core/clsMD5.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>
#include <stdexcept>

namespace lm {
namespace {

using Word = std::uint32_t;

constexpr std::int32_t kBlock = 64;
constexpr std::int32_t kLengthAt = 56;  // where the length stands in the last block

constexpr Word LongLeftRotate(Word value, int bits) { return std::rotl(value, bits); }

Word LoadWord(const unsigned char* bytes) {
  Word word;
  std::memcpy(&word, bytes, sizeof word);
  if constexpr (std::endian::native == std::endian::big)
    word = word >> 24 | (word >> 8 & 0xFF00) | (word << 8 & 0xFF0000) | word << 24;
  return word;
}

// The four mixing functions. The two halves of the second never share a bit, so they are added
// apart: the half that needs the newest word comes last and the rest is ready before it.
struct F {
  static constexpr Word Mix(Word sum, Word x, Word y, Word z) { return sum + (((y ^ z) & x) ^ z); }
};
struct G {
  static constexpr Word Mix(Word sum, Word x, Word y, Word z) { return sum + (~z & y) + (x & z); }
};
struct H {
  static constexpr Word Mix(Word sum, Word x, Word y, Word z) { return sum + (x ^ (y ^ z)); }
};
struct I {
  static constexpr Word Mix(Word sum, Word x, Word y, Word z) { return sum + (y ^ (x | ~z)); }
};

template <class Function>
inline void Step(Word& a, Word b, Word c, Word d, Word wordAndConstant, int bits) {
  a = LongLeftRotate(Function::Mix(a + wordAndConstant, b, c, d), bits) + b;
}

// Four steps, after which the words stand in their first order again.
template <class Function, int s1, int s2, int s3, int s4>
inline void Steps(std::array<Word, 4>& s, Word m1, Word m2, Word m3, Word m4) {
  auto& [a, b, c, d] = s;
  Step<Function>(a, b, c, d, m1, s1);
  Step<Function>(d, a, b, c, m2, s2);
  Step<Function>(c, d, a, b, m3, s3);
  Step<Function>(b, c, d, a, m4, s4);
}

}  // namespace

std::string clsMD5::DigestStrToHexStr(std::string_view text) {
  if (text.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max() / 8))
    throw std::overflow_error("text too long for its digest");
  MD5Init();
  MD5Update(reinterpret_cast<const unsigned char*>(text.data()), std::ssize(text));
  MD5Final();
  return GetValues();
}

void clsMD5::MD5Init() {
  state_ = {0x67452301, 0xEFCDAB89, 0x98BADCFE, 0x10325476};
  totalBytes_ = 0;
  buffer_.fill(0);
}

void clsMD5::MD5Update(const unsigned char* bytes, std::ptrdiff_t count) {
  if (count > std::numeric_limits<std::int32_t>::max() - totalBytes_)
    throw std::overflow_error("text too long for its digest");
  auto index = static_cast<std::ptrdiff_t>(totalBytes_ % kBlock);
  totalBytes_ += static_cast<std::int32_t>(count);
  if (count <= 0) return;  // a negative count moves the total and copies nothing

  if (index > 0) {
    const auto part = std::min(count, kBlock - index);
    std::copy_n(bytes, part, buffer_.begin() + index);
    bytes += part;
    count -= part;
    if (index + part < kBlock) return;
    Transform(buffer_.data());
  }
  for (; count >= kBlock; bytes += kBlock, count -= kBlock) Transform(bytes);
  std::copy_n(bytes, count, buffer_.begin());
}

// RFC 1321 pads with 0x80 and zeros up to position 56. This digest departs from it where the text
// ends at or behind that position: at 56 there is no padding at all, and behind it the count is
// taken from the whole length, which for a text of more than 120 bytes is negative: the total
// becomes 120, and the length is written from position 56 over the end of the text.
void clsMD5::MD5Final() {
  if (totalBytes_ > std::numeric_limits<std::int32_t>::max() / 8)
    throw std::overflow_error("text too long for its digest");
  const auto bits = static_cast<Word>(totalBytes_ * 8);
  std::array<unsigned char, 8> length{};  // the upper four bytes stay zero
  for (unsigned i = 0; i < 4; ++i) length[i] = static_cast<unsigned char>(bits >> 8 * i);

  constexpr std::array<unsigned char, kBlock> kPadding{0x80};
  const std::int32_t index = totalBytes_ % kBlock;
  MD5Update(kPadding.data(),
            index <= kLengthAt ? kLengthAt - index : kBlock + kLengthAt - totalBytes_);
  MD5Update(length.data(), std::ssize(length));
}

std::string clsMD5::GetValues() const {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text;
  text.reserve(32);
  for (const Word word : state_) {
    for (int shift = 0; shift < 32; shift += 8) {
      text += kDigits[word >> (shift + 4) & 15];
      text += kDigits[word >> shift & 15];
    }
  }
  return text;
}

void clsMD5::Transform(const unsigned char* block) {
  std::array<Word, 16> m;
  for (std::size_t i = 0; i < m.size(); ++i) m[i] = LoadWord(block + 4 * i);
  std::array<Word, 4> s = state_;

  Steps<F, 7, 12, 17, 22>(s, m[0] + 0xD76AA478, m[1] + 0xE8C7B756, m[2] + 0x242070DB,
                          m[3] + 0xC1BDCEEE);
  Steps<F, 7, 12, 17, 22>(s, m[4] + 0xF57C0FAF, m[5] + 0x4787C62A, m[6] + 0xA8304613,
                          m[7] + 0xFD469501);
  Steps<F, 7, 12, 17, 22>(s, m[8] + 0x698098D8, m[9] + 0x8B44F7AF, m[10] + 0xFFFF5BB1,
                          m[11] + 0x895CD7BE);
  Steps<F, 7, 12, 17, 22>(s, m[12] + 0x6B901122, m[13] + 0xFD987193, m[14] + 0xA679438E,
                          m[15] + 0x49B40821);

  Steps<G, 5, 9, 14, 20>(s, m[1] + 0xF61E2562, m[6] + 0xC040B340, m[11] + 0x265E5A51,
                         m[0] + 0xE9B6C7AA);
  Steps<G, 5, 9, 14, 20>(s, m[5] + 0xD62F105D, m[10] + 0x02441453, m[15] + 0xD8A1E681,
                         m[4] + 0xE7D3FBC8);
  Steps<G, 5, 9, 14, 20>(s, m[9] + 0x21E1CDE6, m[14] + 0xC33707D6, m[3] + 0xF4D50D87,
                         m[8] + 0x455A14ED);
  Steps<G, 5, 9, 14, 20>(s, m[13] + 0xA9E3E905, m[2] + 0xFCEFA3F8, m[7] + 0x676F02D9,
                         m[12] + 0x8D2A4C8A);

  Steps<H, 4, 11, 16, 23>(s, m[5] + 0xFFFA3942, m[8] + 0x8771F681, m[11] + 0x6D9D6122,
                          m[14] + 0xFDE5380C);
  Steps<H, 4, 11, 16, 23>(s, m[1] + 0xA4BEEA44, m[4] + 0x4BDECFA9, m[7] + 0xF6BB4B60,
                          m[10] + 0xBEBFBC70);
  Steps<H, 4, 11, 16, 23>(s, m[13] + 0x289B7EC6, m[0] + 0xEAA127FA, m[3] + 0xD4EF3085,
                          m[6] + 0x04881D05);
  Steps<H, 4, 11, 16, 23>(s, m[9] + 0xD9D4D039, m[12] + 0xE6DB99E5, m[15] + 0x1FA27CF8,
                          m[2] + 0xC4AC5665);

  Steps<I, 6, 10, 15, 21>(s, m[0] + 0xF4292244, m[7] + 0x432AFF97, m[14] + 0xAB9423A7,
                          m[5] + 0xFC93A039);
  Steps<I, 6, 10, 15, 21>(s, m[12] + 0x655B59C3, m[3] + 0x8F0CCC92, m[10] + 0xFFEFF47D,
                          m[1] + 0x85845DD1);
  Steps<I, 6, 10, 15, 21>(s, m[8] + 0x6FA87E4F, m[15] + 0xFE2CE6E0, m[6] + 0xA3014314,
                          m[13] + 0x4E0811A1);
  Steps<I, 6, 10, 15, 21>(s, m[4] + 0xF7537E82, m[11] + 0xBD3AF235, m[2] + 0x2AD7D2BB,
                          m[9] + 0xEB86D391);

  for (std::size_t i = 0; i < s.size(); ++i) state_[i] += s[i];
}

}  // namespace lm
