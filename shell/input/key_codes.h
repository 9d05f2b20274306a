// The device's codes for what the desktop reports of keys, modifiers and
// pointer buttons: one table for the device window and the dialogs alike.
#pragma once

#include <QKeyEvent>

namespace nautrix {

// Shift 1, Ctrl 2, Alt 4, added.
int ShiftState(Qt::KeyboardModifiers modifiers);
// Left 1, right 2, middle 4, added; other buttons count nothing.
int ButtonCode(Qt::MouseButtons buttons);

// The device's key code of a desktop key, 0 for a key the device has no code
// for. The main block's digit row counts by its place on the keyboard (X key
// codes 10 to 19, Qt's native scan code), whatever the layout types there.
// A letter counts by the Latin letter the layout prints there (the keysym,
// Qt's native virtual key), and by its place where the layout prints a letter
// of another script. The keypad's digits have codes of their own (96-105),
// which no device key has. Without native codes (0) Qt's key decides alone.
int VirtualKeyCode(int qt_key, Qt::KeyboardModifiers modifiers, quint32 scan_code = 0,
                   quint32 keysym = 0);
int VirtualKeyCode(const QKeyEvent& event);

}  // namespace nautrix
