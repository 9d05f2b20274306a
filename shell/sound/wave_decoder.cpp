#include "shell/sound/wave_decoder.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace nautrix {
namespace {

constexpr unsigned kPcm = 1, kFloat = 3, kExtensible = 0xFFFE;
// The extensible header names its coding by a GUID whose first four bytes
// are the plain header's tag and whose other twelve are always these.
constexpr uint8_t kSubFormatTail[12] = {0x00, 0x00, 0x10, 0x00, 0x80, 0x00,
                                        0x00, 0xAA, 0x00, 0x38, 0x9B, 0x71};

uint64_t Le(const uint8_t* p, int bytes) {
  uint64_t value = 0;
  for (int i = bytes - 1; i >= 0; --i) value = value << 8 | p[i];
  return value;
}

struct Format {
  unsigned coding = 0;  // kPcm or kFloat
  unsigned channels = 0;
  uint64_t rate = 0;   // frames a second
  unsigned block = 0;  // bytes a frame
  unsigned bits = 0;   // bits a sample as stored
};

// The format chunk, when it describes samples the voice can read.
std::optional<Format> ReadFormat(const uint8_t* p, uint64_t length) {
  if (length < 16) return std::nullopt;
  Format f;
  f.coding = static_cast<unsigned>(Le(p, 2));
  f.channels = static_cast<unsigned>(Le(p + 2, 2));
  f.rate = Le(p + 4, 4);
  f.block = static_cast<unsigned>(Le(p + 12, 2));
  f.bits = static_cast<unsigned>(Le(p + 14, 2));
  if (f.coding == kExtensible) {
    if (length < 40 || std::memcmp(p + 28, kSubFormatTail, sizeof kSubFormatTail) != 0)
      return std::nullopt;
    const uint64_t sub = Le(p + 24, 4);
    f.coding = sub == kPcm || sub == kFloat ? static_cast<unsigned>(sub) : 0;
  }
  const bool readable =
      (f.coding == kPcm && (f.bits == 8 || f.bits == 16 || f.bits == 24 || f.bits == 32)) ||
      (f.coding == kFloat && (f.bits == 32 || f.bits == 64));
  if (!readable || f.channels == 0 || f.rate == 0 || f.block != f.channels * f.bits / 8)
    return std::nullopt;
  return f;
}

// One stored sample on the scale of 16-bit samples.
double Sample(const uint8_t* p, const Format& f) {
  if (f.coding == kFloat) {
    if (f.bits == 32) {
      const auto bits = static_cast<uint32_t>(Le(p, 4));
      float v;
      std::memcpy(&v, &bits, sizeof v);
      return v * 32768.0;
    }
    const uint64_t bits = Le(p, 8);
    double v;
    std::memcpy(&v, &bits, sizeof v);
    return v * 32768.0;
  }
  switch (f.bits) {
    case 8:
      return (p[0] - 128) * 256.0;  // 8-bit samples are unsigned
    case 16:
      return static_cast<int16_t>(Le(p, 2));
    // 24 bits are moved to the top of 32, so that their sign is the sign's.
    case 24:
      return static_cast<int32_t>(static_cast<uint32_t>(Le(p, 3) << 8)) / 65536.0;
    default:
      return static_cast<int32_t>(static_cast<uint32_t>(Le(p, 4))) / 65536.0;
  }
}

}  // namespace

std::optional<Samples> DecodeWave(const uint8_t* p, size_t size, int rate) {
  if (rate <= 0 || size < 12 || std::memcmp(p, "RIFF", 4) != 0 ||
      std::memcmp(p + 8, "WAVE", 4) != 0)
    return std::nullopt;

  // The chunks, walked by their own sizes; the RIFF size is not trusted,
  // since writers that stream get it wrong.
  std::optional<Format> format;
  const uint8_t* data = nullptr;
  uint64_t data_size = 0;
  for (uint64_t at = 12; at + 8 <= size;) {
    const uint64_t length = Le(p + at + 4, 4);
    const uint64_t body = at + 8;
    const uint64_t present = std::min<uint64_t>(length, size - body);
    if (std::memcmp(p + at, "fmt ", 4) == 0) {
      format = ReadFormat(p + body, present);
      if (!format) return std::nullopt;
    } else if (std::memcmp(p + at, "data", 4) == 0 && !data) {
      data = p + body;
      data_size = present;
    }
    at = body + length + (length & 1);
  }
  if (!format || !data) return std::nullopt;

  const Format& f = *format;
  const uint64_t frames = data_size / f.block;
  const uint64_t count =
      std::min<uint64_t>(frames * static_cast<uint64_t>(rate) / f.rate,
                         uint64_t{kLongestSoundSeconds} * static_cast<uint64_t>(rate));
  Samples out(static_cast<size_t>(count));
  if (count == 0) return out;

  // A frame's channels averaged. Only the frames the output reaches are
  // mixed, each once, so the work stays within the file's size and the
  // output's length whatever the header claims.
  const auto mix = [&](uint64_t frame) {
    const uint8_t* at = data + frame * f.block;
    double sum = 0;
    for (unsigned c = 0; c < f.channels; ++c) sum += Sample(at + c * (f.bits / 8), f);
    return std::isfinite(sum) ? sum / f.channels : 0.0;
  };
  const double step = static_cast<double>(f.rate) / rate;
  uint64_t held = 0;  // the frame whose value is `a`; `b` is the next one's
  double a = mix(0), b = mix(std::min<uint64_t>(1, frames - 1));
  for (uint64_t i = 0; i < count; ++i) {
    const double at = static_cast<double>(i) * step;
    const uint64_t i0 = std::min(static_cast<uint64_t>(at), frames - 1);
    if (i0 != held) {
      a = i0 == held + 1 ? b : mix(i0);
      b = mix(std::min(i0 + 1, frames - 1));
      held = i0;
    }
    const double v = a + (b - a) * (at - static_cast<double>(i0));
    out[i] = static_cast<int16_t>(std::lround(std::clamp(v, -32768.0, 32767.0)));
  }
  return out;
}

}  // namespace nautrix
