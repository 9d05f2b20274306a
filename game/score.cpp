// The score, the bonus that gives back every lost diver at 200 and 500, the
// spare divers beside the boat, and the high score of each game.
#include <string>

#include "device/form1.h"
#include "device/store_keys.h"

namespace nautrix {

void Form1::AddPoint() {
  // A point taken while a tentacle holds the diver is lost, and the demo
  // scores nothing.
  if (CaptureBeats != 0 || !Playing) return;
  if (Score == 999) {
    // The readout has three digits: the score starts over at 1, and 999 is
    // kept as a high score first.
    StoreHighScore();
    Score = 1;
  } else {
    ++Score;
  }
  ShowScore(Score);
  if (Score == 200 || Score == 500) {
    // The bonus: every lost diver comes back and flashes at his place.
    if (Misses == 1) {
      Show(Obj::Remainder0);
    } else if (Misses == 2) {
      Show(Obj::Remainder0);
      Show(Obj::Remainder1);
    }
    PlaySoundFile("Beep3.wav");
    BonusBeats = 16;
  }
  DoCheckSpeed();
}

// The tick calls it only while the bonus runs.
void Form1::BonusTick() {
  --BonusBeats;
  // The divers given back flash; after sixteen beats they stand lit.
  if (Misses == 1) {
    SetVisible(Obj::Remainder0, !IsVisible(Obj::Remainder0));
  } else if (Misses == 2) {
    SetVisible(Obj::Remainder0, !IsVisible(Obj::Remainder0));
    SetVisible(Obj::Remainder1, !IsVisible(Obj::Remainder1));
  }
  if (IsVisible(Obj::Remainder0)) PlaySoundFile("Beep3.wav");
  if (BonusBeats == 0) Misses = 0;
}

void Form1::ShowSpares() {
  if (Misses != 1 && Misses != 2) return;
  // The spare next to the boat steps onto it.
  Hide(Obj::Remainder1);
  CopyPicture(OnTheBoat(0), DiverStep(0));
  Show(DiverStep(0));
}

void Form1::StoreHighScore() {
  // Only a strictly higher score replaces the stored one; the demo (no game
  // mode) stores nothing.
  if (SettingInt(store::kGameAHighScore) < Score && GameMode == 1) {
    SaveSetting(store::kGameAHighScore, std::to_string(Score));
    return;
  }
  if (SettingInt(store::kGameBHighScore) < Score && GameMode == 2) {
    SaveSetting(store::kGameBHighScore, std::to_string(Score));
  }
}

}  // namespace nautrix
