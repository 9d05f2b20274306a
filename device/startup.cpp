// Start-up and shut-down of the device, in their fixed order. The store is
// repaired key by key: each missing key gets its default, so a first run is
// simply a run that finds every key missing.
#include "device/form1.h"
#include "device/store_keys.h"
#include "device/text.h"

namespace nautrix {

void Form1::Form_Load() {
  // 1. Only the 60 seeds of the clock's seconds: nothing else is mixed in.
  platform_.Randomize(Now().second);
  // 2. The window is frameless from its creation on this platform: only the
  //    333 x 198 client area shows.
  // 3.
  PressedKey = kNoKey;
  GameMode = 0;
  KeyLatch = false;
  DiverLoad = 0;
  BonusBeats = 0;
  PairReady = 0;
  AlarmSetting = 0;
  ClockSetting = 0;
  RepeatDelay = 0;
  // 4. The back picture comes from below the client area over all of it.
  back_case_rect_ = ObjectRect(Obj::FrontCase);
  // 5.
  RingingSilenced = false;
  AlarmRinging = false;
  // 6. Cell 5 is never touched.
  for (int t = 0; t <= 4; ++t) {
    TentacleDown[t] = 0;
    TentacleBack[t] = 0;
    TentacleLength[t] = 0;
  }
  // 7.
  TentacleMax = {3, 4, 5, 4, 3, 0};
  // 8.
  TentacleTurn = 0;
  DiverPos = 0;
  BoatWait = 10;
  CaptureBeats = 0;
  Score = 0;
  Misses = 0;
  Playing = false;
  OverSeconds = 0;
  ScoreShown = false;
  // 9.
  if (KeyMissing(store::kSound)) {
    mSound.Checked = true;
    SaveSetting(store::kSound, BoolText(mSound.Checked));
  } else {
    mSound.Checked = SettingBool(store::kSound);
  }
  // 10, 11. The first-run values are stored as the window then reports them.
  if (KeyMissing(store::kLeft)) {
    platform_.MoveWindow(store::kDefaultLeft, platform_.WindowTop());
    SaveSetting(store::kLeft, SingleText(platform_.WindowLeft()));
  } else {
    platform_.MoveWindow(SettingSingle(store::kLeft), platform_.WindowTop());
  }
  if (KeyMissing(store::kTop)) {
    platform_.MoveWindow(platform_.WindowLeft(), store::kDefaultTop);
    SaveSetting(store::kTop, SingleText(platform_.WindowTop()));
  } else {
    platform_.MoveWindow(platform_.WindowLeft(), SettingSingle(store::kTop));
  }
  // 12. A key of older versions; nothing reads it.
  if (!KeyMissing(store::kSeconds)) DeleteSetting(store::kSeconds);
  // 13 to 17.
  if (KeyMissing(store::kDiverSpeed)) SaveSetting(store::kDiverSpeed, "300");
  if (KeyMissing(store::kGameASpeed)) SaveSetting(store::kGameASpeed, "220");
  if (KeyMissing(store::kGameBSpeed)) SaveSetting(store::kGameBSpeed, "170");
  if (KeyMissing(store::kGameAHighScore)) SaveSetting(store::kGameAHighScore, "0");
  if (KeyMissing(store::kGameBHighScore)) SaveSetting(store::kGameBHighScore, "0");
  // 18. "Alarm On" is repaired only together with "Alarm Time".
  if (KeyMissing(store::kAlarmTime)) {
    SaveSetting(store::kAlarmTime, store::kDefaultAlarmTime);
    SaveSetting(store::kAlarmOn, BoolText(false));
  }
  // 19, 20.
  if (KeyMissing(store::kAlwaysOnTop)) {
    mAlwaysOnTop.Checked = false;
    SaveSetting(store::kAlwaysOnTop, BoolText(mAlwaysOnTop.Checked));
  } else {
    mAlwaysOnTop.Checked = SettingBool(store::kAlwaysOnTop);
  }
  platform_.SetTopmost(mAlwaysOnTop.Checked);
  // 21. Its absence is also the mark of a first run: the instructions open.
  if (KeyMissing(store::kAutoShow)) {
    mAutoShow.Checked = true;
    SaveSetting(store::kAutoShow, BoolText(mAutoShow.Checked));
    mInstructions_Click();
    platform_.SetDialogTopmost(Dialog::Instructions, true);
  } else {
    mAutoShow.Checked = SettingBool(store::kAutoShow);
  }
  // 22. The hot regions get their up pictures.
  CopyPicture(Button0(0), Obj::GameAButton);
  CopyPicture(Button0(0), Obj::GameBButton);
  CopyPicture(Button0(0), Obj::TimeButton);
  CopyPicture(Button1(0), Obj::LeftButton);
  CopyPicture(Button1(0), Obj::RightButton);
  CopyPicture(Button2(0), Obj::AlarmButton);
  CopyPicture(Button2(0), Obj::ACLButton);
  CopyPicture(TPLogo(0), Obj::Logo);
  // 23.
  TrayRecord = true;
  platform_.AddTrayIcon();
}

// Nothing is saved here: the store was written at every change.
void Form1::Form_Unload(int& /*Cancel*/) {
  platform_.RemoveTrayIcon();
  TrayRecord = false;
  SetTimer1Interval(0);
  platform_.Quit();
}

}  // namespace nautrix
