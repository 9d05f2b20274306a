// TENTACLES - the turns of the five tentacles in a game, beat by beat. (A
// tentacle's growth a segment a turn, its stand at full length and its way
// home are played in the diver's and the captures' scenes.)
#include "tests/support/device_test.h"

namespace nautrix {
namespace {

constexpr float kStart = 0.0f;  // a start chance that holds (Int(r*5) = 0)
constexpr float kFail = 0.99f;  // one that fails; also the fake's default

using Tentacles = Scene;

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
