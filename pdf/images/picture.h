// A raster picture as the image object needs it: what every reader of a file format returns.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace lm::pdf {

struct Picture {
  int width = 0, height = 0;              // pixels
  std::string colourSpace = "DeviceRGB";  // of the samples, or of the palette
  int bits = 8;                           // per component
  std::string palette;      // red, green and blue of each entry; not empty: the samples are indices
  std::string data;         // rows from the top, each filled up to whole bytes
  std::string filter;       // what `data` is packed with, "/DCTDecode"; "" for plain rows
  std::string decodeParms;  // the value of /DecodeParms, "" for none
  std::string decode;       // the value of /Decode, "" for none
  std::string mask;         // the transparent range "min max" of each component, "" for none
};

// Throws Error for a picture without pixels, or with more than can be meant.
constexpr std::int64_t kMaxPixels = 100'000'000;
void CheckPictureSize(std::int64_t width, std::int64_t height);

// The range of the one value, for a component of Picture::mask.
std::string MaskRange(unsigned low, unsigned high);

// The mask that makes a colour transparent, blue x 65536 + green x 256 + red: "" where no pixel of
// the picture can have it. Of palette entries with that colour the first run is taken.
std::string MaskOfColour(const Picture& picture, std::uint32_t colour);

}  // namespace lm::pdf
