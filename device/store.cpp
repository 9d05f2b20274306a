// The settings store. Every read goes to the platform's store (which serves
// it from memory) and every write reaches the store at once: nothing is kept
// here, so a value read is always the latest one written.

#include "device/form1.h"
#include "device/store_keys.h"
#include "clock/time_text.h"
#include "device/text.h"

namespace nautrix {
namespace {

// A number of the store within its key's range, else the key's default.
template <typename T>
T NumberSetting(Form1& form, const std::string& key, bool (*parse)(const std::string&, T&)) {
  const store::KeyRule& rule = store::RuleOf(key.c_str());
  T value{};
  if (parse(form.GetSetting(key), value) && value >= rule.low && value <= rule.high) return value;
  parse(rule.fallback, value);
  return value;
}

}  // namespace

std::string Form1::GetSetting(const std::string& key, const std::string& def) {
  return platform_.GetSetting(store::kApp, store::kSection, key, def);
}

void Form1::SaveSetting(const std::string& key, const std::string& value) {
  platform_.SaveSetting(store::kApp, store::kSection, key, value);
}

void Form1::DeleteSetting(const std::string& key) {
  platform_.DeleteSetting(store::kApp, store::kSection, key);
}

// A key is missing exactly when a read with the default "NotFound" gives
// "NotFound" back; a key that really holds that text counts as missing too.
bool Form1::KeyMissing(const std::string& key) {
  return GetSetting(key, store::kNotFound) == store::kNotFound;
}

bool Form1::SettingBool(const std::string& key) {
  bool value = false;
  if (ParseBool(GetSetting(key), value)) return value;
  ParseBool(store::RuleOf(key.c_str()).fallback, value);
  return value;
}

int Form1::SettingInt(const std::string& key) { return NumberSetting<int>(*this, key, ParseInt); }

float Form1::SettingSingle(const std::string& key) {
  return NumberSetting<float>(*this, key, ParseSingle);
}

std::string Form1::SettingTimeText(const std::string& key) {
  std::string text = GetSetting(key);
  return IsTimeText(text) ? text : store::RuleOf(key.c_str()).fallback;
}

}  // namespace nautrix
