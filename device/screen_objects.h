// The device window's screen objects: every picture object of the client
// area, front to back, followed by the sprite library that lies below it.
// A picture is an id; copying a picture copies the id, and two objects show
// the same picture exactly when their ids are equal.
#pragma once

#include <cstdint>

namespace nautrix {

// The objects. Client-area objects come first, in stacking order from the
// topmost (BackCase) to the backmost (FrontCase); the sprite library, which is
// never shown, follows.
enum class Obj : uint8_t {
  // Client area, front to back.
  BackCase, ResetScreen, am, pm,
  Nautrix2, Nautrix1, Nautrix0, Treasure,
  Alarm1, Alarm0, Note, BabyNautrix,
  Legs, Arm, MissPic,
  MinuteDigit1, MinuteDigit0, Colon, HourDigit1, HourDigit0,
  DiverStep5, Tentacle4_2, Tentacle4_1, Tentacle4_0,
  DiverStep4, Tentacle3_3, Tentacle3_2, Tentacle3_1, Tentacle3_0,
  DiverStep3, Tentacle2_4, Tentacle2_3, Tentacle2_2, Tentacle2_1, Tentacle2_0,
  DiverStep2, Tentacle1_3, Tentacle1_2, Tentacle1_1, Tentacle1_0,
  DiverStep1, Tentacle0_2, Tentacle0_1, Tentacle0_0,
  DiverStep0, Remainder1, Remainder0,
  GameType1, GameType0,
  Logo, ACLButton, AlarmButton, RightButton, LeftButton,
  TimeButton, GameBButton, GameAButton,
  FrontCase,
  // Sprite library.
  Number0, Number1, Number2, Number3, Number4,
  Number5, Number6, Number7, Number8, Number9,
  Diver0, Diver1, Diver2, Diver3, Diver4, Diver5, Diver6, Diver7,
  Diver8, Diver9, Diver10, Diver11, Diver12, Diver13, Diver14, Diver15,
  Diver16, Diver17, Diver18, Diver19, Diver20, Diver21, Diver22, Diver23,
  Diver24, Diver25, Diver26, Diver27, Diver28, Diver29, Diver30, Diver31,
  OnTheBoat0, OnTheBoat1,
  TempArm0, TempArm1, TempLegs0, TempLegs1,
  Button0_0, Button0_1, Button1_0, Button1_1, Button2_0, Button2_1,
  TPLogo0, TPLogo1,
  Count
};

inline constexpr int kObjectCount = static_cast<int>(Obj::Count);
inline constexpr int kClientObjectCount = static_cast<int>(Obj::FrontCase) + 1;

// The pictures: one id per bitmap of the device. Tentacle0(0) and Tentacle1(0)
// share a bitmap, and so do Remainder0 and Remainder1.
enum class Pic : uint8_t {
  None,
  FrontCase, BackCase, ResetScreen, Am, Pm,
  Nautrix0, Nautrix1, Nautrix2, Treasure,
  Alarm0, Alarm1, Note, BabyNautrix, MissPic, Colon,
  Tentacle0_0, Tentacle0_1, Tentacle0_2,
  Tentacle1_1, Tentacle1_2, Tentacle1_3,
  Tentacle2_0, Tentacle2_1, Tentacle2_2, Tentacle2_3, Tentacle2_4,
  Tentacle3_0, Tentacle3_1, Tentacle3_2, Tentacle3_3,
  Tentacle4_0, Tentacle4_1, Tentacle4_2,
  Remainder, GameTypeA, GameTypeB,
  Number0, Number1, Number2, Number3, Number4,
  Number5, Number6, Number7, Number8, Number9,
  Diver0, Diver1, Diver2, Diver3, Diver4, Diver5, Diver6, Diver7,
  Diver8, Diver9, Diver10, Diver11, Diver12, Diver13, Diver14, Diver15,
  Diver16, Diver17, Diver18, Diver19, Diver20, Diver21, Diver22, Diver23,
  Diver24, Diver25, Diver26, Diver27, Diver28, Diver29, Diver30, Diver31,
  OnTheBoat0, OnTheBoat1,
  TempArm0, TempArm1, TempLegs0, TempLegs1,
  Button0Up, Button0Down, Button1Up, Button1Down, Button2Up, Button2Down,
  TPLogo0, TPLogo1,
  Count
};

inline constexpr int kPicCount = static_cast<int>(Pic::Count);

struct Rect {
  int left, top, width, height;
  bool Contains(int x, int y) const {
    return x >= left && x < left + width && y >= top && y < top + height;
  }
};

// One row of the design-time table of an object.
struct ObjectInfo {
  const char* name;     // "Tentacle2(3)", "FrontCase"
  Rect rect;            // client pixels; BackCase at its design place
  bool shown;           // Visible when the window loads
  bool enabled;         // takes pointer input
  const char* tooltip;  // empty for none
  Pic picture;          // design-time picture, Pic::None for none
};

const ObjectInfo& Info(Obj o);
inline int Index(Obj o) { return static_cast<int>(o); }
inline bool InClientArea(Obj o) { return Index(o) < kClientObjectCount; }

// Array items, addressed as the device addresses them: Tentacle(2, 3) is
// Tentacle2(3), Diver(17) is Diver(17). A segment past its tentacle's length
// and a diver step outside 0 to 5 are Obj::Count, no object: a debug build
// stops there, and elsewhere it shows nothing.
Obj Tentacle(int t, int k);
inline Obj Number(int d) { return static_cast<Obj>(Index(Obj::Number0) + d); }
inline Obj Diver(int n) { return static_cast<Obj>(Index(Obj::Diver0) + n); }
Obj DiverStep(int p);
inline Obj HourDigit(int i) { return i == 0 ? Obj::HourDigit0 : Obj::HourDigit1; }
inline Obj MinuteDigit(int i) { return i == 0 ? Obj::MinuteDigit0 : Obj::MinuteDigit1; }
inline Obj Alarm(int i) { return i == 0 ? Obj::Alarm0 : Obj::Alarm1; }
inline Obj GameType(int i) { return i == 0 ? Obj::GameType0 : Obj::GameType1; }
inline Obj Nautrix(int i) { return static_cast<Obj>(Index(Obj::Nautrix0) - i); }
inline Obj OnTheBoat(int i) { return i == 0 ? Obj::OnTheBoat0 : Obj::OnTheBoat1; }
inline Obj TempArm(int i) { return i == 0 ? Obj::TempArm0 : Obj::TempArm1; }
inline Obj TempLegs(int i) { return i == 0 ? Obj::TempLegs0 : Obj::TempLegs1; }
inline Obj Button0(int i) { return i == 0 ? Obj::Button0_0 : Obj::Button0_1; }
inline Obj Button1(int i) { return i == 0 ? Obj::Button1_0 : Obj::Button1_1; }
inline Obj Button2(int i) { return i == 0 ? Obj::Button2_0 : Obj::Button2_1; }
inline Obj TPLogo(int i) { return i == 0 ? Obj::TPLogo0 : Obj::TPLogo1; }

}  // namespace nautrix
