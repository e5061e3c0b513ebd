// The categories of calendar events, as optEventCategories holds them: "code;name;colour", joined
// by "|". Negative codes are standard categories, which users keep.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/ledger.h"

namespace lm {

struct EventCategory {
  int code;
  std::string name;
  int colour;  // blue * 65536 + green * 256 + red
};

// In the order of the option; an entry without a whole number as its code is left out.
std::vector<EventCategory> EventCategories(const Ledger& ledger);
std::vector<EventCategory> EventCategoriesIn(std::string_view optionText);
// The option's text; names hold no "|" and no ";".
std::string EventCategoriesText(std::span<const EventCategory> categories);

}  // namespace lm
