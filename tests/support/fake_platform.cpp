#include "tests/support/fake_platform.h"

#include <cmath>

#include "device/store_keys.h"

namespace nautrix {

namespace {
constexpr int kDay = 24 * 3600;
}

const char* DialogName(Dialog dialog) {
  switch (dialog) {
    case Dialog::About: return "Form2";
    case Dialog::Options: return "Form3";
    case Dialog::Instructions: return "Form4";
  }
  return "";
}

void FakePlatform::SetDeviceTime(int h, int m, int s) {
  const int wanted = h * 3600 + m * 60 + s;
  machine_seconds = ((wanted - clock_offset) % kDay + kDay) % kDay;
}

ClockTime FakePlatform::Now() {
  const int t = ((machine_seconds + clock_offset) % kDay + kDay) % kDay;
  return {t / 3600, t / 60 % 60, t % 60};
}

// "hh:mm:ss AM": moves the device's offset, never the machine's clock.
void FakePlatform::SetTimeOfDay(const std::string& text) {
  calls.push_back("SetTimeOfDay " + text);
  const int h12 = std::stoi(text.substr(0, 2)) % 12;
  const int h = h12 + (text.substr(9, 2) == "PM" ? 12 : 0);
  const int wanted = h * 3600 + std::stoi(text.substr(3, 2)) * 60 + std::stoi(text.substr(6, 2));
  const int machine = ((machine_seconds % kDay) + kDay) % kDay;
  clock_offset = wanted - machine;
}

std::string FakePlatform::GetSetting(const std::string&, const std::string&,
                                     const std::string& key, const std::string& def) {
  const auto it = store.find(key);
  return it == store.end() ? def : it->second;
}

void FakePlatform::SaveSetting(const std::string&, const std::string&, const std::string& key,
                               const std::string& value) {
  store[key] = value;
  store_writes.push_back(key + "=" + value);
}

void FakePlatform::DeleteSetting(const std::string&, const std::string&, const std::string& key) {
  store.erase(key);
  store_writes.push_back("-" + key);
}

float FakePlatform::Rnd() {
  ++rnd_draws;
  if (rnd_script.empty()) return rnd_default;
  const float r = rnd_script.front();
  rnd_script.pop_front();
  return r;
}

void FakePlatform::PlayWave(const std::string& path) {
  sounds.push_back(path.substr(path.rfind('/') + 1));
}

std::vector<std::string> FakePlatform::TakeSounds() {
  std::vector<std::string> taken;
  taken.swap(sounds);
  return taken;
}

bool FakePlatform::FileAttributes(const std::string& path, bool& is_directory) {
  is_directory = directories.count(path) != 0;
  return is_directory || files.count(path) != 0;
}

// Like a real window: placed on whole pixels, and reported back in twips of
// the outer corner, 45 and 330 twips outside the client area.
void FakePlatform::MoveWindow(float l, float t) {
  left = std::lround((l + 45) / 15) * 15.0f - 45;
  top = std::lround((t + 330) / 15) * 15.0f - 330;
}

void FakePlatform::ShowWindow(bool shown) {
  window_shown = shown;
  calls.push_back(shown ? "ShowWindow" : "HideWindow");
}

void FakePlatform::SetTopmost(bool topmost) {
  calls.push_back(topmost ? "Topmost" : "NotTopmost");
}

void FakePlatform::SetDialogTopmost(Dialog dialog, bool topmost) {
  calls.push_back(std::string(DialogName(dialog)) + (topmost ? " Topmost" : " NotTopmost"));
}

void FakePlatform::OpenDialog(Dialog dialog) {
  calls.push_back(std::string("Open ") + DialogName(dialog));
}

}  // namespace nautrix
