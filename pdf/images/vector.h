// A vector picture: painting operators with points in the picture's own coordinates, which are put
// into place when it is drawn. So lengths keep the precision of all written numbers, whatever units
// the file works in.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "pdf/document.h"

namespace lm::pdf {

struct VectorOperator {
  enum class Kind {
    Points,   // numbers are x, y, x, y ...
    Lengths,  // numbers are scaled
    Dash,     // lengths, and the phase last
    Plain     // numbers are written as they are
  };
  Kind kind = Kind::Plain;
  std::string name;  // of the PDF operator; a plain one may bring its operands as text
  std::vector<double> numbers;
};

// Throws Error when there are more than any drawing needs.
void Append(std::vector<VectorOperator>& operators, VectorOperator added);

struct VectorPicture {
  // The corners in the picture's own coordinates; with Y upwards bottom is below top.
  double left = 0, top = 0, right = 1, bottom = 1;
  double width = 0, height = 0;  // its size of its own, points
  std::vector<VectorOperator> operators;

  void Add(VectorOperator::Kind kind, std::string_view name, std::vector<double> numbers = {}) {
    Append(operators, {kind, std::string(name), std::move(numbers)});
  }
};

// A box on the page: points, from the top left.
struct PictureBox {
  double x = 0, y = 0, width = 0, height = 0;
};

// The operators that draw the picture in the box and nowhere else, between "q" and "Q"; under PDF/A
// in RGB for CMYK.
std::string DrawnIn(const VectorPicture& picture, const PictureBox& box, const Document& document);

}  // namespace lm::pdf
