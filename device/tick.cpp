// Timer1's tick: the device's one heartbeat. One tick is one beat of a game;
// the once-a-second work is found by the clock's seconds changing against
// LastSecond, never by counting ticks.
#include <cstdio>
#include <cstdlib>

#include "clock/time_text.h"
#include "device/form1.h"

namespace nautrix {

void Form1::Timer1_Timer() {
  Tick();
#ifdef NAUTRIX_CHECK_INVARIANTS
  // A record that breaks its own rules is a fault of the routines, caught at
  // the beat that made it rather than where it shows.
  const std::string broken = InvariantViolations();
  if (!broken.empty()) {
    std::fprintf(stderr, "nautrix: the device's record broke its rules:\n%s", broken.c_str());
    std::abort();
  }
#endif
}

void Form1::Tick() {
  // The back of the device freezes everything.
  if (IsVisible(Obj::BackCase)) return;
  TrackPointer();
  // While ACL holds the all-segments picture only the pointer is followed.
  if (IsVisible(Obj::ResetScreen)) return;

  if (Playing) {
    const int s = Now().second;
    if (s != LastSecond) {
      LastSecond = static_cast<uint8_t>(s);
      if (Misses == 4) {
        ++OverSeconds;
        if (OverSeconds >= 60) {
          EndGame();
          HideDivers();
          ShowTime(CurrentTimeText());
        }
      }
      CheckAlarm();
      if (BonusBeats == 0 && CaptureBeats == 0 && BoatWait != 0) {
        --BoatWait;
        if (BoatWait == 0) DiverForward();
      }
    }
    if (CaptureBeats != 0) {
      CaptureTick();
    } else {
      BoatTick();
      if (BonusBeats != 0) {
        BonusTick();
      } else {
        MoveTentacles();
        if (DiverPos >= 6) DiverForward();
      }
    }
    return;
  }

  if (AlarmSetting == 0 && ClockSetting == 0) {
    AttractTick();
    return;
  }
  // Alarm entry: ALARM is still held, nothing but the pointer runs.
  if (AlarmSetting != 2 && ClockSetting != 1) return;

  // Held-key repeat of the setting modes: three ticks of delay, then a step
  // at every tick. The key's picture tells that it is held, by either route.
  if (SamePicture(Obj::LeftButton, Button1(1))) {
    if (RepeatDelay >= 3) StepClock(true);
    else ++RepeatDelay;
  } else if (SamePicture(Obj::RightButton, Button1(1))) {
    if (RepeatDelay >= 3) StepClock(false);
    else ++RepeatDelay;
  }
}

// Outside a game and the setting modes the tick moves something only when
// the second changes: the readout, the colon, the demo's step, the alarm's
// check and its beep all wait for it (AttractTick), and only a game sounds
// between the edges. What a held key or button does at every beat, the
// pointer's tracking and the held-key repeat, keeps the beat. The back of
// the device stands still until an event turns it.
bool Form1::MaySleepToNextSecond() const {
  if (IsVisible(Obj::BackCase)) return true;
  if (Playing || AlarmSetting != 0 || ClockSetting != 0) return false;
  return PressedKey == kNoKey && !KeyLatch && !Dragging;
}

void Form1::AttractTick() {
  const std::string t = CurrentTimeText();
  // A held TIME key or a score on the readout holds the readout still.
  if (!SamePicture(Obj::TimeButton, Button0(1)) && !ScoreShown) ShowTime(t);
  const int s = (t[4] - '0') * 10 + (t[5] - '0');
  if (s != LastSecond) {
    LastSecond = static_cast<uint8_t>(s);
    CheckAlarm();
    if (CaptureBeats != 0) CaptureTick();
    else AttractStep();
  }
}

}  // namespace nautrix
