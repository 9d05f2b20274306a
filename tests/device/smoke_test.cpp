#include "tests/support/device_test.h"

namespace nautrix {
TEST_F(DeviceTest, LoadsFromAFullStore) { Load(); Tick(3); }
}
