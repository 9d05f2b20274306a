// The device window and its platform under the offscreen platform: the stored
// position in twips, repaints of only what changed, the pointer held by the
// pressed object, the keyboard's codes, tooltips, Timer1 and the clock.
#include <gtest/gtest.h>

#include <QDir>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QTemporaryDir>
#include <QThread>
#include <QToolTip>
#include <set>

#include "device/store_keys.h"
#include "shell/qt/device_window.h"
#include "shell/qt/qt_platform.h"
#include "tests/shell/qt/qt_test_app.h"

namespace nautrix {
namespace {

constexpr char kApp[] = "Tickplay Simulator";
constexpr char kSection[] = "Nautrix";

// Paint events of a widget, with the region each one asked for.
class PaintRecorder : public QObject {
 public:
  QRegion painted;
  int paints = 0;
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) {
      ++paints;
      painted += static_cast<QPaintEvent*>(event)->region();
    }
    return false;
  }
};

class DeviceWindowTest : public ::testing::Test {
 protected:
  QTemporaryDir dir;
  ScopedStoreFolder folder{dir.path()};
  QtPlatform platform{false};
  Form1 form{platform};
  DeviceWindow window{form};

  void SetUp() override {
    platform.Attach(form, window);
    // A store of an earlier run with the client area at (100, 100).
    const std::pair<const char*, const char*> kStore[] = {
        {"Sound", "True"},         {"Left", "1455"},          {"Top", "1170"},
        {"Diver Speed", "300"},    {"Game A Speed", "220"},   {"Game B Speed", "170"},
        {"Game A High Score", "7"}, {"Game B High Score", "0"}, {"Alarm Time", "120000 PM"},
        {"Alarm On", "False"},     {"Always on Top", "False"}, {"Auto Show", "True"}};
    for (const auto& [key, value] : kStore) platform.SaveSetting(kApp, kSection, key, value);
    form.Form_Load();
  }

  // Pointer events as the desktop sends them, at a client point.
  void Mouse(QEvent::Type type, QPoint client, Qt::MouseButton button, Qt::MouseButtons held) {
    const QPoint global = window.ClientPos() + client;
    QMouseEvent event(type, QPointF(client), QPointF(global), button, held, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &event);
  }
  void Press(QPoint p, Qt::MouseButton b = Qt::LeftButton, Qt::MouseButtons held = Qt::LeftButton) {
    Mouse(QEvent::MouseButtonPress, p, b, held);
  }
  void Release(QPoint p, Qt::MouseButton b = Qt::LeftButton, Qt::MouseButtons held = {}) {
    Mouse(QEvent::MouseButtonRelease, p, b, held);
  }
  void Move(QPoint p, Qt::MouseButtons held) { Mouse(QEvent::MouseMove, p, Qt::NoButton, held); }
  // A move to a screen point, whatever the window's position.
  void MoveGlobal(QPoint global, Qt::MouseButtons held) {
    QMouseEvent event(QEvent::MouseMove, QPointF(global - window.ClientPos()), QPointF(global),
                      Qt::NoButton, held, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &event);
  }
  void Key(QEvent::Type type, int key, bool repeat = false,
           Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QKeyEvent event(type, key, modifiers, QString(), repeat);
    QCoreApplication::sendEvent(&window, &event);
  }
  bool KeyDown(Obj key, Obj down_sprite) const { return form.SamePicture(key, down_sprite); }
};

// ---- The stored position -------------------------------------------------

// Stored Left and Top are twips of the outer corner of a window framed 45
// and 330 twips around its client area, converted to the nearest pixel.
TEST(WindowPosition, TwipsAndPixelsConvertBothWays) {
  EXPECT_EQ(ClientFromTwips(-45, -330), QPoint(0, 0));
  EXPECT_EQ(ClientFromTwips(-44, -336), QPoint(0, 0));  // the first-run values
  EXPECT_EQ(ClientFromTwips(1455, 1170), QPoint(100, 100));
  EXPECT_EQ(ClientFromTwips(-45 + 7, -330 + 8), QPoint(0, 1));
  EXPECT_EQ(ClientFromTwips(-45 - 8, -330 - 7), QPoint(-1, 0));
  EXPECT_EQ(LeftFromClient(0), -45);
  EXPECT_EQ(TopFromClient(0), -330);
  EXPECT_EQ(LeftFromClient(100), 1455);
  EXPECT_EQ(TopFromClient(-3), -375);
  for (int x : {-500, -1, 0, 1, 17, 1919}) {
    EXPECT_EQ(ClientFromTwips(LeftFromClient(x), TopFromClient(x)), QPoint(x, x));
  }
}

TEST(WindowPosition, AFirstRunStoresThePositionAsTheWindowReportsIt) {
  QTemporaryDir dir;
  ScopedStoreFolder folder(dir.path());
  QtPlatform platform(false);
  Form1 form(platform);
  DeviceWindow window(form);
  platform.Attach(form, window);
  form.Form_Load();
  EXPECT_EQ(window.pos(), QPoint(0, 0));
  EXPECT_EQ(platform.GetSetting(kApp, kSection, "Left", ""), "-45");
  EXPECT_EQ(platform.GetSetting(kApp, kSection, "Top", ""), "-330");
}

// ---- Repaints --------------------------------------------------------------

TEST_F(DeviceWindowTest, OnlyTheRectanglesOfChangedObjectsAreRepainted) {
  window.show();
  PaintRecorder recorder;
  window.installEventFilter(&recorder);
  QCoreApplication::processEvents();
  recorder.painted = QRegion();
  recorder.paints = 0;

  form.Show(Obj::Note);
  form.Show(Obj::BabyNautrix);
  QCoreApplication::processEvents();
  const Rect note = Info(Obj::Note).rect, baby = Info(Obj::BabyNautrix).rect;
  EXPECT_EQ(recorder.painted, QRegion(note.left, note.top, note.width, note.height) +
                                  QRegion(baby.left, baby.top, baby.width, baby.height));

  // Showing what is shown, or giving a key the picture it has, paints nothing.
  recorder.painted = QRegion();
  recorder.paints = 0;
  form.Show(Obj::Note);
  form.CopyPicture(Button0(0), Obj::GameAButton);
  QCoreApplication::processEvents();
  EXPECT_EQ(recorder.paints, 0);

  // A key that goes down repaints the key alone.
  form.CopyPicture(Button0(1), Obj::GameAButton);
  QCoreApplication::processEvents();
  const Rect key = Info(Obj::GameAButton).rect;
  EXPECT_EQ(recorder.painted, QRegion(key.left, key.top, key.width, key.height));
  window.removeEventFilter(&recorder);
}

// ---- The pointer -------------------------------------------------------------

// A left press on the case starts the drag with X and Y in twips from the
// case's corner; the case keeps the pointer while it passes over the logo,
// and the window follows the pointer until the release stores it.
TEST_F(DeviceWindowTest, TheCaseHoldsThePointerThroughTheDrag) {
  Press({5, 8});
  EXPECT_TRUE(form.Dragging);
  EXPECT_EQ(form.DragX, 75);
  EXPECT_EQ(form.DragY, 120);

  const QPoint start = window.ClientPos();
  Move({30, 40}, Qt::LeftButton);  // over the logo
  EXPECT_EQ(window.ClientPos(), start + QPoint(25, 32));
  EXPECT_TRUE(form.SamePicture(Obj::Logo, TPLogo(0))) << "the logo took a held pointer";
  EXPECT_EQ(form.PressedKey, kNoKey);

  // The window has caught up: the same screen point moves it no further.
  MoveGlobal(start + QPoint(30, 40), Qt::LeftButton);
  EXPECT_EQ(window.ClientPos(), start + QPoint(25, 32));

  // Far off the window, the case still has the pointer.
  MoveGlobal(start + QPoint(-200, 500), Qt::LeftButton);
  EXPECT_EQ(window.ClientPos(), start + QPoint(-205, 492));
  Release(QPoint(5, 8));
  EXPECT_FALSE(form.Dragging);
  EXPECT_EQ(platform.GetSetting(kApp, kSection, "Left", ""), std::to_string(1455 - 205 * 15));
  EXPECT_EQ(platform.GetSetting(kApp, kSection, "Top", ""), std::to_string(1170 + 492 * 15));
}

// With no button held a move goes to the object under the pointer: the logo
// lights, and the case puts it out.
TEST_F(DeviceWindowTest, AFreePointerMeetsTheObjectUnderIt) {
  Move({30, 40}, {});
  EXPECT_TRUE(form.SamePicture(Obj::Logo, TPLogo(1)));
  Move({5, 8}, {});
  EXPECT_TRUE(form.SamePicture(Obj::Logo, TPLogo(0)));
  EXPECT_EQ(window.Captured(), Obj::Count);
}

// A key pressed and let go far away: the release reaches the key, which
// comes up; the press's object keeps the pointer all along.
TEST_F(DeviceWindowTest, AKeyKeepsThePointerUntilTheRelease) {
  const Rect left = Info(Obj::LeftButton).rect;
  const QPoint on_key(left.left + 5, left.top + 5);
  Press(on_key);
  EXPECT_EQ(window.Captured(), Obj::LeftButton);
  EXPECT_TRUE(KeyDown(Obj::LeftButton, Button1(1)));
  Move({5, 8}, Qt::LeftButton);
  EXPECT_EQ(window.Captured(), Obj::LeftButton);
  EXPECT_FALSE(form.Dragging) << "the case took a move of the key's pointer";
  Release({300, 190});
  EXPECT_EQ(window.Captured(), Obj::Count);
  EXPECT_TRUE(KeyDown(Obj::LeftButton, Button1(0)));
}

// A second button during a drag goes to the object that has the pointer,
// and moves then carry the sum of the held buttons: the window stands still
// until the left button is alone again.
TEST_F(DeviceWindowTest, MovesCarryTheSumOfTheHeldButtons) {
  Press({5, 8});
  Press({5, 8}, Qt::MiddleButton, Qt::LeftButton | Qt::MiddleButton);
  EXPECT_EQ(window.Captured(), Obj::FrontCase);
  const QPoint start = window.ClientPos();
  Move({40, 8}, Qt::LeftButton | Qt::MiddleButton);
  EXPECT_EQ(window.ClientPos(), start);
  Release({40, 8}, Qt::MiddleButton, Qt::LeftButton);
  EXPECT_EQ(window.Captured(), Obj::FrontCase);
  Move({40, 8}, Qt::LeftButton);
  EXPECT_EQ(window.ClientPos(), start + QPoint(35, 0));
  Release({5, 8});
}

// A double click comes in place of the second press: it turns the device
// over, and the second release ends no drag. The back, now in front, takes
// the next double click and turns it back.
TEST_F(DeviceWindowTest, ADoubleClickTurnsTheDeviceOver) {
  auto double_click = [&](QPoint p) {
    Press(p);
    Release(p);
    Mouse(QEvent::MouseButtonDblClick, p, Qt::LeftButton, Qt::LeftButton);
    Release(p);
  };
  const Rect tip = Info(Tentacle(2, 4)).rect;
  form.Show(Tentacle(2, 4));
  double_click({tip.left + 2, tip.top + 2});
  EXPECT_TRUE(form.IsVisible(Obj::BackCase));
  EXPECT_TRUE(form.mBack.Checked);
  EXPECT_FALSE(form.Dragging);
  double_click({tip.left + 2, tip.top + 2});
  EXPECT_FALSE(form.IsVisible(Obj::BackCase));
  EXPECT_FALSE(form.mBack.Checked);
}

// ---- Tooltips ------------------------------------------------------------------

TEST_F(DeviceWindowTest, TheTooltipIsTheTopmostObjects) {
  window.show();
  auto tip_at = [&](QPoint client) {
    QHelpEvent event(QEvent::ToolTip, client, window.ClientPos() + client);
    QCoreApplication::sendEvent(&window, &event);
    return event.isAccepted() ? QToolTip::text() : QString();
  };
  const Rect game_a = Info(Obj::GameAButton).rect;
  EXPECT_EQ(tip_at({game_a.left + 1, game_a.top + 1}), "GAME A");
  // DiverStep(0) lies in front of the sea: "Diver".
  const Rect boat = Info(DiverStep(0)).rect;
  EXPECT_EQ(tip_at({boat.left + 1, boat.top + 1}), "Diver");
  EXPECT_EQ(tip_at({5, 190}), "");  // the case has none
}

// ---- The keyboard ------------------------------------------------------------------

TEST(KeyCodes, KeysMapToTheDevicesCodes) {
  EXPECT_EQ(VirtualKeyCode(Qt::Key_A, Qt::NoModifier), 65);
  EXPECT_EQ(VirtualKeyCode(Qt::Key_Z, Qt::ShiftModifier), 90);
  EXPECT_EQ(VirtualKeyCode(Qt::Key_T, Qt::ControlModifier), 84);
  EXPECT_EQ(VirtualKeyCode(Qt::Key_0, Qt::NoModifier), 48);
  EXPECT_EQ(VirtualKeyCode(Qt::Key_1, Qt::NoModifier), 49);
  EXPECT_EQ(VirtualKeyCode(Qt::Key_Exclam, Qt::ShiftModifier), 49);  // Shift+1 is still 1
  EXPECT_EQ(VirtualKeyCode(Qt::Key_At, Qt::ShiftModifier), 50);
  EXPECT_EQ(VirtualKeyCode(Qt::Key_Left, Qt::NoModifier), 37);
  EXPECT_EQ(VirtualKeyCode(Qt::Key_Up, Qt::NoModifier), 38);
  EXPECT_EQ(VirtualKeyCode(Qt::Key_Right, Qt::NoModifier), 39);
  EXPECT_EQ(VirtualKeyCode(Qt::Key_Down, Qt::KeypadModifier), 40);
  EXPECT_EQ(VirtualKeyCode(Qt::Key_F1, Qt::NoModifier), 112);
  EXPECT_EQ(VirtualKeyCode(Qt::Key_Return, Qt::NoModifier), 13);
  EXPECT_EQ(VirtualKeyCode(Qt::Key_Enter, Qt::KeypadModifier), 13);
  EXPECT_EQ(VirtualKeyCode(Qt::Key_Escape, Qt::NoModifier), 27);
  EXPECT_EQ(VirtualKeyCode(Qt::Key_PageUp, Qt::NoModifier), 33);
  EXPECT_EQ(VirtualKeyCode(Qt::Key_PageDown, Qt::NoModifier), 34);
  EXPECT_EQ(VirtualKeyCode(Qt::Key_Home, Qt::NoModifier), 36);
  EXPECT_EQ(VirtualKeyCode(Qt::Key_End, Qt::NoModifier), 35);
  EXPECT_EQ(VirtualKeyCode(Qt::Key_Backspace, Qt::NoModifier), 8);
  // The keypad's digits have codes of their own, which no device key has.
  for (int d = 0; d <= 9; ++d) {
    EXPECT_EQ(VirtualKeyCode(Qt::Key_0 + d, Qt::KeypadModifier), 96 + d);
  }
}

TEST_F(DeviceWindowTest, KeypadDigitsWorkNoDeviceKey) {
  Key(QEvent::KeyPress, Qt::Key_1, false, Qt::KeypadModifier);
  EXPECT_FALSE(form.KeyLatch);
  EXPECT_FALSE(KeyDown(Obj::GameAButton, Button0(1)));
  Key(QEvent::KeyRelease, Qt::Key_1, false, Qt::KeypadModifier);

  Key(QEvent::KeyPress, Qt::Key_1);
  EXPECT_TRUE(form.KeyLatch);
  EXPECT_TRUE(KeyDown(Obj::GameAButton, Button0(1)));
}

// X sends a held key's repeats as releases and presses: the releases are
// dropped, so S held through three repeats toggles the sound once.
TEST_F(DeviceWindowTest, AHeldKeyIsOnePressAndOneRelease) {
  const bool sound = form.mSound.Checked;
  Key(QEvent::KeyPress, Qt::Key_S);
  for (int i = 0; i < 3; ++i) {
    Key(QEvent::KeyRelease, Qt::Key_S, true);
    Key(QEvent::KeyPress, Qt::Key_S, true);
    EXPECT_EQ(form.mSound.Checked, sound);
    EXPECT_TRUE(form.KeyLatch);
  }
  Key(QEvent::KeyRelease, Qt::Key_S);
  EXPECT_EQ(form.mSound.Checked, !sound);
  EXPECT_FALSE(form.KeyLatch);
}

// ---- Timer1 and the clock ----------------------------------------------------------

TEST_F(DeviceWindowTest, Timer1RunsOnlyOnceStartedAndStopsAtZero) {
  EXPECT_FALSE(platform.Timer1Running());
  platform.SetTimerInterval(200);
  EXPECT_FALSE(platform.Timer1Running());
  platform.StartTimer1();
  EXPECT_TRUE(platform.Timer1Running());
  EXPECT_EQ(platform.Timer1Ms(), 200);
  platform.SetTimerInterval(0);
  EXPECT_FALSE(platform.Timer1Running());
}

// Setting the interval it already has does not start the beat over, or a
// device that sets it at every tick would never tick.
TEST_F(DeviceWindowTest, TheSameIntervalDoesNotRestartTheBeat) {
  platform.SetTimerInterval(300);
  platform.StartTimer1();
  QThread::msleep(200);
  platform.SetTimerInterval(300);
  EXPECT_TRUE(platform.Timer1Running());
  // What is left of the beat is what was left before the call.
  EXPECT_LT(platform.Timer1RemainingMs(), 200);
  platform.SetTimerInterval(310);
  EXPECT_GT(platform.Timer1RemainingMs(), 250);
}

TEST_F(DeviceWindowTest, SettingTheTimeOfDayMovesOnlyTheDevicesClock) {
  platform.SetTimeOfDay("12:00:00 AM");
  ClockTime t = platform.Now();
  EXPECT_EQ(t.hour, 0);
  EXPECT_EQ(t.minute, 0);
  EXPECT_LE(t.second, 1);
  platform.SetTimeOfDay("11:59:30 PM");
  t = platform.Now();
  EXPECT_EQ(t.hour, 23);
  EXPECT_EQ(t.minute, 59);
  EXPECT_GE(t.second, 30);
  platform.SetTimeOfDay("12:30:15 PM");
  t = platform.Now();
  EXPECT_EQ(t.hour, 12);
  EXPECT_EQ(t.minute, 30);
  platform.SetTimeOfDay("not a time");
  EXPECT_EQ(platform.Now().hour, 12);
  // The device's time text reads the written time.
  platform.SetTimeOfDay("07:08:09 AM");
  EXPECT_EQ(form.CurrentTimeText().substr(0, 4), "0708");
  EXPECT_EQ(form.CurrentTimeText().substr(6), " AM");
}

// ---- Random numbers and files ---------------------------------------------------------

TEST(QtPlatformBasics, RandomNumbersRepeatBySeedAndStayBelowOne) {
  TestApp();
  QtPlatform a(false), b(false);
  a.Randomize(17);
  b.Randomize(17);
  std::set<float> seen;
  for (int i = 0; i < 200000; ++i) {
    const float r = a.Rnd();
    ASSERT_EQ(r, b.Rnd());
    ASSERT_GE(r, 0.0f);
    ASSERT_LT(r, 1.0f);
    if (i < 1000) seen.insert(r);
  }
  EXPECT_GT(seen.size(), 990u);
  a.Randomize(18);
  b.Randomize(17);
  EXPECT_NE(a.Rnd(), b.Rnd());
}

TEST(QtPlatformBasics, FileAttributesTellFilesFromFolders) {
  TestApp();
  QtPlatform platform(false);
  QTemporaryDir dir;
  QDir(dir.path()).mkdir("Beep1.wav");
  QFile file(dir.path() + "/Beep0.wav");
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.close();
  bool is_directory = true;
  EXPECT_TRUE(platform.FileAttributes((dir.path() + "/Beep0.wav").toStdString(), is_directory));
  EXPECT_FALSE(is_directory);
  EXPECT_TRUE(platform.FileAttributes((dir.path() + "/Beep1.wav").toStdString(), is_directory));
  EXPECT_TRUE(is_directory);
  EXPECT_FALSE(platform.FileAttributes((dir.path() + "/Beep2.wav").toStdString(), is_directory));
  EXPECT_FALSE(platform.FileAttributes("", is_directory));
  EXPECT_EQ(platform.ProgramFolder(), QCoreApplication::applicationDirPath().toStdString());
}

}  // namespace
}  // namespace nautrix
