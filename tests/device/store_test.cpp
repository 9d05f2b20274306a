// A hand-edited store never breaks the device: a value it cannot read as its
// key's type, or one out of the key's range, reads as the key's default.
#include "device/store_keys.h"
#include "device/text.h"
#include "tests/support/device_test.h"

namespace nautrix {
namespace {

using Store = DeviceTest;

TEST_F(Store, JunkNumbersReadAsTheKeysDefault) {
  FillDefaultStore(fake);
  const struct {
    const char* key;
    const char* stored;
    int read;
  } cases[] = {
      {"Game A Speed", "fast", 220},   {"Game A Speed", "-5", 220},
      {"Game A Speed", "0", 220},      {"Game A Speed", "99999999999", 220},
      {"Game A Speed", "442", 220},    {"Game A Speed", " 150 ", 150},
      {"Game B Speed", "12.5", 170},   {"Game B Speed", "441", 441},
      {"Diver Speed", "", 300},        {"Diver Speed", "1", 1},
      {"Game A High Score", "-1", 0},  {"Game A High Score", "1000", 0},
      {"Game B High Score", "abc", 0}, {"Game B High Score", "999", 999},
  };
  for (const auto& c : cases) {
    fake.store[c.key] = c.stored;
    EXPECT_EQ(form.SettingInt(c.key), c.read) << c.key << " = \"" << c.stored << "\"";
  }
}

TEST_F(Store, JunkBooleansAndTimesReadAsTheKeysDefault) {
  FillDefaultStore(fake);
  fake.store["Sound"] = "maybe";
  EXPECT_TRUE(form.SettingBool("Sound"));
  fake.store["Sound"] = "false";
  EXPECT_FALSE(form.SettingBool("Sound"));
  fake.store["Alarm On"] = "-1";
  EXPECT_TRUE(form.SettingBool("Alarm On"));
  fake.store["Alarm On"] = "";
  EXPECT_FALSE(form.SettingBool("Alarm On"));

  for (const char* junk : {"", "7", "130000 PM", "120000 XM", "126000 AM", "1200000AM", "ab0000 AM"}) {
    fake.store["Alarm Time"] = junk;
    EXPECT_EQ(form.SettingTimeText("Alarm Time"), "120000 PM") << junk;
  }
  fake.store["Alarm Time"] = "075900 AM";
  EXPECT_EQ(form.SettingTimeText("Alarm Time"), "075900 AM");
}

TEST_F(Store, AJunkPositionPlacesTheWindowAtTheFirstRunCorner) {
  FillDefaultStore(fake);
  fake.store["Left"] = "abc";
  fake.store["Top"] = "1e30";
  form.Form_Load();
  EXPECT_EQ(fake.left, -45);
  EXPECT_EQ(fake.top, -330);
  // The junk stays in the store until the program writes the key again.
  EXPECT_EQ(fake.store["Left"], "abc");
}

TEST_F(Store, APositionOffTheScreenIsTakenAsItStands) {
  FillDefaultStore(fake);
  fake.store["Left"] = "-3045";
  fake.store["Top"] = "29670";
  form.Form_Load();
  EXPECT_EQ(fake.left, -3045);
  EXPECT_EQ(fake.top, 29670);
}

TEST_F(Store, JunkOptionsLoadAsTheirDefaults) {
  FillDefaultStore(fake);
  fake.store["Sound"] = "loud";
  fake.store["Always on Top"] = "sometimes";
  fake.store["Auto Show"] = "";
  form.Form_Load();
  EXPECT_TRUE(form.mSound.Checked);
  EXPECT_FALSE(form.mAlwaysOnTop.Checked);
  EXPECT_TRUE(form.mAutoShow.Checked);
}

TEST(StoreText, NumbersAreWrittenAndReadWithoutTheLocale) {
  EXPECT_EQ(SingleText(-45.0f), "-45");
  EXPECT_EQ(SingleText(1234.5f), "1234.5");
  float value = 0;
  EXPECT_TRUE(ParseSingle("-44.5", value));
  EXPECT_EQ(value, -44.5f);
  EXPECT_FALSE(ParseSingle("-44,5", value));
  EXPECT_FALSE(ParseSingle("nan", value));
  int number = 0;
  EXPECT_TRUE(ParseInt("+12", number));
  EXPECT_EQ(number, 12);
  EXPECT_FALSE(ParseInt("1 2", number));
  EXPECT_EQ(DigitsValue("1x", 0, 3), 100);
}

}  // namespace
}  // namespace nautrix
