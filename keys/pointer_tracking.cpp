// A key held by the pointer behaves like a key under a finger: the key under
// the pointer is down, a key the pointer has left comes up, and the key under
// it when the button comes up is the one released. The pointer's own events
// stay with the object that took the press, so every tick looks where the
// pointer is.
#include "clock/time_text.h"
#include "device/form1.h"
#include "keys/key_objects.h"

namespace nautrix {
namespace {

// Where the pointer finds each key, in client pixels, both ends included.
// These are the keys' own fixed places and not their objects: GAME A, GAME B
// and TIME reach one column right of their objects, the left key one row
// higher, and the right key two rows higher and one column further right.
// No two of them overlap.
struct KeyRect {
  int left, right, top, bottom;
  bool Contains(const Point& p) const {
    return p.x >= left && p.x <= right && p.y >= top && p.y <= bottom;
  }
};

constexpr KeyRect kKeyRects[] = {
    {0, -1, 0, -1},        // no key
    {282, 297, 24, 31},    // GAME A
    {282, 297, 46, 53},    // GAME B
    {282, 297, 68, 75},    // TIME
    {25, 48, 126, 149},    // left
    {284, 307, 126, 149},  // right
    {309, 315, 35, 41},    // ALARM
    {309, 315, 58, 64},    // ACL
    {13, 54, 28, 63},      // logo
};

}  // namespace

void Form1::TrackPointer() {
  // Nothing is tracked unless a pointer press holds a key. Looking at the
  // pointer costs a round trip to the display, so the idle device does not.
  if (PressedKey < 0) return;
  // One look at the pointer serves all eight keys.
  const Point p = platform().CursorPos();
  PressedKey = kOffKeys;
  for (int key = kGameAKey; key <= kLogoKey; ++key) {
    if (kKeyRects[key].Contains(p)) {
      const bool slid_on = !KeyIsDown(*this, key);
      if (slid_on) PutKeyDown(*this, key);
      PressedKey = static_cast<int16_t>(key);
      // GAME and TIME keep their readout at every tick under the pointer;
      // the other keys act once, as the pointer slides onto them.
      if (slid_on || key == kGameAKey || key == kGameBKey || key == kTimeKey) {
        PressAction(key, KeyRoute::Tracking);
      }
    } else if (!KeyIsUp(*this, key)) {
      PutKeyUp(*this, key);
      SlideOff(key);
    }
  }
}

// What a key undoes when the pointer leaves it while the button is held.
void Form1::SlideOff(int key) {
  switch (key) {
    case kGameAKey:
    case kGameBKey:
      if (ClockSetting != 0 || AlarmSetting != 0) return;
      if (Misses == 4) {
        ShowScore(Score);  // the game over's own score comes back
      } else if (!Playing && ScoreShown) {
        ScoreShown = false;
      }
      ShowGameType(GameMode);
      return;
    case kTimeKey:
      if (!AlarmRinging) Hide(Obj::BabyNautrix);
      if (Misses == 4) {
        ShowScore(Score);
      } else if (!Playing && ScoreShown) {
        ScoreShown = false;
        ShowGameType(GameMode);
      } else if (AlarmSetting > 0) {
        ShowTime(EditTimeText);
        Show(Obj::BabyNautrix);
        SetVisible(Obj::Note, AlarmArmed);
        SetTimer1Interval(200);
      } else if (ClockSetting == 1) {
        ShowTime(EditTimeText);
        Hide(Obj::BabyNautrix);
        SetTimer1Interval(200);
      }
      return;
    case kLeftKey:
    case kRightKey:
      RepeatDelay = 0;
      if (!Playing && ScoreShown) {
        ScoreShown = false;
        ShowGameType(GameMode);
      }
      return;
    case kAlarmKey:
      if (AlarmSetting == 1) {
        // The alarm entry is undone: the device is idle again.
        ClearGame();
        AlarmSetting = 0;
        ShowTime(CurrentTimeText());
        Hide(Obj::BabyNautrix);
      } else if (AlarmSetting == 2) {
        // The press's toggle is undone. Outside the set stage there was no
        // toggle, and the note keeps following the stored alarm.
        ToggleAlarm();
      }
      return;
    case kAclKey:
      // The reset is called off: nothing is erased at the release.
      ClearGame();
      Hide(Obj::ResetScreen);
      return;
    default:
      return;  // the logo only changes its look
  }
}

}  // namespace nautrix
