// The platform of the tests: an in-memory store, a settable clock with the
// device's own offset, scripted random numbers, and a record of every timer
// interval, sound and window call.
#pragma once

#include <deque>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "device/platform.h"

namespace nautrix {

const char* DialogName(Dialog dialog);  // "Form2", "Form3", "Form4"

class FakePlatform : public Platform {
 public:
  // ---- What the test sets -------------------------------------------------
  int machine_seconds = 9 * 3600;  // the computer's time of day
  // Random numbers handed out in order; when the script runs dry,
  // `rnd_default` (which makes every start chance fail).
  std::deque<float> rnd_script;
  float rnd_default = 0.99f;
  Point cursor{-1, -1};
  std::string program_folder = "/opt/nautrix";
  std::set<std::string> files = {"/opt/nautrix/Beep0.wav", "/opt/nautrix/Beep1.wav",
                                 "/opt/nautrix/Beep2.wav", "/opt/nautrix/Beep3.wav"};
  std::set<std::string> directories;
  std::map<std::string, std::string> store;  // key -> value, section "Nautrix"

  // ---- What the device did --------------------------------------------------
  std::vector<int> intervals;             // every SetTimerInterval
  std::vector<std::string> sounds;        // bare file names of every PlayWave
  std::vector<std::string> calls;         // window, menu, dialog and tray calls in order
  std::vector<std::string> store_writes;  // "key=value" or "-key" in order
  std::set<Obj> changed;                  // objects whose look changed
  int seed = -1;
  int rnd_draws = 0;
  int clock_offset = 0;     // the device's own offset, seconds
  float left = 0, top = 0;  // window position as the window reports it
  bool window_shown = true;
  bool quit = false;

  // Sets the device clock (machine time plus offset) to h:m:s, 24-hour.
  void SetDeviceTime(int h, int m, int s);
  void AdvanceSeconds(int seconds) { machine_seconds += seconds; }
  void Script(std::initializer_list<float> numbers) { rnd_script.insert(rnd_script.end(), numbers); }
  bool Has(const std::string& key) const { return store.count(key) != 0; }
  // Sounds played since the last call, then forgotten.
  std::vector<std::string> TakeSounds();

  // ---- Platform ---------------------------------------------------------------
  void SetTimerInterval(int ms) override { intervals.push_back(ms); }
  ClockTime Now() override;
  void SetTimeOfDay(const std::string& text) override;
  std::string GetSetting(const std::string&, const std::string&, const std::string& key,
                         const std::string& def) override;
  void SaveSetting(const std::string&, const std::string&, const std::string& key,
                   const std::string& value) override {
    store[key] = value;
    store_writes.push_back(key + "=" + value);
  }
  void DeleteSetting(const std::string&, const std::string&, const std::string& key) override {
    store.erase(key);
    store_writes.push_back("-" + key);
  }
  void Randomize(int s) override { seed = s; }
  float Rnd() override;
  void PlayWave(const std::string& path) override {
    sounds.push_back(path.substr(path.rfind('/') + 1));
  }
  bool FileAttributes(const std::string& path, bool& is_directory) override {
    is_directory = directories.count(path) != 0;
    return is_directory || files.count(path) != 0;
  }
  std::string ProgramFolder() override { return program_folder; }
  Point CursorPos() override { return cursor; }
  float WindowLeft() override { return left; }
  float WindowTop() override { return top; }
  void MoveWindow(float l, float t) override;
  void ShowWindow(bool shown) override {
    window_shown = shown;
    calls.push_back(shown ? "ShowWindow" : "HideWindow");
  }
  void SetTopmost(bool on) override { calls.push_back(on ? "Topmost" : "NotTopmost"); }
  void SetDialogTopmost(Dialog dialog, bool on) override {
    calls.push_back(std::string(DialogName(dialog)) + (on ? " Topmost" : " NotTopmost"));
  }
  void ObjectChanged(Obj object) override { changed.insert(object); }
  void ProcessEvents() override { calls.push_back("ProcessEvents"); }
  void OpenPopupMenu() override { calls.push_back("PopupMenu"); }
  void OpenDialog(Dialog dialog) override {
    calls.push_back(std::string("Open ") + DialogName(dialog));
  }
  void OpenUrl(const std::string& url) override { calls.push_back("OpenUrl " + url); }
  void AddTrayIcon() override { calls.push_back("AddTrayIcon"); }
  void RemoveTrayIcon() override { calls.push_back("RemoveTrayIcon"); }
  void Quit() override {
    quit = true;
    calls.push_back("Quit");
  }
};

}  // namespace nautrix
