// The device's one popup menu: its eleven items in their order, the five
// check marks and Hide's state shown from the device each time it opens,
// opened at a point and blocking until it has closed. A tray that draws the
// menu itself gets the same items as a menu of its own to show.
#pragma once

#include <QMenu>
#include <QPoint>
#include <vector>

#include "device/form1.h"

namespace nautrix {

class PopupMenu {
 public:
  explicit PopupMenu(Form1& form);

  // Opens the menu at a screen point with the device's marks; returns when
  // it has closed and the chosen item has acted.
  void Exec(const QPoint& at);
  // The items for a tray that draws them: current whenever the tray is about
  // to show them, each acting as from the device, once the tray's call has
  // been answered.
  QMenu* Exported() { return &exported_; }
  // The tray's items show the device's marks now, for trays that do not say
  // when they are about to show them.
  void SyncExported() { Sync(tray_); }
  // The menu of Exec while it is open.
  bool IsOpen() const { return menu_.isVisible(); }

 private:
  struct Items {
    QMenu* menu;
    std::vector<QAction*> actions;  // one per item, separators included
  };
  void Build(Items& items);
  void Sync(Items& items);
  // The item's handler, or none for a separator or an item not offered.
  int IndexOf(const Items& items, const QAction* chosen) const;

  Form1& form_;
  QMenu menu_, exported_;
  Items own_{&menu_, {}}, tray_{&exported_, {}};
};

}  // namespace nautrix
