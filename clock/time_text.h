// The device's time texts, made by the device itself so that they never
// depend on the locale: the halves of the day are exactly "AM" and "PM".
#pragma once

#include <string>

#include "device/platform.h"

namespace nautrix {

// "hhmmss AMPM": 12-hour clock, midnight "120000 AM", noon "120000 PM".
std::string TimeText(const ClockTime& time);
// "hhmm AMPM": the same without the seconds.
std::string TimeTextNoSeconds(const ClockTime& time);
// "00" and "000": a number with leading zeros.
std::string Format00(int value);
std::string Format000(int value);
// True for a 9-character time text with hour 01-12, minutes and seconds
// 00-59, a blank and "AM" or "PM".
bool IsTimeText(const std::string& text);

}  // namespace nautrix
