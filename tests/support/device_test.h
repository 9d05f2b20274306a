// The fixture of the core's tests: a Form1 on the fake platform, with the
// invariants of the state record checked after every tick and every event a
// test plays; short texts of what the LCD shows, so that a scene is checked
// beat by beat in one line a beat; and the shorthands that put the device
// into a scene the way a user gets there.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

#include "device/form1.h"
#include "device/store_keys.h"
#include "tests/support/fake_platform.h"

namespace nautrix {

// "a;b;c"
inline std::string Joined(const std::vector<std::string>& texts) {
  std::string joined;
  for (const std::string& text : texts) joined += (joined.empty() ? "" : ";") + text;
  return joined;
}

enum class By { Pointer, Keyboard };
enum class Mode { Idle, Game, GameOver, AlarmSet, ClockSet };
const char* Name(By by);

class DeviceTest : public ::testing::Test {
 protected:
  FakePlatform fake;
  Form1 form{fake};

  // Form_Load over a full store (no first-run instructions), at 09:00:00.
  void Load();
  // One tick of Timer1, then the invariants.
  void Tick(int count = 1);
  // The device clock moves on a second, then one tick.
  void NextSecond(int count = 1);
  void ExpectInvariants();
  void Forget() { fake.ForgetRecords(); }

  // ---- What the device shows and sounds ----------------------------------
  bool Lit(Obj o) const { return form.IsVisible(o); }
  bool Shows(Obj o, Obj sprite) const { return form.SamePicture(o, sprite); }
  // The readout: the four digit places ('-' unlit), then the marks lit of
  // "am", "pm" and ":"; "-905 am", "1200 pm:", "--42 ".
  std::string Readout() const;
  // The sea floor: the boat ('b', 'B' with the bag up, '-'), the two spares
  // ('r' or '-'), the lit diver as position:sprite ("3:9") or '-', the five
  // tentacles' lengths, the caught diver's pose ("k0", "k1") or '-', and the
  // capture's beats left, if any: "b-r 2:5 04000 -", "br- - 04220 k0 c8".
  std::string Sea() const;
  // The beeps since the last call, by their digit: "21" for Beep2, Beep1.
  std::string Beeped();
  bool IsDown(Obj key) const;

  // ---- Game scenes ------------------------------------------------------
  // A game of the mode, started as the release of GAME A or GAME B does.
  void Play(int mode);
  // Moves of the diver and the clock, one character each: 'r' and 'l' the
  // diver's steps as the keys make them, 't' a tick, 's' the next second.
  void Do(const std::string& moves);
  // The sea floor after the moves.
  std::string SeaAfter(const std::string& moves) {
    Do(moves);
    return Sea();
  }
  // One tick whose tentacle turn draws these numbers first.
  void Turn(std::initializer_list<float> numbers);
  // Tentacle t out to `length` segments, standing down at full length.
  void PutTentacle(int t, int length, bool back);

  // ---- Keys -------------------------------------------------------------
  // From the idle device into the mode, as a user gets there; then Forget.
  void Enter(Mode mode);
  void MoveTo(Point p) { fake.cursor = p; }
  static Point Middle(Obj key);
  static int CodeOf(Obj key);
  // A left press on the key's object, the pointer at p.
  void PressAt(Obj key, Point p);
  void Down(By by, Obj key);
  // By pointer the release goes to the object that took the press.
  void Up(By by, Obj key);
  void Click(By by, Obj key) {
    Down(by, key);
    Up(by, key);
  }
  // Key-downs of the codes, and key-ups of the negated codes, in order.
  void Keys(std::initializer_list<int> codes);
};

// Scenes start from the loaded idle device, its time on the readout, with
// its records forgotten.
class Scene : public DeviceTest {
 protected:
  void SetUp() override {
    Load();
    Tick();
    Forget();
  }
};

}  // namespace nautrix
