// Scenes of the keys: a loaded device worked by the pointer or the keyboard,
// and put into each of its modes the way a user gets there.
#pragma once

#include <string>

#include "device/store_keys.h"
#include "tests/support/device_test.h"

namespace nautrix {

enum class By { Pointer, Keyboard };
enum class Mode { Idle, Game, GameOver, AlarmSet, ClockSet };

inline const char* Name(By by) { return by == By::Pointer ? "Pointer" : "Keyboard"; }
inline const char* Name(Mode mode) {
  const char* names[] = {"Idle", "Game", "GameOver", "AlarmSet", "ClockSet"};
  return names[static_cast<int>(mode)];
}

class KeyScene : public DeviceTest {
 protected:
  void SetUp() override {
    Load();
    Forget();
  }
  void Forget() {
    fake.calls.clear();
    fake.store_writes.clear();
    fake.intervals.clear();
    fake.TakeSounds();
  }

  static int CodeOf(Obj key) {
    switch (key) {
      case Obj::GameAButton: return 49;
      case Obj::GameBButton: return 50;
      case Obj::TimeButton: return 84;
      case Obj::LeftButton: return 37;
      case Obj::RightButton: return 39;
      case Obj::AlarmButton: return 65;
      default: return 82;  // ACL
    }
  }
  static Point Middle(Obj key) {
    const Rect r = Info(key).rect;
    return {r.left + r.width / 2, r.top + r.height / 2};
  }
  bool IsDown(Obj key) const {
    if (key == Obj::LeftButton || key == Obj::RightButton) return Shows(key, Button1(1));
    if (key == Obj::AlarmButton || key == Obj::ACLButton) return Shows(key, Button2(1));
    return Shows(key, Button0(1));
  }

  void MoveTo(Point p) { fake.cursor = p; }
  void MoveOff() { fake.cursor = {200, 180}; }  // on the case, over no key
  // A left press on the key's object at a point of its own choosing.
  void PressAt(Obj key, Point p) {
    MoveTo(p);
    form.MouseDown(key, 1, 0, 0, 0);
    ExpectInvariants();
  }
  void Down(By by, Obj key) {
    if (by == By::Pointer) return PressAt(key, Middle(key));
    form.Form_KeyDown(CodeOf(key), 0);
    ExpectInvariants();
  }
  // By pointer the release goes to the object that took the press.
  void Up(By by, Obj key) {
    if (by == By::Pointer) form.MouseUp(key, 1, 0, 0, 0);
    else form.Form_KeyUp(CodeOf(key), 0);
    ExpectInvariants();
  }
  void Click(By by, Obj key) {
    Down(by, key);
    Up(by, key);
  }
  void KeyDown(int code) {
    form.Form_KeyDown(code, 0);
    ExpectInvariants();
  }
  void KeyUp(int code) {
    form.Form_KeyUp(code, 0);
    ExpectInvariants();
  }

  // From the idle device, as a user gets there; the records start empty.
  void Enter(Mode mode) {
    switch (mode) {
      case Mode::Idle: break;
      case Mode::Game: StartGameA(); break;
      case Mode::GameOver:
        StartGameA();
        form.Misses = 3;  // the third diver's capture ends
        form.ShowPlayfield();
        break;
      case Mode::AlarmSet: Click(By::Keyboard, Obj::AlarmButton); break;
      case Mode::ClockSet: Click(By::Keyboard, Obj::ACLButton); break;
    }
    Forget();
  }
  void StartGameA() {
    form.GameMode = 1;
    form.StartGame();
  }
  int Minutes() const { return std::stoi(form.EditTimeText.substr(2, 2)); }
};

}  // namespace nautrix
