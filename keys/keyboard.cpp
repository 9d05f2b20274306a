// The whole device from the computer's keyboard. Device keys act at the
// key-down and the key-up, menu keys at the key-up alone. One hold is one
// press: the latch turns the platform's repeats away, and any key-up ends the
// hold, whichever key it belongs to.
#include "device/form1.h"
#include "keys/key_objects.h"

namespace nautrix {
namespace {

constexpr int kSoundKeyCode = 83;  // S: the sound mark, flipped at the key-up

// The device key of a key code, or kNoKey. Shift, Ctrl and Alt make no
// difference, and the keypad's digits are not GAME A and GAME B.
int DeviceKeyOf(int KeyCode) {
  switch (KeyCode) {
    case 37: case 38: return kLeftKey;   // Left and Up arrows are one key
    case 39: case 40: return kRightKey;  // Right and Down arrows
    case 49: return kGameAKey;           // 1
    case 50: return kGameBKey;           // 2
    case 84: return kTimeKey;            // T
    case 65: return kAlarmKey;           // A
    case 82: return kAclKey;             // R
    default: return kNoKey;
  }
}

// Where a key-up looks for the key that is down.
constexpr int kReleaseOrder[] = {kLeftKey, kRightKey, kGameAKey, kGameBKey,
                                 kTimeKey, kAlarmKey, kAclKey};

}  // namespace

void Form1::Form_KeyDown(int KeyCode, int /*Shift*/) {
  // While the boat counts in a game every key is dead, ACL and S included.
  if (BoatBeats != 0 && Playing) return;
  if (PressedKey != kNoKey || KeyLatch) return;
  const int key = DeviceKeyOf(KeyCode);
  if (key != kNoKey) {
    if (KeyIsDown(*this, key)) return;
    PutKeyDown(*this, key);
    KeyLatch = true;
    PressAction(key, KeyRoute::Keyboard);
  } else if (KeyCode == kSoundKeyCode) {
    KeyLatch = true;
  }
}

void Form1::Form_KeyUp(int KeyCode, int /*Shift*/) {
  // Menu keys work in every mode, past every gate, and leave the latch alone.
  switch (KeyCode) {
    case 112:  // F1
    case 73:   // I
      return mInstructions_Click();
    case 66:  // B
      return mBack_Click();
    case 79:  // O
      return mOptions_Click();
    case 13:  // Enter
      return OpenPopupMenuFromKeyboard();
    default:
      break;
  }
  if (PressedKey != kNoKey || !KeyLatch) return;
  SilenceAlarm();
  bool released = false;
  for (const int key : kReleaseOrder) {
    if (!KeyIsDown(*this, key)) continue;
    PutKeyUp(*this, key);
    ReleaseAction(key, KeyRoute::Keyboard);
    released = true;
    break;
  }
  // S flips the sound mark at its own key-up, when no device key was held.
  if (!released && KeyCode == kSoundKeyCode) mSound_Click();
  KeyLatch = false;
}

}  // namespace nautrix
