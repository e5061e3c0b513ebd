#include "core/contrast.h"

#include <cmath>

namespace lm {
namespace {

constexpr Colour kBlack = Rgb(0, 0, 0), kWhite = Rgb(255, 255, 255);
constexpr int kShades = 32;  // between a colour and black or white

int Red(Colour colour) { return colour & 0xFF; }
int Green(Colour colour) { return colour >> 8 & 0xFF; }
int Blue(Colour colour) { return colour >> 16 & 0xFF; }

double Linear(int channel) {
  const double part = channel / 255.0;
  return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double Luminance(Colour colour) {
  return 0.2126 * Linear(Red(colour)) + 0.7152 * Linear(Green(colour)) +
         0.0722 * Linear(Blue(colour));
}

}  // namespace

double ContrastRatio(Colour a, Colour b) {
  const double first = Luminance(a), second = Luminance(b);
  return (std::fmax(first, second) + 0.05) / (std::fmin(first, second) + 0.05);
}

Colour ReadableInk(Colour ground) {
  return ContrastRatio(kBlack, ground) >= ContrastRatio(kWhite, ground) ? kBlack : kWhite;
}

Colour Mixed(Colour a, Colour b, double share) {
  const auto mix = [share](int x, int y) { return static_cast<int>(x + (y - x) * share); };
  return Rgb(mix(Red(a), Red(b)), mix(Green(a), Green(b)), mix(Blue(a), Blue(b)));
}

Colour StandingOut(Colour colour, Colour ground, double ratio) {
  const Colour ink = ReadableInk(ground);
  for (int shade = 0; shade < kShades; ++shade) {
    const Colour mixed = Mixed(colour, ink, static_cast<double>(shade) / kShades);
    if (ContrastRatio(mixed, ground) >= ratio) return mixed;
  }
  return ink;
}

}  // namespace lm
