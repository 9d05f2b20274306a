// The settings store on the desktop: every write and delete is in the file
// the moment it is made, values come back as the device wrote them, junk
// edited in by hand reads as plain text, and a store that cannot be written
// never stops the device.
#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "device/form1.h"
#include "device/store_keys.h"
#include "shell/qt/device_window.h"
#include "shell/qt/qt_platform.h"
#include "tests/shell/qt/qt_test_app.h"

namespace nautrix {
namespace {

std::string Get(QtPlatform& platform, const char* key) {
  return platform.GetSetting(kStoreApp, kStoreSection, key, store::kNotFound);
}

// A first run on a fresh account: the configuration folder is made, an
// abrupt end after any write or delete loses nothing, and the run reads back
// every value as it was written.
TEST(Store, EveryWriteAndDeleteIsOnDiskAtOnce) {
  QTemporaryDir dir;
  ScopedStoreFolder folder(dir.path() + "/home/.config");
  const QString file = dir.path() + "/home/.config/Tickplay Simulator.ini";
  QtPlatform platform(false);
  const std::pair<const char*, const char*> kValues[] = {
      {"Sound", "True"}, {"Always on Top", "False"}, {"Left", "-45"}, {"Top", "1234.5"},
      {"Game A Speed", "220"}, {"Alarm Time", "120000 PM"}, {"Auto Show", "NotFound"}};
  for (const auto& [key, value] : kValues) {
    platform.SaveSetting(kStoreApp, kStoreSection, key, value);
    const QString line = QString(key).replace(' ', "%20") + "=" + value;
    EXPECT_TRUE(FileText(file).contains(line.toUtf8())) << line.toStdString();
  }
  EXPECT_TRUE(FileText(file).startsWith("[Nautrix]\n")) << FileText(file).constData();
  platform.DeleteSetting(kStoreApp, kStoreSection, "Sound");
  EXPECT_FALSE(FileText(file).contains("Sound"));
  EXPECT_EQ(Get(platform, "Sound"), "NotFound");
  for (const auto& [key, value] : kValues) {
    if (key != std::string("Sound")) {
      EXPECT_EQ(Get(platform, key), value) << key;
    }
  }
}

// Comma lists, quotes and the store's own type markers edited in by hand
// read as plain text; the device then turns what it cannot use into the
// key's default and starts as usual.
TEST(Store, HandEditedJunkReadsAsTextAndTheDeviceStarts) {
  QTemporaryDir dir;
  ScopedStoreFolder folder(dir.path());
  WriteFile(dir.path() + "/Tickplay Simulator.ini",
            "[Nautrix]\nLeft=1, 2\nTop=\"-330\"\nGame%20A%20Speed=fast\n"
            "Game%20B%20Speed=@Rect(1 2 3 4)\nDiver%20Speed=\nSound=yes\n");
  QtPlatform platform(false);
  const std::pair<const char*, const char*> kReads[] = {
      {"Left", "1, 2"}, {"Top", "-330"}, {"Game A Speed", "fast"}, {"Game B Speed", ""},
      {"Diver Speed", ""}, {"Sound", "yes"}};
  for (const auto& [key, text] : kReads) EXPECT_EQ(Get(platform, key), text) << key;
  Form1 form(platform);
  DeviceWindow window(form);
  platform.Attach(form, window);
  form.Form_Load();
  EXPECT_EQ(form.SettingInt(store::kGameBSpeed), 170);
  EXPECT_EQ(window.ClientPos(), QPoint(0, 0));  // the default Left, the readable Top
}

// A configuration folder that cannot be made: writes fail quietly, the run
// goes on with what it wrote in memory, and nothing waits for a lock.
TEST(Store, AStoreThatCannotBeWrittenStillServesTheRun) {
  QTemporaryDir dir;
  WriteFile(dir.path() + "/not-a-folder", "");
  ScopedStoreFolder folder(dir.path() + "/not-a-folder/config");
  QtPlatform platform(false);
  Form1 form(platform);
  DeviceWindow window(form);
  platform.Attach(form, window);
  form.Form_Load();  // a first run: every key is written
  EXPECT_EQ(Get(platform, "Game A Speed"), "220");
  platform.DeleteSetting(kStoreApp, kStoreSection, "Game A Speed");
  EXPECT_EQ(Get(platform, "Game A Speed"), "NotFound");
  EXPECT_FALSE(QFile::exists(dir.path() + "/not-a-folder/config/Tickplay Simulator.ini"));
}

}  // namespace
}  // namespace nautrix
