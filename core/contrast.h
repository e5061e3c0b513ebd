// How well one colour is seen on another.
#pragma once

#include "core/grid.h"

namespace lm {

// What texts, and what lines, edges and icons, need to be seen by most eyes (WCAG 2.1, success
// criteria 1.4.3 and 1.4.11).
constexpr double kTextContrast = 4.5, kMarkContrast = 3;

// From 1, of equal colours, to 21, of black and white (WCAG 2.1, "contrast ratio").
double ContrastRatio(Colour a, Colour b);
// Black or white, whichever is read better on this ground.
Colour ReadableInk(Colour ground);
// From a towards b: a share of 0 is all a, of 1 all b.
Colour Mixed(Colour a, Colour b, double share);
// The colour itself, or as little darker or lighter as it takes to stand out from the ground. No
// ratio above 4.5 can be had on every ground; the best there is then.
Colour StandingOut(Colour colour, Colour ground, double ratio = kTextContrast);

}  // namespace lm
