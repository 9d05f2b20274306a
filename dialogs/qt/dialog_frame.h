// What the three dialog windows share on the desktop: a fixed client area, a place at the centre of the screen, no owner, and an
// end when they close. Their controls are laid out in twips, as designed,
// in the desktop's own sans-serif at 8.25 points.
#pragma once

#include <QDialog>
#include <QFont>
#include <QRect>
#include <functional>

namespace nautrix {

// Twips of a design, 15 to the pixel.
QRect TwipRect(int left, int top, int width, int height);
// The desktop's font at the size of the design's text.
QFont DialogFont();
// Only the weight, or only the underline, set: a control with such a font
// takes the rest from its window's font.
QFont BoldFont();
QFont UnderlinedFont();

class DialogFrame : public QDialog {
 public:
  // An ordinary dialog with a title and a close button only, or a window
  // without any frame.
  enum class Kind { Framed, Frameless };
  DialogFrame(Kind kind, int width, int height);

  // The client area centred on the screen's free area.
  void CentreOn(const QRect& screen_area);
  // The design's text size, or the largest smaller one at which `fits`
  // holds: a desktop font wider than the one the design was drawn for would
  // spill its captions out of their places.
  void FitFont(const std::function<bool()>& fits);
  void SetTopmost(bool topmost);
  // The focus goes from the first control that can take it to the next, as
  // the Tab key takes it; nothing happens in a window without such controls.
  void FocusSecondControl();
};

}  // namespace nautrix
