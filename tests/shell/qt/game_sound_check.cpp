// The audio check of a game: the real window, platform and voice, a Game A
// started as its key starts it, left to play for some seconds. The end-to-end
// test records what reaches the speakers; this program reports what the
// voice was asked to play and how soon each sound left for the speakers.
// Then the sound is switched off until the voice has gone to sleep, and a
// beep played on it shows the delay of a sleeping voice.
//
//   nautrix_game_sound_check [seconds [wakes]]     (default 8 and 3)
#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>

#include "shell/qt/device_app.h"

namespace {

struct Delays {
  qint64 worst = -1, total = 0;
  int count = 0;
  void Add(qint64 ms) {
    worst = std::max(worst, ms);
    total += ms;
    ++count;
  }
  void Print(const char* what) const {
    std::printf("%s mean=%.1f worst=%lld over=%d\n", what,
                count ? static_cast<double>(total) / count : -1.0, static_cast<long long>(worst),
                count);
  }
};

}  // namespace

int main(int argc, char** argv) {
  const double seconds = argc > 1 ? std::atof(argv[1]) : 8.0;
  const int wakes = argc > 2 ? std::atoi(argv[2]) : 3;
  QApplication app(argc, argv);
  app.setQuitOnLastWindowClosed(false);

  nautrix::DeviceApp device;
  device.Start();
  nautrix::QtPlatform& platform = device.platform;
  nautrix::Form1& form = device.form;

  form.GameMode = 1;
  form.StartGame();

  // Every sound's delay, taken once the voice has handed its first sample on.
  nautrix::SoundVoice& voice = platform.voice();
  Delays game, awake;
  Delays* current = &game;
  int seen_plays = 0;
  bool playing_throughout = true, in_game = true;
  QTimer watch;
  watch.setTimerType(Qt::PreciseTimer);
  QObject::connect(&watch, &QTimer::timeout, [&] {
    if (in_game) playing_throughout = playing_throughout && form.Playing;
    if (voice.plays() != seen_plays && voice.StartDelayMs() >= 0) {
      seen_plays = voice.plays();
      current->Add(voice.StartDelayMs());
    }
  });
  watch.start(2);

  QElapsedTimer run;
  run.start();
  const std::string beep = platform.ProgramFolder() + "/Beep0.wav";
  int woken = 0, slept = 0;
  std::function<void()> wake_once;
  wake_once = [&] {
    if (woken == wakes) {
      awake.Print("wake_delay_ms");
      std::printf("slept_before_wakes=%d of %d\n", slept, wakes);
      std::fflush(stdout);
      app.exit(playing_throughout && game.count > 0 && slept == wakes ? 0 : 1);
      return;
    }
    slept += voice.Asleep() ? 1 : 0;
    ++woken;
    platform.PlayWave(beep);
    QTimer::singleShot(1800, Qt::PreciseTimer, wake_once);
  };
  QTimer::singleShot(static_cast<int>(seconds * 1000), Qt::PreciseTimer, [&] {
    in_game = false;
    std::printf("seconds=%.2f plays=%d timer_ms=%d playing=%d decodes=%d\n", run.elapsed() / 1000.0,
                voice.plays(), platform.Timer1Ms(), playing_throughout ? 1 : 0, voice.decodes());
    game.Print("start_delay_ms");
    std::fflush(stdout);
    // The device's own switch silences the game; the voice then sleeps.
    form.mSound.Checked = false;
    current = &awake;
    QTimer::singleShot(1800, Qt::PreciseTimer, wake_once);
  });
  return app.exec();
}
