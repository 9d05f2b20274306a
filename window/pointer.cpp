// Pointer events of the device window's objects, routed to the handlers of
// the object's group: the case, the LCD segments, the logo and the keys.
#include "device/form1.h"

namespace nautrix {
namespace {

bool IsCase(Obj o) { return o == Obj::FrontCase || o == Obj::BackCase; }

bool IsKey(Obj o) {
  switch (o) {
    case Obj::GameAButton: case Obj::GameBButton: case Obj::TimeButton:
    case Obj::LeftButton: case Obj::RightButton: case Obj::AlarmButton:
    case Obj::ACLButton:
      return true;
    default:
      return false;
  }
}

// The colon is enabled but has no handlers: a press there does nothing.
bool IsSegment(Obj o) {
  return InClientArea(o) && !IsCase(o) && !IsKey(o) && o != Obj::Logo && o != Obj::Colon;
}

}  // namespace

void Form1::MouseDown(Obj o, int Button, int Shift, float X, float Y) {
  switch (o) {
    case Obj::GameAButton: return GameAButton_MouseDown(Button, Shift, X, Y);
    case Obj::GameBButton: return GameBButton_MouseDown(Button, Shift, X, Y);
    case Obj::TimeButton: return TimeButton_MouseDown(Button, Shift, X, Y);
    case Obj::LeftButton: return LeftButton_MouseDown(Button, Shift, X, Y);
    case Obj::RightButton: return RightButton_MouseDown(Button, Shift, X, Y);
    case Obj::AlarmButton: return AlarmButton_MouseDown(Button, Shift, X, Y);
    case Obj::ACLButton: return ACLButton_MouseDown(Button, Shift, X, Y);
    case Obj::Logo: return Logo_MouseDown(Button, Shift, X, Y);
    default: break;
  }
  if (IsCase(o)) {
    BeginDrag(Button, Shift, X, Y);
  } else if (IsSegment(o)) {
    // Any button but the left opens the menu on a segment, held key or not.
    if (Button == 1) BeginDrag(Button, Shift, X, Y);
    else OpenPopupMenu();
  }
}

void Form1::MouseMove(Obj o, int Button, int Shift, float X, float Y) {
  if (o == Obj::Logo) return Logo_MouseMove(Button, Shift, X, Y);
  if (IsCase(o)) {
    if (Button != 0) {
      DragWindow(Button, Shift, X, Y);
    } else if (!SamePicture(Obj::Logo, TPLogo(0))) {
      CopyPicture(TPLogo(0), Obj::Logo);  // the logo's hover ends on the case
    }
  } else if (IsSegment(o) && Button == 1) {
    DragWindow(Button, Shift, X, Y);
  }
}

void Form1::MouseUp(Obj o, int Button, int Shift, float X, float Y) {
  switch (o) {
    case Obj::GameAButton: return GameAButton_MouseUp(Button, Shift, X, Y);
    case Obj::GameBButton: return GameBButton_MouseUp(Button, Shift, X, Y);
    case Obj::TimeButton: return TimeButton_MouseUp(Button, Shift, X, Y);
    case Obj::LeftButton: return LeftButton_MouseUp(Button, Shift, X, Y);
    case Obj::RightButton: return RightButton_MouseUp(Button, Shift, X, Y);
    case Obj::AlarmButton: return AlarmButton_MouseUp(Button, Shift, X, Y);
    case Obj::ACLButton: return ACLButton_MouseUp(Button, Shift, X, Y);
    case Obj::Logo: return Logo_MouseUp(Button, Shift, X, Y);
    default: break;
  }
  if (IsCase(o) || IsSegment(o)) EndDrag(Button, Shift, X, Y);
}

// The logo's light follows a hovering pointer, and ends when it leaves the
// window straight from the logo.
void Form1::PointerLeft() {
  if (PressedKey == kNoKey && !SamePicture(Obj::Logo, TPLogo(0))) CopyPicture(TPLogo(0), Obj::Logo);
}

void Form1::DblClick(Obj o) {
  if (IsCase(o) || IsSegment(o)) mBack_Click();
}

}  // namespace nautrix
