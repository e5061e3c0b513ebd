// The number pad that drops under an amount field.
#pragma once

#include <array>
#include <memory>
#include <string_view>

#include "entry/pickers.h"

namespace lm {

class frmPopupNumbers : public PopupPicker {
 public:
  explicit frmPopupNumbers(Ledger& ledger, std::string_view caption = "");

  LabelField lblNumbers{this, "lblNumbers"};          // the growing amount, in pounds
  std::array<std::unique_ptr<Button>, 10> cmdNumber;  // "cmdNumber0" to "cmdNumber9"
  Button cmdDecimal{this, "cmdDecimal"};
  Button cmdBackspace{this, "cmdBackspace"};
  Button cmdClear{this, "cmdClear"};
  Button cmdOK{this, "cmdOK"};
  Button cmdCancel{this, "cmdCancel"};

  // The keyboard: a digit, the point and backspace press their buttons; false for any other.
  bool Key(char character);

  bool KeyPressed(int key, char character) override;

 protected:
  // The field's amount, of any size: one above the ceiling of typed amounts takes no digit, but is
  // not lost. 0 when the text is none.
  void StartFrom(std::string_view text) override;

 private:
  void AddDigit(char digit);
  void AddPoint();
  void RemoveLast();
};

}  // namespace lm
