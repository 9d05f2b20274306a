// LONG RUN - a whole day of the idle device and a hundred games played by a
// simple player, with every invariant of the record checked after each tick.
#include <random>

#include "tests/support/device_test.h"

namespace nautrix {
namespace {

class LongRun : public Scene {
 protected:
  std::mt19937 gen{20240611};
  std::uniform_real_distribution<float> uniform{0.0f, 1.0f};
  float careless = 0;  // the chance that the player steps without looking

  // The random source never runs dry of seeded numbers.
  void Feed() {
    while (fake.rnd_script.size() < 16) fake.rnd_script.push_back(uniform(gen));
  }
  // Whether a tip stands over position q (1 to 5) or can land there at
  // its next turn.
  bool Threat(int q) const {
    const int t = q - 1;
    return form.TentacleDown[t] == 1 ||
           (form.TentacleBack[t] == 0 && form.TentacleLength[t] + 1 >= form.TentacleMax[t]);
  }
  // A player who flees a tip about to land on him, on his way or else back;
  // at half the other beats steps on where no tip threatens, working at the
  // chest only while tentacle 4 is home or going back; and now and then
  // steps without looking. The keys' own gates apply.
  void PlayABeat() {
    const int p = form.DiverPos;
    if (!form.Playing || form.BoatBeats != 0 || p > 5) return;
    const bool out = form.DiverLoad == 0, blind = uniform(gen) < careless;
    auto safe = [&](int q) { return q == 0 || (q >= 1 && q <= 5 && (blind || !Threat(q))); };
    auto step = [&](bool forward) { forward ? form.RightKeyAction() : form.LeftKeyAction(); };
    const int ahead = out ? p + 1 : p - 1, back = out ? p - 1 : p + 1;
    if (!safe(p)) {
      if (safe(ahead)) step(out);
      else if (safe(back)) step(!out);
    } else if (uniform(gen) < 0.5f) {
      if (out && p == 5) {
        if (form.TentacleDown[4] == 0 && form.TentacleBack[4] + !form.TentacleLength[4])
          step(true);
      } else if (safe(ahead)) {
        step(out);
      }
    }
  }
};

// The idle device through 24 hours at two ticks a second: the demo never
// sounds, scores, stores or leaves the idle pace, and the readout keeps the
// half of the day through noon and midnight.
TEST_F(LongRun, ADayOfTheIdleDevice) {
  int captures = 0;
  for (int s = 1; s <= 86400; ++s) {
    fake.AdvanceSeconds(1);
    Feed();
    Tick(2);
    captures += form.CaptureBeats == 8;
    if (s % 3600 == 0) {
      EXPECT_EQ(Readout().substr(5, 2), fake.Now().hour < 12 ? "am" : "pm");
    }
  }
  EXPECT_GT(captures, 100);
  EXPECT_TRUE(fake.sounds.empty() && fake.store_writes.empty() && fake.intervals.empty());
}

// A hundred games at full speed, A and B in turn, ended by the minute, by
// TIME, or by the next game's key; the stored high score is the best score
// that reached game over, and bonuses come.
TEST_F(LongRun, AHundredGames) {
  int best[3] = {0, 0, 0}, total = 0, bonuses = 0, overs = 0;
  for (int game = 0; game < 100; ++game) {
    const int mode = 1 + game % 2;
    Play(mode);
    careless = 0.01f * static_cast<float>(1 + game % 8);
    for (int ticks = 1, bonus_left = 0; form.Misses != 4 && ticks < 40000; ++ticks) {
      if (ticks % 5 == 0) fake.AdvanceSeconds(1);
      Feed();
      PlayABeat();
      Tick();
      bonuses += form.BonusBeats > bonus_left;
      bonus_left = form.BonusBeats;
    }
    total += form.Score;
    if (form.Misses == 4) ++overs, best[mode] = std::max<int>(best[mode], form.Score);
    EXPECT_EQ(form.SettingInt(mode == 1 ? store::kGameAHighScore : store::kGameBHighScore),
              best[mode]);
    if (game % 3 == 0) {  // the game-over minute runs out
      while (form.Playing) NextSecond();
    } else {  // TIME ends it, or the next game starts over it
      Click(By::Keyboard, game % 3 == 1 ? Obj::TimeButton : mode == 1 ? Obj::GameBButton
                                                                       : Obj::GameAButton);
    }
    Feed();
    NextSecond();
    EXPECT_FALSE(Lit(Obj::MissPic) && !form.Playing);
  }
  EXPECT_GT(total, 2000);
  EXPECT_GT(bonuses, 0);
  EXPECT_GT(overs, 50);
}

}  // namespace
}  // namespace nautrix
