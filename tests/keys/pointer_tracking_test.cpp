// A key held by the pointer behaves like a key under a finger: at each tick
// the key under the pointer is down, a key the pointer left comes up, and the
// release belongs to the key under the pointer at the last tick.
#include "tests/keys/key_scene.h"

namespace nautrix {
namespace {

using PointerTracking = KeyScene;

TEST_F(PointerTracking, GameAHeldAndSlidOntoGameBStartsGameB) {
  fake.store[store::kGameBHighScore] = "42";
  Down(By::Pointer, Obj::GameAButton);
  MoveTo(Middle(Obj::GameBButton));
  Tick();
  EXPECT_FALSE(IsDown(Obj::GameAButton));
  EXPECT_TRUE(IsDown(Obj::GameBButton));
  EXPECT_TRUE(Lit(GameType(1)));
  EXPECT_FALSE(Lit(GameType(0)));
  EXPECT_TRUE(Shows(MinuteDigit(0), Number(4)));
  Up(By::Pointer, Obj::GameAButton);
  EXPECT_TRUE(form.Playing);
  EXPECT_EQ(form.GameMode, 2);
}

TEST_F(PointerTracking, GameASlidOffStartsNothingAndSlidBackOnStartsTheGame) {
  Down(By::Pointer, Obj::GameAButton);
  MoveOff();
  Tick();
  EXPECT_FALSE(IsDown(Obj::GameAButton));
  EXPECT_FALSE(form.ScoreShown);
  EXPECT_EQ(form.PressedKey, kOffKeys);
  Up(By::Pointer, Obj::GameAButton);
  EXPECT_FALSE(form.Playing);

  Down(By::Pointer, Obj::GameAButton);
  MoveOff();
  Tick();
  MoveTo(Middle(Obj::GameAButton));
  Tick();
  EXPECT_TRUE(IsDown(Obj::GameAButton));
  EXPECT_TRUE(form.ScoreShown);
  Up(By::Pointer, Obj::GameAButton);
  EXPECT_TRUE(form.Playing);
}

TEST_F(PointerTracking, AHeldGameKeyReadsItsHighScoreAtEveryTick) {
  Down(By::Pointer, Obj::GameAButton);
  fake.store[store::kGameAHighScore] = "8";  // a second copy of the program stored a best
  Tick();
  EXPECT_TRUE(Shows(MinuteDigit(1), Number(8)));
}

TEST_F(PointerTracking, AlarmSlidOffUndoesTheEntryAndSlidBackOnEntersAgain) {
  fake.store[store::kAlarmTime] = "063000 AM";
  fake.store[store::kAlarmOn] = "True";
  Down(By::Pointer, Obj::AlarmButton);
  EXPECT_EQ(form.AlarmSetting, 1);
  EXPECT_TRUE(Shows(HourDigit(1), Number(6)));
  MoveOff();
  Tick();
  EXPECT_EQ(form.AlarmSetting, 0);
  EXPECT_FALSE(Lit(Obj::BabyNautrix));
  EXPECT_TRUE(Shows(HourDigit(1), Number(9)));  // the time again
  form.EditTimeText.clear();
  form.AlarmArmed = false;
  MoveTo(Middle(Obj::AlarmButton));
  Tick();
  EXPECT_EQ(form.AlarmSetting, 1);
  EXPECT_EQ(form.EditTimeText, "063000 AM");
  EXPECT_TRUE(form.AlarmArmed);
  Up(By::Pointer, Obj::AlarmButton);
  EXPECT_EQ(form.AlarmSetting, 2);
}

TEST_F(PointerTracking, InAlarmSetTheSlideOffUndoesTheToggleAndTheReleaseStoresNothing) {
  Enter(Mode::AlarmSet);
  Down(By::Pointer, Obj::AlarmButton);
  EXPECT_TRUE(Lit(Obj::Note));
  MoveOff();
  Tick();
  EXPECT_FALSE(form.AlarmArmed);
  EXPECT_FALSE(Lit(Obj::Note));
  Up(By::Pointer, Obj::AlarmButton);
  EXPECT_TRUE(fake.store_writes.empty());
  Down(By::Pointer, Obj::AlarmButton);
  Tick();
  Up(By::Pointer, Obj::AlarmButton);
  EXPECT_EQ(fake.store[store::kAlarmOn], "True");
}

TEST_F(PointerTracking, AclSlidOffCallsTheResetOff) {
  Down(By::Pointer, Obj::ACLButton);
  EXPECT_TRUE(Lit(Obj::ResetScreen));
  MoveOff();
  Tick();
  EXPECT_FALSE(Lit(Obj::ResetScreen));
  Up(By::Pointer, Obj::ACLButton);
  EXPECT_TRUE(fake.store_writes.empty());
  EXPECT_EQ(form.ClockSetting, 0);
}

TEST_F(PointerTracking, ARightKeySlidOffInAGameCancelsTheDiversStep) {
  Enter(Mode::Game);
  Down(By::Pointer, Obj::RightButton);
  MoveOff();
  Tick();
  Up(By::Pointer, Obj::RightButton);
  EXPECT_EQ(form.DiverPos, 0);
}

TEST_F(PointerTracking, TheUpperKeysReachOneColumnRightOfTheirObjects) {
  EXPECT_EQ(form.ObjectAt(297, 28), Obj::FrontCase);  // a press there misses GAME A
  Down(By::Pointer, Obj::GameAButton);
  MoveTo({297, 28});
  Tick();
  EXPECT_EQ(form.PressedKey, kGameAKey);
  EXPECT_TRUE(IsDown(Obj::GameAButton));
  MoveTo({298, 28});
  Tick();
  EXPECT_FALSE(IsDown(Obj::GameAButton));
}

TEST_F(PointerTracking, APressOnTheRoundKeysOuterEdgeIsCalledOffAtTheNextTick) {
  Enter(Mode::ClockSet);
  const std::pair<Obj, Point> edges[] = {{Obj::LeftButton, {37, 150}},
                                         {Obj::RightButton, {295, 150}},
                                         {Obj::RightButton, {295, 151}},
                                         {Obj::RightButton, {283, 140}}};
  for (const auto& [key, at] : edges) {
    EXPECT_EQ(form.ObjectAt(at.x, at.y), key);
    PressAt(key, at);
    EXPECT_TRUE(IsDown(key));
    Tick();
    EXPECT_FALSE(IsDown(key));
    EXPECT_EQ(form.PressedKey, kOffKeys);
    Up(By::Pointer, key);
  }
  EXPECT_EQ(form.EditTimeText, "120000 AM");  // not a step made
}

TEST_F(PointerTracking, AHeldRoundKeyStaysDownBeyondItsObject) {
  Down(By::Pointer, Obj::RightButton);
  for (const Point at : {Point{295, 126}, Point{295, 127}, Point{307, 140}}) {
    MoveTo(at);
    Tick();
    EXPECT_TRUE(IsDown(Obj::RightButton)) << at.x << "," << at.y;
  }
  MoveTo({308, 140});
  Tick();
  EXPECT_FALSE(IsDown(Obj::RightButton));
}

}  // namespace
}  // namespace nautrix
