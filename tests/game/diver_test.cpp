// DIVER - his walk, his work at the chest, the boat count, and the captures
// that a step or a tip begins.
#include "tests/support/device_test.h"

namespace nautrix {
namespace {

using DiverWalk = Scene;

// A whole trip by the keys: out to the chest, three working beats driven by
// the tick (the treasure at the second, a point and a beep), back to the
// boat, and a count of three points at the diver's pace, its last beat the
// game's beat at the game's pace again. Without the treasure the diver
// cannot climb on the boat, and leaving the chest mid-work leaves it there.
TEST_F(DiverWalk, AWholeTripPaysOneAtTheChestAndThreeAtTheBoat) {
  Play(1);
  const char* const beats[][3] = {
      {"lrl", "-rr 1:0 00000 -", ""},  {"rrrr", "-rr 5:16 00000 -", ""},
      {"rtl", "-rr 4:12 00000 -", "0"}, {"rrt", "-rr 5:24 00000 -", "0"},
      {"t", "-rr 5:30 00000 -", "01"},  {"t", "-rr 5:18 00000 -", "0"},
      {"llll", "-rr 1:2 00000 -", ""},  {"l", "Brr - 00000 -", ""},
      {"t", "brr - 00000 -", "1"},      {"t", "Brr - 00000 -", "1"},
      {"t", "brr - 00000 -", "1"},      {"t", "brr - 00000 -", "0"},
  };
  for (const auto& [moves, sea, beeps] : beats) {
    EXPECT_EQ(SeaAfter(moves), sea) << moves;
    EXPECT_EQ(Beeped(), beeps) << moves;
  }
  EXPECT_EQ(form.Score, 4);
  EXPECT_EQ(fake.intervals, (std::vector<int>{300, 220}));
}

using Caught = Scene;

// A tip arriving over the diver redraws him with the tip and begins a
// capture in place of that turn's beat; stepping back with the bag under a
// standing tip catches him too (a step out: the captures' own scenes).
TEST_F(Caught, ByATipArrivingOverHimOrByAStepUnderIt) {
  Play(1);
  Do("rrr");
  PutTentacle(2, 4, false);
  Do("tt");
  Beeped();
  EXPECT_EQ(SeaAfter("t"), "-rr 3:9 00500 - c11");  // tentacle 2's turn
  EXPECT_EQ(Beeped(), "");
  form.CaptureBeats = 0;
  form.DiverLoad = 2;
  EXPECT_EQ(SeaAfter("rl"), "-rr 3:11 00500 - c11");  // back under tentacle 2 with the bag
}

// During a bonus a standing tip catches nobody and the treasure does not
// climb on the boat; while the clock is set the walking demo is not caught
// on the sea floor, out or back, but it is at the chest, where tentacle 4
// catches him.
TEST_F(Caught, NotDuringABonusNorOnTheSeaFloorWhileTheClockIsSet) {
  PutTentacle(0, 3, true);
  form.BonusBeats = 5;
  EXPECT_EQ(SeaAfter("r"), "-rr 1:1 30000 -");
  form.DiverLoad = 2;
  EXPECT_EQ(SeaAfter("l"), "-rr 1:1 30000 -");
  form.BonusBeats = 0;
  form.ClockSetting = 1;
  PutTentacle(2, 5, true);
  form.DiverLoad = 2;
  Do("rrll");
  EXPECT_EQ(form.CaptureBeats, 0);
  form.DiverPos = 5;
  PutTentacle(4, 3, true);
  Do("r");
  EXPECT_EQ(form.CaptureBeats, 9);
}

}  // namespace
}  // namespace nautrix
