// WINDOW, MENU AND TRAY - the case drags the window, which stores its place
// at the end; the tray's door lets only the left double click and the right
// release through, and nothing while the menu is open; the menu opens from
// the case, the segments, the logo and the keys under their gates.
#include "tests/support/device_test.h"

namespace nautrix {
namespace {

using MenuAndTray = Scene;

// The window follows the pointer's way in whole pixels (X and Y are twips
// from the pressed object's corner), and its place is stored at the release.
TEST_F(MenuAndTray, TheCaseDragsTheWindowAndItsPlaceIsStoredAtTheEnd) {
  form.MouseDown(Obj::FrontCase, 1, 0, 150, 300);
  form.MouseMove(Obj::FrontCase, 1, 0, 180, 270);
  EXPECT_TRUE(fake.left == -15 && fake.top == -360 && fake.store_writes.empty());
  form.MouseUp(Obj::FrontCase, 1, 0, 180, 270);
  EXPECT_EQ(Joined(fake.store_writes), "Left=-15;Top=-360");
}

void Tray(Form1& form, int message) { form.Form_MouseMove(0, 0, message * 15.0f, 0); }

// 512 to 518: a move, the left press, release and double click, the right
// press, release and double click. Only 515 and 517 act; while the menu is
// open from the tray, the tray's events are dropped.
TEST_F(MenuAndTray, OnlyTheDoubleClickAndTheRightReleaseOfTheTrayAct) {
  for (int message = 512; message <= 518; ++message) Tray(form, message);
  EXPECT_TRUE(Joined(fake.calls) == "HideWindow;PopupMenu" && form.mHide.Checked);
  Forget();
  fake.while_menu_open = [this] {
    Tray(form, 515);
    Tray(form, 517);
  };
  Tray(form, 517);
  fake.while_menu_open = nullptr;
  Tray(form, 515);
  EXPECT_EQ(Joined(fake.calls), "PopupMenu;ShowWindow");
  EXPECT_FALSE(form.TrayBusy || form.mHide.Checked);
}

// The desktop's word on the way back decides "&Hide": hidden, a tray
// missing from three reports in a row (a second apart) brings the window
// back, a tray back in time does not, and with no tray Hide is not offered
// (its offer with a tray, and a window the desktop minimised, are the e2e
// tier's tray test).
TEST_F(MenuAndTray, ATrayMissingThreeReportsInARowBringsTheWindowBack) {
  form.TrayPresence(true);
  Tray(form, 515);
  for (const bool there : {false, false, true, false, false}) form.TrayPresence(there);
  EXPECT_TRUE(form.mHide.Checked);
  form.TrayPresence(false);
  EXPECT_EQ(Joined(fake.calls) + (form.mHide.Enabled ? " Hide" : ""), "HideWindow;ShowWindow");
}

// Enter opens the menu at the pointer while it is over the device, and at
// the device window while it is elsewhere; the Menu key's code has no action
// of its own (the desktop window asks for the menu at its release).
TEST_F(MenuAndTray, AMenuFromTheKeyboardOpensAtTheDevice) {
  MoveTo({332, 197});
  Keys({13, -13, 93, -93});
  MoveTo({333, 100});
  Keys({13, -13});
  EXPECT_EQ(Joined(fake.calls), "PopupMenu;AtWindow;PopupMenu");
}

// Which presses open the menu: the case's right press and the logo's only
// while the pointer holds nothing (the logo's not while the keyboard holds a
// key); a segment's any press but the left; a key's any press but the left,
// under the keys' gates, where ACL alone passes while the boat counts. The
// logo shows its normal look once the menu has closed.
TEST_F(MenuAndTray, TheMenuOpensFromTheWindowUnderItsGates) {
  // PressedKey, KeyLatch, and the boat counting in a game.
  const struct { Obj object; int button; int16_t held; bool latch, counting, opens; } cases[] = {
      {Obj::FrontCase, 2, kNoKey, 0, 0, 1},      {Obj::FrontCase, 2, kGameAKey, 0, 0, 0},
      {Obj::BackCase, 4, kNoKey, 0, 0, 0},       {Tentacle(2, 1), 2, kGameAKey, 0, 0, 1},
      {Obj::Treasure, 4, kNoKey, 0, 0, 1},       {Obj::Colon, 2, kNoKey, 0, 0, 0},
      {Obj::Logo, 2, kNoKey, 0, 0, 1},           {Obj::Logo, 2, kNoKey, 1, 0, 0},
      {Obj::Logo, 4, kNoKey, 0, 0, 0},           {Obj::Logo, 2, kTimeKey, 0, 0, 0},
      {Obj::GameBButton, 2, kNoKey, 0, 0, 1},    {Obj::RightButton, 4, kNoKey, 0, 0, 1},
      {Obj::TimeButton, 2, kLeftKey, 0, 0, 0},   {Obj::AlarmButton, 2, kNoKey, 1, 0, 0},
      {Obj::LeftButton, 2, kNoKey, 0, 1, 0},     {Obj::ACLButton, 2, kNoKey, 0, 1, 1},
  };
  // The pointer rests on the logo while the menu is open.
  fake.while_menu_open = [this] { form.Logo_MouseMove(0, 0, 0, 0); };
  for (const auto& c : cases) {
    Play(1);
    form.BoatBeats = c.counting ? 2 : 0;
    form.PressedKey = c.held;
    form.KeyLatch = c.latch;
    form.MouseDown(c.object, c.button, 0, 0, 0);
    EXPECT_EQ(Joined(fake.calls), c.opens ? "PopupMenu" : "") << Info(c.object).name;
    EXPECT_TRUE(c.object != Obj::Logo || Shows(Obj::Logo, TPLogo(0)));
    form.CopyPicture(TPLogo(0), Obj::Logo);  // the hover of the menu's pointer ends
  }
}

}  // namespace
}  // namespace nautrix
