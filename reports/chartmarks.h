// By what the entries of a chart are told apart: colours, and on lines dashes and markers too, for
// readers who see colours otherwise.
#pragma once

#include <span>
#include <vector>

#include "reports/chartcanvas.h"
#include "reports/chartseries.h"

namespace lm {

// The same on light and dark ground. Grey for "Others".
Colour ChartColour(const Chart& chart, int entry);
// The same made strong enough for a line on this ground.
Colour ChartLineColour(const Chart& chart, int entry, Colour ground);
// Round a shape in the entry's colour, where that is too faint to be seen on the ground.
void PaintEdge(ChartCanvas& canvas, const Chart& chart, int entry, std::vector<ChartPoint> corners,
               Colour ground);

std::span<const double> ChartDashes(int entry);
void PaintMarker(ChartCanvas& canvas, const Chart& chart, int entry, ChartPoint middle,
                 Colour ground);
// What stands before the entry's name in a legend, in the middle of the box.
void PaintSwatch(ChartCanvas& canvas, const Chart& chart, int entry, const ChartBox& box,
                 Colour ground);

}  // namespace lm
