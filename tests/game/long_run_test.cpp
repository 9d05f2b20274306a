// LONG RUN - a whole day of the idle device and a hundred games played by a
// simple player, with every invariant of the record checked after each tick.
#include <random>

#include "tests/game/game_scene.h"

namespace nautrix {
namespace {

class LongRun : public GameScene {
 protected:
  std::mt19937 gen{20240611};
  std::uniform_real_distribution<float> uniform{0.0f, 1.0f};
  float careless = 0;  // the chance that the player steps without looking

  // The random source never runs dry of seeded numbers.
  void Feed() {
    while (fake.rnd_script.size() < 16) fake.rnd_script.push_back(uniform(gen));
  }
  // Whether tentacle t can reach the diver's row within its next turn.
  bool Threat(int t) const {
    return form.TentacleDown[t] == 1 ||
           (form.TentacleBack[t] == 0 && form.TentacleLength[t] + 1 >= form.TentacleMax[t]);
  }
  // A player who flees a tip about to land, steps on only where no tip
  // threatens, and works at the chest only while tentacle 4 is far off; he
  // presses only what the keys' own gates let through.
  void Play1Beat() {
    if (!form.Playing || form.CaptureBeats != 0 || form.BoatBeats != 0 || form.Misses == 4) return;
    const int p = form.DiverPos;
    if (p > 5) return;
    const bool out = form.DiverLoad == 0;
    auto forward = [&] {
      if (!(form.BonusBeats > 0 && p == 0)) form.DiverForward();
    };
    const bool blind = uniform(gen) < careless;
    const bool here_safe = blind || p == 0 || !Threat(p - 1);
    const bool ahead_safe = blind || (p < 5 && !Threat(p));
    const bool behind_safe = blind || (p >= 1 && (p == 1 || !Threat(p - 2)));
    if (!here_safe) {
      if (out ? ahead_safe : behind_safe) {
        out ? forward() : form.DiverBack();
      } else if (out ? behind_safe : ahead_safe) {
        out ? form.DiverBack() : forward();
      }
      return;
    }
    if (uniform(gen) > 0.5f) return;
    if (out && p == 5) {
      const bool far = form.TentacleDown[4] == 0 &&
                       (form.TentacleBack[4] == 1 || form.TentacleLength[4] == 0);
      if (far) forward();
    } else if (out && ahead_safe) {
      forward();
    } else if (!out && behind_safe) {
      form.DiverBack();
    }
  }
};

// The idle device through 24 hours at two ticks a second: the demo never
// sounds, scores, stores or leaves the idle pace, and the readout keeps the
// time through noon and midnight.
TEST_F(LongRun, ADayOfTheIdleDevice) {
  Load();
  int captures = 0;
  for (int s = 0; s < 86400; ++s) {
    fake.AdvanceSeconds(1);
    Feed();
    Tick(2);
    if (form.CaptureBeats == 8) ++captures;
    if (s % 3600 == 0) {
      const ClockTime now = fake.Now();
      const int hour = now.hour % 12 == 0 ? 12 : now.hour % 12;
      EXPECT_TRUE(Shows(HourDigit(1), Number(hour % 10)));
      EXPECT_EQ(Lit(Obj::pm), now.hour >= 12);
    }
  }
  EXPECT_GT(captures, 100);
  EXPECT_FALSE(form.Playing);
  EXPECT_EQ(form.Score, 0);
  EXPECT_TRUE(fake.sounds.empty());
  EXPECT_TRUE(fake.store_writes.empty());
  for (int ms : fake.intervals) EXPECT_EQ(ms, 50);
}

// A hundred games at full speed, A and B in turn, ended by the minute, by a
// key, or by a new game; the high score is the best score seen.
TEST_F(LongRun, AHundredGames) {
  Load();
  int best[3] = {0, 0, 0};       // best score seen in each game
  int best_over[3] = {0, 0, 0};  // best score that reached game over
  bool wrapped[3] = {false, false, false};
  int total = 0, bonuses = 0, overs = 0;
  for (int game = 0; game < 100; ++game) {
    const int mode = 1 + game % 2;
    form.GameMode = static_cast<uint8_t>(mode);
    form.StartGame();
    ASSERT_TRUE(form.Playing);
    careless = 0.01f * static_cast<float>(game % 8);
    int ticks = 0;
    int last_score = 0;
    bool bonus = false;
    while (form.Misses != 4 && ticks < 40000) {
      if (++ticks % 5 == 0) fake.AdvanceSeconds(1);
      Feed();
      Play1Beat();
      ExpectInvariants();
      Tick();
      if (form.BonusBeats != 0 && !bonus) ++bonuses;
      bonus = form.BonusBeats != 0;
      if (last_score == 999 && form.Score == 1) wrapped[mode] = true;
      last_score = form.Score;
      best[mode] = std::max(best[mode], static_cast<int>(form.Score));
    }
    total += form.Score;
    if (form.Misses == 4) {
      ++overs;
      best_over[mode] = std::max(best_over[mode], static_cast<int>(form.Score));
    }
    // Stored only at game over and at the wrap from 999.
    EXPECT_EQ(form.SettingInt(mode == 1 ? store::kGameAHighScore : store::kGameBHighScore),
              wrapped[mode] ? 999 : best_over[mode]);
    switch (game % 3) {
      case 0:  // the game-over minute runs out
        while (form.Playing) {
          fake.AdvanceSeconds(1);
          Feed();
          Tick(5);
        }
        break;
      case 1:  // TIME ends it
        form.EndGame();
        form.HideDivers();
        break;
      default:  // the next game starts over it
        form.EndGame();
        form.HideDivers();
        continue;
    }
    fake.AdvanceSeconds(1);
    Feed();
    Tick();
    EXPECT_FALSE(Lit(Obj::MissPic));
    EXPECT_EQ(form.Timer1Interval(), 50);
  }
  EXPECT_GT(total, 2000);
  EXPECT_GT(bonuses, 0);
  EXPECT_GT(overs, 50);
  EXPECT_GT(best[1], 0);
  EXPECT_GT(best[2], 0);
  RecordProperty("total_score", total);
  RecordProperty("bonuses", bonuses);
  RecordProperty("game_overs", overs);
  RecordProperty("wraps", static_cast<int>(wrapped[1]) + static_cast<int>(wrapped[2]));
}

}  // namespace
}  // namespace nautrix
