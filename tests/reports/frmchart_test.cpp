#include "reports/frmChart.h"

#include <gtest/gtest.h>

#include <pugixml.hpp>

#include "core/files.h"
#include "reports/frmChartOptions.h"
#include "tests/pdf/rendered_page.h"
#include "tests/reports/chart_desk.h"
#include "tests/support/scripted_platform.h"

namespace lm::test {
namespace {

struct FrmChartTest : testing::Test {
  TestLedger test;
  ReportMatrix report = YearOfWork();
  frmChart window{test, report, "Work Value", "April 2025 to March 2026"};

  // Presses a button of the options, with the window still open behind.
  void InOptions(const std::function<void(frmChartOptions&)>& act) {
    test.shown.modal.push_back([&](Screen& screen) {
      ASSERT_EQ(screen.Name(), "frmChartOptions");
      act(dynamic_cast<frmChartOptions&>(screen));
    });
    window.Press(window.cmdChartOptions);
  }
  void Save(const std::string& name, std::size_t filter = 0) {
    test.shown.saveFile = test.directory.Path() / name;
    test.shown.saveFilter = filter;
    window.Press(window.cmdSaveChart);
  }
  std::string Saved(const std::string& name) {
    std::string error;
    return ReadFile(test.directory.Path() / name, error).value_or("none");
  }
};

TEST_F(FrmChartTest, LegendNamesTheEntriesInTheirColours) {
  EXPECT_EQ(window.lblLegend.Text(), "Legend");
  Grid& legend = window.fgLegend;
  const int first = legend.FixedRows(), colour = legend.ColIndex("COLOUR");
  ASSERT_EQ(legend.Rows() - first, 1);
  window.SetChoice({ChartType::Lines, ChartGroup::Date});
  ASSERT_EQ(legend.Rows() - first, 4);
  EXPECT_EQ(legend.TextMatrix(first + 3, "NAME"), "County OOH Service");
  EXPECT_NE(legend.CellColour(CellSetting::flexcpBackColor, first, colour),
            legend.CellColour(CellSetting::flexcpBackColor, first + 1, colour));
}

TEST_F(FrmChartTest, ChoicesActAtOnceAndAreKept) {
  int changes = 0;
  window.SetDesktop({nullptr, nullptr, [&] { ++changes; }});
  changes = 0;
  InOptions([&](frmChartOptions& options) {
    EXPECT_EQ(options.picChartType.Selected(), 0);
    EXPECT_TRUE(options.picByPractice.Checked());
    options.Enter(options.picChartType, "Lines");
    EXPECT_EQ(window.Shown().choice.type, ChartType::Lines);
    for (Field* pressed :
         {static_cast<Field*>(&options.picByDate), static_cast<Field*>(&options.lblByDate)}) {
      options.Press(options.lblByPractice);
      EXPECT_EQ(window.Shown().choice.group, ChartGroup::Practice);
      options.Press(*pressed);
      EXPECT_EQ(window.Shown().choice.group, ChartGroup::Date);
      EXPECT_TRUE(options.picByDate.Checked());
      EXPECT_FALSE(options.picByPractice.Checked());
    }
    options.Tick(options.picByDate, false);
    EXPECT_TRUE(options.picByPractice.Checked());
    options.Tick(options.picByDate, true);
    EXPECT_FALSE(options.picByPractice.Checked());
    options.Press(options.cmdClose);
    EXPECT_TRUE(options.Closed());
  });
  EXPECT_EQ(changes, 7);
  const frmChart later(test, report, "Later", "");
  EXPECT_EQ(later.Shown().choice, (ChartChoice{ChartType::Lines, ChartGroup::Date}));
}

TEST_F(FrmChartTest, SavesByKindOrByTheNameTyped) {
  Save("a.svg");
  pugi::xml_document document;
  EXPECT_TRUE(document.load_string(Saved("a.svg").c_str()));
  EXPECT_EQ(test.shown.saveStart.filename(), "Work Value April 2025 to March 2026.svg");
  Save("b", 1);
  EXPECT_EQ(Saved("b.pdf").substr(0, 5), "%PDF-");
  EXPECT_EQ(CheckPdf(test.directory.Path() / "b.pdf"), 0);
  Save("c.PDF");  // though the first kind is chosen
  EXPECT_EQ(Saved("c.PDF").substr(0, 5), "%PDF-");

  window.SetDesktop({[] { return "picture"; }, nullptr, nullptr});
  Save("d");
  EXPECT_EQ(Saved("d.png"), "picture");
  EXPECT_EQ(test.shown.saveStart.extension(), ".png");
  test.shown.saveFile.clear();
  window.Press(window.cmdSaveChart);
  EXPECT_TRUE(test.shown.messages.empty());
}

TEST_F(FrmChartTest, AFailedSaveIsToldAndLeavesTheOldFile) {
  for (const char* name : {"missing/a.svg", "missing/a.pdf"}) {
    Save(name);
    ASSERT_EQ(test.shown.messages.size(), 1u) << name;
    const std::string reason = test.shown.messages[0].minorPrompt;
    EXPECT_NE(reason.find(name), std::string::npos);
    EXPECT_EQ(reason.find("document"), std::string::npos) << reason;
    EXPECT_NE(test.shown.TakeMessage(), "");
    test.shown.messages.clear();
  }
  Save("old.png");
  window.SetDesktop({[] { return ""; }, nullptr, nullptr});
  const std::string old = Saved("old.png");
  Save("old.png");
  EXPECT_NE(test.shown.TakeMessage(), "");
  EXPECT_EQ(Saved("old.png"), old);
  Save("LedgerMinder.dat");
  EXPECT_NE(test.shown.TakeMessage(), "");
}

TEST_F(FrmChartTest, WithoutADesktopNothingIsPrinted) {
  EXPECT_FALSE(window.cmdPrintChart.Enabled());
  bool printed = false;
  window.SetDesktop({nullptr, [&] { printed = true; }, nullptr});
  window.Press(window.cmdPrintChart);
  EXPECT_TRUE(printed);
}

TEST_F(FrmChartTest, EmptyReports) {
  const ReportMatrix empty({"A"}, {{"Jan 26", {"0"}}});
  EXPECT_FALSE(ShowChart(test, empty, "T", ""));
  ASSERT_EQ(test.shown.messages.size(), 1u);
  EXPECT_EQ(test.shown.messages[0].title, "Chart");
  EXPECT_EQ(test.shown.messages[0].mainPrompt, "There are no values on the report to chart");
  const frmChart inside(test, empty, "T", "");
  EXPECT_TRUE(inside.Shown().IsEmpty());
  EXPECT_FALSE(inside.cmdSaveChart.Enabled());
  bool shown = false;
  test.shown.modal.push_back([&](Screen& screen) { shown = screen.Name() == "frmChart"; });
  EXPECT_TRUE(ShowChart(test, report, "T", ""));
  EXPECT_TRUE(shown);
}

}  // namespace
}  // namespace lm::test
