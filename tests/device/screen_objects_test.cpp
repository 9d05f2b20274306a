// The arrays' tables name each tentacle segment and diver step by its own
// object, and an index past their ends names none: a debug build stops
// there, and elsewhere showing it draws nothing.
#include <gtest/gtest.h>

#include <string>

#include "tests/support/device_test.h"

namespace nautrix {
namespace {

using ScreenObjects = DeviceTest;

TEST_F(ScreenObjects, ArrayTablesNameTheirOwnObjectsAndNothingPastTheirEnds) {
  const int kLengths[] = {3, 4, 5, 4, 3};
  for (int t = 0; t < 5; ++t) {
    for (int k = 0; k < kLengths[t]; ++k) {
      const std::string name = "Tentacle" + std::to_string(t) + "(" + std::to_string(k) + ")";
      EXPECT_EQ(Info(Tentacle(t, k)).name, name);
    }
  }
  for (int p = 0; p <= 5; ++p) {
    EXPECT_EQ(Info(DiverStep(p)).name, "DiverStep(" + std::to_string(p) + ")");
  }
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
