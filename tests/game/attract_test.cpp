// ATTRACT - starting and ending games, and the demo of the idle screen,
// which plays the game's routines one step a second, silently.
#include "tests/support/device_test.h"

namespace nautrix {
namespace {

using Demo = Scene;

// With no tentacle leaving the body the demo's diver makes his whole trip in
// 17 seconds, the last beat of the boat count replaced by the next start,
// with four tentacle turns a second, no point, no sound, and the idle pace.
TEST_F(Demo, TheTripTakesSeventeenSeconds) {
  std::string trip;
  for (int s = 0; s < 18; ++s) {
    Tick(3);  // ticks within a second move nothing
    NextSecond();
    trip += std::to_string(form.DiverPos) + std::to_string(form.DiverLoad) +
            std::to_string(form.BoatBeats) + " ";
  }
  EXPECT_EQ(trip, "100 200 300 400 500 600 700 820 520 420 320 220 120 024 023 022 021 100 ");
  EXPECT_TRUE(fake.rnd_draws == 18 * 8 && form.Score == 0);
  EXPECT_TRUE(fake.sounds.empty() && fake.intervals.empty());
  EXPECT_EQ(Sea(), "-rr 1:0 00000 -");
}

}  // namespace
}  // namespace nautrix
