#include "tests/support/device_test.h"

#include <sstream>

#include "device/store_keys.h"

namespace nautrix {

std::string InvariantViolations(const Form1& f) {
  std::ostringstream out;
  auto check = [&](bool holds, const char* what) {
    if (!holds) out << what << "\n";
  };
  check(f.AlarmSetting == 0 || f.ClockSetting == 0, "AlarmSetting and ClockSetting both set");
  check(f.Misses != 4 || f.Playing, "Misses 4 without Playing");
  check(f.PressedKey == kNoKey || !f.KeyLatch, "PressedKey and KeyLatch both hold a key");
  check(f.PressedKey >= -1 && f.PressedKey <= 8, "PressedKey out of range");
  check(f.TentacleDown[5] == 0 && f.TentacleBack[5] == 0 && f.TentacleLength[5] == 0 &&
            f.TentacleMax[5] == 0,
        "cell 5 of the tentacle arrays used");
  for (int t = 0; t <= 4; ++t) {
    check(f.TentacleDown[t] == 0 || f.TentacleLength[t] == f.TentacleMax[t],
          "TentacleDown without full length");
    check(f.TentacleLength[t] <= f.TentacleMax[t], "TentacleLength above TentacleMax");
    check(f.TentacleBack[t] <= 1 && f.TentacleDown[t] <= 1, "tentacle flag out of range");
    for (int k = 0; k < f.TentacleMax[t]; ++k) {
      check(f.IsVisible(Tentacle(t, k)) == (k < f.TentacleLength[t]),
            "tentacle segments do not match TentacleLength");
    }
  }
  check(f.TentacleTurn <= 4, "TentacleTurn out of range");
  check(f.PairReady <= 1, "PairReady out of range");
  check(f.DiverPos <= 8, "DiverPos out of range");
  check(f.DiverLoad == 0 || f.DiverLoad == 2, "DiverLoad out of range");
  check(f.Score >= 0 && f.Score <= 999, "Score out of range");
  check(f.Misses <= 4, "Misses out of range");
  check(f.BoatWait <= 10, "BoatWait out of range");
  check(f.BoatBeats <= 4, "BoatBeats out of range");
  check(f.CaptureBeats <= 11, "CaptureBeats out of range");
  check(f.BonusBeats <= 16, "BonusBeats out of range");
  check(f.OverSeconds >= 0 && f.OverSeconds <= 60, "OverSeconds out of range");
  check(f.LastSecond <= 59, "LastSecond out of range");
  check(f.RepeatDelay <= 3, "RepeatDelay out of range");
  check(f.GameMode <= 2 && f.AlarmSetting <= 2 && f.ClockSetting <= 1, "mode field out of range");
  return out.str();
}

void FillDefaultStore(FakePlatform& fake) {
  fake.store = {
      {store::kSound, "True"},           {store::kLeft, "-45"},
      {store::kTop, "-330"},             {store::kDiverSpeed, "300"},
      {store::kGameASpeed, "220"},       {store::kGameBSpeed, "170"},
      {store::kGameAHighScore, "0"},     {store::kGameBHighScore, "0"},
      {store::kAlarmTime, "120000 PM"},  {store::kAlarmOn, "False"},
      {store::kAlwaysOnTop, "False"},    {store::kAutoShow, "True"},
  };
}

void DeviceTest::Load() {
  FillDefaultStore(fake);
  fake.SetDeviceTime(9, 0, 0);
  form.Form_Load();
  ExpectInvariants();
}

void DeviceTest::ExpectInvariants() {
  const std::string broken = InvariantViolations(form);
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

}  // namespace nautrix
