// TENTACLES - the turns of the five tentacles in a game, beat by beat.
#include "tests/support/device_test.h"

namespace nautrix {
namespace {

constexpr float kStart = 0.0f;  // a start chance that holds (Int(r*5) = 0)
constexpr float kFail = 0.99f;  // one that fails; also the fake's default

using Tentacles = Scene;
class Excursion : public Scene, public ::testing::WithParamInterface<int> {};

// A tentacle that leaves the body grows one segment at each of its turns,
// five ticks apart, stands at full length until its next turn, and is home
// again after as many turns back, with a beat at every tick. The left pair
// leaves only through its gate, which costs one turn: the first turn whose
// chance holds opens it, the next picks one of the two.
TEST_P(Excursion, OfEachTentacle) {
  const int t = GetParam(), m = form.TentacleMax[t];
  Play(1);
  if (t >= 2) {
    Tick(t);  // the turns before it, whose chances fail
    Turn({kStart, kFail});
  } else {
    Turn({kFail, kStart});
    Turn({kFail, kStart, t == 0 ? 0.2f : 0.7f});
  }
  for (int turn = 1; turn <= 2 * m; ++turn) {
    EXPECT_EQ(form.TentacleLength[t], turn <= m ? turn : 2 * m - turn) << "turn " << turn;
    EXPECT_EQ(form.TentacleDown[t] * 10 + form.TentacleBack[t],
              (turn == m) * 10 + (turn >= m && turn < 2 * m));
    if (turn < 2 * m) Tick(5);
  }
  // Two numbers a turn, one more on each turn back and one for the pick.
  const int ticks = (t >= 2 ? t + 1 : 2) + 5 * (2 * m - 1);
  EXPECT_EQ(fake.rnd_draws, 2 * ticks + m + (t <= 1 ? 1 : 0));
  EXPECT_EQ(Beeped(), std::string(ticks, '0'));
}
INSTANTIATE_TEST_SUITE_P(Tentacles, Excursion, ::testing::Values(0, 1, 2, 3, 4));

// Three times in five a tentacle at home leaves (a number below 0.6). When
// the turn of tentacle 1 picks tentacle 0, tentacle 1's turn comes round
// twice, and with 0 out it does nothing, chance or not; when the turn of 0
// picks 1, 1's own turn is skipped.
TEST_F(Tentacles, TheStartChanceAndTheLeftPairsGate) {
  Play(1);
  Turn({kFail, 0.59f});         // turn 0 only opens the gate
  Turn({kFail, 0.59f, 0.2f});   // turn 1 picks tentacle 0
  Turn({kFail, kStart});        // turn 1 again
  Turn({0.59f, kFail});         // 2 leaves
  Turn({0.6f, kFail});          // 3 stays
  EXPECT_EQ(Sea(), "brr - 10100 -");
  EXPECT_EQ(fake.rnd_draws, 2 * 5 + 1);
  form.Playing = false;
  Play(2);
  Turn({kFail, kStart});
  Tick(4);                      // 1 to 4 fail; the gate stays open
  Turn({kFail, kStart, 0.7f});  // turn 0 picks tentacle 1
  EXPECT_EQ(Sea() + std::to_string(form.TentacleTurn), "brr - 01000 -2");
}

// Game B alone lets a tentacle at its last segment turn out again, one time
// in ten; the number is drawn on the way back in both games.
TEST_F(Tentacles, OnlyGameBTurnsATentacleAtItsLastSegment) {
  // The lengths after the turn, and five ticks on.
  const struct { int mode, length; float r4; const char* after; } cases[] = {
      {1, 1, 0.05f, "00000 00000"}, {2, 1, 0.05f, "00100 00200"},
      {2, 1, 0.1f, "00000 00000"},  {2, 2, 0.0f, "00100 00000"}};
  for (const auto& c : cases) {
    form.Playing = false;
    Play(c.mode);
    PutTentacle(2, c.length, true);
    Tick(2);
    Turn({kFail, kFail, c.r4});
    EXPECT_EQ(fake.rnd_draws, 2 * 3 + 1);
    const std::string after = Sea().substr(6, 5);
    Tick(5);
    EXPECT_EQ(after + " " + Sea().substr(6, 5), c.after) << c.mode << " " << c.r4;
  }
}

}  // namespace
}  // namespace nautrix
