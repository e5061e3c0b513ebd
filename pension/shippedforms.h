// The stand-ins for the blank pension forms, which come with the program until the user puts the
// official forms in their place.
#pragma once

#include "core/shippedfiles.h"

namespace lm {

// The subject of each stand-in's document, by which it is known.
constexpr std::string_view kStandInSubject = "Stand-in for an official pension form";

std::span<const ShippedFile> ShippedForms();

// See PlaceShippedFiles: an official form that is there stays.
bool PlaceShippedForms(Ledger& ledger);

}  // namespace lm
