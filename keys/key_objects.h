// The device's keys as screen objects. A key has no pressed field: it is down
// while its object shows its down sprite, and both routes, the tick's repeat
// and the idle readout read it from there.
#pragma once

#include "device/form1.h"

namespace nautrix {

struct KeyLook {
  Obj object;
  Obj up;    // sprite of the key at rest
  Obj down;  // sprite of the key pressed
};

// By key number, 1 GAME A to 8 logo; 0 is a placeholder and never drawn.
inline constexpr KeyLook kKeyLooks[] = {
    {Obj::Count, Obj::Count, Obj::Count},
    {Obj::GameAButton, Obj::Button0_0, Obj::Button0_1},
    {Obj::GameBButton, Obj::Button0_0, Obj::Button0_1},
    {Obj::TimeButton, Obj::Button0_0, Obj::Button0_1},
    {Obj::LeftButton, Obj::Button1_0, Obj::Button1_1},
    {Obj::RightButton, Obj::Button1_0, Obj::Button1_1},
    {Obj::AlarmButton, Obj::Button2_0, Obj::Button2_1},
    {Obj::ACLButton, Obj::Button2_0, Obj::Button2_1},
    {Obj::Logo, Obj::TPLogo0, Obj::TPLogo1},
};

inline bool KeyIsDown(const Form1& form, int key) {
  return form.SamePicture(kKeyLooks[key].object, kKeyLooks[key].down);
}
inline bool KeyIsUp(const Form1& form, int key) {
  return form.SamePicture(kKeyLooks[key].object, kKeyLooks[key].up);
}
inline void PutKeyDown(Form1& form, int key) {
  form.CopyPicture(kKeyLooks[key].down, kKeyLooks[key].object);
}
inline void PutKeyUp(Form1& form, int key) {
  form.CopyPicture(kKeyLooks[key].up, kKeyLooks[key].object);
}

}  // namespace nautrix
