// What opening a dialog costs the program, up to the window handed to the
// desktop: the window built, its load from the store, its first page drawn
// for the leaflet; then closed and discarded again.
#include <benchmark/benchmark.h>

#include "dialogs/qt/dialog_windows.h"
#include "tests/shell/desktop_device.h"

namespace nautrix {
namespace {

void BM_OpenDialog(benchmark::State& state) {
  DesktopDevice device;
  device.Load();
  QtPlatform& platform = device.platform;
  const auto dialog = static_cast<Dialog>(state.range(0));
  for (auto _ : state) {
    platform.OpenDialog(dialog);
    DialogFrame* open = platform.dialogs()->Window(dialog);
    open->done(0);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  const char* names[] = {"About", "Options", "Instructions"};
  state.SetLabel(names[state.range(0)]);
}
BENCHMARK(BM_OpenDialog)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace nautrix
