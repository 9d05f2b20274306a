// SCORE - the bonus at 200, the wrap after 999, the stored high scores,
// the pace that the score sets. (The sound's gates: the demo's silent
// scenes, and the e2e tier's game heard at the speakers with S.)
#include "tests/support/device_test.h"

namespace nautrix {
namespace {

class Bonus : public Scene, public ::testing::WithParamInterface<int> {};

// A point that reaches 200 or 500 at the chest gives back every lost diver:
// the work and the tentacles stand still for sixteen beats at the diver's
// pace while the lost spares flash, and at the end both spares stand lit,
// Misses 0. With nothing lost it beeps at every beat, else at every second.
TEST_P(Bonus, AtTwoHundredAndFiveHundred) {
  const int misses = GetParam();
  Play(1);
  form.Misses = static_cast<uint8_t>(misses);
  form.ShowSpares();
  form.ShowPlayfield();
  form.Score = misses == 2 ? 499 : 199;
  Do("rrrrrrt");
  Beeped();
  Do("t");  // 8: the treasure, the point, the bonus
  EXPECT_EQ(form.Score, misses == 2 ? 500 : 200);
  EXPECT_EQ(Beeped(), "013");
  EXPECT_EQ(Sea(), "-rr 5:30 00000 -");
  const int draws = fake.rnd_draws;
  std::string spares, expected;
  for (int beat = 1; beat <= 16; ++beat) {
    Tick();
    spares += Sea().substr(1, 2) + " ";
    expected += misses == 0 || beat % 2 == 0 ? "rr " : misses == 1 ? "-r " : "-- ";
  }
  EXPECT_EQ(spares, expected);
  EXPECT_EQ(Beeped(), std::string(misses == 0 ? 16 : 8, '3'));
  EXPECT_EQ(Sea(), "-rr 5:30 00000 -");
  EXPECT_TRUE(form.Misses == 0 && fake.rnd_draws == draws);
  EXPECT_EQ(fake.intervals, std::vector<int>{300});  // no call at the bonus's end
  Tick();
  EXPECT_EQ(form.DiverPos, 5);
}
INSTANTIATE_TEST_SUITE_P(Score, Bonus, ::testing::Values(0, 1, 2));

// A boat-count point that reaches 200 beeps for the bonus, not the point,
// the count's later points are silent while the bonus runs, and the right
// key cannot send the diver off the boat until it ends.
TEST_F(Bonus, ReachedOnTheBoat) {
  Play(2);
  form.Score = 198;
  Do("r");
  form.DiverLoad = 2;
  Do("l");
  std::string beeps;
  for (int beat = 0; beat < 4; ++beat) {
    Tick();
    beeps += Beeped() + " ";
  }
  EXPECT_EQ(beeps + std::to_string(form.Score), "1 33 3 3 201");
  Click(By::Pointer, Obj::RightButton);
  EXPECT_EQ(form.DiverPos, 0);
}

// After 999 the score goes on at 1, and 999 is stored first. Only a
// strictly higher score is written, under its own game's key; a junk stored
// value counts as 0; the demo stores nothing.
using HighScore = Scene;

TEST_F(HighScore, TheWrapFrom999AndOnlyAHigherScoreOfTheGameIsStored) {
  const struct { int mode; const char* stored; int score; const char* written; } cases[] = {
      {1, "77", 77, ""}, {2, "77", 77, ""}, {1, "77", 78, "Game A High Score=78"},
      {2, "77", 78, "Game B High Score=78"}, {2, "lots", 3, "Game B High Score=3"},
      {0, "0", 900, ""}, {1, "500", 999, "Game A High Score=999"}};
  for (const auto& c : cases) {
    fake.store[store::kGameAHighScore] = fake.store[store::kGameBHighScore] = c.stored;
    Forget();
    form.GameMode = static_cast<uint8_t>(c.mode);
    form.Playing = true;
    form.Score = static_cast<int16_t>(c.score);
    c.score == 999 ? form.AddPoint() : form.StoreHighScore();
    EXPECT_EQ(fake.store_writes.empty() ? "" : fake.store_writes[0], c.written) << c.score;
  }
  EXPECT_EQ(form.Score, 1);  // after 999
}

using Pace = Scene;

// Band edges of both tables at their default bases, and small bases: the
// cut of a band applies only to a base greater than the cut. (The diver's
// pace of the scenes, the idle pace and the setting's pace are played in
// the scenes' own tests.)
TEST_F(Pace, OfTheScoreAtTheBandEdges) {
  const struct { int mode, base, score, interval; } cases[] = {
      {1, 220, 69, 220}, {1, 220, 70, 190}, {1, 220, 99, 190},  {1, 220, 100, 220},
      {1, 220, 190, 160}, {1, 220, 999, 140}, {2, 170, 70, 110}, {2, 170, 998, 90},
      {2, 170, 999, 170}, {1, 50, 70, 20},   {1, 50, 190, 50},   {1, 30, 70, 30},
      {2, 31, 30, 1},
  };
  for (const auto& c : cases) {
    fake.store[c.mode == 1 ? store::kGameASpeed : store::kGameBSpeed] = std::to_string(c.base);
    form.GameMode = static_cast<uint8_t>(c.mode);
    form.Score = static_cast<int16_t>(c.score);
    form.DoCheckSpeed();
    EXPECT_EQ(form.Timer1Interval(), c.interval) << c.mode << " " << c.base << " " << c.score;
  }
}

}  // namespace
}  // namespace nautrix
