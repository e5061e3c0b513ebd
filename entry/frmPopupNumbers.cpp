#include "entry/frmPopupNumbers.h"

#include <cmath>
#include <string>

#include "core/numbers.h"
#include "entry/money.h"

namespace lm {
namespace {

constexpr char kBackspace = 8;  // as a virtual key code and as a character

bool HasPence(std::string_view text) {
  const std::size_t point = text.find('.');
  return point != std::string_view::npos && text.size() - point > 2;
}

}  // namespace

frmPopupNumbers::frmPopupNumbers(Ledger& theLedger, std::string_view caption)
    : PopupPicker(theLedger, "frmPopupNumbers", caption) {
  for (std::size_t i = 0; i < cmdNumber.size(); ++i) {
    const char digit = static_cast<char>('0' + i);
    cmdNumber[i] = std::make_unique<Button>(this, std::string("cmdNumber") + digit);
    cmdNumber[i]->SetText(std::string(1, digit));
    cmdNumber[i]->onPressed = [this, digit] { AddDigit(digit); };
  }
  cmdDecimal.SetText(".");
  cmdBackspace.SetText("<");
  cmdClear.SetText("C");
  cmdOK.SetText("OK");
  cmdCancel.SetText("Cancel");
  defaultButton = &cmdOK;
  cancelButton = &cmdCancel;

  cmdDecimal.onPressed = [this] { AddPoint(); };
  cmdBackspace.onPressed = [this] { RemoveLast(); };
  cmdClear.onPressed = [this] { lblNumbers.SetText("0"); };
  cmdOK.onPressed = [this] { CloseWith(AnyMoneyCell(lblNumbers.Text())); };
  cmdCancel.onPressed = [this] { Close(); };
}

void frmPopupNumbers::StartFrom(std::string_view text) {
  const std::string amount = AnyMoneyCell(text);
  lblNumbers.SetText(amount.empty() ? "0" : amount);
}

void frmPopupNumbers::AddDigit(char digit) {
  const std::string& text = lblNumbers.Text();
  if (HasPence(text)) return;
  const std::string grown = (text == "0" ? "" : text) + digit;
  if (std::abs(Val(grown)) < kMoneyCeiling) lblNumbers.SetText(grown);
}

void frmPopupNumbers::AddPoint() {
  const std::string& text = lblNumbers.Text();
  if (text.find('.') == std::string::npos) lblNumbers.SetText(text + ".");
}

void frmPopupNumbers::RemoveLast() {
  std::string text = lblNumbers.Text();
  if (!text.empty()) text.pop_back();
  lblNumbers.SetText(text.empty() || text == "-" ? "0" : text);
}

bool frmPopupNumbers::Key(char character) {
  if (character >= '0' && character <= '9')
    Press(*cmdNumber[static_cast<std::size_t>(character - '0')]);
  else if (character == '.')
    Press(cmdDecimal);
  else if (character == kBackspace)
    Press(cmdBackspace);
  else
    return false;
  return true;
}

bool frmPopupNumbers::KeyPressed(int key, char character) {
  return Key(key == kBackspace ? kBackspace : character);
}

}  // namespace lm
