// The audio check of a game: the real window, platform and voice, a Game A
// started as its key starts it, left to play for some seconds. The end-to-end
// test records what reaches the speakers; this program reports what the
// voice was asked to play and how soon each sound was handed to the sink.
//
//   nautrix_game_sound_check [seconds]     (default 8)
#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "device/form1.h"
#include "shell/qt/device_window.h"
#include "shell/qt/qt_platform.h"

int main(int argc, char** argv) {
  const double seconds = argc > 1 ? std::atof(argv[1]) : 8.0;
  QApplication app(argc, argv);
  app.setQuitOnLastWindowClosed(false);

  nautrix::QtPlatform platform;
  nautrix::Form1 form(platform);
  nautrix::DeviceWindow window(form);
  platform.Attach(form, window);
  form.Form_Load();
  window.show();
  platform.StartTimer1();

  form.GameMode = 1;
  form.StartGame();

  // Watch every sound start: how long until the sink took its first sample.
  nautrix::SoundVoice& voice = platform.voice();
  int seen_plays = 0;
  qint64 worst_delay = -1, total_delay = 0;
  int delays = 0;
  bool playing_throughout = true;
  QTimer watch;
  watch.setTimerType(Qt::PreciseTimer);
  QObject::connect(&watch, &QTimer::timeout, [&] {
    playing_throughout = playing_throughout && form.Playing;
    const qint64 delay = voice.reader().StartDelayMs();
    if (voice.plays() != seen_plays && delay >= 0) {
      seen_plays = voice.plays();
      worst_delay = std::max(worst_delay, delay);
      total_delay += delay;
      ++delays;
    }
  });
  watch.start(2);

  QElapsedTimer run;
  run.start();
  QTimer::singleShot(static_cast<int>(seconds * 1000), [&] {
    std::printf("seconds=%.2f plays=%d timer_ms=%d playing=%d decodes=%d suspended=%d\n",
                run.elapsed() / 1000.0, voice.plays(), platform.Timer1Ms(),
                playing_throughout ? 1 : 0, voice.decodes(), voice.Suspended() ? 1 : 0);
    std::printf("start_delay_ms mean=%.1f worst=%lld over=%d\n",
                delays ? static_cast<double>(total_delay) / delays : -1.0,
                static_cast<long long>(worst_delay), delays);
    std::fflush(stdout);
    app.exit(playing_throughout && voice.plays() > 0 ? 0 : 1);
  });
  return app.exec();
}
