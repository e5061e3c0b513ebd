#include "pdf/document.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace lm::pdf {
namespace {

constexpr std::array<double, 7> kPowersOfTen{1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6};

// Below this, a scaled value's own digits are the shortest decimal of the single-precision number.
constexpr double kSevenDigits = 1e7;

// `scaled` tells so many units of the last decimal.
char* WriteScaled(char* out, char* end, std::uint32_t scaled, int decimals) {
  const auto unit = static_cast<std::uint32_t>(kPowersOfTen[static_cast<std::size_t>(decimals)]);
  out = std::to_chars(out, end, scaled / unit).ptr;
  std::uint32_t fraction = scaled % unit;
  if (fraction == 0) return out;
  for (; fraction % 10 == 0; fraction /= 10) --decimals;
  *out++ = '.';
  for (int i = decimals - 1; i >= 0; --i, fraction /= 10)
    out[i] = static_cast<char>('0' + fraction % 10);
  return out + decimals;
}

}  // namespace

void Document::Draw(std::string_view operators) {
  switch (target) {
    case Target::Page:
      pageBuffer += operators;
      break;
    case Target::Object:
      objectBuffer += operators;
      break;
    case Target::Tiling:
      tilingBuffer += operators;
      break;
    case Target::None:
      break;
  }
}

void Document::Transform(const Matrix& matrix) {
  const auto [a, b, c, d, e, f] = matrix;
  std::string operators;
  for (const double number : {a, b, c, d, e, f}) operators += Points(number) + " ";
  Draw(operators + "cm\n");
  const Matrix& outer = state.toPage;
  state.toPage = {outer.a * a + outer.c * b,           outer.b * a + outer.d * b,
                  outer.a * c + outer.c * d,           outer.b * c + outer.d * d,
                  outer.a * e + outer.c * f + outer.e, outer.b * e + outer.d * f + outer.f};
}

void Document::RememberBox(double left, double top, double right, double bottom) {
  const auto [a, b, c, d, e, f] = state.toPage;
  const auto [xLow, xHigh] = std::minmax(
      {a * left + c * top, a * right + c * top, a * left + c * bottom, a * right + c * bottom});
  const auto [yLow, yHigh] = std::minmax(
      {b * left + d * top, b * right + d * top, b * left + d * bottom, b * right + d * bottom});
  lastBox = {xLow + e, yLow + f, xHigh + e, yHigh + f};
}

std::string Document::Points(double points) const {
  std::string text;
  AppendPoints(points, text);
  return text;
}

void Document::AppendPoints(double points, std::string& out) const {
  const double unit = kPowersOfTen[static_cast<std::size_t>(precision)];
  const double scaled = std::abs(points) * unit + 0.5;  // to be cut to an integer
  if (!(scaled >= 1) || std::abs(points) > std::numeric_limits<float>::max()) {
    out += '0';
    return;
  }

  std::array<char, 64> text;  // 39 digits at most before the point
  char* stop = text.data();
  char* const end = text.data() + text.size();
  if (points < 0) *stop++ = '-';
  if (scaled < kSevenDigits) {
    stop = WriteScaled(stop, end, static_cast<std::uint32_t>(scaled), precision);
  } else {
    const auto single = static_cast<float>(std::floor(scaled) / unit);
    stop = std::to_chars(stop, end, single, std::chars_format::fixed).ptr;
  }
  out.append(text.data(), stop);
}

}  // namespace lm::pdf
