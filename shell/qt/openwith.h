// "Open with" of the desktop's files, on Windows, for the user alone. Elsewhere the package says
// which files the program opens.
#pragma once

#include <optional>

namespace lm {

// Whether data files (.dat) offer this program; nothing where that is not for the program to say.
std::optional<bool> OpenWithOffered();
// Offers it, or takes it back and leaves no trace. False when Windows refused.
bool OfferOpenWith(bool offered);

}  // namespace lm
