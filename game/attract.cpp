// Starting and ending a game, and the demo that the idle clock screen plays
// with the same routines: only Playing false tells it from a game.
#include "device/form1.h"

namespace nautrix {
namespace {

// Both a game and the demo start from here: every tentacle home, the sea
// floor empty, the counters at rest.
void ResetPlayfield(Form1& f) {
  f.DiverLoad = 0;
  f.BonusBeats = 0;
  f.PairReady = 0;
  for (int t = 0; t <= 4; ++t) {
    f.TentacleDown[t] = 0;
    f.TentacleBack[t] = 0;
    f.Hide(DiverStep(t + 1));
    // Segments go out from the tip inward.
    for (int k = f.TentacleLength[t] - 1; k >= 0; --k) f.Hide(Tentacle(t, k));
    f.TentacleLength[t] = 0;
  }
  f.TentacleTurn = 0;
  f.BoatBeats = 0;
  f.DiverPos = 0;
  f.BoatWait = 10;
  f.OverSeconds = 0;
  f.Score = 0;
  f.CaptureBeats = 0;
}

void HideCaughtDiver(Form1& f) {
  f.Hide(Obj::MissPic);
  f.Hide(Obj::Arm);
  f.Hide(Obj::Legs);
}

}  // namespace

void Form1::StartGame() {
  // A running game cannot be restarted.
  if (Playing) return;
  ShowGameType(GameMode);
  HideCaughtDiver(*this);
  Playing = true;
  ResetPlayfield(*this);
  ShowScore(Score);
  DoCheckSpeed();
  Misses = 0;
  ShowSpares();
  ShowPlayfield();
}

void Form1::ClearGame() {
  if (Playing) return;
  HideCaughtDiver(*this);
  ResetPlayfield(*this);
  DoCheckSpeed();
  Misses = 0;
  ShowSpares();
  ShowPlayfield();
}

void Form1::ShowPlayfield() {
  if (Misses <= 2) {
    CopyPicture(OnTheBoat(0), DiverStep(0));
    Show(DiverStep(0));
  }
  switch (Misses) {
    case 0:
      Show(Obj::Remainder0);
      Show(Obj::Remainder1);
      break;
    case 1:
      Hide(Obj::Remainder0);
      Show(Obj::Remainder1);
      HideDivers();
      break;
    case 2:
      Hide(Obj::Remainder0);
      Hide(Obj::Remainder1);
      HideDivers();
      break;
    case 3:
      StoreHighScore();
      if (Playing) {
        // Game over: the third diver kicks on in the grip.
        CaptureBeats = 7;
        Misses = 4;
        OverSeconds = 0;
      } else {
        // The demo never ends: three divers lost, and it starts over.
        HideCaughtDiver(*this);
        DiverLoad = 0;
        BoatWait = 10;
        OverSeconds = 0;
        Show(Obj::Remainder0);
        Show(Obj::Remainder1);
        CopyPicture(OnTheBoat(0), DiverStep(0));
        Show(DiverStep(0));
        BoatBeats = 0;
        Misses = 0;
        HideDivers();
      }
      break;
    default:
      break;
  }
}

void Form1::ShowGameType(int mode) {
  SetVisible(GameType(0), mode == 1);
  SetVisible(GameType(1), mode == 2);
}

void Form1::EndGame() {
  if (!Playing) return;
  // One beat of the capture scene is left, for the idle screen to take the
  // caught diver away.
  CaptureBeats = 1;
  Playing = false;
  ScoreShown = false;
  SetTimer1Interval(50);
  GameMode = 0;
  ShowGameType(0);
  Misses = 0;
  Score = 0;
  BoatBeats = 0;
  OverSeconds = 0;
}

void Form1::AttractStep() {
  if (DiverPos == 0 && DiverLoad == 2 && BoatBeats == 1) {
    // The demo's diver leaves before the count's last beat.
    BoatBeats = 0;
    DiverLoad = 0;
    DiverForward();
  } else if (DiverLoad == 0 || (DiverPos == 8 && DiverLoad == 2)) {
    DiverForward();
  } else if (BoatBeats > 1) {
    BoatTick();
  } else {
    DiverBack();
  }
  // The tentacles turn on even after a capture has begun.
  for (int i = 0; i < 4; ++i) MoveTentacles();
}

}  // namespace nautrix
