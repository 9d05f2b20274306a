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
  // The mode: BackCase or ResetScreen in front, a game, AlarmSetting and
  // ClockSetting; what the tick ran: the tracking, the second's work, the
  // repeat count.
  const struct { bool back, reset, playing; uint8_t alarm, clock; const char* ran; } rows[] = {
      {1, 0, 0, 0, 0, "---"}, {0, 1, 0, 0, 0, "t--"}, {0, 0, 1, 0, 0, "ts-"},
      {0, 0, 0, 0, 0, "ts-"}, {0, 0, 0, 1, 0, "t--"}, {0, 0, 0, 2, 0, "t-r"},
      {0, 0, 0, 0, 1, "t-r"},
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
    const std::string ran = {form.PressedKey == kLeftKey ? 't' : '-',
                             form.LastSecond == 30 ? 's' : '-', form.RepeatDelay == 1 ? 'r' : '-'};
    EXPECT_EQ(ran, row.ran) << &row - rows;
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
  EXPECT_TRUE(form.BoatWait == 8 && form.LastSecond == 6);
  form.BonusBeats = 2;
  NextSecond(2);
  EXPECT_EQ(form.BoatWait, 8);
  NextSecond(8);
  EXPECT_EQ(form.DiverPos, 1);
}

}  // namespace
}  // namespace nautrix
