// The dialogs' windows under the offscreen platform: opened once at a time
// and gone when closed; the options' focus on the Game B bar; About's links.
// Sizes, texts, centring and the leaflet's keys are the e2e tier's.
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QScrollBar>

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
};

// Options: one at a time, the focus on the Game B bar; Home and Enter store
// the slowest Game B, and the dialog ends.
TEST_F(DialogWindowsTest, Options) {
  DialogFrame* options = Open(Dialog::Options);
  ASSERT_TRUE(options);
  auto* focus = qobject_cast<QScrollBar*>(options->focusWidget());
  ASSERT_TRUE(focus);
  EXPECT_EQ(focus, options->findChildren<QScrollBar*>().value(1));
  EXPECT_EQ(Open(Dialog::Options), options);  // one at a time
  Key(focus, Qt::Key_Home);
  Key(options, Qt::Key_Return);
  EXPECT_EQ(platform.GetSetting(kStoreApp, kStoreSection, "Game B Speed", ""), "441");
  EXPECT_FALSE(platform.dialogs()->Window(Dialog::Options));
}

// About: every label inside the window, three dark blue underlined links
// under a pointing hand that turn purple while pressed; Esc closes.
TEST_F(DialogWindowsTest, About) {
  DialogFrame* about = Open(Dialog::About);
  ASSERT_TRUE(about);
  QList<QLabel*> links;
  for (auto* label : about->findChildren<QLabel*>()) {
    EXPECT_TRUE(about->rect().contains(label->geometry())) << label->text().toStdString();
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
