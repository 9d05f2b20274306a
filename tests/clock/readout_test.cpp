// READOUT - the four digits, the colon and the marks, for times and scores.
#include "device/store_keys.h"
#include "tests/support/device_test.h"

namespace nautrix {
namespace {

class Readout : public DeviceTest {
 protected:
  // The four digit places as the readout shows them: '-' for unlit, else
  // the digit whose sprite the place shows.
  std::string Digits() const {
    std::string shown;
    for (Obj o : {HourDigit(0), HourDigit(1), MinuteDigit(0), MinuteDigit(1)}) {
      char c = '-';
      for (int d = 0; d <= 9; ++d) {
        if (Lit(o) && Shows(o, Number(d))) c = static_cast<char>('0' + d);
      }
      shown += c;
    }
    return shown;
  }
  std::string Marks() const {
    return std::string(Lit(Obj::am) ? "am" : "") + (Lit(Obj::pm) ? "pm" : "") +
           (Lit(Obj::Colon) ? ":" : "");
  }
};

// The hour has no leading zero, the colon is lit in even seconds, and the
// half of the day lights its mark; midnight and noon are 12:00.
TEST_F(Readout, Times) {
  Load();
  struct {
    const char* text;
    const char* digits;
    const char* marks;
  } const cases[] = {
      {"090507 AM", "-905", "am"},  {"100000 PM", "1000", "pm:"},
      {"120000 AM", "1200", "am:"}, {"120000 PM", "1200", "pm:"},
      {"015959 PM", "-159", "pm"},
  };
  for (const auto& c : cases) {
    form.ShowTime(c.text);
    EXPECT_EQ(Digits(), c.digits) << c.text;
    EXPECT_EQ(Marks(), c.marks) << c.text;
  }
}

// A score lights no leading zeros, keeps a zero inside the number, and puts
// out the colon and the marks; the next time lights the right mark again.
TEST_F(Readout, ScoresAndTheTimeAfterThem) {
  Load();
  form.ShowTime("101010 PM");
  struct {
    int score;
    const char* digits;
  } const cases[] = {{0, "---0"}, {5, "---5"}, {105, "-105"}, {100, "-100"},
                     {700, "-700"}, {70, "--70"}, {999, "-999"}};
  for (const auto& c : cases) {
    form.ShowScore(c.score);
    EXPECT_EQ(Digits(), c.digits) << c.score;
    EXPECT_EQ(Marks(), "") << c.score;
    EXPECT_TRUE(form.ScoreShown);
  }
  form.ShowTime("101011 PM");
  EXPECT_EQ(Marks(), "pm");
  form.ShowScore(3);
  form.ShowTime("111112 AM");
  EXPECT_EQ(Marks(), "am:");
  EXPECT_EQ(Digits(), "1111");
}

// The note follows the stored "Alarm On" at every time shown, whatever the
// alarm under edit says; a score leaves it alone.
TEST_F(Readout, TheNoteFollowsTheStore) {
  Load();
  form.AlarmArmed = true;
  form.ShowTime("120000 PM");
  EXPECT_FALSE(Lit(Obj::Note));
  fake.store[store::kAlarmOn] = "True";
  form.ShowScore(7);
  EXPECT_FALSE(Lit(Obj::Note));
  form.ShowTime("120000 PM");
  EXPECT_TRUE(Lit(Obj::Note));
  fake.store[store::kAlarmOn] = "maybe";  // junk reads as off
  form.ShowTime("120000 PM");
  EXPECT_FALSE(Lit(Obj::Note));
}

// The idle screen rewrites the time at every tick, but a score on the
// readout stands still.
TEST_F(Readout, TheIdleScreenKeepsTheTimeUnlessAScoreStands) {
  Load();
  fake.SetDeviceTime(21, 4, 2);
  Tick();
  EXPECT_EQ(Digits(), "-904");
  EXPECT_EQ(Marks(), "pm:");
  form.ShowScore(12);
  NextSecond();
  EXPECT_EQ(Digits(), "--12");
}

}  // namespace
}  // namespace nautrix
