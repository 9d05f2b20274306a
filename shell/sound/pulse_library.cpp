#include "shell/sound/pulse_library.h"

#include <dlfcn.h>

namespace nautrix {
namespace {

const PulseLibrary* Load() {
  static PulseLibrary library;
  void* handle = dlopen("libpulse.so.0", RTLD_NOW | RTLD_LOCAL);
  if (!handle) return nullptr;
  bool complete = true;
#define NAUTRIX_PULSE_LOOKUP(name)                                              \
  library.name = reinterpret_cast<decltype(library.name)>(dlsym(handle, #name)); \
  complete = complete && library.name;
  NAUTRIX_PULSE_FUNCTIONS(NAUTRIX_PULSE_LOOKUP)
#undef NAUTRIX_PULSE_LOOKUP
  return complete ? &library : nullptr;
}

}  // namespace

const PulseLibrary* PulseLibrary::Get() {
  static const PulseLibrary* const library = Load();
  return library;
}

}  // namespace nautrix
