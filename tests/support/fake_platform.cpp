#include "tests/support/fake_platform.h"

#include <cmath>

namespace nautrix {
namespace {

constexpr int kDay = 24 * 3600;
int InDay(int seconds) { return (seconds % kDay + kDay) % kDay; }

}  // namespace

const char* DialogName(Dialog dialog) {
  switch (dialog) {
    case Dialog::About: return "Form2";
    case Dialog::Options: return "Form3";
    case Dialog::Instructions: return "Form4";
  }
  return "";
}

void FakePlatform::SetDeviceTime(int h, int m, int s) {
  machine_seconds = InDay(h * 3600 + m * 60 + s - clock_offset);
}

ClockTime FakePlatform::Now() {
  const int t = InDay(machine_seconds + clock_offset);
  return {t / 3600, t / 60 % 60, t % 60};
}

// "hh:mm:ss AM": moves the device's offset, never the machine's clock.
void FakePlatform::SetTimeOfDay(const std::string& text) {
  calls.push_back("SetTimeOfDay " + text);
  const int h = std::stoi(text.substr(0, 2)) % 12 + (text.substr(9, 2) == "PM" ? 12 : 0);
  clock_offset = h * 3600 + std::stoi(text.substr(3, 2)) * 60 + std::stoi(text.substr(6, 2)) -
                 InDay(machine_seconds);
}

std::string FakePlatform::GetSetting(const std::string&, const std::string&,
                                     const std::string& key, const std::string& def) {
  const auto it = store.find(key);
  return it == store.end() ? def : it->second;
}

float FakePlatform::Rnd() {
  ++rnd_draws;
  if (rnd_script.empty()) return rnd_default;
  const float r = rnd_script.front();
  rnd_script.pop_front();
  return r;
}

std::vector<std::string> FakePlatform::TakeSounds() {
  std::vector<std::string> taken;
  taken.swap(sounds);
  return taken;
}

// Like a real window: placed on whole pixels, and reported back in twips of
// the outer corner, 45 and 330 twips outside the client area.
void FakePlatform::MoveWindow(float l, float t) {
  left = std::lround((l + 45) / 15) * 15.0f - 45;
  top = std::lround((t + 330) / 15) * 15.0f - 330;
}

}  // namespace nautrix
