// Setting a time: the left key steps the hour, the right key the minute, on
// the time under edit and never on the running clock. The clock setting then
// writes the edit to the device clock.
#include "clock/time_text.h"
#include "device/form1.h"
#include "device/text.h"

namespace nautrix {
namespace {

// The edit as nine characters; a short text reads as zeros where it ends.
std::string NineCharacters(const std::string& text) {
  std::string t = text;
  t.resize(9, ' ');
  return t;
}

}  // namespace

void Form1::StepClock(bool hour) {
  const std::string t = NineCharacters(EditTimeText);
  std::string stepped;
  if (hour) {
    const int h = DigitsValue(t, 0, 2) + 1;
    if (h > 12) {
      // 12 AM is followed by 01 AM: the half of the day turns at 12, not at 1.
      stepped = Format00(1) + t.substr(2, 7);
    } else if (h == 12) {
      stepped = "12" + t.substr(2, 5) + (t.substr(7, 2) == "AM" ? "PM" : "AM");
    } else {
      stepped = Format00(h) + t.substr(2, 7);
    }
  } else {
    int m = DigitsValue(t, 2, 2) + 1;
    if (m > 59) m = 0;  // no carry into the hour
    stepped = t.substr(0, 2) + Format00(m) + t.substr(4, 5);
  }
  ShowTime(stepped);
  EditTimeText = stepped;
  // The scene on the LCD walks on one step with every step of the time.
  AttractStep();
}

// "hhmmss AM" becomes "hh:mm:ss AM". The device clock takes it at once, so
// the readout and the alarm see the written time from here on.
void Form1::WriteClock() {
  const std::string t = NineCharacters(EditTimeText);
  platform().SetTimeOfDay(t.substr(0, 2) + ":" + t.substr(2, 2) + ":" + t.substr(4, 5));
}

}  // namespace nautrix
