// What the tests of the form windows share: a desk on which documents can be written, and short
// ways into a window.
#pragma once

#include <filesystem>

#include "core/formatting.h"
#include "pension/formwindow.h"
#include "pension/shippedforms.h"
#include "pension/windows.h"
#include "tests/pension/rules_desk.h"

namespace lm::test {

struct WindowDesk : RulesDesk {
  WindowDesk() {
    SetOption(ledger, optDateFormat, "d/m/yy");
    FormatTables(ledger);
    std::filesystem::create_directories(ledger.File("Pension Forms"));
    std::filesystem::create_directories(ledger.File("Form Templates"));
    PlaceShippedForms(ledger);
  }

  bool IsWritten(const std::string& name) const {
    return std::filesystem::exists(ledger.File("Pension Forms") / name);
  }
  // Main prompts of all messages since the last call, parted by "|".
  std::string Messages() {
    std::string all;
    for (const MessageBoxText& box : shown.messages)
      all += (all.empty() ? "" : "|") + box.mainPrompt;
    shown.messages.clear();
    return all;
  }
  void PickDay(const char* day) {
    shown.modal.push_back([day](Screen& picker) {
      Grid& month = *picker.Grids().front().grid;
      for (int row = 0; row < month.Rows(); ++row)
        for (int col = 0; col < month.Cols() && !picker.Closed(); ++col)
          if (month.TextMatrix(row, col) == day) picker.Click(month, row, col);
    });
  }
};

// A list's rows as shown, cells parted by "|".
inline std::vector<std::string> ShownRows(const Grid& grid, const std::vector<std::string>& keys) {
  std::vector<std::string> rows;
  for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
    std::string text;
    for (const std::string& key : keys)
      text += (&key == &keys.front() ? "" : "|") + grid.DisplayText(row, key);
    rows.push_back(text);
  }
  return rows;
}

// The figures of fgDetails as "letter=figure", a blank between; a line without a letter is "=...".
inline std::string Figures(const FormWindow& window) {
  std::string text;
  for (const std::string& row : ShownRows(window.fgDetails, {"LETTER", "VALUE"}))
    text += (text.empty() ? "" : " ") + row.substr(0, row.find('|')) + "=" +
            row.substr(row.find('|') + 1);
  return text;
}

inline EditOutcome Type(FormWindow& window, int line, const std::string& text) {
  return window.Edit(window.fgDetails, line + 1, window.fgDetails.ColIndex("VALUE"), text);
}

// Lines count from 1, as on the screen.
inline void PressHelp(FormWindow& window, int line) {
  window.Click(window.fgDetails, line + 1, window.fgDetails.ColIndex("ICON"));
}

}  // namespace lm::test
