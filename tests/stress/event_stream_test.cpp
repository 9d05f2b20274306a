// EVENT STREAMS - no sequence of events, however odd, breaks the record:
// random streams of ticks, keys, pointer, tray, menu, dialogs and hand-edited
// store values, with every invariant checked after every event.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>

#include "tests/stress/event_stream.h"

namespace nautrix {
namespace {

// A million events over ten streams. The long run is this test with
// NAUTRIX_SEED, NAUTRIX_STREAMS and NAUTRIX_EVENTS set; a failing seed is
// told and replays with NAUTRIX_SEED=N NAUTRIX_STREAMS=1.
TEST(EventStreams, AMillionEventsBreakNoInvariant) {
  const auto setting = [](const char* name, unsigned long long fallback) {
    const char* text = std::getenv(name);
    return text ? std::strtoull(text, nullptr, 10) : fallback;
  };
  const unsigned long long seed = setting("NAUTRIX_SEED", 1);
  const unsigned long long streams = setting("NAUTRIX_STREAMS", 10);
  StreamResult total{0, 0, 0, ""};
  for (unsigned long long s = seed; s < seed + streams; ++s) {
    const StreamResult result = PlayEventStream(s, setting("NAUTRIX_EVENTS", 100000));
    ASSERT_EQ(result.failure, "") << "seed " << s;
    total.events += result.events, total.checks += result.checks, total.runs += result.runs;
  }
  std::printf("%llu streams from seed %llu: %llu events, %llu invariant checks passed, %llu runs\n",
              streams, seed, static_cast<unsigned long long>(total.events),
              static_cast<unsigned long long>(total.checks),
              static_cast<unsigned long long>(total.runs));
}

}  // namespace
}  // namespace nautrix
