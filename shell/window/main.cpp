// The program: the device, its window and its platform, started in the
// device's order: Form_Load places the window from the store before it is
// shown, and Timer1 runs from then on.
#include <QApplication>
#include <QByteArray>
#include <QString>
#include <cstdio>

#include "shell/window/device_app.h"

namespace {

QtMessageHandler g_next_handler = nullptr;

// What the desktop says of itself and the user cannot act on: a keyboard
// extension the X server lacks, a runtime folder it had to make up, an X11
// tray watch off X11. (The voice speaks to the audio server itself and says
// nothing.)
bool KnownPlatformWarning(QtMsgType type, const QMessageLogContext& context,
                          const QString& message) {
  if (type != QtWarningMsg && type != QtInfoMsg && type != QtDebugMsg) return false;
  const QLatin1String category(context.category ? context.category : "");
  if (category.startsWith(QLatin1String("qt.qpa.xkeyboard"))) return true;
  static const char* const kKnown[] = {"XKEYBOARD", "XKB", "xkbcommon", "QStandardPaths: ",
                                       "systemTrayWindowChanged"};
  for (const char* known : kKnown) {
    if (message.contains(QLatin1String(known))) return true;
  }
  // With no X server at all, Qt says so twice before it turns to Wayland.
  static bool no_x_server = false;
  if (category == QLatin1String("qt.qpa.xcb") &&
      message.startsWith(QLatin1String("could not connect to display")))
    return no_x_server = true;
  return no_x_server && category == QLatin1String("qt.qpa.plugin") &&
         message.contains(QLatin1String("\"xcb\""));
}

void FilterMessages(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  if (KnownPlatformWarning(type, context, message)) return;
  if (g_next_handler) return g_next_handler(type, context, message);
  std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, message)));
}

}  // namespace

int main(int argc, char** argv) {
  QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
      Qt::HighDpiScaleFactorRoundingPolicy::RoundPreferFloor);
  // Only on X11 may a program place its own window, so a Wayland session runs
  // it through XWayland; with no X server at all it starts on Wayland itself,
  // and the compositor places it. A platform chosen for the run (offscreen
  // tests) is kept.
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "xcb;wayland");
  QGuiApplication::setDesktopFileName(QStringLiteral(NAUTRIX_APP_ID));
  g_next_handler = qInstallMessageHandler(FilterMessages);

  // The program reads no command line: Qt gets the program's name alone.
  char name[] = "nautrix";
  int app_argc = 1;
  char* app_argv[] = {argc > 0 && argv[0] ? argv[0] : name, nullptr};
  QApplication app(app_argc, app_argv);
  // The program ends only through Form_Unload, never because a dialog closed
  // while the device window is hidden in the tray.
  app.setQuitOnLastWindowClosed(false);

  nautrix::DeviceApp device;
  if (!device.Start()) return 0;
  return app.exec();
}
