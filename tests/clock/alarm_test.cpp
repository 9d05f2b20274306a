// ALARM - it rings for the rest of its minute, once a second, and only at
// its own half of the day. A key release silences it for good, but not in a
// running game, which rings without a sound until its game-over minute.
// ACL forgets it with the high scores.
#include <algorithm>

#include "tests/support/device_test.h"

namespace nautrix {
namespace {

class AlarmRinging : public Scene {
 protected:
  void SetUp() override {
    Scene::SetUp();
    fake.store[store::kAlarmOn] = "True";
    Tick();  // the readout lights the note
  }
  // The alarm's beeps at h:m:s, or since the last look, and whether it rings
  // now, with its marks lit ("rings ba") or dark ("rings b").
  std::string Heard(int h = -1, int m = 0, int s = 0) {
    if (h >= 0) fake.SetDeviceTime(h, m, s), Tick();
    const std::string beeps = Beeped();
    return std::to_string(std::count(beeps.begin(), beeps.end(), '3')) +
           (form.AlarmRinging ? " rings" : "") + (Lit(Obj::BabyNautrix) ? " b" : "") +
           (Lit(Alarm(0)) && Lit(Alarm(1)) ? "a" : "");
  }
};

// Hour, minutes and half of the day are compared, not the seconds.
TEST_F(AlarmRinging, TwelvePmRingsAtNoonAndTwelveAmAtMidnight) {
  const struct { const char* alarm; int h, m, s; const char* heard; } cases[] = {
      {"120000 PM", 0, 0, 0, "0"},   {"120000 PM", 12, 0, 0, "1 rings ba"},
      {"120000 AM", 12, 0, 1, "0"},  {"120000 AM", 0, 0, 1, "1 rings ba"},
      {"063000 PM", 6, 30, 59, "0"}, {"063000 PM", 18, 30, 59, "1 rings ba"}};
  for (const auto& c : cases) {
    fake.store[store::kAlarmTime] = c.alarm;
    Heard(3, 0, 30);
    EXPECT_EQ(Heard(c.h, c.m, c.s), c.heard) << c.alarm << " at " << c.h << ":" << c.m;
  }
}

// It rings once a second for the rest of its minute, the two marks blinking
// in step; at the minute's end the marks go out, with no silence left for
// the next match. Without the sound it rings unheard.
TEST_F(AlarmRinging, RingsOnceASecondForTheRestOfItsMinute) {
  EXPECT_EQ(Heard(12, 0, 30), "1 rings ba");
  NextSecond();
  EXPECT_EQ(Heard(), "1 rings b");
  NextSecond(28);  // to 12:00:59
  EXPECT_EQ(Heard(), "28 rings b");
  NextSecond();
  EXPECT_EQ(Heard() + (form.RingingSilenced ? " silenced" : ""), "0");
  form.mSound.Checked = false;
  EXPECT_EQ(Heard(12, 0, 1), "0 rings ba");
  Click(By::Keyboard, Obj::LeftButton);
  EXPECT_TRUE(form.RingingSilenced);
}

// A running game rings in silence past its keys, and beeps in its game-over
// minute, where a key silences it; ACL's release ends any ringing and
// clears the silence.
TEST_F(AlarmRinging, ARunningGameRingsSilentlyPastTheKeysAndBeepsAtGameOver) {
  fake.SetDeviceTime(12, 0, 10);
  Enter(Mode::Game);
  NextSecond();
  Click(By::Pointer, Obj::LeftButton);
  EXPECT_EQ(Heard(), "0 rings ba");
  form.Misses = 3;
  form.ShowPlayfield();
  NextSecond();
  EXPECT_EQ(Heard(), "1 rings b");
  Click(By::Keyboard, Obj::LeftButton);
  EXPECT_TRUE(form.RingingSilenced);
  Click(By::Keyboard, Obj::ACLButton);
  NextSecond();
  EXPECT_EQ(Heard() + (form.RingingSilenced ? " silenced" : ""), "0");
}

// ACL, released in any mode by either route, forgets the high scores and the
// alarm and leaves the device setting its clock from midnight. The pointer
// also sets the clock to midnight at once, clears the score from the readout
// and, out of a game, keeps the game's pace.
class AclReset : public Scene, public ::testing::WithParamInterface<std::tuple<By, Mode>> {};

TEST_P(AclReset, ErasesTheMemoriesAndEntersTheClockSetting) {
  const auto [by, mode] = GetParam();
  const bool pointer = by == By::Pointer, game = mode == Mode::Game || mode == Mode::GameOver;
  fake.store[store::kGameAHighScore] = fake.store[store::kGameBHighScore] = "75";
  fake.store[store::kAlarmTime] = "063000 AM";
  Enter(mode);
  Down(by, Obj::ACLButton);
  EXPECT_TRUE(Lit(Obj::ResetScreen));
  Up(by, Obj::ACLButton);
  EXPECT_EQ(Joined(fake.store_writes),
            "Game A High Score=0;Game B High Score=0;Alarm Time=120000 PM;Alarm On=False");
  EXPECT_FALSE(Lit(Obj::ResetScreen) || form.Playing || Lit(Obj::Note) || Lit(Obj::BabyNautrix));
  EXPECT_TRUE(form.ClockSetting == 1 && form.AlarmSetting == 0);
  EXPECT_EQ(form.EditTimeText + " " + Readout(), "120000 AM 1200 am:");
  EXPECT_TRUE(form.GameMode == game && form.Now().hour == (pointer ? 0 : 9));
  EXPECT_EQ(form.Timer1Interval(), pointer && game ? 220 : 200);
  EXPECT_EQ(form.ScoreShown, !pointer && game);
}

INSTANTIATE_TEST_SUITE_P(
    EveryMode, AclReset,
    ::testing::Combine(::testing::Values(By::Pointer, By::Keyboard),
                       ::testing::Values(Mode::Idle, Mode::Game, Mode::GameOver, Mode::AlarmSet,
                                         Mode::ClockSet)));

}  // namespace
}  // namespace nautrix
