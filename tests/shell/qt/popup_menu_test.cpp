// The popup menu and the stacking under the offscreen platform: the items in
// their order with their captions, mnemonics and the device's marks, chosen
// by a mnemonic; Always on Top restacks the device window without making a
// new one or showing a hidden one.
#include <QKeyEvent>
#include <QMenu>
#include <QTimer>
#include <QWindow>

#include "tests/shell/qt/desktop_test.h"

namespace nautrix {
namespace {

using PopupMenuTest = DesktopTest;

// Each item as "caption", then "[x]" or "[ ]" for a check mark and "off" when
// it cannot be chosen; "-" for a separator.
QStringList Items(const QMenu& menu) {
  QStringList items;
  for (const QAction* action : menu.actions()) {
    QString item = action->isSeparator() ? QStringLiteral("-") : action->text();
    if (action->isCheckable()) item += action->isChecked() ? " [x]" : " [ ]";
    if (!action->isEnabled()) item += " off";
    items << item;
  }
  return items;
}

// With no tray on the desktop "&Hide" cannot be chosen; the marks are the
// device's; the mnemonic's letter chooses its item, which acts at once.
TEST_F(PopupMenuTest, TheItemsShowTheDevicesMarksAndAMnemonicChoosesOne) {
  form.mAlwaysOnTop.Checked = true;
  QStringList shown;
  QTimer::singleShot(0, [&] {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    shown = Items(*menu);
    QKeyEvent key(QEvent::KeyPress, Qt::Key_U, Qt::NoModifier, QStringLiteral("u"));
    QCoreApplication::sendEvent(menu, &key);
  });
  form.Form_KeyUp(13, 0);  // Enter
  EXPECT_EQ(shown, QStringList({"&Hide [ ] off", "&Sound [x]", "A&uto Show [ ]",
                                "Always on &Top [x]", "&Back [ ]", "-", "&Options...",
                                "&Instructions...", "&About...", "-", "&Exit"}));
  EXPECT_TRUE(form.mAutoShow.Checked);
  EXPECT_EQ(platform.GetSetting(kStoreApp, kStoreSection, "Auto Show", ""), "True");
}

// The stacking is the window manager's state of the one window: the native
// window stays, and a hidden window stays hidden.
TEST_F(PopupMenuTest, AlwaysOnTopRestacksTheSameWindowWithoutShowingIt) {
  const WId id = window.winId();
  form.mAlwaysOnTop_Click();
  EXPECT_TRUE(window.windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint));
  EXPECT_FALSE(window.isVisible());
  window.show();
  form.mAlwaysOnTop_Click();
  EXPECT_FALSE(window.windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint));
  EXPECT_TRUE(window.isVisible());
  EXPECT_EQ(window.winId(), id);
}

}  // namespace
}  // namespace nautrix
