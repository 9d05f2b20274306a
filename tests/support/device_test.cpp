#include "tests/support/device_test.h"

namespace nautrix {

const char* Name(By by) { return by == By::Pointer ? "Pointer" : "Keyboard"; }

void DeviceTest::Load() {
  fake.FillDefaultStore();
  fake.SetDeviceTime(9, 0, 0);
  form.Form_Load();
  ExpectInvariants();
}

void DeviceTest::ExpectInvariants() {
  const std::string broken = form.InvariantViolations();
  EXPECT_TRUE(broken.empty()) << broken;
}

void DeviceTest::Tick(int count) {
  for (int i = 0; i < count; ++i) {
    form.Timer1_Timer();
    ExpectInvariants();
  }
}

void DeviceTest::NextSecond(int count) {
  for (int i = 0; i < count; ++i) {
    fake.AdvanceSeconds(1);
    Tick();
  }
}

std::string DeviceTest::Readout() const {
  std::string shown;
  for (Obj o : {HourDigit(0), HourDigit(1), MinuteDigit(0), MinuteDigit(1)}) {
    const int d = form.ShownDigit(o);
    shown += d < 0 ? '-' : static_cast<char>('0' + d);
  }
  return shown + " " + (Lit(Obj::am) ? "am" : "") + (Lit(Obj::pm) ? "pm" : "") +
         (Lit(Obj::Colon) ? ":" : "");
}

std::string DeviceTest::Sea() const {
  std::string sea;
  sea += !Lit(DiverStep(0)) ? '-' : Shows(DiverStep(0), OnTheBoat(1)) ? 'B' : 'b';
  sea += Lit(Obj::Remainder0) ? 'r' : '-';
  sea += Lit(Obj::Remainder1) ? 'r' : '-';
  std::string diver = "-";
  for (int p = 1; p <= 5; ++p) {
    for (int n = 0; n < 32 && Lit(DiverStep(p)); ++n) {
      if (Shows(DiverStep(p), Diver(n))) diver = std::to_string(p) + ":" + std::to_string(n);
    }
  }
  sea += " " + diver + " ";
  for (int t = 0; t <= 4; ++t) sea += static_cast<char>('0' + form.TentacleLength[t]);
  sea += !Lit(Obj::MissPic) ? " -" : Shows(Obj::Arm, TempArm(1)) ? " k1" : " k0";
  return form.CaptureBeats == 0 ? sea : sea + " c" + std::to_string(form.CaptureBeats);
}

std::string DeviceTest::Beeped() {
  std::string beeps;
  for (const std::string& name : fake.sounds) beeps += name.substr(4, 1);
  fake.sounds.clear();
  return beeps;
}

bool DeviceTest::IsDown(Obj key) const {
  if (key == Obj::LeftButton || key == Obj::RightButton) return Shows(key, Button1(1));
  if (key == Obj::AlarmButton || key == Obj::ACLButton) return Shows(key, Button2(1));
  return Shows(key, Button0(1));
}

void DeviceTest::Play(int mode) {
  form.GameMode = static_cast<uint8_t>(mode);
  form.StartGame();
  Forget();
}

void DeviceTest::Do(const std::string& moves) {
  for (const char move : moves) {
    if (move == 'r') form.DiverForward();
    if (move == 'l') form.DiverBack();
    if (move == 't') Tick();
    if (move == 's') NextSecond();
  }
}

void DeviceTest::Turn(std::initializer_list<float> numbers) {
  fake.rnd_script.insert(fake.rnd_script.end(), numbers);
  Tick();
}

void DeviceTest::PutTentacle(int t, int length, bool back) {
  for (int k = 0; k < form.TentacleMax[t]; ++k) form.SetVisible(Tentacle(t, k), k < length);
  form.TentacleLength[t] = static_cast<uint8_t>(length);
  form.TentacleBack[t] = back ? 1 : 0;
  form.TentacleDown[t] = length == form.TentacleMax[t] ? 1 : 0;
}

void DeviceTest::Enter(Mode mode) {
  if (mode == Mode::Game || mode == Mode::GameOver) Play(1);
  if (mode == Mode::GameOver) {
    form.Misses = 3;  // the third diver's capture ends
    form.ShowPlayfield();
  }
  if (mode == Mode::AlarmSet) Click(By::Keyboard, Obj::AlarmButton);
  if (mode == Mode::ClockSet) Click(By::Keyboard, Obj::ACLButton);
  Forget();
}

Point DeviceTest::Middle(Obj key) {
  const Rect r = Info(key).rect;
  return {r.left + r.width / 2, r.top + r.height / 2};
}

void DeviceTest::PressAt(Obj key, Point p) {
  MoveTo(p);
  form.MouseDown(key, 1, 0, 0, 0);
  ExpectInvariants();
}

// 1, 2, T, the Left and Right arrows, A; R for ACL.
int DeviceTest::CodeOf(Obj key) {
  const std::pair<Obj, int> codes[] = {{Obj::GameAButton, 49}, {Obj::GameBButton, 50},
                                       {Obj::TimeButton, 84},  {Obj::LeftButton, 37},
                                       {Obj::RightButton, 39}, {Obj::AlarmButton, 65}};
  for (const auto& [k, code] : codes) {
    if (k == key) return code;
  }
  return 82;
}

void DeviceTest::Down(By by, Obj key) {
  if (by == By::Keyboard) return Keys({CodeOf(key)});
  PressAt(key, Middle(key));
}

void DeviceTest::Up(By by, Obj key) {
  if (by == By::Keyboard) return Keys({-CodeOf(key)});
  form.MouseUp(key, 1, 0, 0, 0);
  ExpectInvariants();
}

void DeviceTest::Keys(std::initializer_list<int> codes) {
  for (const int code : codes) {
    code > 0 ? form.Form_KeyDown(code, 0) : form.Form_KeyUp(-code, 0);
    ExpectInvariants();
  }
}

}  // namespace nautrix
