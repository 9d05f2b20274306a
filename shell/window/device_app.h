// The device on the desktop: its platform, the device itself and its window,
// brought up in the device's order.
#pragma once

#include "device/form1.h"
#include "shell/window/device_window.h"
#include "shell/window/qt_platform.h"

namespace nautrix {

struct DeviceApp {
  QtPlatform platform;
  Form1 form{platform};
  DeviceWindow window{form};

  // Form_Load places the window from the store before it is shown, and
  // Timer1 runs from then on. False when the load already ended the program.
  bool Start() {
    platform.Attach(form, window);
    form.Form_Load();
    if (platform.QuitRequested()) return false;
    window.AfterFirstFrame([this] { platform.FinishStart(); });
    window.show();
    platform.StartTimer1();
    return true;
  }
};

}  // namespace nautrix
