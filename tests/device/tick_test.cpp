// TICK - the gates decide what each tick runs in each mode; the
// once-a-second work is found by the clock's seconds against LastSecond,
// never by counting ticks.
#include "tests/support/device_test.h"

namespace nautrix {
namespace {

using TimerTick = Scene;

// A pointer held over the left key, which the tick's tracking finds and
// puts down; the setting modes then count the held key's repeat.
TEST_F(TimerTick, TheGatesOfEachMode) {
  const struct {
    const char* mode;
    bool back, reset;  // BackCase or ResetScreen in front
    bool playing;
    uint8_t alarm, clock;
    bool tracks, second, repeats;
  } rows[] = {
      {"BackCase", true, false, false, 0, 0, false, false, false},
      {"ResetScreen", false, true, false, 0, 0, true, false, false},
      {"Game", false, false, true, 0, 0, true, true, false},
      {"Idle", false, false, false, 0, 0, true, true, false},
      {"Alarm entry", false, false, false, 1, 0, true, false, false},
      {"Alarm set", false, false, false, 2, 0, true, false, true},
      {"Clock set", false, false, false, 0, 1, true, false, true},
  };
  for (const auto& row : rows) {
    Load();
    fake.SetDeviceTime(9, 0, 30);
    form.SetVisible(Obj::BackCase, row.back);
    form.SetVisible(Obj::ResetScreen, row.reset);
    form.LastSecond = 0;
    form.Playing = row.playing;
    form.AlarmSetting = row.alarm;
    form.ClockSetting = row.clock;
    form.PressedKey = kOffKeys;
    MoveTo(Middle(Obj::LeftButton));
    Tick();
    EXPECT_EQ(form.PressedKey == kLeftKey, row.tracks) << row.mode;
    EXPECT_EQ(form.LastSecond == 30, row.second) << row.mode;
    EXPECT_EQ(form.RepeatDelay == 1, row.repeats) << row.mode;
  }
}

// Many ticks within a second do one second's work, and a jump of seconds
// (a frozen device, a slow machine) is one change. The boat's wait stands
// still while a bonus or a capture plays, and at 0 sends the diver out.
TEST_F(TimerTick, TheSecondsWorkRunsOnceAtEachChangeOfTheSecond) {
  Play(1);
  Tick(7);  // second 0 is no change from LastSecond's 0
  NextSecond();
  Tick(7);
  fake.AdvanceSeconds(5);
  Tick(3);
  EXPECT_EQ(form.BoatWait, 8);
  EXPECT_EQ(form.LastSecond, 6);
  form.BonusBeats = 2;
  NextSecond(2);
  EXPECT_EQ(form.BoatWait, 8);
  NextSecond(8);
  EXPECT_EQ(form.DiverPos, 1);
  NextSecond(12);
  EXPECT_EQ(form.DiverPos, 1);
}

// On the idle screen a held TIME key (by either route) or a score holds the
// readout still, while the seconds go on.
TEST_F(TimerTick, TheIdleReadoutStandsWhileTimeIsHeldOrAScoreStands) {
  fake.SetDeviceTime(21, 4, 2);
  Tick();
  form.CopyPicture(Button0(1), Obj::TimeButton);
  fake.SetDeviceTime(9, 7, 31);
  Tick();
  EXPECT_EQ(Readout(), "-904 pm:");
  EXPECT_EQ(form.LastSecond, 31);
  form.CopyPicture(Button0(0), Obj::TimeButton);
  form.ShowScore(12);
  NextSecond();
  EXPECT_EQ(Readout(), "--12 ");
}

}  // namespace
}  // namespace nautrix
