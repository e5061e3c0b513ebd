// The month that drops under a date field.
#pragma once

#include <string>
#include <string_view>

#include "core/dates.h"
#include "core/grid.h"
#include "entry/pickers.h"

namespace lm {

class frmPopupCalendar : public PopupPicker {
 public:
  explicit frmPopupCalendar(Ledger& ledger, std::string_view caption = "");

  Grid fg{"fg"};              // a heading row, then six weeks; each day's data is its date
  Grid fgMonths{"fgMonths"};  // "Jan" to "Dec" while the month list is open, else no rows
  LabelField lblMonth{this, "lblMonth"};
  Button cmdMonthDown{this, "cmdMonthDown"};
  Button cmdMonthUp{this, "cmdMonthUp"};
  Button cmdToday{this, "cmdToday"};
  Button cmdClear{this, "cmdClear"};

  // The date in `result` as dd/mm/yyyy, empty when nothing was chosen. A text that is no date
  // opens the picker on today.
  void ChooseDate(std::string_view dateText, std::string& result);

  bool MonthsOpen() const { return fgMonths.Rows() > 0; }

  // The keyboard: moves the marked day, and takes it.
  void MoveDay(int days);
  void TakeDay();

  bool KeyPressed(int key, char character) override;

 protected:
  void CellClicked(Grid& grid, int row, int col) override;
  void StartFrom(std::string_view text) override;

 private:
  void ShowDay(Date day);
  void StepMonth(int direction);
  void OpenMonths(bool open);
  void MonthClicked(int row, int col);
  void FillMonth();

  Date day_ = 0;
};

}  // namespace lm
