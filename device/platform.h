// Everything the device asks of the world outside it. The Qt shell implements
// this for the desktop; the tests implement it with a fake that records every
// call and can be scripted.
#pragma once

#include <string>

#include "device/screen_objects.h"

namespace nautrix {

// A time of day on the device clock, 24-hour.
struct ClockTime {
  int hour = 0;    // 0 to 23
  int minute = 0;  // 0 to 59
  int second = 0;  // 0 to 59
};

// Window positions are twips, the pointer and the screen objects pixels.
inline constexpr int kTwipsPerPixel = 15;

// The tray's messages that act, as numbers of pixels of a pointer X: the
// left button's double click and the right button's release.
inline constexpr int kTrayLeftDoubleClick = 515, kTrayRightRelease = 517;

struct Point {
  int x = 0;
  int y = 0;
};

// The secondary windows, by the name the device knows them by.
enum class Dialog { About /* Form2 */, Options /* Form3 */, Instructions /* Form4 */ };

class Platform {
 public:
  virtual ~Platform() = default;

  // Timer1. A new interval applies from the next tick; 0 stops the timer.
  // Called only when the interval really changes.
  virtual void SetTimerInterval(int ms) = 0;

  // The device clock: the computer's time of day plus the device's own
  // offset. Setting it moves only that offset, never the computer's clock.
  virtual ClockTime Now() = 0;
  // `text` is a time of day such as "12:00:00 AM"; the date does not change.
  virtual void SetTimeOfDay(const std::string& text) = 0;

  // The per-user settings store, addressed by application, section and key.
  virtual std::string GetSetting(const std::string& app, const std::string& section,
                                 const std::string& key, const std::string& def) = 0;
  virtual void SaveSetting(const std::string& app, const std::string& section,
                           const std::string& key, const std::string& value) = 0;
  virtual void DeleteSetting(const std::string& app, const std::string& section,
                             const std::string& key) = 0;

  // The one random source: seeded once, uniform 0 <= r < 1.
  virtual void Randomize(int seed) = 0;
  virtual float Rnd() = 0;

  // Sound: start the wave file at `path` and return at once; it cuts off
  // whatever this program still sounds. Silence on any failure.
  virtual void PlayWave(const std::string& path) = 0;
  // File attributes: false when the path cannot be read; `is_directory` set
  // when it names a directory.
  virtual bool FileAttributes(const std::string& path, bool& is_directory) = 0;
  // The folder that holds the running program, without a trailing separator
  // unless it is the root.
  virtual std::string ProgramFolder() = 0;

  // The pointer, in client pixels of the device window.
  virtual Point CursorPos() = 0;

  // The device window. Left and Top are twips of the window's outer corner.
  virtual float WindowLeft() = 0;
  virtual float WindowTop() = 0;
  virtual void MoveWindow(float left, float top) = 0;
  virtual void ShowWindow(bool shown) = 0;
  virtual void SetTopmost(bool topmost) = 0;
  virtual void SetDialogTopmost(Dialog dialog, bool topmost) = 0;
  // Redraw: an object's Visible or Picture has changed.
  virtual void ObjectChanged(Obj object) = 0;

  // Serve pending events once.
  virtual void ProcessEvents() = 0;
  // Open the popup menu at the pointer; returns when it has closed.
  virtual void OpenPopupMenu() = 0;
  // The same, the menu at the device window.
  virtual void OpenPopupMenuAtWindow() { OpenPopupMenu(); }
  // Load and show a dialog without blocking, or bring the open one forward.
  virtual void OpenDialog(Dialog dialog) = 0;
  virtual void OpenUrl(const std::string& url) = 0;
  virtual void AddTrayIcon() = 0;
  virtual void RemoveTrayIcon() = 0;
  // End the program at once.
  virtual void Quit() = 0;
};

}  // namespace nautrix
