// The digest that proves that a file arrived whole. RFC 1321 but for the padding of the last
// block: see Final in the source. Stored files carry these values, so a standard MD5 cannot take
// its place.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace lm {

class clsMD5 {
 public:
  // 32 upper-case hexadecimal digits of the text's Windows-1252 bytes. Throws std::overflow_error
  // when the length in bits does not fit a signed 32-bit number (256 MiB and more).
  std::string DigestStrToHexStr(std::string_view text);

  void MD5Init();
  void MD5Update(const unsigned char* bytes, std::ptrdiff_t count);
  void MD5Final();
  std::string GetValues() const;

 private:
  void Transform(const unsigned char* block);

  std::array<std::uint32_t, 4> state_{};
  std::int32_t totalBytes_ = 0;
  std::array<unsigned char, 64> buffer_{};
};

}  // namespace lm
