// Start-up repairs the store key by key and sets the record's start values;
// shut-down removes the icon, stops the tick and writes nothing.
#include <algorithm>

#include "device/store_keys.h"
#include "tests/support/device_test.h"

namespace nautrix {
namespace {

using StartUp = DeviceTest;

const std::vector<std::string> kTwelveKeys = {
    "Alarm On",     "Alarm Time",        "Always on Top",     "Auto Show",
    "Diver Speed",  "Game A High Score", "Game A Speed",      "Game B High Score",
    "Game B Speed", "Left",              "Sound",             "Top"};

std::vector<std::string> Keys(const FakePlatform& fake) {
  std::vector<std::string> keys;
  for (const auto& [key, value] : fake.store) keys.push_back(key);
  return keys;
}

TEST_F(StartUp, FirstRunStoresTheTwelveDefaultsAndOpensTheInstructions) {
  fake.SetDeviceTime(14, 30, 42);
  form.Form_Load();

  EXPECT_EQ(Keys(fake), kTwelveKeys);
  EXPECT_EQ(fake.store["Sound"], "True");
  EXPECT_EQ(fake.store["Diver Speed"], "300");
  EXPECT_EQ(fake.store["Game A Speed"], "220");
  EXPECT_EQ(fake.store["Game B Speed"], "170");
  EXPECT_EQ(fake.store["Game A High Score"], "0");
  EXPECT_EQ(fake.store["Game B High Score"], "0");
  EXPECT_EQ(fake.store["Alarm Time"], "120000 PM");
  EXPECT_EQ(fake.store["Alarm On"], "False");
  EXPECT_EQ(fake.store["Always on Top"], "False");
  EXPECT_EQ(fake.store["Auto Show"], "True");
  // The window lands with its client area at the screen's corner, and the
  // position is stored as the window then reports it.
  EXPECT_EQ(fake.store["Left"], "-45");
  EXPECT_EQ(fake.store["Top"], "-330");
  EXPECT_EQ((fake.left + 45) / 15, 0);
  EXPECT_EQ((fake.top + 330) / 15, 0);

  EXPECT_EQ(fake.seed, 42);
  EXPECT_TRUE(form.mSound.Checked);
  EXPECT_TRUE(form.mAutoShow.Checked);
  EXPECT_FALSE(form.mAlwaysOnTop.Checked);
  const std::vector<std::string> expected_calls = {"NotTopmost", "Open Form4", "Form4 Topmost",
                                                   "AddTrayIcon"};
  EXPECT_EQ(fake.calls, expected_calls);
}

TEST_F(StartUp, TheStoreIsVisitedInItsOrder) {
  form.Form_Load();
  const std::vector<std::string> expected = {
      "Sound=True",        "Left=-45",          "Top=-330",           "Diver Speed=300",
      "Game A Speed=220",  "Game B Speed=170",  "Game A High Score=0", "Game B High Score=0",
      "Alarm Time=120000 PM", "Alarm On=False", "Always on Top=False", "Auto Show=True"};
  EXPECT_EQ(fake.store_writes, expected);
}

TEST_F(StartUp, AFullStoreIsReadAndNotRewritten) {
  FillDefaultStore(fake);
  fake.store["Sound"] = "False";
  fake.store["Always on Top"] = "True";
  fake.store["Auto Show"] = "False";
  fake.store["Left"] = "1455";
  fake.store["Top"] = "1170";
  form.Form_Load();

  EXPECT_TRUE(fake.store_writes.empty());
  EXPECT_FALSE(form.mSound.Checked);
  EXPECT_TRUE(form.mAlwaysOnTop.Checked);
  EXPECT_FALSE(form.mAutoShow.Checked);
  EXPECT_EQ(fake.left, 1455);
  EXPECT_EQ(fake.top, 1170);
  // A second start shows no instructions, whatever "Auto Show" holds.
  EXPECT_EQ(std::count(fake.calls.begin(), fake.calls.end(), "Open Form4"), 0);
  EXPECT_EQ(fake.calls.front(), "Topmost");
}

TEST_F(StartUp, SecondsIsDeletedAndEverythingElseKept) {
  FillDefaultStore(fake);
  fake.store["Seconds"] = "True";
  fake.store["Game A High Score"] = "417";
  form.Form_Load();
  EXPECT_FALSE(fake.Has("Seconds"));
  EXPECT_EQ(fake.store["Game A High Score"], "417");
  EXPECT_EQ(Keys(fake), kTwelveKeys);
  EXPECT_EQ(fake.store_writes, std::vector<std::string>{"-Seconds"});
}

TEST_F(StartUp, DeletedKeysAreRepairedOneByOne) {
  FillDefaultStore(fake);
  fake.store["Game B Speed"] = "99";
  fake.store.erase("Game A Speed");
  fake.store.erase("Top");
  fake.store.erase("Auto Show");
  form.Form_Load();
  EXPECT_EQ(fake.store["Game A Speed"], "220");
  EXPECT_EQ(fake.store["Game B Speed"], "99");
  EXPECT_EQ(fake.store["Top"], "-330");
  EXPECT_EQ(fake.store["Auto Show"], "True");
  // A missing "Auto Show" is a first run: the instructions open.
  EXPECT_NE(std::find(fake.calls.begin(), fake.calls.end(), "Open Form4"), fake.calls.end());
}

TEST_F(StartUp, AlarmTimeWithoutAlarmOnIsLeftSo) {
  FillDefaultStore(fake);
  fake.store["Alarm Time"] = "063000 AM";
  fake.store.erase("Alarm On");
  form.Form_Load();
  EXPECT_FALSE(fake.Has("Alarm On"));
  EXPECT_EQ(fake.store["Alarm Time"], "063000 AM");
}

TEST_F(StartUp, AKeyHoldingNotFoundCountsAsMissing) {
  FillDefaultStore(fake);
  fake.store["Diver Speed"] = "NotFound";
  form.Form_Load();
  EXPECT_EQ(fake.store["Diver Speed"], "300");
}

TEST_F(StartUp, TheRecordTakesItsStartValues) {
  // Values a previous life could have left: Form_Load must set these.
  form.PressedKey = 5;
  form.BoatWait = 3;
  form.TentacleLength[2] = 4;
  form.Playing = true;
  Load();

  EXPECT_EQ(form.PressedKey, kNoKey);
  EXPECT_EQ(form.BoatWait, 10);
  EXPECT_EQ(form.TentacleLength[2], 0);
  EXPECT_FALSE(form.Playing);
  const std::array<uint8_t, 6> max = {3, 4, 5, 4, 3, 0};
  EXPECT_EQ(form.TentacleMax, max);
  EXPECT_EQ(form.TentacleDown[5], 0);
  // Fields that Form_Load leaves alone keep their creation values.
  EXPECT_EQ(form.BoatBeats, 0);
  EXPECT_EQ(form.LastSecond, 0);
  EXPECT_EQ(form.EditTimeText, "");
  EXPECT_FALSE(form.AlarmArmed);
  EXPECT_EQ(form.Timer1Interval(), 50);

  // The back comes over the client area; the keys have their up pictures.
  const Rect back = form.ObjectRect(Obj::BackCase);
  EXPECT_EQ(back.left, 0);
  EXPECT_EQ(back.top, 0);
  EXPECT_FALSE(Lit(Obj::BackCase));
  EXPECT_TRUE(Shows(Obj::GameAButton, Button0(0)));
  EXPECT_TRUE(Shows(Obj::TimeButton, Button0(0)));
  EXPECT_TRUE(Shows(Obj::RightButton, Button1(0)));
  EXPECT_TRUE(Shows(Obj::ACLButton, Button2(0)));
  EXPECT_TRUE(Shows(Obj::Logo, TPLogo(0)));
  // The LCD shows what the form data shows: creature, chest, boat, spares.
  EXPECT_TRUE(Lit(Obj::DiverStep0) && Lit(Obj::Remainder0) && Lit(Obj::Remainder1));
  EXPECT_TRUE(Lit(Nautrix(0)) && Lit(Obj::Treasure));
  EXPECT_FALSE(Lit(Obj::am) || Lit(Obj::pm) || Lit(Obj::Colon));
}

TEST_F(StartUp, UnloadRemovesTheIconStopsTheTickAndSavesNothing) {
  Load();
  fake.calls.clear();
  fake.store_writes.clear();
  int cancel = 0;
  form.Form_Unload(cancel);
  EXPECT_EQ(fake.calls, (std::vector<std::string>{"RemoveTrayIcon", "Quit"}));
  EXPECT_EQ(fake.intervals.back(), 0);
  EXPECT_TRUE(fake.store_writes.empty());
  EXPECT_EQ(cancel, 0);
}

}  // namespace
}  // namespace nautrix
