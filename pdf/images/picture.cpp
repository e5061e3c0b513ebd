#include "pdf/images/picture.h"

#include <algorithm>
#include <array>

#include "pdf/error.h"

namespace lm::pdf {

namespace {

using Rgb = std::array<unsigned, 3>;

std::string MaskOfEntry(const std::string& palette, const Rgb& colour) {
  const auto holds = [&](std::size_t entry) {
    return std::equal(
        colour.begin(), colour.end(), palette.begin() + static_cast<long>(entry * 3),
        [](unsigned value, char byte) { return value == static_cast<std::uint8_t>(byte); });
  };
  const std::size_t count = palette.size() / 3;
  std::size_t first = 0;
  while (first < count && !holds(first)) ++first;
  if (first == count) return "";
  std::size_t last = first;
  while (last + 1 < count && holds(last + 1)) ++last;
  return MaskRange(static_cast<unsigned>(first), static_cast<unsigned>(last));
}

// A byte's value among samples of other depths; "" where it lies between two of them.
std::string MaskOfByte(unsigned value, int bits) {
  const unsigned largest = (1U << bits) - 1;
  if (value * largest % 255 != 0) return "";
  const unsigned sample = value * largest / 255;
  return MaskRange(sample, sample);
}

// Ink of each kind in bytes, with as much black as the colour bears.
std::array<unsigned, 4> Cmyk(const Rgb& colour) {
  const unsigned light = *std::max_element(colour.begin(), colour.end());
  return {light - colour[0], light - colour[1], light - colour[2], 255 - light};
}

}  // namespace

void CheckPictureSize(std::int64_t width, std::int64_t height) {
  if (width <= 0 || height <= 0) throw Error("The picture has no pixels");
  if (width > kMaxPixels || height > kMaxPixels / width) throw Error("The picture is too large");
}

std::string MaskRange(unsigned low, unsigned high) {
  return std::to_string(low) + " " + std::to_string(high);
}

std::string MaskOfColour(const Picture& picture, std::uint32_t colour) {
  const Rgb rgb = {colour & 255, colour >> 8 & 255, colour >> 16 & 255};
  if (!picture.palette.empty()) return MaskOfEntry(picture.palette, rgb);
  if (picture.colourSpace == "DeviceGray") {
    const bool gray = rgb[0] == rgb[1] && rgb[1] == rgb[2];
    return gray ? MaskOfByte(rgb[0], picture.bits) : "";
  }

  std::string mask;
  const auto add = [&](unsigned value) {
    mask += (mask.empty() ? "" : " ") + MaskOfByte(value, picture.bits);
  };
  if (picture.colourSpace == "DeviceCMYK") {
    // The mask is compared with the samples as they are stored, before /Decode.
    const bool inverted = !picture.decode.empty();
    for (const unsigned ink : Cmyk(rgb)) add(inverted ? 255 - ink : ink);
  } else {
    for (const unsigned value : rgb) add(value);
  }
  return mask;
}

}  // namespace lm::pdf
