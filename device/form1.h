// Form1: the device. One flat state record, the screen objects, the menu
// marks, and every routine of the device. The routines are defined in the
// subsystem folders; this header lists them under the file that defines each.
// Nothing here knows Qt: the outside world is reached through Platform.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "device/platform.h"
#include "device/screen_objects.h"

namespace nautrix {

// Key numbers held in PressedKey.
enum KeyNumber : int16_t {
  kNoKey = -1,     // the pointer holds no key
  kOffKeys = 0,    // the button is held, the pointer over no key
  kGameAKey = 1,
  kGameBKey = 2,
  kTimeKey = 3,
  kLeftKey = 4,
  kRightKey = 5,
  kAlarmKey = 6,
  kAclKey = 7,
  kLogoKey = 8,
};

// Where a key's press or release comes from. The pointer and the keyboard
// run the same actions and differ in a few points; Tracking is the pointer
// sliding onto a key that it holds, which differs again in a few.
enum class KeyRoute : uint8_t { Pointer, Keyboard, Tracking };

// An item of the popup menu; its check mark is itself the working state.
struct MenuItem {
  bool Checked = false;
  bool Enabled = true;
};

// What the screen shows of one object.
struct ObjectState {
  bool Visible = false;
  Pic Picture = Pic::None;
};

class Form1 {
 public:
  explicit Form1(Platform& platform);

  // ---- The state record --------------------------------------------------
  // Window and tray.
  bool TrayRecord = false;           // the tray icon has been added
  int16_t DragX = 0, DragY = 0;      // twips: pointer at the start of a window drag
  bool Dragging = false;             // a window drag is under way
  int32_t TrayMessage = 0;           // the tray's door, kept between its messages
  bool TrayBusy = false;
  bool TrayThere = false;            // a tray holds the icon, as the desktop last said
  uint8_t TrayMissing = 0;           // 0-3: reports in a row of no tray while hidden
  // Keys.
  int16_t PressedKey = 0;            // -1, 0, 1-8: pointer route (KeyNumber)
  bool KeyLatch = false;             // keyboard route: a device key is held
  // Game.
  uint8_t GameMode = 0;              // 0 no game, 1 Game A, 2 Game B
  uint8_t TentacleTurn = 0;          // 0-4: tentacle served by the next MoveTentacles
  uint8_t DiverLoad = 0;             // 0 empty-handed, 2 carrying the bag
  std::array<uint8_t, 6> TentacleDown{};    // 0/1: at full length over the diver row
  std::array<uint8_t, 6> TentacleBack{};    // 0 growing, 1 going back
  std::array<uint8_t, 6> TentacleLength{};  // 0..TentacleMax(t): lit segments
  std::array<uint8_t, 6> TentacleMax{};     // 3,4,5,4,3,0 after Form_Load
  uint8_t DiverPos = 0;              // 0 boat, 1-5 sea floor, 6-8 work at the chest
  int16_t Score = 0;                 // 0-999; 1 follows 999
  uint8_t Misses = 0;                // 0-2 in play, 3 third capture ending, 4 game over
  bool Playing = false;              // a game runs, game-over minute included
  uint8_t BoatBeats = 0;             // 0-4: the count on the boat
  int16_t OverSeconds = 0;           // 0-60: seconds of the game-over minute
  bool ScoreShown = false;           // the readout holds a score
  uint8_t BoatWait = 0;              // 0-10: seconds until the diver leaves the boat
  uint8_t CaptureBeats = 0;          // 0-11: beats left of the capture scene
  uint8_t BonusBeats = 0;            // 0-16: beats left of the bonus
  uint8_t PairReady = 0;             // 0/1: gate of tentacles 0 and 1
  // Clock and alarm.
  uint8_t LastSecond = 0;            // 0-59: seconds at the last change a tick saw
  uint8_t AlarmSetting = 0;          // 0 off, 1 entry (ALARM held), 2 set stage
  uint8_t ClockSetting = 0;          // 0 off, 1 clock-set mode
  std::string EditTimeText;          // "hhmmss AMPM" under edit, or empty
  bool AlarmArmed = false;           // alarm on/off under edit
  uint8_t RepeatDelay = 0;           // 0-3: ticks a setting key has been held
  bool RingingSilenced = false;      // a key stopped the ringing
  bool AlarmRinging = false;         // the alarm rings now

  // ---- The popup menu's marks -------------------------------------------
  // "&Hide" is offered only while a tray can bring the window back.
  MenuItem mHide{false, false}, mSound, mAutoShow, mAlwaysOnTop, mBack;

  // ---- Screen objects and Timer1 (device/screen.cpp) --------------------
  bool IsVisible(Obj o) const { return objects_[Index(o)].Visible; }
  Pic Picture(Obj o) const { return objects_[Index(o)].Picture; }
  void SetVisible(Obj o, bool visible);
  void Show(Obj o) { SetVisible(o, true); }
  void Hide(Obj o) { SetVisible(o, false); }
  // The to-object shows the same picture as the from-object.
  void CopyPicture(Obj from, Obj to);
  bool SamePicture(Obj a, Obj b) const { return Picture(a) == Picture(b); }
  // An object's rectangle now (only BackCase ever moves).
  Rect ObjectRect(Obj o) const;
  // The topmost visible, enabled object at a client point, or Obj::Count.
  Obj ObjectAt(int x, int y) const;
  int Timer1Interval() const { return timer1_interval_; }
  void SetTimer1Interval(int ms);

  // ---- device/tick.cpp ---------------------------------------------------
  void Timer1_Timer();
  void AttractTick();
  // No tick before the next second of the device's clock can change
  // anything: Timer1 may sleep until that second's edge. Asked after each
  // tick; any event brings the beat back.
  bool MaySleepToNextSecond() const;

  // ---- device/invariants.cpp ---------------------------------------------
  // Every broken invariant of the record, one per line; empty when all hold.
  // Builds with NAUTRIX_CHECK_INVARIANTS check them after every tick.
  std::string InvariantViolations() const;

  // ---- device/startup.cpp ------------------------------------------------
  void Form_Load();
  void Form_Unload(int& Cancel);

  // ---- device/store.cpp: the settings store -----------------------------
  std::string GetSetting(const std::string& key, const std::string& def = "");
  void SaveSetting(const std::string& key, const std::string& value);
  void DeleteSetting(const std::string& key);
  bool KeyMissing(const std::string& key);  // the "NotFound" test
  // Typed reads. A value that cannot be read as its key's type, or lies
  // outside the key's range, reads as the key's default (device/store_keys.h).
  bool SettingBool(const std::string& key);
  int SettingInt(const std::string& key);
  float SettingSingle(const std::string& key);
  std::string SettingTimeText(const std::string& key);

  // ---- clock/time_text.cpp: the device clock as text --------------------
  ClockTime Now() { return platform_.Now(); }
  std::string CurrentTimeText();  // "hhmmss AMPM"

  // ---- clock/readout.cpp -------------------------------------------------
  void ShowTime(const std::string& text);
  void ShowScore(int value);
  // What the readout shows in words: "9:05 AM", "105", or "" while unlit.
  std::string ReadoutText() const;
  // The digit a place of the readout shows, -1 while it is dark.
  int ShownDigit(Obj place) const;

  // ---- clock/clock_setting.cpp -------------------------------------------
  void StepClock(bool hour);
  void WriteClock();  // EditTimeText to the device clock

  // ---- clock/alarm.cpp ---------------------------------------------------
  void CheckAlarm();
  void SilenceAlarm();

  // ---- clock/acl_reset.cpp -----------------------------------------------
  void EraseMemories();  // high scores and alarm back to their first-run values
  void AclReset(KeyRoute route);

  // ---- game/tentacles.cpp ------------------------------------------------
  void MoveTentacles();

  // ---- game/diver.cpp ----------------------------------------------------
  void DiverForward();
  // The diver's picture at position p (1 to 8).
  Obj DiverSprite(int p) const;
  void DiverBack();
  void BoatTick();
  void HideDivers();

  // ---- game/capture.cpp --------------------------------------------------
  void BeginCapture();  // a tip and the diver have met
  void CaptureTick();

  // ---- game/score.cpp ----------------------------------------------------
  void AddPoint();
  void BonusTick();
  void ShowSpares();
  void StoreHighScore();

  // ---- game/attract.cpp: game start and the attract cycle ----------------
  void StartGame();
  void ClearGame();
  void ShowPlayfield();
  void ShowGameType(int mode);
  void EndGame();
  void AttractStep();

  // ---- game/pace.cpp -----------------------------------------------------
  void DoCheckSpeed();

  // ---- keys/key_actions.cpp ----------------------------------------------
  void GameAButton_MouseDown(int Button, int Shift, float X, float Y);
  void GameBButton_MouseDown(int Button, int Shift, float X, float Y);
  void TimeButton_MouseDown(int Button, int Shift, float X, float Y);
  void LeftButton_MouseDown(int Button, int Shift, float X, float Y);
  void RightButton_MouseDown(int Button, int Shift, float X, float Y);
  void AlarmButton_MouseDown(int Button, int Shift, float X, float Y);
  void ACLButton_MouseDown(int Button, int Shift, float X, float Y);
  void GameAButton_MouseUp(int Button, int Shift, float X, float Y);
  void GameBButton_MouseUp(int Button, int Shift, float X, float Y);
  void TimeButton_MouseUp(int Button, int Shift, float X, float Y);
  void LeftButton_MouseUp(int Button, int Shift, float X, float Y);
  void RightButton_MouseUp(int Button, int Shift, float X, float Y);
  void AlarmButton_MouseUp(int Button, int Shift, float X, float Y);
  void ACLButton_MouseUp(int Button, int Shift, float X, float Y);
  void ReleaseKey();
  // The press and release actions that the routes share, by key number; the
  // key's picture is the caller's.
  void PressAction(int key, KeyRoute route);
  void ReleaseAction(int key, KeyRoute route);
  void ShowHighScore(int mode);  // GAME A or GAME B down
  void PressTime(KeyRoute route);
  void PressAlarm(KeyRoute route);
  void EnterAlarmSetting(KeyRoute route);
  void ToggleAlarm();
  void LeftKeyAction();
  void RightKeyAction();
  void ReleaseGame(int mode);
  void ReleaseTime(KeyRoute route);
  void ReleaseAlarm(KeyRoute route);
  void SaveAlarmState();
  void LeaveAlarmSetting();
  void LeaveClockSetting();

  // ---- keys/pointer_tracking.cpp -----------------------------------------
  void TrackPointer();
  void SlideOff(int key);  // a held key's pointer has left it

  // ---- keys/keyboard.cpp -------------------------------------------------
  void Form_KeyDown(int KeyCode, int Shift);
  void Form_KeyUp(int KeyCode, int Shift);

  // ---- window/pointer.cpp: pointer events of the window's objects --------
  // The shell hands every pointer event to the object that took it (the
  // press's object keeps the moves and the release); these route it to the
  // object's handlers. X and Y are twips relative to the object.
  void MouseDown(Obj o, int Button, int Shift, float X, float Y);
  void MouseMove(Obj o, int Button, int Shift, float X, float Y);
  void MouseUp(Obj o, int Button, int Shift, float X, float Y);
  void DblClick(Obj o);
  // The pointer has left the window.
  void PointerLeft();

  // ---- window/drag.cpp: window shape and drag ---------------------------
  void BeginDrag(int Button, int Shift, float X, float Y);
  void DragWindow(int Button, int Shift, float X, float Y);
  void EndDrag(int Button, int Shift, float X, float Y);
  void Logo_MouseDown(int Button, int Shift, float X, float Y);
  void Logo_MouseMove(int Button, int Shift, float X, float Y);
  void Logo_MouseUp(int Button, int Shift, float X, float Y);

  // ---- window/menu.cpp: the popup menu and the tray -----------------------
  void OpenPopupMenu();
  void OpenPopupMenuFromKeyboard();
  void Form_MouseMove(int Button, int Shift, float X, float Y);
  // What the desktop tells of the window's way back: whether a tray holds
  // the icon (when the menu opens, and once a second while the window is
  // hidden), and whether it has minimised the window itself.
  void TrayPresence(bool there);
  void WindowMinimized(bool minimized);
  void mHide_Click();
  void mSound_Click();
  void mAutoShow_Click();
  void mAlwaysOnTop_Click();
  void mBack_Click();
  void mOptions_Click();
  void mInstructions_Click();
  void mAbout_Click();
  void mExit_Click();

  // ---- device/sound.cpp ---------------------------------------------------
  void PlaySoundFile(const std::string& Filename);
  bool FileExists(const std::string& Filename);
  std::string ProgramFilePath(const std::string& Filename);

  Platform& platform() { return platform_; }

 private:
  void Tick();  // Timer1_Timer's work, without the check of the record
  Platform& platform_;
  // One more than the objects: Obj::Count, the sentinel of the arrays'
  // tables, has an inert slot that is never drawn.
  std::array<ObjectState, kObjectCount + 1> objects_{};
  Rect back_case_rect_;
  int timer1_interval_ = 50;  // Timer1's design-time interval
};

}  // namespace nautrix
