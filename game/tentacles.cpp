// The nautrix's five tentacles: one call is one tentacle's turn. A tentacle
// that is out always moves; chance decides only whether one leaves the body.
// Tentacles 0 and 1 share their root segment, so at most one of that pair is
// ever out, and the pair leaves the body only through its gate.
#include "device/form1.h"

namespace nautrix {
namespace {

// Three times in five a tentacle at home may leave the body.
bool StartChance(float r) { return static_cast<int>(r * 5.0f) <= 2; }

}  // namespace

void Form1::MoveTentacles() {
  // Both numbers are drawn at every turn, whatever happens next.
  const float r1 = platform_.Rnd();
  const float r2 = platform_.Rnd();
  int t = TentacleTurn;
  bool beat = true;

  const bool pair_home = TentacleLength[0] == 0 && TentacleLength[1] == 0;
  bool acts;
  if (t >= 2) {
    acts = TentacleLength[t] > 0 || StartChance(r1);
  } else {
    acts = TentacleLength[t] > 0 || (pair_home && StartChance(r2));
  }

  if (acts) {
    bool moves = true;
    // The left pair's gate: the first turn that may start the pair only
    // opens the gate; the next picks which of the two grows, whichever
    // tentacle's turn it was.
    if (t <= 1 && pair_home) {
      if (PairReady == 1) {
        const float r3 = platform_.Rnd();
        t = static_cast<int>(2.0f * r3);
        TentacleTurn = static_cast<uint8_t>(t);
        PairReady = 0;
      } else {
        PairReady = 1;
        moves = false;
      }
    }

    if (moves && TentacleBack[t] == 0) {
      // Growing: segments light from the root outward.
      Show(Tentacle(t, TentacleLength[t]));
      ++TentacleLength[t];
      if (TentacleLength[t] < TentacleMax[t]) {
        TentacleDown[t] = 0;
      } else {
        TentacleDown[t] = 1;
        // The tip of tentacle 4 reaches the chest, where the diver's working
        // beats 6 to 8 are drawn on the chest's own object.
        const int p = DiverPos > 5 ? 5 : DiverPos;
        if (p == t + 1) {
          CopyPicture(DiverSprite(DiverPos), DiverStep(p));
          beat = false;
          if (BonusBeats == 0) BeginCapture();
        }
        TentacleBack[t] = 1;
      }
    } else if (moves) {
      // Going back; the number is drawn in both games.
      const float r4 = platform_.Rnd();
      if (GameMode == 2 && TentacleLength[t] == 1 && static_cast<int>(r4 * 10.0f) == 0) {
        // Game B: at its last segment a tentacle may turn and come out again.
        TentacleBack[t] = 0;
      } else {
        --TentacleLength[t];
        Hide(Tentacle(t, TentacleLength[t]));
        // Every step back of the pair shuts its gate again.
        if (t <= 1) PairReady = 0;
        TentacleDown[t] = 0;
        if (TentacleLength[t] == 0) TentacleBack[t] = 0;
      }
    }
  }

  // The game's beat ends every turn, also one in which nothing moved; the
  // boat count silences it, and a tip that lands on the diver replaces it.
  if (beat && BoatBeats == 0) PlaySoundFile("Beep0.wav");
  // The turn passes on from the tentacle the gate picked.
  TentacleTurn = static_cast<uint8_t>(t + 1 > 4 ? 0 : t + 1);
}

}  // namespace nautrix
