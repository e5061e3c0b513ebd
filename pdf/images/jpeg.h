// JPEG, baseline and progressive, gray, RGB (YCbCr) and CMYK (YCCK) of 8 bits: the file is taken
// over as it is, only its frame header is read. CMYK pictures with the mark of Adobe's programs are
// stored inverted, which their /Decode turns back.
#pragma once

#include <string_view>

#include "pdf/images/picture.h"

namespace lm::pdf {

// Throws Error for what is damaged or unsupported.
Picture ReadJpeg(std::string_view bytes);

}  // namespace lm::pdf
