// KEYBOARD - one device key at a time: the latch turns every other key-down
// away, and any key-up ends the hold. (That the pointer and the keyboard
// never hold keys at once is an invariant, checked after every event of
// every scene and of the event streams.)
#include "tests/support/device_test.h"

namespace nautrix {
namespace {

using Keyboard = Scene;

constexpr int kLeft = 37, kUp = 38, kT = 84, kS = 83, kX = 88, kF1 = 112, kI = 73;

// Left and Up are one key: with Left held Up is turned away, and Up's
// key-up ends the hold; Up alone steps the hour as well. X tapped while T
// is held releases TIME.
TEST_F(Keyboard, LeftAndUpAreOneKeyAndAnyKeyUpEndsTheHold) {
  Enter(Mode::ClockSet);
  Keys({kLeft, kUp, -kUp});
  EXPECT_FALSE(IsDown(Obj::LeftButton) || form.KeyLatch);
  Keys({-kLeft, kUp, -kUp});
  EXPECT_EQ(form.EditTimeText, "020000 AM");
  Keys({kT, kX, -kX});
  EXPECT_EQ(Joined(fake.calls), "SetTimeOfDay 02:00:00 AM");
}

// S tapped flips the sound mark and stores it; S tapped while T is held
// releases TIME instead; while the boat counts in a game S is dead too.
TEST_F(Keyboard, STappedFlipsTheSound) {
  Keys({kS, -kS});
  EXPECT_EQ(fake.store[store::kSound], "False");
  Keys({kT, kS, -kS});
  EXPECT_FALSE(IsDown(Obj::TimeButton) || form.mSound.Checked);
  Enter(Mode::Game);
  form.BoatBeats = 2;
  Keys({kS, -kS});
  EXPECT_FALSE(form.mSound.Checked);
}

// The menu keys (F1 and I the instructions, B the back, O the options,
// Enter the menu) act at their key-up alone, in every mode, past the gates
// of the device keys, and leave a held device key held.
TEST_F(Keyboard, MenuKeysActAtTheirKeyUpPastEveryGate) {
  Enter(Mode::Game);
  form.BoatBeats = 2;
  Keys({kF1});
  EXPECT_TRUE(fake.calls.empty());
  Keys({-kF1, -kI, -66, -79, -13});
  EXPECT_EQ(Joined(fake.calls), "Open Form4;Open Form4;Open Form3;PopupMenu");
  EXPECT_TRUE(form.mBack.Checked && Lit(Obj::BackCase));
  form.BoatBeats = 0;
  Keys({kT, -kI});
  EXPECT_TRUE(IsDown(Obj::TimeButton) && form.KeyLatch);
}

}  // namespace
}  // namespace nautrix
