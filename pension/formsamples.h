// What stands for the figures where a blank form is tried out: figures as wide as they come, and
// the names of items whose texts can be anything. Needs no ledger.
#pragma once

#include <string>

#include "pension/formcoordinates.h"

namespace lm {

std::string FormPlaceSample(const FormPlace& place);

// Of a text: true when the sample is as long as it can get.
bool HasFixedLength(const FormPlace& place);

}  // namespace lm
