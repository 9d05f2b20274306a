#include "shell/window/device_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QToolTip>
#include <QWindow>
#include <utility>

#include "shell/pictures/built_pictures.h"
#include "shell/pictures/device_painter.h"
#include "shell/window/device_accessible.h"

namespace nautrix {
namespace {

constexpr int kSettleMs = 500;

}  // namespace

DeviceWindow::DeviceWindow(Form1& form)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint),
      form_(form),
      keys_(form, AskDetectableAutoRepeat()) {
  setFixedSize(333, 198);
  setWindowTitle(QStringLiteral("Nautrix"));
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
  InstallDeviceAccessible(*this, form);
  if (QGuiApplication::platformName().startsWith(QLatin1String("wayland")))
    system_move_ = [this] { return windowHandle()->startSystemMove(); };
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
  // Nobody reads a window before its first frame; asking whether anybody
  // listens would connect to the session bus before that frame.
  if (framed_) DeviceAccessibleChanged(*this, o);
}

QPointF DeviceWindow::Twips(Obj o, const QPointF& global) const {
  // Whole pixels, as the device's pointer has them.
  const QPoint client = ClientPoint(global.toPoint());
  const Rect r = form_.ObjectRect(o);
  return QPointF((client.x() - r.left) * kTwipsPerPixel, (client.y() - r.top) * kTwipsPerPixel);
}

bool DeviceWindow::event(QEvent* event) {
  const QEvent::Type type = event->type();
  // A key's release held back reaches the device before a click that follows.
  if (type == QEvent::MouseButtonPress || type == QEvent::MouseButtonRelease ||
      type == QEvent::MouseButtonDblClick) {
    keys_.Flush();
  }
  if (type == QEvent::Leave) form_.PointerLeft();
  if (type != QEvent::ToolTip) return QWidget::event(event);
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
  if (!book_ || book_->devicePixelRatio() != dpr) book_ = PicturesFor(dpr);
  QPainter painter(this);
  PaintDevice(painter, form_, *book_, event->region());
  framed_ = true;
  if (after_first_frame_) QTimer::singleShot(0, this, std::exchange(after_first_frame_, {}));
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
  press_at_ = event->globalPosition().toPoint();
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
  const int shift = ShiftState(event->modifiers());
  // The compositor's move starts only once the pointer has really moved, so
  // that a click, and a double click that turns the device over, stay what
  // they are. It keeps the release to itself: the drag ends here.
  if (system_move_ && form_.Dragging && buttons == 1) {
    const int way = (event->globalPosition().toPoint() - press_at_).manhattanLength();
    if (way < QApplication::startDragDistance() || !system_move_()) return;
    captured_ = Obj::Count;
    return form_.MouseUp(o, 1, shift, xy.x(), xy.y());
  }
  form_.MouseMove(o, buttons, shift, xy.x(), xy.y());
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

void DeviceWindow::keyPressEvent(QKeyEvent* event) { keys_.Press(*event); }

void DeviceWindow::keyReleaseEvent(QKeyEvent* event) { keys_.Release(*event); }

void DeviceWindow::moveEvent(QMoveEvent* event) {
  // A move the device did not ask for (the window manager's placement, a
  // keyboard move) is taken at once; the device's own moves settle first.
  if (!settle_.isActive()) client_pos_ = event->pos();
}

// The desktop minimised the window or gave it back.
void DeviceWindow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::WindowStateChange || isMinimized() == minimized_) return;
  minimized_ = isMinimized();
  form_.WindowMinimized(minimized_);
}

void DeviceWindow::closeEvent(QCloseEvent* event) {
  // Closed by the window manager: the device unloads as from its menu.
  event->accept();
  if (std::exchange(unloaded_, true)) return;
  int cancel = 0;
  form_.Form_Unload(cancel);
}

}  // namespace nautrix
