// The daily alarm: once a second the clock is held against the stored alarm
// time, and for the rest of a matching minute the marks blink and it beeps.
#include "clock/time_text.h"
#include "device/form1.h"
#include "device/store_keys.h"

namespace nautrix {

void Form1::CheckAlarm() {
  const std::string alarm = SettingTimeText(store::kAlarmTime);
  // The note is the alarm's on state; a setting mode keeps the alarm quiet.
  if (AlarmSetting != 0 || ClockSetting != 0 || !IsVisible(Obj::Note)) return;
  // Hour, minutes and half of the day; the seconds take no part.
  const std::string alarm_minute = alarm.substr(0, 4) + alarm.substr(6, 3);
  if (alarm_minute != TimeTextNoSeconds(Now())) {
    if (AlarmRinging) {
      // The minute is over: the marks go out, and the next match rings again.
      Hide(Obj::BabyNautrix);
      Hide(Alarm(0));
      Hide(Alarm(1));
      AlarmRinging = false;
    }
    return;
  }
  if (RingingSilenced) return;
  if (!AlarmRinging) {
    AlarmRinging = true;
    // A window hidden in the tray comes back at the first beat, if wanted.
    if (mAutoShow.Checked && mHide.Checked) mHide_Click();
  }
  Show(Obj::BabyNautrix);
  // The two marks blink in step: lit in the first second, dark in the next.
  SetVisible(Alarm(0), !IsVisible(Alarm(0)));
  SetVisible(Alarm(1), !IsVisible(Alarm(1)));
  // A running game stays silent; its game-over minute beeps. The beep goes
  // its own way, past the game's sound gate, and starts anew at every beat.
  if (mSound.Checked && (!Playing || Misses == 4)) {
    const std::string path = ProgramFilePath("Beep3.wav");
    if (FileExists(path)) platform().PlayWave(path);
  }
}

// A key release stops the ringing for good, until a setting mode is left or
// ACL is released; in a running game the keys belong to the game.
void Form1::SilenceAlarm() {
  if (Misses != 4 && Playing) return;
  if (RingingSilenced || !AlarmRinging) return;
  RingingSilenced = true;
  AlarmRinging = false;
  Hide(Obj::BabyNautrix);
  Hide(Alarm(0));
  Hide(Alarm(1));
}

}  // namespace nautrix
