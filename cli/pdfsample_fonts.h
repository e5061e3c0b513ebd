// Font files of this machine, for the pages that carry a font with them.
#pragma once

#include <string>

namespace lm::sample {

// Paths; a missing style is the regular one, and all are "" where the machine has none.
struct FontFiles {
  std::string regular, bold, italic, mono;
};

FontFiles FindFontFiles();

}  // namespace lm::sample
