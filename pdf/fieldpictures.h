// How check boxes and radio buttons look.
#pragma once

#include <string>
#include <string_view>

#include "pdf/document.h"

namespace lm::pdf {

struct ButtonPicture {
  bool round = false;
  double width = 0, height = 0, borderWidth = 0;     // points
  std::string borderColour, backColour, markColour;  // stored colours; "" none
};

// The operators that draw it, with its tick or dot when `on`.
std::string DrawButton(const Document& document, const ButtonPicture& picture, bool on);

}  // namespace lm::pdf
