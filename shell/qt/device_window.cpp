#include "shell/qt/device_window.h"

#include <QCloseEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QToolTip>
#include <QWindow>

#include "shell/qt/device_painter.h"

namespace nautrix {
namespace {

constexpr int kTwipsPerPixel = 15;
constexpr int kSettleMs = 500;

// Shifted symbols of the main-block digits on the usual layout: Shift makes
// no difference to the device, so Shift+1 is still the GAME A key.
int DigitUnderSymbol(int qt_key) {
  switch (qt_key) {
    case Qt::Key_Exclam: return '1';
    case Qt::Key_At: return '2';
    case Qt::Key_NumberSign: return '3';
    case Qt::Key_Dollar: return '4';
    case Qt::Key_Percent: return '5';
    case Qt::Key_AsciiCircum: return '6';
    case Qt::Key_Ampersand: return '7';
    case Qt::Key_Asterisk: return '8';
    case Qt::Key_ParenLeft: return '9';
    case Qt::Key_ParenRight: return '0';
    default: return 0;
  }
}

}  // namespace

int VirtualKeyCode(int qt_key, Qt::KeyboardModifiers modifiers) {
  const bool keypad = modifiers.testFlag(Qt::KeypadModifier);
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
  } else if (const int digit = DigitUnderSymbol(qt_key)) {
    return digit;
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

int ShiftState(Qt::KeyboardModifiers modifiers) {
  return (modifiers.testFlag(Qt::ShiftModifier) ? 1 : 0) |
         (modifiers.testFlag(Qt::ControlModifier) ? 2 : 0) |
         (modifiers.testFlag(Qt::AltModifier) ? 4 : 0);
}

int ButtonCode(Qt::MouseButtons buttons) {
  return (buttons.testFlag(Qt::LeftButton) ? 1 : 0) | (buttons.testFlag(Qt::RightButton) ? 2 : 0) |
         (buttons.testFlag(Qt::MiddleButton) ? 4 : 0);
}

DeviceWindow::DeviceWindow(Form1& form)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint), form_(form) {
  setFixedSize(333, 198);
  setWindowTitle(QStringLiteral("Nautrix"));
  setWindowIcon(AppIcon());
  setAttribute(Qt::WA_OpaquePaintEvent);  // the case covers every pixel
  setMouseTracking(true);                 // the logo lights under a hovering pointer
  setFocusPolicy(Qt::StrongFocus);
  settle_.setSingleShot(true);
  settle_.setInterval(kSettleMs);
  connect(&settle_, &QTimer::timeout, this, [this] { client_pos_ = pos(); });
  // The native window exists from the start, so that the device can set its
  // stacking before it is first shown.
  winId();
  client_pos_ = pos();
}

void DeviceWindow::MoveClientTo(const QPoint& pos) {
  client_pos_ = pos;
  move(pos);
  // Before the first show the position must reach the native window as one
  // the program chose, even where it equals the default, or the window
  // manager places the window by its own rules.
  if (!isVisible()) windowHandle()->setPosition(pos);
  settle_.start();
}

void DeviceWindow::ObjectChanged(Obj o) {
  const Rect r = form_.ObjectRect(o);
  update(r.left, r.top, r.width, r.height);
}

QPointF DeviceWindow::Twips(Obj o, const QPointF& global) const {
  // Whole pixels, as the device's pointer has them.
  const QPoint client = ClientPoint(global.toPoint());
  const Rect r = form_.ObjectRect(o);
  return QPointF((client.x() - r.left) * kTwipsPerPixel, (client.y() - r.top) * kTwipsPerPixel);
}

bool DeviceWindow::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  const QPoint client = ClientPoint(help->globalPos());
  const Obj o = form_.ObjectAt(client.x(), client.y());
  const char* tip = o == Obj::Count ? "" : Info(o).tooltip;
  if (*tip == '\0') {
    QToolTip::hideText();
    event->ignore();
    return true;
  }
  const Rect r = form_.ObjectRect(o);
  QToolTip::showText(help->globalPos(), QString::fromUtf8(tip), this,
                     QRect(r.left, r.top, r.width, r.height));
  return true;
}

void DeviceWindow::paintEvent(QPaintEvent* event) {
  // The pictures are drawn for the screen's pixel ratio; a window that moves
  // to a screen of another ratio gets them drawn anew.
  const qreal dpr = devicePixelRatioF();
  if (!book_ || book_->devicePixelRatio() != dpr) book_ = std::make_unique<PictureBook>(dpr);
  QPainter painter(this);
  PaintDevice(painter, form_, *book_, event->rect());
}

// A press with no other button held takes the pointer anew (a release that
// a popup menu swallowed leaves no capture behind): the topmost visible,
// enabled object under it keeps every move and the release. False when no
// object is there.
bool DeviceWindow::TakePointer(const QMouseEvent* event) {
  if (captured_ == Obj::Count || (event->buttons() & ~event->button()) == Qt::NoButton) {
    const QPoint client = ClientPoint(event->globalPosition().toPoint());
    captured_ = form_.ObjectAt(client.x(), client.y());
  }
  return captured_ != Obj::Count;
}

void DeviceWindow::mousePressEvent(QMouseEvent* event) {
  // The press that ends a double click comes as the double click itself.
  if (event->flags().testFlag(Qt::MouseEventCreatedDoubleClick)) return;
  const int button = ButtonCode(event->button());
  if (button == 0) return;
  if (!TakePointer(event)) return;
  const QPointF xy = Twips(captured_, event->globalPosition());
  form_.MouseDown(captured_, button, ShiftState(event->modifiers()), xy.x(), xy.y());
}

void DeviceWindow::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return mousePressEvent(event);
  if (!TakePointer(event)) return;
  form_.DblClick(captured_);
}

void DeviceWindow::mouseMoveEvent(QMouseEvent* event) {
  const int buttons = ButtonCode(event->buttons());
  if (buttons == 0) captured_ = Obj::Count;
  Obj o = captured_;
  if (o == Obj::Count) {
    const QPoint client = ClientPoint(event->globalPosition().toPoint());
    o = form_.ObjectAt(client.x(), client.y());
    if (o == Obj::Count) return;
  }
  const QPointF xy = Twips(o, event->globalPosition());
  form_.MouseMove(o, buttons, ShiftState(event->modifiers()), xy.x(), xy.y());
}

void DeviceWindow::mouseReleaseEvent(QMouseEvent* event) {
  const int button = ButtonCode(event->button());
  if (button == 0) return;
  Obj o = captured_;
  if (o == Obj::Count) {
    // A release whose press went elsewhere: the object under the pointer.
    const QPoint client = ClientPoint(event->globalPosition().toPoint());
    o = form_.ObjectAt(client.x(), client.y());
    if (o == Obj::Count) return;
  }
  if (ButtonCode(event->buttons()) == 0) captured_ = Obj::Count;
  const QPointF xy = Twips(o, event->globalPosition());
  form_.MouseUp(o, button, ShiftState(event->modifiers()), xy.x(), xy.y());
}

void DeviceWindow::keyPressEvent(QKeyEvent* event) {
  keys_down_.insert(event->nativeScanCode());
  form_.Form_KeyDown(VirtualKeyCode(event->key(), event->modifiers()),
                     ShiftState(event->modifiers()));
}

void DeviceWindow::keyReleaseEvent(QKeyEvent* event) {
  // X sends a held key's repeats as release and press pairs: dropping the
  // releases makes a hold one press and one release.
  if (event->isAutoRepeat()) return;
  // A key pressed in another window (Enter on a dialog's OK, which closed
  // it) comes up here when the focus has moved on: it is not this device's.
  if (keys_down_.erase(event->nativeScanCode()) == 0) return;
  form_.Form_KeyUp(VirtualKeyCode(event->key(), event->modifiers()),
                   ShiftState(event->modifiers()));
}

void DeviceWindow::moveEvent(QMoveEvent* event) {
  // A move the device did not ask for (the window manager's placement, a
  // keyboard move) is taken at once; the device's own moves settle first.
  if (!settle_.isActive()) client_pos_ = event->pos();
}

void DeviceWindow::closeEvent(QCloseEvent* event) {
  // Closed by the window manager: the device unloads as from its menu.
  if (unloaded_) return event->accept();
  unloaded_ = true;
  int cancel = 0;
  form_.Form_Unload(cancel);
  if (cancel != 0) {
    unloaded_ = false;
    event->ignore();
    return;
  }
  event->accept();
}

}  // namespace nautrix
