// The key codes that the shortcuts are stored with, for Qt's key events.
#pragma once

class QKeyEvent;

namespace lm {

// The platform's virtual key code of a key; -1 for one that has none here (Shift alone, media
// keys).
int VirtualKey(const QKeyEvent& event);
// 1 Shift + 2 Ctrl + 4 Alt.
int ShiftBits(const QKeyEvent& event);

}  // namespace lm
