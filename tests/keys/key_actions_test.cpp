// What the keys do in each mode: the gates of a press, the game keys, and the
// alarm set from start to end by the pointer.
#include "tests/keys/key_scene.h"

namespace nautrix {
namespace {

using KeyActions = KeyScene;

TEST_F(KeyActions, GameAShowsItsBestWhileHeldAndStartsTheGameAtTheRelease) {
  fake.store[store::kGameAHighScore] = "315";
  Down(By::Pointer, Obj::GameAButton);
  EXPECT_FALSE(form.Playing);
  EXPECT_TRUE(Lit(GameType(0)));
  EXPECT_TRUE(Shows(HourDigit(1), Number(3)) && Shows(MinuteDigit(1), Number(5)));
  Up(By::Pointer, Obj::GameAButton);
  EXPECT_TRUE(form.Playing);
  EXPECT_EQ(form.Timer1Interval(), 220);
}

class IdleKey : public KeyScene, public ::testing::WithParamInterface<std::pair<Mode, Obj>> {};

TEST_P(IdleKey, ChangesNothingByEitherRoute) {
  const auto [mode, key] = GetParam();
  Enter(mode);
  const bool playing = form.Playing;
  const auto alarm = form.AlarmSetting, clock = form.ClockSetting, game = form.GameMode;
  const std::string edit = form.EditTimeText;
  for (By by : {By::Pointer, By::Keyboard}) Click(by, key);
  EXPECT_EQ(form.Playing, playing);
  EXPECT_EQ(form.GameMode, game);
  EXPECT_EQ(form.AlarmSetting, alarm);
  EXPECT_EQ(form.ClockSetting, clock);
  EXPECT_EQ(form.EditTimeText, edit);
  EXPECT_TRUE(fake.store_writes.empty());
}

INSTANTIATE_TEST_SUITE_P(
    KeyActions, IdleKey,
    ::testing::Values(std::pair{Mode::Idle, Obj::LeftButton}, std::pair{Mode::Idle, Obj::RightButton},
                      std::pair{Mode::AlarmSet, Obj::GameAButton},
                      std::pair{Mode::ClockSet, Obj::GameBButton},
                      std::pair{Mode::ClockSet, Obj::AlarmButton},
                      std::pair{Mode::Game, Obj::AlarmButton},
                      std::pair{Mode::Game, Obj::GameBButton}),
    [](const auto& info) {
      std::string name = std::string(Name(info.param.first)) + Info(info.param.second).name;
      return name;
    });

TEST_F(KeyActions, WhileTheBoatCountsAPressDoesNothingNotEvenTheMenu) {
  Enter(Mode::Game);
  form.BoatBeats = 2;
  Down(By::Pointer, Obj::LeftButton);
  form.MouseDown(Obj::RightButton, 2, 0, 0, 0);
  EXPECT_FALSE(IsDown(Obj::LeftButton));
  EXPECT_EQ(form.PressedKey, kNoKey);
  EXPECT_TRUE(fake.calls.empty());
  form.BoatBeats = 0;
  form.MouseDown(Obj::RightButton, 2, 0, 0, 0);
  EXPECT_EQ(fake.calls, std::vector<std::string>{"PopupMenu"});
}

TEST_F(KeyActions, APointerPressWhileTheKeyboardHoldsAKeyIsIgnored) {
  Down(By::Keyboard, Obj::TimeButton);
  Click(By::Pointer, Obj::GameAButton);
  EXPECT_FALSE(IsDown(Obj::GameAButton));
  EXPECT_FALSE(form.Playing);
  EXPECT_TRUE(IsDown(Obj::TimeButton));
}

TEST_F(KeyActions, TheAlarmIsSetArmedAndStoredByThePointer) {
  Down(By::Pointer, Obj::AlarmButton);  // the stored alarm, off
  EXPECT_EQ(form.AlarmSetting, 1);
  EXPECT_TRUE(Lit(Obj::BabyNautrix) && Lit(Obj::pm) && !Lit(Obj::Note));
  Up(By::Pointer, Obj::AlarmButton);
  EXPECT_EQ(form.AlarmSetting, 2);
  EXPECT_EQ(form.Timer1Interval(), 200);
  Click(By::Pointer, Obj::LeftButton);
  Click(By::Pointer, Obj::RightButton);
  EXPECT_EQ(form.EditTimeText, "010100 PM");
  Down(By::Pointer, Obj::AlarmButton);
  EXPECT_TRUE(Lit(Obj::Note));
  Up(By::Pointer, Obj::AlarmButton);
  EXPECT_EQ(fake.store_writes, std::vector<std::string>{"Alarm On=True"});
  Down(By::Pointer, Obj::TimeButton);  // the clock while held
  EXPECT_TRUE(Lit(Obj::am) && !Lit(Obj::BabyNautrix));
  Up(By::Pointer, Obj::TimeButton);
  EXPECT_EQ(fake.store[store::kAlarmTime], "010100 PM");
  EXPECT_EQ(form.AlarmSetting, 0);
  EXPECT_EQ(form.Timer1Interval(), 50);
}

TEST_F(KeyActions, TimeInGameOverShowsTheAlarmAndEndsTheMinuteWithTheMarkLit) {
  Enter(Mode::GameOver);
  Down(By::Pointer, Obj::TimeButton);
  EXPECT_TRUE(Lit(Obj::BabyNautrix));
  Up(By::Pointer, Obj::TimeButton);
  EXPECT_FALSE(form.Playing);
  EXPECT_TRUE(Lit(Obj::BabyNautrix));
  EXPECT_EQ(form.Timer1Interval(), 50);
}

}  // namespace
}  // namespace nautrix
