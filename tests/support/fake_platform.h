// The platform of the tests: an in-memory store, a settable device clock,
// scripted random numbers, and a record of the timer intervals, sounds and
// window calls the device made.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "device/platform.h"
#include "dialogs/dialog_window.h"

namespace nautrix {

class FakePlatform : public Platform {
 public:
  // ---- What the test sets -------------------------------------------------
  int seconds = 9 * 3600;  // the device's time of day
  // Random numbers handed out in order; when the script runs dry,
  // `rnd_default` (which makes every start chance fail).
  std::deque<float> rnd_script;
  float rnd_default = 0.99f;
  Point cursor{-1, -1};
  std::map<std::string, std::string> store;  // key -> value, section "Nautrix"
  std::function<void()> while_menu_open;     // events that come while the menu is open

  // ---- What the device did --------------------------------------------------
  std::vector<int> intervals;             // every SetTimerInterval
  std::vector<std::string> sounds;        // bare file names of every PlayWave
  std::vector<std::string> calls;         // window, menu, dialog and tray calls in order
  std::vector<std::string> store_writes;  // "key=value" or "-key" in order
  int rnd_draws = 0;
  float left = 0, top = 0;  // window position as the window reports it

  // Forgets what the device has done so far.
  void ForgetRecords() {
    calls.clear(), store_writes.clear(), intervals.clear(), sounds.clear();
    rnd_draws = 0;
  }
  // Sets the device clock to h:m:s, 24-hour.
  void SetDeviceTime(int h, int m, int s) { seconds = h * 3600 + m * 60 + s; }
  void AdvanceSeconds(int n) { seconds = (seconds + n) % (24 * 3600); }
  // A store holding every key at its default.
  void FillDefaultStore();

  // ---- Platform ---------------------------------------------------------------
  void SetTimerInterval(int ms) override { intervals.push_back(ms); }
  ClockTime Now() override { return {seconds / 3600, seconds / 60 % 60, seconds % 60}; }
  void SetTimeOfDay(const std::string& text) override;  // "hh:mm:ss AM"
  std::string GetSetting(const std::string&, const std::string&, const std::string& key,
                         const std::string& def) override {
    return store.count(key) ? store[key] : def;
  }
  void SaveSetting(const std::string&, const std::string&, const std::string& key,
                   const std::string& value) override {
    store[key] = value;
    store_writes.push_back(key + "=" + value);
  }
  void DeleteSetting(const std::string&, const std::string&, const std::string& key) override {
    store.erase(key);
    store_writes.push_back("-" + key);
  }
  void Randomize(int) override {}
  float Rnd() override;
  void PlayWave(const std::string& path) override {
    sounds.push_back(path.substr(path.rfind('/') + 1));
  }
  // Every file the device looks for is there, a file and no folder.
  bool FileAttributes(const std::string&, bool& is_directory) override {
    is_directory = false;
    return true;
  }
  std::string ProgramFolder() override { return "/opt/nautrix"; }
  Point CursorPos() override { return cursor; }
  float WindowLeft() override { return left; }
  float WindowTop() override { return top; }
  void MoveWindow(float l, float t) override;
  void ShowWindow(bool shown) override { calls.push_back(shown ? "ShowWindow" : "HideWindow"); }
  void SetTopmost(bool on) override { calls.push_back(on ? "Topmost" : "NotTopmost"); }
  void SetDialogTopmost(Dialog dialog, bool on) override {
    calls.push_back(Name(dialog) + (on ? " Topmost" : " NotTopmost"));
  }
  void ObjectChanged(Obj) override {}
  void ProcessEvents() override {}
  void OpenPopupMenu() override {
    calls.push_back("PopupMenu");
    // A menu opened inside the open one sees no events of its own.
    std::function<void()> events = std::exchange(while_menu_open, nullptr);
    if (events) events();
    while_menu_open = std::move(events);
  }
  void OpenPopupMenuAtWindow() override {
    calls.push_back("AtWindow");
    OpenPopupMenu();
  }
  void OpenDialog(Dialog dialog) override { calls.push_back("Open " + Name(dialog)); }
  void OpenUrl(const std::string& url) override { calls.push_back("OpenUrl " + url); }
  void AddTrayIcon() override { calls.push_back("AddTrayIcon"); }
  void RemoveTrayIcon() override { calls.push_back("RemoveTrayIcon"); }
  void Quit() override { calls.push_back("Quit"); }

 private:
  // The dialogs by their forms' names: Form2 About, Form3 Options, Form4 the leaflet.
  static std::string Name(Dialog dialog) { return "Form" + std::to_string(2 + int(dialog)); }
};

// A dialog's window that records what the dialog asked of it.
struct FakeWindow : PageWindow {
  int unloads = 0, tabs = 0;
  float left = 3000, top = 2000;
  void Unload() override { ++unloads; }
  void PostTab() override { ++tabs; }
  float Left() override { return left; }
  float Top() override { return top; }
  void Move(float l, float t) override { left = l, top = t; }
};

}  // namespace nautrix
