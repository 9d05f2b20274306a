// The fixture of the shell's tests that need the whole device loaded on the
// desktop's platform.
#pragma once

#include <gtest/gtest.h>

#include "tests/shell/qt/desktop_device.h"

namespace nautrix {

class DesktopTest : public ::testing::Test, protected DesktopDevice {
 protected:
  void SetUp() override { Load(); }
};

}  // namespace nautrix
