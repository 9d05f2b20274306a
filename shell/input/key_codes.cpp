#include "shell/input/key_codes.h"

#include <QChar>

namespace nautrix {

int ShiftState(Qt::KeyboardModifiers modifiers) {
  return (modifiers.testFlag(Qt::ShiftModifier) ? 1 : 0) |
         (modifiers.testFlag(Qt::ControlModifier) ? 2 : 0) |
         (modifiers.testFlag(Qt::AltModifier) ? 4 : 0);
}

int ButtonCode(Qt::MouseButtons buttons) {
  return (buttons.testFlag(Qt::LeftButton) ? 1 : 0) | (buttons.testFlag(Qt::RightButton) ? 2 : 0) |
         (buttons.testFlag(Qt::MiddleButton) ? 4 : 0);
}

namespace {

// X key codes of the main block, the same in the evdev and the older PC sets.
constexpr quint32 kDigitRowFirst = 10;  // the key of 1; 0 is at 19
constexpr quint32 kDigitRowLast = 19;
// The letter each key stands for by its place, from code 24 (Q) to 58 (M),
// '\0' where no letter stands.
constexpr char kLetterPlaces[] = "QWERTYUIOP\0\0\0\0ASDFGHJKL\0\0\0\0\0ZXCVBNM";
constexpr quint32 kLetterPlacesFirst = 24;

int LetterAtPlace(quint32 scan_code) {
  const quint32 i = scan_code - kLetterPlacesFirst;
  return scan_code >= kLetterPlacesFirst && i < sizeof kLetterPlaces - 1 ? kLetterPlaces[i] : 0;
}

// Latin capital of a keysym of the Latin alphabet (either case), else 0.
int LatinLetter(quint32 keysym) {
  if (keysym >= 'A' && keysym <= 'Z') return static_cast<int>(keysym);
  if (keysym >= 'a' && keysym <= 'z') return static_cast<int>(keysym - 'a' + 'A');
  return 0;
}

// Qt names a letter key by its capital's code point.
bool IsLetterOfAnotherScript(int qt_key) {
  const auto c = static_cast<char32_t>(qt_key);
  return c > 0x7f && c <= 0x10ffff && QChar::isLetter(c) && QChar::script(c) != QChar::Script_Latin;
}

int CodeOfQtKey(int qt_key, bool keypad) {
  if (qt_key >= Qt::Key_A && qt_key <= Qt::Key_Z) return qt_key;  // 65-90
  if (qt_key >= Qt::Key_0 && qt_key <= Qt::Key_9) {
    return keypad ? 96 + (qt_key - Qt::Key_0) : qt_key;  // 96-105 or 48-57
  }
  if (qt_key >= Qt::Key_F1 && qt_key <= Qt::Key_F24) return 112 + (qt_key - Qt::Key_F1);
  if (keypad) {
    switch (qt_key) {
      case Qt::Key_Asterisk: return 106;
      case Qt::Key_Plus: return 107;
      case Qt::Key_Minus: return 109;
      case Qt::Key_Period: case Qt::Key_Comma: return 110;
      case Qt::Key_Slash: return 111;
      default: break;
    }
  }
  switch (qt_key) {
    case Qt::Key_Backspace: return 8;
    case Qt::Key_Tab: case Qt::Key_Backtab: return 9;
    case Qt::Key_Return: case Qt::Key_Enter: return 13;
    case Qt::Key_Shift: return 16;
    case Qt::Key_Control: return 17;
    case Qt::Key_Alt: case Qt::Key_AltGr: return 18;
    case Qt::Key_Pause: return 19;
    case Qt::Key_CapsLock: return 20;
    case Qt::Key_Escape: return 27;
    case Qt::Key_Space: return 32;
    case Qt::Key_PageUp: return 33;
    case Qt::Key_PageDown: return 34;
    case Qt::Key_End: return 35;
    case Qt::Key_Home: return 36;
    case Qt::Key_Left: return 37;
    case Qt::Key_Up: return 38;
    case Qt::Key_Right: return 39;
    case Qt::Key_Down: return 40;
    case Qt::Key_Print: return 44;
    case Qt::Key_Insert: return 45;
    case Qt::Key_Delete: return 46;
    case Qt::Key_Meta: return 91;
    case Qt::Key_Menu: return 93;
    case Qt::Key_NumLock: return 144;
    case Qt::Key_ScrollLock: return 145;
    case Qt::Key_Semicolon: case Qt::Key_Colon: return 186;
    case Qt::Key_Equal: case Qt::Key_Plus: return 187;
    case Qt::Key_Comma: case Qt::Key_Less: return 188;
    case Qt::Key_Minus: case Qt::Key_Underscore: return 189;
    case Qt::Key_Period: case Qt::Key_Greater: return 190;
    case Qt::Key_Slash: case Qt::Key_Question: return 191;
    case Qt::Key_QuoteLeft: case Qt::Key_AsciiTilde: return 192;
    case Qt::Key_BracketLeft: case Qt::Key_BraceLeft: return 219;
    case Qt::Key_Backslash: case Qt::Key_Bar: return 220;
    case Qt::Key_BracketRight: case Qt::Key_BraceRight: return 221;
    case Qt::Key_Apostrophe: case Qt::Key_QuoteDbl: return 222;
    default: return 0;
  }
}

}  // namespace

int VirtualKeyCode(int qt_key, Qt::KeyboardModifiers modifiers, quint32 scan_code,
                   quint32 keysym) {
  const bool keypad = modifiers.testFlag(Qt::KeypadModifier);
  if (!keypad && scan_code >= kDigitRowFirst && scan_code <= kDigitRowLast) {
    return scan_code == kDigitRowLast ? '0' : static_cast<int>('1' + scan_code - kDigitRowFirst);
  }
  if (const int letter = LatinLetter(keysym)) return letter;
  if (IsLetterOfAnotherScript(qt_key)) return LetterAtPlace(scan_code);
  return CodeOfQtKey(qt_key, keypad);
}

int VirtualKeyCode(const QKeyEvent& event) {
  return VirtualKeyCode(event.key(), event.modifiers(), event.nativeScanCode(),
                        event.nativeVirtualKey());
}

}  // namespace nautrix
