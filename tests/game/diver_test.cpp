// DIVER - his walk, his work at the chest, the boat count, and the captures
// that a step or a tip begins.
#include "tests/game/game_scene.h"

namespace nautrix {
namespace {

class DiverWalk : public GameScene {};

// A whole trip by the keys: out to the chest, three working beats driven by
// the tick (the treasure at the second, one point and a beep), back to the
// boat, and a count of three points; four points in all.
TEST_F(DiverWalk, AWholeTripPaysOneAtTheChestAndThreeAtTheBoat) {
  Play(1);
  WalkTo(5);
  EXPECT_TRUE(Lit(DiverStep(5)));
  EXPECT_FALSE(Lit(DiverStep(0)));
  EXPECT_TRUE(Shows(DiverStep(5), Diver(16)));
  EXPECT_EQ(form.BoatWait, 0);
  form.DiverForward();  // the key at the chest starts the work
  EXPECT_EQ(form.DiverPos, 6);
  EXPECT_TRUE(Shows(DiverStep(5), Diver(20)));
  Tick();
  EXPECT_EQ(form.DiverPos, 7);
  Sounds();
  Tick();
  EXPECT_EQ(form.DiverPos, 8);
  EXPECT_EQ(form.DiverLoad, 2);
  EXPECT_TRUE(Shows(DiverStep(5), Diver(30)));
  EXPECT_EQ(form.Score, 1);
  EXPECT_EQ(Sounds(), (Beeps{"Beep0.wav", "Beep1.wav"}));
  Tick();
  EXPECT_EQ(form.DiverPos, 5);
  EXPECT_TRUE(Shows(DiverStep(5), Diver(18)));
  for (int p = 4; p >= 1; --p) {
    form.DiverBack();
    EXPECT_EQ(form.DiverPos, p);
    EXPECT_TRUE(Shows(DiverStep(p), Diver(4 * (p - 1) + 2)));
    EXPECT_FALSE(Lit(DiverStep(p + 1)));
  }
  form.DiverBack();
  EXPECT_EQ(form.DiverPos, 0);
  EXPECT_EQ(form.BoatBeats, 4);
  EXPECT_TRUE(Lit(DiverStep(0)));
  EXPECT_FALSE(Lit(DiverStep(1)));
  EXPECT_TRUE(Shows(DiverStep(0), OnTheBoat(1)));
  Sounds();

  // The count: a point, a beep and a picture a beat; the first point sets
  // the diver's pace, the last beat gives the game's pace back.
  const Obj boat[] = {OnTheBoat(0), OnTheBoat(1), OnTheBoat(0), OnTheBoat(0)};
  for (int beat = 0; beat < 4; ++beat) {
    Tick();
    EXPECT_EQ(form.BoatBeats, 3 - beat);
    EXPECT_TRUE(Shows(DiverStep(0), boat[beat])) << beat;
    EXPECT_EQ(form.BoatWait, 10);
    EXPECT_EQ(form.Score, 1 + std::min(beat + 1, 3));
    EXPECT_EQ(Sounds(), beat < 3 ? Beeps{"Beep1.wav"} : Beeps{"Beep0.wav"}) << beat;
    EXPECT_EQ(form.Timer1Interval(), beat < 3 ? 300 : 220);
  }
  EXPECT_EQ(form.DiverLoad, 0);
  EXPECT_EQ(form.Score, 4);
}

// Without the treasure, or during a bonus, the diver cannot climb on the
// boat; on the boat the left key does nothing.
TEST_F(DiverWalk, TheBoatTakesOnlyADiverWithTheTreasure) {
  Play(1);
  form.DiverBack();
  EXPECT_EQ(form.DiverPos, 0);
  WalkTo(1);
  form.DiverBack();
  EXPECT_EQ(form.DiverPos, 1);
  EXPECT_EQ(form.BoatBeats, 0);
  form.DiverLoad = 2;
  form.BonusBeats = 3;
  form.DiverBack();
  EXPECT_EQ(form.DiverPos, 1);
  EXPECT_TRUE(Lit(DiverStep(1)));
}

// Leaving the chest mid-work goes straight to position 4 without the
// treasure, and the next visit starts the work over.
TEST_F(DiverWalk, LeavingTheChestMidWorkLeavesTheTreasure) {
  Play(1);
  WalkTo(5);
  form.DiverForward();
  Tick();  // 7
  form.DiverBack();
  EXPECT_EQ(form.DiverPos, 4);
  EXPECT_EQ(form.DiverLoad, 0);
  EXPECT_FALSE(Lit(DiverStep(5)));
  form.DiverForward();
  form.DiverForward();
  EXPECT_EQ(form.DiverPos, 6);
}

// The wait on the boat: ten seconds, then the diver is sent out.
TEST_F(DiverWalk, TenSecondsOnTheBoatSendTheDiverOut) {
  Play(1);
  NextSecond(9);
  EXPECT_EQ(form.DiverPos, 0);
  EXPECT_EQ(form.BoatWait, 1);
  NextSecond();
  EXPECT_EQ(form.DiverPos, 1);
  EXPECT_EQ(form.BoatWait, 0);
  NextSecond(12);
  EXPECT_EQ(form.DiverPos, 1);
}

class Caught : public GameScene {};

// A tip arriving over the diver redraws him with the tip and begins a
// capture; that turn has no beat.
TEST_F(Caught, ByATentacleArrivingOverHim) {
  Play(1);
  WalkTo(3);
  PutTentacle(2, 4, false);
  Tick(2);
  Sounds();
  Tick();  // tentacle 2's turn
  EXPECT_EQ(form.TentacleDown[2], 1);
  EXPECT_TRUE(Shows(DiverStep(3), Diver(9)));
  EXPECT_EQ(form.CaptureBeats, 11);
  EXPECT_TRUE(Sounds().empty());
}

// Stepping under a tentacle that stands down catches him too, walking out or
// walking back with the bag; the tip is drawn into his picture.
TEST_F(Caught, ByStepsUnderAStandingTentacle) {
  Play(1);
  WalkTo(1);
  PutTentacle(1, 4, true);
  form.DiverForward();
  EXPECT_TRUE(Shows(DiverStep(2), Diver(5)));
  EXPECT_EQ(form.CaptureBeats, 11);

  form.CaptureBeats = 0;
  form.DiverPos = 4;
  form.DiverLoad = 2;
  PutTentacle(1, 0, false);
  PutTentacle(2, 5, true);
  form.DiverBack();
  EXPECT_TRUE(Shows(DiverStep(3), Diver(11)));
  EXPECT_EQ(form.CaptureBeats, 11);
}

// At the chest tentacle 4 catches him at any of the working beats, by
// arriving or by a working beat under it; the row stays that of the beat.
TEST_F(Caught, AtTheChest) {
  Play(1);
  WalkTo(5);
  form.DiverForward();  // 6
  PutTentacle(4, 2, false);
  form.TentacleTurn = 4;
  form.MoveTentacles();
  EXPECT_TRUE(Shows(DiverStep(5), Diver(21)));
  EXPECT_EQ(form.CaptureBeats, 11);

  // The treasure taken in the tick the tip came down pays nothing.
  form.DiverPos = 7;
  Sounds();
  const int score = form.Score;
  form.DiverForward();
  EXPECT_EQ(form.DiverLoad, 2);
  EXPECT_EQ(form.Score, score);
  EXPECT_TRUE(Sounds().empty());
  EXPECT_TRUE(Shows(DiverStep(5), Diver(31)));

  // A working beat under the standing tip.
  form.CaptureBeats = 0;
  form.DiverPos = 5;
  form.DiverForward();
  EXPECT_EQ(form.CaptureBeats, 11);
}

// During a bonus a standing tip catches nobody, and in the setting modes the
// walking demo is not caught on the sea floor, but it is at the chest.
TEST_F(Caught, NotDuringABonusNorOnTheSeaFloorWhileTheClockIsSet) {
  Load();
  PutTentacle(0, 3, true);
  form.BonusBeats = 5;
  form.DiverForward();
  EXPECT_EQ(form.CaptureBeats, 0);
  EXPECT_TRUE(Shows(DiverStep(1), Diver(1)));
  form.BonusBeats = 0;
  form.ClockSetting = 1;
  form.DiverBack();
  form.DiverForward();
  EXPECT_EQ(form.CaptureBeats, 0);
  form.DiverPos = 5;
  PutTentacle(4, 3, true);
  form.DiverForward();
  EXPECT_EQ(form.CaptureBeats, 9);
}

}  // namespace
}  // namespace nautrix
