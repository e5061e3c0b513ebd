#include "pdf/filters.h"

#include <libdeflate.h>
#include <zlib.h>

#include <algorithm>
#include <array>
#include <cstdint>

#include "pdf/error.h"
#include "pdf/notation.h"
#include "pdf/reader/tokens.h"

namespace lm::pdf {
namespace {

constexpr unsigned char kRunLengthEnd = 128;
constexpr std::size_t kLongestRun = 128;

// Grows `out` within the cap, so that a few bytes of input cannot fill the memory.
void CheckCap(std::size_t size, std::size_t more, std::size_t cap) {
  if (more > cap || size > cap - more) throw Error("the decoded stream is too large");
}

std::size_t RunAt(std::string_view bytes, std::size_t at) {
  const std::size_t end = std::min(bytes.size(), at + kLongestRun);
  std::size_t last = at + 1;
  while (last < end && bytes[last] == bytes[at]) ++last;
  return last - at;
}

}  // namespace

std::string EncodeRunLength(std::string_view bytes) {
  std::string out;
  std::size_t literal = 0;  // where the bytes begin that are not written yet
  const auto flush = [&](std::size_t end) {
    while (literal < end) {
      const std::size_t length = std::min(end - literal, kLongestRun);
      out += static_cast<char>(length - 1);
      out.append(bytes.substr(literal, length));
      literal += length;
    }
  };
  for (std::size_t at = 0; at < bytes.size();) {
    const std::size_t run = RunAt(bytes, at);
    if (run > 2) {  // two equal bytes within a literal cost no more than a run would
      flush(at);
      out += static_cast<char>(257 - run);
      out += bytes[at];
      literal = at + run;
    }
    at += run;
  }
  flush(bytes.size());
  out += static_cast<char>(kRunLengthEnd);
  return out;
}

std::string DecodeRunLength(std::string_view bytes, std::size_t cap) {
  std::string out;
  for (std::size_t at = 0; at < bytes.size();) {
    const std::size_t code = static_cast<unsigned char>(bytes[at++]);
    if (code == kRunLengthEnd) break;
    const std::size_t length = code < kRunLengthEnd ? code + 1 : 257 - code;
    CheckCap(out.size(), length, cap);
    if (code < kRunLengthEnd) {
      out.append(bytes.substr(at, length));
      at += std::min(length, bytes.size() - at);
    } else if (at < bytes.size()) {
      out.append(length, bytes[at++]);
    }
  }
  return out;
}

void FlateEncoder::Freed::operator()(libdeflate_compressor* compressor) const {
  libdeflate_free_compressor(compressor);
}

std::string FlateEncoder::Encode(std::string_view bytes, int level) {
  if (!compressor_ || level != level_) {
    compressor_.reset(libdeflate_alloc_compressor(std::clamp(level, 0, kHighestLevel)));
    if (!compressor_) throw Error("not enough memory to deflate");
    level_ = level;
  }
  std::string out(libdeflate_zlib_compress_bound(compressor_.get(), bytes.size()), '\0');
  out.resize(libdeflate_zlib_compress(compressor_.get(), bytes.data(), bytes.size(), out.data(),
                                      out.size()));
  return out;
}

std::string DecodeFlate(std::string_view bytes, std::size_t cap) {
  z_stream stream{};
  if (inflateInit(&stream) != Z_OK) throw Error("not enough memory to inflate");
  struct Ender {
    z_stream& stream;
    ~Ender() { inflateEnd(&stream); }
  } const ender{stream};

  std::string out;
  std::array<char, 32768> buffer;
  std::size_t given = 0;
  int result = Z_OK;
  while (result == Z_OK) {
    if (stream.avail_in == 0) {  // in portions, since zlib counts in 32 bits
      const std::size_t portion = std::min<std::size_t>(bytes.size() - given, 1u << 30);
      stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data() + given));
      stream.avail_in = static_cast<uInt>(portion);
      given += portion;
    }
    stream.next_out = reinterpret_cast<Bytef*>(buffer.data());
    stream.avail_out = static_cast<uInt>(buffer.size());
    result = inflate(&stream, Z_NO_FLUSH);
    const std::size_t produced = buffer.size() - stream.avail_out;
    CheckCap(out.size(), produced, cap);
    out.append(buffer.data(), produced);
  }
  if (result == Z_MEM_ERROR) throw Error("not enough memory to inflate");
  if (result != Z_STREAM_END && out.empty()) throw Error("the deflated data is damaged");
  return out;
}

std::string EncodeAscii85(std::string_view bytes) {
  std::string out;
  out.reserve(bytes.size() / 4 * 5 + 8);
  for (std::size_t at = 0; at < bytes.size(); at += 4) {
    const std::size_t count = std::min<std::size_t>(4, bytes.size() - at);
    std::uint32_t group = 0;
    for (std::size_t i = 0; i < 4; ++i) {
      group = group << 8 | (i < count ? static_cast<unsigned char>(bytes[at + i]) : 0u);
    }
    if (group == 0 && count == 4) {
      out += 'z';
      continue;
    }
    std::array<char, 5> digits;
    for (std::size_t i = 5; i-- > 0; group /= 85) digits[i] = static_cast<char>('!' + group % 85);
    out.append(digits.data(), count + 1);
  }
  return out += "~>";
}

std::string DecodeAscii85(std::string_view text, std::size_t cap) {
  std::string out;
  std::uint64_t group = 0;
  std::size_t digits = 0;
  const auto write = [&](std::size_t count) {
    if (group > 0xFFFFFFFFu) throw Error("the ASCII85 data is damaged");
    CheckCap(out.size(), count, cap);
    for (std::size_t i = 0; i < count; ++i) out += static_cast<char>(group >> (24 - 8 * i) & 0xFF);
    group = 0;
    digits = 0;
  };
  if (text.starts_with("<~")) text.remove_prefix(2);
  for (const char sign : text) {
    if (IsPdfBlank(sign)) continue;
    if (sign == '~') break;
    if (sign == 'z' && digits == 0) {
      write(4);
      continue;
    }
    if (sign < '!' || sign > 'u') throw Error("the ASCII85 data is damaged");
    group = group * 85 + static_cast<std::uint64_t>(sign - '!');
    if (++digits == 5) write(4);
  }
  if (digits > 1) {  // the last group is filled up with the highest digit
    const std::size_t count = digits - 1;
    for (; digits < 5; ++digits) group = group * 85 + 84;
    write(count);
  }
  return out;
}

std::string EncodeAsciiHex(std::string_view bytes) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string out;
  out.reserve(bytes.size() * 2 + 1);
  for (const char byte : bytes) {
    out += kDigits[static_cast<unsigned char>(byte) >> 4];
    out += kDigits[static_cast<unsigned char>(byte) & 15];
  }
  return out += '>';
}

std::string DecodeAsciiHex(std::string_view text, std::size_t cap) {
  std::string out;
  int high = -1;
  for (const char sign : text) {
    if (IsPdfBlank(sign)) continue;
    if (sign == '>') break;
    const int digit = HexDigit(sign);
    if (digit < 0) throw Error("the hexadecimal data is damaged");
    if (high < 0) {
      high = digit;
      continue;
    }
    CheckCap(out.size(), 1, cap);
    out += static_cast<char>(high * 16 + digit);
    high = -1;
  }
  if (high >= 0) {
    CheckCap(out.size(), 1, cap);
    out += static_cast<char>(high * 16);  // a missing last digit is 0
  }
  return out;
}

}  // namespace lm::pdf
