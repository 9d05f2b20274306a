// The single voice, heard through its reader rather than the speakers: the
// newest sound cuts off the one that plays, nothing waits, every kind of wave
// file a user may drop in plays and anything else is silence, and whatever
// happens to a file on disk, its newest state is the one heard.
#include "shell/qt/sound_voice.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <time.h>

#include <QDir>
#include <QProcess>
#include <QStandardPaths>
#include <algorithm>
#include <cstdio>
#include <random>
#include <thread>

#include "tests/shell/qt/qt_test_app.h"

namespace nautrix {
namespace {

void Put(QByteArray& out, uint32_t value, int bytes) {
  for (int i = 0; i < bytes; ++i) out.append(static_cast<char>(value >> (8 * i) & 0xFF));
}

QByteArray Format(uint32_t tag, uint32_t channels, uint32_t rate, uint32_t bits) {
  QByteArray out;
  const uint32_t block = channels * bits / 8;
  Put(out, tag, 2);
  Put(out, channels, 2);
  Put(out, rate, 4);
  Put(out, rate * block, 4);
  Put(out, block, 2);
  Put(out, bits, 2);
  return out;
}

// A wave file behind an odd-sized chunk, with its pad byte, that the decoder
// must skip; the data chunk may claim a size of its own.
QByteArray Wave(const QByteArray& format, const QByteArray& data, int64_t claimed = -1) {
  QByteArray out("RIFF\0\0\0\0WAVELIST\3\0\0\0abc\0fmt ", 28);
  Put(out, format.size(), 4);
  out += format + "data";
  Put(out, static_cast<uint32_t>(claimed < 0 ? data.size() : claimed), 4);
  return out + data;
}

// A mono 16-bit wave at the voice's rate holding one value throughout.
QByteArray Tone(int value, int samples) {
  QByteArray data;
  for (int i = 0; i < samples; ++i) Put(data, static_cast<uint16_t>(value), 2);
  return Wave(Format(1, 1, kVoiceRate, 16), data);
}

std::optional<Samples> Decode(const QByteArray& wave) {
  return DecodeWave(reinterpret_cast<const uint8_t*>(wave.constData()), wave.size(), kVoiceRate);
}

// Every sample is `value` (give or take the last bit).
bool All(const Samples& samples, int value) {
  return std::all_of(samples.begin(), samples.end(),
                     [&](int16_t v) { return std::abs(v - value) <= 1; });
}

// Waits until the file system's clock has moved past the file's last change,
// so that the voice may trust the file's stamp.
void Settle(const QString& path) {
  struct stat st;
  ASSERT_EQ(stat(QFile::encodeName(path).constData(), &st), 0);
  const timespec& changed = st.st_ctim;
  timespec now{};
  while (clock_gettime(CLOCK_REALTIME_COARSE, &now),
         now.tv_sec < changed.tv_sec ||
             (now.tv_sec == changed.tv_sec && now.tv_nsec <= changed.tv_nsec))
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

class SoundVoiceTest : public ::testing::Test {
 protected:
  QTemporaryDir dir;
  SoundVoice voice{false};

  void SetUp() override { TestApp(); }
  QString Write(const QString& name, const QByteArray& bytes) {
    return WriteFile(dir.path() + "/" + name, bytes);
  }
  // The next `count` samples the speakers would get are all `value`.
  bool Hears(int count, int value) {
    Samples s(count);
    voice.reader().Read(s.data(), s.size());
    return std::all_of(s.begin(), s.end(), [&](int16_t v) { return v == value; });
  }
};

// A new sound, playable or not, replaces the one that plays at once; the
// one cut off is never resumed, and a sound played again starts afresh.
TEST_F(SoundVoiceTest, TheNewestSoundCutsOffTheOneThatPlays) {
  const QString first = Write("Beep0.wav", Tone(1000, 44100));
  const QString second = Write("Beep2.wav", Tone(-2000, 300));
  EXPECT_TRUE(Hears(1000, 0));  // before any sound
  voice.Play(first);
  EXPECT_TRUE(Hears(100, 1000));
  voice.Play(second);
  EXPECT_TRUE(Hears(300, -2000) && Hears(5000, 0));
  EXPECT_FALSE(voice.reader().Sounding());
  voice.Play(first);
  voice.Play(dir.path() + "/Missing.wav");
  EXPECT_TRUE(Hears(2000, 0));
  voice.Play(second);
  EXPECT_TRUE(Hears(300, -2000));
  EXPECT_EQ(voice.plays(), 5);
}

// Every coding a wave writer (sox, independent of this decoder) produces, in
// the plain and the extensible header, mono to six channels, low rate to
// high: channel c holds 2048 (c + 1), so the mono mix is their mean, and
// 0.2 s of any rate is 0.2 s at the voice's rate.
TEST_F(SoundVoiceTest, WavesOfEveryCodingChannelCountAndRatePlay) {
  if (QStandardPaths::findExecutable("sox").isEmpty()) GTEST_SKIP() << "no sox";
  const char* const kCodings[] = {"-b 8 -e unsigned", "-b 16 -e signed", "-b 24 -e signed",
                                  "-b 32 -e signed",  "-b 32 -e float",  "-b 64 -e float"};
  const int kRates[] = {8000, 22050, 48000, 96000};
  int kind = 0;
  for (const char* coding : kCodings) {
    for (const char* type : {"wav", "wavpcm"}) {
      for (int channels : {1, 2, 6}) {
        const int rate = kRates[kind++ % 4];
        QByteArray raw;
        for (int f = 0; f < rate / 5; ++f) {
          for (int c = 0; c < channels; ++c) Put(raw, 2048 * (c + 1), 2);
        }
        const QString in = Write("in.raw", raw), out = dir.path() + "/out.wav";
        const QString command = QString("sox -D -t raw -r %1 -e signed -b 16 -c %2 %3 %4 -t %5 %6")
                                    .arg(rate)
                                    .arg(channels)
                                    .arg(in, coding, type, out);
        ASSERT_EQ(QProcess::execute("sh", {"-c", command}), 0) << command.toStdString();
        const std::optional<Samples> samples = Decode(FileText(out));
        ASSERT_TRUE(samples) << command.toStdString();
        EXPECT_EQ(samples->size(), size_t{kVoiceRate / 5}) << command.toStdString();
        EXPECT_TRUE(All(*samples, 1024 * (channels + 1))) << command.toStdString();
      }
    }
  }
}

// What the decoder does of its own: rates are met by linear interpolation;
// a data chunk claiming more than the file holds (as a wave written to a pipe
// does) plays what is there; a claim of hours at one frame a second plays the
// voice's longest sound and no more.
TEST_F(SoundVoiceTest, RatesAreInterpolatedAndLyingLengthsAreBounded) {
  QByteArray ramp;
  for (int v : {0, 4410, -4410}) Put(ramp, static_cast<uint16_t>(v), 2);
  const std::optional<Samples> slow = Decode(Wave(Format(1, 1, 4410, 16), ramp));
  ASSERT_TRUE(slow && slow->size() == 30u);
  EXPECT_EQ((*slow)[5], 2205);
  EXPECT_EQ((*slow)[15], 0);
  EXPECT_EQ((*slow)[29], -4410);
  const std::optional<Samples> cut =
      Decode(Wave(Format(1, 1, kVoiceRate, 16), Tone(7, 10).right(20), 0xFFFFFFFF));
  EXPECT_TRUE(cut && cut->size() == 10u && All(*cut, 7));
  const std::optional<Samples> long_claim =
      Decode(Wave(Format(1, 1, 1, 8), QByteArray(100, '\x90')));
  EXPECT_TRUE(long_claim && long_claim->size() == size_t{kLongestSoundSeconds} * kVoiceRate);
}

// Anything that is not a wave the voice can read is silence, at once and
// without a word: it neither cuts off nor is cut into a sound of its own.
TEST_F(SoundVoiceTest, AnythingElseIsSilence) {
  const QString sound = Write("Beep0.wav", Tone(1000, 44100));
  QByteArray random(4096, 0);
  std::mt19937 draw(12);
  std::generate(random.begin(), random.end(), [&] { return static_cast<char>(draw()); });
  QByteArray no_format = Tone(7, 10);
  no_format.replace(24, 4, "junk");
  QByteArray lying_block = Tone(7, 10);
  lying_block[44] = 4;
  const QByteArray bad_guid = Format(0xFFFE, 1, 8000, 16) +
                              QByteArray("\x16\0\x10\0\0\0\0\0\1\0\0\0", 12) + QByteArray(12, 'x');
  const QByteArray kSilent[] = {"",
                                "no sound",
                                random,
                                QByteArray("RIFF\0\0\0\0WAVE", 12) + random,
                                Tone(7, 10).left(40),  // cut in the format
                                Tone(7, 10).left(52),  // no data chunk
                                no_format,
                                lying_block,
                                Wave(bad_guid, "\7\0"),
                                Wave(Format(1, 1, kVoiceRate, 16).left(14), "\7\0"),
                                Wave(Format(1, 0, kVoiceRate, 16), "\7\0"),  // no channels
                                Wave(Format(1, 1, 0, 16), "\7\0"),           // no rate
                                Wave(Format(1, 1, kVoiceRate, 12), "\7\0"),  // 12 bits
                                Wave(Format(2, 1, kVoiceRate, 16), "\7\0"),  // compressed
                                Wave(Format(7, 1, kVoiceRate, 8), "\7")};    // mu-law
  QDir(dir.path()).mkdir("Directory.wav");
  const QString pipe = dir.path() + "/Pipe.wav";
  ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
  QFile huge(Write("Huge.wav", Tone(7, 10)));
  ASSERT_TRUE(huge.resize(33 * 1024 * 1024));  // sparse, made at once
  QStringList silent = {dir.path() + "/Directory.wav", pipe, huge.fileName()};
  for (const QByteArray& bytes : kSilent)
    silent << Write(QString("Bad%1.wav").arg(silent.size()), bytes);
  for (const QString& path : silent) {
    voice.Play(sound);
    EXPECT_TRUE(Hears(10, 1000));
    voice.Play(path);
    EXPECT_TRUE(Hears(2000, 0)) << path.toStdString();
  }
}

// The tests' application has no audio server to find: a voice meant for the
// speakers plays into silence, waits for nothing, and ends cleanly.
TEST_F(SoundVoiceTest, WithoutAnAudioServerASoundIsSilence) {
  SoundVoice speaker(true);
  const QString tone = Write("Beep0.wav", Tone(1000, 4410));
  speaker.Play(tone);
  speaker.Play(tone);
  EXPECT_EQ(speaker.plays(), 2);
  EXPECT_FALSE(speaker.Asleep());
  EXPECT_EQ(speaker.StartDelayMs(), -1);  // nothing left for a server
}

// A file is decoded once while it stays as it is, and its newest state is
// heard however it changed: rewritten at another size, copied over with its
// old times kept, replaced by another file of the same size and times,
// removed and written again.
TEST_F(SoundVoiceTest, TheNewestStateOfAFileIsHeard) {
  const QString path = Write("Beep0.wav", Tone(1000, 500));
  Settle(path);
  voice.Preload(path);
  voice.Play(path);
  voice.Play(path);
  EXPECT_EQ(voice.decodes(), 1);
  EXPECT_TRUE(Hears(500, 1000));
  Write("Beep0.wav", Tone(3000, 800));
  voice.Play(path);
  EXPECT_TRUE(Hears(800, 3000) && Hears(10, 0));
  const QString other = Write("Other.wav", Tone(-3000, 800));
  ASSERT_EQ(QProcess::execute("touch", {"-r", path, other}), 0);
  ASSERT_EQ(QProcess::execute("cp", {"-p", other, path}), 0);
  voice.Play(path);
  EXPECT_TRUE(Hears(800, -3000));
  Write("Other.wav", Tone(500, 800));
  ASSERT_EQ(QProcess::execute("touch", {"-r", path, other}), 0);
  ASSERT_EQ(std::rename(QFile::encodeName(other).constData(), QFile::encodeName(path).constData()),
            0);
  voice.Play(path);
  EXPECT_TRUE(Hears(800, 500));
  QFile::remove(path);
  voice.Play(path);
  EXPECT_TRUE(Hears(10, 0));
  Write("Beep0.wav", Tone(-500, 100));
  voice.Play(path);
  EXPECT_TRUE(Hears(100, -500));
}

}  // namespace
}  // namespace nautrix
