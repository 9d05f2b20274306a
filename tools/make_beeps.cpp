// Synthesises the device's four beeps as wave files: a piezo-like voice (a
// square-ish wave made of its first odd harmonics, so it buzzes without the
// aliasing hiss of a hard square) under a soft attack and release, so that a
// beep cut off by the next never clicks.
//
//   make_beeps OUTPUT_FOLDER
//
// writes Beep0.wav .. Beep3.wav there: PCM, mono, 16 bit, 44100 Hz.
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

namespace {

constexpr int kRate = 44100;
constexpr double kPi = 3.14159265358979323846;
constexpr double kLevel = 0.42;  // of full scale: loud enough, never harsh

// One tone of a beep: a pitch that glides from `from_hz` to `to_hz` over
// `ms`, with an optional buzz (a slow amplitude wobble, as a piezo sounds
// when driven unevenly).
struct Tone {
  double ms;
  double from_hz;
  double to_hz;
  double buzz_hz = 0;     // 0 for a clean tone
  double buzz_depth = 0;  // 0..1
};

// A silent gap between tones is a Tone with from_hz 0.
struct Beep {
  const char* file;
  std::vector<Tone> tones;
};

// Raised-cosine ramp 0..1 over `len` samples.
double Ramp(int i, int len) { return len <= 0 ? 1.0 : 0.5 - 0.5 * std::cos(kPi * i / len); }

void AppendTone(std::vector<int16_t>& out, const Tone& tone) {
  const int n = static_cast<int>(std::lround(tone.ms * kRate / 1000.0));
  if (tone.from_hz <= 0) {
    out.insert(out.end(), n, 0);
    return;
  }
  const int attack = kRate * 2 / 1000;   // 2 ms
  const int release = kRate * 6 / 1000;  // 6 ms
  double phase = 0;
  for (int i = 0; i < n; ++i) {
    const double t = static_cast<double>(i) / n;
    // Exponential glide: equal steps of pitch, as the ear hears them.
    const double hz = tone.from_hz * std::pow(tone.to_hz / tone.from_hz, t);
    phase += 2 * kPi * hz / kRate;
    double v = 0;
    for (int h = 1; h <= 9; h += 2) {
      if (hz * h > 0.45 * kRate) break;
      v += std::sin(h * phase) / h;
    }
    v *= 4 / kPi * 0.82;  // a band-limited square peaks a little above 1
    double env = 1;
    if (i < attack) env *= Ramp(i, attack);
    if (n - 1 - i < release) env *= Ramp(n - 1 - i, release);
    if (tone.buzz_hz > 0) {
      const double wobble = 0.5 + 0.5 * std::sin(2 * kPi * tone.buzz_hz * i / kRate);
      env *= 1 - tone.buzz_depth * wobble;
    }
    double s = kLevel * env * v;
    if (s > 1) s = 1;
    if (s < -1) s = -1;
    out.push_back(static_cast<int16_t>(std::lround(s * 32767)));
  }
}

void Put16(std::FILE* f, uint16_t v) {
  const unsigned char b[2] = {static_cast<unsigned char>(v), static_cast<unsigned char>(v >> 8)};
  std::fwrite(b, 1, 2, f);
}

void Put32(std::FILE* f, uint32_t v) {
  Put16(f, static_cast<uint16_t>(v));
  Put16(f, static_cast<uint16_t>(v >> 16));
}

bool WriteWave(const std::string& path, const std::vector<int16_t>& samples) {
  std::FILE* f = std::fopen(path.c_str(), "wb");
  if (!f) return false;
  const uint32_t data_bytes = static_cast<uint32_t>(samples.size() * 2);
  std::fwrite("RIFF", 1, 4, f);
  Put32(f, 36 + data_bytes);
  std::fwrite("WAVE", 1, 4, f);
  std::fwrite("fmt ", 1, 4, f);
  Put32(f, 16);          // size of the format chunk
  Put16(f, 1);           // PCM
  Put16(f, 1);           // mono
  Put32(f, kRate);       // samples a second
  Put32(f, kRate * 2);   // bytes a second
  Put16(f, 2);           // bytes a frame
  Put16(f, 16);          // bits a sample
  std::fwrite("data", 1, 4, f);
  Put32(f, data_bytes);
  for (int16_t s : samples) Put16(f, static_cast<uint16_t>(s));
  return std::fclose(f) == 0;
}

// The four beeps. Lengths and pitches are listed in assets/CREDITS.md.
const Beep kBeeps[] = {
    // The tentacle beat: a dry low tick, well inside the fastest 90 ms beat.
    {"Beep0.wav", {{40, 1100, 1040}}},
    // A point, and each kick of a caught diver: short and high.
    {"Beep1.wav", {{60, 2100, 2150}}},
    // A capture: a buzzing fall.
    {"Beep2.wav", {{260, 1250, 330, 38, 0.55}}},
    // The bonus and the alarm: a bright double chirp, rising.
    {"Beep3.wav", {{110, 1760, 2640}, {45, 0, 0}, {110, 1760, 2640}}},
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: %s OUTPUT_FOLDER\n", argv[0]);
    return 2;
  }
  const std::string folder = argv[1];
  for (const Beep& beep : kBeeps) {
    std::vector<int16_t> samples;
    for (const Tone& tone : beep.tones) AppendTone(samples, tone);
    if (!WriteWave(folder + "/" + beep.file, samples)) {
      std::fprintf(stderr, "%s: cannot write %s/%s\n", argv[0], folder.c_str(), beep.file);
      return 1;
    }
  }
  return 0;
}
