// The fixture of the shell's tests that need the whole device: the device
// loaded on the desktop's platform (offscreen, no audio) with its window and
// a store of its own. The store holds "Auto Show" (False), so no leaflet
// opens at the load.
#pragma once

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "device/form1.h"
#include "shell/qt/device_window.h"
#include "shell/qt/qt_platform.h"
#include "tests/shell/qt/qt_test_app.h"

namespace nautrix {

class DesktopTest : public ::testing::Test {
 protected:
  QTemporaryDir dir;
  ScopedStoreFolder folder{dir.path()};
  QtPlatform platform{false};
  Form1 form{platform};
  DeviceWindow window{form};

  void SetUp() override {
    platform.Attach(form, window);
    platform.SaveSetting(kStoreApp, kStoreSection, "Auto Show", "False");
    form.Form_Load();
  }
};

}  // namespace nautrix
