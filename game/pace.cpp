// The pace of the game is the length of the tick. Within each hundred points
// the tick is cut in steps, and at the next hundred it falls back to the base.
#include "device/form1.h"
#include "device/store_keys.h"

namespace nautrix {
namespace {

// A run of scores, bounds included, and the milliseconds it cuts.
struct Band {
  int16_t low, high;
  int16_t cut;
};

constexpr Band kGameABands[] = {
    {70, 99, 30},    {160, 189, 30},  {190, 199, 60},  {250, 279, 30},  {280, 299, 60},
    {330, 359, 30},  {360, 389, 50},  {390, 399, 80},  {430, 459, 30},  {460, 489, 50},
    {490, 499, 80},  {520, 559, 30},  {560, 599, 60},  {610, 649, 30},  {650, 689, 60},
    {690, 699, 80},  {710, 739, 30},  {740, 779, 60},  {780, 799, 80},  {810, 829, 30},
    {830, 869, 50},  {870, 899, 80},  {930, 969, 30},  {970, 999, 80},
};

// Game B's last band ends at 998: 999 runs at the base.
constexpr Band kGameBBands[] = {
    {30, 69, 30},    {70, 99, 60},    {130, 159, 30},  {160, 189, 60},  {190, 199, 80},
    {220, 249, 30},  {250, 279, 60},  {280, 299, 80},  {330, 359, 30},  {360, 389, 60},
    {390, 399, 80},  {430, 459, 30},  {460, 489, 60},  {490, 499, 80},  {520, 559, 30},
    {560, 599, 60},  {610, 649, 30},  {650, 689, 60},  {690, 699, 80},  {710, 739, 30},
    {740, 779, 60},  {780, 799, 80},  {830, 869, 30},  {870, 899, 60},  {930, 969, 30},
    {970, 998, 80},
};

// The base less the cut of the score's band; a base not above the cut is
// left whole, so the tick never gets shorter than a cut can make it.
template <size_t N>
int CutPace(int base, int score, const Band (&bands)[N]) {
  for (const Band& band : bands) {
    if (score >= band.low && score <= band.high) return base > band.cut ? base - band.cut : base;
  }
  return base;
}

}  // namespace

void Form1::DoCheckSpeed() {
  // The options may change the speeds at any time: they are read anew here.
  if (CaptureBeats != 0 || BoatBeats != 0 || BonusBeats != 0) {
    SetTimer1Interval(SettingInt(store::kDiverSpeed));
  } else if (GameMode == 1) {
    SetTimer1Interval(CutPace(SettingInt(store::kGameASpeed), Score, kGameABands));
  } else if (GameMode == 2) {
    SetTimer1Interval(CutPace(SettingInt(store::kGameBSpeed), Score, kGameBBands));
  } else if (ClockSetting == 0 && AlarmSetting == 0) {
    SetTimer1Interval(50);
  }
  // In the setting modes the tick keeps the pace of the setting.
}

}  // namespace nautrix
