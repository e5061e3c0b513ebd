// Layers (optional content groups) of a file as they stand when it is opened.
#pragma once

#include <unordered_set>

#include "pdf/reader/objects.h"

namespace lm::pdf {

// By object number.
struct LayerStates {
  std::unordered_set<int> off;
  std::unordered_set<int> byUse;  // those that viewers switch for the screen and for paper
};

// Layers of which nothing can be read are on.
LayerStates ReadLayerStates(Objects& objects);

}  // namespace lm::pdf
