#include "tests/support/fake_platform.h"

#include "device/store_keys.h"

#include <cmath>

namespace nautrix {

void FakePlatform::SetTimeOfDay(const std::string& text) {
  calls.push_back("SetTimeOfDay " + text);
  const int h = std::stoi(text.substr(0, 2)) % 12 + (text.substr(9, 2) == "PM" ? 12 : 0);
  SetDeviceTime(h, std::stoi(text.substr(3, 2)), std::stoi(text.substr(6, 2)));
}

float FakePlatform::Rnd() {
  ++rnd_draws;
  if (rnd_script.empty()) return rnd_default;
  const float r = rnd_script.front();
  rnd_script.pop_front();
  return r;
}

// Like a real window: placed on whole pixels, and reported back in twips of
// the outer corner, 45 and 330 twips outside the client area.
void FakePlatform::MoveWindow(float l, float t) {
  left = std::lround((l + 45) / 15) * 15.0f - 45;
  top = std::lround((t + 330) / 15) * 15.0f - 330;
}

void FakePlatform::FillDefaultStore() {
  store.clear();
  for (const store::KeyRule& rule : store::kKeyRules) store[rule.key] = rule.fallback;
}

}  // namespace nautrix
