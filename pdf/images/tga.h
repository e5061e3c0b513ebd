// TGA: palette pictures of 8 bits, gray of 8, colours of 15, 16, 24 and 32, plain and run-length,
// with any corner first. An alpha channel is left out.
#pragma once

#include <string_view>

#include "pdf/images/picture.h"

namespace lm::pdf {

// Throws Error for what is damaged or unsupported.
Picture ReadTga(std::string_view bytes);

}  // namespace lm::pdf
