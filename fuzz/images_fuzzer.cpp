// Picture files: every reader on every input, whatever its kind. Plain rows must be whole, as the
// writer puts them into the file as they are.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "pdf/error.h"
#include "pdf/images/bmp.h"
#include "pdf/images/eps.h"
#include "pdf/images/gif.h"
#include "pdf/images/jpeg.h"
#include "pdf/images/png.h"
#include "pdf/images/tga.h"
#include "pdf/images/wmf.h"

namespace {

using lm::pdf::Error;
using lm::pdf::Picture;
using lm::pdf::VectorPicture;

void Require(bool holds) {
  if (!holds) __builtin_trap();
}

void Check(const Picture& picture) {
  Require(picture.width > 0 && picture.height > 0 && !picture.data.empty());
  if (!picture.filter.empty()) return;
  const bool indexed = !picture.palette.empty();
  const std::size_t samples = !indexed && picture.colourSpace == "DeviceRGB" ? 3 : 1;
  Require(picture.data.size() == samples * static_cast<std::size_t>(picture.width) *
                                     static_cast<std::size_t>(picture.height));
  if (!indexed) return;
  for (const char index : picture.data) {
    Require(static_cast<std::uint8_t>(index) < picture.palette.size() / 3);
  }
}

void Check(const VectorPicture& picture) {
  const std::string drawn = lm::pdf::DrawnIn(picture, {10, 10, 100, 50}, lm::pdf::Document());
  Require(drawn.find("nan") == drawn.npos && drawn.find("inf") == drawn.npos);
}

template <typename Read>
void Try(Read read, std::string_view bytes) {
  try {
    Check(read(bytes));
  } catch (const Error&) {
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  using namespace lm::pdf;
  for (const auto read : {ReadPng, ReadJpeg, ReadBmp, ReadGif, ReadTga}) Try(read, bytes);
  for (const auto read : {ReadEps, ReadWmf}) Try(read, bytes);
  return 0;
}
