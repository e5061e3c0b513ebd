// What the tests of the session window share: a ledger with two practices.
#pragma once

#include <gtest/gtest.h>

#include "core/formatting.h"
#include "core/options.h"
#include "core/rows.h"
#include "core/text.h"
#include "records/frmSession.h"
#include "tests/support/scripted_platform.h"

namespace lm::test {

// Two practices; Riverside has hourly rates and lies 12 miles away and back.
struct Surgery : TestLedger {
  Surgery() {
    AddRow(ledger.fgPractices,
           {"ID=1", "NAME=Riverside", "MILEAGE=12", "RATE_NORMAL=100", "RATE_OOHS=73.33"});
    AddRow(ledger.fgPractices, {"ID=2", "NAME=Abbey"});
    SetOption(ledger, optEmployerContribRate, "14.38");
    FormatTables(ledger);
  }

  int AddSession(const std::vector<std::string>& cells) {
    const int row = AddRow(ledger.fgSessions,
                           {"PRACTICE=1", "SESS_TYPE=1", "SDATE=02/02/2026", "STIME=09:00",
                            "ETIME=12:00", "RATE=300", "EXTRAS=0", "EXPENSES=0",
                            "EMPLOYERCONTRIB=38.83", "EMPLOYERCONTRIBRATE=14.38", "TOTAL=338.83"});
    for (const std::string& cell : cells) {
      const auto equals = cell.find('=');
      ledger.fgSessions.SetTextMatrix(row, cell.substr(0, equals), cell.substr(equals + 1));
    }
    return row;
  }
  int AddExtra(const std::vector<std::string>& cells) { return AddRow(ledger.fgExtras, cells); }
  int AddExpense(const std::vector<std::string>& cells) {
    return AddRow(ledger.fgSessionExpenses, cells);
  }

  // The two prompts of the one message shown since the last call.
  std::pair<std::string, std::string> OneMessage() {
    std::pair<std::string, std::string> prompts{
        "(" + std::to_string(shown.messages.size()) + " messages)", ""};
    if (shown.messages.size() == 1)
      prompts = {shown.messages[0].mainPrompt, shown.messages[0].minorPrompt};
    shown.messages.clear();
    return prompts;
  }
};

using Prompts = std::pair<std::string, std::string>;

inline std::string Cells(const Grid& grid, int row, const std::vector<std::string>& keys) {
  std::string text;
  for (const std::string& key : keys) text += (text.empty() ? "" : " ") + grid.TextMatrix(row, key);
  return text;
}

inline std::string Sums(const frmSession& window) {
  return window.cPensionable.Text() + " " + window.cEmployerContrib.Text() + " " +
         window.cTotal.Text();
}

inline std::vector<bool> Marks(const frmSession& window) {
  std::vector<bool> marks;
  for (int tab = 0; tab < window.tabMain.Count(); ++tab)
    marks.push_back(window.tabMain.TabMarked(tab));
  return marks;
}

}  // namespace lm::test
