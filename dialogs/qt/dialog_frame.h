// What the three dialog windows share on the desktop: a fixed client area, a
// place at the centre of the screen, no owner, and an end when they close.
// Their controls are laid out in twips, as designed, in the desktop's own
// sans-serif; the design's 8.25 points are drawn as large as the desktop's
// own text is against the usual 9, and the whole design grows with its text
// until every caption is whole in its place.
#pragma once

#include <QDialog>
#include <QFont>
#include <QMargins>
#include <QRect>
#include <QStringList>
#include <QTimer>

namespace nautrix {

// The desktop's font at the size of the design's text.
QFont DialogFont();
// Only the weight, or only the underline, set: a control with such a font
// takes the rest from its window's font.
QFont BoldFont();
QFont UnderlinedFont();

// What a user would find wrong with the window's controls as they stand: a
// caption wider or taller than its control, a control out of its frame or
// window, two neighbours over each other. Empty when all is well.
QStringList LayoutFaults(const QWidget& window);

class DialogFrame : public QDialog {
 public:
  // An ordinary dialog with a title and a close button only, or a window
  // without any frame.
  enum class Kind { Framed, Frameless };
  // The client area's size in the design's pixels.
  DialogFrame(Kind kind, int width, int height);

  // Pixels of this window for twips of the design (15 to the design's pixel).
  QRect TwipRect(int left, int top, int width, int height) const;
  int Pixels(int twips) const;
  qreal Scale() const { return scale_; }

  // The framed window centred on the screen's free area. The frame's size is
  // known only once the window manager has put it round the shown window;
  // the window is placed again then.
  void CentreOn(const QRect& screen_area);
  // A window the user has minimised or buried comes back in front.
  void BringForward();
  void SetTopmost(bool topmost);
  // The focus goes from the first control that can take it to the next, as
  // the Tab key takes it; nothing happens in a window without such controls.
  void FocusSecondControl();

 protected:
  // Places every control for the present scale.
  virtual void Arrange() {}
  // The smallest scale, from the text's own up, at which every caption is
  // whole and nothing overlaps; the window takes its size from it.
  void ArrangeToFit();

 private:
  QMargins FrameMargins() const;
  void PlaceCentred();

  const QSize design_;
  qreal scale_ = 1;
  QRect screen_area_;
  QTimer frame_watch_;  // waits for the window manager's frame
  int frame_checks_ = 0;
  QMargins placed_margins_;  // the frame the window was last centred with
};

}  // namespace nautrix
