// ACL, released in any mode by either route, forgets the high scores and the
// alarm and leaves the device setting its clock from midnight. The pointer
// also sets the clock to midnight at once, clears the score from the readout
// and, out of a game, keeps the game's pace.
#include <algorithm>

#include "tests/keys/key_scene.h"

namespace nautrix {
namespace {

class AclReset : public KeyScene,
                 public ::testing::WithParamInterface<std::tuple<By, Mode>> {};

TEST_P(AclReset, ErasesTheMemoriesAndEntersTheClockSetting) {
  const auto [by, mode] = GetParam();
  const bool from_a_game = mode == Mode::Game || mode == Mode::GameOver;
  fake.store[store::kGameAHighScore] = "75";
  fake.store[store::kGameBHighScore] = "120";
  fake.store[store::kAlarmTime] = "063000 AM";
  fake.store[store::kAlarmOn] = "True";
  fake.store[store::kDiverSpeed] = "280";
  Enter(mode);
  Down(by, Obj::ACLButton);
  EXPECT_TRUE(Lit(Obj::ResetScreen));
  Up(by, Obj::ACLButton);

  EXPECT_EQ(fake.store_writes, (std::vector<std::string>{"Game A High Score=0",
                                                         "Game B High Score=0",
                                                         "Alarm Time=120000 PM",
                                                         "Alarm On=False"}));
  EXPECT_FALSE(Lit(Obj::ResetScreen));
  EXPECT_FALSE(form.Playing);
  EXPECT_EQ(form.ClockSetting, 1);
  EXPECT_EQ(form.AlarmSetting, 0);
  EXPECT_EQ(form.EditTimeText, "120000 AM");
  EXPECT_TRUE(Lit(Obj::am) && !Lit(Obj::Note) && !Lit(Obj::BabyNautrix));
  EXPECT_EQ(form.GameMode, from_a_game ? 1 : 0);
  const bool clock_written =
      std::count(fake.calls.begin(), fake.calls.end(), "SetTimeOfDay 12:00:00 AM") == 1;
  EXPECT_EQ(clock_written, by == By::Pointer);
  EXPECT_EQ(form.Now().hour, by == By::Pointer ? 0 : 9);
  EXPECT_EQ(form.Timer1Interval(), by == By::Pointer && from_a_game ? 220 : 200);
  EXPECT_EQ(form.ScoreShown, by == By::Keyboard && from_a_game);
}

INSTANTIATE_TEST_SUITE_P(
    EveryMode, AclReset,
    ::testing::Combine(::testing::Values(By::Pointer, By::Keyboard),
                       ::testing::Values(Mode::Idle, Mode::Game, Mode::GameOver, Mode::AlarmSet,
                                         Mode::ClockSet)),
    [](const auto& info) {
      return std::string(Name(std::get<0>(info.param))) + Name(std::get<1>(info.param));
    });

TEST(AclResetRinging, EndsAnyRingingAndClearsTheSilence) {
  FakePlatform fake;
  FillDefaultStore(fake);
  fake.store[store::kAlarmOn] = "True";
  fake.SetDeviceTime(12, 0, 1);
  Form1 form(fake);
  form.Form_Load();
  form.Timer1_Timer();
  ASSERT_TRUE(form.AlarmRinging);
  form.Form_KeyDown(82, 0);
  form.Form_KeyUp(82, 0);
  EXPECT_FALSE(form.AlarmRinging || form.RingingSilenced);
  EXPECT_FALSE(form.IsVisible(Obj::BabyNautrix));
}

}  // namespace
}  // namespace nautrix
