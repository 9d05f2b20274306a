// The device's icon in the desktop's tray, the way back to a hidden window.
// Both kinds of tray on Linux desktops are served: the X11 system tray, which
// reports double clicks, and the StatusNotifier trays on D-Bus, which report
// an activation instead. Either way the event reaches the device as the tray
// message it knows: 515 the left double click, 517 the right release.
#pragma once

#include <QSystemTrayIcon>

#include "device/form1.h"

namespace nautrix {

// The tray message of an activation, 0 for one the device has none for.
int TrayMessage(QSystemTrayIcon::ActivationReason reason, bool status_notifier);

class TrayIcon {
 public:
  // The icon shows at once where a tray is, and in a tray that appears or
  // restarts later.
  TrayIcon(Form1& form, const QIcon& picture);

  // A tray is there to keep the icon.
  static bool Available();
  // While the window is hidden the icon is its only way back: a tray that
  // stays away for longer than a panel takes to restart brings it back.
  void WatchWhileHidden(bool hidden);
  // The watch's look, once a second in the device's own wake-up (a timer of
  // its own would wake the machine a second time each second).
  void CheckTray();

 private:
  bool StatusNotifier() const;

  Form1& form_;
  QSystemTrayIcon icon_;
  bool watching_ = false;  // the window is hidden
  int missing_checks_ = 0; // checks in a row that found no tray
};

}  // namespace nautrix
