// The program: the device, its window and its platform, started in the
// device's order: Form_Load places the window from the store before it is
// shown, and Timer1 runs from then on.
#include <QApplication>
#include <QByteArray>
#include <QCommandLineParser>
#include <QRegularExpression>
#include <QString>
#include <QStringList>
#include <cstdio>
#include <cstdlib>
#include <utility>
#include <vector>

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

void PassOn(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  if (KnownPlatformWarning(type, context, message)) return;
  if (g_next_handler) return g_next_handler(type, context, message);
  std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, message)));
}

// While the application object looks for a display, what Qt says is held
// back: if no display answers, the user gets one line of ours instead of
// the platforms' excuses; if one does, the messages go on as usual.
struct HeldMessage {
  QtMsgType type;
  QByteArray category;
  QString text;
};
bool g_finding_display = false;
std::vector<HeldMessage> g_held;

void FilterMessages(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  if (g_finding_display && type == QtFatalMsg &&
      message.contains(QLatin1String("platform plugin"))) {
    std::fputs("nautrix: no display to show the device on: no X server at DISPLAY and no "
               "Wayland compositor at WAYLAND_DISPLAY\n",
               stderr);
    std::_Exit(1);
  }
  if (g_finding_display && type != QtFatalMsg) {
    g_held.push_back({type, QByteArray(context.category ? context.category : ""), message});
    return;
  }
  PassOn(type, context, message);
}

void FoundDisplay() {
  g_finding_display = false;
  for (const HeldMessage& held : std::exchange(g_held, {})) {
    const QMessageLogContext context(nullptr, 0, nullptr, held.category.constData());
    PassOn(held.type, context, held.text);
  }
}

// Qt's own options, which the application object takes from the command
// line itself: with a value, and without.
constexpr const char* kQtValueOptions[] = {
    "platform", "platformpluginpath", "platformtheme", "plugin", "display", "geometry",
    "qwindowgeometry", "icon", "qwindowicon", "title", "qwindowtitle", "name", "style",
    "stylesheet", "session", "qmljsdebugger"};
constexpr const char* kQtFlagOptions[] = {"reverse", "nograb", "dograb", "widgetcount",
                                          "testability"};

constexpr char kHelp[] =
    "Usage: nautrix [OPTION]...\n"
    "A pocket LCD game and alarm clock of the Tickplay family, on the desktop.\n"
    "\n"
    "  --scale FACTOR  draw the device FACTOR times its size, such as 1.5 or 2\n"
    "                  (as QT_SCALE_FACTOR does)\n"
    "  --help          show this help and exit\n"
    "  --version       show the version and exit\n"
    "\n"
    "Qt's own options, such as -platform NAME, -display DISPLAY and -style NAME,\n"
    "are taken as well. The settings are kept in\n"
    "$XDG_CONFIG_HOME/Tickplay Simulator.ini (by default ~/.config).\n";

enum class CommandLine { Run, Done, Refused };

// Reads the command line before anything else is touched: the help and the
// version need no display, and a refused option leaves no window or store
// behind. A scale goes to Qt the way its own variable does.
CommandLine ReadCommandLine(int argc, char** argv, QByteArray& scale) {
  QStringList arguments;
  for (int i = 0; i < argc; ++i) arguments << QString::fromLocal8Bit(argv[i]);
  QCommandLineParser parser;
  // Qt's options are whole words after a single dash.
  parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
  const QCommandLineOption help(QStringLiteral("help"));
  const QCommandLineOption version(QStringLiteral("version"));
  const QCommandLineOption scale_option(QStringLiteral("scale"), QString(),
                                        QStringLiteral("FACTOR"));
  parser.addOptions({help, version, scale_option});
  for (const char* name : kQtValueOptions)
    parser.addOption(QCommandLineOption(QLatin1String(name), QString(), QStringLiteral("VALUE")));
  for (const char* name : kQtFlagOptions) parser.addOption(QCommandLineOption(QLatin1String(name)));

  QString error;
  if (!parser.parse(arguments)) {
    error = parser.errorText();
    // Named as it was typed, dashes and all.
    const QStringList unknown = parser.unknownOptionNames();
    for (const QString& argument : arguments) {
      if (unknown.isEmpty()) break;
      if (argument.startsWith(QLatin1Char('-')) &&
          argument.section(QLatin1Char('='), 0, 0).remove(QRegularExpression(QStringLiteral("^-+"))) ==
              unknown.first()) {
        error = QStringLiteral("unknown option '%1'").arg(argument);
        break;
      }
    }
  } else if (!parser.positionalArguments().isEmpty()) {
    error = QStringLiteral("unexpected argument '%1'").arg(parser.positionalArguments().first());
  } else if (parser.isSet(scale_option)) {
    bool ok = false;
    const QString text = parser.value(scale_option);
    const double factor = text.toDouble(&ok);
    if (ok && factor > 0 && factor <= 10) {
      scale = text.toLatin1();
    } else {
      error = QStringLiteral("--scale takes a factor above 0 and at most 10, such as 1.5 or 2, "
                             "not '%1'").arg(text);
    }
  }
  if (!error.isEmpty()) {
    std::fprintf(stderr, "nautrix: %s\nTry 'nautrix --help' for the options.\n",
                 qPrintable(error));
    return CommandLine::Refused;
  }
  if (parser.isSet(help)) {
    std::fputs(kHelp, stdout);
    return CommandLine::Done;
  }
  if (parser.isSet(version)) {
    std::fputs("nautrix " NAUTRIX_VERSION "\n", stdout);
    return CommandLine::Done;
  }
  return CommandLine::Run;
}

}  // namespace

int main(int argc, char** argv) {
  QByteArray scale;
  switch (ReadCommandLine(argc, argv, scale)) {
    case CommandLine::Run: break;
    case CommandLine::Done: return 0;
    case CommandLine::Refused: return 2;
  }

  // The desktop's scale as it is, 150 % included: the device is drawn from
  // vectors and stays sharp at any size.
  QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
      Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
  // Only on X11 may a program place its own window, so a Wayland session runs
  // it through XWayland; with no X server at all it starts on Wayland itself,
  // and the compositor places it. A platform chosen for the run (offscreen
  // tests) is kept.
  // Wayland is not tried where no compositor's socket can be named, which
  // would only add the library's complaint to the line that says so.
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
    const bool wayland = !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
                         !qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR");
    qputenv("QT_QPA_PLATFORM", wayland ? "xcb;wayland" : "xcb");
  }
  // Qt reads the scale once, as the application starts; the programs the
  // device opens (the mail program, the web browser) get the user's own.
  const bool had_scale = qEnvironmentVariableIsSet("QT_SCALE_FACTOR");
  const QByteArray user_scale = qgetenv("QT_SCALE_FACTOR");
  if (!scale.isEmpty()) qputenv("QT_SCALE_FACTOR", scale);
  QGuiApplication::setDesktopFileName(QStringLiteral(NAUTRIX_APP_ID));
  g_next_handler = qInstallMessageHandler(FilterMessages);

  g_finding_display = true;
  // Qt's own X connection paints plain images: a repaint of a shared-memory
  // one waits for the X server, a wake-up more for every blink of the colon,
  // and at this size the plain image costs nothing. Programs started from
  // here make their own choice.
  const bool shm_chosen = qEnvironmentVariableIsSet("QT_XCB_NO_MITSHM");
  if (!shm_chosen) qputenv("QT_XCB_NO_MITSHM", "1");
  QApplication app(argc, argv);
  if (!shm_chosen) qunsetenv("QT_XCB_NO_MITSHM");
  FoundDisplay();
  if (!scale.isEmpty()) {
    if (had_scale) qputenv("QT_SCALE_FACTOR", user_scale);
    else qunsetenv("QT_SCALE_FACTOR");
  }
  // The program ends only through Form_Unload, never because a dialog closed
  // while the device window is hidden in the tray.
  app.setQuitOnLastWindowClosed(false);

  nautrix::DeviceApp device;
  if (!device.Start()) return 0;
  return app.exec();
}
