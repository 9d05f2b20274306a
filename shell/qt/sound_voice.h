// The program's single voice. One long-lived audio sink is kept fed from a
// reader that hands out the current sound's samples and silence after them,
// so a new sound simply replaces the one that plays (the newest wins) and
// nothing ever waits for the audio device.
#pragma once

#include <QAudioFormat>
#include <QDateTime>
#include <QElapsedTimer>
#include <QHash>
#include <QIODevice>
#include <QObject>
#include <QString>
#include <QTimer>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

class QAudioSink;

namespace nautrix {

// A decoded sound: mono 16-bit samples at the voice's rate.
using Samples = std::vector<int16_t>;

// Decodes a RIFF wave file of 8- or 16-bit PCM, any channel count and rate,
// to mono at `rate` (linear interpolation). Nothing for anything else.
std::optional<Samples> DecodeWave(const QByteArray& bytes, int rate);

// What the sink pulls: the current sound from its start, then silence for as
// long as the sink asks. Samples are written in the sink's format.
class VoiceReader : public QIODevice {
 public:
  explicit VoiceReader(const QAudioFormat& format);

  // Cuts off what sounds and starts `sound` from its first sample; an empty
  // pointer is silence.
  void Start(std::shared_ptr<const Samples> sound);
  void SetFormat(const QAudioFormat& format) { format_ = format; }
  const QAudioFormat& format() const { return format_; }
  // The current sound has samples left to hand out.
  bool Sounding() const;
  // Milliseconds from the last Start to the read that handed out its first
  // sample, or -1 while that read has not come yet.
  qint64 StartDelayMs() const { return start_delay_ms_; }

  bool isSequential() const override { return true; }
  qint64 bytesAvailable() const override;

 protected:
  qint64 readData(char* data, qint64 max_size) override;
  qint64 writeData(const char*, qint64) override { return -1; }

 private:
  QAudioFormat format_;
  std::shared_ptr<const Samples> sound_;
  size_t next_ = 0;  // index of the next sample of sound_
  QElapsedTimer since_start_;
  qint64 start_delay_ms_ = -1;
};

class SoundVoice : public QObject {
 public:
  // Without `to_device` the voice never opens the audio device, and only
  // whoever reads reader() hears it.
  explicit SoundVoice(bool to_device = true);
  ~SoundVoice() override;

  // Decodes a file ahead of its first play.
  void Preload(const QString& path);
  // Starts the wave file at `path` at once, cutting off what sounds. A file
  // that is missing, a directory, or undecodable gives silence.
  void Play(const QString& path);

  VoiceReader& reader() { return reader_; }
  // The sink exists and is suspended for silence (false without a device).
  bool Suspended() const;
  // How many sounds have been started, and how many decodes were done.
  int plays() const { return plays_; }
  int decodes() const { return decodes_; }
  // Milliseconds from the last sound's start to its first sample leaving for
  // the speakers: the wait for the feed plus what the sink held before it.
  // -1 before any sound reached the sink.
  qint64 StartLatencyMs() const { return start_latency_ms_; }

 private:
  struct Decoded {
    qint64 size = -1;
    QDateTime modified;
    std::shared_ptr<const Samples> samples;  // empty when undecodable
  };

  // The file's samples, decoded again when its size or time has changed.
  std::shared_ptr<const Samples> Load(const QString& path);
  // Creates the sink at the first sound, or wakes it; false without audio.
  bool WakeSink();
  void Feed();
  void SuspendIfSilent();

  VoiceReader reader_;
  std::unique_ptr<QAudioSink> sink_;
  QIODevice* out_ = nullptr;  // the sink's side, written by Feed
  bool no_device_;
  QTimer feed_;  // tops the sink up while it is awake
  QTimer idle_;  // suspends the sink a while after the last sound ends
  QByteArray chunk_;
  qint64 start_latency_ms_ = -1;
  QHash<QString, Decoded> decoded_;
  int plays_ = 0;
  int decodes_ = 0;
};

}  // namespace nautrix
