#include "core/clsRC4.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <numeric>
#include <stdexcept>

namespace lm {
namespace {

constexpr std::string_view kAlphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

// The two characters of each twelve bits.
constexpr auto kPairs = [] {
  std::array<std::array<char, 2>, 4096> pairs{};
  for (std::size_t bits = 0; bits < pairs.size(); ++bits)
    pairs[bits] = {kAlphabet[bits >> 6], kAlphabet[bits & 63]};
  return pairs;
}();

constexpr std::uint32_t kNotInAlphabet = 0xFF000000;

// What a character gives at each of the four places of a group, as bits of its 24.
constexpr auto kPlaces = [] {
  std::array<std::array<std::uint32_t, 256>, 4> places{};
  for (unsigned place = 0; place < 4; ++place) {
    places[place].fill(kNotInAlphabet);
    for (unsigned value = 0; value < 64; ++value)
      places[place][static_cast<unsigned char>(kAlphabet[value])] = value << (18 - 6 * place);
  }
  return places;
}();

void PutPair(char* out, std::uint64_t bits) { std::memcpy(out, kPairs[bits & 4095].data(), 2); }

std::uint64_t LoadBigEndian(const unsigned char* bytes) {
  std::uint64_t word;
  std::memcpy(&word, bytes, sizeof word);
  if constexpr (std::endian::native == std::endian::little) {
    word = word << 32 | word >> 32;
    word = (word & 0x0000FFFF0000FFFF) << 16 | (word >> 16 & 0x0000FFFF0000FFFF);
    word = (word & 0x00FF00FF00FF00FF) << 8 | (word >> 8 & 0x00FF00FF00FF00FF);
  }
  return word;
}

void AppendEncoded(const unsigned char* bytes, std::size_t count, std::string& text) {
  const std::size_t begin = text.size();
  text.resize(begin + (count + 2) / 3 * 4, '=');
  char* out = text.data() + begin;
  for (; count >= 8; count -= 6, bytes += 6, out += 8) {  // six bytes of the eight read
    const std::uint64_t word = LoadBigEndian(bytes);
    PutPair(out, word >> 52);
    PutPair(out + 2, word >> 40);
    PutPair(out + 4, word >> 28);
    PutPair(out + 6, word >> 16);
  }
  for (; count >= 3; count -= 3, bytes += 3, out += 4) {
    const auto group = static_cast<std::uint32_t>(bytes[0] << 16 | bytes[1] << 8 | bytes[2]);
    PutPair(out, group >> 12);
    PutPair(out + 2, group);
  }
  if (count > 0) {
    const int second = count == 2 ? bytes[1] : 0;
    const auto group = static_cast<std::uint32_t>(bytes[0] << 16 | second << 8);
    PutPair(out, group >> 12);
    if (count == 2) out[2] = kPairs[group & 4095][0];
  }
}

// The text without line breaks and padding.
std::string Squeezed(std::string_view text) {
  std::string kept;
  kept.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '=') continue;
    if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n')
      ++i;
    else
      kept += text[i];
  }
  return kept;
}

// The last group, of two or three characters. False when it is no such group.
template <class Bytes>
bool DecodeRest(std::string_view rest, Bytes& bytes, std::size_t at) {
  std::uint32_t group = 0;
  for (std::size_t place = 0; place < rest.size(); ++place)
    group |= kPlaces[place][static_cast<unsigned char>(rest[place])];
  const std::uint32_t leftOver = rest.size() == 2 ? 0xFFFF : 0xFF;
  if (rest.size() == 1 || group & kNotInAlphabet || group & leftOver) return false;
  bytes[at] = static_cast<typename Bytes::value_type>(group >> 16);
  if (rest.size() == 3) bytes[at + 1] = static_cast<typename Bytes::value_type>(group >> 8 & 255);
  return true;
}

// False when the text holds a sign outside the alphabet, or is of no length that a text encodes to.
template <class Bytes>
bool DecodeUnbroken(std::string_view text, Bytes& bytes) {
  bytes.resize(text.size() / 4 * 3 + (text.size() % 4 == 0 ? 0 : text.size() % 4 - 1));
  const auto* in = reinterpret_cast<const unsigned char*>(text.data());
  const std::size_t groups = text.size() / 4;
  auto* out = bytes.data();
  std::uint32_t seen = 0;
  for (std::size_t i = 0; i < groups; ++i, in += 4, out += 3) {
    const std::uint32_t group =
        kPlaces[0][in[0]] | kPlaces[1][in[1]] | kPlaces[2][in[2]] | kPlaces[3][in[3]];
    seen |= group;
    using Byte = typename Bytes::value_type;
    out[0] = static_cast<Byte>(group >> 16 & 255);
    out[1] = static_cast<Byte>(group >> 8 & 255);
    out[2] = static_cast<Byte>(group & 255);
  }
  if (seen & kNotInAlphabet) return false;
  return text.size() % 4 == 0 || DecodeRest(text.substr(groups * 4), bytes, groups * 3);
}

// Broken lines are rare: only a text that does not decode as it stands is looked through for them.
template <class Bytes>
Bytes Decode(std::string_view text) {
  while (text.ends_with('=')) text.remove_suffix(1);
  Bytes bytes;
  if (!DecodeUnbroken(text, bytes) && !DecodeUnbroken(Squeezed(text), bytes))
    throw std::invalid_argument("not Base64");
  return bytes;
}

std::span<unsigned char> BytesOf(std::string& text) {
  return {reinterpret_cast<unsigned char*>(text.data()), text.size()};
}

}  // namespace

std::string clsRC4::Decode64(std::string_view text) const { return Decode<std::string>(text); }

std::vector<unsigned char> clsRC4::DecodeArray64(std::string_view text) const {
  return Decode<std::vector<unsigned char>>(text);
}

std::string clsRC4::Encode64(std::string_view text) const {
  std::string encoded;
  AppendEncode64(text, encoded);
  return encoded;
}

void clsRC4::AppendEncode64(std::string_view text, std::string& encoded) const {
  AppendEncoded(reinterpret_cast<const unsigned char*>(text.data()), text.size(), encoded);
}

std::string clsRC4::EncodeArray64(std::span<const unsigned char> bytes) const {
  std::string encoded;
  AppendEncoded(bytes.data(), bytes.size(), encoded);
  return encoded;
}

void clsRC4::DecryptByte(std::span<unsigned char> bytes, std::string_view key) {
  EncryptByte(bytes, key);
}

std::string clsRC4::EncryptString(std::string_view text, std::string_view key,
                                  bool outputInBase64) {
  std::string ciphered(text);
  EncryptByte(BytesOf(ciphered), key);
  return outputInBase64 ? Encode64(ciphered) : ciphered;
}

std::string clsRC4::DecryptString(std::string_view text, std::string_view key, bool inputInBase64) {
  std::string clear = inputInBase64 ? Decode64(text) : std::string(text);
  DecryptByte(BytesOf(clear), key);
  return clear;
}

void clsRC4::EncryptByte(std::span<unsigned char> bytes, std::string_view newKey) {
  if (!newKey.empty()) key(newKey);
  if (key_.empty()) throw std::invalid_argument("no key");

  auto s = scheduled_;  // a copy: the keystream starts afresh
  std::uint32_t i = 1;
  std::uint32_t j = 0;
  std::uint8_t x = s[i];
  // Ciphers one byte. The next x is read before the swap is written, so that the reading need not
  // wait for it; where the swap would have changed it, x is what it becomes.
  const auto cipher = [&](unsigned char& byte) {
    j = (j + x) & 255;
    const std::uint8_t y = s[j];
    const std::uint32_t nextI = (i + 1) & 255;
    const std::uint8_t ahead = s[nextI];
    s[j] = x;
    s[i] = y;
    byte ^= s[(x + y) & 255];
    x = j == nextI ? x : ahead;
    i = nextI;
  };
  unsigned char* at = bytes.data();
  std::size_t left = bytes.size();
  for (; left >= 8; left -= 8, at += 8) {
    cipher(at[0]);
    cipher(at[1]);
    cipher(at[2]);
    cipher(at[3]);
    cipher(at[4]);
    cipher(at[5]);
    cipher(at[6]);
    cipher(at[7]);
  }
  for (; left > 0; --left, ++at) cipher(*at);
}

void clsRC4::key(std::string_view key) {
  if (key == key_) return;
  key_ = key;
  std::iota(scheduled_.begin(), scheduled_.end(), std::uint8_t{0});
  std::uint8_t j = 0;
  for (std::size_t i = 0; i < scheduled_.size(); ++i) {
    j = static_cast<std::uint8_t>(j + scheduled_[i] +
                                  static_cast<std::uint8_t>(key_[i % key_.size()]));
    std::swap(scheduled_[i], scheduled_[j]);
  }
}

}  // namespace lm
