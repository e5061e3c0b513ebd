// Colours as texts: the notations that callers use, the stored form, the operators that select it.
//
// Accepted: a number blue x 65536 + green x 256 + red; "#RRGGBB"; "#r g b" with values 0 to 1;
// "@c;m;y;k" with values 0 to 1; "@r;g;b" in bytes; "@g" a gray of 0 to 1, or above 1 in bytes;
// "%g" a gray of 0 to 1; a colour's name; the name of a pattern. "" and -1 are no colour.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "pdf/document.h"

namespace lm::pdf {

// The stored form: "#r g b", "@c m y k", "%g", the name of a pattern, or "" for no colour. Under
// PDF/A a CMYK colour is the RGB one that it looks like. Throws Error for what is no colour.
std::string StoredColour(std::string_view input, const Document& document);

// The same colour as "#r g b"; "" for a pattern and for no colour.
std::string RgbColour(std::string_view stored, const Document& document);

// True of what is a colour in every document, or set out like one: no pattern can be called so.
bool IsColourNotation(std::string_view text);

// The name in the operators of a pattern that the caller gave the name.
std::string PatternResource(std::string_view name, const Document& document);

struct ColourSpace {
  char sign;  // the stored form's first character
  std::string_view fillOperator, lineOperator;
  std::string_view patternSpace;  // for the patterns that take a colour
  std::string_view device;
};

std::span<const ColourSpace> ColourSpaces();
// The space of a stored colour; nullptr for a pattern and for no colour.
const ColourSpace* SpaceOf(std::string_view stored);

// A stored form of its own for a pattern that takes a colour: "#1 0 0/NAME". A `colour` that is a
// pattern itself counts as black, unless it has a colour to pass on.
std::string PatternWithColour(std::string_view colour, std::string_view pattern);
bool IsPattern(std::string_view stored);

// The operators that select a stored colour, with a line feed; "" for no colour.
std::string FillOperator(std::string_view stored, const Document& document);
std::string LineOperator(std::string_view stored, const Document& document);

}  // namespace lm::pdf
