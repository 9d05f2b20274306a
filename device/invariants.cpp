// The rules the record keeps between any two events, told one condition a
// line so that a broken one names itself.
#include <algorithm>
#include <sstream>

#include "device/form1.h"

namespace nautrix {
#define NAUTRIX_HOLDS(condition) \
  if (!(condition)) out << #condition << "\n"

std::string Form1::InvariantViolations() const {
  std::ostringstream out;
  NAUTRIX_HOLDS(AlarmSetting == 0 || ClockSetting == 0);
  NAUTRIX_HOLDS(Misses != 4 || Playing);
  NAUTRIX_HOLDS(PressedKey == kNoKey || !KeyLatch);
  NAUTRIX_HOLDS(TentacleLength[0] == 0 || TentacleLength[1] == 0);  // one root
  NAUTRIX_HOLDS(TentacleDown[5] + TentacleBack[5] + TentacleLength[5] + TentacleMax[5] == 0);
  for (int t = 0; t <= 4; ++t) {
    NAUTRIX_HOLDS(TentacleDown[t] == 0 || TentacleLength[t] == TentacleMax[t]);
    NAUTRIX_HOLDS(TentacleLength[t] <= TentacleMax[t]);
    NAUTRIX_HOLDS(TentacleBack[t] <= 1 && TentacleDown[t] <= 1);
    for (int k = 0; k < TentacleMax[t]; ++k) {
      NAUTRIX_HOLDS(IsVisible(Tentacle(t, k)) == (k < TentacleLength[t]));
    }
  }
  NAUTRIX_HOLDS(TentacleTurn <= 4 && PairReady <= 1);
  NAUTRIX_HOLDS(DiverPos <= 8 && (DiverLoad == 0 || DiverLoad == 2));
  NAUTRIX_HOLDS(Score >= 0 && Score <= 999 && Misses <= 4);
  NAUTRIX_HOLDS(BoatWait <= 10 && BoatBeats <= 4 && CaptureBeats <= 11);
  NAUTRIX_HOLDS(BonusBeats <= 16 && OverSeconds >= 0 && OverSeconds <= 60);
  NAUTRIX_HOLDS(LastSecond <= 59 && RepeatDelay <= 3);
  NAUTRIX_HOLDS(PressedKey >= -1 && PressedKey <= 8);
  NAUTRIX_HOLDS(GameMode <= 2 && AlarmSetting <= 2 && ClockSetting <= 1);
  NAUTRIX_HOLDS(!Playing || Timer1Interval() > 0);
  int walkers = 0;
  for (int p = 1; p <= 5; ++p) walkers += IsVisible(DiverStep(p));
  NAUTRIX_HOLDS(walkers <= 1);
  // The readout: every lit digit is a digit, and a time is a time of the
  // 12-hour clock.
  int digits[4];
  const Obj places[] = {HourDigit(0), HourDigit(1), MinuteDigit(0), MinuteDigit(1)};
  for (int i = 0; i < 4; ++i) {
    digits[i] = ShownDigit(places[i]);
    NAUTRIX_HOLDS(!IsVisible(places[i]) || digits[i] >= 0);
  }
  if (!ScoreShown && IsVisible(Obj::am) != IsVisible(Obj::pm)) {
    const int hour = std::max(digits[0], 0) * 10 + digits[1];
    NAUTRIX_HOLDS(hour >= 1 && hour <= 12 && digits[2] >= 0 && digits[2] <= 5);
  }
  return out.str();
}

#undef NAUTRIX_HOLDS

}  // namespace nautrix
