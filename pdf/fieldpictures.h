// How fields and notes look without their texts: ground, border, tick and dot.
#pragma once

#include <string>
#include <string_view>

#include "pdf/document.h"

namespace lm::pdf {

enum class BorderStyle { Solid, Dashed, Bevelled, Inset, Underline };

// Ground and border of a box. A colour that is "" or a pattern is not drawn.
struct Frame {
  double width = 0, height = 0, borderWidth = 0;  // points
  BorderStyle style = BorderStyle::Solid;
  std::string borderColour, backColour;  // stored colours
  bool round = false;

  // What the border takes of each side, in points, whether it has a colour or not.
  double Inset() const;
};

// Operators that take a picture of this height in points, drawn top down as pages are.
std::string TopDown(const Document& document, double height, std::string_view operators);

std::string DrawFrame(const Document& document, const Frame& frame);

// The dot of a round frame, the tick of another one.
std::string DrawMark(const Document& document, const Frame& frame, std::string_view colour);

// Lines in the place of a text, across the frame.
std::string DrawWriting(const Document& document, const Frame& frame);

}  // namespace lm::pdf
