// SLIDES - a key held by the pointer behaves like a key under a finger: at
// each tick the key under the pointer is down, a key the pointer left comes
// up, and the release belongs to the key under the pointer at the last tick.
#include "tests/support/device_test.h"

namespace nautrix {
namespace {

class Slide : public Scene {
 protected:
  void SlideTo(Obj key) {
    MoveTo(Middle(key));
    Tick();
  }
  void SlideOff() {
    MoveTo({200, 180});  // on the case, over no key
    Tick();
  }
};

// Slid off, GAME A comes up, its high score leaves the readout, and the
// release starts nothing. Slid back on it reads its high score at every
// tick (another copy of the program may store one); slid on to GAME B it
// comes up for GAME B, and the release starts Game B.
TEST_F(Slide, TheGameKeys) {
  Down(By::Pointer, Obj::GameAButton);
  SlideOff();
  EXPECT_TRUE(form.PressedKey == kOffKeys && Readout() == "-900 am:");
  Up(By::Pointer, Obj::GameAButton);
  EXPECT_FALSE(form.Playing || IsDown(Obj::GameAButton));
  Down(By::Pointer, Obj::GameAButton);
  SlideOff();
  SlideTo(Obj::GameAButton);
  fake.store[store::kGameAHighScore] = "8";
  Tick();
  EXPECT_EQ(Readout(), "---8 ");
  fake.store[store::kGameBHighScore] = "42";
  SlideTo(Obj::GameBButton);
  EXPECT_TRUE(!IsDown(Obj::GameAButton) && IsDown(Obj::GameBButton) && Lit(GameType(1)));
  EXPECT_EQ(Readout(), "--42 ");
  Up(By::Pointer, Obj::GameAButton);
  EXPECT_EQ(form.GameMode, 2);
}

// Slid off, ALARM undoes the entry and the idle time returns; slid back on,
// the entry is made again, reloading the edit and the alarm's on state, and
// the release sets it at the setting's pace.
TEST_F(Slide, TheAlarmKey) {
  fake.store[store::kAlarmTime] = "063000 AM";
  fake.store[store::kAlarmOn] = "True";
  Down(By::Pointer, Obj::AlarmButton);
  EXPECT_EQ(Readout(), "-630 am:");
  SlideOff();
  EXPECT_EQ(Readout() + std::to_string(form.AlarmSetting) + (Lit(Obj::BabyNautrix) ? "b" : ""),
            "-900 am:0");
  form.AlarmArmed = false;
  SlideTo(Obj::AlarmButton);
  EXPECT_TRUE(form.EditTimeText == "063000 AM" && form.AlarmArmed);
  Up(By::Pointer, Obj::AlarmButton);
  EXPECT_TRUE(form.AlarmSetting == 2 && form.Timer1Interval() == 200);
}

// Where a key's rectangle and its object differ. GAME A's column 297 is the
// key's and not its object's: a press there reaches the case, a held key
// stays down. The round keys' outer edges are their objects' and not the
// keys': a press there is down until the next tick calls it off; their
// inner edges hold a held key down. ALARM's corner is both.
TEST_F(Slide, TheColumnsAndRowsWhereKeysAndObjectsDiffer) {
  Enter(Mode::ClockSet);
  const struct { Obj key; Point at; bool object, rectangle; } cases[] = {
      {Obj::GameAButton, {297, 28}, false, true},  {Obj::GameAButton, {298, 28}, false, false},
      {Obj::LeftButton, {37, 150}, true, false},   {Obj::LeftButton, {37, 126}, false, true},
      {Obj::RightButton, {295, 151}, true, false}, {Obj::RightButton, {283, 140}, true, false},
      {Obj::RightButton, {295, 126}, false, true}, {Obj::RightButton, {307, 140}, false, true},
      {Obj::AlarmButton, {315, 41}, true, true},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(form.ObjectAt(c.at.x, c.at.y) == c.key, c.object) << Info(c.key).name;
    PressAt(c.key, c.object ? c.at : Middle(c.key));
    MoveTo(c.at);
    Tick();
    EXPECT_EQ(IsDown(c.key), c.rectangle) << Info(c.key).name << " " << c.at.x << "," << c.at.y;
    SlideOff();
    Up(By::Pointer, c.key);
  }
  EXPECT_EQ(form.EditTimeText, "120000 AM");  // not a step made
}

}  // namespace
}  // namespace nautrix
