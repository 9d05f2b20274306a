// The keys of the settings store: application "Tickplay Simulator", section
// "Nautrix". Every key's default is what Form_Load stores when the key is
// missing, and also what a typed read gives for a value that a hand-edited
// store holds in a form the device never writes (junk text, or a number out
// of the key's range).
#pragma once

namespace nautrix::store {

inline constexpr char kApp[] = "Tickplay Simulator";
inline constexpr char kSection[] = "Nautrix";
inline constexpr char kNotFound[] = "NotFound";

inline constexpr char kSound[] = "Sound";
inline constexpr char kLeft[] = "Left";
inline constexpr char kTop[] = "Top";
inline constexpr char kSeconds[] = "Seconds";  // only ever deleted
inline constexpr char kDiverSpeed[] = "Diver Speed";
inline constexpr char kGameASpeed[] = "Game A Speed";
inline constexpr char kGameBSpeed[] = "Game B Speed";
inline constexpr char kGameAHighScore[] = "Game A High Score";
inline constexpr char kGameBHighScore[] = "Game B High Score";
inline constexpr char kAlarmTime[] = "Alarm Time";
inline constexpr char kAlarmOn[] = "Alarm On";
inline constexpr char kAlwaysOnTop[] = "Always on Top";
inline constexpr char kAutoShow[] = "Auto Show";

// Accepted ranges of the numeric keys; anything else reads as the default.
inline constexpr int kMinSpeed = 1, kMaxSpeed = 441;  // ms a tick, as the options can store
inline constexpr int kMaxHighScore = 999;
inline constexpr double kMaxPositionTwips = 1.0e6;  // |Left|, |Top|

// A stored key: its default as stored text, and for a number the range a
// typed read accepts (0 to 0 for the others).
struct KeyRule {
  const char* key;
  const char* fallback;
  double low, high;
};
inline constexpr KeyRule kNoRule = {"", "", 0, 0};

// Every key with a default, in the order start-up visits them. "Left" and
// "Top" are twips of the window's outer corner: the client area at the
// screen's top left corner with the frame outside the screen.
inline constexpr KeyRule kKeyRules[] = {
    {kSound, "True", 0, 0},
    {kLeft, "-44", -kMaxPositionTwips, kMaxPositionTwips},
    {kTop, "-336", -kMaxPositionTwips, kMaxPositionTwips},
    {kDiverSpeed, "300", kMinSpeed, kMaxSpeed},
    {kGameASpeed, "220", kMinSpeed, kMaxSpeed},
    {kGameBSpeed, "170", kMinSpeed, kMaxSpeed},
    {kGameAHighScore, "0", 0, kMaxHighScore},
    {kGameBHighScore, "0", 0, kMaxHighScore},
    {kAlarmTime, "120000 PM", 0, 0},
    {kAlarmOn, "False", 0, 0},
    {kAlwaysOnTop, "False", 0, 0},
    {kAutoShow, "True", 0, 0},
};

constexpr bool SameKey(const char* a, const char* b) {
  while (*a && *a == *b) ++a, ++b;
  return *a == *b;
}

// The rule of `key`; an unknown key has no default and no range.
constexpr const KeyRule& RuleOf(const char* key) {
  for (const KeyRule& rule : kKeyRules) {
    if (SameKey(rule.key, key)) return rule;
  }
  return kNoRule;
}

// The default of a key whose default is a whole number.
constexpr int WholeDefault(const char* key) {
  const char* text = RuleOf(key).fallback;
  const bool minus = *text == '-';
  int value = 0;
  for (text += minus; *text >= '0' && *text <= '9'; ++text) value = value * 10 + (*text - '0');
  return minus ? -value : value;
}

}  // namespace nautrix::store
