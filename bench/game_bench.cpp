// The game's cost on the fake platform: one game tick with every tentacle
// busy and the sound on, one idle tick within a second (the readout rewritten,
// no demo step), and one step of the demo with its four tentacle turns.
#include <benchmark/benchmark.h>

#include "device/form1.h"
#include "device/store_keys.h"
#include "tests/support/fake_platform.h"

namespace nautrix {
namespace {

struct Game {
  FakePlatform fake;
  Form1 form{fake};
  Game() {
    fake.FillDefaultStore();
    fake.store[store::kAlarmOn] = "True";
    fake.SetDeviceTime(9, 30, 0);
    form.Form_Load();
    // 0.5 lets every start chance hold and never turns a tentacle back out,
    // so all five tentacles are always on the move.
    fake.rnd_default = 0.5f;
  }
};

void BM_GameTick(benchmark::State& state) {
  Game g;
  g.form.GameMode = 2;
  g.form.StartGame();
  for (auto _ : state) {
    g.form.Timer1_Timer();
    g.fake.sounds.clear();
  }
  benchmark::DoNotOptimize(g.form.TentacleLength);
}
BENCHMARK(BM_GameTick);

void BM_IdleTickWithinASecond(benchmark::State& state) {
  Game g;
  g.form.AttractTick();  // takes the second, so the loop sees no change
  for (auto _ : state) g.form.AttractTick();
  benchmark::DoNotOptimize(g.form.LastSecond);
}
BENCHMARK(BM_IdleTickWithinASecond);

void BM_DemoStep(benchmark::State& state) {
  Game g;
  for (auto _ : state) {
    g.form.AttractStep();
    // Keep the demo walking rather than held by a capture scene.
    g.form.CaptureBeats = 0;
  }
  benchmark::DoNotOptimize(g.form.DiverPos);
}
BENCHMARK(BM_DemoStep);

}  // namespace
}  // namespace nautrix
