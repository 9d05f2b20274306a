#include "shell/tray/popup_menu.h"

#include <QAction>
#include <QTimer>
#include <iterator>

namespace nautrix {
namespace {

struct Item {
  const char* caption;         // "-" for a separator
  MenuItem Form1::*item;       // the device's menu item with its mark, or none
  void (Form1::*click)();      // what choosing it does, or none
};

// The items in their order, with their captions and mnemonics as the device
// has them.
const Item kItems[] = {
    {"&Hide", &Form1::mHide, &Form1::mHide_Click},
    {"&Sound", &Form1::mSound, &Form1::mSound_Click},
    {"A&uto Show", &Form1::mAutoShow, &Form1::mAutoShow_Click},
    {"Always on &Top", &Form1::mAlwaysOnTop, &Form1::mAlwaysOnTop_Click},
    {"&Back", &Form1::mBack, &Form1::mBack_Click},
    {"-", nullptr, nullptr},
    {"&Options...", nullptr, &Form1::mOptions_Click},
    {"&Instructions...", nullptr, &Form1::mInstructions_Click},
    {"&About...", nullptr, &Form1::mAbout_Click},
    {"-", nullptr, nullptr},
    {"&Exit", nullptr, &Form1::mExit_Click},
};

}  // namespace

PopupMenu::PopupMenu(Form1& form) : form_(form) {
  Build(own_);
  Build(tray_);
  QObject::connect(&exported_, &QMenu::aboutToShow, [this] { Sync(tray_); });
  QObject::connect(&exported_, &QMenu::triggered, [this](QAction* chosen) {
    const int i = IndexOf(tray_, chosen);
    // The tray's call is answered first: Exit must not leave it waiting.
    if (i < 0) return;
    const auto click = kItems[i].click;
    QTimer::singleShot(0, &exported_, [this, click] {
      (form_.*click)();
      Sync(tray_);
    });
  });
  Sync(tray_);
}

void PopupMenu::Build(Items& items) {
  for (const Item& item : kItems) {
    if (item.click == nullptr) {
      items.actions.push_back(items.menu->addSeparator());
      continue;
    }
    QAction* action = items.menu->addAction(QString::fromLatin1(item.caption));
    action->setCheckable(item.item != nullptr);
    items.actions.push_back(action);
  }
}

void PopupMenu::Sync(Items& items) {
  for (size_t i = 0; i < std::size(kItems); ++i) {
    if (!kItems[i].item) continue;
    const MenuItem& item = form_.*kItems[i].item;
    items.actions[i]->setChecked(item.Checked);
    items.actions[i]->setEnabled(item.Enabled);
  }
}

int PopupMenu::IndexOf(const Items& items, const QAction* chosen) const {
  for (size_t i = 0; i < std::size(kItems); ++i) {
    if (chosen != nullptr && items.actions[i] == chosen && kItems[i].click && chosen->isEnabled())
      return static_cast<int>(i);
  }
  return -1;
}

void PopupMenu::Exec(const QPoint& at) {
  Sync(own_);
  // The item acts after the menu has gone, still inside the caller's wait.
  const int i = IndexOf(own_, menu_.exec(at));
  if (i >= 0) (form_.*kItems[i].click)();
}

}  // namespace nautrix
