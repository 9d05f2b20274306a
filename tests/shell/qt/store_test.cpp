// The settings store on the desktop: every write is in the file the moment it
// is made, values come back as the device wrote them, hand-edited junk reads
// as sane text, and a store that cannot be written never stops the device.
#include <gtest/gtest.h>

#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

#include "device/form1.h"
#include "device/store_keys.h"
#include "shell/qt/device_window.h"
#include "shell/qt/qt_platform.h"
#include "tests/shell/qt/qt_test_app.h"

namespace nautrix {
namespace {

constexpr char kApp[] = "Tickplay Simulator";
constexpr char kSection[] = "Nautrix";

QByteArray FileText(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void WriteFile(const QString& path, const QByteArray& text) {
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
  file.write(text);
}

class StoreTest : public ::testing::Test {
 protected:
  QTemporaryDir dir;
  ScopedStoreFolder folder{dir.path()};
  QString StoreFile() const { return dir.path() + "/Tickplay Simulator.ini"; }
  std::string Get(QtPlatform& p, const char* key) {
    return p.GetSetting(kApp, kSection, key, store::kNotFound);
  }
};

// Without a folder of its own the store is "Tickplay Simulator.ini" in the
// user's configuration folder.
TEST(StoreLocation, TheFileLiesInTheUsersConfigurationFolder) {
  TestApp();
  QSettings settings(QSettings::IniFormat, QSettings::UserScope, kApp);
  EXPECT_EQ(settings.fileName(),
            qEnvironmentVariable("XDG_CONFIG_HOME") + "/Tickplay Simulator.ini");
}

// An abrupt end loses nothing: the file holds each write and each delete as
// soon as the call returns.
TEST_F(StoreTest, EveryWriteAndDeleteIsInTheFileAtOnce) {
  QtPlatform platform(false);
  platform.SaveSetting(kApp, kSection, "Game A Speed", "220");
  QByteArray text = FileText(StoreFile());
  EXPECT_TRUE(text.contains("[Nautrix]")) << text.constData();
  EXPECT_TRUE(text.contains("Game%20A%20Speed=220")) << text.constData();

  platform.SaveSetting(kApp, kSection, "Seconds", "12");
  EXPECT_TRUE(FileText(StoreFile()).contains("Seconds=12"));
  platform.DeleteSetting(kApp, kSection, "Seconds");
  text = FileText(StoreFile());
  EXPECT_FALSE(text.contains("Seconds")) << text.constData();
  EXPECT_TRUE(text.contains("Game%20A%20Speed=220"));
}

// Every form the device writes is read back the same, by this run from
// memory and by the next run from the file.
TEST_F(StoreTest, ValuesComeBackAsTheDeviceWroteThem) {
  const std::pair<const char*, const char*> kValues[] = {
      {"Sound", "True"},        {"Always on Top", "False"}, {"Left", "-45"},
      {"Top", "1234.5"},        {"Diver Speed", "300"},     {"Alarm Time", "120000 PM"},
      {"Game B High Score", "0"}, {"Auto Show", "NotFound"}};
  {
    QtPlatform platform(false);
    for (const auto& [key, value] : kValues) platform.SaveSetting(kApp, kSection, key, value);
    for (const auto& [key, value] : kValues) EXPECT_EQ(Get(platform, key), value) << key;
    EXPECT_EQ(Get(platform, "Game A Speed"), "NotFound");
  }
  // The next run, in another folder, parses the file afresh.
  QTemporaryDir next_dir;
  ASSERT_TRUE(QFile::copy(StoreFile(), next_dir.path() + "/Tickplay Simulator.ini"));
  ScopedStoreFolder next_folder(next_dir.path());
  QtPlatform next_run(false);
  for (const auto& [key, value] : kValues) EXPECT_EQ(Get(next_run, key), value) << key;
}

// A store edited by hand can hold anything. Comma lists, quotes and the
// store's own type markers read as plain text, and the device's typed reads
// turn what they cannot use into the key's default.
TEST_F(StoreTest, HandEditedJunkReadsAsText) {
  WriteFile(StoreFile(),
            "[Nautrix]\n"
            "Left=1, 2\n"
            "Top=\"-330\"\n"
            "Game%20A%20Speed=fast\n"
            "Game%20B%20Speed=@Rect(1 2 3 4)\n"
            "Diver%20Speed=\n"
            "Sound=yes\n"
            "Alarm%20Time=120000 PM\n"
            "Alarm%20On=0\n"
            "Always%20on%20Top=False\n"
            "Auto%20Show=True\n"
            "Game%20A%20High%20Score=1000\n"
            "Game%20B%20High%20Score=5\n");
  QtPlatform platform(false);
  EXPECT_EQ(Get(platform, "Left"), "1, 2");
  EXPECT_EQ(Get(platform, "Top"), "-330");
  EXPECT_EQ(Get(platform, "Game A Speed"), "fast");
  EXPECT_EQ(Get(platform, "Game B Speed"), "");
  EXPECT_EQ(Get(platform, "Diver Speed"), "");

  Form1 form(platform);
  DeviceWindow window(form);
  platform.Attach(form, window);
  form.Form_Load();
  EXPECT_FLOAT_EQ(form.SettingSingle(store::kLeft), store::kDefaultLeft);
  EXPECT_FLOAT_EQ(form.SettingSingle(store::kTop), -330);
  EXPECT_EQ(form.SettingInt(store::kGameASpeed), 220);
  EXPECT_EQ(form.SettingInt(store::kGameBSpeed), 170);
  EXPECT_EQ(form.SettingInt(store::kDiverSpeed), 300);
  EXPECT_EQ(form.SettingInt(store::kGameAHighScore), 0);
  EXPECT_EQ(form.SettingInt(store::kGameBHighScore), 5);
  EXPECT_TRUE(form.mSound.Checked);  // "yes" is no boolean: the default
  EXPECT_FALSE(form.SettingBool(store::kAlarmOn));
  // The window stands where the readable "Top" puts it.
  EXPECT_EQ(window.ClientPos().y(), 0);
}

// A configuration folder that cannot be made: writes fail quietly, the run
// goes on with what it wrote in memory, and nothing waits for a lock.
TEST_F(StoreTest, AStoreThatCannotBeWrittenStillServesTheRun) {
  WriteFile(dir.path() + "/not-a-folder", "");
  ScopedStoreFolder unmakeable(dir.path() + "/not-a-folder/config");
  QtPlatform platform(false);
  Form1 form(platform);
  DeviceWindow window(form);
  platform.Attach(form, window);
  form.Form_Load();  // a first run: every key is written
  EXPECT_EQ(Get(platform, "Game A Speed"), "220");
  EXPECT_EQ(Get(platform, "Left"), "-45");
  platform.SaveSetting(kApp, kSection, "Sound", "False");
  EXPECT_EQ(Get(platform, "Sound"), "False");
  platform.DeleteSetting(kApp, kSection, "Sound");
  EXPECT_EQ(Get(platform, "Sound"), "NotFound");
  EXPECT_FALSE(QFile::exists(dir.path() + "/not-a-folder/config/Tickplay Simulator.ini"));
}

// A first run on a fresh account: the configuration folder is made.
TEST_F(StoreTest, AMissingFolderIsMadeAtTheFirstWrite) {
  ScopedStoreFolder fresh(dir.path() + "/home/.config");
  QtPlatform platform(false);
  platform.SaveSetting(kApp, kSection, "Sound", "True");
  EXPECT_TRUE(FileText(dir.path() + "/home/.config/Tickplay Simulator.ini").contains("Sound=True"));
}

}  // namespace
}  // namespace nautrix
