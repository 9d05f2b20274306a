// ATTRACT - starting and ending games, and the demo of the idle screen,
// which plays the game's routines one step a second, silently.
#include "tests/game/game_scene.h"

namespace nautrix {
namespace {

class Demo : public GameScene {};

// With no tentacle leaving the body the demo's diver makes his whole trip in
// 17 seconds, the last beat of the boat count replaced by the next start,
// with four tentacle turns a second, no point, no sound, and the idle pace.
TEST_F(Demo, TheTripTakesSeventeenSeconds) {
  Load();
  struct Second {
    int pos, load, boat;
  };
  const Second trip[] = {{1, 0, 0}, {2, 0, 0}, {3, 0, 0}, {4, 0, 0}, {5, 0, 0}, {6, 0, 0},
                         {7, 0, 0}, {8, 2, 0}, {5, 2, 0}, {4, 2, 0}, {3, 2, 0}, {2, 2, 0},
                         {1, 2, 0}, {0, 2, 4}, {0, 2, 3}, {0, 2, 2}, {0, 2, 1}, {1, 0, 0}};
  for (int s = 0; s < 18; ++s) {
    Tick(3);  // ticks within a second move nothing
    NextSecond();
    EXPECT_EQ(form.DiverPos, trip[s].pos) << "second " << s + 1;
    EXPECT_EQ(form.DiverLoad, trip[s].load) << "second " << s + 1;
    EXPECT_EQ(form.BoatBeats, trip[s].boat) << "second " << s + 1;
  }
  EXPECT_EQ(fake.rnd_draws, 18 * 8);
  EXPECT_EQ(form.Score, 0);
  EXPECT_TRUE(fake.sounds.empty());
  EXPECT_TRUE(fake.intervals.empty());
  EXPECT_TRUE(Lit(DiverStep(1)) && !Lit(DiverStep(0)));
}

// A capture in the demo is nine silent seconds from the grip, in which
// diver and tentacles stand still; the spares move as in a game.
TEST_F(Demo, ACaptureIsNineSilentSeconds) {
  Load();
  PutTentacle(0, 3, true);
  NextSecond();  // the diver steps under it
  EXPECT_EQ(form.CaptureBeats, 9);
  EXPECT_EQ(form.TentacleLength[0], 2);  // the turns went on after the catch
  const int draws = fake.rnd_draws;
  NextSecond();  // 8, the grip
  EXPECT_EQ(form.Misses, 1);
  EXPECT_TRUE(Lit(Obj::MissPic));
  EXPECT_FALSE(Lit(Obj::Remainder1));
  NextSecond(4);  // 7 to 4
  EXPECT_TRUE(Lit(Obj::Remainder1) && !Lit(Obj::Remainder0));
  NextSecond(3);
  EXPECT_EQ(form.CaptureBeats, 1);
  NextSecond();
  EXPECT_EQ(form.CaptureBeats, 0);
  EXPECT_FALSE(Lit(Obj::MissPic));
  EXPECT_EQ(form.DiverPos, 0);
  EXPECT_EQ(fake.rnd_draws, draws);
  EXPECT_TRUE(fake.sounds.empty());
  EXPECT_EQ(form.Timer1Interval(), 50);
  NextSecond();
  EXPECT_EQ(form.DiverPos, 1);
}

// The third capture of the demo puts everything back and the demo goes on,
// without touching the high scores.
TEST_F(Demo, ThreeCapturesStartItOver) {
  Load();
  fake.store_writes.clear();
  for (int miss = 1; miss <= 3; ++miss) {
    PutTentacle(0, 3, true);
    NextSecond(10);
    EXPECT_EQ(form.CaptureBeats, 0) << miss;
    EXPECT_EQ(form.Misses, miss % 3) << miss;
  }
  EXPECT_TRUE(Lit(Obj::Remainder0) && Lit(Obj::Remainder1));
  EXPECT_TRUE(Lit(DiverStep(0)) && Shows(DiverStep(0), OnTheBoat(0)));
  EXPECT_FALSE(Lit(Obj::MissPic) || Lit(Obj::Arm) || Lit(Obj::Legs));
  EXPECT_EQ(form.DiverPos, 0);
  EXPECT_EQ(form.BoatWait, 10);
  EXPECT_TRUE(fake.store_writes.empty());
  NextSecond();
  EXPECT_EQ(form.DiverPos, 1);
}

class GameStart : public GameScene {};

// A new game clears the sea floor from whatever the demo left, shows its
// mark and a score of 0, and takes its pace; a running game cannot restart.
TEST_F(GameStart, StartGameClearsTheDemoAndCannotRestart) {
  Load();
  PutTentacle(2, 3, false);
  PutTentacle(1, 4, true);
  form.DiverPos = 3;
  form.Show(DiverStep(3));
  form.GameMode = 2;
  form.StartGame();
  for (int t = 0; t <= 4; ++t) EXPECT_EQ(form.TentacleLength[t] + form.TentacleDown[t], 0);
  EXPECT_FALSE(Lit(DiverStep(3)));
  EXPECT_TRUE(Lit(DiverStep(0)) && Lit(Obj::Remainder0) && Lit(Obj::Remainder1));
  EXPECT_TRUE(Lit(GameType(1)) && !Lit(GameType(0)));
  EXPECT_TRUE(form.ScoreShown && Shows(MinuteDigit(1), Number(0)));
  EXPECT_EQ(form.Timer1Interval(), 170);
  EXPECT_EQ(form.BoatWait, 10);
  form.Score = 12;
  form.GameMode = 1;
  form.StartGame();
  EXPECT_EQ(form.Score, 12);
  EXPECT_TRUE(Lit(GameType(1)));
}

// ClearGame is the start of the demo: no game mark, no score, the idle pace;
// it does nothing while a game runs.
TEST_F(GameStart, ClearGameResetsTheDemoOnly) {
  Load();
  form.SetTimer1Interval(200);
  PutTentacle(4, 2, false);
  form.ClearGame();
  EXPECT_EQ(form.TentacleLength[4], 0);
  EXPECT_FALSE(form.Playing || form.ScoreShown);
  EXPECT_FALSE(Lit(GameType(0)) || Lit(GameType(1)));
  EXPECT_EQ(form.Timer1Interval(), 50);
  Play(1);
  WalkTo(2);
  form.ClearGame();
  EXPECT_EQ(form.DiverPos, 2);
}

// EndGame leaves one capture beat for the idle screen and touches no
// picture of the playfield.
TEST_F(GameStart, EndGameLeavesTheLastCaptureBeat) {
  Play(1);
  WalkTo(2);
  form.Score = 30;
  form.EndGame();
  EXPECT_EQ(form.CaptureBeats, 1);
  EXPECT_FALSE(form.Playing || form.ScoreShown);
  EXPECT_EQ(form.GameMode, 0);
  EXPECT_EQ(form.Score, 0);
  EXPECT_EQ(form.Timer1Interval(), 50);
  EXPECT_TRUE(Lit(DiverStep(2)));
  form.EndGame();  // not twice
  EXPECT_EQ(form.CaptureBeats, 1);
}

}  // namespace
}  // namespace nautrix
