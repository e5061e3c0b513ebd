// Encapsulated PostScript as drawing programs write it (EPS and AI), without an interpreter of the
// language: the page's body, with the short operators that such files use ("m", "l", "c", "k", "f"
// ...) and their long names ("moveto", "lineto" ...). Procedures, texts and pictures inside are
// left out.
#pragma once

#include <string_view>

#include "pdf/images/vector.h"

namespace lm::pdf {

// Throws Error for a file without a bounding box or with nothing to draw.
VectorPicture ReadEps(std::string_view bytes);

}  // namespace lm::pdf
