// What the tests of the forms' rules share: a ledger with three practices, short ways to sessions
// and forms, and what the user was asked. Documents cannot be written there, so that a message of
// the printer may follow any form made.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "core/options.h"
#include "core/rows.h"
#include "core/text.h"
#include "pension/forms.h"
#include "pension/locks.h"
#include "tests/support/scripted_platform.h"

namespace lm::test {

using Cells = std::vector<std::string>;

struct RulesDesk : TestLedger {
  RulesDesk() {
    AddRow(ledger.fgPractices, {"ID=1", "NAME=Riverside"});
    AddRow(ledger.fgPractices, {"ID=2", "NAME=Abbey"});
    AddRow(ledger.fgPractices, {"ID=3", "NAME=Night Care"});
    for (const auto& [option, text] :
         std::initializer_list<std::pair<int, const char*>>{{optMandatoryContribution, "6.0"},
                                                            {optEmployerContribRate, "14.38"},
                                                            {optDefaultAVC, "0.00"},
                                                            {optExtraYearsContrib, "0"},
                                                            {optPensionCountry, "England"},
                                                            {optNewRowPosition, "BOTTOM"}})
      SetOption(ledger, option, text);
  }

  int AddSession(const std::string& practice, const std::string& date, const std::string& rate,
                 const Cells& more = {}) {
    Cells cells{"PRACTICE=" + practice,
                "SESS_TYPE=1",
                "SDATE=" + date,
                "RATE=" + rate,
                "EXTRAS=0",
                "EXPENSES=0",
                "EMPLOYERCONTRIB=0",
                "EMPLOYERCONTRIBRATE=14.38"};
    cells.insert(cells.end(), more.begin(), more.end());
    return AddRow(ledger.fgSessions, cells);
  }
  int AddFormA(const std::string& practice, const std::string& month, const std::string& amount,
               const Cells& more = {}) {
    Cells cells{"PRACTICE=" + practice, "MONTH=" + month, "AMOUNT=" + amount};
    cells.insert(cells.end(), more.begin(), more.end());
    return AddRow(ledger.fgPensionA, cells);
  }

  // Months are told by their keys: "042024".
  bool Make(const PensionForm& form, const std::string& practice, const std::string& month) {
    FormPrinter printer(ledger);
    const Making making =
        CreateForm(ledger, printer, form, MonthSessions(ledger, Month::OfKey(month)), practice);
    printer.Finish();
    return making == Making::Made;
  }
  bool MakeA(const std::string& practice, const std::string& month) {
    return Make(kFormA, practice, month);
  }
  bool MakeB(const std::string& month) { return Make(kFormB, "", month); }
  bool MakeSolo(const std::string& practice, const std::string& month) {
    return Make(kFormSolo, practice, month);
  }
  int MakeAll(const PensionForm& form, const std::string& month) {
    FormPrinter printer(ledger);
    const int made = CreateForms(ledger, printer, form, MonthSessions(ledger, Month::OfKey(month)));
    printer.Finish();
    return made;
  }
  int Row(const PensionForm& form, const std::string& month, const std::string& practice = "") {
    return RowOfForm(ledger, form, Month::OfKey(month), practice);
  }
  bool Delete(const PensionForm& form, const std::string& month, const std::string& practice = "") {
    return DeleteForm(ledger, form, Row(form, month, practice));
  }

  // The letters of all sessions in the order of the table, "-" for none.
  std::string Letters() const {
    const Grid& sessions = ledger.fgSessions;
    std::string all;
    for (int row = sessions.FixedRows(); row < sessions.Rows(); ++row) {
      if (sessions.IsSubtotal(row)) continue;
      const std::string forms = sessions.TextMatrix(row, "FORMS");
      all += (all.empty() ? "" : " ") + (forms.empty() ? "-" : forms);
    }
    return all;
  }

  // Title, heading and text of what was asked since the last call, a line each.
  std::string Questions() {
    std::string asked;
    for (const MessageBoxText& box : shown.messages)
      if (box.buttons == Buttons::YesNo)
        asked += box.title + "|" + box.mainPrompt + "|" + box.minorPrompt + "\n";
    shown.messages.clear();
    return asked;
  }
  // The same of the one message shown since the last call.
  std::string OneMessage() {
    std::string told = "(" + std::to_string(shown.messages.size()) + " messages)";
    if (shown.messages.size() == 1)
      told = shown.messages[0].title + "|" + shown.messages[0].mainPrompt + "|" +
             shown.messages[0].minorPrompt;
    shown.messages.clear();
    return told;
  }
};

inline std::string CellsOf(const Grid& grid, int row, const std::vector<std::string>& keys) {
  std::vector<std::string> texts;
  for (const std::string& key : keys) texts.push_back(grid.TextMatrix(row, key));
  return Join(texts, " ");
}

}  // namespace lm::test
