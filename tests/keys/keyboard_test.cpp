// KEYBOARD - one device key at a time: the latch turns every other key-down
// away, and any key-up ends the hold. (That the pointer and the keyboard
// never hold keys at once is an invariant, checked after every event of
// every scene and of the event streams.)
#include "tests/support/device_test.h"

namespace nautrix {
namespace {

using Keyboard = Scene;

constexpr int kGameA = 49, kLeft = 37, kUp = 38, kT = 84, kS = 83, kX = 88;

// GAME A held shows its high score through the seconds, and only its
// release starts the game (the pointer's hold is the slides'). Left and Up
// are one key: with Left held Up is turned away, and Up's key-up ends the
// hold; Up alone steps the hour as well. X tapped while T is held releases
// TIME. S tapped flips the sound mark and stores it; S tapped while T is
// held releases TIME instead; while the boat counts in a game S is dead too.
TEST_F(Keyboard, OneKeyAtATimeAnyKeyUpEndsTheHoldAndSFlipsTheSound) {
  fake.store[store::kGameAHighScore] = "8";
  Keys({kGameA});
  NextSecond(2);
  EXPECT_TRUE(Readout() == "---8 " && !form.Playing);
  Keys({-kGameA});
  EXPECT_TRUE(form.Playing && form.GameMode == 1);
  Enter(Mode::ClockSet);
  Keys({kLeft, kUp, -kUp});
  EXPECT_FALSE(IsDown(Obj::LeftButton) || form.KeyLatch);
  Keys({-kLeft, kUp, -kUp});
  EXPECT_EQ(form.EditTimeText, "020000 AM");
  Keys({kT, kX, -kX});
  EXPECT_EQ(Joined(fake.calls), "SetTimeOfDay 02:00:00 AM");
  Keys({kS, -kS, kT, kS, -kS});
  EXPECT_EQ(fake.store[store::kSound], "False");
  EXPECT_FALSE(IsDown(Obj::TimeButton) || form.mSound.Checked);
  Enter(Mode::Game);
  form.BoatBeats = 2;
  Keys({kS, -kS});
  EXPECT_FALSE(form.mSound.Checked);
}

}  // namespace
}  // namespace nautrix
