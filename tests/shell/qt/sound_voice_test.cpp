// The single voice, heard through its reader rather than the speakers: the
// newest sound cuts off the one that plays, nothing waits, anything
// unplayable is silence, and a file changed on disk is decoded again.
#include <gtest/gtest.h>

#include <QDir>
#include <algorithm>

#include "shell/qt/sound_voice.h"
#include "tests/shell/qt/qt_test_app.h"

namespace nautrix {
namespace {

void Put(QByteArray& out, uint32_t value, int bytes) {
  for (int i = 0; i < bytes; ++i) out.append(static_cast<char>(value >> (8 * i) & 0xFF));
}

// A mono 16-bit wave at the voice's rate holding one value throughout,
// behind an odd-sized chunk, with its pad byte, that the decoder must skip.
QByteArray Tone(int value, int samples) {
  QByteArray out("RIFF");
  Put(out, 4 + 12 + 24 + 8 + 2 * samples, 4);
  out.append("WAVELIST\3\0\0\0abc\0fmt ", 20);
  const std::pair<uint32_t, int> kFormat[] = {{16, 4},    {1, 2}, {1, 2}, {44100, 4},
                                              {88200, 4}, {2, 2}, {16, 2}};
  for (const auto& [field, bytes] : kFormat) Put(out, field, bytes);
  out.append("data");
  Put(out, 2 * samples, 4);
  for (int i = 0; i < samples; ++i) Put(out, static_cast<uint16_t>(value), 2);
  return out;
}

class SoundVoiceTest : public ::testing::Test {
 protected:
  QTemporaryDir dir;
  SoundVoice voice{false};

  void SetUp() override { TestApp(); }
  QString Write(const QString& name, const QByteArray& bytes) {
    return WriteFile(dir.path() + "/" + name, bytes);
  }
  // The next `count` samples the sink would get are all `value`.
  bool Hears(int count, int value) {
    std::vector<int16_t> s(count);
    return voice.reader().read(reinterpret_cast<char*>(s.data()), count * 2) == count * 2 &&
           std::all_of(s.begin(), s.end(), [&](int16_t v) { return v == value; });
  }
};

// A new sound, playable or not, replaces the one that plays at once; the
// one cut off is never resumed, and a sound played again starts afresh.
TEST_F(SoundVoiceTest, TheNewestSoundCutsOffTheOneThatPlaysAndUnplayableIsSilence) {
  const QString first = Write("Beep0.wav", Tone(1000, 44100));
  const QString second = Write("Beep2.wav", Tone(-2000, 300));
  QDir(dir.path()).mkdir("Beep1.wav");
  EXPECT_TRUE(Hears(1000, 0));  // before any sound
  voice.Play(first);
  EXPECT_TRUE(Hears(100, 1000));
  voice.Play(second);
  EXPECT_TRUE(Hears(300, -2000) && Hears(5000, 0));
  EXPECT_FALSE(voice.reader().Sounding());
  for (const QString& silent :
       {dir.path() + "/Missing.wav", dir.path() + "/Beep1.wav", Write("Beep3.wav", "no sound"),
        Write("Beep4.wav", Tone(7, 10).left(40)),  // no data
        Write("Beep5.wav", Tone(7, 10).replace(32, 1, "\3"))}) {  // floating point
    voice.Play(first);
    EXPECT_TRUE(Hears(10, 1000));
    voice.Play(silent);
    EXPECT_TRUE(Hears(2000, 0)) << silent.toStdString();
  }
  voice.Play(second);
  EXPECT_TRUE(Hears(300, -2000));
  EXPECT_EQ(voice.plays(), 13);
}

// The tests' application has no audio server to find: a voice meant for the
// speakers plays into silence and waits for no device to come.
TEST_F(SoundVoiceTest, WithoutAnAudioDeviceASoundIsSilence) {
  SoundVoice speaker(true);
  const QString tone = Write("Beep0.wav", Tone(1000, 4410));
  speaker.Play(tone);
  speaker.Play(tone);
  EXPECT_EQ(speaker.plays(), 2);
  EXPECT_FALSE(speaker.Suspended());
  EXPECT_EQ(speaker.StartLatencyMs(), -1);  // nothing reached a sink
}

// A file is decoded once, and again when its size changes or it is written
// later at the same size; one gone and back plays its new self.
TEST_F(SoundVoiceTest, AFileChangedOnDiskIsDecodedAgain) {
  const QString path = Write("Beep0.wav", Tone(1000, 500));
  voice.Preload(path);
  voice.Play(path);
  voice.Play(path);
  EXPECT_EQ(voice.decodes(), 1);
  EXPECT_TRUE(Hears(500, 1000));
  Write("Beep0.wav", Tone(3000, 800));
  voice.Play(path);
  EXPECT_TRUE(Hears(800, 3000) && Hears(10, 0));
  Write("Beep0.wav", Tone(-3000, 800));
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::ReadWrite));
  const QDateTime later = QDateTime::currentDateTime().addSecs(5);
  ASSERT_TRUE(file.setFileTime(later, QFile::FileModificationTime));
  file.close();
  voice.Play(path);
  EXPECT_TRUE(Hears(800, -3000));
  EXPECT_EQ(voice.decodes(), 3);
  QFile::remove(path);
  voice.Play(path);
  Write("Beep0.wav", Tone(500, 100));
  voice.Play(path);
  EXPECT_TRUE(Hears(100, 500));
}

}  // namespace
}  // namespace nautrix
