#include "pdf/fieldpictures.h"

#include <algorithm>
#include <initializer_list>

#include "pdf/annots.h"

namespace lm::pdf {
namespace {

constexpr double kCircle = 0.5522847498;  // control points of a quarter circle, of its radius

// The edges of a border that looks raised or sunk, as shares of white.
struct Shades {
  double topLeft, bottomRight;
};
constexpr Shades kRaised = {1, 0.5}, kSunk = {0.5, 0.75};

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
std::string Outline(const Document& document, const Frame& frame, double inset) {
  const double width = std::max(frame.width - 2 * inset, 0.0);
  const double height = std::max(frame.height - 2 * inset, 0.0);
  if (!frame.round) return Operator(document, {inset, inset, width, height}, "re");
  return EllipsePath(document, frame.width / 2, frame.height / 2, width / 2, height / 2);
}

// Inside the border's line, as wide as that.
std::string Edges(const Document& document, const Frame& frame, const Shades& shades) {
  const double width = frame.width, height = frame.height;
  const double out = frame.borderWidth, in = 2 * frame.borderWidth;
  const auto edge = [&](double shade, double cornerX, double cornerY, double innerX,
                        double innerY) {
    return Operator(document, {shade}, "g") + Operator(document, {out, height - out}, "m") +
           Operator(document, {cornerX, cornerY}, "l") +
           Operator(document, {width - out, out}, "l") + Operator(document, {width - in, in}, "l") +
           Operator(document, {innerX, innerY}, "l") + Operator(document, {in, height - in}, "l") +
           "f\r";
  };
  return edge(shades.topLeft, out, out, in, in) +
         edge(shades.bottomRight, width - out, height - out, width - in, height - in);
}

std::string Border(const Document& document, const Frame& frame) {
  const double middle = frame.borderWidth / 2;
  std::string out = ColourOperator(frame.borderColour, true) + "\r" +
                    Operator(document, {frame.borderWidth}, "w");
  if (frame.style == BorderStyle::Underline && !frame.round)
    return out + Operator(document, {0, frame.height - middle}, "m") +
           Operator(document, {frame.width, frame.height - middle}, "l") + "S\r";
  if (frame.style == BorderStyle::Dashed) out += "[ 1 1 ] 0 d\r";
  out += Outline(document, frame, middle) + "s\r";
  if (frame.round) return out;
  if (frame.style == BorderStyle::Bevelled) out += Edges(document, frame, kRaised);
  if (frame.style == BorderStyle::Inset) out += Edges(document, frame, kSunk);
  return out;
}

}  // namespace

double Frame::Inset() const {
  const bool edged = style == BorderStyle::Bevelled || style == BorderStyle::Inset;
  return edged ? 2 * borderWidth : borderWidth;
}

std::string TopDown(const Document& document, double height, std::string_view operators) {
  return ("q\r" + Operator(document, {1, 0, 0, -1, 0, height}, "cm")).append(operators) + "Q\r";
}

std::string DrawFrame(const Document& document, const Frame& frame) {
  std::string out;
  if (!ColourNumbers(frame.backColour).empty())
    out += ColourOperator(frame.backColour, false) + "\r" + Outline(document, frame, 0) + "f\r";
  if (!ColourNumbers(frame.borderColour).empty() && frame.borderWidth > 0)
    out += Border(document, frame);
  return out;
}

std::string DrawMark(const Document& document, const Frame& frame, std::string_view colour) {
  const double side = std::min(frame.width, frame.height);
  const double x = frame.width / 2, y = frame.height / 2;
  if (frame.round)
    return ColourOperator(colour, false) + "\r" +
           EllipsePath(document, x, y, 0.25 * side, 0.25 * side) + "f\r";
  return ColourOperator(colour, true) + "\r[ ] 0 d\r" + Operator(document, {0.12 * side}, "w") +
         Operator(document, {x - 0.28 * side, y}, "m") +
         Operator(document, {x - 0.08 * side, y + 0.22 * side}, "l") +
         Operator(document, {x + 0.28 * side, y - 0.25 * side}, "l") + "S\r";
}

std::string DrawWriting(const Document& document, const Frame& frame) {
  std::string out = "0 G\r" + Operator(document, {0.06 * frame.height}, "w");
  for (const double share : {0.3, 0.5, 0.7})
    out += Operator(document, {0.2 * frame.width, share * frame.height}, "m") +
           Operator(document, {0.8 * frame.width, share * frame.height}, "l") + "S\r";
  return out;
}

}  // namespace lm::pdf
