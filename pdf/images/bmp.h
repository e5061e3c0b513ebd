// Windows and OS/2 bitmaps of 1, 4, 8, 16, 24 and 32 bits, bottom-up and top-down, RLE4 and RLE8,
// bit fields. An alpha channel is left out.
#pragma once

#include <string_view>

#include "pdf/images/picture.h"

namespace lm::pdf {

// Throws Error for what is damaged or unsupported.
Picture ReadBmp(std::string_view bytes);

}  // namespace lm::pdf
