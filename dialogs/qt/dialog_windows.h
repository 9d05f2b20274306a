// The secondary windows on the desktop: made when the device asks for one,
// one of each at a time (a second request brings the open one forward),
// discarded when closed, and closed with the program. None is owned by the
// device window.
#pragma once

#include <QPointer>
#include <QWidget>
#include <array>

#include "device/form1.h"
#include "dialogs/qt/dialog_frame.h"

namespace nautrix {

class DialogWindows {
 public:
  // The dialogs open centred on the screen of the device window.
  DialogWindows(Form1& device, QWidget& device_window);
  ~DialogWindows();
  DialogWindows(const DialogWindows&) = delete;
  DialogWindows& operator=(const DialogWindows&) = delete;

  // Loads and shows the dialog without waiting, or brings the open one forward.
  void Open(Dialog dialog);
  void SetTopmost(Dialog dialog, bool topmost);
  // The open window of the dialog, or null.
  DialogFrame* Window(Dialog dialog) const { return open_[Slot(dialog)]; }

 private:
  static int Slot(Dialog dialog) { return static_cast<int>(dialog); }
  template <typename Window>
  void Load(Dialog dialog);

  Form1& device_;
  QWidget& device_window_;
  std::array<QPointer<DialogFrame>, 3> open_;
};

}  // namespace nautrix
