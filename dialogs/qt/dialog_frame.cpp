#include "dialogs/qt/dialog_frame.h"

#include <QApplication>
#include <QWindow>

#include "device/platform.h"

namespace nautrix {
namespace {

constexpr qreal kDesignPoints = 8.25;
constexpr qreal kSmallestPoints = 6.5;

QWidget* NextTabStop(QWidget* window, QWidget* from) {
  for (QWidget* w = from->nextInFocusChain(); w != window; w = w->nextInFocusChain()) {
    if ((w->focusPolicy() & Qt::TabFocus) && w->isEnabled() && w->isVisibleTo(window)) return w;
  }
  return nullptr;
}

Qt::WindowFlags FlagsOf(DialogFrame::Kind kind) {
  if (kind == DialogFrame::Kind::Frameless) return Qt::Dialog | Qt::FramelessWindowHint;
  return Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
         Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
}

}  // namespace

QRect TwipRect(int left, int top, int width, int height) {
  return QRect(left / kTwipsPerPixel, top / kTwipsPerPixel, width / kTwipsPerPixel,
               height / kTwipsPerPixel);
}

QFont DialogFont() {
  QFont font = QApplication::font();
  font.setPointSizeF(kDesignPoints);
  return font;
}

QFont BoldFont() {
  QFont font;
  font.setBold(true);
  return font;
}

QFont UnderlinedFont() {
  QFont font;
  font.setUnderline(true);
  return font;
}

// No owner: the device window may hide in the tray while a dialog stands.
DialogFrame::DialogFrame(Kind kind, int width, int height) : QDialog(nullptr, FlagsOf(kind)) {
  setAttribute(Qt::WA_DeleteOnClose);
  setFont(DialogFont());
  setFixedSize(width, height);
  // The native window exists before the load, which sets its stacking.
  winId();
}

// The client area is placed: a frame's size is not known before it is shown.
void DialogFrame::CentreOn(const QRect& screen_area) {
  QRect client = rect();
  client.moveCenter(screen_area.center());
  setGeometry(client);
}

void DialogFrame::FitFont(const std::function<bool()>& fits) {
  QFont font = DialogFont();
  for (qreal points = kDesignPoints; points >= kSmallestPoints; points -= 0.25) {
    font.setPointSizeF(points);
    setFont(font);
    if (fits()) return;
  }
}

// Only the window manager's state changes, as for the device window.
void DialogFrame::SetTopmost(bool topmost) {
  if (QWindow* handle = windowHandle()) handle->setFlag(Qt::WindowStaysOnTopHint, topmost);
}

void DialogFrame::FocusSecondControl() {
  QWidget* first = NextTabStop(this, this);
  QWidget* second = first ? NextTabStop(this, first) : nullptr;
  if (second) second->setFocus(Qt::TabFocusReason);
}

}  // namespace nautrix
