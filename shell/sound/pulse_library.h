// The audio server's client library, loaded when the voice first reaches for
// the server instead of with the program: it brings a dozen libraries of its
// own (sound file formats and their codecs) that would otherwise be loaded
// and relocated before the device's first frame. Without the library the
// device is silent and everything else works.
#pragma once

#include <pulse/pulseaudio.h>

namespace nautrix {

#define NAUTRIX_PULSE_FUNCTIONS(X)                                                         \
  X(pa_threaded_mainloop_new) X(pa_threaded_mainloop_set_name)                             \
  X(pa_threaded_mainloop_start) X(pa_threaded_mainloop_stop) X(pa_threaded_mainloop_free)  \
  X(pa_threaded_mainloop_lock) X(pa_threaded_mainloop_unlock)                              \
  X(pa_threaded_mainloop_get_api) X(pa_mainloop_api_once)                                  \
  X(pa_proplist_new) X(pa_proplist_sets) X(pa_proplist_free)                               \
  X(pa_context_new_with_proplist) X(pa_context_set_state_callback) X(pa_context_connect)   \
  X(pa_context_get_state) X(pa_context_disconnect) X(pa_context_unref)                     \
  X(pa_stream_new) X(pa_stream_set_state_callback) X(pa_stream_set_write_callback)         \
  X(pa_stream_connect_playback) X(pa_stream_get_state) X(pa_stream_get_buffer_attr)        \
  X(pa_stream_cork) X(pa_stream_write) X(pa_stream_disconnect) X(pa_stream_unref)          \
  X(pa_operation_unref) X(pa_usec_to_bytes)

struct PulseLibrary {
#define NAUTRIX_PULSE_POINTER(name) decltype(&::name) name = nullptr;
  NAUTRIX_PULSE_FUNCTIONS(NAUTRIX_PULSE_POINTER)
#undef NAUTRIX_PULSE_POINTER

  // The library, loaded at the first call and kept for the run; null when it
  // is not installed or lacks one of the functions above.
  static const PulseLibrary* Get();
};

}  // namespace nautrix
