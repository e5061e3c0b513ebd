// Streams with their filters undone.
#pragma once

#include <optional>
#include <string>

#include "pdf/reader/objects.h"

namespace lm::pdf {

// True when nothing but Flate is to be undone, if anything is.
bool IsPlainOrDeflated(Objects& objects, const Object& stream);

// Nothing when one of the filters is none of pdf/filters.h, as those of pictures. Throws Error for
// damaged data, and for more than `cap` bytes.
std::optional<std::string> DecodeStream(Objects& objects, const Object& stream, std::size_t cap);

}  // namespace lm::pdf
