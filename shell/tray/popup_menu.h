// The device's one popup menu: its eleven items in their order, the five
// check marks shown from the device's own marks each time it opens, opened
// at the pointer and blocking until it has closed.
#pragma once

#include <QMenu>
#include <vector>

#include "device/form1.h"

namespace nautrix {

class PopupMenu {
 public:
  PopupMenu();

  // Opens the menu at the pointer with the device's marks; returns when it
  // has closed and the chosen item has acted. Without a tray to come back
  // from, "&Hide" is not offered, unless the window is hidden already.
  void Exec(Form1& form, bool tray_available);
  QMenu& menu() { return menu_; }

 private:
  QMenu menu_;
  std::vector<QAction*> actions_;  // one per item, separators included
};

}  // namespace nautrix
