// The dialogs' windows under the offscreen platform: each at its size,
// centred, with its texts and tab order, opened once at a time and gone
// when closed; the options' focus on the Game B bar, Enter and Esc.
#include <QAbstractButton>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QScreen>
#include <QScrollBar>
#include <QWindow>

#include "dialogs/qt/dialog_windows.h"
#include "tests/shell/qt/desktop_test.h"

namespace nautrix {
namespace {

class DialogWindowsTest : public DesktopTest {
 protected:
  DialogFrame* Open(Dialog dialog) {
    platform.OpenDialog(dialog);
    DialogFrame* open = platform.dialogs()->Window(dialog);
    QCoreApplication::processEvents();
    return open;
  }
  static void Key(QWidget* to, int key) {
    QKeyEvent event(QEvent::KeyPress, key, {});
    QCoreApplication::sendEvent(to, &event);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  // Every text of the window, and the tab stops in their order.
  static QStringList Texts(QWidget* w) {
    QStringList texts;
    for (auto* box : w->findChildren<QGroupBox*>()) texts << box->title();
    for (auto* label : w->findChildren<QLabel*>()) texts << label->text();
    for (auto* button : w->findChildren<QAbstractButton*>()) texts << button->text();
    return texts;
  }
  static QStringList TabStops(QWidget* w) {
    QStringList stops;
    for (QWidget* next = w->nextInFocusChain(); next != w; next = next->nextInFocusChain()) {
      if (!(next->focusPolicy() & Qt::TabFocus)) continue;
      auto* button = qobject_cast<QAbstractButton*>(next);
      stops << (button ? button->text() : QString::number(next->y()));
    }
    return stops;
  }
  static bool Centred(QWidget* w) {
    return w->geometry().center() == w->screen()->availableGeometry().center();
  }
};

// Options: 438 x 212, fixed, centred, no minimise or maximise, the design's
// texts and tab order, the focus on the Game B bar; Home and Enter store
// the slowest Game B, and the dialog ends.
TEST_F(DialogWindowsTest, Options) {
  DialogFrame* options = Open(Dialog::Options);
  ASSERT_TRUE(options);
  EXPECT_EQ(options->windowTitle(), "Nautrix Options");
  EXPECT_EQ(options->windowIcon().cacheKey(), window.windowIcon().cacheKey());
  EXPECT_TRUE(options->minimumSize() == QSize(438, 212) && options->maximumSize() == QSize(438, 212));
  EXPECT_FALSE(options->windowFlags() & (Qt::WindowMinimizeButtonHint | Qt::WindowMaximizeButtonHint));
  EXPECT_TRUE(Centred(options));
  EXPECT_EQ(Texts(options).join('|'),
            "S&peed|&Sound|&Other|Game A (222)|Game B (272)|Diver (142)|Slow|Fast|On|Off|"
            "&Automatically show main window when alarm time is reached|Always on &top|"
            "&OK|&Cancel|&Apply|&Default");
  const QStringList stops = TabStops(options);
  EXPECT_EQ(stops.mid(3).join('|'),
            "On|Off|&Automatically show main window when alarm time is reached|Always on &top|"
            "&OK|&Cancel|&Apply|&Default");
  auto* focus = qobject_cast<QScrollBar*>(options->focusWidget());
  ASSERT_TRUE(focus);
  EXPECT_EQ(QString::number(focus->y()), stops[1]);
  EXPECT_LT(stops[0].toInt(), stops[1].toInt());
  EXPECT_EQ(Open(Dialog::Options), options);  // one at a time
  Key(focus, Qt::Key_Home);
  Key(options, Qt::Key_Return);
  EXPECT_EQ(platform.GetSetting(kStoreApp, kStoreSection, "Game B Speed", ""), "441");
  EXPECT_FALSE(platform.dialogs()->Window(Dialog::Options));
}

// The leaflet: a white frameless sheet, centred, topmost by the mark, its
// number hidden on the cover and ending at pixel 407 elsewhere; Esc closes
// it.
TEST_F(DialogWindowsTest, Leaflet) {
  form.mAlwaysOnTop.Checked = true;
  DialogFrame* leaflet = Open(Dialog::Instructions);
  ASSERT_TRUE(leaflet);
  EXPECT_TRUE(leaflet->windowFlags() & Qt::FramelessWindowHint);
  EXPECT_TRUE(leaflet->windowHandle()->flags() & Qt::WindowStaysOnTopHint);
  EXPECT_EQ(leaflet->size(), QSize(413, 250));
  EXPECT_TRUE(Centred(leaflet));
  auto* number = leaflet->findChild<QLabel*>();
  EXPECT_FALSE(number->isVisible());
  Key(leaflet, Qt::Key_PageUp);
  EXPECT_TRUE(number->isVisible() && number->text() == "9" && number->font().bold());
  EXPECT_EQ(number->geometry().right(), 406);
  Key(leaflet, Qt::Key_Escape);
  EXPECT_FALSE(platform.dialogs()->Window(Dialog::Instructions));
}

// About: 247 x 180, centred, the version in bold, three dark blue underlined
// links under a pointing hand that turn purple while pressed; Esc closes.
TEST_F(DialogWindowsTest, About) {
  DialogFrame* about = Open(Dialog::About);
  ASSERT_TRUE(about);
  EXPECT_EQ(about->windowTitle(), "Nautrix Simulator");
  EXPECT_TRUE(about->minimumSize() == QSize(247, 180) && about->maximumSize() == QSize(247, 180));
  EXPECT_TRUE(Centred(about));
  QList<QLabel*> links;
  for (auto* label : about->findChildren<QLabel*>()) {
    EXPECT_TRUE(about->rect().contains(label->geometry())) << label->text().toStdString();
    EXPECT_EQ(label->font().bold(), label->text() == "Nautrix 2.5 (May 17, 2000)");
    if (label->font().underline()) links << label;
  }
  ASSERT_EQ(links.size(), 3);
  for (QLabel* link : links) {
    EXPECT_EQ(link->cursor().shape(), Qt::PointingHandCursor);
    EXPECT_EQ(link->palette().color(QPalette::WindowText), QColor(0, 0, 128));
  }
  QMouseEvent press(QEvent::MouseButtonPress, {2, 2}, links[0]->mapToGlobal(QPoint(2, 2)),
                    Qt::RightButton, Qt::RightButton, {});
  QCoreApplication::sendEvent(links[0], &press);
  EXPECT_EQ(links[0]->palette().color(QPalette::WindowText), QColor(128, 0, 128));
  Key(about, Qt::Key_Escape);
  EXPECT_FALSE(platform.dialogs()->Window(Dialog::About));
}

}  // namespace
}  // namespace nautrix
