// The device window and its platform under the offscreen platform: the
// frameless window at its stored position in twips, repaints and tooltips of
// what changed, the pointer held by the pressed object and the keyboard's
// codes; Timer1's sleep between beats. The device's own clock is the e2e
// tier's: its tray test sets it to the alarm's minute with the keys and sees
// the alarm ring.
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QEventLoop>
#include <QTimer>
#include <QToolTip>
#include <functional>

#include <gtest/gtest.h>

#include "shell/pictures/built_pictures.h"
#include "tests/shell/desktop_device.h"

namespace nautrix {
namespace {

QRect Area(Obj o) {
  return QRect(Info(o).rect.left, Info(o).rect.top, Info(o).rect.width, Info(o).rect.height);
}
QPoint Inside(Obj o, int dx, int dy) { return Area(o).topLeft() + QPoint(dx, dy); }

// Runs the event loop until `done`, for `ms` at the most.
bool RunUntil(const std::function<bool()>& done, int ms) {
  for (int waited = 0; !done() && waited < ms; waited += 10) {
    QEventLoop loop;
    QTimer::singleShot(10, &loop, &QEventLoop::quit);
    loop.exec();
  }
  return done();
}

// What the paint events of a widget asked to repaint.
struct PaintRecorder : QObject {
  QRegion painted;
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) painted += static_cast<QPaintEvent*>(event)->region();
    return false;
  }
};
// What a widget repaints for a change, and no earlier change.
QRegion PaintedBy(QWidget& widget, const std::function<void()>& change) {
  QCoreApplication::processEvents();
  PaintRecorder recorder;
  widget.installEventFilter(&recorder);
  change();
  QCoreApplication::processEvents();
  return recorder.painted;
}

class DeviceWindowTest : public ::testing::Test, protected DesktopDevice {
 protected:
  void SetUp() override {
    // An earlier run left the client area at (100, 100).
    Store(platform, "Left", "1455");
    Store(platform, "Top", "1170");
    Load();
  }
  // A pointer event as the desktop sends it, at a client point.
  void Mouse(QEvent::Type type, QPoint at, Qt::MouseButtons held, Qt::MouseButton button = {}) {
    QMouseEvent event(type, at, window.ClientPos() + at, button, held, {});
    QCoreApplication::sendEvent(&window, &event);
  }
  void Press(QPoint at) { Mouse(QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton); }
  void Release(QPoint at) { Mouse(QEvent::MouseButtonRelease, at, {}, Qt::LeftButton); }
  // A held move to a screen point, wherever the window stands now.
  void MoveTo(QPoint global) { Mouse(QEvent::MouseMove, global - window.ClientPos(), Qt::LeftButton); }
  // A key event with the server's time stamp.
  void Key(QEvent::Type type, int key, quint64 time) {
    QKeyEvent event(type, key, {});
    event.setTimestamp(time);
    QCoreApplication::sendEvent(&window, &event);
  }
  QString TipAt(QPoint at) {
    QHelpEvent event(QEvent::ToolTip, at, window.ClientPos() + at);
    QCoreApplication::sendEvent(&window, &event);
    return event.isAccepted() ? QToolTip::text() : QString();
  }
};

// The window stands where the store put it: Left and Top are twips of the
// outer corner of a window framed 45 and 330 twips around its client area
// (the way back, stored by a drag, is the e2e tier's). Only a real change
// repaints, and only the changed objects' rectangles, where the topmost
// shows; the tooltip is the topmost visible, enabled object's.
TEST_F(DeviceWindowTest, AFramelessWindowRepaintsAndExplainsOnlyWhatShows) {
  EXPECT_EQ(window.ClientPos(), QPoint(100, 100));
  window.show();
  EXPECT_EQ(TipAt(Inside(Obj::Note, 2, 2)), "");  // the note, hidden, has no say
  EXPECT_EQ(PaintedBy(window, [&] { form.Show(Obj::Note), form.Show(Obj::BabyNautrix); }),
            QRegion(Area(Obj::Note)) + Area(Obj::BabyNautrix));
  EXPECT_TRUE(PaintedBy(window, [&] {
    form.Show(Obj::Note), form.CopyPicture(Button0(0), Obj::GameAButton);
  }).isEmpty());
  EXPECT_EQ(PaintedBy(window, [&] { form.CopyPicture(Button0(1), Obj::GameAButton); }),
            QRegion(Area(Obj::GameAButton)));
  const auto rgb = [](const QImage& image) { return image.convertToFormat(QImage::Format_RGB32); };
  EXPECT_EQ(rgb(window.grab(Area(Obj::Note)).toImage()),  // the note shows over the case
            rgb(PicturesFor(1)->Picture(Info(Obj::Note).picture)));
  form.Show(Obj::GameType0);  // shown, but disabled: the case answers
  EXPECT_EQ(TipAt(Inside(Obj::Note, 2, 2)) + "|" + TipAt(Inside(Obj::GameType0, 1, 1)),
            "Musical note symbol|");
}

// The pressed object holds the pointer, with X and Y in twips from its own
// corner, over other objects, until the release: a segment drags the window
// along (what the drag stores is the e2e tier's); a double click turns the
// device over and back; a key let go elsewhere comes up.
TEST_F(DeviceWindowTest, ThePressedObjectHoldsThePointerUntilTheReleaseAndDrags) {
  const QPoint grip = Inside(Obj::Nautrix0, 3, 2);  // (164, 77), in a window at (100, 100)
  Press(grip);
  EXPECT_TRUE(window.Captured() == Obj::Nautrix0 && form.DragX == 45 && form.DragY == 30);
  MoveTo({130, 140});  // onto the logo
  EXPECT_EQ(window.ClientPos(), QPoint(-34, 63));
  EXPECT_TRUE(form.SamePicture(Obj::Logo, TPLogo(0))) << "the logo took a held pointer";
  MoveTo({130, 140});  // caught up: no further
  EXPECT_EQ(window.ClientPos(), QPoint(-34, 63));
  Release(grip);
  EXPECT_EQ(window.Captured(), Obj::Count);

  Press(Inside(Obj::LeftButton, 5, 5));
  EXPECT_TRUE(form.SamePicture(Obj::LeftButton, Button1(1)));
  MoveTo(QPoint(-34, 63) + QPoint(5, 8));  // over the case
  EXPECT_TRUE(window.Captured() == Obj::LeftButton && !form.Dragging);
  Release({300, 190});
  EXPECT_TRUE(window.Captured() == Obj::Count && form.SamePicture(Obj::LeftButton, Button1(0)));

  // Where only the compositor may move a window (native Wayland), a drag of
  // the case asks it to, once the pointer has really moved, and the drag ends
  // there; a click and a double click stay what they are. Leaving the window
  // ends the logo's light.
  int moves = 0;
  window.SetSystemMove([&] { return ++moves, true; });
  const QPoint case_grip = Inside(Obj::FrontCase, 200, 150);
  Press(case_grip);
  MoveTo(window.ClientPos() + case_grip + QPoint(1, 0));
  Release(case_grip);
  Mouse(QEvent::MouseButtonDblClick, case_grip, Qt::LeftButton, Qt::LeftButton);
  EXPECT_TRUE(form.mBack.Checked && moves == 0);
  Mouse(QEvent::MouseButtonDblClick, case_grip, Qt::LeftButton, Qt::LeftButton);
  EXPECT_FALSE(form.mBack.Checked);  // the back turned to the front again
  Press(case_grip);
  MoveTo(window.ClientPos() + case_grip + QPoint(40, 0));
  MoveTo(window.ClientPos() + case_grip + QPoint(80, 0));
  EXPECT_TRUE(moves == 1 && !form.Dragging && window.ClientPos() == QPoint(-34, 63));
  form.Logo_MouseMove(0, 0, 0, 0);
  QEvent leave(QEvent::Leave);
  QCoreApplication::sendEvent(&window, &leave);
  EXPECT_TRUE(form.SamePicture(Obj::Logo, TPLogo(0)));
}

// Keys as an X server reports them (Qt's key, native scan code and keysym)
// where no layout of the e2e tier's (US, French, Russian) goes: a Cyrillic
// letter at a place with no Latin letter, the keypad, a key with a modifier
// held.
TEST(KeyCodes, TheDesktopsKeysInTheDevicesCodes) {
  const Qt::KeyboardModifiers kPad = Qt::KeypadModifier;
  const struct { int key; Qt::KeyboardModifiers mods; quint32 scan, sym; int code; } kKeys[] = {
      {0x416, {}, 47, 0x6d6, 0},      {Qt::Key_1, kPad, 87, 0xffb1, 97},  // no device key's code
      {Qt::Key_Down, kPad, 0, 0, 40}, {Qt::Key_T, Qt::AltModifier, 0, 0, 84}};
  for (const auto& k : kKeys)
    EXPECT_EQ(VirtualKeyCode(k.key, k.mods, k.scan, k.sym), k.code) << std::hex << k.key;
}

// A server that cannot hold back a held key's releases repeats it as release
// and press pairs with one time stamp, and Qt marks none of them when their
// press comes late: the window still tells the device one press and one
// release, so S held toggles the sound once (the real auto-repeat's holds,
// Right held in alarm setting among them, are the e2e tier's). A release
// followed by a press of the same key at another time is two presses, and a
// click after a release comes after it.
TEST_F(DeviceWindowTest, AHoldWhoseRepeatsComeUnmarkedIsOnePress) {
  const auto hold = [&](quint64 from, quint64 to) {
    Key(QEvent::KeyPress, Qt::Key_S, from);
    for (quint64 t = from + 500; t < to; t += 40)
      Key(QEvent::KeyRelease, Qt::Key_S, t), Key(QEvent::KeyPress, Qt::Key_S, t);
    Key(QEvent::KeyRelease, Qt::Key_S, to);
  };
  const bool sound = form.mSound.Checked;
  hold(100, 1000);
  EXPECT_TRUE(form.KeyLatch && form.mSound.Checked == sound) << "released before the queue drained";
  // The events on their way come in, and the release held back goes.
  RunUntil([] { return false; }, 60);
  EXPECT_FALSE(form.KeyLatch || form.mSound.Checked == sound);

  hold(5000, 5100);
  Key(QEvent::KeyPress, Qt::Key_S, 5120);
  EXPECT_TRUE(form.KeyLatch && form.mSound.Checked == sound);
  Key(QEvent::KeyRelease, Qt::Key_S, 5200);
  Press(Inside(Obj::GameAButton, 2, 2));
  EXPECT_TRUE(!form.KeyLatch && form.mSound.Checked != sound && form.PressedKey == 1);
}

// The idle device's Timer1 sleeps to the edge of the next second; a computer
// clock that someone sets brings the beat back at once (the readout follows
// long before the sleep would end), and a key down (GAME A) holds it until
// its release starts the game. The computer's clock is the platform's seam.
TEST(Timer1Sleep, TheIdleDeviceSleepsAndAnEventOrASetClockWakesIt) {
  DesktopDevice d;
  int now = (9 * 3600 + 5) * 1000 + 400;  // 09:00:05.400 on the computer
  d.platform.computer_time_ms = [&now] { return now; };
  d.Load();
  d.platform.StartTimer1();
  const auto asleep = [&d] { return d.platform.Asleep(); };
  const auto hour_shown = [&d](int h) { return d.form.SamePicture(HourDigit(1), Number(h)); };
  EXPECT_TRUE(RunUntil(asleep, 2000) && hour_shown(9));
  now += 3600 * 1000;
  d.platform.ClockWasSet();
  EXPECT_FALSE(asleep());
  EXPECT_TRUE(RunUntil([&] { return hour_shown(0); }, 400) && RunUntil(asleep, 2000));
  QKeyEvent down(QEvent::KeyPress, Qt::Key_1, {}, QStringLiteral("1"));
  QCoreApplication::sendEvent(&d.window, &down);
  EXPECT_FALSE(asleep());
  RunUntil(asleep, 120);
  EXPECT_FALSE(asleep());
}

}  // namespace
}  // namespace nautrix
