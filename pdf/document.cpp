#include "pdf/document.h"

#include <array>
#include <charconv>
#include <cmath>

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

std::string Document::Points(double points) const {
  const double unit = kPowersOfTen[static_cast<std::size_t>(precision)];
  const double scaled = std::floor(std::abs(points) * unit + 0.5);
  if (!(scaled > 0)) return "0";

  std::array<char, 64> text;  // 39 digits at most before the point
  char* out = text.data();
  char* const end = text.data() + text.size();
  if (points < 0) *out++ = '-';
  if (scaled < kSevenDigits) {
    out = WriteScaled(out, end, static_cast<std::uint32_t>(scaled), precision);
  } else {
    const auto single = static_cast<float>(scaled / unit);
    if (!std::isfinite(single)) return "0";
    out = std::to_chars(out, end, single, std::chars_format::fixed).ptr;
  }
  return {text.data(), out};
}

}  // namespace lm::pdf
