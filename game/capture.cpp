// A caught diver: one beat of the scene per call, counted down in
// CaptureBeats. In a game the scene opens with the capture beep and a silent
// beat; the demo's scene starts at the grip. At game over the kicking runs on
// by itself until the game is ended.
#include "device/form1.h"

namespace nautrix {
namespace {

// The caught diver's two kicking poses.
void SetPose(Form1& f, int pose) {
  f.CopyPicture(TempArm(pose), Obj::Arm);
  f.CopyPicture(TempLegs(pose), Obj::Legs);
}

}  // namespace

// The whole scene in a game; the demo's is silent and starts at the grip.
// A game that is over catches nobody more: the demo that the alarm's
// setting walks through the game-over minute would otherwise take a fourth
// diver, and the minute would never end.
void Form1::BeginCapture() {
  if (Misses == 4) return;
  CaptureBeats = Playing ? 11 : 9;
}

void Form1::CaptureTick() {
  if (CaptureBeats == 0) return;
  --CaptureBeats;
  const int b = CaptureBeats;
  switch (b) {
    case 10:
      PlaySoundFile("Beep2.wav");
      // CaptureBeats is still running: the diver's pace.
      DoCheckSpeed();
      break;
    case 9:
      break;
    case 8: {
      // The grip: a spare steps onto the boat, the diver is lifted off the
      // sea floor, and tentacles 2 and 3 hold him.
      ++Misses;
      ShowSpares();
      Hide(DiverPos < 5 ? DiverStep(DiverPos) : DiverStep(5));
      Show(Obj::MissPic);
      SetPose(*this, 0);
      Show(Obj::Arm);
      Show(Obj::Legs);
      Show(Tentacle(2, 0));
      Show(Tentacle(2, 1));
      for (int k = 2; k <= 4; ++k) Hide(Tentacle(2, k));
      TentacleLength[2] = 2;
      TentacleDown[2] = 0;
      if (TentacleLength[3] < 2) {
        Show(Tentacle(3, 0));
        Show(Tentacle(3, 1));
        TentacleLength[3] = 2;
        TentacleDown[3] = 0;
      }
      break;
    }
    case 7:
    case 5:
    case 3:
    case 1:
      SetPose(*this, 1);
      // Game over: the kicking loops, silently.
      if (Misses == 4) CaptureBeats = 7;
      else PlaySoundFile("Beep1.wav");
      break;
    case 6:
    case 4:
    case 2:
      SetPose(*this, 0);
      if (Misses <= 3) PlaySoundFile("Beep1.wav");
      // After the first miss the last spare moves up next to the boat.
      if (b == 4 && Misses == 1) {
        Hide(Obj::Remainder0);
        Show(Obj::Remainder1);
      }
      break;
    case 0:
      // The third diver stays in the grip for the game-over minute.
      if (Misses < 3) {
        Hide(Obj::MissPic);
        Hide(Obj::Arm);
        Hide(Obj::Legs);
        DiverLoad = 0;  // a treasure carried is lost with him
        BoatWait = 10;
        OverSeconds = 0;
      }
      ShowPlayfield();
      DoCheckSpeed();
      break;
    default:
      break;
  }
}

}  // namespace nautrix
