// The single voice, heard through its reader rather than the speakers: the
// newest sound cuts off the one that plays, every kind of wave file a user
// may drop in plays and anything else is silence, and whatever happens to a
// file on disk, its newest state is the one heard.
#include "shell/sound/sound_voice.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QDir>
#include <QProcess>
#include <QStandardPaths>
#include <QThread>
#include <algorithm>
#include <array>

#include "tests/shell/qt_test_app.h"

namespace nautrix {
namespace {

void Put(QByteArray& out, uint32_t value, int bytes) {
  for (int i = 0; i < bytes; ++i) out.append(static_cast<char>(value >> (8 * i) & 0xFF));
}

QByteArray Format(uint32_t tag, uint32_t channels, uint32_t rate, uint32_t bits) {
  QByteArray out;
  for (const uint32_t field : {tag, channels}) Put(out, field, 2);
  for (const uint32_t field : {rate, rate * channels * bits / 8}) Put(out, field, 4);
  for (const uint32_t field : {channels * bits / 8, bits}) Put(out, field, 2);
  return out;
}

// A wave behind an odd-sized chunk, with its pad byte, that the decoder must
// skip; the data chunk may claim a size of its own.
QByteArray Wave(const QByteArray& format, const QByteArray& data, int64_t claimed = -1) {
  QByteArray out("RIFF\0\0\0\0WAVELIST\3\0\0\0abc\0fmt ", 28);
  Put(out, format.size(), 4);
  out += format + "data";
  Put(out, static_cast<uint32_t>(claimed < 0 ? data.size() : claimed), 4);
  return out + data;
}

// Mono 16-bit at the voice's rate, one value throughout.
QByteArray Tone(int value, int samples) {
  QByteArray data;
  for (int i = 0; i < samples; ++i) Put(data, static_cast<uint16_t>(value), 2);
  return Wave(Format(1, 1, kVoiceRate, 16), data);
}

Samples Decode(const QByteArray& wave) {
  const auto* bytes = reinterpret_cast<const uint8_t*>(wave.constData());
  return DecodeWave(bytes, wave.size(), kVoiceRate).value_or(Samples{});  // none is no sound
}

// Every sample is `value`, give or take the last bit.
bool All(const Samples& samples, int value) {
  return std::all_of(samples.begin(), samples.end(),
                     [&](int v) { return std::abs(v - value) <= 1; });
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
    return All(s, value);
  }
};

// Every coding a wave writer (sox, not this decoder) produces, plain and
// extensible header, one to six channels, low rate to high: channel c holds
// 2048 (c + 1), so the mix is their mean, and 0.2 s is 0.2 s at any rate.
TEST_F(SoundVoiceTest, WavesOfEveryCodingChannelCountAndRatePlay) {
  if (QStandardPaths::findExecutable("sox").isEmpty()) GTEST_SKIP() << "no sox";
  int kind = 0;
  for (const char* coding : {"-b 8 -e unsigned", "-b 16 -e signed", "-b 24 -e signed",
                             "-b 32 -e signed", "-b 32 -e float", "-b 64 -e float"}) {
    for (const char* type : {"wav", "wavpcm"}) {
      for (int channels : {1, 2, 6}) {
        const int rate = std::array{8000, 22050, 48000, 96000}[kind++ % 4];
        QByteArray raw;
        for (int f = 0; f < rate / 5 * channels; ++f) Put(raw, 2048 * (f % channels + 1), 2);
        const QString out = dir.path() + "/out.wav";
        const QString command = QString("sox -D -t raw -r %1 -e signed -b 16 -c %2 %3 %4 -t %5 %6")
            .arg(rate).arg(channels).arg(Write("in.raw", raw), coding, type, out);
        ASSERT_EQ(QProcess::execute("sh", {"-c", command}), 0) << command.toStdString();
        const Samples samples = Decode(FileText(out));
        EXPECT_TRUE(samples.size() == kVoiceRate / 5 && All(samples, 1024 * (channels + 1)))
            << command.toStdString();
      }
    }
  }
}

// A data chunk claiming more than the file holds (a wave written to a pipe)
// plays what is there; hours claimed at one frame a second play the voice's
// longest sound and no more. A wave with no format chunk or of a compressed
// coding is no sound (a file that is no wave at all is the silence test's;
// bytes that crash nothing are the fuzzer's).
TEST_F(SoundVoiceTest, LyingLengthsAreBoundedAndBadWavesAreNoSound) {
  QByteArray no_format = Tone(7, 10);
  no_format.replace(24, 4, "junk");
  const struct { QByteArray wave; size_t size; int value; } kWaves[] = {
      {Wave(Format(1, 1, kVoiceRate, 16), Tone(7, 10).right(20), 0xFFFFFFFF), 10, 7},
      {Wave(Format(1, 1, 1, 8), QByteArray(100, '\x90')), kLongestSoundSeconds * kVoiceRate, 4096},
      {no_format, 0, 0},
      {Wave(Format(2, 1, kVoiceRate, 16), "\7\0"), 0, 0}};
  int row = 0;
  for (const auto& w : kWaves) {
    const Samples samples = Decode(w.wave);
    EXPECT_TRUE(samples.size() == w.size && All(samples, w.value)) << "row " << row++;
  }
}

// The newest sound replaces the one that plays at once, and the one cut off
// is never resumed; a file that is no wave file the voice reads is silence,
// at once and without a word.
TEST_F(SoundVoiceTest, TheNewestSoundWinsAndAnythingElseIsSilence) {
  const QString sound = Write("Beep0.wav", Tone(1000, 44100));
  voice.Play(sound);
  voice.Play(Write("Beep2.wav", Tone(-2000, 300)));
  EXPECT_TRUE(Hears(300, -2000) && Hears(5000, 0));
  QDir(dir.path()).mkdir("Directory.wav");
  const QString pipe = dir.path() + "/Pipe.wav";
  ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
  QFile huge(Write("Huge.wav", Tone(7, 10)));
  ASSERT_TRUE(huge.resize(33 * 1024 * 1024));  // sparse, made at once
  for (const QString& path : {dir.path() + "/Missing.wav", dir.path() + "/Directory.wav", pipe,
                              huge.fileName(), Write("Text.wav", "no sound")}) {
    voice.Play(sound);
    voice.Play(path);
    EXPECT_TRUE(Hears(2000, 0)) << path.toStdString();
  }
}

// However a file changes, its newest state is heard: copied over at its size
// with its old times kept (a file removed is the silence test's Missing.wav).
TEST_F(SoundVoiceTest, TheNewestStateOfAFileIsHeard) {
  const QString path = Write("Beep0.wav", Tone(1000, 800));
  QThread::msleep(20);  // past the file times' clock tick: the decode is sure of its stamp
  voice.Preload(path);
  voice.Play(path);
  EXPECT_TRUE(Hears(800, 1000));
  const QString other = Write("Other.wav", Tone(-3000, 800));
  ASSERT_EQ(QProcess::execute("touch", {"-r", path, other}), 0);
  ASSERT_EQ(QProcess::execute("cp", {"-p", other, path}), 0);
  voice.Play(path);
  EXPECT_TRUE(Hears(800, -3000));
}

}  // namespace
}  // namespace nautrix
