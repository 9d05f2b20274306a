// Setting the clock: the left key steps the hour through both halves of the
// day, the right key the minute without carry, a held key repeats after three
// ticks of the 200 ms setting pace, and TIME writes the edit to the device
// clock.
#include "tests/keys/key_scene.h"

namespace nautrix {
namespace {

using ClockSetting = KeyScene;

TEST_F(ClockSetting, TheHourGoesRoundBothHalvesAndTheHalfTurnsAtTwelve) {
  Enter(Mode::ClockSet);
  std::vector<std::string> hours;
  for (int i = 0; i < 24; ++i) {
    Click(By::Keyboard, Obj::LeftButton);
    hours.push_back(form.EditTimeText);
    if (i == 0 || i == 11) {
      EXPECT_EQ(Lit(Obj::pm), i == 11);
      EXPECT_NE(Lit(Obj::am), Lit(Obj::pm));
    }
  }
  EXPECT_EQ(hours[0], "010000 AM");
  EXPECT_EQ(hours[10], "110000 AM");
  EXPECT_EQ(hours[11], "120000 PM");
  EXPECT_EQ(hours[12], "010000 PM");
  EXPECT_EQ(hours[22], "110000 PM");
  EXPECT_EQ(hours[23], "120000 AM");
  EXPECT_TRUE(Lit(Obj::Colon));
}

TEST_F(ClockSetting, TheMinuteWrapsWithoutCarryAndEachStepMovesTheScene) {
  Enter(Mode::ClockSet);
  form.EditTimeText = "115800 PM";
  Click(By::Pointer, Obj::RightButton);
  EXPECT_EQ(form.EditTimeText, "115900 PM");
  EXPECT_EQ(form.DiverPos, 1);
  Click(By::Pointer, Obj::RightButton);
  EXPECT_EQ(form.EditTimeText, "110000 PM");
  EXPECT_EQ(form.DiverPos, 2);
  Tick(5);
  EXPECT_EQ(form.DiverPos, 2);  // no step, no scene
}

TEST_F(ClockSetting, AHeldKeyStepsFromItsFourthTickOnByEitherRoute) {
  Enter(Mode::ClockSet);
  ASSERT_EQ(form.Timer1Interval(), 200);
  for (By by : {By::Pointer, By::Keyboard}) {
    form.EditTimeText = "120000 AM";
    std::vector<int> minutes;
    Down(by, Obj::RightButton);
    minutes.push_back(Minutes());
    for (int i = 0; i < 6; ++i) {
      Tick();
      minutes.push_back(Minutes());
    }
    Up(by, Obj::RightButton);
    minutes.push_back(Minutes());
    // By pointer a step comes at the release, by keyboard at the press.
    const std::vector<int> expected = by == By::Pointer ? std::vector<int>{0, 0, 0, 0, 1, 2, 3, 4}
                                                        : std::vector<int>{1, 1, 1, 1, 2, 3, 4, 4};
    EXPECT_EQ(minutes, expected) << Name(by);
  }
}

TEST_F(ClockSetting, TimeShowsTheAlarmWhileHeldAndWritesTheEditAtTheRelease) {
  Enter(Mode::ClockSet);
  Click(By::Keyboard, Obj::LeftButton);
  for (int i = 0; i < 5; ++i) Click(By::Keyboard, Obj::RightButton);
  Down(By::Pointer, Obj::TimeButton);
  EXPECT_TRUE(Lit(Obj::pm));  // the stored alarm, 12:00 PM
  EXPECT_TRUE(Lit(Obj::BabyNautrix));
  Up(By::Pointer, Obj::TimeButton);
  EXPECT_EQ(fake.calls, std::vector<std::string>{"SetTimeOfDay 01:05:00 AM"});
  EXPECT_EQ(form.Now().hour, 1);
  EXPECT_EQ(form.Now().minute, 5);
  EXPECT_EQ(form.ClockSetting, 0);
  EXPECT_EQ(form.Timer1Interval(), 50);
  Tick();
  EXPECT_TRUE(Shows(HourDigit(1), Number(1)) && Shows(MinuteDigit(1), Number(5)));
  EXPECT_TRUE(Lit(Obj::am));
}

}  // namespace
}  // namespace nautrix
