// Wave files as the voice plays them: any file a user drops beside the
// program is read here, so nothing in a file, however it is made or broken,
// may crash, hang or fill the memory. The program's own decoder rather than
// a library's: the PCM forms are few and simple, this is all of them in a
// page, its bounds are the voice's own (a sound of at most a minute), and a
// fuzzer under the sanitizers drives it (tests/fuzz). Plain C++, so that the
// fuzzer can drive it alone.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace nautrix {

// A decoded sound: mono 16-bit samples at the voice's rate.
using Samples = std::vector<int16_t>;

// The longest sound the voice keeps; a longer one plays its beginning.
constexpr int kLongestSoundSeconds = 60;

// Decodes a RIFF wave file of integer PCM (8, 16, 24 or 32 bits) or floating
// point PCM (32 or 64 bits), plain or in the extensible header, with any
// channel count and any rate, to mono at `rate` (channels averaged, linear
// interpolation). A data chunk that claims more than the file holds plays
// what is there, as a wave written to a pipe does. Nothing for anything else.
std::optional<Samples> DecodeWave(const uint8_t* bytes, size_t size, int rate);

}  // namespace nautrix
