// SCORE - the bonus at 200, the wrap after 999, and the stored high scores.
#include "tests/game/game_scene.h"

namespace nautrix {
namespace {

class Bonus : public GameScene, public ::testing::WithParamInterface<int> {};

// A point that reaches 200 at the chest gives back every lost diver: the
// tentacles stand still for sixteen beats at the diver's pace while the
// lost spares flash, and at the end both spares stand lit, Misses 0. With
// nothing lost the bonus beeps at every beat, else at every second beat.
TEST_P(Bonus, AtTwoHundred) {
  const int misses = GetParam();
  Play(1);
  form.Misses = static_cast<uint8_t>(misses);
  form.ShowSpares();
  form.ShowPlayfield();
  form.Score = 199;
  WalkTo(5);
  form.DiverForward();
  Tick();  // 7
  Sounds();
  Tick();  // 8: the treasure, the point, the bonus
  EXPECT_EQ(form.Score, 200);
  EXPECT_EQ(form.BonusBeats, 16);
  EXPECT_EQ(Sounds(), (Beeps{"Beep0.wav", "Beep1.wav", "Beep3.wav"}));
  EXPECT_TRUE(Lit(Obj::Remainder0) && Lit(Obj::Remainder1));
  EXPECT_EQ(form.Timer1Interval(), 300);
  const auto lengths = form.TentacleLength;
  const int draws = fake.rnd_draws;
  int beeps = 0;
  for (int beat = 1; beat <= 16; ++beat) {
    Tick();
    beeps += static_cast<int>(Sounds().size());
    EXPECT_EQ(form.DiverPos, 8);  // the work stands still
    if (misses >= 1) {
      EXPECT_EQ(Lit(Obj::Remainder0), beat % 2 == 0) << beat;
    }
    if (misses == 2) {
      EXPECT_EQ(Lit(Obj::Remainder1), beat % 2 == 0) << beat;
    }
  }
  EXPECT_EQ(beeps, misses == 0 ? 16 : 8);
  EXPECT_EQ(form.Misses, 0);
  EXPECT_TRUE(Lit(Obj::Remainder0) && Lit(Obj::Remainder1));
  EXPECT_EQ(form.TentacleLength, lengths);
  EXPECT_EQ(fake.rnd_draws, draws);
  EXPECT_EQ(form.Timer1Interval(), 300);  // no call at the bonus's end
  Tick();
  EXPECT_EQ(form.DiverPos, 5);
}
INSTANTIATE_TEST_SUITE_P(Score, Bonus, ::testing::Values(0, 1, 2));

// A boat-count point that reaches 200 beeps for the bonus, not the point, and
// the count's later points are silent while the bonus runs.
TEST_F(Bonus, ReachedOnTheBoat) {
  Play(2);
  form.Score = 198;
  WalkTo(1);
  form.DiverLoad = 2;
  form.DiverBack();
  Tick();
  EXPECT_EQ(Sounds(), Beeps{"Beep1.wav"});
  Tick();
  EXPECT_EQ(form.Score, 200);
  EXPECT_EQ(Sounds(), (Beeps{"Beep3.wav", "Beep3.wav"}));
  Tick();
  EXPECT_EQ(form.Score, 201);
  EXPECT_EQ(Sounds(), Beeps{"Beep3.wav"});
}

class HighScore : public GameScene {};

// After 999 the score goes on at 1, and 999 is stored first.
TEST_F(HighScore, TheWrapFrom999StoresIt) {
  Play(1);
  fake.store[store::kGameAHighScore] = "500";
  form.Score = 999;
  form.AddPoint();
  EXPECT_EQ(form.Score, 1);
  EXPECT_EQ(fake.store[store::kGameAHighScore], "999");
  EXPECT_FALSE(Lit(HourDigit(1)) || Lit(MinuteDigit(0)));
  EXPECT_TRUE(Shows(MinuteDigit(1), Number(1)));
  EXPECT_EQ(form.Timer1Interval(), 220);
}

// Only a strictly higher score is written, under its own game's key; a junk
// stored value counts as 0; the demo stores nothing.
TEST_F(HighScore, OnlyAHigherScoreOfTheGameIsWritten) {
  Play(2);
  fake.store[store::kGameAHighScore] = "10";
  fake.store[store::kGameBHighScore] = "77";
  fake.store_writes.clear();
  form.Score = 77;
  form.StoreHighScore();
  EXPECT_TRUE(fake.store_writes.empty());
  form.Score = 78;
  form.StoreHighScore();
  EXPECT_EQ(fake.store_writes, std::vector<std::string>{"Game B High Score=78"});
  fake.store[store::kGameBHighScore] = "lots";
  form.Score = 3;
  form.StoreHighScore();
  EXPECT_EQ(fake.store[store::kGameBHighScore], "3");
  EXPECT_EQ(fake.store[store::kGameAHighScore], "10");
  form.GameMode = 0;
  form.Score = 900;
  fake.store_writes.clear();
  form.StoreHighScore();
  EXPECT_TRUE(fake.store_writes.empty());
}

}  // namespace
}  // namespace nautrix
