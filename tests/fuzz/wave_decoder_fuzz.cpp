// Any bytes at all as a wave file beside the program: the decoder gives a
// sound no longer than the voice keeps, or nothing, and never crashes, hangs,
// reads outside the file or fills the memory. Built with libFuzzer under
// AddressSanitizer and UndefinedBehaviorSanitizer (NAUTRIX_FUZZ).
#include <cstdlib>

#include "shell/sound/wave_decoder.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  constexpr int kRate = 44100;
  const auto samples = nautrix::DecodeWave(data, size, kRate);
  if (samples && samples->size() > size_t{nautrix::kLongestSoundSeconds} * kRate) std::abort();
  return 0;
}
