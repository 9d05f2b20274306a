#include "dialogs/qt/dialog_frame.h"

#include <QAbstractButton>
#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QStyle>
#include <QWindow>
#include <algorithm>
#include <cmath>

#include "device/platform.h"

namespace nautrix {
namespace {

constexpr qreal kDesignPoints = 8.25;
// The text size of most desktops' dialogs, which the design's 8.25 points
// stand for: a desktop set to larger text gets larger dialogs.
constexpr qreal kUsualDesktopPoints = 9;
// The design grows in steps of a thirty-second until its texts fit.
constexpr qreal kScaleStep = 1.0 / 32;
constexpr int kFrameWatchMs = 20, kFrameChecks = 150;

QWidget* NextTabStop(QWidget* window, QWidget* from) {
  for (QWidget* w = from->nextInFocusChain(); w != window; w = w->nextInFocusChain()) {
    if ((w->focusPolicy() & Qt::TabFocus) && w->isEnabled() && w->isVisibleTo(window)) return w;
  }
  return nullptr;
}

// A title and a close button, and neither minimise nor maximise: on X11 the
// window's Motif hints say so (functions and decorations), which KWin,
// xfwm4 and Mutter follow; its fixed size rules out maximising too. Openbox
// draws the buttons of its theme whatever a window asks.
Qt::WindowFlags FlagsOf(DialogFrame::Kind kind) {
  if (kind == DialogFrame::Kind::Frameless) return Qt::Dialog | Qt::FramelessWindowHint;
  return Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
         Qt::WindowCloseButtonHint;
}

// The room a control's caption needs. A push button's own size hint asks
// for a style's minimum width beyond its caption, which the design's
// buttons never had.
QSize Needed(const QWidget& w) {
  if (const auto* button = qobject_cast<const QPushButton*>(&w)) {
    const QStyle* style = w.style();
    const int frame = style->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, &w);
    const int margin = style->pixelMetric(QStyle::PM_ButtonMargin, nullptr, &w);
    return w.fontMetrics().size(Qt::TextShowMnemonic, button->text()) +
           QSize(2 * (margin + frame), 2 * frame);
  }
  if (qobject_cast<const QGroupBox*>(&w)) return QSize(w.minimumSizeHint().width(), 0);
  if (qobject_cast<const QLabel*>(&w) || qobject_cast<const QAbstractButton*>(&w))
    return w.sizeHint();
  return QSize(0, 0);
}

}  // namespace

QFont DialogFont() {
  QFont font = QApplication::font();
  const qreal desktop = font.pointSizeF() > 0 ? font.pointSizeF() : kUsualDesktopPoints;
  font.setPointSizeF(kDesignPoints * std::max<qreal>(1, desktop / kUsualDesktopPoints));
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

QStringList LayoutFaults(const QWidget& window) {
  QStringList faults;
  const auto name = [](const QWidget* w) {
    const auto* label = qobject_cast<const QLabel*>(w);
    const auto* button = qobject_cast<const QAbstractButton*>(w);
    const auto* frame = qobject_cast<const QGroupBox*>(w);
    return QString::fromLatin1(w->metaObject()->className()) + " \"" +
           (label ? label->text() : button ? button->text() : frame ? frame->title() : QString()) +
           "\"";
  };
  QList<QWidget*> all = window.findChildren<QWidget*>();
  all.removeIf([&window](const QWidget* w) { return !w->isVisibleTo(&window) || w->isWindow(); });
  for (qsizetype i = 0; i < all.size(); ++i) {
    const QWidget* w = all[i];
    const QSize need = Needed(*w);
    if (need.width() > w->width() || need.height() > w->height())
      faults << name(w) + " is cut";
    const QWidget* parent = w->parentWidget();
    const QRect room = parent == &window ? window.rect() : parent->contentsRect();
    if (!room.contains(w->geometry())) faults << name(w) + " leaves its frame";
    for (qsizetype j = 0; j < i; ++j) {
      if (all[j]->parentWidget() == parent && all[j]->geometry().intersects(w->geometry()))
        faults << name(all[j]) + " and " + name(w) + " overlap";
    }
  }
  return faults;
}

// No owner: the device window may hide in the tray while a dialog stands.
DialogFrame::DialogFrame(Kind kind, int width, int height)
    : QDialog(nullptr, FlagsOf(kind)), design_(width, height) {
  setAttribute(Qt::WA_DeleteOnClose);
  setFont(DialogFont());
  setFixedSize(design_);
  frame_watch_.setInterval(kFrameWatchMs);
  // While a window manager sets its frame up, the frame read back can be
  // anything for a moment: the window is placed by each frame that can be
  // one, for a while.
  connect(&frame_watch_, &QTimer::timeout, this, [this] {
    if (++frame_checks_ >= kFrameChecks) frame_watch_.stop();
    const QMargins m = FrameMargins();
    const int most = std::min(this->width(), this->height()) / 4;
    if (m == placed_margins_ || std::min({m.left(), m.top(), m.right(), m.bottom()}) < 0 ||
        std::max({m.left(), m.top(), m.right(), m.bottom()}) > most)
      return;
    PlaceCentred();
  });
  // The native window exists before the load, which sets its stacking.
  winId();
}

int DialogFrame::Pixels(int twips) const {
  return static_cast<int>(std::lround(twips * scale_ / kTwipsPerPixel));
}

QRect DialogFrame::TwipRect(int left, int top, int width, int height) const {
  return QRect(Pixels(left), Pixels(top), Pixels(width), Pixels(height));
}

void DialogFrame::ArrangeToFit() {
  const qreal first = std::max<qreal>(1, font().pointSizeF() / kDesignPoints);
  for (scale_ = first;; scale_ += kScaleStep) {
    setFixedSize(qRound(design_.width() * scale_), qRound(design_.height() * scale_));
    Arrange();
    if (scale_ >= 3 * first || LayoutFaults(*this).isEmpty()) return;
  }
}

void DialogFrame::CentreOn(const QRect& screen_area) {
  screen_area_ = screen_area;
  PlaceCentred();
  if (windowFlags().testFlag(Qt::FramelessWindowHint)) return;
  frame_checks_ = 0;
  frame_watch_.start();
}

// The window manager's frame as it stands now (Qt's widget keeps the first
// one it read).
QMargins DialogFrame::FrameMargins() const {
  return windowHandle() ? windowHandle()->frameMargins() : QMargins();
}

// The client area placed so that its frame, as known now, is centred.
void DialogFrame::PlaceCentred() {
  placed_margins_ = FrameMargins();
  QRect frame = rect().marginsAdded(placed_margins_);
  frame.moveCenter(screen_area_.center());
  setGeometry(QRect(frame.topLeft() + QPoint(placed_margins_.left(), placed_margins_.top()), size()));
}

void DialogFrame::BringForward() {
  if (isMinimized()) showNormal();
  raise();
  activateWindow();
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
