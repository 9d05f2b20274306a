// The tick's gates decide what runs in each mode; the once-a-second work is
// found by the clock's seconds against LastSecond, never by counting ticks.
#include "tests/support/device_test.h"

namespace nautrix {
namespace {

class Tick : public DeviceTest {
 protected:
  void SetUp() override {
    Load();
    fake.SetDeviceTime(9, 0, 30);
  }
  // A pointer press held over the GAME B key, which the tick's pointer
  // tracking will find (TrackPointer makes PressedKey the key under it).
  void HoldPointerOverGameB() {
    form.PressedKey = kOffKeys;
    fake.cursor = {288, 50};
  }
  bool TrackedPointer() const { return form.PressedKey == kGameBKey; }
  bool SecondWorkRan() const { return form.LastSecond == 30; }
  void HoldLeftKey() { form.CopyPicture(Button1(1), Obj::LeftButton); }
};

TEST_F(Tick, BackCaseFreezesEverything) {
  form.Show(Obj::BackCase);
  HoldPointerOverGameB();
  Tick::DeviceTest::Tick();
  EXPECT_FALSE(TrackedPointer());
  EXPECT_FALSE(SecondWorkRan());
}

TEST_F(Tick, ResetScreenLeavesOnlyThePointerTracking) {
  form.Show(Obj::ResetScreen);
  HoldPointerOverGameB();
  DeviceTest::Tick();
  EXPECT_TRUE(TrackedPointer());
  EXPECT_FALSE(SecondWorkRan());
}

TEST_F(Tick, AGameRunsTheGameTick) {
  form.Playing = true;
  HoldPointerOverGameB();
  DeviceTest::Tick();
  EXPECT_TRUE(TrackedPointer());
  EXPECT_TRUE(SecondWorkRan());
}

TEST_F(Tick, TheIdleDeviceRunsTheAttractTick) {
  HoldPointerOverGameB();
  DeviceTest::Tick();
  EXPECT_TRUE(TrackedPointer());
  EXPECT_TRUE(SecondWorkRan());
}

TEST_F(Tick, AlarmEntryRunsOnlyThePointerTracking) {
  form.AlarmSetting = 1;
  HoldLeftKey();
  HoldPointerOverGameB();
  DeviceTest::Tick();
  EXPECT_TRUE(TrackedPointer());
  EXPECT_FALSE(SecondWorkRan());
  EXPECT_EQ(form.RepeatDelay, 0);
}

TEST_F(Tick, TheSettingModesRunTheHeldKeyRepeat) {
  for (const auto& [alarm, clock] : {std::pair{2, 0}, std::pair{0, 1}}) {
    form.AlarmSetting = static_cast<uint8_t>(alarm);
    form.ClockSetting = static_cast<uint8_t>(clock);
    form.RepeatDelay = 0;
    form.LastSecond = 0;
    HoldLeftKey();
    DeviceTest::Tick();
    EXPECT_EQ(form.RepeatDelay, 1);
    EXPECT_FALSE(SecondWorkRan());
    form.CopyPicture(Button1(0), Obj::LeftButton);
  }
}

TEST_F(Tick, HeldKeyRepeatWaitsThreeTicksThenStepsAtEveryTick) {
  form.ClockSetting = 1;
  form.EditTimeText = "120000 AM";
  form.CopyPicture(Button1(1), Obj::RightButton);
  DeviceTest::Tick(3);
  EXPECT_EQ(form.RepeatDelay, 3);
  EXPECT_EQ(form.EditTimeText, "120000 AM");  // no step yet
  DeviceTest::Tick(2);
  EXPECT_EQ(form.RepeatDelay, 3);
  EXPECT_EQ(form.EditTimeText, "120200 AM");  // two steps of the minute
}

TEST_F(Tick, ASecondIsSeenOnceByItsChangeNotByTicks) {
  form.Playing = true;
  form.BoatWait = 10;
  // Many ticks within one second: one second's work.
  DeviceTest::Tick(7);
  EXPECT_EQ(form.BoatWait, 9);
  // A jump of several seconds (a frozen device, a slow machine) is one change.
  fake.AdvanceSeconds(5);
  DeviceTest::Tick(3);
  EXPECT_EQ(form.BoatWait, 8);
  EXPECT_EQ(form.LastSecond, 35);
}

TEST_F(Tick, TheFirstTickInSecondZeroRunsNoSecondWork) {
  fake.SetDeviceTime(9, 1, 0);
  form.Playing = true;
  DeviceTest::Tick();
  EXPECT_EQ(form.BoatWait, 10);
  NextSecond();
  EXPECT_EQ(form.BoatWait, 9);
}

TEST_F(Tick, BoatWaitStandsStillDuringACaptureOrABonus) {
  form.Playing = true;
  form.BonusBeats = 16;
  DeviceTest::Tick();
  EXPECT_EQ(form.BoatWait, 10);
  EXPECT_TRUE(SecondWorkRan());
}

TEST_F(Tick, TheGameOverMinuteCountsSecondsAndEndsAtSixty) {
  form.Playing = true;
  form.GameMode = 1;
  form.Misses = 4;
  form.CaptureBeats = 7;
  form.OverSeconds = 58;
  DeviceTest::Tick();
  EXPECT_EQ(form.OverSeconds, 59);
  EXPECT_TRUE(form.Playing);
  NextSecond();
  // EndGame leaves one capture beat, which the same tick plays.
  EXPECT_FALSE(form.Playing);
  EXPECT_EQ(form.GameMode, 0);
  EXPECT_EQ(form.OverSeconds, 0);
  EXPECT_EQ(form.CaptureBeats, 0);
  EXPECT_EQ(form.Timer1Interval(), 50);
  EXPECT_TRUE(Lit(Obj::am));  // the time is back on the readout
}

TEST_F(Tick, WhileTimeIsHeldTheReadoutStandsButTheSecondsGoOn) {
  DeviceTest::Tick();
  const Pic minutes = form.Picture(Obj::MinuteDigit1);
  form.CopyPicture(Button0(1), Obj::TimeButton);
  fake.SetDeviceTime(9, 7, 31);
  DeviceTest::Tick();
  EXPECT_EQ(form.Picture(Obj::MinuteDigit1), minutes);
  EXPECT_EQ(form.LastSecond, 31);
}

}  // namespace
}  // namespace nautrix
