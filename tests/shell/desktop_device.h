// The whole device loaded on the desktop's platform (offscreen, no audio)
// with its window and a store of its own, for the shell's tests and
// benchmarks. The store holds "Auto Show", so no leaflet opens at the load.
#pragma once

#include <QTemporaryDir>

#include "device/form1.h"
#include "shell/window/device_window.h"
#include "shell/window/qt_platform.h"
#include "tests/shell/qt_test_app.h"

namespace nautrix {

struct DesktopDevice {
  QTemporaryDir dir;
  ScopedStoreFolder folder{dir.path()};
  QtPlatform platform{false};
  Form1 form{platform};
  DeviceWindow window{form};

  void Load() {
    platform.Attach(form, window);
    Store(platform, "Auto Show", "False");
    form.Form_Load();
  }
};

}  // namespace nautrix
