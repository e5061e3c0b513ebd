#include "shell/qt/virtualkeys.h"

#include <QKeyEvent>

#include "core/shortcuts.h"

namespace lm {
namespace {

struct KeyPair {
  int qt;
  int code;
};

constexpr KeyPair kKeys[] = {
    {Qt::Key_Up, 38},     {Qt::Key_Down, 40},     {Qt::Key_Left, 37},     {Qt::Key_Right, 39},
    {Qt::Key_Insert, 45}, {Qt::Key_Delete, 46},   {Qt::Key_Home, 36},     {Qt::Key_End, 35},
    {Qt::Key_PageUp, 33}, {Qt::Key_PageDown, 34}, {Qt::Key_Backspace, 8}, {Qt::Key_Escape, 27},
    {Qt::Key_Return, 13}, {Qt::Key_Enter, 13},    {Qt::Key_Space, 32},    {Qt::Key_Tab, 9},
    {Qt::Key_Backtab, 9},
};

constexpr int kF1 = 112, kF12 = 123;

}  // namespace

int VirtualKey(const QKeyEvent& event) {
  const int key = event.key();
  // Letters and digits stand under their own codes in both worlds.
  if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9)) return key;
  if (key >= Qt::Key_F1 && key <= Qt::Key_F12) return kF1 + (key - Qt::Key_F1);
  static_assert(Qt::Key_F12 - Qt::Key_F1 == kF12 - kF1);
  for (const KeyPair& pair : kKeys)
    if (pair.qt == key) return pair.code;
  return -1;
}

int ShiftBits(const QKeyEvent& event) {
  int bits = 0;
  if (event.modifiers() & Qt::ShiftModifier) bits |= kShiftBit;
  if (event.modifiers() & Qt::ControlModifier) bits |= kCtrlBit;
  if (event.modifiers() & Qt::AltModifier) bits |= kAltBit;
  return bits;
}

bool EditsText(const QKeyEvent& event) {
  const int key = VirtualKey(event);
  return !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) && key < kF1 &&
         key != KeyCode("{ESCAPE}");
}

bool OpensPicker(const QKeyEvent& event) {
  const Qt::KeyboardModifiers held = event.modifiers() & ~Qt::KeypadModifier;
  return (event.key() == Qt::Key_Down && held == Qt::AltModifier) ||
         (event.key() == Qt::Key_F4 && held == Qt::NoModifier);
}

bool IsStrayAltLetter(const QKeyEvent& event) {
  // Where Alt types signs of its own, the text is not the letter of the key.
  return event.modifiers() == Qt::AltModifier && event.key() >= Qt::Key_A &&
         event.key() <= Qt::Key_Z && event.text().toUpper() == QChar(event.key());
}

}  // namespace lm
