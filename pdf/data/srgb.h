// The sRGB colour profile, for the output intent of PDF/A.
#pragma once

#include <string_view>

namespace lm::pdf {

std::string_view SrgbProfile();

}  // namespace lm::pdf
