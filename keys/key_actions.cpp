// What the seven keys do, pressed and released, in every mode of the device.
// The pointer, the keyboard and the pointer sliding onto a held key all come
// here: one routine per action, and where the routes part, the route is an
// explicit branch inside it.
#include "clock/time_text.h"
#include "device/form1.h"
#include "device/store_keys.h"
#include "device/text.h"
#include "keys/key_objects.h"

namespace nautrix {
namespace {

// A left press goes down on the key; any other button brings the menu, but
// only when the pointer holds nothing. While the boat counts in a game the
// keys are dead, the menu included; ACL alone still reaches its reset.
void PressByPointer(Form1& form, int key, int Button) {
  if (key != kAclKey && form.BoatBeats != 0 && form.Playing) return;
  if (form.KeyLatch) return;
  if (Button != 1) {
    if (form.PressedKey == kNoKey) form.OpenPopupMenu();
    return;
  }
  PutKeyDown(form, key);
  form.PressedKey = static_cast<int16_t>(key);
  form.PressAction(key, KeyRoute::Pointer);
}

bool RunningGame(const Form1& form) { return form.Playing && form.Misses != 4; }

}  // namespace

// ---- Pointer handlers ------------------------------------------------------

void Form1::GameAButton_MouseDown(int Button, int, float, float) {
  PressByPointer(*this, kGameAKey, Button);
}
void Form1::GameBButton_MouseDown(int Button, int, float, float) {
  PressByPointer(*this, kGameBKey, Button);
}
void Form1::TimeButton_MouseDown(int Button, int, float, float) {
  PressByPointer(*this, kTimeKey, Button);
}
void Form1::LeftButton_MouseDown(int Button, int, float, float) {
  PressByPointer(*this, kLeftKey, Button);
}
void Form1::RightButton_MouseDown(int Button, int, float, float) {
  PressByPointer(*this, kRightKey, Button);
}
void Form1::AlarmButton_MouseDown(int Button, int, float, float) {
  PressByPointer(*this, kAlarmKey, Button);
}
void Form1::ACLButton_MouseDown(int Button, int, float, float) {
  PressByPointer(*this, kAclKey, Button);
}

// The release goes to the object that took the press, wherever the pointer
// is; ReleaseKey acts on the key that the last tick found under it.
void Form1::GameAButton_MouseUp(int Button, int, float, float) {
  if (Button == 1) ReleaseKey();
}
void Form1::GameBButton_MouseUp(int Button, int, float, float) {
  if (Button == 1) ReleaseKey();
}
void Form1::TimeButton_MouseUp(int Button, int, float, float) {
  if (Button == 1) ReleaseKey();
}
void Form1::LeftButton_MouseUp(int Button, int, float, float) {
  if (Button == 1) ReleaseKey();
}
void Form1::RightButton_MouseUp(int Button, int, float, float) {
  if (Button == 1) ReleaseKey();
}
void Form1::AlarmButton_MouseUp(int Button, int, float, float) {
  if (Button == 1) ReleaseKey();
}
void Form1::ACLButton_MouseUp(int Button, int, float, float) {
  Hide(Obj::ResetScreen);
  if (Button == 1) ReleaseKey();
}

void Form1::ReleaseKey() {
  if (KeyLatch) return;
  // Any release stops a ringing alarm, even one whose press a gate refused.
  SilenceAlarm();
  const int key = PressedKey;
  if (key >= kGameAKey && key <= kLogoKey) {
    PutKeyUp(*this, key);
    ReleaseAction(key, KeyRoute::Pointer);
  }
  PressedKey = kNoKey;
  // A high score shown while the key was held gives way to the time.
  if (!Playing && ScoreShown) {
    ScoreShown = false;
    ShowGameType(GameMode);
  }
}

// ---- Presses ---------------------------------------------------------------

void Form1::PressAction(int key, KeyRoute route) {
  switch (key) {
    case kGameAKey: return ShowHighScore(1);
    case kGameBKey: return ShowHighScore(2);
    case kTimeKey: return PressTime(route);
    case kLeftKey:
      RepeatDelay = 0;
      // The keyboard steps at the press, the pointer at the release.
      if (route == KeyRoute::Keyboard) LeftKeyAction();
      return;
    case kRightKey:
      RepeatDelay = 0;
      if (route == KeyRoute::Keyboard) RightKeyAction();
      return;
    case kAlarmKey: return PressAlarm(route);
    case kAclKey: return Show(Obj::ResetScreen);
    default: return;  // the logo only changes its look
  }
}

// GAME A or GAME B held on a device free for a game shows that game's best.
void Form1::ShowHighScore(int mode) {
  if (AlarmSetting != 0 || ClockSetting != 0 || RunningGame(*this)) return;
  ShowScore(SettingInt(mode == 1 ? store::kGameAHighScore : store::kGameBHighScore));
  ShowGameType(mode);
}

// TIME held shows the other time: the alarm on the clock, the clock in the
// alarm setting.
void Form1::PressTime(KeyRoute route) {
  if (RunningGame(*this)) return;
  if (AlarmSetting == 0) {
    ShowTime(SettingTimeText(store::kAlarmTime));
    Show(Obj::BabyNautrix);
    return;
  }
  ShowTime(CurrentTimeText());
  // A pointer sliding onto TIME leaves the marks of a ringing alarm lit.
  if (route != KeyRoute::Tracking || !AlarmRinging) Hide(Obj::BabyNautrix);
}

void Form1::PressAlarm(KeyRoute route) {
  if (ClockSetting != 0 || RunningGame(*this)) return;
  if (AlarmSetting != 0) {
    ToggleAlarm();
    return;
  }
  // The pointer ends the game-over minute first, so that the alarm setting
  // begins on an idle device; the keyboard lets the minute run on beside it.
  if (route == KeyRoute::Pointer && Misses == 4) {
    EndGame();
    HideDivers();
  }
  EnterAlarmSetting(route);
}

void Form1::EnterAlarmSetting(KeyRoute route) {
  ClearGame();
  AlarmSetting = 1;
  const std::string alarm = SettingTimeText(store::kAlarmTime);
  // Sliding onto ALARM takes the stored alarm into the edit at once; a press
  // leaves that to its release.
  if (route == KeyRoute::Tracking) EditTimeText = alarm;
  ShowTime(alarm);
  Show(Obj::BabyNautrix);
  AlarmArmed = SettingBool(store::kAlarmOn);
  SetVisible(Obj::Note, AlarmArmed);
}

void Form1::ToggleAlarm() {
  AlarmArmed = !AlarmArmed;
  SetVisible(Obj::Note, AlarmArmed);
}

// The left key walks the diver home in a game, and steps the hour in a
// setting mode.
void Form1::LeftKeyAction() {
  if (Playing && CaptureBeats == 0) {
    DiverBack();
  } else if (AlarmSetting > 0 || ClockSetting == 1) {
    StepClock(true);
  }
}

// The right key walks the diver out, but not past the chest, and not off
// the boat while the bonus plays; in a setting mode it steps the minute.
void Form1::RightKeyAction() {
  if (Playing && CaptureBeats == 0 && DiverPos <= 5 && !(BonusBeats > 0 && DiverPos == 0)) {
    DiverForward();
  } else if (AlarmSetting > 0 || ClockSetting == 1) {
    StepClock(false);
  }
}

// ---- Releases --------------------------------------------------------------

void Form1::ReleaseAction(int key, KeyRoute route) {
  switch (key) {
    case kGameAKey: return ReleaseGame(1);
    case kGameBKey: return ReleaseGame(2);
    case kTimeKey: return ReleaseTime(route);
    case kLeftKey:
      if (route == KeyRoute::Keyboard) RepeatDelay = 0;
      else LeftKeyAction();
      return;
    case kRightKey:
      if (route == KeyRoute::Keyboard) RepeatDelay = 0;
      else RightKeyAction();
      return;
    case kAlarmKey: return ReleaseAlarm(route);
    case kAclKey: return AclReset(route);
    case kLogoKey: return mAbout_Click();
    default: return;
  }
}

// A game starts at the release, on an idle device or over the game-over
// minute, which it ends.
void Form1::ReleaseGame(int mode) {
  if (AlarmSetting != 0 || ClockSetting != 0 || RunningGame(*this)) return;
  if (Misses == 4) EndGame();
  GameMode = static_cast<uint8_t>(mode);
  StartGame();
}

// TIME's release, in one order for every mode: the idle look first, then
// the end of a setting mode, then the end of the game-over minute.
void Form1::ReleaseTime(KeyRoute route) {
  if (!Playing) {
    Hide(Obj::BabyNautrix);
    SetTimer1Interval(50);
  }
  if (AlarmSetting > 0) {
    LeaveAlarmSetting();
  } else if (ClockSetting > 0) {
    LeaveClockSetting();
  }
  if (Misses == 4) {
    EndGame();
    HideDivers();
    if (route == KeyRoute::Pointer) RingingSilenced = true;
  }
}

// The idle look and pace are TIME's, set before this only when no game runs.
void Form1::LeaveAlarmSetting() {
  SaveSetting(store::kAlarmTime, EditTimeText);
  AlarmSetting = 0;
  ClearGame();
  RingingSilenced = false;
}

void Form1::LeaveClockSetting() {
  WriteClock();
  ClockSetting = 0;
  ClearGame();
  RingingSilenced = false;
}

void Form1::ReleaseAlarm(KeyRoute route) {
  if (route == KeyRoute::Keyboard) {
    // By keyboard ALARM does nothing in the clock setting or a running game.
    if (ClockSetting != 0 || RunningGame(*this)) return;
    SetTimer1Interval(200);
  } else if (!Playing) {
    SetTimer1Interval(200);
  }
  if (AlarmSetting == 1) {
    // Out of the entry into the set stage: the stored alarm is now the edit.
    SetTimer1Interval(200);
    AlarmSetting = 2;
    EditTimeText = SettingTimeText(store::kAlarmTime);
  } else if (AlarmSetting == 2) {
    SaveAlarmState();
  }
}

// The alarm's on or off is stored at once; the time waits for TIME.
void Form1::SaveAlarmState() {
  SetTimer1Interval(200);
  SaveSetting(store::kAlarmOn, BoolText(AlarmArmed));
}

}  // namespace nautrix
