#include "reports/chartdrawing.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "core/text.h"
#include "reports/chartmarks.h"

namespace lm {
namespace {

using namespace literals;

constexpr ChartFont kTitleFont{16, true}, kSubTitleFont{10, false}, kLegendHead{9, true},
    kFont{9, false}, kNoteFont{8, false}, kNothingFont{12, false};
constexpr double kLine = 1.35;    // height of a line, in sizes of its font
constexpr double kAscent = 0.75;  // of a digit above the baseline, in sizes
constexpr double kGap = 6;
constexpr double kSubTitleGap = 11;  // 220 twips
constexpr double kLeastSide = 40;    // of a box that takes axes
constexpr double kUsualScale = 60;   // width of its texts, before they are known
constexpr double kStep = 34;         // between two lines of the scale
constexpr int kMostSteps = 10;
constexpr double kLongestLabel = 110;
constexpr double kSlant = 40;  // degrees of names that have no room side by side

constexpr double kLegendShare = 0.28;  // of the width, at most
constexpr double kSwatch = 20;

// So that months stand under one another from year to year, and days from week to week.
constexpr int kMonthStrides[] = {1, 2, 3, 6, 12, 24, 36, 60, 120};
constexpr int kDayStrides[] = {1, 2, 7, 14, 28, 56, 91, 182, 364, 728, 1456, 3660};

double Height(ChartFont font) { return font.size * kLine; }
double Radians(double degrees) { return degrees * std::numbers::pi / 180; }

double Widest(const std::vector<std::string>& texts, ChartCanvas& measure) {
  double widest = 0;
  for (const std::string& text : texts) widest = std::max(widest, measure.TextWidth(text, kFont));
  return widest;
}

// Every how many labels one has room for its text.
int StrideOf(const Chart& chart, double slot, double needed) {
  const int least = std::max(1, static_cast<int>(std::ceil(needed / slot)));
  if (!chart.ofTime) return least;
  const bool days = std::ranges::count(chart.labels.front(), ' ') > 1;
  const std::span<const int> strides = days ? std::span<const int>(kDayStrides) : kMonthStrides;
  const auto fitting = std::ranges::lower_bound(strides, least);
  return fitting == strides.end() ? least : *fitting;
}

}  // namespace

std::string Elided(std::string_view text, ChartFont font, double width, ChartCanvas& measure) {
  if (measure.TextWidth(text, font) <= width) return std::string(text);
  std::size_t fits = 0, tooLong = text.size();
  while (tooLong - fits > 1) {
    const std::size_t tried = (fits + tooLong) / 2;
    const bool narrow =
        measure.TextWidth(std::string(text.substr(0, tried)) + std::string("…"_w), font) <= width;
    (narrow ? fits : tooLong) = tried;
  }
  if (fits == 0) return "";
  std::string_view begin = text.substr(0, fits);
  while (begin.ends_with(' ')) begin.remove_suffix(1);
  return std::string(begin) + std::string("…"_w);
}

std::string PartText(const Chart& chart, ChartPart part) {
  const auto label = static_cast<std::size_t>(part.label);
  const ChartSeries& series = chart.series[static_cast<std::size_t>(part.series)];
  const double value = series.values[label];
  double whole = WholeOf(chart);
  if (chart.choice.type == ChartType::Percent)
    for (const ChartSeries& each : chart.series) whole += std::abs(each.values[label]);
  std::string text =
      chart.IsPie() ? chart.labels[label] + ": " : series.name + "\n" + chart.labels[label] + ": ";
  text += ChartValueText(value, chart.figures);
  if (whole > 0) text += " (" + ShareText(value / whole) + ")";
  return text;
}

ChartDrawing::ChartDrawing(const Chart& chart, const ChartTitles& titles, const ChartBox& box,
                           const ChartLook& look, ChartCanvas& measure)
    : chart_(chart), ink_(look.ink), whole_(box), room_(box) {
  if (look.withTitles) AddTitles(titles, measure);
  if (chart.IsEmpty()) {
    Add(room_.Middle(), kNothingToChart, {kNothingFont, ChartAnchor::Centre, ink_.faintText});
    return;
  }
  AddNote(measure);
  if (look.withTitles) AddLegend(measure);
  if (room_.width < kLeastSide || room_.height < kLeastSide) return;
  if (chart.IsPie())
    plot_ = MakePie(chart, room_, ink_);
  else
    AddAxes(measure);
}

void ChartDrawing::AddTitles(const ChartTitles& titles, ChartCanvas& measure) {
  const double middle = room_.Middle().x;
  double y = room_.y;
  const auto add = [&](std::string_view text, ChartFont font, Colour colour) {
    y += Height(font);
    Add({middle, y - font.size * (kLine - 1)}, Elided(text, font, room_.width, measure),
        {font, ChartAnchor::Centre, colour});
  };
  add(titles.main, kTitleFont, ink_.text);
  if (!titles.sub.empty()) {
    y += kSubTitleGap - kGap;
    add(titles.sub, kSubTitleFont, ink_.faintText);
  }
  y += 2 * kGap;
  room_.height = std::max(room_.Bottom() - y, 0.0);
  room_.y = y;
}

void ChartDrawing::AddNote(ChartCanvas& measure) {
  if (chart_.note.empty()) return;
  Add({room_.x, room_.Bottom() - kNoteFont.size * (kLine - 1)},
      Elided(chart_.note, kNoteFont, room_.width, measure),
      {kNoteFont, ChartAnchor::Left, ink_.faintText});
  room_.height -= Height(kNoteFont) + kGap;
}

void ChartDrawing::AddLegend(ChartCanvas& measure) {
  std::vector<std::string> names;
  for (int entry = 0; entry < chart_.Entries(); ++entry) names.push_back(chart_.EntryName(entry));
  const double most = room_.width * kLegendShare;
  const double width = std::min(kSwatch + kGap + Widest(names, measure) + 1, most);
  const double left = room_.Right() - width;
  double y = room_.y + Height(kLegendHead);
  Add({left, y - kLegendHead.size * (kLine - 1)}, "Legend",
      {kLegendHead, ChartAnchor::Left, ink_.text});
  for (const std::string& name : names) {
    const ChartBox line{left, y, width, Height(kFont) + 2};
    swatches_.push_back({line.x, line.y, kSwatch, line.height});
    Add({left + kSwatch + kGap, line.Middle().y + kFont.size * kAscent / 2},
        Elided(name, kFont, width - kSwatch - kGap, measure),
        {kFont, ChartAnchor::Left, ink_.text});
    y = line.Bottom();
  }
  room_.width -= width + 3 * kGap;
}

// The degrees by which the labels are turned: names that have no room side by side.
double ChartDrawing::SlantOf(double slot, ChartCanvas& measure) const {
  return !chart_.ofTime && Widest(chart_.labels, measure) + kGap > slot ? kSlant : 0;
}

void ChartDrawing::AddAxes(ChartCanvas& measure) {
  ChartSpans spans(chart_);
  const int labels = static_cast<int>(chart_.labels.size());
  const double slant = SlantOf((room_.width - kUsualScale) / labels, measure);
  const double longest = std::min(Widest(chart_.labels, measure), kLongestLabel);
  const double below = Height(kFont) + longest * std::sin(Radians(slant)) + kGap;
  const double above = Height(kFont) / 2;  // half of the scale's highest text
  ChartBox box{room_.x, room_.y + above, room_.width, room_.height - above - below};
  const int steps = std::clamp(static_cast<int>(box.height / kStep), 1, kMostSteps);
  const ChartScale scale =
      MakeScale(spans.Range(), chart_.figures, chart_.choice.type == ChartType::Percent, steps);
  std::vector<std::string> values;
  for (const double value : scale.Steps()) values.push_back(scale.Text(value));
  const double left = Widest(values, measure) + kGap;
  box.x += left;
  box.width -= left;
  if (box.width < kLeastSide || box.height < kLeastSide / 2) return;
  axes_.emplace(box, scale, labels);
  for (const double value : scale.Steps())
    Add({box.x - kGap, axes_->Y(value) + kFont.size * kAscent / 2}, scale.Text(value),
        {kFont, ChartAnchor::Right, ink_.faintText});
  AddLabels(slant, measure);
  plot_ = MakePlot(chart_, std::move(spans), *axes_, ink_);
}

void ChartDrawing::AddLabels(double slant, ChartCanvas& measure) {
  const ChartBox& box = axes_->Box();
  const double widest = Widest(chart_.labels, measure);
  const double needed = slant == 0 ? widest + kGap : Height(kFont) / std::sin(Radians(slant));
  const int stride = StrideOf(chart_, axes_->Slot(), needed);
  ChartTextStyle style{kFont, slant == 0 ? ChartAnchor::Centre : ChartAnchor::Right, ink_.text,
                       slant};
  for (int label = 0; label < axes_->Labels(); label += stride) {
    const std::string& text = chart_.labels[static_cast<std::size_t>(label)];
    const double x = axes_->Middle(label), y = box.Bottom() + kGap + kFont.size * kAscent;
    if (slant != 0) {
      const double most = std::min(kLongestLabel, (x - room_.x) / std::cos(Radians(slant)));
      Add({x + kGap / 2, y - kGap / 2}, Elided(text, kFont, most, measure), style);
      continue;
    }
    // The first of many days may begin left of its slot, the last one end right of the paper.
    const double half = measure.TextWidth(text, kFont) / 2;
    if (x + half > room_.Right() + 1 && axes_->Labels() > 1) continue;
    Add({std::max(x, room_.x + half), y}, text, style);
  }
}

void ChartDrawing::Paint(ChartCanvas& canvas) const {
  canvas.FillBox(whole_, ink_.ground);
  if (axes_) {
    const ChartBox& box = axes_->Box();
    for (const double value : axes_->Scale().Steps()) {
      const ChartPoint line[] = {{box.x, axes_->Y(value)}, {box.Right(), axes_->Y(value)}};
      canvas.DrawLine(line, {ink_.line, 0.75});
    }
  }
  if (plot_) plot_->Paint(canvas);
  if (axes_) {
    const ChartBox& box = axes_->Box();
    const ChartPoint zero[] = {{box.x, axes_->Y(0)}, {box.Right(), axes_->Y(0)}};
    canvas.DrawLine(zero, {ink_.axis, 1});
  }
  for (std::size_t entry = 0; entry < swatches_.size(); ++entry)
    PaintSwatch(canvas, chart_, static_cast<int>(entry), swatches_[entry], ink_.ground);
  for (const Text& text : texts_) canvas.DrawText(text.place, text.text, text.style);
}

std::optional<ChartPart> ChartDrawing::At(ChartPoint point) const {
  const bool outside = axes_ && !axes_->Box().Has(point);
  return plot_ && !outside ? plot_->At(point) : std::nullopt;
}

std::vector<ChartPoint> ChartDrawing::Outline(ChartPart part) const {
  return plot_ ? plot_->Outline(part) : std::vector<ChartPoint>{};
}

}  // namespace lm
