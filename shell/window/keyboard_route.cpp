#include "shell/window/keyboard_route.h"

#include <QGuiApplication>
#include <cstdlib>

#include <xcb/xcb.h>
// The XKB header names a field "explicit", which C++ reserves.
#define explicit xkb_explicit
#include <xcb/xkb.h>
#undef explicit

#include "shell/input/key_codes.h"

namespace nautrix {
namespace {

// A repeat's press leaves the server together with its release; this is
// ample time for it to come in through a busy event loop.
constexpr int kDrainMs = 20;

}  // namespace

bool AskDetectableAutoRepeat() {
  // The offscreen platform answers as X11 too, with no connection.
  const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  xcb_connection_t* connection = x11 != nullptr ? x11->connection() : nullptr;
  if (connection == nullptr) return false;
  constexpr uint32_t kFlag = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
  // Qt has already taken XKB into use on its connection.
  xcb_xkb_per_client_flags_reply_t* reply = xcb_xkb_per_client_flags_reply(
      connection,
      xcb_xkb_per_client_flags(connection, XCB_XKB_ID_USE_CORE_KBD, kFlag, kFlag, 0, 0, 0),
      nullptr);
  const bool on = reply != nullptr && (reply->value & kFlag) != 0;
  std::free(reply);
  return on;
}

KeyboardRoute::KeyboardRoute(Form1& form, bool server_detects_repeat)
    : form_(form), server_detects_repeat_(server_detects_repeat) {
  drain_.setSingleShot(true);
  drain_.setInterval(kDrainMs);
  QObject::connect(&drain_, &QTimer::timeout, [this] { Flush(); });
}

void KeyboardRoute::Press(const QKeyEvent& event) {
  down_[event.nativeScanCode()] |= IsDesktopMenuKey(event);
  const bool pair_of_held = held_ && held_->key == event.key() &&
                            held_->scan == event.nativeScanCode() &&
                            held_->time == event.timestamp();
  if (pair_of_held) {
    held_.reset();  // the key is still down: its repeat, for the latch
    drain_.stop();
  } else {
    Flush();
  }
  form_.Form_KeyDown(VirtualKeyCode(event), ShiftState(event.modifiers()));
}

void KeyboardRoute::Release(const QKeyEvent& event) {
  if (event.isAutoRepeat()) return;  // Qt found the pair's press itself
  const auto down = down_.find(event.nativeScanCode());
  if (down == down_.end()) return;
  const HeldRelease release{event.key(), event.nativeScanCode(), event.timestamp(),
                            VirtualKeyCode(event), ShiftState(event.modifiers()), down->second};
  down_.erase(down);
  if (server_detects_repeat_) return Deliver(release);
  Flush();
  held_ = release;
  drain_.start();
}

void KeyboardRoute::Flush() {
  if (!held_) return;
  const HeldRelease release = *held_;
  held_.reset();
  drain_.stop();
  Deliver(release);
}

// The desktop's menu key and Shift+F10 ask for a context menu in every
// program, as a right click does: the device gets its key-up like any
// key's (a key with no action of its own), and the menu opens as Enter
// opens it.
void KeyboardRoute::Deliver(const HeldRelease& release) {
  form_.Form_KeyUp(release.code, release.shift);
  if (release.menu) form_.OpenPopupMenuFromKeyboard();
}

bool IsDesktopMenuKey(const QKeyEvent& event) {
  return event.key() == Qt::Key_Menu ||
         (event.key() == Qt::Key_F10 && event.modifiers().testFlag(Qt::ShiftModifier));
}

}  // namespace nautrix
