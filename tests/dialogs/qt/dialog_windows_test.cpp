// The three dialogs on a loaded device under the offscreen platform, worked
// through their widgets as a user works them; what they store and what the
// device does after. The same tests run at every desktop scale (the ctest
// runs set QT_SCALE_FACTOR) and find every caption whole.
#include <QApplication>
#include <QCheckBox>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>

#include <gtest/gtest.h>

#include "dialogs/qt/dialog_windows.h"
#include "tests/shell/desktop_device.h"

namespace nautrix {
namespace {

void Key(QWidget* w, int key) {
  for (QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent event(type, key, {});
    QCoreApplication::sendEvent(w, &event);
  }
}

void Mouse(QWidget* w, QEvent::Type type, Qt::MouseButton button, QPoint at = {}) {
  QMouseEvent event(type, at, w->mapToGlobal(at), button,
                    type == QEvent::MouseButtonRelease ? Qt::NoButton : button, {});
  QCoreApplication::sendEvent(w, &event);
}

template <typename T>
T* Find(QWidget* window, const QString& text) {
  for (T* w : window->findChildren<T*>())
    if (w->text() == text) return w;
  ADD_FAILURE() << "no control " << text.toStdString();
  return nullptr;
}

class DialogWindowsTest : public ::testing::Test, protected DesktopDevice {
 protected:
  void SetUp() override { Load(); }
  QWidget* Open(Dialog dialog) {
    platform.OpenDialog(dialog);
    return platform.dialogs()->Window(dialog);
  }
};

// Options: the focus stands on the Game B bar, and its keys move the thumb
// the way they point. Default, then Apply, stores the factory speeds and
// sound and marks; OK with the box unticked takes the mark off and closes
// the window.
TEST_F(DialogWindowsTest, OptionsWorkedByTheKeysAndButtons) {
  QWidget* options = Open(Dialog::Options);
  QList<QScrollBar*> bars = options->findChildren<QScrollBar*>();
  ASSERT_EQ(bars.size(), 3);
  EXPECT_EQ(options->focusWidget(), bars[1]);
  QLabel* game_b = Find<QLabel>(options, "Game B (272)");
  QPushButton* apply = Find<QPushButton>(options, "&Apply");
  EXPECT_FALSE(apply->isEnabled());
  const struct { int key, presses; const char* shown; } steps[] = {
      {Qt::Key_Right, 60, "Game B (332)"}, {Qt::Key_Left, 10, "Game B (322)"},
      {Qt::Key_Up, 1, "Game B (321)"},     {Qt::Key_Down, 2, "Game B (323)"},
      {Qt::Key_PageUp, 1, "Game B (322)"}, {Qt::Key_PageDown, 1, "Game B (323)"},
      {Qt::Key_Home, 1, "Game B (1)"},     {Qt::Key_End, 1, "Game B (441)"}};
  for (const auto& step : steps) {
    for (int i = 0; i < step.presses; ++i) Key(bars[1], step.key);
    EXPECT_EQ(game_b->text(), step.shown) << step.key;
  }
  EXPECT_TRUE(apply->isEnabled());
  EXPECT_EQ(bars[1]->value(), 440);  // the thumb at the right, "Fast"

  Find<QPushButton>(options, "&Default")->click();
  apply->click();
  EXPECT_FALSE(apply->isEnabled());
  EXPECT_EQ(Stored(platform, "Game A Speed") + Stored(platform, "Game B Speed") +
                Stored(platform, "Diver Speed") + Stored(platform, "Sound"),
            "220170300True");
  EXPECT_TRUE(form.mAlwaysOnTop.Checked && form.mAutoShow.Checked && form.mSound.Checked);

  Find<QCheckBox>(options, "Always on &top")->click();
  Find<QPushButton>(options, "&OK")->click();
  EXPECT_FALSE(form.mAlwaysOnTop.Checked);
  EXPECT_FALSE(options->isVisible());
}

// About: a link pressed with any button turns purple, and its release,
// wherever it comes, opens it and gives the blue back. Nothing reaches the
// terminal when the desktop has no opener for it (here the platform has
// none; the end-to-end tier hears a real opener's say).
TEST_F(DialogWindowsTest, AboutOpensItsLinksSilently) {
  QWidget* about = Open(Dialog::About);
  QLabel* mail = Find<QLabel>(about, "mail@nautrix.example");
  testing::internal::CaptureStderr();
  Mouse(mail, QEvent::MouseButtonPress, Qt::RightButton);
  EXPECT_EQ(mail->palette().color(QPalette::WindowText), QColor(128, 0, 128));
  Mouse(mail, QEvent::MouseButtonRelease, Qt::RightButton, QPoint(-50, 300));
  EXPECT_EQ(mail->palette().color(QPalette::WindowText), QColor(0, 0, 128));
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

// At every scale, and with the desktop's text two sizes larger, each dialog
// opens centred on the screen's free area with every caption whole in its
// control, within its frame, apart from the rest; the larger text makes
// larger windows, and a control cut short is found. Minimised by the user,
// a dialog comes back, the same window, when its menu item is chosen again;
// Esc closes it. The leaflet's page number stands right-aligned at the
// design's pixel 407.
TEST_F(DialogWindowsTest, EachOpensCentredAndWholeAtEveryScaleAndFont) {
  const QPoint centre = window.screen()->availableGeometry().center();
  const QFont desktop = QApplication::font();
  int usual[3];
  for (int larger : {0, 2}) {
    QFont font = desktop;
    font.setPointSizeF(desktop.pointSizeF() + larger);
    QApplication::setFont(font);
    for (Dialog dialog : {Dialog::About, Dialog::Options, Dialog::Instructions}) {
      QWidget* open = Open(dialog);
      EXPECT_LE((open->frameGeometry().center() - centre).manhattanLength(), 1);
      open->showMinimized();
      EXPECT_TRUE(Open(dialog) == open && !open->isMinimized() && open->isVisible());
      EXPECT_EQ(LayoutFaults(*open).join("; ").toStdString(), "") << larger;
      const int i = static_cast<int>(dialog);
      if (larger == 0) usual[i] = open->width();
      else EXPECT_TRUE(dialog == Dialog::Instructions || open->width() > usual[i]) << i;
      EXPECT_TRUE(dialog != Dialog::Instructions ||
                  open->findChild<QLabel*>()->geometry().right() == 406);
      if (dialog == Dialog::About) {
        Find<QPushButton>(open, "&OK")->resize(20, 10);
        EXPECT_NE(LayoutFaults(*open).join(""), "");
      }
      Key(open, Qt::Key_Escape);
      EXPECT_FALSE(open->isVisible()) << i;
      delete open;
    }
  }
  QApplication::setFont(desktop);
}

}  // namespace
}  // namespace nautrix
