#include "shell/tray/popup_menu.h"

#include <QAction>
#include <QCursor>
#include <iterator>

namespace nautrix {
namespace {

struct Item {
  const char* caption;         // "-" for a separator
  MenuItem Form1::*mark;       // the device's check mark, or none
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
constexpr int kHideItem = 0;

}  // namespace

PopupMenu::PopupMenu() {
  for (const Item& item : kItems) {
    if (item.click == nullptr) {
      actions_.push_back(menu_.addSeparator());
      continue;
    }
    QAction* action = menu_.addAction(QString::fromLatin1(item.caption));
    action->setCheckable(item.mark != nullptr);
    actions_.push_back(action);
  }
}

void PopupMenu::Exec(Form1& form, bool tray_available) {
  for (size_t i = 0; i < std::size(kItems); ++i) {
    if (kItems[i].mark) actions_[i]->setChecked((form.*kItems[i].mark).Checked);
  }
  actions_[kHideItem]->setEnabled(tray_available || form.mHide.Checked);
  // The item acts after the menu has gone, still inside the caller's wait.
  QAction* chosen = menu_.exec(QCursor::pos());
  for (size_t i = 0; i < std::size(kItems); ++i) {
    if (chosen != nullptr && actions_[i] == chosen) return (form.*kItems[i].click)();
  }
}

}  // namespace nautrix
