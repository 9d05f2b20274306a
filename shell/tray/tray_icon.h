// The device's icon in the desktop's tray, the way back to a hidden window.
// Both kinds of tray on Linux desktops are served: the X11 system tray, whose
// icon is a window of the program's own, and the StatusNotifier trays on
// D-Bus, which draw the icon and the menu themselves and call the program
// back. Either way the event reaches the device as the tray message it knows:
// 515 the left double click, 517 the right release.
#pragma once

#include <QObject>
#include <QPoint>
#include <QSystemTrayIcon>
#include <QTimer>
#include <optional>

#include "device/form1.h"

namespace nautrix {

class PopupMenu;

// The tray message of an activation, 0 for one the device has none for (an
// X11 tray's right button is told by the icon's own release).
int TrayMessage(QSystemTrayIcon::ActivationReason reason, bool status_notifier);

class TrayIcon : public QObject {
 public:
  // The icon shows at once where a tray is, and in a tray that appears or
  // restarts later. A StatusNotifier tray gets the menu's items to draw.
  TrayIcon(Form1& form, const QIcon& picture, PopupMenu& menu);

  // A tray is there to keep the icon.
  static bool Available();
  // While the window is hidden the device hears once a second whether a tray
  // is there to bring it back.
  void WatchWhileHidden(bool hidden);
  // Where the tray asked for the menu to open, while it asks; else none.
  std::optional<QPoint> MenuPoint() const { return menu_point_; }
  // The watch's look, once a second in the device's own wake-up (a timer of
  // its own would wake the machine a second time each second).
  void CheckTray();

 protected:
  // The right button's release on an X11 tray's icon window.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Deliver(int message, std::optional<QPoint> at = std::nullopt);
  void WatchIconWindow();

  Form1& form_;
  QSystemTrayIcon icon_;
  bool watching_ = false;            // the window is hidden
  bool status_notifier_ = false;     // the tray is on D-Bus
  QTimer focus_note_;                // a right release waits for Qt's note of a lost focus
  std::optional<QPoint> menu_point_;
};

}  // namespace nautrix
