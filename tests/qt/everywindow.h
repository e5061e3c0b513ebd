// Every window of the program, shown once with what it can be opened for.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "core/frmGetPassword.h"
#include "entry/frmPopupCalendar.h"
#include "entry/frmPopupClock.h"
#include "entry/frmPopupNumbers.h"
#include "reports/frmChart.h"
#include "reports/frmChartOptions.h"
#include "shell/frmMain.h"
#include "shell/qt/views.h"
#include "shell/windows.h"
#include "tests/qt/demo.h"
#include "tests/reports/chart_desk.h"

namespace lm::test {

using Visit = std::function<void(Screen&)>;

template <typename S, typename... Rest>
std::function<void(Ledger&, const Visit&)> Make(Rest... rest) {
  return [=](Ledger& ledger, const Visit& visit) {
    S screen(ledger, rest...);
    visit(screen);
  };
}

inline void MakeChart(Ledger& ledger, const Visit& visit) {
  const ReportMatrix report = YearOfWork();
  frmChart screen(ledger, report, "Work Value", "A year");
  visit(screen);
}

// The windows that the program opens itself, and never by their name.
inline const std::map<std::string, std::function<void(Ledger&, const Visit&)>> kOwnWindows{
    {"frmChart", MakeChart},
    {"frmChartOptions", Make<frmChartOptions>(ChartChoice{}, [](ChartChoice) {})},
    {"frmGetPassword", Make<frmGetPassword>("LedgerMinder.dat")},
    {"frmPopupCalendar", Make<frmPopupCalendar>("Date")},
    {"frmPopupClock", Make<frmPopupClock>("Time")},
    {"frmPopupNumbers", Make<frmPopupNumbers>("Amount")},
};

// Shows every window of the program once, each with what it can be opened for.
struct Windows {
  TestLedger test;
  WindowCatalogue catalogue;
  std::unique_ptr<frmMain> main;  // brings windows of its own

  Windows() {
    FillDemo(test);
    FillPensionDemo(test);
    AddWindows(catalogue);
    main = std::make_unique<frmMain>(test, catalogue);
  }
  std::vector<std::string> Names() const {
    std::vector<std::string> names = catalogue.Names();
    for (const auto& [name, make] : kOwnWindows) names.push_back(name);
    return names;
  }
  void Show(const std::string& name, const Visit& visit) {
    if (const auto own = kOwnWindows.find(name); own != kOwnWindows.end())
      return own->second(test, visit);
    bool shown = false;
    test.shown.modal = {[&](Screen& screen) {
      shown = true;
      EXPECT_EQ(screen.Name(), name);
      visit(screen);
      screen.Close();
    }};
    const std::vector<std::string> kWords[] = {{"new"},
                                               {"open", "1"},
                                               {"open", "1 012026"},
                                               {"open", "022026"},
                                               {"open", "3 012026"},
                                               {"GPnetworks"}};
    for (const auto& words : kWords)
      if (!shown) catalogue.Open(test, name, words);
    EXPECT_TRUE(shown) << name;
  }
  void ShowEach(const std::function<void(Screen&, const ViewSpec&)>& visit) {
    for (const std::string& name : Names()) {
      const ViewSpec* view = FindView(name);
      ASSERT_NE(view, nullptr) << name << " has no view";
      Show(name, [&](Screen& screen) { visit(screen, *view); });
    }
  }
};

}  // namespace lm::test
