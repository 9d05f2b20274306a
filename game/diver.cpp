// The diver: his steps between the boat and the chest, his work at the chest,
// and the count on the boat that pays for the treasure. A diver entering a
// place is drawn first; whether a tentacle takes him is tested last.
#include "device/form1.h"

namespace nautrix {
namespace {

// One step on the sea floor, to position p (1 to 5): the diver is drawn
// first, and whether the tentacle over him takes him is tested last. While
// the clock or the alarm is being set the walking demo catches nobody there.
void WalkTo(Form1& f, int p) {
  f.Hide(DiverStep(f.DiverPos));
  f.DiverPos = static_cast<uint8_t>(p);
  f.CopyPicture(f.DiverSprite(p), DiverStep(p));
  f.Show(DiverStep(p));
  if (f.TentacleDown[p - 1] == 1 && f.BonusBeats == 0 && f.ClockSetting == 0 &&
      f.AlarmSetting == 0) {
    f.BeginCapture();
  }
}

}  // namespace

// The row of the position, the bag, and the tip of the tentacle over him
// (tentacle 4 over all the chest's positions).
Obj Form1::DiverSprite(int p) const {
  const int t = p <= 5 ? p - 1 : 4;
  return Diver(4 * (p - 1) + DiverLoad + TentacleDown[t]);
}

void Form1::DiverForward() {
  // Any step off the boat ends the wait there.
  BoatWait = 0;
  if (DiverPos < 5) {
    WalkTo(*this, DiverPos + 1);
    return;
  }
  // At the chest: the bonus holds the work still.
  if (BonusBeats != 0) return;
  ++DiverPos;
  if (DiverPos == 9) DiverPos = 5;
  if (DiverPos == 8) {
    // The treasure is in his hands; a tip that came down in this very tick
    // takes the point with him.
    DiverLoad = 2;
    if (CaptureBeats == 0 && Playing) {
      PlaySoundFile("Beep1.wav");
      AddPoint();
    }
  }
  CopyPicture(DiverSprite(DiverPos), DiverStep(5));
  if (TentacleDown[4] == 1 && BonusBeats == 0) BeginCapture();
}

void Form1::DiverBack() {
  if (DiverPos == 0) return;
  // Leaving the chest ends the work; a treasure not yet taken stays there.
  if (DiverPos > 5) DiverPos = 5;
  if (DiverPos > 1) {
    WalkTo(*this, DiverPos - 1);
    return;
  }
  // Only a diver with the treasure may climb on the boat, and not during a
  // bonus.
  if (BonusBeats != 0 || DiverLoad != 2) return;
  Hide(DiverStep(1));
  DiverPos = 0;
  BoatBeats = 4;
  CopyPicture(OnTheBoat(1), DiverStep(0));
  Show(DiverStep(0));
}

void Form1::BoatTick() {
  if (BoatBeats == 0) return;
  --BoatBeats;
  BoatWait = 10;
  if (BoatBeats > 0) {
    // A point a beat; a bonus that this point starts has its own sound.
    AddPoint();
    if (BonusBeats == 0) PlaySoundFile("Beep1.wav");
  } else {
    // The count is over: the bag is emptied and the game's pace comes back.
    DiverLoad = 0;
    DoCheckSpeed();
  }
  // The diver holds the bag up on the middle beat of the three.
  CopyPicture(BoatBeats == 2 ? OnTheBoat(1) : OnTheBoat(0), DiverStep(DiverPos));
}

void Form1::HideDivers() {
  for (int p = 1; p <= 5; ++p) Hide(DiverStep(p));
  DiverPos = 0;
}

}  // namespace nautrix
