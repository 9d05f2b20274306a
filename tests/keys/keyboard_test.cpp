// The keyboard holds one device key at a time: the latch turns every other
// key-down away, any key-up ends the hold, and the menu keys act at their
// key-up in every mode, past all the gates.
#include "tests/keys/key_scene.h"

namespace nautrix {
namespace {

using Keyboard = KeyScene;

constexpr int kLeft = 37, kUp = 38, kT = 84, kS = 83, kX = 88;

TEST_F(Keyboard, LeftAndUpAreOneKeyAndEitherKeyUpEndsTheHold) {
  Enter(Mode::ClockSet);
  KeyDown(kLeft);
  KeyDown(kUp);  // turned away: one step only
  EXPECT_EQ(form.EditTimeText, "010000 AM");
  KeyUp(kUp);
  EXPECT_FALSE(IsDown(Obj::LeftButton));
  EXPECT_FALSE(form.KeyLatch);
  KeyUp(kLeft);
  EXPECT_EQ(form.EditTimeText, "010000 AM");
}

TEST_F(Keyboard, AnotherKeyTappedWhileTIsHeldReleasesTime) {
  Enter(Mode::ClockSet);
  KeyDown(kT);
  KeyDown(kX);
  KeyUp(kX);
  EXPECT_FALSE(IsDown(Obj::TimeButton));
  EXPECT_EQ(form.ClockSetting, 0);
  EXPECT_EQ(fake.calls, std::vector<std::string>{"SetTimeOfDay 12:00:00 AM"});
}

TEST_F(Keyboard, STappedFlipsTheSoundButNotWhileTIsHeld) {
  KeyDown(kS);
  KeyUp(kS);
  EXPECT_FALSE(form.mSound.Checked);
  EXPECT_EQ(fake.store[store::kSound], "False");
  KeyDown(kT);
  KeyDown(kS);
  KeyUp(kS);
  EXPECT_FALSE(IsDown(Obj::TimeButton));
  EXPECT_FALSE(form.mSound.Checked);
}

TEST_F(Keyboard, WhileTheBoatCountsInAGameSIsDeadToo) {
  Enter(Mode::Game);
  form.BoatBeats = 2;
  KeyDown(kS);
  EXPECT_FALSE(form.KeyLatch);
  KeyUp(kS);
  EXPECT_TRUE(form.mSound.Checked);
}

TEST_F(Keyboard, APressWhileThePointerHoldsAKeyIsIgnoredAndSoIsItsKeyUp) {
  Down(By::Pointer, Obj::GameAButton);
  Click(By::Keyboard, Obj::GameBButton);
  EXPECT_FALSE(IsDown(Obj::GameBButton));
  EXPECT_FALSE(form.Playing);
  Up(By::Pointer, Obj::GameAButton);
  EXPECT_EQ(form.GameMode, 1);
}

class MenuKeys : public KeyScene, public ::testing::WithParamInterface<Mode> {};

TEST_P(MenuKeys, WorkInEveryModeAtTheKeyUpAndLeaveTheLatchAlone) {
  Enter(GetParam());
  if (GetParam() == Mode::Game) form.BoatBeats = 2;   // the device keys barred
  if (GetParam() == Mode::AlarmSet) KeyDown(kT);      // a device key held
  const bool latch = form.KeyLatch;
  for (int code : {112, 73, 66, 79, 13}) KeyDown(code);
  EXPECT_TRUE(fake.calls.empty());
  for (int code : {112, 73, 66, 79, 13, 66}) KeyUp(code);
  EXPECT_EQ(fake.calls, (std::vector<std::string>{"Open Form4", "Open Form4", "Open Form3",
                                                  "PopupMenu"}));
  EXPECT_FALSE(Lit(Obj::BackCase));  // B twice: turned over and back
  EXPECT_EQ(form.KeyLatch, latch);
}

INSTANTIATE_TEST_SUITE_P(Keyboard, MenuKeys,
                         ::testing::Values(Mode::Idle, Mode::Game, Mode::GameOver,
                                           Mode::AlarmSet, Mode::ClockSet),
                         [](const auto& info) { return std::string(Name(info.param)); });

}  // namespace
}  // namespace nautrix
