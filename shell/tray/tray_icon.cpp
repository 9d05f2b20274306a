#include "shell/tray/tray_icon.h"

namespace nautrix {
namespace {

constexpr int kTrayGoneChecks = 3;

}  // namespace

// An X11 tray reports a double click as a Trigger and then a DoubleClick, and
// its Context comes at the right press. A StatusNotifier tray never sends a
// double click: its activation stands for it.
int TrayMessage(QSystemTrayIcon::ActivationReason reason, bool status_notifier) {
  switch (reason) {
    case QSystemTrayIcon::DoubleClick: return kTrayLeftDoubleClick;
    case QSystemTrayIcon::Trigger: return status_notifier ? kTrayLeftDoubleClick : 0;
    case QSystemTrayIcon::Context: return kTrayRightRelease;
    default: return 0;
  }
}

TrayIcon::TrayIcon(Form1& form, const QIcon& picture) : form_(form) {
  // The picture is set before the icon is shown, or the tray shows a blank.
  icon_.setIcon(picture);
  icon_.setToolTip(QStringLiteral("Nautrix"));
  QObject::connect(&icon_, &QSystemTrayIcon::activated,
                   [this](QSystemTrayIcon::ActivationReason reason) {
                     // The message comes as a pointer X in twips, as the
                     // device's tray door expects it.
                     if (const int message = TrayMessage(reason, StatusNotifier()))
                       form_.Form_MouseMove(0, 0, static_cast<float>(message * kTwipsPerPixel), 0);
                   });
  icon_.show();
}

bool TrayIcon::Available() { return QSystemTrayIcon::isSystemTrayAvailable(); }

void TrayIcon::WatchWhileHidden(bool hidden) {
  missing_checks_ = 0;
  watching_ = hidden;
}

void TrayIcon::CheckTray() {
  if (!watching_) return;
  missing_checks_ = Available() ? 0 : missing_checks_ + 1;
  if (missing_checks_ < kTrayGoneChecks) return;
  // The device's own way back keeps the "&Hide" mark true.
  watching_ = false;
  if (form_.mHide.Checked) form_.mHide_Click();
}

// An X11 tray gives the icon a window of its own on the screen; a
// StatusNotifier tray draws the icon itself and tells nobody where.
bool TrayIcon::StatusNotifier() const { return icon_.geometry().isEmpty(); }

}  // namespace nautrix
