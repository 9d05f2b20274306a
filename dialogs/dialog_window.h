// What a dialog's rules ask of their own window. The Qt shell implements it
// for each dialog; the tests implement it with a fake that records the calls.
// The dialogs reach the device only through Form1 (its menu marks, its
// DoCheckSpeed, the store and the platform).
#pragma once

#include <string>

namespace nautrix {

// The controls of the dialogs, named after what the form runtime calls their
// properties.
struct CommandButton {
  bool Enabled = true;
};
struct Label {
  std::string Caption;
  bool Visible = true;
};

class DialogWindow {
 public:
  virtual ~DialogWindow() = default;
  // The dialog ends: its window closes and is discarded.
  virtual void Unload() = 0;
  // One Tab keystroke for the window, handled as the user's own: the focus
  // goes from the first control that can hold it to the next.
  virtual void PostTab() = 0;
};

// The instruction leaflet moves itself: it has no frame to be dragged by.
class PageWindow : public DialogWindow {
 public:
  // The window's corner, in twips (15 to the pixel), as last set.
  virtual float Left() = 0;
  virtual float Top() = 0;
  // Both at once, in one step.
  virtual void Move(float left, float top) = 0;
};

}  // namespace nautrix
