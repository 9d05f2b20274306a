// CAPTURE - the scene of a caught diver, beat by beat: in a game, in the
// demo, at the third miss, through the game-over minute and its end.
#include "tests/game/game_scene.h"

namespace nautrix {
namespace {

class Capture : public GameScene {
 protected:
  // A game whose diver has just stepped under tentacle 1 standing down.
  void CaughtAtTwo(int misses) {
    Play(1);
    form.Misses = static_cast<uint8_t>(misses);
    form.ShowSpares();
    form.ShowPlayfield();
    form.Score = 42;
    WalkTo(1);
    PutTentacle(1, 4, true);
    form.DiverForward();
    ASSERT_EQ(form.CaptureBeats, 11);
    Sounds();
  }
  bool Pose(int pose) const {
    return Shows(Obj::Arm, TempArm(pose)) && Shows(Obj::Legs, TempLegs(pose));
  }
};

// The first miss: the capture beep and the diver's pace, a silent beat, the
// grip (a spare to the boat, the caught diver up in tentacles 2 and 3), seven
// kicking beats with the last spare moving up, and the next diver on the
// boat at the game's pace.
TEST_F(Capture, TheElevenBeatsOfTheFirstMissInAGame) {
  CaughtAtTwo(0);
  Tick();  // 10
  EXPECT_EQ(Sounds(), Beeps{"Beep2.wav"});
  EXPECT_EQ(form.Timer1Interval(), 300);
  EXPECT_TRUE(Lit(DiverStep(2)));
  Tick();  // 9
  EXPECT_TRUE(Sounds().empty());
  EXPECT_FALSE(Lit(Obj::MissPic));
  Tick();  // 8, the grip
  EXPECT_TRUE(Sounds().empty());
  EXPECT_EQ(form.Misses, 1);
  EXPECT_FALSE(Lit(DiverStep(2)));
  EXPECT_EQ(form.DiverPos, 2);
  EXPECT_TRUE(Lit(Obj::MissPic) && Lit(Obj::Arm) && Lit(Obj::Legs));
  EXPECT_TRUE(Pose(0));
  EXPECT_EQ(form.TentacleLength[2], 2);
  EXPECT_EQ(form.TentacleLength[3], 2);
  EXPECT_EQ(form.TentacleLength[1], 4);  // the catcher keeps its place
  EXPECT_TRUE(Lit(Obj::Remainder0));
  EXPECT_FALSE(Lit(Obj::Remainder1));
  EXPECT_TRUE(Lit(DiverStep(0)) && Shows(DiverStep(0), OnTheBoat(0)));
  for (int b = 7; b >= 1; --b) {
    Tick();
    EXPECT_TRUE(Pose(b % 2)) << b;
    EXPECT_EQ(Sounds(), Beeps{"Beep1.wav"}) << b;
    EXPECT_EQ(Lit(Obj::Remainder0), b > 4) << b;
    EXPECT_EQ(Lit(Obj::Remainder1), b <= 4) << b;
  }
  Tick();  // 0
  EXPECT_TRUE(Sounds().empty());
  EXPECT_EQ(form.CaptureBeats, 0);
  EXPECT_FALSE(Lit(Obj::MissPic) || Lit(Obj::Arm) || Lit(Obj::Legs));
  EXPECT_EQ(form.DiverPos, 0);
  EXPECT_EQ(form.BoatWait, 10);
  EXPECT_EQ(form.Timer1Interval(), 220);
  for (int p = 1; p <= 5; ++p) EXPECT_FALSE(Lit(DiverStep(p)));
  // Tentacle 2 goes on growing from its grip pose.
  Tick(3);
  EXPECT_EQ(form.TentacleLength[2], 3);
}

// At the second miss the last spare goes to the boat and none moves up.
TEST_F(Capture, TheSecondMissLeavesNoSpare) {
  CaughtAtTwo(1);
  Tick(3);
  EXPECT_EQ(form.Misses, 2);
  EXPECT_FALSE(Lit(Obj::Remainder0) || Lit(Obj::Remainder1));
  Tick(8);
  EXPECT_FALSE(Lit(Obj::Remainder0) || Lit(Obj::Remainder1));
  EXPECT_TRUE(Lit(DiverStep(0)));
}

// The third capture sounds like the others, then the game is over: the high
// score is stored, the caught diver kicks on silently at every tick through
// the minute, and the minute's last second ends the game, takes him off and
// puts the boat and spares back for the idle screen in that same tick.
TEST_F(Capture, TheThirdMissGameOverItsMinuteAndTheLastBeat) {
  CaughtAtTwo(2);
  Tick(11);
  EXPECT_EQ(Sounds(), (Beeps{"Beep2.wav", "Beep1.wav", "Beep1.wav", "Beep1.wav", "Beep1.wav",
                             "Beep1.wav", "Beep1.wav", "Beep1.wav"}));
  EXPECT_EQ(form.Misses, 4);
  EXPECT_EQ(form.CaptureBeats, 7);
  EXPECT_EQ(fake.store[store::kGameAHighScore], "42");
  EXPECT_TRUE(Lit(Obj::MissPic));
  EXPECT_FALSE(Lit(DiverStep(0)) || Lit(Obj::Remainder0) || Lit(Obj::Remainder1));
  EXPECT_EQ(form.Timer1Interval(), 300);
  for (int i = 0; i < 6; ++i) {
    Tick();
    EXPECT_TRUE(Pose(i % 2 == 0 ? 0 : 1));
  }
  EXPECT_TRUE(Sounds().empty());

  NextSecond(59);
  EXPECT_TRUE(form.Playing);
  EXPECT_EQ(form.OverSeconds, 59);
  EXPECT_TRUE(form.ScoreShown);
  NextSecond();
  EXPECT_FALSE(form.Playing);
  EXPECT_EQ(form.CaptureBeats, 0);
  EXPECT_FALSE(Lit(Obj::MissPic) || Lit(Obj::Arm) || Lit(Obj::Legs));
  EXPECT_TRUE(Lit(DiverStep(0)) && Lit(Obj::Remainder0) && Lit(Obj::Remainder1));
  EXPECT_FALSE(Lit(DiverStep(2)));
  EXPECT_FALSE(Lit(GameType(0)));
  EXPECT_EQ(form.Timer1Interval(), 50);
  EXPECT_TRUE(Lit(Obj::Colon));  // the time is back on the readout
  EXPECT_TRUE(Sounds().empty());
  // The next tick belongs to the idle screen and its demo.
  NextSecond();
  EXPECT_EQ(form.DiverPos, 1);
}

// Ended by a key in the minute, the game leaves one beat of the scene: the
// idle screen plays it at its next second, in place of that second's demo
// step, and only then does the demo walk again.
TEST_F(Capture, EndedByAKeyTheIdleScreenTakesTheLastBeat) {
  CaughtAtTwo(2);
  Tick(14);
  Sounds();
  form.EndGame();
  form.HideDivers();
  Tick(3);  // within the second: nothing yet
  EXPECT_EQ(form.CaptureBeats, 1);
  EXPECT_TRUE(Lit(Obj::MissPic));
  NextSecond();
  EXPECT_EQ(form.CaptureBeats, 0);
  EXPECT_FALSE(Lit(Obj::MissPic) || Lit(Obj::Arm) || Lit(Obj::Legs));
  EXPECT_TRUE(Lit(DiverStep(0)) && Lit(Obj::Remainder0) && Lit(Obj::Remainder1));
  EXPECT_EQ(form.DiverPos, 0);
  EXPECT_EQ(form.Timer1Interval(), 50);
  NextSecond();
  EXPECT_EQ(form.DiverPos, 1);
  EXPECT_TRUE(fake.sounds.empty());
}

// A new game over a game over hides the caught diver at once.
TEST_F(Capture, ANewGameOverAGameOverClearsTheScene) {
  CaughtAtTwo(2);
  Tick(13);
  form.EndGame();
  form.HideDivers();
  form.GameMode = 2;
  form.StartGame();
  EXPECT_EQ(form.CaptureBeats, 0);
  EXPECT_FALSE(Lit(Obj::MissPic) || Lit(Obj::Arm) || Lit(Obj::Legs));
  EXPECT_TRUE(Lit(GameType(1)) && !Lit(GameType(0)));
  EXPECT_EQ(form.Timer1Interval(), 170);
}

}  // namespace
}  // namespace nautrix
