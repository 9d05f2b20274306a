// The keyboard's way into the device: which device key code a desktop key
// is on any layout, and a held key told to the device as one press and one
// release, however the desktop repeats it.
#pragma once

#include <QKeyEvent>
#include <QTimer>
#include <map>
#include <optional>

#include "device/form1.h"
#include "shell/input/key_codes.h"

namespace nautrix {

// Asks the X server of Qt's own connection to send no release for a held
// key until it really comes up (XKB's detectable auto-repeat). True when the
// server does so; false off X11 or on a server without it.
bool AskDetectableAutoRepeat();

// The desktops' key for a context menu: the Menu key, and Shift+F10.
bool IsDesktopMenuKey(const QKeyEvent& event);

// Hands the device window's key events to the device, a hold as one press
// and one release. An X server repeats a held key as release and press
// pairs with one time stamp; Qt marks a pair only when the press has
// reached it in time, so the window asks the server not to send them at
// all. Where the server cannot, a release is held back until the events
// already on their way have come in, and dropped when the press of the same
// key and time follows. The repeats' presses reach Form_KeyDown, whose latch
// turns them away. A key pressed in another window (Enter on a dialog's OK,
// which closed it) that comes up here once the focus has moved on is not
// this device's, and its release is not passed on.
class KeyboardRoute {
 public:
  KeyboardRoute(Form1& form, bool server_detects_repeat);

  void Press(const QKeyEvent& event);
  void Release(const QKeyEvent& event);
  // A release held back goes to the device now, before any other event.
  void Flush();

 private:
  struct HeldRelease {
    int key;         // Qt's key
    quint32 scan;    // native scan code
    quint64 time;    // the server's time stamp
    int code, shift; // as the device gets them
    bool menu;       // the desktop's menu key: it asks for the menu as well
  };
  void Deliver(const HeldRelease& release);

  Form1& form_;
  const bool server_detects_repeat_;
  // The keys pressed here and not let go, by scan code: whether each went
  // down as the desktop's menu key (Shift may come up before F10 does).
  std::map<quint32, bool> down_;
  std::optional<HeldRelease> held_;
  QTimer drain_;  // gives the pair's press time to come in
};

}  // namespace nautrix
