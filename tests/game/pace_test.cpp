// PACE - the tick's length from the mode, the running scenes, the stored
// speeds and the score's band.
#include "tests/game/game_scene.h"

namespace nautrix {
namespace {

struct PaceCase {
  int mode;
  int base;
  int score;
  int interval;
};

class Pace : public GameScene, public ::testing::WithParamInterface<PaceCase> {};

// The cut of a band applies only to a base greater than the cut.
TEST_P(Pace, OfTheScore) {
  const PaceCase c = GetParam();
  Load();
  fake.store[c.mode == 1 ? store::kGameASpeed : store::kGameBSpeed] = std::to_string(c.base);
  form.GameMode = static_cast<uint8_t>(c.mode);
  form.Score = static_cast<int16_t>(c.score);
  form.DoCheckSpeed();
  EXPECT_EQ(form.Timer1Interval(), c.interval);
}

INSTANTIATE_TEST_SUITE_P(
    BandEdges, Pace,
    ::testing::Values(
        // Game A at its default 220.
        PaceCase{1, 220, 0, 220}, PaceCase{1, 220, 69, 220}, PaceCase{1, 220, 70, 190},
        PaceCase{1, 220, 99, 190}, PaceCase{1, 220, 100, 220}, PaceCase{1, 220, 160, 190},
        PaceCase{1, 220, 190, 160}, PaceCase{1, 220, 199, 160}, PaceCase{1, 220, 200, 220},
        PaceCase{1, 220, 329, 220}, PaceCase{1, 220, 360, 170}, PaceCase{1, 220, 399, 140},
        PaceCase{1, 220, 829, 190}, PaceCase{1, 220, 830, 170}, PaceCase{1, 220, 869, 170},
        PaceCase{1, 220, 929, 220}, PaceCase{1, 220, 970, 140}, PaceCase{1, 220, 999, 140},
        // Game B at its default 170.
        PaceCase{2, 170, 29, 170}, PaceCase{2, 170, 30, 140}, PaceCase{2, 170, 69, 140},
        PaceCase{2, 170, 70, 110}, PaceCase{2, 170, 199, 90}, PaceCase{2, 170, 200, 170},
        PaceCase{2, 170, 219, 170}, PaceCase{2, 170, 220, 140}, PaceCase{2, 170, 829, 170},
        PaceCase{2, 170, 830, 140}, PaceCase{2, 170, 998, 90}, PaceCase{2, 170, 999, 170},
        // Small bases: a cut only where the base is greater.
        PaceCase{1, 50, 70, 20}, PaceCase{1, 50, 360, 50}, PaceCase{1, 50, 190, 50},
        PaceCase{1, 50, 390, 50}, PaceCase{2, 50, 30, 20}, PaceCase{2, 50, 70, 50},
        PaceCase{1, 30, 70, 30}, PaceCase{2, 30, 30, 30}, PaceCase{2, 31, 30, 1},
        PaceCase{1, 81, 999, 1}));

// Any running scene takes the diver's pace, in any mode; the idle screen
// runs at 50, and a setting mode keeps its own pace.
TEST_F(Pace, ScenesTheIdleScreenAndTheSettingModes) {
  Load();
  fake.store[store::kDiverSpeed] = "250";
  form.CaptureBeats = 3;
  form.DoCheckSpeed();
  EXPECT_EQ(form.Timer1Interval(), 250);
  form.CaptureBeats = 0;
  form.DoCheckSpeed();
  EXPECT_EQ(form.Timer1Interval(), 50);
  form.BoatBeats = 2;
  form.DoCheckSpeed();
  EXPECT_EQ(form.Timer1Interval(), 250);
  form.BoatBeats = 0;
  form.SetTimer1Interval(200);
  form.ClockSetting = 1;
  form.DoCheckSpeed();
  EXPECT_EQ(form.Timer1Interval(), 200);
  form.ClockSetting = 0;
  form.AlarmSetting = 2;
  form.DoCheckSpeed();
  EXPECT_EQ(form.Timer1Interval(), 200);
}

// The speeds are read at every call; a stored value the options never
// write reads as the key's default.
TEST_F(Pace, SpeedsAreReadAtEachCallAndJunkReadsAsTheDefault) {
  Play(1);
  for (const char* junk : {"fast", "0", "442", "-5", ""}) {
    fake.store[store::kGameASpeed] = junk;
    form.DoCheckSpeed();
    EXPECT_EQ(form.Timer1Interval(), 220) << junk;
  }
  fake.store[store::kGameASpeed] = "441";
  form.DoCheckSpeed();
  EXPECT_EQ(form.Timer1Interval(), 441);
  fake.store[store::kDiverSpeed] = "1e3";
  form.BonusBeats = 1;
  form.DoCheckSpeed();
  EXPECT_EQ(form.Timer1Interval(), 300);
}

}  // namespace
}  // namespace nautrix
