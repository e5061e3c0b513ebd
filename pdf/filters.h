// The filters of PDF streams (ISO 32000-1, 7.4), both ways. Encoders never fail. Decoders take
// hostile bytes: they throw Error for what is damaged beyond use, and for more than `cap` bytes of
// output (a decompression bomb).
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

struct libdeflate_compressor;

namespace lm::pdf {

constexpr std::size_t kDecodeCap = std::size_t{256} << 20;  // bytes

std::string EncodeRunLength(std::string_view bytes);
std::string DecodeRunLength(std::string_view bytes, std::size_t cap = kDecodeCap);

// RFC 1950 through libdeflate, which packs whole buffers in less time and space than zlib. What a
// level works with is kept for the next call. level: 0 to 9 as zlib's; what is beyond counts as the
// nearest one.
class FlateEncoder {
 public:
  // A page of text takes half of the time of level 6 and is 2% larger.
  static constexpr int kUsualLevel = 1;
  std::string Encode(std::string_view bytes, int level = kUsualLevel);

 private:
  static constexpr int kHighestLevel = 9;  // what is above takes many times as long
  struct Freed {
    void operator()(libdeflate_compressor* compressor) const;
  };
  std::unique_ptr<libdeflate_compressor, Freed> compressor_;
  int level_ = 0;
};
inline std::string EncodeFlate(std::string_view bytes) { return FlateEncoder().Encode(bytes); }
// Data that breaks off gives what could be read, as viewers do; nothing readable throws.
std::string DecodeFlate(std::string_view bytes, std::size_t cap = kDecodeCap);

// LZW of PDF: codes of 9 to 12 bits, most significant bit first, early change 1, clear code first,
// end-of-data last.
std::string EncodeLzw(std::string_view bytes);
std::string DecodeLzw(std::string_view bytes, bool earlyChange = true,
                      std::size_t cap = kDecodeCap);

std::string EncodeAscii85(std::string_view bytes);  // ends with "~>"
std::string DecodeAscii85(std::string_view text, std::size_t cap = kDecodeCap);
std::string EncodeAsciiHex(std::string_view bytes);  // ends with ">"
std::string DecodeAsciiHex(std::string_view text, std::size_t cap = kDecodeCap);

// Undoes the predictor of Flate and LZW data: 1 none, 2 TIFF, 10 to 15 PNG by row.
struct PredictorParameters {
  int predictor = 1;
  int colors = 1;
  int bitsPerComponent = 8;
  int columns = 1;
};
std::string UndoPredictor(std::string_view bytes, const PredictorParameters& parameters,
                          std::size_t cap = kDecodeCap);

}  // namespace lm::pdf
