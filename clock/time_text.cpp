#include "clock/time_text.h"

#include "device/form1.h"
#include "device/text.h"

namespace nautrix {
namespace {

std::string Hour12(const ClockTime& time) {
  const int hour = time.hour % 12 == 0 ? 12 : time.hour % 12;
  return Format00(hour);
}

const char* HalfOfDay(const ClockTime& time) { return time.hour < 12 ? "AM" : "PM"; }

}  // namespace

std::string Format00(int value) {
  std::string text = std::to_string(value);
  return text.size() < 2 ? std::string(2 - text.size(), '0') + text : text;
}

std::string Format000(int value) {
  std::string text = std::to_string(value);
  return text.size() < 3 ? std::string(3 - text.size(), '0') + text : text;
}

std::string TimeText(const ClockTime& time) {
  return Hour12(time) + Format00(time.minute) + Format00(time.second) + " " + HalfOfDay(time);
}

std::string TimeTextNoSeconds(const ClockTime& time) {
  return Hour12(time) + Format00(time.minute) + " " + HalfOfDay(time);
}

bool IsTimeText(const std::string& text) {
  if (text.size() != 9 || text[6] != ' ') return false;
  for (int i = 0; i < 6; ++i) {
    if (text[i] < '0' || text[i] > '9') return false;
  }
  const int hour = DigitsValue(text, 0, 2);
  const std::string half = text.substr(7, 2);
  return hour >= 1 && hour <= 12 && DigitsValue(text, 2, 2) <= 59 &&
         DigitsValue(text, 4, 2) <= 59 && (half == "AM" || half == "PM");
}

std::string Form1::CurrentTimeText() { return TimeText(Now()); }

}  // namespace nautrix
