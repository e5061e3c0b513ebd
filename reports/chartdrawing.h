// A chart laid out in a box: axes, labels, values, and for files and paper titles and legend too.
// Screen, print, PNG, SVG and PDF are painted by this one drawing.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "reports/chartplots.h"

namespace lm {

struct ChartTitles {
  std::string main, sub;
};

struct ChartLook {
  ChartInk ink = kPaperInk;
  bool withTitles = true;  // and the legend: a window shows both beside the drawing
};

// In place of a chart without values.
constexpr std::string_view kNothingToChart = "Nothing on the report to chart";

class ChartDrawing {
 public:
  // Texts are measured by the canvas, which has to be of the kind that is painted on. The chart
  // outlives the drawing. A box that is too small for a chart shows its ground alone.
  ChartDrawing(const Chart& chart, const ChartTitles& titles, const ChartBox& box,
               const ChartLook& look, ChartCanvas& measure);

  void Paint(ChartCanvas& canvas) const;

  // The value under the pointer.
  std::optional<ChartPart> At(ChartPoint point) const;
  std::vector<ChartPoint> Outline(ChartPart part) const;

 private:
  struct Text {
    ChartPoint place;
    std::string text;
    ChartTextStyle style;
  };

  void Add(ChartPoint place, std::string_view text, const ChartTextStyle& style) {
    texts_.push_back({place, std::string(text), style});
  }
  void AddTitles(const ChartTitles& titles, ChartCanvas& measure);
  void AddNote(ChartCanvas& measure);
  void AddLegend(ChartCanvas& measure);
  void AddAxes(ChartCanvas& measure);
  void AddLabels(double slant, ChartCanvas& measure);
  double SlantOf(double slot, ChartCanvas& measure) const;

  const Chart& chart_;
  ChartInk ink_;
  ChartBox whole_;
  ChartBox room_;  // what is left of it
  std::vector<Text> texts_;
  std::vector<ChartBox> swatches_;  // one an entry of the legend
  std::optional<ChartAxes> axes_;
  std::unique_ptr<ChartPlot> plot_;
};

// The text cut to the width, with an ellipsis; "" where not even that has room.
std::string Elided(std::string_view text, ChartFont font, double width, ChartCanvas& measure);

// What is told of a value: "Riverside Surgery\nFeb 26: 1234.50 (45%)".
std::string PartText(const Chart& chart, ChartPart part);

}  // namespace lm
