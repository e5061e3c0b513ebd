// Bytes of a picture file: every access is checked, what lies outside throws Error.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "pdf/error.h"

namespace lm::pdf {

class Bytes {
 public:
  explicit Bytes(std::string_view bytes) : bytes_(bytes) {}

  std::size_t Size() const { return bytes_.size(); }
  bool StartsWith(std::string_view text) const { return bytes_.substr(0, text.size()) == text; }

  std::string_view Part(std::size_t at, std::size_t count) const {
    if (at > bytes_.size() || count > bytes_.size() - at) {
      throw Error("The picture breaks off before its end");
    }
    return bytes_.substr(at, count);
  }
  std::string_view From(std::size_t at) const {
    return Part(at, at <= bytes_.size() ? bytes_.size() - at : 0);
  }

  std::uint8_t Byte(std::size_t at) const { return static_cast<std::uint8_t>(Part(at, 1)[0]); }
  std::uint32_t Little(std::size_t at, std::size_t count) const {
    const std::string_view part = Part(at, count);
    std::uint32_t value = 0;
    for (std::size_t i = count; i-- > 0;) value = value << 8 | static_cast<std::uint8_t>(part[i]);
    return value;
  }
  std::uint32_t Big(std::size_t at, std::size_t count) const {
    std::uint32_t value = 0;
    for (const char c : Part(at, count)) value = value << 8 | static_cast<std::uint8_t>(c);
    return value;
  }
  std::uint16_t Little16(std::size_t at) const { return static_cast<std::uint16_t>(Little(at, 2)); }
  std::uint32_t Little32(std::size_t at) const { return Little(at, 4); }
  std::uint16_t Big16(std::size_t at) const { return static_cast<std::uint16_t>(Big(at, 2)); }
  std::uint32_t Big32(std::size_t at) const { return Big(at, 4); }
  std::int16_t Signed16(std::size_t at) const { return static_cast<std::int16_t>(Little16(at)); }

 private:
  std::string_view bytes_;
};

}  // namespace lm::pdf
