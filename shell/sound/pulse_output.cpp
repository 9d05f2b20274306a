#include "shell/sound/pulse_output.h"

#include "shell/sound/pulse_library.h"
#include "shell/sound/sound_voice.h"

namespace nautrix {
namespace {

// The stream's buffer: what plays after a new sound starts and before it is
// heard. Small enough that a beep lands on its beat, large enough that the
// server does not run dry between its requests.
constexpr int kBufferMs = 40;
constexpr int kRequestMs = 10;
// Silence after the last sound before the stream is put to sleep.
constexpr int kIdleMs = 1200;
// How often a missing server is looked for, while sounds are asked for.
constexpr auto kRetry = std::chrono::seconds(1);

constexpr pa_sample_spec kSpec = {PA_SAMPLE_S16NE, kVoiceRate, 1};

class Lock {
 public:
  Lock(const PulseLibrary& lib, pa_threaded_mainloop* loop) : lib_(lib), loop_(loop) {
    lib_.pa_threaded_mainloop_lock(loop_);
  }
  ~Lock() { lib_.pa_threaded_mainloop_unlock(loop_); }
  Lock(const Lock&) = delete;
  Lock& operator=(const Lock&) = delete;

 private:
  const PulseLibrary& lib_;
  pa_threaded_mainloop* loop_;
};

PulseOutput* Self(void* self) { return static_cast<PulseOutput*>(self); }

}  // namespace

std::unique_ptr<PulseOutput> PulseOutput::Open(VoiceReader& reader) {
  const PulseLibrary* lib = PulseLibrary::Get();
  if (!lib) return nullptr;
  return std::unique_ptr<PulseOutput>(new PulseOutput(reader, *lib));
}

PulseOutput::PulseOutput(VoiceReader& reader, const PulseLibrary& lib)
    : lib_(lib), reader_(reader) {
  loop_ = lib_.pa_threaded_mainloop_new();
  lib_.pa_threaded_mainloop_set_name(loop_, "nautrix-voice");
  lib_.pa_threaded_mainloop_start(loop_);
  Lock lock(lib_, loop_);
  reach_pending_ = true;
  lib_.pa_mainloop_api_once(lib_.pa_threaded_mainloop_get_api(loop_), &PulseOutput::OnReach, this);
}

PulseOutput::~PulseOutput() {
  lib_.pa_threaded_mainloop_stop(loop_);
  if (stream_) {
    lib_.pa_stream_disconnect(stream_);
    lib_.pa_stream_unref(stream_);
  }
  if (context_) {
    lib_.pa_context_disconnect(context_);
    lib_.pa_context_unref(context_);
  }
  lib_.pa_threaded_mainloop_free(loop_);
}

void PulseOutput::Start(std::shared_ptr<const Samples> sound) {
  Lock lock(lib_, loop_);
  reader_.Start(std::move(sound));
  if (Ready()) {
    Wake();
  } else if (!reach_pending_ && std::chrono::steady_clock::now() - last_reach_ >= kRetry) {
    // Connecting reads the client's configuration and may even ask the X
    // server where the audio server is: that work is the library thread's.
    reach_pending_ = true;
    lib_.pa_mainloop_api_once(lib_.pa_threaded_mainloop_get_api(loop_), &PulseOutput::OnReach,
                              this);
  }
}

bool PulseOutput::Ready() const {
  return stream_ && lib_.pa_stream_get_state(stream_) == PA_STREAM_READY;
}

// Opens what is missing: a new connection when there is none that works, a
// new stream on a working one.
void PulseOutput::Reach() {
  reach_pending_ = false;
  if (stream_ && PA_STREAM_IS_GOOD(lib_.pa_stream_get_state(stream_))) return;
  last_reach_ = std::chrono::steady_clock::now();
  if (context_) {
    const pa_context_state_t state = lib_.pa_context_get_state(context_);
    if (state == PA_CONTEXT_READY) return OpenStream();
    if (PA_CONTEXT_IS_GOOD(state)) return;  // still connecting
    if (stream_) lib_.pa_stream_unref(stream_);
    stream_ = nullptr;
    lib_.pa_context_unref(context_);
  }
  pa_proplist* properties = lib_.pa_proplist_new();
  lib_.pa_proplist_sets(properties, PA_PROP_APPLICATION_NAME, "Nautrix");
  lib_.pa_proplist_sets(properties, PA_PROP_APPLICATION_ID, "nautrix");
  lib_.pa_proplist_sets(properties, PA_PROP_MEDIA_ROLE, "game");
  context_ = lib_.pa_context_new_with_proplist(lib_.pa_threaded_mainloop_get_api(loop_), "Nautrix",
                                               properties);
  lib_.pa_proplist_free(properties);
  if (!context_) return;
  lib_.pa_context_set_state_callback(context_, &PulseOutput::OnContextState, this);
  // The program never starts an audio server of its own.
  lib_.pa_context_connect(context_, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr);
}

void PulseOutput::OpenStream() {
  if (stream_) lib_.pa_stream_unref(stream_);
  stream_ = lib_.pa_stream_new(context_, "Beeps", &kSpec, nullptr);
  if (!stream_) return;
  lib_.pa_stream_set_state_callback(stream_, &PulseOutput::OnStreamState, this);
  lib_.pa_stream_set_write_callback(stream_, &PulseOutput::OnWrite, this);
  pa_buffer_attr attr;
  attr.maxlength = static_cast<uint32_t>(-1);
  attr.tlength = static_cast<uint32_t>(lib_.pa_usec_to_bytes(kBufferMs * PA_USEC_PER_MSEC, &kSpec));
  attr.prebuf = 0;  // plays at once, and an empty buffer is silence, not a stop
  attr.minreq = static_cast<uint32_t>(lib_.pa_usec_to_bytes(kRequestMs * PA_USEC_PER_MSEC, &kSpec));
  attr.fragsize = static_cast<uint32_t>(-1);
  corked_ = true;
  lib_.pa_stream_connect_playback(
      stream_, nullptr, &attr,
      static_cast<pa_stream_flags_t>(PA_STREAM_ADJUST_LATENCY | PA_STREAM_START_CORKED), nullptr,
      nullptr);
}

// Wakes the stream and puts the current sound in place of whatever the
// server still holds, from the next sample it plays.
void PulseOutput::Wake() {
  silent_ = 0;
  if (corked_) {
    pa_operation* operation = lib_.pa_stream_cork(stream_, 0, nullptr, nullptr);
    if (operation) lib_.pa_operation_unref(operation);
    corked_ = false;
  }
  const pa_buffer_attr* attr = lib_.pa_stream_get_buffer_attr(stream_);
  Write(attr ? attr->tlength : 4096, true);
}

void PulseOutput::Write(size_t bytes, bool from_read_point) {
  const size_t count = bytes / sizeof(int16_t);
  if (count == 0) return;
  chunk_.resize(count);
  reader_.Read(chunk_.data(), count);
  lib_.pa_stream_write(stream_, chunk_.data(), count * sizeof(int16_t), nullptr, 0,
                       from_read_point ? PA_SEEK_RELATIVE_ON_READ : PA_SEEK_RELATIVE);
  silent_ = reader_.Sounding() ? 0 : silent_ + count;
  if (!corked_ && silent_ >= static_cast<size_t>(kVoiceRate) * kIdleMs / 1000) {
    pa_operation* operation = lib_.pa_stream_cork(stream_, 1, nullptr, nullptr);
    if (operation) lib_.pa_operation_unref(operation);
    corked_ = true;
  }
}

void PulseOutput::OnReach(pa_mainloop_api*, void* self) { Self(self)->Reach(); }

void PulseOutput::OnContextState(pa_context* context, void* self) {
  PulseOutput* output = Self(self);
  if (context == output->context_ && output->lib_.pa_context_get_state(context) == PA_CONTEXT_READY)
    output->OpenStream();
}

// A sound asked for while the stream was opening plays from where it would
// be by now.
void PulseOutput::OnStreamState(pa_stream* stream, void* self) {
  PulseOutput* output = Self(self);
  if (stream != output->stream_ || output->lib_.pa_stream_get_state(stream) != PA_STREAM_READY)
    return;
  if (!output->reader_.Sounding()) return;
  output->reader_.CatchUp();
  output->Wake();
}

void PulseOutput::OnWrite(pa_stream* stream, size_t bytes, void* self) {
  PulseOutput* output = Self(self);
  if (stream == output->stream_) output->Write(bytes, false);
}

}  // namespace nautrix
