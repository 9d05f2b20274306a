// WINDOW - the case drags the window, which stores its place at the end.
#include "tests/support/device_test.h"

namespace nautrix {
namespace {

using Window = Scene;

// The window follows the pointer's way in whole pixels (X and Y are twips
// from the pressed object's corner), and its place is stored at the release.
TEST_F(Window, TheCaseDragsTheWindowAndItsPlaceIsStoredAtTheEnd) {
  form.MouseDown(Obj::FrontCase, 1, 0, 150, 300);
  form.MouseMove(Obj::FrontCase, 1, 0, 180, 270);
  EXPECT_TRUE(fake.left == -15 && fake.top == -360 && fake.store_writes.empty());
  form.MouseUp(Obj::FrontCase, 1, 0, 180, 270);
  EXPECT_EQ(Joined(fake.store_writes), "Left=-15;Top=-360");
}

}  // namespace
}  // namespace nautrix
