#include "pdf/fieldpictures.h"

#include <algorithm>
#include <initializer_list>

#include "pdf/annots.h"

namespace lm::pdf {
namespace {

constexpr double kCircle = 0.5522847498;  // control points of a quarter circle, of its radius

std::string Operator(const Document& document, std::initializer_list<double> numbers,
                     std::string_view name) {
  std::string out;
  for (const double number : numbers) out += document.Points(number) + " ";
  return out.append(name) + "\r";
}

std::string EllipsePath(const Document& document, double x, double y, double rx, double ry) {
  const double cx = rx * kCircle, cy = ry * kCircle;
  return Operator(document, {x + rx, y}, "m") +
         Operator(document, {x + rx, y + cy, x + cx, y + ry, x, y + ry}, "c") +
         Operator(document, {x - cx, y + ry, x - rx, y + cy, x - rx, y}, "c") +
         Operator(document, {x - rx, y - cy, x - cx, y - ry, x, y - ry}, "c") +
         Operator(document, {x + cx, y - ry, x + rx, y - cy, x + rx, y}, "c");
}

// The outline, `inset` points inside the box.
std::string Outline(const Document& document, const ButtonPicture& picture, double inset) {
  const double width = std::max(picture.width - 2 * inset, 0.0);
  const double height = std::max(picture.height - 2 * inset, 0.0);
  if (!picture.round) return Operator(document, {inset, inset, width, height}, "re");
  return EllipsePath(document, picture.width / 2, picture.height / 2, width / 2, height / 2);
}

std::string Dot(const Document& document, const ButtonPicture& picture) {
  const double radius = 0.25 * std::min(picture.width, picture.height);
  return ColourOperator(picture.markColour, false) + "\r" +
         EllipsePath(document, picture.width / 2, picture.height / 2, radius, radius) + "f\r";
}

std::string Tick(const Document& document, const ButtonPicture& picture) {
  const double side = std::min(picture.width, picture.height);
  const double x = picture.width / 2, y = picture.height / 2;
  return ColourOperator(picture.markColour, true) + "\r" + Operator(document, {0.12 * side}, "w") +
         Operator(document, {x - 0.28 * side, y}, "m") +
         Operator(document, {x - 0.08 * side, y - 0.22 * side}, "l") +
         Operator(document, {x + 0.28 * side, y + 0.25 * side}, "l") + "S\r";
}

}  // namespace

std::string DrawButton(const Document& document, const ButtonPicture& picture, bool on) {
  std::string out = "q\r";
  if (!ColourNumbers(picture.backColour).empty())
    out += ColourOperator(picture.backColour, false) + "\r" + Outline(document, picture, 0) + "f\r";
  if (!ColourNumbers(picture.borderColour).empty() && picture.borderWidth > 0)
    out += ColourOperator(picture.borderColour, true) + "\r" +
           Operator(document, {picture.borderWidth}, "w") +
           Outline(document, picture, picture.borderWidth / 2) + "s\r";
  if (on) out += picture.round ? Dot(document, picture) : Tick(document, picture);
  return out + "Q\r";
}

}  // namespace lm::pdf
