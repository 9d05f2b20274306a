// The device as its own handle: a left press on the case or a segment drags
// the window, and the position is stored when the drag ends. The logo on the
// case lights under the pointer and opens the About window when clicked.
#include <cmath>

#include "device/form1.h"
#include "device/store_keys.h"
#include "device/text.h"

namespace nautrix {

void Form1::BeginDrag(int Button, int /*Shift*/, float X, float Y) {
  if (Button == 1) {
    Dragging = true;
    DragX = static_cast<int16_t>(std::lround(X));
    DragY = static_cast<int16_t>(std::lround(Y));
    return;
  }
  if (Button == 2 && PressedKey == kNoKey) OpenPopupMenu();
}

// X and Y are relative to the pressed object, which moves with the window:
// a window that has caught up with the pointer sees no difference.
void Form1::DragWindow(int Button, int /*Shift*/, float X, float Y) {
  if (Button != 1 || !Dragging) return;
  platform_.MoveWindow(platform_.WindowLeft() + (X - DragX), platform_.WindowTop());
  platform_.MoveWindow(platform_.WindowLeft(), platform_.WindowTop() + (Y - DragY));
  platform_.ProcessEvents();
}

void Form1::EndDrag(int Button, int /*Shift*/, float /*X*/, float /*Y*/) {
  if (Button != 1 || !Dragging) return;
  Dragging = false;
  SaveSetting(store::kLeft, SingleText(platform_.WindowLeft()));
  SaveSetting(store::kTop, SingleText(platform_.WindowTop()));
}

void Form1::Logo_MouseDown(int Button, int /*Shift*/, float /*X*/, float /*Y*/) {
  if (KeyLatch) return;
  if (Button == 1) {
    PressedKey = kLogoKey;
  } else if (Button == 2 && PressedKey == kNoKey) {
    OpenPopupMenu();
    if (!SamePicture(Obj::Logo, TPLogo(0))) CopyPicture(TPLogo(0), Obj::Logo);
  }
}

void Form1::Logo_MouseMove(int /*Button*/, int /*Shift*/, float /*X*/, float /*Y*/) {
  if (PressedKey == kNoKey && !SamePicture(Obj::Logo, TPLogo(1))) CopyPicture(TPLogo(1), Obj::Logo);
}

void Form1::Logo_MouseUp(int Button, int /*Shift*/, float /*X*/, float /*Y*/) {
  if (Button == 1) ReleaseKey();
}

}  // namespace nautrix
