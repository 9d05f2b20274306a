// DIALOGS - the rules of the options, the leaflet and the About window,
// played on the loaded device through a window that records what the rules
// asked of it.
#include "dialogs/form2.h"
#include "dialogs/form3.h"
#include "dialogs/form4.h"
#include "tests/support/device_test.h"

#include <functional>

namespace nautrix {
namespace {

class Dialogs : public Scene {
 protected:
  FakeWindow window;
  Form3 options{form, window};
  Form4 leaflet{form, window};
  Form2 about{form, window};
};

// The bar's value is the stored speed turned round: shown = value + 1,
// stored = 441 - value. A hand-edited speed beyond the scale stands at its
// nearest end and is stored from there; one that is no number is the default.
TEST_F(Dialogs, TheSpeedScaleBothWaysAndAtItsEnds) {
  // Stored, shown, and stored again by Apply.
  const char* const rows[][3] = {{"170", "Game B (272)", "170"}, {"441", "Game B (1)", "441"},
                                 {"1", "Game B (441)", "1"},     {"0", "Game B (441)", "1"},
                                 {"5000", "Game B (1)", "441"},  {"fast", "Game B (272)", "170"}};
  for (const auto& [stored, shown, written] : rows) {
    fake.store["Game B Speed"] = stored;
    Form3 dialog{form, window};
    dialog.Form_Load();
    dialog.Command3_Click();
    EXPECT_EQ(dialog.GameBSpeed.Caption + " " + fake.store["Game B Speed"],
              std::string(shown) + " " + written);
  }
}

// The load fills the controls from the store and the marks (the sound's
// mark, not the store, rules the sound), stacks by the mark, and leaves
// Apply off. Apply comes on at any change of a control, and goes off again
// at Apply; a dragged thumb renews its label all the way but turns Apply on
// only when let go elsewhere than it began.
TEST_F(Dialogs, TheLoadAndTheApplyCycle) {
  form.mSound.Checked = false;
  form.mAlwaysOnTop.Checked = true;
  fake.store["Always on Top"] = "False";
  fake.store["Game A Speed"] = "100";
  options.Form_Load();
  EXPECT_EQ(options.GameASpeed.Caption + options.DiverSpeed.Caption, "Game A (342)Diver (142)");
  EXPECT_TRUE(options.SoundOff.Value && options.Check1.Value && !options.Check2.Value);
  EXPECT_FALSE(options.Command3.Enabled);
  EXPECT_EQ(Joined(fake.calls) + " " + std::to_string(window.tabs), "Form3 Topmost 1");
  const std::function<void()> changes[] = {
      [&] { options.SetValue(options.HScroll1, 0); },
      [&] { options.SetValue(options.SoundOn, true); },
      [&] { options.SetValue(options.Check2, 1); },
      [&] { options.Command4_Click(); }};
  for (const auto& change : changes) {
    change();
    EXPECT_TRUE(options.Command3.Enabled);
    options.Command3_Click();
    EXPECT_FALSE(options.Command3.Enabled);
  }
  for (const bool moved : {true, false}) {  // let go elsewhere, then where it began
    options.DragThumb(options.HScroll2, 30);
    options.DragThumb(options.HScroll2, 20);
    EXPECT_EQ(options.GameBSpeed.Caption + (options.Command3.Enabled ? " on" : ""), "Game B (21)");
    options.ReleaseThumb(options.HScroll2);
    EXPECT_EQ(options.Command3.Enabled, moved);
    if (moved) options.Command3_Click();
  }
  EXPECT_EQ(fake.store["Game A Speed"] + " " + fake.store["Game B Speed"], "220 421");
}

// An Apply in a game changes the pace at once; in the demo's boat count it
// gives the idle screen the diver's pace, and the demo goes on by the clock.
TEST_F(Dialogs, ApplyInAGameAndInTheDemosBoatCount) {
  NextSecond(14);
  ASSERT_EQ(form.BoatBeats, 4);
  options.Form_Load();
  options.SetValue(options.HScroll3, 340);
  options.Command3_Click();
  EXPECT_EQ(form.Timer1Interval(), 101);
  NextSecond();
  EXPECT_EQ(form.BoatBeats, 3);
  Play(2);
  options.SetValue(options.HScroll2, 0);
  options.Command3_Click();
  EXPECT_EQ(form.Timer1Interval(), 441);
}

// The pages are a ring both ways; Home and End act only within it; every
// page but the cover carries its number. A click on the sheet turns on, a
// drag moves the sheet and turns nothing, the right button turns back.
TEST_F(Dialogs, ThePageRing) {
  leaflet.Form_Load();
  std::string pages;
  for (int key : {33, 13, 34, 39, 40, 37, 38, 8, 35, 35, 36, 36, 39, 39, 39, 36, 35, 65}) {
    leaflet.Form_KeyDown(key, 0);
    pages += std::to_string(leaflet.Picture1);
    pages += leaflet.Label1.Visible ? leaflet.Label1.Caption : "-";
  }
  EXPECT_EQ(pages, "991-22334433221-99991-1-2233441-9999");
  leaflet.Picture1_MouseDown(1, 0, 0, 0);
  leaflet.Picture1_MouseUp(1, 0, 0, 0);
  leaflet.Picture1_MouseDown(1, 0, 0, 0);
  leaflet.Picture1_MouseMove(1, 0, 150, 90);
  leaflet.Picture1_MouseUp(1, 0, 150, 90);
  leaflet.Picture1_MouseUp(2, 0, 0, 0);
  EXPECT_TRUE(leaflet.Picture1 == 9 && window.left == 3150 && window.top == 2090);
  leaflet.Form_KeyDown(27, 0);
  EXPECT_EQ(window.unloads, 1);
}

// Each link hands its target to the desktop at the release of any button.
TEST_F(Dialogs, TheLinks) {
  about.Form_Load();
  about.Email_MouseUp(2, 0, -9000, 0);
  about.Homepage_MouseUp(1, 0, 0, 0);
  about.Handbill_MouseUp(4, 0, 0, 0);
  EXPECT_EQ(Joined(fake.calls), "Form2 NotTopmost;OpenUrl mailto:" + about.Email.Caption +
                                    ";OpenUrl " + about.Homepage.Caption + ";OpenUrl " +
                                    about.Handbill.Caption);
  about.Command1_Click();
  EXPECT_EQ(window.unloads, 1);
}

}  // namespace
}  // namespace nautrix
