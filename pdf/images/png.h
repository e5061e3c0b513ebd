// Portable Network Graphics: gray, RGB and palette pictures of 1 to 16 bits. The packed rows are
// taken over as they are; their checksums are checked, nothing is unpacked. Interlaced pictures and
// alpha channels are refused. Transparency by colour becomes a mask, that of a palette too where
// its fully transparent entries stand in one run.
#pragma once

#include <string_view>

#include "pdf/images/picture.h"

namespace lm::pdf {

// Throws Error for what is damaged or unsupported.
Picture ReadPng(std::string_view bytes);

}  // namespace lm::pdf
