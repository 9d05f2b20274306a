#include "shell/qt/sound_voice.h"

#include <QAudioDevice>
#include <QAudioSink>
#include <QFile>
#include <QFileInfo>
#include <QMediaDevices>
#include <algorithm>
#include <cmath>
#include <cstring>

namespace nautrix {
namespace {

constexpr int kRate = 44100;
// The sink's buffer: what plays after a new sound starts and before it is
// heard. Small enough that a beep lands on its beat, large enough that the
// sink does not run dry between its pulls.
constexpr int kBufferMs = 40;
// Silence after the last sound before the sink is put to sleep, so an idle
// device costs no wake-ups.
constexpr int kIdleMs = 1200;
// How often the sink's buffer is topped up while it is awake.
constexpr int kFeedMs = 10;
// A beep is a few kilobytes; a file much larger than this is not one.
constexpr qint64 kLargestWave = 32 * 1024 * 1024;

QAudioFormat VoiceFormat() {
  QAudioFormat format;
  format.setSampleRate(kRate);
  format.setChannelCount(1);
  format.setSampleFormat(QAudioFormat::Int16);
  return format;
}

uint32_t Le(const uchar* p, int bytes) {
  uint32_t value = 0;
  for (int i = bytes - 1; i >= 0; --i) value = value << 8 | p[i];
  return value;
}

// One mono sample written into one frame of the sink's format.
void WriteFrame(char* out, const QAudioFormat& format, int16_t sample) {
  const int channels = std::max(1, format.channelCount());
  for (int c = 0; c < channels; ++c) {
    switch (format.sampleFormat()) {
      case QAudioFormat::UInt8: {
        const uint8_t v = static_cast<uint8_t>((sample >> 8) + 128);
        std::memcpy(out, &v, 1);
        out += 1;
        break;
      }
      case QAudioFormat::Int32: {
        const int32_t v = static_cast<int32_t>(sample) << 16;
        std::memcpy(out, &v, 4);
        out += 4;
        break;
      }
      case QAudioFormat::Float: {
        const float v = sample / 32768.0f;
        std::memcpy(out, &v, 4);
        out += 4;
        break;
      }
      default: {
        std::memcpy(out, &sample, 2);
        out += 2;
        break;
      }
    }
  }
}

}  // namespace

std::optional<Samples> DecodeWave(const QByteArray& bytes, int rate) {
  const auto* p = reinterpret_cast<const uchar*>(bytes.constData());
  const qint64 size = bytes.size();
  if (rate <= 0 || size < 12 || std::memcmp(p, "RIFF", 4) != 0 || std::memcmp(p + 8, "WAVE", 4) != 0)
    return std::nullopt;

  int channels = 0, bits = 0, block = 0;
  int64_t rate_in = 0;
  bool have_format = false;
  qint64 data = -1, data_size = 0;
  for (qint64 at = 12; at + 8 <= size;) {
    const qint64 length = Le(p + at + 4, 4);
    const qint64 body = at + 8;
    const qint64 present = std::min(length, size - body);
    if (std::memcmp(p + at, "fmt ", 4) == 0) {
      if (present < 16) return std::nullopt;
      int tag = static_cast<int>(Le(p + body, 2));
      channels = static_cast<int>(Le(p + body + 2, 2));
      rate_in = Le(p + body + 4, 4);
      block = static_cast<int>(Le(p + body + 12, 2));
      bits = static_cast<int>(Le(p + body + 14, 2));
      // The extensible header names its sample coding in its sub-format.
      if (tag == 0xFFFE && present >= 26) tag = static_cast<int>(Le(p + body + 24, 2));
      if (tag != 1) return std::nullopt;
      have_format = true;
    } else if (std::memcmp(p + at, "data", 4) == 0) {
      data = body;
      data_size = present;  // a cut-off file plays what it holds
      break;
    }
    at = body + length + (length & 1);
  }
  if (!have_format || data < 0 || channels < 1 || (bits != 8 && bits != 16) || rate_in <= 0 ||
      block != channels * bits / 8)
    return std::nullopt;

  const qint64 frames = data_size / block;
  std::vector<float> mono(static_cast<size_t>(frames));
  for (qint64 f = 0; f < frames; ++f) {
    const uchar* frame = p + data + f * block;
    float sum = 0;
    for (int c = 0; c < channels; ++c) {
      sum += bits == 8 ? (frame[c] - 128) * 256.0f
                       : static_cast<int16_t>(Le(frame + 2 * c, 2));
    }
    mono[f] = sum / channels;
  }

  const qint64 count = frames * rate / rate_in;
  Samples out(static_cast<size_t>(count));
  const double step = static_cast<double>(rate_in) / rate;
  for (qint64 i = 0; i < count; ++i) {
    const double at = i * step;
    const qint64 i0 = std::min<qint64>(static_cast<qint64>(at), frames - 1);
    const qint64 i1 = std::min<qint64>(i0 + 1, frames - 1);
    const double v = mono[i0] + (mono[i1] - mono[i0]) * (at - i0);
    out[i] = static_cast<int16_t>(std::clamp(std::lround(v), -32768L, 32767L));
  }
  return out;
}

// ---- VoiceReader -----------------------------------------------------------

VoiceReader::VoiceReader(const QAudioFormat& format) : format_(format) {
  // Unbuffered: a read ahead would keep handing out the sound that a newer
  // one has already cut off.
  open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

void VoiceReader::Start(std::shared_ptr<const Samples> sound) {
  sound_ = std::move(sound);
  next_ = 0;
  since_start_.start();
  start_delay_ms_ = -1;
}

bool VoiceReader::Sounding() const { return sound_ && next_ < sound_->size(); }

qint64 VoiceReader::bytesAvailable() const {
  // Silence never runs out: a second's worth is always there.
  return format_.bytesForDuration(1000000) + QIODevice::bytesAvailable();
}

qint64 VoiceReader::readData(char* data, qint64 max_size) {
  const int frame = format_.bytesPerFrame();
  if (frame <= 0) return 0;
  const qint64 frames = max_size / frame;
  if (start_delay_ms_ < 0 && Sounding() && frames > 0) start_delay_ms_ = since_start_.elapsed();
  for (qint64 f = 0; f < frames; ++f) {
    const int16_t sample = Sounding() ? (*sound_)[next_++] : 0;
    WriteFrame(data + f * frame, format_, sample);
  }
  return frames * frame;
}

// ---- SoundVoice ------------------------------------------------------------

SoundVoice::SoundVoice(bool to_device) : reader_(VoiceFormat()), no_device_(!to_device) {
  idle_.setSingleShot(true);
  connect(&idle_, &QTimer::timeout, this, [this] { SuspendIfSilent(); });
  feed_.setTimerType(Qt::PreciseTimer);
  feed_.setInterval(kFeedMs);
  connect(&feed_, &QTimer::timeout, this, [this] { Feed(); });
}

SoundVoice::~SoundVoice() {
  if (sink_) sink_->stop();
}

void SoundVoice::Preload(const QString& path) { Load(path); }

void SoundVoice::Play(const QString& path) {
  ++plays_;
  const bool sounding = WakeSink();
  std::shared_ptr<const Samples> samples = Load(path);
  reader_.Start(samples);
  if (!sounding) return;
  Feed();
  const qint64 length_ms =
      samples ? static_cast<qint64>(samples->size()) * 1000 / reader_.format().sampleRate() : 0;
  idle_.start(static_cast<int>(length_ms) + kIdleMs);
}

bool SoundVoice::Suspended() const {
  return sink_ && sink_->state() == QAudio::SuspendedState;
}

std::shared_ptr<const Samples> SoundVoice::Load(const QString& path) {
  const QFileInfo info(path);
  if (!info.isFile()) return nullptr;
  const auto it = decoded_.constFind(path);
  if (it != decoded_.constEnd() && it->size == info.size() && it->modified == info.lastModified())
    return it->samples;

  Decoded entry;
  entry.size = info.size();
  entry.modified = info.lastModified();
  QFile file(path);
  if (entry.size > kLargestWave || !file.open(QIODevice::ReadOnly)) return nullptr;
  ++decodes_;
  if (std::optional<Samples> samples = DecodeWave(file.readAll(), reader_.format().sampleRate()))
    entry.samples = std::make_shared<const Samples>(std::move(*samples));
  decoded_.insert(path, entry);
  return entry.samples;
}

bool SoundVoice::WakeSink() {
  if (no_device_) return false;
  if (!sink_) {
    const QAudioDevice device = QMediaDevices::defaultAudioOutput();
    if (device.isNull()) {
      no_device_ = true;
      return false;
    }
    QAudioFormat format = reader_.format();
    if (!device.isFormatSupported(format)) {
      format = device.preferredFormat();
      reader_.SetFormat(format);
      decoded_.clear();  // decoded for the wrong rate
    }
    sink_ = std::make_unique<QAudioSink>(device, format);
    sink_->setBufferSize(format.bytesForDuration(kBufferMs * 1000));
  }
  if (sink_->state() == QAudio::SuspendedState) {
    sink_->resume();
  } else if (sink_->state() == QAudio::StoppedState) {
    out_ = sink_->start();
  }
  if (sink_->state() == QAudio::StoppedState) return false;
  if (!feed_.isActive()) feed_.start();
  return true;
}

// The sink's buffer is kept full from the reader. Qt's own pull mode hands
// the sink whole periods only, and stalls for good when the buffer the sound
// server grants is no whole number of periods; feeding it ourselves keeps
// the buffer, and so the delay before a new sound, as small as granted.
void SoundVoice::Feed() {
  if (!sink_ || !out_ || sink_->state() == QAudio::StoppedState ||
      sink_->state() == QAudio::SuspendedState)
    return;
  const int frame = reader_.format().bytesPerFrame();
  const qint64 free = sink_->bytesFree() / frame * frame;
  if (free <= 0) return;
  const qint64 queued = std::max<qint64>(sink_->bufferSize() - free, 0);
  const bool waiting = reader_.Sounding() && reader_.StartDelayMs() < 0;
  chunk_.resize(free);
  reader_.read(chunk_.data(), free);
  out_->write(chunk_.constData(), free);
  // The new sound's first sample waits behind what the sink still holds.
  if (waiting && reader_.StartDelayMs() >= 0)
    start_latency_ms_ = reader_.StartDelayMs() + reader_.format().durationForBytes(queued) / 1000;
}

void SoundVoice::SuspendIfSilent() {
  if (!sink_) return;
  if (reader_.Sounding()) {
    idle_.start(kIdleMs);
    return;
  }
  feed_.stop();
  if (sink_->state() == QAudio::ActiveState || sink_->state() == QAudio::IdleState) sink_->suspend();
}

}  // namespace nautrix
