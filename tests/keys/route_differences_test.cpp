// The pointer and the keyboard work the keys through the same actions. These
// are the points where the two routes part, one test to a point.
#include "tests/keys/key_scene.h"

namespace nautrix {
namespace {

using RouteDifferences = KeyScene;

TEST_F(RouteDifferences, TheHeldKeyIsMarkedByPressedKeyOrByTheLatch) {
  Down(By::Pointer, Obj::TimeButton);
  EXPECT_EQ(form.PressedKey, kTimeKey);
  EXPECT_FALSE(form.KeyLatch);
  Up(By::Pointer, Obj::TimeButton);
  Down(By::Keyboard, Obj::TimeButton);
  EXPECT_EQ(form.PressedKey, kNoKey);
  EXPECT_TRUE(form.KeyLatch);
  EXPECT_TRUE(IsDown(Obj::TimeButton));
}

TEST_F(RouteDifferences, OnlyThePointerPressesAKeyThatIsAlreadyDown) {
  form.CopyPicture(Button0(1), Obj::TimeButton);
  Down(By::Keyboard, Obj::TimeButton);
  EXPECT_FALSE(form.KeyLatch);
  EXPECT_FALSE(Lit(Obj::BabyNautrix));
  Down(By::Pointer, Obj::TimeButton);
  EXPECT_EQ(form.PressedKey, kTimeKey);
  EXPECT_TRUE(Lit(Obj::BabyNautrix));
}

TEST_F(RouteDifferences, TheKeyboardStepsAtThePressThePointerAtTheRelease) {
  Enter(Mode::ClockSet);
  Down(By::Keyboard, Obj::LeftButton);
  EXPECT_EQ(form.EditTimeText, "010000 AM");
  Up(By::Keyboard, Obj::LeftButton);
  Down(By::Pointer, Obj::RightButton);
  EXPECT_EQ(form.EditTimeText, "010000 AM");
  Up(By::Pointer, Obj::RightButton);
  EXPECT_EQ(form.EditTimeText, "010100 AM");
}

TEST_F(RouteDifferences, OnlyTheKeyboardClearsTheRepeatCountAtTheRelease) {
  Enter(Mode::ClockSet);
  for (By by : {By::Pointer, By::Keyboard}) {
    Down(by, Obj::RightButton);
    Tick(2);
    EXPECT_EQ(form.RepeatDelay, 2);
    Up(by, Obj::RightButton);
    EXPECT_EQ(form.RepeatDelay, by == By::Pointer ? 2 : 0) << Name(by);
  }
}

TEST_F(RouteDifferences, WhileTheBoatCountsOnlyThePointerReachesAcl) {
  Enter(Mode::Game);
  form.BoatBeats = 3;
  Click(By::Keyboard, Obj::ACLButton);
  EXPECT_TRUE(form.Playing);
  Down(By::Pointer, Obj::ACLButton);
  EXPECT_TRUE(Lit(Obj::ResetScreen));
  Up(By::Pointer, Obj::ACLButton);
  EXPECT_FALSE(form.Playing);
  EXPECT_EQ(form.ClockSetting, 1);
}

TEST_F(RouteDifferences, AlarmInGameOverByPointerEndsTheGameFirst) {
  Enter(Mode::GameOver);
  Down(By::Pointer, Obj::AlarmButton);
  EXPECT_FALSE(form.Playing);
  EXPECT_EQ(form.AlarmSetting, 1);
}

TEST_F(RouteDifferences, AlarmInGameOverByKeyboardRunsBesideTheRestOfTheMinute) {
  Enter(Mode::GameOver);
  Click(By::Keyboard, Obj::AlarmButton);
  EXPECT_TRUE(form.Playing);
  EXPECT_EQ(form.AlarmSetting, 2);
  EXPECT_EQ(form.Timer1Interval(), 200);
  // The minute ends by itself, and the alarm setting goes on at the idle pace.
  form.OverSeconds = 59;
  NextSecond();
  EXPECT_FALSE(form.Playing);
  EXPECT_EQ(form.AlarmSetting, 2);
  EXPECT_EQ(form.Timer1Interval(), 50);
}

TEST_F(RouteDifferences, AlarmReleasedInClockSetSetsTheSettingPaceOnlyByPointer) {
  Enter(Mode::Game);
  Click(By::Pointer, Obj::ACLButton);
  EXPECT_EQ(form.Timer1Interval(), 220);  // clock setting at the ended game's pace
  Click(By::Keyboard, Obj::AlarmButton);
  EXPECT_EQ(form.Timer1Interval(), 220);
  Click(By::Pointer, Obj::AlarmButton);
  EXPECT_EQ(form.Timer1Interval(), 200);
  EXPECT_EQ(form.AlarmSetting, 0);
}

TEST_F(RouteDifferences, TimeEndingTheGameOverMinuteSilencesTheAlarmOnlyByPointer) {
  for (By by : {By::Pointer, By::Keyboard}) {
    Enter(Mode::GameOver);
    Click(by, Obj::TimeButton);
    EXPECT_FALSE(form.Playing);
    EXPECT_EQ(form.RingingSilenced, by == By::Pointer) << Name(by);
    form.RingingSilenced = false;
  }
}

}  // namespace
}  // namespace nautrix
