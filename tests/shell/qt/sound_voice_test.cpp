// The single voice, heard through its reader rather than the speakers: the
// newest sound cuts off the one that plays, anything unplayable is silence,
// and a file changed on disk is decoded again.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <cstring>

#include "shell/qt/sound_voice.h"
#include "tests/shell/qt/qt_test_app.h"

namespace nautrix {
namespace {

void Put(QByteArray& out, uint32_t value, int bytes) {
  for (int i = 0; i < bytes; ++i) out.append(static_cast<char>(value >> (8 * i) & 0xFF));
}

// A RIFF wave file of PCM frames; `frames` holds one value per channel per
// frame, as stored (unsigned for 8 bits).
QByteArray Wave(int rate, int channels, int bits, const std::vector<int>& frames,
                int tag = 1, bool extensible = false) {
  QByteArray fmt;
  Put(fmt, extensible ? 0xFFFE : tag, 2);
  Put(fmt, channels, 2);
  Put(fmt, rate, 4);
  Put(fmt, rate * channels * bits / 8, 4);
  Put(fmt, channels * bits / 8, 2);
  Put(fmt, bits, 2);
  if (extensible) {
    Put(fmt, 22, 2);
    Put(fmt, bits, 2);
    Put(fmt, 0, 4);
    Put(fmt, tag, 2);  // the sub-format's first field
    fmt.append(14, '\0');
  }
  QByteArray data;
  for (int v : frames) Put(data, static_cast<uint32_t>(v), bits / 8);
  QByteArray out("RIFF");
  Put(out, 4 + 8 + fmt.size() + 8 + data.size(), 4);
  out.append("WAVE");
  out.append("LIST");  // a chunk the decoder must step over
  Put(out, 3, 4);
  out.append("abc\0", 4);
  out.append("fmt ");
  Put(out, fmt.size(), 4);
  out.append(fmt);
  out.append("data");
  Put(out, data.size(), 4);
  out.append(data);
  return out;
}

// A mono 16-bit sound at the voice's rate holding one value throughout.
QByteArray Tone(int value, int samples) { return Wave(44100, 1, 16, std::vector<int>(samples, value)); }

class SoundVoiceTest : public ::testing::Test {
 protected:
  QTemporaryDir dir;
  SoundVoice voice{false};

  void SetUp() override { TestApp(); }
  QString Write(const QString& name, const QByteArray& bytes) {
    QFile file(dir.path() + "/" + name);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(bytes);
    return file.fileName();
  }
  // The next `count` samples the sink would get.
  std::vector<int16_t> Pull(int count) {
    std::vector<int16_t> samples(count);
    const qint64 got = voice.reader().read(reinterpret_cast<char*>(samples.data()), count * 2);
    EXPECT_EQ(got, count * 2);
    return samples;
  }
  static bool All(const std::vector<int16_t>& samples, int value) {
    for (int16_t s : samples) {
      if (s != value) return false;
    }
    return true;
  }
};

TEST_F(SoundVoiceTest, TheNewestSoundCutsOffTheOneThatPlays) {
  const QString first = Write("Beep0.wav", Tone(1000, 4410));
  const QString second = Write("Beep2.wav", Tone(-2000, 300));
  voice.Play(first);
  EXPECT_TRUE(All(Pull(100), 1000));
  voice.Play(second);
  EXPECT_TRUE(All(Pull(300), -2000));
  // The first is not resumed: silence follows, for as long as the sink asks.
  EXPECT_TRUE(All(Pull(5000), 0));
  EXPECT_FALSE(voice.reader().Sounding());
  // A sound played again starts from its beginning.
  voice.Play(second);
  EXPECT_TRUE(All(Pull(300), -2000));
  EXPECT_EQ(voice.plays(), 3);
}

TEST_F(SoundVoiceTest, BeforeAnySoundTheVoiceIsSilent) { EXPECT_TRUE(All(Pull(1000), 0)); }

// A missing file, a directory of that name, a file that is no wave, a wave
// of a coding the voice does not know: silence, and the sound that played
// stops as it would for any newer sound.
TEST_F(SoundVoiceTest, AnythingUnplayableIsSilence) {
  const QString tone = Write("Beep0.wav", Tone(1000, 44100));
  QDir(dir.path()).mkdir("Beep1.wav");
  const QString broken = Write("Beep2.wav", QByteArray("RIFF\x10\0\0\0WAVEjunkjunk", 20));
  const QString text = Write("Beep3.wav", "not a sound at all");
  const QString floats = Write("Float.wav", Wave(44100, 1, 16, {1, 2, 3}, 3));
  const QString wide = Write("Wide.wav", Wave(44100, 1, 24, {1, 2, 3}));
  for (const QString& silent : {dir.path() + "/Missing.wav", dir.path() + "/Beep1.wav", broken, text,
                                floats, wide}) {
    voice.Play(tone);
    EXPECT_TRUE(All(Pull(10), 1000));
    voice.Play(silent);
    EXPECT_TRUE(All(Pull(2000), 0)) << silent.toStdString();
  }
}

TEST_F(SoundVoiceTest, AFileChangedOnDiskIsDecodedAgain) {
  const QString path = Write("Beep0.wav", Tone(1000, 500));
  voice.Preload(path);
  EXPECT_EQ(voice.decodes(), 1);
  voice.Play(path);
  voice.Play(path);
  EXPECT_EQ(voice.decodes(), 1) << "an unchanged file was decoded again";
  EXPECT_TRUE(All(Pull(500), 1000));

  // Another size.
  Write("Beep0.wav", Tone(3000, 800));
  voice.Play(path);
  EXPECT_EQ(voice.decodes(), 2);
  EXPECT_TRUE(All(Pull(800), 3000));
  EXPECT_TRUE(All(Pull(10), 0));

  // The same size, written later.
  Write("Beep0.wav", Tone(-3000, 800));
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::ReadWrite));
  ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTime().addSecs(5),
                               QFileDevice::FileModificationTime));
  file.close();
  voice.Play(path);
  EXPECT_EQ(voice.decodes(), 3);
  EXPECT_TRUE(All(Pull(800), -3000));

  // Gone, then back.
  QFile::remove(path);
  voice.Play(path);
  EXPECT_TRUE(All(Pull(100), 0));
  Write("Beep0.wav", Tone(500, 100));
  voice.Play(path);
  EXPECT_TRUE(All(Pull(100), 500));
}

// ---- Decoding -----------------------------------------------------------------

TEST(DecodeWave, EightBitStereoAtHalfTheRateBecomesMonoAtTheVoicesRate) {
  // Left and right average to +64 and -64 around the 8-bit middle of 128.
  const std::vector<int> frames = {128 + 96, 128 + 32, 128 - 32, 128 - 96};
  const std::optional<Samples> samples = DecodeWave(Wave(22050, 2, 8, frames), 44100);
  ASSERT_TRUE(samples);
  ASSERT_EQ(samples->size(), 4u);
  EXPECT_EQ((*samples)[0], 64 * 256);
  EXPECT_EQ((*samples)[1], 0);  // halfway between the two frames
  EXPECT_EQ((*samples)[2], -64 * 256);
  EXPECT_EQ((*samples)[3], -64 * 256);
}

TEST(DecodeWave, SixteenBitAtAHigherRateIsThinnedOut) {
  std::vector<int> frames;
  for (int i = 0; i < 960; ++i) frames.push_back(static_cast<uint16_t>(static_cast<int16_t>(i * 10)));
  const std::optional<Samples> samples = DecodeWave(Wave(96000, 1, 16, frames), 48000);
  ASSERT_TRUE(samples);
  ASSERT_EQ(samples->size(), 480u);
  EXPECT_EQ((*samples)[0], 0);
  EXPECT_EQ((*samples)[100], 2000);
  EXPECT_EQ((*samples)[479], 9580);
}

TEST(DecodeWave, TheExtensibleHeaderAndACutOffFileAreRead) {
  const QByteArray extensible = Wave(44100, 1, 16, {100, 200, 300}, 1, true);
  const std::optional<Samples> samples = DecodeWave(extensible, 44100);
  ASSERT_TRUE(samples);
  EXPECT_EQ(*samples, (Samples{100, 200, 300}));
  // A file cut off in its data plays what it holds.
  const std::optional<Samples> cut = DecodeWave(extensible.left(extensible.size() - 3), 44100);
  ASSERT_TRUE(cut);
  EXPECT_EQ(*cut, (Samples{100}));
  // Extensible, but floating point.
  EXPECT_FALSE(DecodeWave(Wave(44100, 1, 16, {1}, 3, true), 44100));
  EXPECT_FALSE(DecodeWave(QByteArray(), 44100));
  EXPECT_FALSE(DecodeWave(Tone(1, 10).left(30), 44100));  // no data chunk
}

// The reader writes the sink's format: a stereo float sink gets every sample
// on both channels.
TEST(VoiceReaderFormat, SamplesAreWrittenInTheSinksFormat) {
  QAudioFormat format;
  format.setSampleRate(44100);
  format.setChannelCount(2);
  format.setSampleFormat(QAudioFormat::Float);
  VoiceReader reader(format);
  reader.Start(std::make_shared<const Samples>(Samples{16384, -32768}));
  float out[6];
  ASSERT_EQ(reader.read(reinterpret_cast<char*>(out), sizeof out), qint64{sizeof out});
  EXPECT_FLOAT_EQ(out[0], 0.5f);
  EXPECT_FLOAT_EQ(out[1], 0.5f);
  EXPECT_FLOAT_EQ(out[2], -1.0f);
  EXPECT_FLOAT_EQ(out[3], -1.0f);
  EXPECT_FLOAT_EQ(out[4], 0.0f);
  EXPECT_FLOAT_EQ(out[5], 0.0f);
}

}  // namespace
}  // namespace nautrix
