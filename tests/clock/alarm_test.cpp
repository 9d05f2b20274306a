// The alarm rings for the rest of its minute, once a second, and only at its
// own half of the day. A key release silences it for good, but not in a
// running game, which rings without a sound until its game-over minute.
#include <algorithm>

#include "tests/keys/key_scene.h"

namespace nautrix {
namespace {

class AlarmRinging : public KeyScene {
 protected:
  void Arm(const char* at) {
    fake.store[store::kAlarmTime] = at;
    fake.store[store::kAlarmOn] = "True";
    Tick();  // the readout lights the note
  }
  void At(int h, int m, int s) {
    fake.SetDeviceTime(h, m, s);
    Tick();
  }
  long Beeps() {
    const auto sounds = fake.TakeSounds();
    return std::count(sounds.begin(), sounds.end(), "Beep3.wav");
  }
};

TEST_F(AlarmRinging, TwelvePmRingsAtNoonAndNotAtMidnight) {
  Arm("120000 PM");
  At(23, 59, 59);
  At(0, 0, 0);
  EXPECT_FALSE(form.AlarmRinging);
  At(11, 59, 59);
  At(12, 0, 0);
  EXPECT_TRUE(form.AlarmRinging);
  EXPECT_EQ(Beeps(), 1);
}

TEST_F(AlarmRinging, TwelveAmRingsAtMidnight) {
  Arm("120000 AM");
  At(0, 0, 1);
  EXPECT_TRUE(form.AlarmRinging);
}

TEST_F(AlarmRinging, RingsOnceASecondForTheRestOfItsMinuteWithBlinkingMarks) {
  Arm("120000 PM");
  At(12, 0, 30);
  EXPECT_TRUE(Lit(Obj::BabyNautrix) && Lit(Alarm(0)) && Lit(Alarm(1)));
  NextSecond();
  EXPECT_FALSE(Lit(Alarm(0)) || Lit(Alarm(1)));
  NextSecond(28);  // to 12:00:59
  EXPECT_EQ(Beeps(), 30);
  NextSecond();
  EXPECT_FALSE(form.AlarmRinging);
  EXPECT_FALSE(Lit(Obj::BabyNautrix) || Lit(Alarm(0)) || Lit(Alarm(1)));
  EXPECT_EQ(Beeps(), 0);
  EXPECT_FALSE(form.RingingSilenced);  // it rings again at the next match
}

TEST_F(AlarmRinging, WithoutTheSoundOrItsFileTheMarksBlinkInSilence) {
  Arm("120000 PM");
  form.mSound.Checked = false;
  At(12, 0, 1);
  fake.files.erase("/opt/nautrix/Beep3.wav");
  form.mSound.Checked = true;
  NextSecond();
  EXPECT_TRUE(form.AlarmRinging);
  EXPECT_EQ(Beeps(), 0);
}

TEST_F(AlarmRinging, AKeyReleaseSilencesItUntilTheAlarmSettingIsLeft) {
  Arm("120000 PM");
  At(12, 0, 10);
  Click(By::Keyboard, Obj::LeftButton);
  EXPECT_TRUE(form.RingingSilenced);
  EXPECT_FALSE(Lit(Obj::BabyNautrix) || Lit(Alarm(0)));
  NextSecond(5);
  EXPECT_FALSE(form.AlarmRinging);
  EXPECT_EQ(Beeps(), 1);
  Enter(Mode::AlarmSet);
  Click(By::Pointer, Obj::TimeButton);
  NextSecond();
  EXPECT_TRUE(form.AlarmRinging);
}

TEST_F(AlarmRinging, ARunningGameRingsSilentlyPastTheKeysAndBeepsAtGameOver) {
  Arm("120000 PM");
  fake.SetDeviceTime(12, 0, 10);
  Enter(Mode::Game);
  NextSecond();
  EXPECT_TRUE(form.AlarmRinging);
  Click(By::Pointer, Obj::LeftButton);
  EXPECT_TRUE(form.AlarmRinging);
  EXPECT_EQ(Beeps(), 0);
  form.Misses = 3;
  form.ShowPlayfield();
  NextSecond();
  EXPECT_EQ(Beeps(), 1);
  Click(By::Keyboard, Obj::LeftButton);
  EXPECT_TRUE(form.RingingSilenced);
}

TEST_F(AlarmRinging, AHiddenWindowComesBackAtTheFirstBeatOnlyWithAutoShow) {
  Arm("120000 PM");
  form.mHide_Click();
  At(12, 0, 5);
  EXPECT_TRUE(fake.window_shown);
  At(12, 1, 0);  // rung out
  form.mAutoShow.Checked = false;
  form.mHide_Click();
  At(12, 0, 5);
  EXPECT_TRUE(form.AlarmRinging);
  EXPECT_FALSE(fake.window_shown);
}

}  // namespace
}  // namespace nautrix
