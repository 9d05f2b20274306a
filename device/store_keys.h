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

// Window position defaults, twips of the outer corner: the client area at the
// screen's top left corner with the frame outside the screen.
inline constexpr float kDefaultLeft = -44;
inline constexpr float kDefaultTop = -336;
inline constexpr char kDefaultAlarmTime[] = "120000 PM";

// Accepted ranges of the numeric keys; anything else reads as the default.
inline constexpr int kMinSpeed = 1, kMaxSpeed = 441;  // ms a tick, as the options can store
inline constexpr int kMaxHighScore = 999;
inline constexpr float kMaxPositionTwips = 1.0e6f;  // |Left|, |Top|

}  // namespace nautrix::store
