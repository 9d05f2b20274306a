// Scenes of the game, played beat by beat: a loaded device, a game started
// the way the keys start one, and a few shorthands for putting the sea floor
// into a given state.
#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "device/store_keys.h"
#include "tests/support/device_test.h"

namespace nautrix {

class GameScene : public DeviceTest {
 protected:
  // A game of the mode, as the release of GAME A or GAME B starts it; the
  // clock stands at 9:00:00 so that plain Ticks run no once-a-second work.
  void Play(int mode) {
    Load();
    form.GameMode = static_cast<uint8_t>(mode);
    form.StartGame();
    fake.TakeSounds();
  }
  // One game tick whose tentacle turn draws these numbers first.
  void Turn(std::initializer_list<float> numbers) {
    fake.Script(numbers);
    Tick();
  }
  // Tentacle t out to `length` segments, standing down at full length.
  void PutTentacle(int t, int length, bool back) {
    for (int k = 0; k < form.TentacleMax[t]; ++k) form.SetVisible(Tentacle(t, k), k < length);
    form.TentacleLength[t] = static_cast<uint8_t>(length);
    form.TentacleBack[t] = back ? 1 : 0;
    form.TentacleDown[t] = length == form.TentacleMax[t] ? 1 : 0;
  }
  // The diver walked out from the boat to position p by the right key.
  void WalkTo(int p) {
    for (int i = 0; i < p; ++i) form.DiverForward();
  }
  std::vector<std::string> Sounds() { return fake.TakeSounds(); }
  using Beeps = std::vector<std::string>;
};

}  // namespace nautrix
