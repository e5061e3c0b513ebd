// Raster pictures as bytes of their file formats.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace lm::sample {

struct Rgb {
  std::uint8_t red, green, blue;
  bool operator==(const Rgb&) const = default;
};

struct Raster {
  int width = 0, height = 0;
  std::vector<Rgb> pixels;  // rows from the top
  const Rgb& At(int x, int y) const { return pixels[static_cast<std::size_t>(y * width + x)]; }
};

std::string BmpFile(const Raster& raster);
std::string TgaFile(const Raster& raster);
std::string PngFile(const Raster& raster);
// At most 256 colours. `transparent`: a colour that is left out, nullptr for none.
std::string GifFile(const Raster& raster, const Rgb* transparent = nullptr);
// Each pixel becomes one block of 8 x 8 of one colour, so the picture has 64 times the pixels.
std::string JpegFile(const Raster& raster);

// Numbers as bytes, the lowest or the highest first.
std::string Little(std::uint32_t value, int count);
std::string Big(std::uint32_t value, int count);

}  // namespace lm::sample
