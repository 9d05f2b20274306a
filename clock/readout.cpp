// The digit readout: the only writer of the four digits, the colon and the
// am/pm marks. It shows a time text or a score and keeps nothing but the
// flag that a score stands on it.
#include "clock/time_text.h"
#include "device/form1.h"
#include "device/store_keys.h"
#include "device/text.h"

namespace nautrix {
namespace {

// Characters that are missing or no digits count as 0.
int DigitAt(const std::string& text, size_t i) { return DigitsValue(text, i, 1); }

// A digit object takes the digit sprite's picture at every call.
void ShowDigit(Form1& f, Obj digit, int value) {
  f.CopyPicture(Number(value), digit);
  f.Show(digit);
}

}  // namespace

void Form1::ShowTime(const std::string& text) {
  // A mark is only switched when the other half of the day is lit, or when
  // a score has put both out.
  const std::string half = text.size() >= 9 ? text.substr(7, 2) : std::string();
  if (half == "AM" && !IsVisible(Obj::am)) {
    Show(Obj::am);
    Hide(Obj::pm);
  } else if (half == "PM" && !IsVisible(Obj::pm)) {
    Hide(Obj::am);
    Show(Obj::pm);
  }
  // No leading zero on the hour.
  const int tens = DigitAt(text, 0);
  if (tens != 0) ShowDigit(*this, HourDigit(0), tens);
  else Hide(HourDigit(0));
  ShowDigit(*this, HourDigit(1), DigitAt(text, 1));
  ShowDigit(*this, MinuteDigit(0), DigitAt(text, 2));
  ShowDigit(*this, MinuteDigit(1), DigitAt(text, 3));
  // The colon blinks with the seconds of the text itself.
  SetVisible(Obj::Colon, DigitsValue(text, 4, 2) % 2 == 0);
  // The note follows what is stored, not the alarm under edit.
  SetVisible(Obj::Note, SettingBool(store::kAlarmOn));
}

void Form1::ShowScore(int value) {
  ScoreShown = true;
  Hide(Obj::am);
  Hide(Obj::pm);
  Hide(Obj::Colon);
  const std::string s = Format000(value);
  Hide(HourDigit(0));
  const int hundreds = DigitAt(s, 0);
  const int tens = DigitAt(s, 1);
  if (hundreds != 0) {
    ShowDigit(*this, HourDigit(1), hundreds);
    ShowDigit(*this, MinuteDigit(0), tens);
  } else {
    Hide(HourDigit(1));
    if (tens != 0) ShowDigit(*this, MinuteDigit(0), tens);
    else Hide(MinuteDigit(0));
  }
  // The units digit was lit by the first time shown and is never put out.
  CopyPicture(Number(DigitAt(s, 2)), MinuteDigit(1));
}

// Read back from the segments, as an eye reads the LCD: a lit half-of-day
// mark makes the digits a time, with its colon whether or not it blinks
// off at this moment; without one they are a score.
int Form1::ShownDigit(Obj place) const {
  if (!IsVisible(place)) return -1;
  for (int d = 0; d <= 9; ++d) {
    if (SamePicture(place, Number(d))) return d;
  }
  return -1;
}

std::string Form1::ReadoutText() const {
  std::string digits;
  for (const Obj o : {HourDigit(0), HourDigit(1), MinuteDigit(0), MinuteDigit(1)}) {
    if (const int d = ShownDigit(o); d >= 0) digits += static_cast<char>('0' + d);
  }
  const bool am = IsVisible(Obj::am);
  if (!am && !IsVisible(Obj::pm)) return digits;
  if (digits.size() < 3) return digits;
  digits.insert(digits.size() - 2, 1, ':');
  return digits + (am ? " AM" : " PM");
}

}  // namespace nautrix
