// TIMER1 - the idle device's Timer1 sleeps to the edge of the next second;
// any event, and a computer clock that someone sets, bring the beat back at
// once. The computer's clock here is the platform's seam, never the real one.
#include <QEventLoop>
#include <QKeyEvent>
#include <QTimer>
#include <functional>

#include <gtest/gtest.h>

#include "tests/shell/desktop_device.h"

namespace nautrix {
namespace {

void RunEvents(int ms) {
  QEventLoop loop;
  QTimer::singleShot(ms, &loop, &QEventLoop::quit);
  loop.exec();
}

// Runs the event loop until `done`, for `ms` at the most.
bool RunUntil(const std::function<bool()>& done, int ms = 2000) {
  for (int waited = 0; !done() && waited < ms; waited += 10) RunEvents(10);
  return done();
}

TEST(Timer1Sleep, TheIdleDeviceSleepsAndAnEventOrASetClockWakesIt) {
  DesktopDevice d;
  int now = (9 * 3600 + 5) * 1000 + 400;  // 09:00:05.400 on the computer
  d.platform.computer_time_ms = [&now] { return now; };
  d.Load();
  d.platform.StartTimer1();
  const auto hour_shown = [&d](int h) { return d.form.SamePicture(HourDigit(1), Number(h)); };
  EXPECT_TRUE(RunUntil([&d] { return d.platform.Asleep(); }));
  EXPECT_TRUE(hour_shown(9));

  // Someone sets the computer's clock: the readout follows within a beat,
  // long before the sleep to the next second would end.
  now += 3600 * 1000;
  d.platform.ClockWasSet();
  EXPECT_FALSE(d.platform.Asleep());
  EXPECT_TRUE(RunUntil([&] { return hour_shown(0); }, 400));
  EXPECT_TRUE(RunUntil([&d] { return d.platform.Asleep(); }));

  // A key down (GAME A) holds the beat until its release starts the game.
  QKeyEvent down(QEvent::KeyPress, Qt::Key_1, {}, QStringLiteral("1"));
  QCoreApplication::sendEvent(&d.window, &down);
  EXPECT_FALSE(d.platform.Asleep());
  RunEvents(120);
  EXPECT_FALSE(d.platform.Asleep());
}

}  // namespace
}  // namespace nautrix
