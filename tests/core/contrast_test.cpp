#include "core/contrast.h"

#include <gtest/gtest.h>

namespace lm::test {
namespace {

constexpr Colour kWhite = Rgb(255, 255, 255), kBlack = Rgb(0, 0, 0);

TEST(Contrast, IsThatOfTheGuidelines) {
  EXPECT_DOUBLE_EQ(ContrastRatio(kWhite, kBlack), 21);
  EXPECT_DOUBLE_EQ(ContrastRatio(kBlack, kBlack), 1);
  // The darkest grey that fails on white, and the next that passes.
  EXPECT_LT(ContrastRatio(Rgb(0x77, 0x77, 0x77), kWhite), kTextContrast);
  EXPECT_GT(ContrastRatio(Rgb(0x76, 0x76, 0x76), kWhite), kTextContrast);
}

TEST(Contrast, EveryColourStandsOutFromEveryGround) {
  for (int red = 0; red < 256; red += 51)
    for (int green = 0; green < 256; green += 51)
      for (int blue = 0; blue < 256; blue += 51) {
        const Colour ground = Rgb(red, green, blue);
        EXPECT_GE(ContrastRatio(ReadableInk(ground), ground), kTextContrast);
        for (const Colour colour : {kBlack, kWhite, Rgb(0, 255, 255), Rgb(128, 128, 128), ground})
          EXPECT_GE(ContrastRatio(StandingOut(colour, ground), ground), kTextContrast);
      }
}

TEST(Contrast, WhatStandsOutStaysAsItIs) {
  const Colour blue = Rgb(0x1f, 0x6f, 0xb5);
  EXPECT_EQ(StandingOut(blue, kWhite), blue);
  EXPECT_EQ(StandingOut(StandingOut(kWhite, blue), blue), StandingOut(kWhite, blue));
}

}  // namespace
}  // namespace lm::test
