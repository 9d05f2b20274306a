#include "device/text.h"

#include <charconv>
#include <cmath>
#include <strings.h>

namespace nautrix {
std::string Trimmed(const std::string& text) {
  const size_t first = text.find_first_not_of(" \t\r");
  if (first == std::string::npos) return "";
  const size_t last = text.find_last_not_of(" \t\r");
  return text.substr(first, last - first + 1);
}

bool ParseBool(const std::string& text, bool& value) {
  const std::string t = Trimmed(text);
  if (strcasecmp(t.c_str(), "true") == 0) return value = true, true;
  if (strcasecmp(t.c_str(), "false") == 0) return value = false, true;
  int number = 0;
  if (!ParseInt(t, number)) return false;
  value = number != 0;
  return true;
}

namespace {

// A whole text as one number of type T, in the C locale's form.
template <typename T>
bool ParseNumber(const std::string& text, T& value) {
  std::string t = Trimmed(text);
  if (!t.empty() && t[0] == '+') t.erase(0, 1);
  if (t.empty()) return false;
  const char* end = t.data() + t.size();
  T parsed{};
  const auto [ptr, ec] = std::from_chars(t.data(), end, parsed);
  if (ec != std::errc() || ptr != end) return false;
  value = parsed;
  return true;
}

}  // namespace

bool ParseInt(const std::string& text, int& value) { return ParseNumber(text, value); }

bool ParseSingle(const std::string& text, float& value) {
  float parsed = 0;
  if (!ParseNumber(text, parsed) || !std::isfinite(parsed)) return false;
  value = parsed;
  return true;
}

std::string SingleText(float value) {
  char buffer[32];
  const auto [ptr, ec] = std::to_chars(buffer, buffer + sizeof buffer, value);
  return ec == std::errc() ? std::string(buffer, ptr) : "0";
}

int DigitsValue(const std::string& text, size_t first, size_t count) {
  int value = 0;
  for (size_t i = first; i < first + count; ++i) {
    const char c = i < text.size() ? text[i] : '0';
    value = value * 10 + (c >= '0' && c <= '9' ? c - '0' : 0);
  }
  return value;
}

}  // namespace nautrix
