// What the desktop shell costs on the tick's path: a store read (the idle
// readout reads "Alarm On" at every tick), and one after another copy wrote
// the store (the file read again), the device clock, a beep started
// from a decoded file, the voice's feed, a whole idle tick through the real
// platform and window, and, off the tick's path, a store write with its sync.
#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include "device/form1.h"
#include "shell/window/device_window.h"
#include "shell/window/qt_platform.h"
#include "shell/sound/sound_voice.h"
#include "tests/shell/desktop_device.h"

namespace nautrix {
namespace {

constexpr char kApp[] = "Tickplay Simulator";
constexpr char kSection[] = "Nautrix";

void BM_StoreRead(benchmark::State& state) {
  QTemporaryDir dir;
  ScopedStoreFolder folder(dir.path());
  QtPlatform platform(false);
  platform.SaveSetting(kApp, kSection, "Alarm On", "False");
  for (auto _ : state) benchmark::DoNotOptimize(platform.GetSetting(kApp, kSection, "Alarm On", ""));
}
BENCHMARK(BM_StoreRead);

void BM_StoreReadAfterAnotherCopyWrote(benchmark::State& state) {
  QTemporaryDir dir;
  ScopedStoreFolder folder(dir.path());
  QtPlatform platform(false), other(false);
  for (const char* key : {"Sound", "Left", "Top", "Diver Speed", "Game A Speed", "Game B Speed",
                          "Game A High Score", "Game B High Score", "Alarm Time", "Alarm On",
                          "Always on Top", "Auto Show"})
    other.SaveSetting(kApp, kSection, key, "120000 PM");  // a store of the usual size
  int n = 0;
  for (auto _ : state) {
    state.PauseTiming();
    other.SaveSetting(kApp, kSection, "Left", std::to_string(n++ % 1000));
    QCoreApplication::processEvents();  // the folder's watch reports it
    state.ResumeTiming();
    benchmark::DoNotOptimize(platform.GetSetting(kApp, kSection, "Alarm On", ""));
  }
}
BENCHMARK(BM_StoreReadAfterAnotherCopyWrote)->Iterations(300);  // each write costs ms untimed

void BM_StoreWrite(benchmark::State& state) {
  QTemporaryDir dir;
  ScopedStoreFolder folder(dir.path());
  QtPlatform platform(false);
  int n = 0;
  for (auto _ : state) platform.SaveSetting(kApp, kSection, "Left", std::to_string(n++ % 1000));
  state.SetLabel("with the sync to disk");
}
BENCHMARK(BM_StoreWrite)->Unit(benchmark::kMicrosecond);

void BM_DeviceClock(benchmark::State& state) {
  TestApp();
  QtPlatform platform(false);
  for (auto _ : state) benchmark::DoNotOptimize(platform.Now());
}
BENCHMARK(BM_DeviceClock);

QString WriteBeep(const QTemporaryDir& dir) {
  QByteArray wave("RIFF\0\0\0\0WAVEfmt \x10\0\0\0\x01\0\x01\0\x44\xac\0\0\x88\x58\x01\0\x02\0\x10\0data", 40);
  const int samples = 44100 * 40 / 1000;  // a 40 ms beep
  for (char c : {char(samples * 2), char(samples * 2 >> 8), char(0), char(0)}) wave.append(c);
  for (int i = 0; i < samples; ++i) wave.append(i % 50 < 25 ? "\x00\x40" : "\x00\xc0", 2);
  QFile file(dir.path() + "/Beep0.wav");
  file.open(QIODevice::WriteOnly);
  file.write(wave);
  return file.fileName();
}

// The tick's share of a beep: the file's look-up and the switch of sounds.
void BM_PlayDecodedBeep(benchmark::State& state) {
  TestApp();
  QTemporaryDir dir;
  const QString path = WriteBeep(dir);
  SoundVoice voice(false);
  voice.Preload(path);
  for (auto _ : state) voice.Play(path);
}
BENCHMARK(BM_PlayDecodedBeep);

// One request of the audio server: 10 ms of a sounding beep.
void BM_VoiceFeed10ms(benchmark::State& state) {
  TestApp();
  QTemporaryDir dir;
  const QString path = WriteBeep(dir);
  SoundVoice voice(false);
  int16_t out[441];
  for (auto _ : state) {
    state.PauseTiming();
    voice.Play(path);
    state.ResumeTiming();
    voice.reader().Read(out, 441);
    benchmark::DoNotOptimize(out);
  }
}
BENCHMARK(BM_VoiceFeed10ms);

// A tick of the idle clock screen on the desktop platform, with the window
// (offscreen) taking the repaint requests.
void BM_IdleTickOnTheDesktop(benchmark::State& state) {
  DesktopDevice device;
  device.Load();
  for (auto _ : state) device.form.Timer1_Timer();
}
BENCHMARK(BM_IdleTickOnTheDesktop);

}  // namespace
}  // namespace nautrix
