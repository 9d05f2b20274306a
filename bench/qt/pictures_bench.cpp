// What the artwork costs the program: building every bitmap of the device
// window at 100 % and 200 %, the icon, and one leaflet page (the viewer
// renders pages when it shows them).
#include <benchmark/benchmark.h>

#include "shell/pictures/picture_book.h"
#include "tests/shell/qt_test_app.h"

namespace {

void BM_PictureBook(benchmark::State& state) {
  nautrix::TestApp();
  const qreal dpr = static_cast<qreal>(state.range(0));
  for (auto _ : state) {
    nautrix::PictureBook book(dpr);
    benchmark::DoNotOptimize(book.Picture(nautrix::Pic::FrontCase).cacheKey());
  }
  state.SetLabel(dpr == 1 ? "every picture, 100 %" : "every picture, 200 %");
}
BENCHMARK(BM_PictureBook)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);

void BM_RenderIcon(benchmark::State& state) {
  nautrix::TestApp();
  for (auto _ : state) {
    for (const int size : nautrix::kIconSizes) benchmark::DoNotOptimize(nautrix::RenderIcon(size).cacheKey());
  }
  state.SetLabel("every size");
}
BENCHMARK(BM_RenderIcon)->Unit(benchmark::kMillisecond);

void BM_RenderPage(benchmark::State& state) {
  nautrix::TestApp();
  const int page = static_cast<int>(state.range(0));
  for (auto _ : state) benchmark::DoNotOptimize(nautrix::RenderPage(page, 2).cacheKey());
  state.SetLabel("at 200 %");
}
BENCHMARK(BM_RenderPage)->Arg(1)->Arg(9)->Unit(benchmark::kMillisecond);

}  // namespace
