// CAPTURE - the scene of a caught diver, beat by beat: in a game, in the
// demo, at the third miss, through the game-over minute and its end.
#include "tests/support/device_test.h"

namespace nautrix {
namespace {

class Capture : public Scene {
 protected:
  // A game at 42 points whose diver has just stepped under tentacle 1
  // standing down.
  void CaughtAtTwo(int misses) {
    form.Playing = false;
    Play(1);
    form.Misses = static_cast<uint8_t>(misses);
    form.ShowSpares();
    form.ShowPlayfield();
    form.Score = 42;
    Do("r");
    PutTentacle(1, 4, true);
    Do("r");
    ASSERT_EQ(form.CaptureBeats, 11);
    Beeped();
  }
  // Plays the beats, each a tick (a second in the demo), against their sea
  // and beeps.
  void Beats(std::initializer_list<std::pair<const char*, const char*>> beats, char step = 't') {
    for (const auto& [sea, beeps] : beats) {
      EXPECT_EQ(SeaAfter(std::string(1, step)), sea);
      EXPECT_EQ(Beeped(), beeps) << sea;
    }
  }
};

// The first miss: the capture beep and the diver's pace, a silent beat, the
// grip (a spare to the boat, the caught diver up in tentacles 2 and 3), seven
// kicking beats with the last spare moving up, and the next diver on the
// boat at the game's pace; a bag carried is lost with him. The second miss
// leaves no spare.
TEST_F(Capture, TheElevenBeatsOfAMissInAGame) {
  CaughtAtTwo(0);
  Beats({{"-rr 2:5 04000 - c10", "2"}, {"-rr 2:5 04000 - c9", ""}, {"br- - 04220 k0 c8", ""},
         {"br- - 04220 k1 c7", "1"},   {"br- - 04220 k0 c6", "1"},  {"br- - 04220 k1 c5", "1"},
         {"b-r - 04220 k0 c4", "1"},   {"b-r - 04220 k1 c3", "1"},  {"b-r - 04220 k0 c2", "1"}});
  form.DiverLoad = 2;
  Beats({{"b-r - 04220 k1 c1", "1"}, {"b-r - 04220 -", ""}});
  EXPECT_TRUE(form.Misses == 1 && form.DiverLoad == 0 && form.BoatWait == 10);
  EXPECT_EQ(fake.intervals, (std::vector<int>{300, 220}));
  EXPECT_EQ(SeaAfter("ttt"), "b-r - 03320 -");  // the catcher goes home, 2 on from its grip
  CaughtAtTwo(1);
  PutTentacle(2, 5, true);  // the grip takes 2 in to two segments, and leaves 3 longer than two
  PutTentacle(3, 3, false);
  EXPECT_EQ(SeaAfter("ttttttttttt"), "b-- - 04230 -");
}

// The third capture sounds like the others, then the game is over: the high
// score is stored, the caught diver kicks on silently at every tick through
// the minute, and the minute's last second ends the game, takes him off and
// puts the boat and spares back for the idle screen in that same tick.
TEST_F(Capture, TheThirdMissGameOverItsMinuteAndTheLastBeat) {
  CaughtAtTwo(2);
  Tick(11);
  EXPECT_EQ(Beeped(), "21111111");
  EXPECT_EQ(Sea() + " " + fake.store[store::kGameAHighScore], "--- - 04220 k1 c7 42");
  Beats({{"--- - 04220 k0 c6", ""}, {"--- - 04220 k1 c7", ""}});
  EXPECT_EQ(form.Timer1Interval(), 300);
  NextSecond(59);
  EXPECT_TRUE(form.Playing && form.ScoreShown && form.Misses == 4);
  EXPECT_EQ(SeaAfter("s"), "brr - 04220 -");
  EXPECT_EQ(Readout(), "-901 am:");
  EXPECT_FALSE(form.Playing || Lit(GameType(0)));
  EXPECT_EQ(form.Timer1Interval(), 50);
  NextSecond();  // the idle screen's demo
  EXPECT_EQ(std::to_string(form.DiverPos) + Beeped(), "1");
}

// In the demo a tip landing on the diver begins nine silent seconds from
// the grip, in which diver and tentacles stand still; the spares move as in
// a game, and the demo walks on.
TEST_F(Capture, TheDemosNineSilentSeconds) {
  PutTentacle(0, 2, false);
  EXPECT_EQ(SeaAfter("s"), "-rr 1:1 30000 - c9");  // tentacle 0 lands on the diver stepping out
  const int draws = fake.rnd_draws;
  Beats({{"br- - 30220 k0 c8", ""}, {"br- - 30220 k1 c7", ""}, {"br- - 30220 k0 c6", ""},
         {"br- - 30220 k1 c5", ""}, {"b-r - 30220 k0 c4", ""}, {"b-r - 30220 k1 c3", ""},
         {"b-r - 30220 k0 c2", ""}, {"b-r - 30220 k1 c1", ""}, {"b-r - 30220 -", ""}},
        's');
  EXPECT_TRUE(fake.rnd_draws == draws && fake.intervals.empty());
  NextSecond();
  EXPECT_EQ(form.DiverPos, 1);
}

}  // namespace
}  // namespace nautrix
