// Lines, curves, rectangles, ellipses and arcs.
#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "pdf/colours.h"
#include "pdf/graphics.h"
#include "pdf/notation.h"

namespace lm::pdf {
namespace {

constexpr double kCornerCurve = 0.55;  // of the radius, from a corner's end to its control point

enum Side { kTop, kRight, kBottom, kLeft };
constexpr int kAllSides = 15;
constexpr int kSides = 4;
constexpr int kFirstCorner = 16;  // top left; the others follow clockwise

struct Spot {
  double x, y;
};

// A rectangle's outline, clockwise from its top left. Corner n is where side n begins.
class Outline {
 public:
  Outline(double x, double y, double width, double height, int borders, double radius)
      : corners_{{{x, y}, {x + width, y}, {x + width, y + height}, {x, y + height}}} {
    const double across = width < 0 ? -1 : 1, down = height < 0 ? -1 : 1;
    directions_ = {{{across, 0}, {0, down}, {-across, 0}, {0, -down}}};
    for (int n = 0; n < kSides; ++n) radii_[Index(n)] = borders & (kFirstCorner << n) ? radius : 0;
  }

  bool IsRound(int corner) const { return radii_[Index(corner)] > 0; }
  Spot SideBegin(int side) const { return Along(side, side, radii_[Index(side)]); }
  Spot SideEnd(int side) const { return Along(side + 1, side, -radii_[Index(side + 1)]); }
  // The control points of the curve from the end of the side before to the beginning of side n.
  Spot FirstControl(int corner) const {
    return Along(corner, corner + kSides - 1, -radii_[Index(corner)] * (1 - kCornerCurve));
  }
  Spot SecondControl(int corner) const {
    return Along(corner, corner, radii_[Index(corner)] * (1 - kCornerCurve));
  }

 private:
  static std::size_t Index(int n) { return static_cast<std::size_t>(n % kSides); }
  Spot Along(int corner, int side, double distance) const {
    const Spot& from = corners_[Index(corner)];
    const Spot& direction = directions_[Index(side)];
    return {from.x + direction.x * distance, from.y + direction.y * distance};
  }

  std::array<Spot, kSides> corners_;
  std::array<Spot, kSides> directions_;
  std::array<double, kSides> radii_{};
};

}  // namespace

std::string PaintOperator(int mode) {
  const std::string clip = mode & kClip ? " W" : "";
  if (mode & kFilled) return clip + (mode & kNoStroke ? " f*" : mode & kClosed ? " b*" : " B*");
  // A path that paints nothing has to end all the same: left open it would be painted with the
  // next one, and a clipping path takes effect with the operator that ends it.
  return clip + (mode & kClosed ? " h" : "") + (mode & kNoStroke ? " n" : " S");
}

std::string Graphics::Point(double x, double y) const {
  return document_.Units(x) + " " + document_.Units(y);
}

void Graphics::RememberBox(double x1, double y1, double x2, double y2) {
  document_.RememberBox(document_.ToPoints(x1), document_.ToPoints(y1), document_.ToPoints(x2),
                        document_.ToPoints(y2));
}

void Graphics::Paint(const std::string& path, int mode) {
  if (mode & kFilled && !fillSelected_) {
    document_.Draw(Allowed(FillOperator(document_.state.colours.fill, document_)));
    fillSelected_ = true;
  }
  document_.Draw(path + PaintOperator(mode) + "\n");
}

void Graphics::DrawLine(double x1, double y1, double x2, double y2, double width) {
  const std::string line = Point(x1, y1) + " m " + Point(x2, y2) + " l S\n";
  document_.Draw(width >= 0 ? "q " + document_.Units(width) + " w\n" + line + "Q\n" : line);
  SetXY(x2, y2);
  RememberBox(x1, y1, x2, y2);
}

void Graphics::DrawLineTo(double x, double y) {
  DrawLine(document_.ToUnits(document_.state.x), document_.ToUnits(document_.state.y), x, y);
}

void Graphics::DrawCurve(double x1, double y1, double x2, double y2, double x3, double y3,
                         int form) {
  const double x = document_.ToUnits(document_.state.x), y = document_.ToUnits(document_.state.y);
  const std::array<std::string, 3> forms{
      Point(x1, y1) + " " + Point(x2, y2) + " " + Point(x3, y3) + " c",
      Point(x2, y2) + " " + Point(x3, y3) + " v",
      Point(x1, y1) + " " + Point(x3, y3) + " y",
  };
  if (form < 0 || form >= static_cast<int>(forms.size()))
    throw Error("There is no such form of curve.");
  document_.Draw(Point(x, y) + " m " + forms[static_cast<std::size_t>(form)] + " S\n");
  // The curve lies within the points that it has.
  std::vector<double> across{x, x3}, down{y, y3};
  if (form != 1) across.push_back(x1), down.push_back(y1);
  if (form != 2) across.push_back(x2), down.push_back(y2);
  const auto [left, right] = std::minmax_element(across.begin(), across.end());
  const auto [top, bottom] = std::minmax_element(down.begin(), down.end());
  SetXY(x3, y3);
  RememberBox(*left, *top, *right, *bottom);
}

void Graphics::DrawPoints(std::string_view points, int mode) {
  const std::vector<double> numbers = NumberList(points);
  if (numbers.size() < 4 || numbers.size() % 2 != 0) {
    throw Error("A polygon needs two points or more, each of two numbers.");
  }
  std::string path;
  double left = numbers[0], right = left, top = numbers[1], bottom = top;
  for (std::size_t i = 0; i < numbers.size(); i += 2) {
    const double x = numbers[i], y = numbers[i + 1];
    path += (i ? " " : "") + Point(x, y) + (i ? " l" : " m");
    left = std::min(left, x), right = std::max(right, x);
    top = std::min(top, y), bottom = std::max(bottom, y);
  }
  Paint(path, mode);
  SetXY(numbers[numbers.size() - 2], numbers.back());
  RememberBox(left, top, right, bottom);
}

void Graphics::DrawPolyline(std::string_view points, int mode) { DrawPoints(points, mode); }
void Graphics::DrawPolygon(std::string_view points, int mode) {
  DrawPoints(points, mode | kClosed);
}

void Graphics::DrawRect(double x, double y, double width, double height, int mode, int borders,
                        double radius) {
  const double round = std::clamp(radius, 0.0, std::min(std::abs(width), std::abs(height)) / 2);
  const bool allSides = (borders & kAllSides) == kAllSides;
  RememberBox(x, y, x + width, y + height);
  if (allSides && !(round > 0)) {
    Paint(Point(x, y) + " " + Point(width, height) + " re", mode);
    return;
  }

  const Outline outline(x, y, width, height, borders, round);
  const auto point = [&](Spot spot) { return Point(spot.x, spot.y); };
  const auto begin = [&](Spot spot) { return point(spot) + " m"; };
  const auto line = [&](int side) { return " " + point(outline.SideEnd(side)) + " l"; };
  const auto curve = [&](int corner) {
    return " " + point(outline.FirstControl(corner)) + " " + point(outline.SecondControl(corner)) +
           " " + point(outline.SideBegin(corner)) + " c";
  };

  std::string whole = begin(outline.SideBegin(kTop));
  for (int side = kTop; side <= kLeft; ++side) {
    const int corner = (side + 1) % kSides;
    whole += line(side);
    if (outline.IsRound(corner)) whole += curve(corner);
  }
  if (allSides) {
    // A square corner where the path begins and ends needs its join.
    Paint(whole, outline.IsRound(kTop) ? mode : mode | kClosed);
    return;
  }
  // The whole area is filled and clips; the sides that are there are stroked one by one.
  const bool strokes = !(mode & kNoStroke);
  if (!strokes || mode & (kFilled | kClip)) Paint(whole, mode | kNoStroke);
  if (!strokes) return;
  for (int side = kTop; side <= kLeft; ++side) {
    const int corner = (side + 1) % kSides;
    if (borders & (1 << side)) document_.Draw(begin(outline.SideBegin(side)) + line(side) + " S\n");
    if (outline.IsRound(corner))
      document_.Draw(begin(outline.SideEnd(side)) + curve(corner) + " S\n");
  }
}

void Graphics::DrawEllipse(double x, double y, double rx, double ry, int mode) {
  DrawArc(x, y, rx, ry, 0, 360, mode);
}

void Graphics::DrawArc(double x, double y, double rx, double ry, double startAngle, double endAngle,
                       int mode, bool pie) {
  double sweep = endAngle - startAngle;
  if (!std::isfinite(startAngle) || !std::isfinite(sweep))
    throw Error("An angle must be a number.");
  if (sweep == 0) return;
  if (sweep < 0) sweep = std::fmod(sweep, 360) + 360;
  sweep = std::min(sweep, 360.0);

  constexpr double kQuarter = 90;
  const int pieces = static_cast<int>(std::ceil(sweep / kQuarter));
  const double step = sweep / pieces * std::numbers::pi / 180;
  const double reach = 4.0 / 3 * std::tan(step / 4);  // of the radius, along the tangent
  // Y grows downwards: counter-clockwise as seen is towards smaller Y first.
  const auto spot = [&](double angle, double along) {
    return Point(x + rx * (std::cos(angle) - along * std::sin(angle)),
                 y - ry * (std::sin(angle) + along * std::cos(angle)));
  };
  double angle = std::fmod(startAngle, 360) * std::numbers::pi / 180;
  std::string path = spot(angle, 0) + " m";
  for (int piece = 0; piece < pieces; ++piece, angle += step) {
    path += " " + spot(angle, reach) + " " + spot(angle + step, -reach) + " " +
            spot(angle + step, 0) + " c";
  }
  if (pie) path += " " + Point(x, y) + " l";
  Paint(path, pie ? mode | kClosed : mode);
  RememberBox(x - rx, y - ry, x + rx, y + ry);
}

}  // namespace lm::pdf
