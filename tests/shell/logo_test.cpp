// WINDOW - the case drags the window; the family logo on the case lights
// under a hovering pointer and while held, a click opens About, a press slid
// off and released elsewhere opens nothing, and sliding back on before the
// release opens it again.
#include "tests/support/device_test.h"

namespace nautrix {
namespace {

using Logo = Scene;

// The window follows the pointer's way in whole pixels (X and Y are twips
// from the pressed object's corner), and its place is stored at the release.
TEST_F(Logo, TheCaseDragsTheWindowAndItsPlaceIsStoredAtTheEnd) {
  form.MouseDown(Obj::FrontCase, 1, 0, 150, 300);
  form.MouseMove(Obj::FrontCase, 1, 0, 180, 270);
  EXPECT_TRUE(fake.left == -15 && fake.top == -360 && fake.store_writes.empty());
  form.MouseUp(Obj::FrontCase, 1, 0, 180, 270);
  EXPECT_EQ(Joined(fake.store_writes), "Left=-15;Top=-360");
}

TEST_F(Logo, AClickOpensAboutAndAPressSlidOffOpensNothing) {
  auto look = [this] { return Shows(Obj::Logo, TPLogo(1)) ? "lit" : "dark"; };
  form.Logo_MouseMove(0, 0, 0, 0);
  EXPECT_STREQ(look(), "lit");
  form.MouseMove(Obj::FrontCase, 0, 0, 0, 0);  // the hover ends on the case
  EXPECT_STREQ(look(), "dark");
  for (const Point release : {Point{30, 40}, Point{200, 180}}) {
    MoveTo({30, 40});
    form.MouseDown(Obj::Logo, 1, 0, 0, 0);
    EXPECT_EQ(form.PressedKey, kLogoKey);
    MoveOff();
    Tick();
    EXPECT_EQ(std::string(look()) + std::to_string(form.PressedKey), "dark0");
    MoveTo(release);
    Tick();
    EXPECT_STREQ(look(), release.x == 30 ? "lit" : "dark");
    form.MouseUp(Obj::Logo, 1, 0, 0, 0);
    EXPECT_STREQ(look(), "dark");
  }
  EXPECT_EQ(Joined(fake.calls), "Open Form2");
}

}  // namespace
}  // namespace nautrix
