// Text conversions of the store's values, independent of the locale.
#pragma once

#include <string>

namespace nautrix {

// The text without blanks, tabs and carriage returns around it.
std::string Trimmed(const std::string& text);
// "True"/"False" in any case, or a whole number (0 is false). Returns false
// and leaves `value` alone for anything else.
bool ParseBool(const std::string& text, bool& value);
// A whole decimal number with an optional sign, blanks around it allowed.
bool ParseInt(const std::string& text, int& value);
// A finite decimal number, blanks around it allowed.
bool ParseSingle(const std::string& text, float& value);

// How the store writes its types.
inline std::string BoolText(bool value) { return value ? "True" : "False"; }
std::string SingleText(float value);  // shortest text that reads back the same

// The value of a run of characters read as a number: characters that are
// missing or no digits count as 0.
int DigitsValue(const std::string& text, size_t first, size_t count);

}  // namespace nautrix
