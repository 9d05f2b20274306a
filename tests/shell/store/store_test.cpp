// The settings store on the desktop: values come back as the device wrote
// them, a read shows what another copy or a hand edit put in the file, a
// write changes its own line and nothing else, and a store that cannot be
// written never stops the device. A first run's store, writes on disk at
// once (a killed copy loses nothing) and junk edited in by hand are the e2e
// tier's.
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/file.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include "shell/store/durable_file.h"
#include "shell/window/qt_platform.h"
#include "tests/shell/qt_test_app.h"

namespace nautrix {
namespace {

// Two copies on one store, and a hand edit: each read shows the file as it
// is now, whether it was replaced (a write of another copy, of the same size
// within the same clock tick) or rewritten in place; a write keeps every
// other line as it stands, hand-written junk and other groups included, and
// a store that is a link stays one.
TEST(Store, EachReadShowsTheFileAsItIsNowAndAWriteChangesOnlyItsLine) {
  QTemporaryDir dir;
  ScopedStoreFolder folder(dir.path());
  const QString file = dir.path() + "/Tickplay Simulator.ini";
  QtPlatform one(false), other(false);
  auto seen = [&](const char* key) {
    QCoreApplication::processEvents();  // the watch's news
    return Stored(other, key);
  };
  // Texts of every kind come back as written, through the file.
  for (const char* alarm : {"120100 PM", " a, b;\"c\"\\\n", "@Rect(1)", "120300 PM", "120200 PM"}) {
    Store(one, "Alarm Time", alarm);
    EXPECT_EQ(seen("Alarm Time"), alarm);
  }
  WriteFile(file, FileText(file).replace("120200 PM", "083000 AM"));  // in place
  EXPECT_EQ(seen("Alarm Time"), "083000 AM");
  WriteFile(file, "; mine\n[Other]\nk=v\n\n[Nautrix]\nSound = yes ; loud\nLeft=1\nLeft=2\n");
  EXPECT_EQ(seen("Left"), "2");
  Store(other, "Left", "-45");
  Store(other, "Game A High Score", "7");
  other.DeleteSetting(store::kApp, store::kSection, "Alarm Time");
  EXPECT_EQ(FileText(file),
            "; mine\n[Other]\nk=v\n\n[Nautrix]\nSound = yes ; loud\nLeft=-45\n"
            "Game%20A%20High%20Score=7\n");
  EXPECT_EQ(seen("Sound"), "yes");
  // A store that is a symbolic link, as dotfile managers make it, stays a
  // link: the file it points to is the one replaced.
  QTemporaryDir dotfiles;
  const QString target = WriteFile(dotfiles.path() + "/nautrix.ini", "[Nautrix]\nSound=True\n");
  QFile::remove(file);
  ASSERT_TRUE(QFile::link(target, file));
  EXPECT_EQ(seen("Sound"), "True");
  Store(one, "Sound", "False");
  EXPECT_TRUE(QFileInfo(file).isSymLink() && FileText(target) == "[Nautrix]\nSound=False\n");
  EXPECT_EQ(seen("Sound"), "False");
}

// A configuration folder that cannot be made: writes and deletes fail
// quietly, the run goes on with what it wrote in memory, and nothing waits
// for a lock; once the folder can be made, the next write brings every such
// change to disk.
TEST(Store, AStoreThatCannotBeWrittenStillServesTheRun) {
  QTemporaryDir dir;
  const QString blocker = WriteFile(dir.path() + "/not-a-folder", "");
  ScopedStoreFolder folder(blocker + "/config");
  QtPlatform platform(false);
  for (const char* key : {"Sound", "Game A Speed"})
    Store(platform, key, "1");
  platform.DeleteSetting(store::kApp, store::kSection, "Game A Speed");
  EXPECT_EQ(Stored(platform, "Sound") + Stored(platform, "Game A Speed"), "1NotFound");
  EXPECT_FALSE(QFile::exists(blocker + "/config/Tickplay Simulator.ini"));
  QFile::remove(blocker);
  Store(platform, "Alarm On", "False");
  QtPlatform fresh(false);
  EXPECT_EQ(Stored(fresh, "Sound") + Stored(fresh, "Alarm On") + Stored(fresh, "Game A Speed"),
            "1FalseNotFound");
}

// A write whose sync or rename fails, or that finds the folder's lock kept by
// another copy, leaves the file whole as it was, no new file beside it, and
// the value in memory; the next write that gets through brings it to disk.
TEST(Store, AFailedWriteKeepsTheFileWholeAndTheValueInMemory) {
  QTemporaryDir dir;
  ScopedStoreFolder folder(dir.path());
  const QString file = dir.path() + "/Tickplay Simulator.ini";
  QtPlatform platform(false);
  Store(platform, "Sound", "True");
  const QByteArray before = FileText(file);
  const int other_copy = ::open(QFile::encodeName(dir.path()).constData(), O_RDONLY);
  for (const std::string way : {"fsync", "rename", "lock"}) {
    const DiskCalls real = Disk();
    if (way == "fsync") Disk().fsync = [](int) { return -1; };
    if (way == "rename") Disk().rename = [](const char*, const char*) { return -1; };
    if (way == "lock") ::flock(other_copy, LOCK_SH);
    Store(platform, "Sound", way);
    Disk() = real;
    ::flock(other_copy, LOCK_UN);
    EXPECT_EQ(FileText(file), before) << way;
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden).size(), 1) << way;
    EXPECT_EQ(Stored(platform, "Sound"), way);
  }
  ::close(other_copy);
  Store(platform, "Left", "1");
  EXPECT_EQ(FileText(file), "[Nautrix]\nSound=lock\nLeft=1\n");
}

}  // namespace
}  // namespace nautrix
