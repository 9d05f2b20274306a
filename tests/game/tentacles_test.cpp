// TENTACLES - the turns of the five tentacles in a game, beat by beat.
#include "tests/game/game_scene.h"

namespace nautrix {
namespace {

constexpr float kStart = 0.0f;  // a start chance that holds (Int(r*5) = 0)
constexpr float kFail = 0.99f;  // one that fails; also the fake's default

class Tentacles : public GameScene {};

// A tentacle that leaves the body grows one segment at each of its turns,
// five ticks apart, stands at full length until its next turn, and is home
// again after as many turns back: 2 * max turns, with a beat at every tick.
class Excursion : public GameScene, public ::testing::WithParamInterface<int> {};

TEST_P(Excursion, OfATentacleOnTheRight) {
  const int t = GetParam();
  Play(1);
  const int m = form.TentacleMax[t];
  Tick(t);  // the turns before it, whose chances fail
  Turn({kStart, kFail});
  for (int turn = 1; turn <= 2 * m; ++turn) {
    const int length = turn <= m ? turn : 2 * m - turn;
    EXPECT_EQ(form.TentacleLength[t], length) << "turn " << turn;
    EXPECT_EQ(form.TentacleDown[t], turn == m ? 1 : 0);
    EXPECT_EQ(form.TentacleBack[t], turn >= m && turn < 2 * m ? 1 : 0);
    if (turn < 2 * m) Tick(5);
  }
  // t + 1 ticks to its first turn, then five to each of the others; two
  // numbers a turn and one more on each of the m turns back.
  const int ticks = t + 1 + 5 * (2 * m - 1);
  EXPECT_EQ(fake.rnd_draws, 2 * ticks + m);
  EXPECT_EQ(Sounds(), Beeps(ticks, "Beep0.wav"));
  EXPECT_EQ(fake.intervals.back(), 220);
}
INSTANTIATE_TEST_SUITE_P(Tentacles, Excursion, ::testing::Values(2, 3, 4));

// Tentacles 0 and 1 keep the same timing once the gate has let one out: the
// gate costs one turn, and the pick starts the tentacle at once.
class PairExcursion : public GameScene, public ::testing::WithParamInterface<int> {};

TEST_P(PairExcursion, OfATentacleOfTheLeftPair) {
  const int t = GetParam();
  Play(1);
  const int m = form.TentacleMax[t];
  Turn({kFail, kStart});
  Turn({kFail, kStart, t == 0 ? 0.2f : 0.7f});
  for (int turn = 1; turn <= 2 * m; ++turn) {
    EXPECT_EQ(form.TentacleLength[t], turn <= m ? turn : 2 * m - turn) << "turn " << turn;
    EXPECT_EQ(form.TentacleLength[1 - t], 0);
    if (turn < 2 * m) Tick(5);
  }
  const int ticks = 2 + 5 * (2 * m - 1);
  EXPECT_EQ(fake.rnd_draws, 2 * ticks + 1 + m);
  EXPECT_EQ(Sounds(), Beeps(ticks, "Beep0.wav"));
  EXPECT_EQ(form.PairReady, 0);
}
INSTANTIATE_TEST_SUITE_P(Tentacles, PairExcursion, ::testing::Values(0, 1));

// The left pair leaves the body only through its gate: the first turn whose
// chance holds opens the gate, the next picks one of the two. When the turn
// of tentacle 1 picks tentacle 0, tentacle 1's turn comes round twice.
TEST_F(Tentacles, TheGatePicksTentacleZeroAndTentacleOnesTurnComesTwice) {
  Play(1);
  Turn({kFail, kStart});  // turn 0: only opens the gate
  EXPECT_EQ(form.PairReady, 1);
  EXPECT_EQ(form.TentacleLength[0], 0);
  Turn({kFail, kStart, 0.2f});  // turn 1: r3 picks tentacle 0
  EXPECT_EQ(form.TentacleLength[0], 1);
  EXPECT_EQ(form.TentacleLength[1], 0);
  EXPECT_EQ(form.PairReady, 0);
  EXPECT_EQ(form.TentacleTurn, 1);
  // Tentacle 1's turn again: with 0 out it does nothing, chance or not.
  Turn({kFail, kStart});
  EXPECT_EQ(form.TentacleLength[1], 0);
  EXPECT_EQ(form.PairReady, 0);
  EXPECT_EQ(form.TentacleTurn, 2);
  Tick(3);  // 2, 3, 4
  Tick();   // 0 grows on
  EXPECT_EQ(form.TentacleLength[0], 2);
  EXPECT_EQ(fake.rnd_draws, 2 * 7 + 1);
}

// When the turn of tentacle 0 picks tentacle 1, tentacle 1's own turn is
// skipped and the others come a tick early. A gate once open stays open
// while the pair is home and the chance fails.
TEST_F(Tentacles, TheGatePicksTentacleOneAndItsOwnTurnIsSkipped) {
  Play(2);
  Turn({kFail, kStart});  // turn 0 opens
  Tick(4);                // 1, 2, 3, 4 all fail
  EXPECT_EQ(form.PairReady, 1);
  Turn({kFail, kStart, 0.7f});  // turn 0 picks tentacle 1
  EXPECT_EQ(form.TentacleLength[1], 1);
  EXPECT_TRUE(Lit(Tentacle(1, 0)));
  EXPECT_FALSE(Lit(Tentacle(0, 0)));
  EXPECT_EQ(form.TentacleTurn, 2);
  Turn({kStart, kFail});  // this is tentacle 2's turn
  EXPECT_EQ(form.TentacleLength[2], 1);
  EXPECT_EQ(form.TentacleLength[1], 1);
}

// Every step back of the pair shuts the gate, and the pair needs two passes
// of a holding chance to leave again.
TEST_F(Tentacles, ThePairComingHomeNeedsTheGateOpenedAgain) {
  Play(1);
  PutTentacle(1, 1, true);
  form.TentacleTurn = 1;
  Tick();  // tentacle 1 goes home
  EXPECT_EQ(form.TentacleLength[1], 0);
  EXPECT_EQ(form.PairReady, 0);
  Tick(4);
  Turn({kFail, kStart});
  EXPECT_EQ(form.PairReady, 1);
  EXPECT_EQ(form.TentacleLength[0] + form.TentacleLength[1], 0);
}

// Game B alone lets a tentacle at its last segment turn out again, one time
// in ten; the number is drawn on the way back in both games.
class Reversal : public GameScene, public ::testing::WithParamInterface<int> {};

TEST_P(Reversal, OnlyGameBTurnsATentacleAtItsLastSegment) {
  const int mode = GetParam();
  Play(mode);
  PutTentacle(2, 1, true);
  Tick(2);
  const int draws = fake.rnd_draws;
  Turn({kFail, kFail, 0.05f});  // r4: Int(r4 * 10) = 0
  EXPECT_EQ(fake.rnd_draws, draws + 3);
  if (mode == 1) {
    EXPECT_EQ(form.TentacleLength[2], 0);
    EXPECT_FALSE(Lit(Tentacle(2, 0)));
  } else {
    EXPECT_EQ(form.TentacleLength[2], 1);
    EXPECT_EQ(form.TentacleBack[2], 0);
    EXPECT_TRUE(Lit(Tentacle(2, 0)));
    Tick(5);
    EXPECT_EQ(form.TentacleLength[2], 2);
  }
}
INSTANTIATE_TEST_SUITE_P(Tentacles, Reversal, ::testing::Values(1, 2));

// The chance is one in ten: from r4 = 0.1 on the tentacle goes home.
TEST_F(Tentacles, GameBReversesOnlyOneTimeInTen) {
  Play(2);
  PutTentacle(4, 1, true);
  Tick(4);
  Turn({kFail, kFail, 0.1f});
  EXPECT_EQ(form.TentacleLength[4], 0);
  EXPECT_EQ(form.TentacleBack[4], 0);
}

// Only at the last segment: a Game B tentacle further out goes on back.
TEST_F(Tentacles, GameBDoesNotReverseFurtherOut) {
  Play(2);
  PutTentacle(3, 2, true);
  Tick(3);
  Turn({kFail, kFail, 0.0f});
  EXPECT_EQ(form.TentacleLength[3], 1);
  EXPECT_EQ(form.TentacleBack[3], 1);
}

// The beat ends every turn, also when nothing moves; the boat count silences
// it, and a tip landing on the diver takes its place.
TEST_F(Tentacles, TheBeatIsSilencedByTheBoatCountAndByALandingTip) {
  Play(1);
  Tick(5);
  EXPECT_EQ(Sounds(), Beeps(5, "Beep0.wav"));
  form.BoatBeats = 4;
  form.MoveTentacles();
  EXPECT_TRUE(Sounds().empty());
  form.BoatBeats = 0;
  WalkTo(3);
  PutTentacle(2, 4, false);
  form.TentacleTurn = 2;
  form.MoveTentacles();
  EXPECT_TRUE(Sounds().empty());
  EXPECT_EQ(form.CaptureBeats, 11);
}

// A tip landing anywhere but over the diver catches nobody and redraws
// nothing; a diver on the boat cannot be caught.
TEST_F(Tentacles, ATipBesideTheDiverCatchesNobody) {
  Play(1);
  WalkTo(2);
  const Pic diver = form.Picture(DiverStep(2));
  PutTentacle(2, 4, false);
  form.TentacleTurn = 2;
  Tick();
  EXPECT_EQ(form.TentacleDown[2], 1);
  EXPECT_EQ(form.CaptureBeats, 0);
  EXPECT_EQ(form.Picture(DiverStep(2)), diver);
  EXPECT_EQ(Sounds(), Beeps{"Beep0.wav"});
}

}  // namespace
}  // namespace nautrix
