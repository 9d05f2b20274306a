// The settings store on the desktop: every write and delete is in the file
// the moment it is made, values come back as the device wrote them, a read
// shows what another copy or a hand edit put in the file, a write changes
// its own line and nothing else, and a store that cannot be written never
// stops the device. Junk edited in by hand is the e2e tier's.
#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include <QCoreApplication>

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
// abrupt end after any write or delete loses nothing.
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
}

// Two copies on one store, and a hand edit: each read shows the file as it
// is now, whether it was replaced (a write of another copy, of the same size
// within the same clock tick) or rewritten in place; a write keeps every
// other line as it stands, hand-written junk and other groups included.
TEST(Store, EachReadShowsTheFileAsItIsNowAndAWriteChangesOnlyItsLine) {
  QTemporaryDir dir;
  ScopedStoreFolder folder(dir.path());
  const QString file = dir.path() + "/Tickplay Simulator.ini";
  QtPlatform one(false), other(false);
  auto seen = [&](const char* key) {
    QCoreApplication::processEvents();  // the watch's news
    return Get(other, key);
  };
  // Texts of every kind come back as written, through the file.
  for (const char* alarm : {"120100 PM", " a, b;\"c\"\\\n", "@Rect(1)", "120300 PM", "120200 PM"}) {
    one.SaveSetting(kStoreApp, kStoreSection, "Alarm Time", alarm);
    EXPECT_EQ(seen("Alarm Time"), alarm);
  }
  WriteFile(file, FileText(file).replace("120200 PM", "083000 AM"));  // in place
  EXPECT_EQ(seen("Alarm Time"), "083000 AM");
  WriteFile(file, "; mine\n[Other]\nk=v\n\n[Nautrix]\nSound = yes ; loud\nLeft=1\nLeft=2\n");
  EXPECT_EQ(seen("Left"), "2");
  other.SaveSetting(kStoreApp, kStoreSection, "Left", "-45");
  other.SaveSetting(kStoreApp, kStoreSection, "Game A High Score", "7");
  other.DeleteSetting(kStoreApp, kStoreSection, "Alarm Time");
  EXPECT_EQ(FileText(file),
            "; mine\n[Other]\nk=v\n\n[Nautrix]\nSound = yes ; loud\nLeft=-45\n"
            "Game%20A%20High%20Score=7\n");
  EXPECT_EQ(seen("Sound"), "yes");
}

// Two copies at the end of a game: the lower score leaves the other copy's
// high score as it stands, though its copy read 0 at the game's start.
TEST(Store, ALowerScoreNeverOverwritesTheOtherCopysHighScore) {
  QTemporaryDir dir;
  ScopedStoreFolder folder(dir.path());
  QtPlatform one(false), other(false);
  Form1 first(one), second(other);
  DeviceWindow first_window(first), second_window(second);
  one.Attach(first, first_window);
  other.Attach(second, second_window);
  first.Form_Load();
  second.Form_Load();
  EXPECT_EQ(second.SettingInt(store::kGameAHighScore), 0);
  first.GameMode = second.GameMode = 1;
  first.Score = 50;
  second.Score = 30;
  first.StoreHighScore();
  QCoreApplication::processEvents();
  second.StoreHighScore();
  EXPECT_EQ(Get(one, "Game A High Score"), "50");
}

// A configuration folder that cannot be made: writes fail quietly, the run
// goes on with what it wrote in memory, and nothing waits for a lock; once
// the folder can be made, the next write brings every such value to disk.
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
  QFile::remove(dir.path() + "/not-a-folder");
  platform.SaveSetting(kStoreApp, kStoreSection, "Sound", "False");
  QtPlatform fresh(false);
  EXPECT_EQ(Get(fresh, "Sound"), "False");
  EXPECT_EQ(Get(fresh, "Auto Show"), "True");
  EXPECT_EQ(Get(fresh, "Game A Speed"), "NotFound");
}

}  // namespace
}  // namespace nautrix
