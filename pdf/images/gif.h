// GIF: the first picture of the file, in its own size, as palette indices. Its transparent entry
// becomes a mask.
#pragma once

#include <string_view>

#include "pdf/images/picture.h"

namespace lm::pdf {

// Throws Error for what is damaged or unsupported.
Picture ReadGif(std::string_view bytes);

}  // namespace lm::pdf
