// By what the entries of a chart are told apart: colours, and on lines dashes and markers too, for
// readers who see colours otherwise.
#pragma once

#include <span>

#include "reports/chartcanvas.h"
#include "reports/chartseries.h"

namespace lm {

// The same on light and dark ground. Grey for "Others".
Colour ChartColour(const Chart& chart, int entry);
// Dark or light, whichever is read better on this ground.
Colour ReadableInk(Colour ground);

std::span<const double> ChartDashes(int entry);
void PaintMarker(ChartCanvas& canvas, const Chart& chart, int entry, ChartPoint middle);
// What stands before the entry's name in a legend, in the middle of the box.
void PaintSwatch(ChartCanvas& canvas, const Chart& chart, int entry, const ChartBox& box);

}  // namespace lm
