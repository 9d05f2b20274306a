// The voice's way to the speakers: one playback stream on the desktop's
// audio server (PulseAudio, or PipeWire through its PulseAudio service),
// driven from the client library's own thread. The program's thread only
// hands over the newest sound, so a server that is missing, slow to answer,
// stalled or restarting never holds up the tick; the stream is opened just
// after the device's first frame and sleeps (corked) between sounds, so an
// idle device costs no wake-ups; and a server that goes away or comes late is
// reached again at the next sound, at most once a second, without a word.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <vector>

#include "shell/sound/wave_decoder.h"

struct pa_context;
struct pa_mainloop_api;
struct pa_stream;
struct pa_threaded_mainloop;

namespace nautrix {

struct PulseLibrary;
class VoiceReader;

class PulseOutput {
 public:
  // Loads the client library and starts reaching for the server at once, in
  // the background; null when the library is not installed. `reader` is read
  // from the library's thread under the output's lock from then on.
  static std::unique_ptr<PulseOutput> Open(VoiceReader& reader);
  ~PulseOutput();
  PulseOutput(const PulseOutput&) = delete;
  PulseOutput& operator=(const PulseOutput&) = delete;

  // Cuts off what sounds and starts `sound`; returns at once.
  void Start(std::shared_ptr<const Samples> sound);

 private:
  PulseOutput(VoiceReader& reader, const PulseLibrary& lib);

  // All below run on the library's thread, or under its lock.
  void Reach();
  void OpenStream();
  void Wake();
  void Write(size_t bytes, bool from_read_point);
  bool Ready() const;

  static void OnReach(pa_mainloop_api* api, void* self);
  static void OnContextState(pa_context* context, void* self);
  static void OnStreamState(pa_stream* stream, void* self);
  static void OnWrite(pa_stream* stream, size_t bytes, void* self);

  const PulseLibrary& lib_;
  VoiceReader& reader_;
  pa_threaded_mainloop* loop_ = nullptr;
  pa_context* context_ = nullptr;
  pa_stream* stream_ = nullptr;
  bool corked_ = true;
  bool reach_pending_ = false;
  size_t silent_ = 0;  // samples of silence handed over since the last sound
  std::chrono::steady_clock::time_point last_reach_{};
  std::vector<int16_t> chunk_;
};

}  // namespace nautrix
