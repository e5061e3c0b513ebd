// What a key event means: the code that the shortcuts are stored with, and the keys that a box and
// a list's cell understand alike.
#pragma once

class QKeyEvent;

namespace lm {

// The platform's virtual key code of a key; -1 for one that has none here (Shift alone, media
// keys).
int VirtualKey(const QKeyEvent& event);
// 1 Shift + 2 Ctrl + 4 Alt.
int ShiftBits(const QKeyEvent& event);

// What is typed or edited with: a box that has the focus needs it more than any command.
bool EditsText(const QKeyEvent& event);

// Alt+Down and F4 open the picker of a box or a cell.
bool OpensPicker(const QKeyEvent& event);
// Alt and a letter that no caption claimed: nothing to type into a box.
bool IsStrayAltLetter(const QKeyEvent& event);

}  // namespace lm
