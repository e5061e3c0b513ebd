#include "pdf/images/vector.h"

#include <algorithm>
#include <cmath>

#include "pdf/error.h"

namespace lm::pdf {

namespace {

constexpr std::size_t kMaxOperators = 1'000'000;
constexpr double kFar = 1e6;  // points; nothing on a page is farther away

std::string Coordinate(double points, const Document& document) {
  return document.Points(std::clamp(points, -kFar, kFar)) + " ";
}

VectorOperator InRgb(const VectorOperator& op) {
  if ((op.name != "k" && op.name != "K") || op.numbers.size() != 4) return op;
  const double black = op.numbers[3];
  VectorOperator rgb{op.kind, op.name == "k" ? "rg" : "RG", {}};
  for (std::size_t i = 0; i < 3; ++i) rgb.numbers.push_back((1 - op.numbers[i]) * (1 - black));
  return rgb;
}

}  // namespace

void Append(std::vector<VectorOperator>& operators, VectorOperator added) {
  if (operators.size() >= kMaxOperators) throw Error("The drawing has too many parts");
  operators.push_back(std::move(added));
}

std::string DrawnIn(const VectorPicture& picture, const PictureBox& box, const Document& document) {
  const double scaleX = box.width / (picture.right - picture.left);
  const double scaleY = box.height / (picture.bottom - picture.top);
  const double scale = std::sqrt(std::abs(scaleX * scaleY));

  std::string text = "q ";
  for (const double value : {box.x, box.y, box.width, box.height}) {
    text += Coordinate(value, document);
  }
  text += "re W n\n";
  for (const VectorOperator& each : picture.operators) {
    const VectorOperator& op = document.pdfA ? InRgb(each) : each;
    using Kind = VectorOperator::Kind;
    const bool dash = op.kind == Kind::Dash;
    if (dash) text += "[";
    for (std::size_t i = 0; i < op.numbers.size(); ++i) {
      const double value = op.numbers[i];
      if (dash && i + 1 == op.numbers.size()) text += "] ";
      if (op.kind == Kind::Plain) {
        text += document.Points(value) + " ";
      } else if (op.kind != Kind::Points) {
        text += Coordinate(value * scale, document);
      } else if (i % 2 == 0) {
        text += Coordinate(box.x + (value - picture.left) * scaleX, document);
      } else {
        text += Coordinate(box.y + (value - picture.top) * scaleY, document);
      }
    }
    text += op.name + "\n";
  }
  return text + "Q\n";
}

}  // namespace lm::pdf
