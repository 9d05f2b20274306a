#include "dialogs/qt/dialog_windows.h"

#include <QGuiApplication>
#include <QScreen>

#include "dialogs/qt/about_dialog.h"
#include "dialogs/qt/instructions_window.h"
#include "dialogs/qt/options_dialog.h"

namespace nautrix {

DialogWindows::DialogWindows(Form1& device, QWidget& device_window)
    : device_(device), device_window_(device_window) {}

DialogWindows::~DialogWindows() {
  for (const QPointer<DialogFrame>& window : open_) delete window.data();
}

// The window is known before its load, which sets its stacking. Its icon is
// the program's, as the device window's.
template <typename Window>
void DialogWindows::Load(Dialog dialog) {
  auto* window = new Window(device_);
  open_[Slot(dialog)] = window;
  window->Load();
}

void DialogWindows::Open(Dialog dialog) {
  if (DialogFrame* open = Window(dialog)) return open->BringForward();
  QScreen* screen = device_window_.screen();
  if (!screen) screen = QGuiApplication::primaryScreen();
  switch (dialog) {
    case Dialog::About: Load<AboutDialog>(dialog); break;
    case Dialog::Options: Load<OptionsDialog>(dialog); break;
    case Dialog::Instructions: Load<InstructionsWindow>(dialog); break;
  }
  DialogFrame* window = Window(dialog);
  if (screen) window->CentreOn(screen->availableGeometry());
  window->show();
}

void DialogWindows::SetTopmost(Dialog dialog, bool topmost) {
  if (DialogFrame* window = Window(dialog)) window->SetTopmost(topmost);
}

}  // namespace nautrix
