#include "reports/chartdrawing.h"
#include "reports/chartsummary.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <pugixml.hpp>

#include "core/files.h"
#include "core/text.h"
#include "reports/chartmarks.h"
#include "reports/chartpdf.h"
#include "reports/chartsvg.h"
#include "tests/pdf/rendered_page.h"
#include "tests/reports/chart_desk.h"
#include "tests/support/scripted_platform.h"
#include "tests/support/tools.h"

namespace lm::test {
namespace {

using namespace literals;

constexpr ChartBox kPaper{0, 0, 800, 560};

// Counts what is drawn, and keeps the texts with their places.
class Recorder : public ChartCanvas {
 public:
  struct Text {
    std::string text;
    double left, right, y;
  };
  std::vector<Text> texts;
  std::size_t corners = 0;
  bool outside = false;

  double TextWidth(std::string_view text, ChartFont font) override {
    return measure_.TextWidth(text, font);
  }
  void FillBox(const ChartBox& box, Colour) override {
    See({box.x, box.y});
    See({box.Right(), box.Bottom()});
  }
  void FillPolygon(std::span<const ChartPoint> points, Colour) override {
    for (const ChartPoint& point : points) See(point);
  }
  void DrawLine(std::span<const ChartPoint> points, const ChartPen&) override {
    for (const ChartPoint& point : points) See(point);
  }
  void DrawText(ChartPoint place, std::string_view text, const ChartTextStyle& style) override {
    const double width = style.turned == 0 ? TextWidth(text, style.font) : style.font.size;
    const double left = style.turned != 0                     ? place.x - width
                        : style.anchor == ChartAnchor::Centre ? place.x - width / 2
                        : style.anchor == ChartAnchor::Right  ? place.x - width
                                                              : place.x;
    texts.push_back({std::string(text), left, left + width, place.y});
    outside |= left < -1 || left + width > kPaper.width + 1;
  }

  std::string Texts() const {
    std::string all;
    for (const Text& each : texts) all += each.text + "|";
    return all;
  }

 private:
  void See(ChartPoint point) {
    ++corners;
    outside |= !(point.x > -1 && point.y > -1 && point.x < kPaper.width + 1 &&
                 point.y < kPaper.height + 1);
  }

  SvgCanvas measure_{1, 1};
};

struct Drawn {
  Chart chart;
  Recorder canvas;
  ChartDrawing drawing;

  Drawn(const Grid& report, ChartType type, ChartGroup group = ChartGroup::Date,
        const ChartTitles& titles = {"Work Value", "1 Feb 26 to 3 Mar 26"})
      : chart(MakeChart(report, {type, group})), drawing(chart, titles, kPaper, {}, canvas) {
    drawing.Paint(canvas);
  }
  // The texts that stand in the line of this one.
  std::vector<Recorder::Text> LineOf(const std::string& text) const {
    std::vector<Recorder::Text> line;
    for (const Recorder::Text& each : canvas.texts)
      if (each.text == text) line.push_back(each);
    const double y = line.empty() ? -1 : line.front().y;
    line.clear();
    for (const Recorder::Text& each : canvas.texts)
      if (each.y == y) line.push_back(each);
    return line;
  }
};

const std::vector<ChartType> kTypes{ChartType::Columns, ChartType::Stacked, ChartType::Percent,
                                    ChartType::Lines,   ChartType::Areas,   ChartType::Pie};

TEST(ChartDrawingTest, EveryTypeStaysOnItsPaper) {
  const std::vector<std::string> many(200, "-8:30");
  const ReportMatrix reports[] = {
      YearOfWork(),
      {Numbered("Very Long Name of a Practice in the Country, Number", 200), Days(3, 200)},
      {{"A", "B"}, {{"Jan 26", {"5", "-3"}}, {"Feb 26", {"-1", "7"}}}},
      {{"A", "B"}, {{"Jan 26", {"36:30", "-8:30"}}}, ""},
      {{"A"}, {{"Jan 26", {"-8:30"}}}, ""},
      {{"A"}, {{"Jan 26", {"1e300"}}}},
      {{"A"}, {{"Jan 26", {"0.0001"}}}, "#"},
      {Numbered("P", 200), {{"Jan 26", many}}, ""},
      {{"A"}, {{"no date", {"1"}}}},
      {{"A"}, {}}};
  for (const ReportMatrix& report : reports)
    for (const ChartType type : kTypes)
      for (const ChartGroup group : {ChartGroup::Date, ChartGroup::Practice}) {
        const Drawn drawn(report, type, group);
        EXPECT_FALSE(drawn.canvas.outside) << int(type) << drawn.canvas.Texts();
        for (double x = 1; x < kPaper.width; x += 13)
          for (double y = 1; y < kPaper.height; y += 13)
            if (const auto part = drawn.drawing.At({x, y})) {
              EXPECT_FALSE(PartText(drawn.chart, *part).empty());
              EXPECT_GE(drawn.drawing.Outline(*part).size(), 4u);
            }
      }
}

TEST(ChartDrawingTest, ScalesAreRound) {
  struct Case {
    ChartRange range;
    ChartFigures figures;
    bool shares;
    std::string texts;
  };
  const Case kCases[] = {
      {{0, 4300}, ChartFigures::Money, false, "0.00|1000.00|2000.00|3000.00|4000.00|5000.00|"},
      {{0, 0.03}, ChartFigures::Money, false, "0.00|0.01|0.02|0.03|"},
      {{0, 3}, ChartFigures::Count, false, "0|1|2|3|"},
      {{0, 1}, ChartFigures::Count, false, "0|1|"},
      {{0, 2190}, ChartFigures::Hours, false, "0:00|10:00|20:00|30:00|40:00|"},
      {{0, 95}, ChartFigures::Hours, false, "0:00|0:30|1:00|1:30|2:00|"},
      {{-510, 300}, ChartFigures::Hours, false, "-10:00|-5:00|0:00|5:00|"},
      {{-30, 0}, ChartFigures::Count, false, "-30|-20|-10|0|"},
      {{0, 1}, ChartFigures::Money, true, "0%|20%|40%|60%|80%|100%|"},
      {{-0.4, 0.6}, ChartFigures::Money, true, "-40%|-20%|0%|20%|40%|60%|"},
      {{0, 0}, ChartFigures::Hours, false, "0:00|0:15|0:30|0:45|1:00|"},
  };
  for (const Case& each : kCases) {
    const ChartScale scale = MakeScale(each.range, each.figures, each.shares, 5);
    std::string texts;
    for (const double value : scale.Steps()) texts += scale.Text(value) + "|";
    EXPECT_EQ(texts, each.texts);
    EXPECT_LE(scale.low, each.range.low);
    EXPECT_GE(scale.high, each.range.high - 1e-9);
  }
}

TEST(ChartDrawingTest, LabelsNeverOverlap) {
  for (const int days : {5, 40, 400, 3659}) {
    const Drawn drawn(ReportMatrix({"A"}, Days(days, 1)), ChartType::Columns);
    const auto line = drawn.LineOf("03 Feb 26");
    ASSERT_GE(line.size(), 4u) << days;
    for (std::size_t i = 1; i < line.size(); ++i)
      EXPECT_GT(line[i].left, line[i - 1].right) << days << line[i].text;
  }
}

TEST(ChartDrawingTest, TellsWhatIsUnderThePointer) {
  const ReportMatrix report({"A", "B"}, {{"Jan 26", {"10", "30"}}, {"Feb 26", {"20", "25"}}});
  for (const ChartType type : kTypes) {
    const Drawn drawn(report, type);
    for (const ChartPart part : {ChartPart{0, 0}, ChartPart{0, 1}}) {
      double x = 0, y = 0;
      const auto outline = drawn.drawing.Outline(part);
      for (const ChartPoint& corner : outline) {
        x += corner.x / static_cast<double>(outline.size());
        y += corner.y / static_cast<double>(outline.size());
      }
      EXPECT_EQ(drawn.drawing.At({x, y}), part) << int(type) << " " << part.label;
    }
    EXPECT_EQ(drawn.drawing.At({-50, -50}), std::nullopt);
  }
  const Chart columns = MakeChart(report, {ChartType::Columns, ChartGroup::Date});
  EXPECT_EQ(PartText(columns, {1, 0}), "B\nJan 26: 30.00");
  const Chart shares = MakeChart(report, {ChartType::Percent, ChartGroup::Date});
  EXPECT_EQ(PartText(shares, {1, 0}), "B\nJan 26: 30.00 (75%)");
  const Chart pie = MakeChart(report, {ChartType::Pie, ChartGroup::Practice});
  EXPECT_EQ(PartText(pie, {0, 0}), "A: 30.00 (35%)");
  EXPECT_TRUE(ChartSummary(pie).starts_with("Pie. A: 30.00 (35%); B: ")) << ChartSummary(pie);
}

TEST(ChartDrawingTest, WhatAChartShowsIsToldInWords) {
  const ReportMatrix report = YearOfWork();
  EXPECT_EQ(ChartSummary(MakeChart(report, {ChartType::Lines, ChartGroup::Date})),
            "Lines, Apr 25 to Mar 26. Riverside Surgery: 1510.00 at most, in Oct 25; "
            "Elm Tree Medical Centre: 910.00 at most, in Aug 25; "
            "Harbour Practice: 1120.00 at most, in Feb 26; "
            "County OOH Service: 640.00 at most, in Mar 26");
  EXPECT_EQ(ChartSummary({}), kNothingToChart);
}

TEST(ChartDrawingTest, AnEmptyReportSaysSo) {
  const Drawn drawn(Grid("fgReports"), ChartType::Columns);
  EXPECT_NE(drawn.canvas.Texts().find(kNothingToChart), std::string::npos);
}

// However many values there are, what is drawn has a bound: no slot of the axis is narrower than a
// point.
TEST(ChartDrawingTest, TenYearsOfDaysAreDrawnInPoints) {
  const ReportMatrix report(Numbered("P", 60), Days(3659, 60));
  for (const ChartType type : kTypes) {
    const Drawn drawn(report, type);
    EXPECT_LT(drawn.canvas.corners, 100'000u) << int(type);
    EXPECT_GT(drawn.canvas.corners, 100u) << int(type);
  }
}

// A day that stands out is not lost among its neighbours.
TEST(ChartDrawingTest, PeaksStayAmongManyDays) {
  std::vector<ReportRow> rows = Days(3659, 1);
  rows[1801].cells = {"500"};
  for (const ChartType type : {ChartType::Columns, ChartType::Lines, ChartType::Areas}) {
    const Drawn drawn(ReportMatrix({"A"}, rows), type);
    bool found = false;
    for (double x = 0; x < kPaper.width; x += 0.5)
      for (double y = 40; y < 120; y += 5)
        if (const auto part = drawn.drawing.At({x, y})) found |= part->label == 1801;
    EXPECT_TRUE(found) << int(type);
  }
}

TEST(ChartDrawingTest, SvgIsWellFormed) {
  const ReportMatrix report({"Caf\xE9 & <Sons> \"\x01\x80", "B"}, {{"Jan 26", {"5", "-3"}}});
  for (const ChartType type : kTypes)
    for (const ChartGroup group : {ChartGroup::Date, ChartGroup::Practice}) {
      const Chart chart = MakeChart(report, {type, group});
      SvgCanvas canvas(kPaper.width, kPaper.height);
      ChartDrawing(chart, {"A & B\x02", ""}, kPaper, {}, canvas).Paint(canvas);
      const std::string svg = canvas.Finish();
      pugi::xml_document document;
      ASSERT_TRUE(document.load_string(svg.c_str())) << svg;
      EXPECT_EQ(svg.find_first_of("\x01\x02"), std::string::npos);
      bool named = false;
      for (const pugi::xml_node& text : document.child("svg").children("text"))
        named |= std::string(text.text().get()) == ToUtf8("Caf\xE9 & <Sons> \"\x80");
      EXPECT_TRUE(named || type == ChartType::Pie || group == ChartGroup::Practice) << svg;
    }
}

TEST(ChartDrawingTest, PdfIsSoundAndReadable) {
  const TempDirectory directory;
  const ReportMatrix report = YearOfWork();
  for (const ChartType type : kTypes) {
    const auto file = directory.Path() / (std::to_string(int(type)) + ".pdf");
    const Chart chart = MakeChart(report, {type, ChartGroup::Practice});
    clsPDFCreator pdf(StandingClock());
    pdf.SetScale(0);
    pdf.BeginDoc(PathText(file));
    pdf.SetPaperSize(1);
    pdf.BeginPage();
    PdfCanvas canvas(pdf);
    ChartDrawing(chart, {"Work Value", "A year"}, kPaper, {}, canvas).Paint(canvas);
    EXPECT_TRUE(pdf.EndDoc()) << pdf.ErrDescription();
    EXPECT_EQ(pdf.ErrNumber(), 0) << pdf.ErrDescription();
    EXPECT_EQ(CheckPdf(file), 0);
    const std::string text = OutputOf("pdftotext '" + file.string() + "' -");
    for (const char* each : {"Work Value", "A year", "Legend", "Riverside Surgery"})
      EXPECT_TRUE(text.find(each) != std::string::npos || std::string(each) == "Riverside Surgery")
          << text;
    const Colour first = ChartColour(chart, 0);
    const Pixel wanted{first & 0xFF, first >> 8 & 0xFF, first >> 16 & 0xFF};
    const RenderedPage page(file, 1);
    int found = 0;
    for (int y = 0; y < page.Height(); ++y)
      for (int x = 0; x < page.Width(); ++x) found += page.At(x, y) == wanted;
    EXPECT_GT(found, 300) << int(type);
  }
}

}  // namespace
}  // namespace lm::test
