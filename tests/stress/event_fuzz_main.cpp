// The long run of the event streams: nautrix_event_fuzz [--seed N] [--streams K]
// [--events M] plays K streams of M events from seed N on and prints what it
// ran; at the first broken invariant it prints the seed and stops with 1.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "tests/stress/event_stream.h"

int main(int argc, char** argv) {
  unsigned long long seed = 1, streams = 1, events = 1000000;
  for (int i = 1; i + 1 < argc; i += 2) {
    const unsigned long long value = std::strtoull(argv[i + 1], nullptr, 10);
    if (!std::strcmp(argv[i], "--seed")) seed = value;
    else if (!std::strcmp(argv[i], "--streams")) streams = value;
    else if (!std::strcmp(argv[i], "--events")) events = value;
  }
  const auto start = std::chrono::steady_clock::now();
  unsigned long long total = 0, checks = 0, runs = 0;
  for (unsigned long long s = seed; s < seed + streams; ++s) {
    const nautrix::StreamResult result = nautrix::PlayEventStream(s, events);
    total += result.events;
    checks += result.checks;
    runs += result.runs;
    if (!result.failure.empty()) {
      std::printf("seed %llu broke an invariant %s", s, result.failure.c_str());
      return 1;
    }
  }
  const double seconds =
      std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  std::printf("%llu streams from seed %llu: %llu events, %llu invariant checks passed, "
              "%llu program runs, %.1f s, %.0f events/s\n",
              streams, seed, total, checks, runs, seconds, total / seconds);
  return 0;
}
