// READOUT AND CLOCK SETTING - the four digits, the colon and the marks for
// times and scores; the left key steps the hour through both halves of the
// day, the right key the minute without carry, a held key repeats after
// three ticks of the 200 ms setting pace, and TIME writes the edit to the
// device clock.
#include "tests/support/device_test.h"

namespace nautrix {
namespace {

using LcdReadout = Scene;

// The hour has no leading zero, the colon is lit in even seconds, and the
// half of the day lights its mark; midnight and noon are 12:00. A score
// lights no leading zeros, keeps a zero inside the number, and puts out the
// colon and the marks; the next time lights the right mark again. The text
// read back from the segments says the same in words, colon or not.
TEST_F(LcdReadout, TimesAndScores) {
  const char* const cases[][3] = {
      {"090507 AM", "-905 am", "9:05 AM"},  {"100000 PM", "1000 pm:", "10:00 PM"},
      {"120000 AM", "1200 am:", "12:00 AM"}, {"0", "---0 ", "0"},   {"105", "-105 ", "105"},
      {"120000 PM", "1200 pm:", "12:00 PM"}, {"70", "--70 ", "70"}, {"700", "-700 ", "700"},
      {"111112 AM", "1111 am:", "11:11 AM"}};
  for (const auto& [text, shown, words] : cases) {
    const bool score = std::string(text).size() <= 3;
    score ? form.ShowScore(std::stoi(text)) : form.ShowTime(text);
    EXPECT_EQ(Readout(), shown) << text;
    EXPECT_EQ(form.ReadoutText(), words) << text;
    EXPECT_TRUE(form.ScoreShown || !score);
  }
}

using ClockSetting = Scene;

TEST_F(ClockSetting, TheHourGoesRoundBothHalvesAndTheHalfTurnsAtTwelve) {
  Enter(Mode::ClockSet);
  std::string hours;
  for (int i = 0; i < 24; ++i) {
    Click(By::Keyboard, Obj::LeftButton);
    hours += Readout().substr(0, 2) + Readout().substr(5) + " ";
  }
  EXPECT_EQ(hours,
            "-1am: -2am: -3am: -4am: -5am: -6am: -7am: -8am: -9am: 10am: 11am: 12pm: "
            "-1pm: -2pm: -3pm: -4pm: -5pm: -6pm: -7pm: -8pm: -9pm: 10pm: 11pm: 12am: ");
}

// Each step of the minute moves the demo a step; 59 is followed by 00 of
// the same hour. TIME held shows the stored alarm, and its release writes
// the edit, not what the readout showed.
TEST_F(ClockSetting, TheMinuteWrapsWithoutCarryAndTimeWritesTheEdit) {
  Enter(Mode::ClockSet);
  form.EditTimeText = "115800 PM";
  std::string steps;  // the edit and the demo diver's place after each step
  for (int i = 0; i < 3; ++i) {
    Click(By::Pointer, Obj::RightButton);
    steps += form.EditTimeText + " " + std::to_string(form.DiverPos) + ";";
  }
  Tick(5);  // no step, no scene
  EXPECT_EQ(steps + std::to_string(form.DiverPos), "115900 PM 1;110000 PM 2;110100 PM 3;3");
  Down(By::Pointer, Obj::TimeButton);
  EXPECT_TRUE(Readout() == "1200 pm:" && Lit(Obj::BabyNautrix));  // the stored alarm
  Up(By::Pointer, Obj::TimeButton);
  EXPECT_EQ(Joined(fake.calls), "SetTimeOfDay 11:01:00 PM");
  EXPECT_TRUE(form.ClockSetting == 0 && form.Timer1Interval() == 50);
  Tick();
  EXPECT_EQ(Readout(), "1101 pm:");
}

// By pointer a step comes at the release, by keyboard at the press; the
// held key then steps at every tick from its fourth on: the right key the
// minute, the left key the hour.
TEST_F(ClockSetting, AHeldKeyStepsFromItsFourthTickOnByEitherRoute) {
  Enter(Mode::ClockSet);
  ASSERT_EQ(form.Timer1Interval(), 200);
  for (By by : {By::Pointer, By::Keyboard}) {
    const Obj key = by == By::Pointer ? Obj::RightButton : Obj::LeftButton;
    const int digit = by == By::Pointer ? 3 : 1;
    form.EditTimeText = "120000 AM";
    std::string steps;
    Down(by, key);
    steps += form.EditTimeText[digit];
    for (int i = 0; i < 6; ++i) {
      Tick();
      steps += form.EditTimeText[digit];
    }
    Up(by, key);
    steps += form.EditTimeText[digit];
    EXPECT_EQ(steps, by == By::Pointer ? "00001234" : "11112344") << Name(by);
  }
}

}  // namespace
}  // namespace nautrix
