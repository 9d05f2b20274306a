// The keys' cost per tick on the fake platform: the pointer tracking that
// every tick runs, with no key held and with GAME A held (a store read a
// tick), and the clock setting's repeat with a key held (a step a tick).
#include <benchmark/benchmark.h>

#include "device/form1.h"
#include "device/store_keys.h"
#include "tests/support/fake_platform.h"

namespace nautrix {
namespace {

struct Device {
  FakePlatform fake;
  Form1 form{fake};
  Device() {
    fake.FillDefaultStore();
    fake.store[store::kGameAHighScore] = "315";
    form.Form_Load();
  }
};

void BM_TrackPointerNoKeyHeld(benchmark::State& state) {
  Device d;
  for (auto _ : state) d.form.TrackPointer();
}
BENCHMARK(BM_TrackPointerNoKeyHeld);

void BM_TrackPointerGameAHeld(benchmark::State& state) {
  Device d;
  d.fake.cursor = {289, 28};
  d.form.GameAButton_MouseDown(1, 0, 0, 0);
  for (auto _ : state) d.form.TrackPointer();
}
BENCHMARK(BM_TrackPointerGameAHeld);

void BM_ClockSetTickWithRightKeyHeld(benchmark::State& state) {
  Device d;
  d.form.Form_KeyDown(82, 0);  // ACL: the clock setting
  d.form.Form_KeyUp(82, 0);
  d.form.Form_KeyDown(39, 0);  // right held: a step at every tick after three
  for (auto _ : state) d.form.Timer1_Timer();
}
BENCHMARK(BM_ClockSetTickWithRightKeyHeld);

void BM_KeyboardTapInAlarmSet(benchmark::State& state) {
  Device d;
  d.form.Form_KeyDown(65, 0);
  d.form.Form_KeyUp(65, 0);
  for (auto _ : state) {
    d.form.Form_KeyDown(37, 0);
    d.form.Form_KeyUp(37, 0);
  }
}
BENCHMARK(BM_KeyboardTapInAlarmSet);

}  // namespace
}  // namespace nautrix
