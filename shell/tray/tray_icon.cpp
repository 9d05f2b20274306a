#include "shell/tray/tray_icon.h"

#include <QApplication>
#include <QDBusMessage>
#include <QMouseEvent>
#include <QTimer>
#include <QWidget>
#include <QWindow>
#include <algorithm>
#include <cstdlib>
#include <utility>

#include <xcb/xcb.h>

#include "shell/tray/popup_menu.h"

// QtDBus shows every call that comes in to the hooks added here, on the
// program's thread, before the call is delivered. Qt's StatusNotifier item
// drops the place that a tray's ContextMenu(x, y) gives; the hook keeps it.
void qDBusAddSpyHook(void (*hook)(const QDBusMessage&));

namespace nautrix {
namespace {

std::optional<QPoint> g_context_point;  // the last ContextMenu's place

// Qt takes note that the program lost the focus a tenth of a second after
// the X server says so; a menu waits for that note at most this long.
constexpr int kFocusNoteMs = 500;

void SpyContextMenu(const QDBusMessage& call) {
  if (call.member() != QLatin1String("ContextMenu") ||
      call.interface() != QLatin1String("org.kde.StatusNotifierItem") ||
      call.arguments().size() != 2)
    return;
  g_context_point = QPoint(call.arguments()[0].toInt(), call.arguments()[1].toInt());
}

// True while Qt still counts one of the program's windows as focused though
// the X server has given the focus elsewhere: the window manager minimised
// the device, or another program's window was clicked, a moment ago. Qt
// then declares the program inactive, and that closes every open menu.
bool FocusLeaving() {
  const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  if (QGuiApplication::focusWindow() == nullptr || x11 == nullptr) return false;
  xcb_connection_t* connection = x11->connection();
  xcb_get_input_focus_reply_t* reply =
      xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr);
  if (reply == nullptr) return false;
  const xcb_window_t focus = reply->focus;
  std::free(reply);
  const QWindowList windows = QGuiApplication::allWindows();
  return std::none_of(windows.begin(), windows.end(), [focus](QWindow* window) {
    return window->handle() != nullptr && static_cast<xcb_window_t>(window->winId()) == focus;
  });
}

}  // namespace

// An X11 tray reports a double click as a Trigger and then a DoubleClick, and
// its Context comes at the right press, which the device does not answer. A
// StatusNotifier tray never sends a double click: its activation stands for
// it, and its Context is the tray's right click.
int TrayMessage(QSystemTrayIcon::ActivationReason reason, bool status_notifier) {
  switch (reason) {
    case QSystemTrayIcon::DoubleClick: return kTrayLeftDoubleClick;
    case QSystemTrayIcon::Trigger: return status_notifier ? kTrayLeftDoubleClick : 0;
    case QSystemTrayIcon::Context: return status_notifier ? kTrayRightRelease : 0;
    default: return 0;
  }
}

TrayIcon::TrayIcon(Form1& form, const QIcon& picture, PopupMenu& menu) : form_(form) {
  // The picture is set before the icon is shown, or the tray shows a blank.
  icon_.setIcon(picture);
  icon_.setToolTip(QStringLiteral("Nautrix"));
  // Only a tray on D-Bus takes the menu as items to draw; an X11 tray's icon
  // would pop it up by itself at the right press.
  icon_.setContextMenu(menu.Exported());
  status_notifier_ = menu.Exported()->platformMenu() != nullptr;
  if (!status_notifier_) icon_.setContextMenu(nullptr);
  static bool spying = false;
  if (status_notifier_ && !std::exchange(spying, true)) qDBusAddSpyHook(SpyContextMenu);
  QObject::connect(&icon_, &QSystemTrayIcon::activated,
                   [this](QSystemTrayIcon::ActivationReason reason) {
                     if (reason == QSystemTrayIcon::Context && !status_notifier_) WatchIconWindow();
                     const int message = TrayMessage(reason, status_notifier_);
                     if (message == 0) return;
                     // A tray on D-Bus waits for the answer to its call:
                     // the menu opens after it, from the event loop.
                     const std::optional<QPoint> at = std::exchange(g_context_point, std::nullopt);
                     if (!status_notifier_) return Deliver(message);
                     QTimer::singleShot(0, this, [this, message, at] { Deliver(message, at); });
                   });
  // A right release that waits for Qt's note of the lost focus opens the
  // menu after it, once Qt has closed what it closes then.
  focus_note_.setSingleShot(true);
  focus_note_.setInterval(kFocusNoteMs);
  QObject::connect(&focus_note_, &QTimer::timeout, this, [this] { Deliver(kTrayRightRelease); });
  QObject::connect(
      qGuiApp, &QGuiApplication::focusWindowChanged, this,
      [this] {
        if (!focus_note_.isActive()) return;
        focus_note_.stop();
        Deliver(kTrayRightRelease);
      },
      Qt::QueuedConnection);
  icon_.show();
}

bool TrayIcon::Available() { return QSystemTrayIcon::isSystemTrayAvailable(); }

void TrayIcon::WatchWhileHidden(bool hidden) {
  watching_ = hidden;
}

// The device hears whether a tray is there; it decides what follows.
void TrayIcon::CheckTray() {
  if (watching_) form_.TrayPresence(Available());
}

// The message comes as a pointer X in twips, as the device's tray door
// expects it.
void TrayIcon::Deliver(int message, std::optional<QPoint> at) {
  menu_point_ = at;
  form_.Form_MouseMove(0, 0, static_cast<float>(message * kTwipsPerPixel), 0);
  menu_point_.reset();
}

// Qt gives an X11 tray's icon a window of its own, made anew whenever a tray
// appears; the device listens to it from the first right press on.
void TrayIcon::WatchIconWindow() {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (qstrcmp(window->metaObject()->className(), "QSystemTrayIconSys") == 0)
      window->installEventFilter(this);
  }
}

bool TrayIcon::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::MouseButtonRelease) return false;
  const auto* release = static_cast<QMouseEvent*>(event);
  if (release->button() == Qt::RightButton &&
      static_cast<QWidget*>(watched)->rect().contains(release->position().toPoint()) &&
      !focus_note_.isActive()) {
    if (FocusLeaving()) focus_note_.start();
    else Deliver(kTrayRightRelease);
  }
  return false;
}

}  // namespace nautrix
