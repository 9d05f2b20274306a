#include "shell/window/qt_platform.h"

#include <sys/timerfd.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QEvent>
#include <QCursor>
#include <QFileInfo>
#include <QGuiApplication>
#include <QGuiApplication>
#include <QScreen>
#include <QRegularExpression>
#include <QStringList>
#include <QTime>
#include <QWindow>
#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <vector>

#include <xcb/xcb.h>

#include "dialogs/qt/dialog_windows.h"
#include "dialogs/qt/link_opener.h"
#include "shell/window/device_window.h"
#include "shell/tray/popup_menu.h"
#include "shell/pictures/built_pictures.h"
#include "shell/tray/tray_icon.h"

namespace nautrix {
namespace {

constexpr int kFrameLeftTwips = 45;   // the client area lies this far inside the
constexpr int kFrameTopTwips = 330;   // outer corner of the window
constexpr int kDayMs = 24 * 3600 * 1000;
// X keeps window positions in 16 bits; a stored position beyond that would
// wrap around to somewhere else entirely.
constexpr int kFarthestPixel = 32000;

// How long after the edge of the device's second a sleeping Timer1 wakes:
// late enough that the clock surely reads the new second.
constexpr int kAfterEdgeMs = 3;

// Input from the user to any window of the program: the device's, its
// dialogs', the menu's, an X11 tray icon's.
class InputWatch : public QObject {
 public:
  explicit InputWatch(std::function<void()> wake) : wake_(std::move(wake)) {}
  bool eventFilter(QObject*, QEvent* event) override {
    switch (event->type()) {
      case QEvent::KeyPress: case QEvent::KeyRelease: case QEvent::MouseButtonPress:
      case QEvent::MouseButtonRelease: case QEvent::MouseButtonDblClick: case QEvent::MouseMove:
      case QEvent::Wheel: case QEvent::ContextMenu: case QEvent::Show: case QEvent::Hide:
        wake_();
        break;
      default:
        break;
    }
    return false;
  }

 private:
  std::function<void()> wake_;
};

// The wave files the device plays, decoded ahead of their first beat.
constexpr const char* kWaveFiles[] = {"Beep0.wav", "Beep1.wav", "Beep2.wav", "Beep3.wav"};

int PixelFromTwips(float twips, int frame) {
  if (!std::isfinite(twips)) return 0;
  const double pixel = std::round((static_cast<double>(twips) + frame) / kTwipsPerPixel);
  return static_cast<int>(std::clamp(pixel, -double{kFarthestPixel}, double{kFarthestPixel}));
}

int Modulo(int value, int period) { return (value % period + period) % period; }

xcb_atom_t Atom(xcb_connection_t* connection, const char* name) {
  xcb_intern_atom_reply_t* reply = xcb_intern_atom_reply(
      connection, xcb_intern_atom(connection, 0, static_cast<uint16_t>(strlen(name)), name), nullptr);
  const xcb_atom_t atom = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
  std::free(reply);
  return atom;
}

// Keeps the window above others or not. On X11 the window manager is asked
// directly, as Qt would: Qt 6.4 makes a new X window at the next show of a
// window whose stays-on-top flag changed. A window on the screen is
// restacked by a message to the manager; a withdrawn one carries the state
// in its property, which the manager reads when it is mapped.
void SetWindowAbove(QWindow& window, bool above) {
  const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  xcb_connection_t* connection = x11 != nullptr ? x11->connection() : nullptr;
  if (connection == nullptr) return window.setFlag(Qt::WindowStaysOnTopHint, above);
  const auto id = static_cast<xcb_window_t>(window.winId());
  const xcb_atom_t state = Atom(connection, "_NET_WM_STATE");
  const xcb_atom_t above_atom = Atom(connection, "_NET_WM_STATE_ABOVE");
  if (window.isVisible()) {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = id;
    message.type = state;
    message.data.data32[0] = above ? 1 : 0;  // add or remove
    message.data.data32[1] = above_atom;
    message.data.data32[3] = 1;  // from an application
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    xcb_send_event(connection, 0, root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&message));
  } else {
    std::vector<xcb_atom_t> atoms;
    xcb_get_property_reply_t* reply = xcb_get_property_reply(
        connection, xcb_get_property(connection, 0, id, state, XCB_ATOM_ATOM, 0, 64), nullptr);
    if (reply != nullptr && reply->format == 32) {
      const auto* first = static_cast<const xcb_atom_t*>(xcb_get_property_value(reply));
      atoms.assign(first, first + xcb_get_property_value_length(reply) / 4);
    }
    std::free(reply);
    atoms.erase(std::remove(atoms.begin(), atoms.end(), above_atom), atoms.end());
    if (above) atoms.push_back(above_atom);
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, id, state, XCB_ATOM_ATOM, 32,
                        static_cast<uint32_t>(atoms.size()), atoms.data());
  }
  xcb_flush(connection);
}

}  // namespace

QPoint ClientFromTwips(float left, float top) {
  return {PixelFromTwips(left, kFrameLeftTwips), PixelFromTwips(top, kFrameTopTwips)};
}

float LeftFromClient(int x) { return static_cast<float>(x * kTwipsPerPixel - kFrameLeftTwips); }

float TopFromClient(int y) { return static_cast<float>(y * kTwipsPerPixel - kFrameTopTwips); }

QtPlatform::QtPlatform(bool with_audio)
    : computer_time_ms([] { return QTime::currentTime().msecsSinceStartOfDay(); }),
      voice_(with_audio) {
  // The coarse timer drifts by several milliseconds a beat.
  timer1_.setTimerType(Qt::PreciseTimer);
  timer1_.setInterval(50);
  QObject::connect(&timer1_, &QTimer::timeout, [this] { Timer1Fired(); });
  input_watch_ = std::make_unique<InputWatch>([this] { Wake(); });
  QCoreApplication::instance()->installEventFilter(input_watch_.get());
  QObject::connect(&store_watch_, &QFileSystemWatcher::directoryChanged, [this] { Wake(); });
  WatchComputerClock();
}

QtPlatform::~QtPlatform() {
  clock_notifier_.reset();
  if (clock_watch_ >= 0) close(clock_watch_);
}

void QtPlatform::Attach(Form1& form, DeviceWindow& window) {
  form_ = &form;
  window_ = &window;
  dialogs_ = std::make_unique<DialogWindows>(form, window);
}

void QtPlatform::FinishStart() {
  if (started_) return;
  started_ = true;
  // The program's icon, for every window of it that has none of its own: a
  // frameless device shows it only in the desktop's lists of windows.
  QGuiApplication::setWindowIcon(AppIcon());
  voice_.OpenOutput();
  const QString folder = QString::fromStdString(ProgramFolder());
  for (const char* name : kWaveFiles) voice_.Preload(folder + '/' + QLatin1String(name));
  if (tray_wanted_) AddTrayIcon();
}

void QtPlatform::StartTimer1() {
  timer1_enabled_ = true;
  if (timer1_ms_ > 0) timer1_.start();
}

// ---- Timer1 ------------------------------------------------------------------

void QtPlatform::SetTimerInterval(int ms) {
  timer1_ms_ = std::max(ms, 0);
  if (timer1_ms_ == 0) {
    timer1_.stop();
    return;
  }
  if (asleep_) return Wake();
  // A running QTimer starts over at setInterval, so only a new value is set.
  if (timer1_ms_ != timer1_.interval()) timer1_.setInterval(timer1_ms_);
  if (timer1_enabled_ && !timer1_.isActive()) timer1_.start();
}

// A tick, then the device's answer whether it may sleep: the idle clock
// wakes the machine once a second, not twenty times.
void QtPlatform::Timer1Fired() {
  if (!form_) return;
  const bool was_asleep = std::exchange(asleep_, false);
  in_tick_ = true;
  form_->Timer1_Timer();
  in_tick_ = false;
  // The tray's watch over a hidden window looks once a second, in the same
  // wake-up.
  const int second = computer_time_ms() / 1000;
  if (second != last_second_) {
    last_second_ = second;
    if (tray_) tray_->CheckTray();
  }
  if (!timer1_.isActive() || timer1_ms_ == 0) return;  // the device has ended
  if (form_->MaySleepToNextSecond()) {
    asleep_ = true;
    timer1_.start(MsToNextSecond());
  } else if (was_asleep) {
    timer1_.start(timer1_ms_);
  }
}

int QtPlatform::MsToNextSecond() const {
  const int into_second = Modulo(computer_time_ms() + clock_offset_ms_, 1000);
  return 1000 - into_second + kAfterEdgeMs;
}

void QtPlatform::Wake() {
  if (!asleep_ || in_tick_) return;
  asleep_ = false;
  if (timer1_enabled_ && timer1_ms_ > 0) timer1_.start(timer1_ms_);
}

// A timer on the real-time clock set far ahead never runs out; it is
// cancelled the moment someone sets the clock, and that wakes the device.
void QtPlatform::WatchComputerClock() {
  if (clock_watch_ < 0) {
    clock_watch_ = timerfd_create(CLOCK_REALTIME, TFD_NONBLOCK | TFD_CLOEXEC);
    if (clock_watch_ < 0) return;
    clock_notifier_ = std::make_unique<QSocketNotifier>(clock_watch_, QSocketNotifier::Read);
    QObject::connect(clock_notifier_.get(), &QSocketNotifier::activated, [this] {
      uint64_t expiries = 0;
      if (read(clock_watch_, &expiries, sizeof expiries) < 0 && errno == ECANCELED) {
        WatchComputerClock();
        ClockWasSet();
      }
    });
  }
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  itimerspec far{};
  far.it_value.tv_sec = now.tv_sec + 10 * 365 * 24 * 3600;
  timerfd_settime(clock_watch_, TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &far, nullptr);
}

void QtPlatform::ClockWasSet() { Wake(); }

// ---- The device clock ----------------------------------------------------------

ClockTime QtPlatform::Now() {
  const int ms = Modulo(computer_time_ms() + clock_offset_ms_, kDayMs);
  return {ms / 3600000, ms / 60000 % 60, ms / 1000 % 60};
}

// Moves the device's own offset so that the clock reads the written time from
// this moment on, at the start of its second. The computer's clock is never
// touched.
void QtPlatform::SetTimeOfDay(const std::string& text) {
  static const QRegularExpression kTime(
      QStringLiteral(R"(^\s*(\d{1,2}):(\d{1,2})(?::(\d{1,2}))?\s*([AaPp][Mm])?\s*$)"));
  const QRegularExpressionMatch m = kTime.match(QString::fromStdString(text));
  if (!m.hasMatch()) return;
  int hour = m.captured(1).toInt();
  const int minute = m.captured(2).toInt();
  const int second = m.captured(3).toInt();
  const QString half = m.captured(4).toUpper();
  if (!half.isEmpty()) hour = hour % 12 + (half == QLatin1String("PM") ? 12 : 0);
  if (hour > 23 || minute > 59 || second > 59) return;
  const int wanted = ((hour * 60 + minute) * 60 + second) * 1000;
  clock_offset_ms_ = Modulo(wanted - computer_time_ms(), kDayMs);
  Wake();  // the edges of the device's seconds have moved
}

// ---- The settings store ----------------------------------------------------------

SettingsStore& QtPlatform::Store(const std::string& app) {
  std::unique_ptr<SettingsStore>& store = stores_[app];
  if (!store) {
    store = std::make_unique<SettingsStore>(app);
    // A store changed by another copy shows at the next beat, as when awake.
    const QString folder = QFileInfo(store->path()).absolutePath();
    if (QFileInfo(folder).isDir()) store_watch_.addPath(folder);
  }
  return *store;
}

std::string QtPlatform::GetSetting(const std::string& app, const std::string& section,
                                   const std::string& key, const std::string& def) {
  const std::string* text = Store(app).Read(section, key);
  return text ? *text : def;
}

void QtPlatform::SaveSetting(const std::string& app, const std::string& section,
                             const std::string& key, const std::string& value) {
  Store(app).Write(section, key, value);
}

void QtPlatform::DeleteSetting(const std::string& app, const std::string& section,
                               const std::string& key) {
  Store(app).Write(section, key, std::nullopt);
}

// ---- Random numbers ----------------------------------------------------------------

void QtPlatform::Randomize(int seed) { random_.seed(static_cast<std::mt19937::result_type>(seed)); }

// The top 24 bits of a draw: every value a float holds exactly, and never 1.
float QtPlatform::Rnd() { return static_cast<float>(random_() >> 8) * (1.0f / 16777216.0f); }

// ---- Sound and files ----------------------------------------------------------------

void QtPlatform::PlayWave(const std::string& path) { voice_.Play(QString::fromStdString(path)); }

bool QtPlatform::FileAttributes(const std::string& path, bool& is_directory) {
  const QFileInfo info(QString::fromStdString(path));
  if (path.empty() || !info.exists()) return false;
  is_directory = info.isDir();
  return true;
}

std::string QtPlatform::ProgramFolder() {
  return QCoreApplication::applicationDirPath().toStdString();
}

// ---- The device window ----------------------------------------------------------------

Point QtPlatform::CursorPos() {
  const QPoint client = window_->ClientPoint(QCursor::pos());
  return {client.x(), client.y()};
}

float QtPlatform::WindowLeft() { return LeftFromClient(window_->ClientPos().x()); }

float QtPlatform::WindowTop() { return TopFromClient(window_->ClientPos().y()); }

void QtPlatform::MoveWindow(float left, float top) {
  window_->MoveClientTo(ClientFromTwips(left, top));
}

// A window the desktop minimised comes back too. The window manager may
// have dropped the hidden window's stacking; it gets it again before it is
// mapped.
void QtPlatform::ShowWindow(bool shown) {
  Wake();
  if (!shown) FinishStart();
  if (shown) {
    SetWindowAbove(*window_->windowHandle(), topmost_);
    window_->setWindowState(window_->windowState() & ~Qt::WindowMinimized);
  }
  window_->setVisible(shown);
  if (tray_) tray_->WatchWhileHidden(!shown);
  if (menu_) menu_->SyncExported();
}

// Only the window manager's state changes: the native window lives for the
// run.
void QtPlatform::SetTopmost(bool topmost) {
  topmost_ = topmost;
  SetWindowAbove(*window_->windowHandle(), topmost);
}

void QtPlatform::ObjectChanged(Obj object) {
  if (!in_tick_) Wake();  // a change from outside a tick: a tray's or a menu's over D-Bus
  if (window_) window_->ObjectChanged(object);
}

void QtPlatform::ProcessEvents() { QCoreApplication::processEvents(); }

void QtPlatform::OpenDialog(Dialog dialog) {
  if (dialogs_) dialogs_->Open(dialog);
}

void QtPlatform::SetDialogTopmost(Dialog dialog, bool topmost) {
  if (dialogs_) dialogs_->SetTopmost(dialog, topmost);
}

// ---- The popup menu and the tray ----------------------------------------------------

// The menu lives for the run once it has been opened or given to a tray.
PopupMenu& QtPlatform::Menu() {
  if (!menu_) menu_ = std::make_unique<PopupMenu>(*form_);
  return *menu_;
}

// At the pointer, or where a tray on D-Bus asked for it. The device hears
// first whether a tray is there to offer "&Hide" for.
void QtPlatform::OpenPopupMenu() {
  const std::optional<QPoint> asked = tray_ ? tray_->MenuPoint() : std::nullopt;
  OpenMenuAt(asked.value_or(QCursor::pos()));
}

void QtPlatform::OpenPopupMenuAtWindow() {
  OpenMenuAt(window_->ClientPos() + window_->rect().center());
}

void QtPlatform::OpenMenuAt(const QPoint& at) {
  form_->TrayPresence(TrayIcon::Available());
  Menu().Exec(at);
}

// The program's icon, as the device window already has it. Reaching the tray
// may take a round trip to the session bus, which the first frame does not
// wait for.
void QtPlatform::AddTrayIcon() {
  tray_wanted_ = true;
  if (!started_) return;
  form_->TrayPresence(TrayIcon::Available());
  tray_ = std::make_unique<TrayIcon>(*form_, window_->windowIcon(), Menu());
}

void QtPlatform::RemoveTrayIcon() {
  tray_wanted_ = false;
  tray_.reset();
}

void QtPlatform::OpenUrl(const std::string& url) { OpenLink(QString::fromStdString(url)); }

void QtPlatform::Quit() {
  timer1_.stop();
  quit_requested_ = true;
  QCoreApplication::exit(0);
}

}  // namespace nautrix
