// Start-up and shut-down of the device, in their fixed order. The store is
// repaired key by key: each missing key gets its default, so a first run is
// simply a run that finds every key missing.
#include "device/form1.h"
#include "device/store_keys.h"
#include "device/text.h"

namespace nautrix {

void Form1::Form_Load() {
  // The random numbers take one of 60 seeds, the clock's seconds; nothing
  // else is mixed in.
  platform_.Randomize(Now().second);
  // The window is frameless from its creation on this platform: only the
  // 333 x 198 client area shows.
  // No key held, no mode entered, no game chosen.
  PressedKey = kNoKey;
  GameMode = 0;
  KeyLatch = false;
  DiverLoad = 0;
  BonusBeats = 0;
  PairReady = 0;
  AlarmSetting = 0;
  ClockSetting = 0;
  RepeatDelay = 0;
  // The back picture comes from below the client area over all of it.
  back_case_rect_ = ObjectRect(Obj::FrontCase);
  // No alarm rings, none is silenced.
  RingingSilenced = false;
  AlarmRinging = false;
  // Every tentacle at home; the sixth cell is never touched.
  for (int t = 0; t <= 4; ++t) {
    TentacleDown[t] = 0;
    TentacleBack[t] = 0;
    TentacleLength[t] = 0;
  }
  // The segments of each tentacle, from the left.
  TentacleMax = {3, 4, 5, 4, 3, 0};
  // The idle screen: the diver on the boat, no game, no score.
  TentacleTurn = 0;
  DiverPos = 0;
  BoatWait = 10;
  CaptureBeats = 0;
  Score = 0;
  Misses = 0;
  Playing = false;
  OverSeconds = 0;
  ScoreShown = false;
  // The store, key by key: a missing key gets its default, a present one
  // is read where the device keeps it.
  const auto repaired = [this](const char* key) {
    const bool missing = KeyMissing(key);
    if (missing) SaveSetting(key, store::RuleOf(key).fallback);
    return missing;
  };
  repaired(store::kSound);
  mSound.Checked = SettingBool(store::kSound);
  // The first-run position is stored as the window then reports it.
  if (KeyMissing(store::kLeft)) {
    platform_.MoveWindow(store::WholeDefault(store::kLeft), platform_.WindowTop());
    SaveSetting(store::kLeft, SingleText(platform_.WindowLeft()));
  } else {
    platform_.MoveWindow(SettingSingle(store::kLeft), platform_.WindowTop());
  }
  if (KeyMissing(store::kTop)) {
    platform_.MoveWindow(platform_.WindowLeft(), store::WholeDefault(store::kTop));
    SaveSetting(store::kTop, SingleText(platform_.WindowTop()));
  } else {
    platform_.MoveWindow(platform_.WindowLeft(), SettingSingle(store::kTop));
  }
  // A key of older versions; nothing reads it.
  if (!KeyMissing(store::kSeconds)) DeleteSetting(store::kSeconds);
  // The speeds and the high scores are read where they are used.
  for (const char* key : {store::kDiverSpeed, store::kGameASpeed, store::kGameBSpeed,
                          store::kGameAHighScore, store::kGameBHighScore}) {
    repaired(key);
  }
  // "Alarm On" is repaired only together with "Alarm Time".
  if (repaired(store::kAlarmTime)) SaveSetting(store::kAlarmOn, store::RuleOf(store::kAlarmOn).fallback);
  // The window's stacking follows its mark from the start.
  repaired(store::kAlwaysOnTop);
  mAlwaysOnTop.Checked = SettingBool(store::kAlwaysOnTop);
  platform_.SetTopmost(mAlwaysOnTop.Checked);
  // Its absence is also the mark of a first run: the instructions open.
  const bool first_run = repaired(store::kAutoShow);
  mAutoShow.Checked = SettingBool(store::kAutoShow);
  if (first_run) {
    mInstructions_Click();
    platform_.SetDialogTopmost(Dialog::Instructions, true);
  }
  // The keys and the logo get their up pictures.
  CopyPicture(Button0(0), Obj::GameAButton);
  CopyPicture(Button0(0), Obj::GameBButton);
  CopyPicture(Button0(0), Obj::TimeButton);
  CopyPicture(Button1(0), Obj::LeftButton);
  CopyPicture(Button1(0), Obj::RightButton);
  CopyPicture(Button2(0), Obj::AlarmButton);
  CopyPicture(Button2(0), Obj::ACLButton);
  CopyPicture(TPLogo(0), Obj::Logo);
  // The tray gets its icon.
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
