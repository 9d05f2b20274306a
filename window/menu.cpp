// The popup menu's items and the tray's door. A toggle flips the item's
// mark and then acts by the mark: the marks are the options' working state.
#include <cmath>

#include "device/form1.h"
#include "device/store_keys.h"
#include "device/text.h"

namespace nautrix {

void Form1::OpenPopupMenu() { platform_.OpenPopupMenu(); }

// A menu asked for from the keyboard opens at the pointer only while the
// pointer is over the device; elsewhere it opens at the device window.
void Form1::OpenPopupMenuFromKeyboard() {
  const Point p = platform_.CursorPos();
  if (Info(Obj::FrontCase).rect.Contains(p.x, p.y)) platform_.OpenPopupMenu();
  else platform_.OpenPopupMenuAtWindow();
}

// The tray reports its mouse messages by number, as a pointer X of that many
// pixels; two of them act (device/platform.h). Events
// that come while the menu is open are dropped. An X beyond every message
// number is no message.
void Form1::Form_MouseMove(int /*Button*/, int /*Shift*/, float X, float /*Y*/) {
  const float pixels = X / static_cast<float>(kTwipsPerPixel);
  TrayMessage = std::fabs(pixels) < 1e9f ? static_cast<int32_t>(std::lround(pixels)) : 0;
  if (TrayBusy) return;
  TrayBusy = true;
  if (TrayMessage == kTrayLeftDoubleClick) mHide_Click();
  if (TrayMessage == kTrayRightRelease) OpenPopupMenu();
  TrayBusy = false;
}

void Form1::mHide_Click() {
  mHide.Checked = !mHide.Checked;
  TrayMissing = 0;
  mHide.Enabled = TrayThere || mHide.Checked;
  platform_.ShowWindow(!mHide.Checked);
}

// Without a tray the icon cannot bring the window back, so "&Hide" is not
// offered then, unless the window is hidden already. A tray gone for longer
// than a panel takes to restart (three reports, a second apart) while the
// window is hidden brings it back through the Hide item's own path.
void Form1::TrayPresence(bool there) {
  TrayThere = there;
  TrayMissing = there || !mHide.Checked ? 0 : TrayMissing + 1;
  mHide.Enabled = TrayThere || mHide.Checked;
  if (TrayMissing >= 3) mHide_Click();
}

// A window that the desktop minimised is out of sight as a hidden one is:
// the mark says so, and the Hide item's path (the tray's double click, the
// item itself) brings it back.
void Form1::WindowMinimized(bool minimized) {
  mHide.Checked = minimized;
  TrayMissing = 0;
  mHide.Enabled = TrayThere || mHide.Checked;
}

void Form1::mSound_Click() {
  mSound.Checked = !mSound.Checked;
  SaveSetting(store::kSound, BoolText(mSound.Checked));
}

void Form1::mAutoShow_Click() {
  mAutoShow.Checked = !mAutoShow.Checked;
  SaveSetting(store::kAutoShow, BoolText(mAutoShow.Checked));
}

void Form1::mAlwaysOnTop_Click() {
  mAlwaysOnTop.Checked = !mAlwaysOnTop.Checked;
  SaveSetting(store::kAlwaysOnTop, BoolText(mAlwaysOnTop.Checked));
  platform_.SetTopmost(mAlwaysOnTop.Checked);
}

// The flip: the back of the device covers everything and freezes the tick.
void Form1::mBack_Click() {
  SetVisible(Obj::BackCase, !IsVisible(Obj::BackCase));
  mBack.Checked = IsVisible(Obj::BackCase);
}

void Form1::mOptions_Click() { platform_.OpenDialog(Dialog::Options); }

void Form1::mInstructions_Click() { platform_.OpenDialog(Dialog::Instructions); }

void Form1::mAbout_Click() { platform_.OpenDialog(Dialog::About); }

void Form1::mExit_Click() {
  int cancel = 0;
  Form_Unload(cancel);
}

}  // namespace nautrix
