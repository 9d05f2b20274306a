// The device window: a frameless 333 x 198 window that paints the screen
// objects and hands pointer and key events to the device the way the device
// expects them, the pressed object keeping the pointer until the release.
#pragma once

#include <QPoint>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>

#include "device/form1.h"
#include "shell/window/keyboard_route.h"
#include "shell/pictures/picture_book.h"

namespace nautrix {

class DeviceWindow : public QWidget {
 public:
  explicit DeviceWindow(Form1& form);

  // The client area's screen position as the device last set it. The window
  // manager applies a move a moment later; the device reads back what it set.
  QPoint ClientPos() const { return client_pos_; }
  void MoveClientTo(const QPoint& pos);
  // A screen point in client pixels, against the position the device set.
  QPoint ClientPoint(const QPoint& global) const { return global - client_pos_; }
  // An object's look has changed: repaint its rectangle only.
  void ObjectChanged(Obj o);
  // The object that holds the pointer, Obj::Count for none.
  Obj Captured() const { return captured_; }
  // `work` runs once, from the event loop, after the first frame is painted.
  void AfterFirstFrame(std::function<void()> work) { after_first_frame_ = std::move(work); }
  // Where the program may not move its own window (native Wayland), a drag
  // of the case asks the compositor to move it: `start` asks, true when the
  // compositor took the move. Empty where the device moves its window.
  void SetSystemMove(std::function<bool()> start) { system_move_ = std::move(start); }

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  // Tab is a key of the device like any other, not a focus move.
  bool focusNextPrevChild(bool) override { return false; }

 private:
  // X and Y in twips relative to object o, for a pointer at `global`.
  QPointF Twips(Obj o, const QPointF& global) const;
  // A press takes the pointer for the object under it; false over none.
  bool TakePointer(const QMouseEvent* event);

  Form1& form_;
  KeyboardRoute keys_;
  std::unique_ptr<PictureBook> book_;
  Obj captured_ = Obj::Count;
  QPoint client_pos_;
  // Runs from each move the device makes until the window manager has had
  // time to apply it; then the window's real position is taken as the one
  // the device sees, so a move the window manager refused is not believed.
  QTimer settle_;
  bool unloaded_ = false;
  bool minimized_ = false;  // as the device was last told
  std::function<void()> after_first_frame_;
  bool framed_ = false;  // the first frame has been painted
  std::function<bool()> system_move_;
  QPoint press_at_;  // screen point of the last press
};

}  // namespace nautrix
