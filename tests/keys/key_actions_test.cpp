// KEY ACTIONS - what the keys do in each mode, and the points where the
// pointer and the keyboard part, each played by both routes.
#include "tests/support/device_test.h"

namespace nautrix {
namespace {

class Routes : public Scene, public ::testing::WithParamInterface<By> {
 protected:
  bool pointer() const { return GetParam() == By::Pointer; }
  void Down(Obj key) { DeviceTest::Down(GetParam(), key); }
  void Up(Obj key) { DeviceTest::Up(GetParam(), key); }
  void Click(Obj key) { DeviceTest::Click(GetParam(), key); }
};

// By pointer ALARM ends the game-over minute before the alarm setting; by
// keyboard the setting runs beside the minute, whose end takes the idle pace.
// The demo that a minute's step walks to the chest under tentacle 4 is
// caught only out of the game; in the game-over minute the caught diver
// kicks on, and nobody more is caught.
TEST_P(Routes, AlarmInTheGameOverMinute) {
  Enter(Mode::GameOver);
  Down(Obj::AlarmButton);
  EXPECT_EQ(form.Playing, !pointer());
  Up(Obj::AlarmButton);
  EXPECT_TRUE(form.AlarmSetting == 2 && form.Timer1Interval() == 200);
  form.DiverPos = 5;
  PutTentacle(4, 3, true);
  Click(Obj::RightButton);
  EXPECT_EQ(form.CaptureBeats, pointer() ? 9 : 7);
  form.OverSeconds = 59;
  NextSecond();
  EXPECT_EQ(form.Timer1Interval(), pointer() ? 200 : 50);
}

// TIME in game over shows the alarm at the press; at the release the game
// still runs when the mark is tested, so the mark stays lit after the end.
// The pointer's release silences the alarm as well.
TEST_P(Routes, TimeEndsTheGameOverMinute) {
  Enter(Mode::GameOver);
  Down(Obj::TimeButton);
  EXPECT_EQ(Readout(), "1200 pm:");
  Up(Obj::TimeButton);
  EXPECT_TRUE(!form.Playing && Lit(Obj::BabyNautrix) && form.Timer1Interval() == 50);
  EXPECT_EQ(form.RingingSilenced, pointer());
}

// In a game both action keys walk the diver by either route: the keyboard at
// the press, the pointer at the release.
TEST_P(Routes, TheActionKeysWalkTheDiver) {
  Enter(Mode::Game);
  std::string places;
  for (Obj key : {Obj::RightButton, Obj::RightButton, Obj::LeftButton}) {
    Down(key);
    places += std::to_string(form.DiverPos);
    Up(key);
    places += std::to_string(form.DiverPos);
  }
  EXPECT_EQ(places, pointer() ? "011221" : "112211");
}

INSTANTIATE_TEST_SUITE_P(Keys, Routes, ::testing::Values(By::Pointer, By::Keyboard),
                         [](const auto& info) { return std::string(Name(info.param)); });

}  // namespace
}  // namespace nautrix
