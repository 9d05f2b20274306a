// The program's single voice. A new sound replaces whatever the voice is
// sounding (the newest wins), the call returns at once, and nothing the
// audio server does, missing, slow or restarting, ever holds up the tick.
#pragma once

#include <sys/stat.h>
#include <sys/types.h>

#include <QString>
#include <chrono>
#include <ctime>
#include <memory>
#include <string>
#include <unordered_map>

#include "shell/sound/wave_decoder.h"

namespace nautrix {

class PulseOutput;

// The voice's rate: mono 16-bit samples, this many a second.
constexpr int kVoiceRate = 44100;

// What the voice hands to the speakers: the current sound from its start,
// then silence for as long as it is asked.
class VoiceReader {
 public:
  // Cuts off what sounds and starts `sound` from its first sample; an empty
  // pointer is silence.
  void Start(std::shared_ptr<const Samples> sound);
  // The current sound has samples left to hand out.
  bool Sounding() const { return sound_ && next_ < sound_->size(); }
  // Hands out the next `count` samples.
  void Read(int16_t* out, size_t count);
  // Passes over the samples that would have sounded since the last Start, so
  // that a sound that reaches the speakers late still ends on its beat.
  void CatchUp();

 private:
  std::shared_ptr<const Samples> sound_;
  size_t next_ = 0;  // index of the next sample of sound_
  std::chrono::steady_clock::time_point started_;
};

class SoundVoice {
 public:
  // Without `to_device` the voice never reaches for an audio server, and
  // only whoever reads reader() hears it.
  explicit SoundVoice(bool to_device = true);
  // Opens the way to the speakers, once: loads the audio server's library and
  // starts reaching for the server in the background. The first sound opens
  // it if nothing did before.
  void OpenOutput();
  ~SoundVoice();
  SoundVoice(const SoundVoice&) = delete;
  SoundVoice& operator=(const SoundVoice&) = delete;

  // Decodes a file ahead of its first play.
  void Preload(const QString& path);
  // Starts the wave file at `path` at once, cutting off what sounds. A file
  // that is missing, no plain file, or undecodable gives silence.
  void Play(const QString& path);

  // The samples as the speakers would get them (only without a device).
  VoiceReader& reader() { return reader_; }

 private:
  struct Decoded {
    struct stat stamp = {};  // the file as decoded (shell/file_stamp.h)
    // The decode may have missed a change made in the same tick of the
    // file system's clock: the next play reads the file again.
    bool racy = false;
    std::shared_ptr<const Samples> samples;  // empty when undecodable
  };

  // The file's samples, decoded again whenever the file has changed.
  std::shared_ptr<const Samples> Load(const QString& path);

  VoiceReader reader_;  // read by the output's thread under its lock
  bool output_to_open_;  // a voice for the speakers whose output is not open yet
  std::unique_ptr<PulseOutput> output_;
  std::unordered_map<std::string, Decoded> decoded_;
};

}  // namespace nautrix
