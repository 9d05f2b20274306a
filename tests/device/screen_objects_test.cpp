// An index past the end of the tentacles' or the diver steps' table names no
// object: a debug build stops there, and elsewhere showing it draws nothing,
// least of all the back of the case over the screen.
#include <gtest/gtest.h>

#include "tests/support/device_test.h"

namespace nautrix {
namespace {

using ScreenObjects = DeviceTest;

TEST_F(ScreenObjects, NoObjectPastTheEndOfAnArraysTable) {
  Load();
  const auto past_the_end = [&](Obj o) {
    EXPECT_EQ(o, Obj::Count);
    form.Show(o);
    form.CopyPicture(Diver(3), o);
    EXPECT_FALSE(Lit(Obj::BackCase));
  };
  EXPECT_DEBUG_DEATH(past_the_end(Tentacle(0, 3)), "past the objects");
  EXPECT_DEBUG_DEATH(past_the_end(Tentacle(5, 0)), "past the objects");
  EXPECT_DEBUG_DEATH(past_the_end(DiverStep(6)), "past the objects");
  EXPECT_DEBUG_DEATH(past_the_end(DiverStep(-1)), "past the objects");
}

}  // namespace
}  // namespace nautrix
