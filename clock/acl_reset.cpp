// ACL, the device's reset key. Held, it lights the whole LCD; released, it
// forgets the high scores and the alarm, ends whatever ran, and leaves the
// device setting its clock from midnight. It is the one way into the clock
// setting.
#include "device/form1.h"
#include "device/store_keys.h"
#include "device/text.h"

namespace nautrix {

// Only these four keys: the options, speeds and window place survive.
void Form1::EraseMemories() {
  SaveSetting(store::kGameAHighScore, "0");
  SaveSetting(store::kGameBHighScore, "0");
  SaveSetting(store::kAlarmTime, store::RuleOf(store::kAlarmTime).fallback);
  SaveSetting(store::kAlarmOn, BoolText(false));
}

// The release, after the alarm is silenced and the key is up. By pointer the
// clock itself goes to midnight at once and the playfield is cleared twice,
// the second time at the pace of a game that the reset ended; by keyboard the
// clock runs on untouched until TIME writes the edit.
void Form1::AclReset(KeyRoute route) {
  EraseMemories();
  Hide(Obj::ResetScreen);
  // A game ends here without EndGame, its score unstored; the game mark stays
  // until the next game. ClearGame works only on a device that plays no game.
  Playing = false;
  ClearGame();
  AlarmSetting = 0;
  ClockSetting = 1;
  RingingSilenced = false;
  AlarmRinging = false;
  SetTimer1Interval(200);
  if (route == KeyRoute::Keyboard) Hide(Obj::BabyNautrix);
  EditTimeText = "120000 AM";
  ShowTime(EditTimeText);
  if (route == KeyRoute::Keyboard) return;
  WriteClock();
  Hide(Obj::BabyNautrix);
  ClearGame();
}

}  // namespace nautrix
