// Windows metafiles, with or without the placeable header: lines, polygons, rectangles, ellipses
// and arcs with their pens and brushes. Texts and pictures inside are left out, hatched brushes
// fill whole.
#pragma once

#include <string_view>

#include "pdf/images/vector.h"

namespace lm::pdf {

// Throws Error for what is damaged, and for a file with nothing to draw.
VectorPicture ReadWmf(std::string_view bytes);

}  // namespace lm::pdf
