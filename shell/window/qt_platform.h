// The device's world on the desktop: Timer1, the clock with the device's own
// offset, the settings store, the random source, the voice, the device
// window's position, stacking and repaints, the popup menu and the tray icon.
#pragma once

#include <QFileSystemWatcher>
#include <QPoint>
#include <QRect>
#include <QSocketNotifier>
#include <QTimer>
#include <functional>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "device/form1.h"
#include "device/platform.h"
#include "shell/store/settings_store.h"
#include "shell/sound/sound_voice.h"

namespace nautrix {

class DeviceWindow;
class DialogWindows;
class PopupMenu;
class TrayIcon;

// The stored window position is in twips of the outer corner of a window
// whose client area lies 45 and 330 twips inside it, 15 twips to the pixel.
QPoint ClientFromTwips(float left, float top);  // to the nearest pixel
float LeftFromClient(int x);
float TopFromClient(int y);


class QtPlatform : public Platform {
 public:
  // Without `with_audio` the voice never opens the audio device.
  explicit QtPlatform(bool with_audio = true);
  ~QtPlatform() override;

  // The device and its window; both outlive the platform's use.
  void Attach(Form1& form, DeviceWindow& window);
  // Timer1 runs from here on, at whatever interval the device has set.
  void StartTimer1();
  // What the device's first frame need not wait for: the voice's way to the
  // speakers, its waves decoded ahead of their first beat, and the tray icon
  // the device has asked for. Runs once: just after the first frame, or
  // before it when a hidden window needs its tray.
  void FinishStart();
  DialogWindows* dialogs() { return dialogs_.get(); }

  // The computer's local time of day in milliseconds, which the device's
  // clock reads with its own offset added. Tests put a clock of their own
  // here; nothing ever sets the computer's clock.
  std::function<int()> computer_time_ms;
  // Timer1 sleeps to the next second's edge (a few milliseconds after it)
  // while the device says that no beat before it can change anything.
  bool Asleep() const { return asleep_; }
  // Any event from outside: the beat comes back at once.
  void Wake();
  // The computer's clock was set (by the time service or by hand): the
  // device looks at once, and sleeps to the edges of the new time.
  void ClockWasSet();
  // The device has asked to end; an event loop not yet running must not start.
  bool QuitRequested() const { return quit_requested_; }

  void SetTimerInterval(int ms) override;
  ClockTime Now() override;
  void SetTimeOfDay(const std::string& text) override;
  std::string GetSetting(const std::string& app, const std::string& section,
                         const std::string& key, const std::string& def) override;
  void SaveSetting(const std::string& app, const std::string& section, const std::string& key,
                   const std::string& value) override;
  void DeleteSetting(const std::string& app, const std::string& section,
                     const std::string& key) override;
  void Randomize(int seed) override;
  float Rnd() override;
  void PlayWave(const std::string& path) override;
  bool FileAttributes(const std::string& path, bool& is_directory) override;
  std::string ProgramFolder() override;
  Point CursorPos() override;
  float WindowLeft() override;
  float WindowTop() override;
  void MoveWindow(float left, float top) override;
  void ShowWindow(bool shown) override;
  void SetTopmost(bool topmost) override;
  void SetDialogTopmost(Dialog dialog, bool topmost) override;
  void ObjectChanged(Obj object) override;
  void ProcessEvents() override;
  void OpenPopupMenu() override;
  void OpenPopupMenuAtWindow() override;
  void OpenDialog(Dialog dialog) override;
  void OpenUrl(const std::string& url) override;
  void AddTrayIcon() override;
  void RemoveTrayIcon() override;
  void Quit() override;

 private:
  SettingsStore& Store(const std::string& app);
  void Timer1Fired();
  int MsToNextSecond() const;
  void WatchComputerClock();  // arms the watch that setting the clock cancels
  PopupMenu& Menu();
  void OpenMenuAt(const QPoint& at);

  Form1* form_ = nullptr;
  DeviceWindow* window_ = nullptr;
  QTimer timer1_;
  bool asleep_ = false;   // Timer1 runs to the next second's edge, not at its beat
  bool in_tick_ = false;  // Timer1_Timer is running
  int last_second_ = -1;  // the computer's second at the last tick
  int clock_watch_ = -1;  // a timer far ahead on the real-time clock, cancelled when it is set
  std::unique_ptr<QSocketNotifier> clock_notifier_;
  std::unique_ptr<QObject> input_watch_;  // any input to any window of the program
  QFileSystemWatcher store_watch_;        // another copy or a hand edit changed the store
  bool timer1_enabled_ = false;  // started after Form_Load
  int timer1_ms_ = 50;           // the device's interval, 0 stopped
  bool quit_requested_ = false;
  bool started_ = false;      // FinishStart has run
  bool tray_wanted_ = false;  // the device asked for the tray before FinishStart
  bool topmost_ = false;      // the window's stacking as the device last set it
  int clock_offset_ms_ = 0;      // the device clock less the computer's, 0 to a day
  // Where the window came up less where the store put it, until the device
  // first moves it: the device reads its stored place meanwhile, so a click
  // on the case keeps the user's place for a screen that comes back.
  std::map<std::string, std::unique_ptr<SettingsStore>> stores_;  // by application
  std::mt19937 random_;
  SoundVoice voice_;
  std::unique_ptr<PopupMenu> menu_;
  std::unique_ptr<TrayIcon> tray_;
  std::unique_ptr<DialogWindows> dialogs_;  // from Attach on
};

}  // namespace nautrix
