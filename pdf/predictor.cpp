// Predictors turn samples into differences from their neighbours before compression.
#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "pdf/error.h"
#include "pdf/filters.h"

namespace lm::pdf {
namespace {

unsigned char Byte(char sign) { return static_cast<unsigned char>(sign); }

unsigned char Paeth(int left, int above, int aboveLeft) {
  const int estimate = left + above - aboveLeft;
  const int toLeft = std::abs(estimate - left);
  const int toAbove = std::abs(estimate - above);
  const int toAboveLeft = std::abs(estimate - aboveLeft);
  if (toLeft <= toAbove && toLeft <= toAboveLeft) return static_cast<unsigned char>(left);
  return static_cast<unsigned char>(toAbove <= toAboveLeft ? above : aboveLeft);
}

std::string UndoPng(std::string_view bytes, std::size_t rowBytes, std::size_t pixelBytes) {
  std::string out;
  out.reserve(bytes.size());
  std::size_t above = 0;  // where the row above begins; of use from the second row on
  bool first = true;
  for (std::size_t at = 0; at < bytes.size();) {
    const int filter = Byte(bytes[at++]);
    const std::size_t length = std::min(rowBytes, bytes.size() - at);
    const std::size_t row = out.size();
    for (std::size_t i = 0; i < length; ++i) {
      const int left = i >= pixelBytes ? Byte(out[row + i - pixelBytes]) : 0;
      const int up = first ? 0 : Byte(out[above + i]);
      const int upLeft = first || i < pixelBytes ? 0 : Byte(out[above + i - pixelBytes]);
      int predicted = 0;
      switch (filter) {
        case 1:
          predicted = left;
          break;
        case 2:
          predicted = up;
          break;
        case 3:
          predicted = (left + up) / 2;
          break;
        case 4:
          predicted = Paeth(left, up, upLeft);
          break;
        default:  // 0, and what no version of the format knows
          break;
      }
      out += static_cast<char>(Byte(bytes[at + i]) + predicted);
    }
    at += length;
    above = row;
    first = false;
  }
  return out;
}

// Samples of 1 to 16 bits, each the difference from the same component one pixel before.
void UndoTiffRow(char* row, std::size_t length, std::size_t colors, unsigned bits) {
  const std::uint32_t mask = (1u << bits) - 1;
  const std::size_t samples = length * 8 / bits;
  const auto shift = [&](std::size_t bit) {
    return bits == 16 ? 0u : static_cast<unsigned>(8 - bits - bit % 8);
  };
  const auto read = [&](std::size_t sample) -> std::uint32_t {
    const std::size_t bit = sample * bits;
    if (bits == 16) return Byte(row[bit / 8]) * 256u + Byte(row[bit / 8 + 1]);
    return Byte(row[bit / 8]) >> shift(bit) & mask;
  };
  for (std::size_t i = colors; i < samples; ++i) {
    const std::uint32_t value = (read(i) + read(i - colors)) & mask;
    const std::size_t bit = i * bits;
    if (bits == 16) {
      row[bit / 8] = static_cast<char>(value >> 8);
      row[bit / 8 + 1] = static_cast<char>(value);
    } else {
      row[bit / 8] =
          static_cast<char>((Byte(row[bit / 8]) & ~(mask << shift(bit))) | value << shift(bit));
    }
  }
}

}  // namespace

std::string UndoPredictor(std::string_view bytes, const PredictorParameters& parameters,
                          std::size_t cap) {
  if (bytes.size() > cap) throw Error("the decoded stream is too large");
  if (parameters.predictor <= 1) return std::string(bytes);
  const int bits = parameters.bitsPerComponent;
  if ((bits != 1 && bits != 2 && bits != 4 && bits != 8 && bits != 16) || parameters.colors < 1 ||
      parameters.columns < 1) {
    throw Error("the predictor's parameters make no sense");
  }
  // A row longer than the data is as good as one that ends with it, and cannot overflow.
  const std::uint64_t pixelBits =
      static_cast<std::uint64_t>(parameters.colors) * static_cast<unsigned>(bits);
  const std::uint64_t columns = static_cast<std::uint64_t>(parameters.columns);
  const std::uint64_t longest = static_cast<std::uint64_t>(bytes.size()) + 1;
  const std::uint64_t whole =
      pixelBits > longest * 8 / columns ? longest : (pixelBits * columns + 7) / 8;
  const std::size_t rowBytes = static_cast<std::size_t>(std::min(whole, longest));

  if (parameters.predictor >= 10) {
    return UndoPng(bytes, rowBytes, static_cast<std::size_t>((pixelBits + 7) / 8));
  }
  if (parameters.predictor != 2) throw Error("the predictor is unknown");
  std::string out(bytes);
  for (std::size_t at = 0; at < out.size(); at += rowBytes) {
    UndoTiffRow(out.data() + at, std::min(rowBytes, out.size() - at),
                static_cast<std::size_t>(parameters.colors), static_cast<unsigned>(bits));
  }
  return out;
}

}  // namespace lm::pdf
