// START-UP - Form_Load repairs the store key by key, in a fixed order; a
// hand-edited store never breaks the device, as a value it cannot read as
// its key's type, or one out of the key's range, reads as the key's default.
#include <map>

#include "tests/support/device_test.h"

namespace nautrix {
namespace {

using StartUp = DeviceTest;

// Only the keys that are missing are written, in order; a key that holds
// "NotFound" counts as missing; "Alarm On" is repaired only together with
// "Alarm Time"; "Seconds" is deleted; a missing "Auto Show" is taken for a
// first run. Junk stays in the store and loads as the key's default (the
// sound on, the window not on top); a position off the screen is taken as
// it stands.
TEST_F(StartUp, AStoreIsRepairedKeyByKey) {
  const struct { std::map<std::string, const char*> edits; const char* writes, *calls, *place; }
  cases[] = {  // an edit of nullptr takes the key away; the calls before the tray icon
      {{}, "", "Topmost", "1455,29670"},
      {{{"Seconds", "True"}}, "-Seconds", "Topmost", "1455,29670"},
      {{{"Game A Speed", nullptr}, {"Top", nullptr}}, "Top=-330;Game A Speed=220", "Topmost",
       "1455,-330"},
      {{{"Diver Speed", "NotFound"}}, "Diver Speed=300", "Topmost", "1455,29670"},
      {{{"Alarm On", nullptr}}, "", "Topmost", "1455,29670"},
      {{{"Alarm Time", nullptr}}, "Alarm Time=120000 PM;Alarm On=False", "Topmost", "1455,29670"},
      {{{"Auto Show", nullptr}}, "Auto Show=True", "Topmost;Open Form4;Form4 Topmost",
       "1455,29670"},
      {{{"Sound", "loud"}, {"Always on Top", "sometimes"}, {"Auto Show", ""}, {"Left", "abc"},
        {"Top", "1e30"}}, "", "NotTopmost", "-45,-330"},
  };
  for (const auto& c : cases) {
    FakePlatform fake;
    fake.FillDefaultStore();
    for (const auto& [key, value] : {std::pair{"Always on Top", "True"}, {"Sound", "False"},
                                      {"Left", "1455"}, {"Top", "29670"}})
      fake.store[key] = value;
    for (const auto& [key, value] : c.edits) {
      if (value) fake.store[key] = value;
      else fake.store.erase(key);
    }
    Form1 form(fake);
    form.Form_Load();
    EXPECT_EQ(Joined(fake.store_writes), c.writes) << c.writes;
    EXPECT_EQ(Joined(fake.calls), std::string(c.calls) + ";AddTrayIcon") << c.writes;
    EXPECT_EQ(std::to_string(int(fake.left)) + "," + std::to_string(int(fake.top)), c.place);
    EXPECT_EQ(form.mSound.Checked, fake.store["Sound"] == "loud") << c.writes;
  }
}

TEST_F(StartUp, JunkNumbersTimesAndBooleansReadAsTheKeysDefault) {
  fake.FillDefaultStore();
  const struct { const char* key; const char* stored; int read; } numbers[] = {
      {"Game A Speed", "fast", 220},  {"Game A Speed", "0", 220},    {"Game A Speed", "442", 220},
      {"Game A Speed", " 150 ", 150}, {"Game B Speed", "12.5", 170}, {"Game B Speed", "441", 441},
      {"Diver Speed", "", 300},       {"Diver Speed", "1", 1},       {"Game A High Score", "-1", 0},
      {"Diver Speed", "99999999999", 300}, {"Game B High Score", "1000", 0},
      {"Game B High Score", "999", 999},
  };
  for (const auto& c : numbers) {
    fake.store[c.key] = c.stored;
    EXPECT_EQ(form.SettingInt(c.key), c.read) << c.key << " = \"" << c.stored << "\"";
  }
  // Junk, and last a time, which reads as it stands.
  for (const char* stored : {"", "7", "130000 PM", "120000 XM", "126000 AM", "075900 AM"}) {
    fake.store["Alarm Time"] = stored;
    EXPECT_EQ(form.SettingTimeText("Alarm Time"), stored[0] == '0' ? stored : "120000 PM");
  }
  fake.store["Alarm On"] = "-1";
  EXPECT_TRUE(form.SettingBool("Alarm On"));
}

}  // namespace
}  // namespace nautrix
