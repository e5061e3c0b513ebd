// Boxes for dates and times with the button that opens their picker: what is typed is read when the
// box is left, what is picked stands.
#pragma once

#include <functional>
#include <string_view>

#include "core/screen.h"
#include "entry/checks.h"

namespace lm {

struct PickedBox {
  TextField& box;
  Button& button;
  std::string_view caption;  // of the picker
  std::string_view message = kInvalidDate;
};

// `changed` runs after the box took another text, typed or picked; false refuses what was typed.
void BindDate(const PickedBox& picked, const std::function<bool()>& changed = {});
void BindTime(const PickedBox& picked, const std::function<bool()>& changed = {});

}  // namespace lm
