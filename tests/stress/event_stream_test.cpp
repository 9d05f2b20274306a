// Random streams of everything that can reach the device: ticks with the
// clock moved on by any amount (past midnight, and backwards), every key code
// down and up in any order and repeated, pointer presses, moves and releases
// of every button over every object and off it, double clicks, the tray's
// messages, every menu item, the options' handlers with any control values,
// and the store rewritten between events with values of every kind. (About
// and the leaflet reach nothing of the device's record: they ask the desktop
// for a link, a place on the screen, a stacking.)
// The record's invariants are checked after every event, nested ones too
// (the popup menu and the window drags yield to the event loop). The random
// numbers of the tentacles come from the stream's own generator, so the
// games run as they run for a user. A stream is fixed by its seed, so a
// failing seed replays.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <functional>
#include <memory>
#include <optional>
#include <random>
#include <vector>

#include "clock/time_text.h"
#include "device/text.h"
#include "dialogs/form3.h"
#include "tests/support/device_test.h"

namespace nautrix {
namespace {

constexpr int kDay = 24 * 3600;

// The options loaded on the device, in a window that counts its closing.
struct Options {
  FakeWindow window;
  Form3 form;
  explicit Options(Form1& device) : form(device, window) { form.Form_Load(); }
};

// The stream is the device's platform: its event loop runs more of the
// stream while the popup menu is open and while a drag yields. A stream that
// sleeps lets Timer1 sleep as the desktop's platform does: after a tick whose
// device says it may, the ticks of the same second do not come, until any
// event (or the store changed by another copy) brings the beat back.
class Stream : public FakePlatform {
 public:
  uint64_t events = 0;  // delivered, nested ones included
  uint64_t slept = 0;   // ticks a sleeping Timer1 let pass
  std::string failure;  // the first broken invariant, with the event that broke it
  // How far it went: games started, tentacle growths, captures, divers lost,
  // games over, high scores stored, alarm rings, clock-setting steps.
  std::array<int, 8> reached{};
  std::vector<size_t> prints;  // with `printing`, what the device shows, sounds and keeps

  Stream(uint64_t seed, bool sleeps = false, bool printing = false)
      : sleeps_(sleeps), printing_(printing), gen_(seed) {
    FillDefaultStore();
    for (const auto& entry : store) keys_.push_back(entry.first);
    keys_.push_back(store::kSeconds);
    seconds = Pick(kDay);
    StartRun();
  }

  void Play(uint64_t count) {
    while (events < count && failure.empty()) {
      TopEvent();
      if (quit_) StartRun();
      if (!OptionsOpen()) options_.reset();
      ForgetRecords();  // they would grow without end
    }
  }

  // While the menu is open the tick runs on, the tray and the options take
  // events, and then an item may be chosen. The device's own surfaces get
  // nothing: the open menu holds the pointer and the keyboard.
  void OpenPopupMenu() override {
    Nest([&] {
      for (int n = Pick(4); n > 0; --n) {
        const int roll = Pick(3);
        roll == 0 ? Tick() : roll == 1 ? TrayMessage() : DialogEvent();
      }
      if (Chance(0.7)) MenuItem();
    });
  }
  // A yield inside a drag: ticks, and more moves of the held buttons.
  void ProcessEvents() override {
    Nest([&] {
      for (int n = Pick(3); n > 0; --n) Chance(0.5) ? Tick() : PointerEvent(4);
    });
  }
  // A second request brings the open one forward.
  void OpenDialog(Dialog dialog) override {
    if (dialog == Dialog::Options && !options_) options_ = std::make_unique<Options>(*form_);
  }
  void Quit() override { quit_ = true; }
  float Rnd() override { return static_cast<float>(gen_() >> 40) * (1.0f / 16777216.0f); }
  void SaveSetting(const std::string& app, const std::string& section, const std::string& key,
                   const std::string& value) override {
    FakePlatform::SaveSetting(app, section, key, value);
    reached[5] += (key == store::kGameAHighScore || key == store::kGameBHighScore) && value != "0";
  }

 private:
  static constexpr int kDeepest = 3;  // the menu and the drags nest no deeper

  int Pick(int n) { return std::uniform_int_distribution<int>(0, n - 1)(gen_); }
  int Between(int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(gen_); }
  bool Chance(double p) { return std::uniform_real_distribution<double>(0, 1)(gen_) < p; }

  // Events one level deeper, unless the nesting is at its deepest.
  void Nest(const std::function<void()>& events) {
    if (depth_ < kDeepest) ++depth_, events(), --depth_;
  }

  // One event, then the record's invariants; a run that has ended takes no
  // more events, and leaves no record to check.
  void Deliver(const char* what, const std::function<void()>& event, bool tick = false) {
    if (quit_ || !failure.empty()) return;
    ++events;
    if (tick && asleep_in_ == seconds) ++slept;
    else event();
    if (quit_) return;
    asleep_in_ = sleeps_ && tick && form_->MaySleepToNextSecond() ? std::optional(seconds) : std::nullopt;
    if (const std::string broken = form_->InvariantViolations(); !broken.empty())
      failure = std::string(what) + " at event " + std::to_string(events) + ":\n" + broken;
    Note();
    if (printing_) Print();
  }

  // What the event moved on since the last one.
  void Note() {
    const Form1& f = *form_;
    bool grew = false;
    for (int t = 0; t <= 4; ++t) grew |= f.Playing && f.TentacleLength[t] > seen_.TentacleLength[t];
    const bool moved[] = {f.Playing && !seen_.Playing, grew,
                          f.Playing && f.CaptureBeats == 11 && seen_.CaptureBeats != 11,
                          f.Playing && f.Misses > seen_.Misses && f.Misses <= 3,
                          f.Misses == 4 && seen_.Misses != 4, false,
                          f.AlarmRinging && !seen_.AlarmRinging,
                          f.ClockSetting == 1 && seen_.ClockSetting == 1 &&
                              f.EditTimeText != seen_.EditTimeText};
    for (size_t i = 0; i < reached.size(); ++i) reached[i] += moved[i];
    seen_.Playing = f.Playing, seen_.TentacleLength = f.TentacleLength, seen_.Misses = f.Misses;
    seen_.CaptureBeats = f.CaptureBeats, seen_.AlarmRinging = f.AlarmRinging;
    seen_.ClockSetting = f.ClockSetting, seen_.EditTimeText = f.EditTimeText;
  }

  // A print of the screen's objects, the store, the sounds and window calls
  // since the last event, the interval and the clock.
  void Print() {
    std::string print = std::to_string(seconds) + " " + std::to_string(form_->Timer1Interval());
    for (int o = 0; o <= kObjectCount; ++o)
      print += (form_->IsVisible(Obj(o)) ? "+" : "-") + std::to_string(int(form_->Picture(Obj(o))));
    for (const auto& [key, value] : store) print += key + "=" + value + ";";
    for (const auto& t : sounds) print += t + ";";
    for (const auto& t : calls) print += t + ";";
    sounds.clear(), calls.clear();
    prints.push_back(std::hash<std::string>()(print));
  }

  void StartRun() {
    options_.reset();
    form_ = std::make_unique<Form1>(*this);
    quit_ = false, held_ = 0, captured_ = Obj::Count;
    Deliver("Form_Load", [&] { form_->Form_Load(); });
  }

  void TopEvent() {
    const int roll = Pick(100);
    if (roll < 35) {
      for (int n = 1 + Pick(4); n > 0; --n) Tick();  // beats come in runs between events
      return;
    }
    if (roll < 50) return KeyEvent();
    if (roll < 75) return PointerEvent(Pick(10));
    if (roll < 79) return TrayMessage();
    if (roll < 82) return MenuItem();
    if (roll < 94) return DialogEvent();
    StoreEvent();
  }

  // Timer1, while it runs, with the clock moved on a second, or not at all,
  // or anywhere, or to the stored alarm's minute.
  void Tick() {
    const int roll = Pick(20);
    if (roll == 0) seconds = Pick(kDay);  // backwards too
    if (roll == 1) seconds = kDay - 1 - Pick(3);  // just before midnight
    if (roll >= 2 && roll <= 6) seconds = (seconds + 1) % kDay;
    const std::string alarm = store[store::kAlarmTime];
    if (roll == 7 && IsTimeText(alarm)) {
      const int hour = DigitsValue(alarm, 0, 2) % 12 + (alarm[7] == 'P' ? 12 : 0);
      seconds = (hour * 60 + DigitsValue(alarm, 2, 2)) * 60 + Pick(60);
    }
    if (form_->Timer1Interval() > 0) Deliver("tick", [&] { form_->Timer1_Timer(); }, true);
  }

  // The device's keys, the menu's keys and others, or any code at all; a
  // key that is down may repeat, and its key-up may come under another code.
  int KeyCode() {
    // In a game the diver is mostly walked out, and comes home with points.
    if (form_->Playing && Chance(0.4)) return Chance(0.7) ? 39 : 37;
    static const int kCodes[] = {49, 50, 84, 65, 82, 37, 38, 39, 40, 83, 73, 112,
                                 66, 79, 13, 27, 97, 98, 16, 17, 18, 32, 36, 35};
    return Chance(0.85) ? kCodes[Pick(std::size(kCodes))] : Pick(256);
  }
  void KeyEvent() {
    const int shift = Pick(8);
    if (Chance(0.5) || down_.empty()) {
      const int code = !down_.empty() && Chance(0.3) ? down_[Pick(down_.size())] : KeyCode();
      down_.push_back(code);
      Deliver("key down", [&] { form_->Form_KeyDown(code, shift); });
    } else {
      const size_t i = Pick(down_.size());
      const int code = Chance(0.9) ? down_[i] : KeyCode();
      down_.erase(down_.begin() + i);
      Deliver("key up", [&] { form_->Form_KeyUp(code, shift); });
    }
    if (down_.size() > 8) down_.clear();
  }

  // The pointer, as the device window hands it on: a press (kind 0 to 2), a
  // move (3 to 5), a release (6 to 8), or a left double click, which comes in
  // place of the second press (9). The pressed object keeps the moves and the
  // release; X and Y are twips from the object's corner.
  void PointerEvent(int kind) {
    if ((kind >= 3 && kind <= 5) || (kind < 3 && Chance(0.5))) {
      if (Chance(0.3)) cursor = {Between(-30, 360), Between(-30, 230)};
      else cursor = {cursor.x + Between(-12, 12), cursor.y + Between(-12, 12)};
    }
    const Obj o = held_ != 0 ? captured_ : form_->ObjectAt(cursor.x, cursor.y);
    if (o == Obj::Count) return;  // off the window: not ours
    const float x = (cursor.x - form_->ObjectRect(o).left) * 15.0f;
    const float y = (cursor.y - form_->ObjectRect(o).top) * 15.0f;
    const int shift = Pick(8);
    int button = 1 << Pick(3);
    if (kind < 3) {
      if (held_ & button) return;
      held_ |= button, captured_ = o;
      Deliver("press", [&] { form_->MouseDown(o, button, shift, x, y); });
    } else if (kind < 6) {
      Deliver("move", [&] { form_->MouseMove(o, held_, shift, x, y); });
    } else if (kind < 9) {
      if (held_ == 0) return;
      if (!(held_ & button)) button = held_ & -held_;
      held_ &= ~button;
      if (held_ == 0) captured_ = Obj::Count;
      Deliver("release", [&] { form_->MouseUp(o, button, shift, x, y); });
    } else if (held_ == 0) {
      held_ = 1, captured_ = o;
      Deliver("double click", [&] { form_->DblClick(o); });
    }
  }

  void TrayMessage() {
    const int message = Chance(0.9) ? Between(512, 518) : Between(0, 2000);
    Deliver("tray", [&] { form_->Form_MouseMove(0, 0, message * 15.0f, 0); });
  }
  // The item `which` of the menu, the last three the dialogs', or any item;
  // "&Exit" is rare: it ends the run.
  void MenuItem(int which = -1) {
    using Item = void (Form1::*)();
    static const Item kItems[] = {
        &Form1::mHide_Click,         &Form1::mSound_Click, &Form1::mAutoShow_Click,
        &Form1::mAlwaysOnTop_Click,  &Form1::mBack_Click,  &Form1::mOptions_Click,
        &Form1::mInstructions_Click, &Form1::mAbout_Click};
    const bool exit = which < 0 && Chance(0.002);
    if (which < 0) which = Pick(std::size(kItems));
    const Item item = exit ? &Form1::mExit_Click : kItems[which];
    Deliver("menu item", [&] { (form_.get()->*item)(); });
  }

  // A handler of the open options, or the menu item that opens them.
  void DialogEvent() {
    if (!OptionsOpen()) return MenuItem(5);
    Deliver("Form3", [&] { OptionsEvent(); });
  }
  bool OptionsOpen() const { return options_ && options_->window.unloads == 0; }
  void OptionsEvent() {
    Form3& d = options_->form;
    ScrollBar* const bars[] = {&d.HScroll1, &d.HScroll2, &d.HScroll3};
    ScrollBar& bar = *bars[Pick(3)];
    switch (Pick(12)) {
      case 0: case 1: return d.SetValue(bar, Between(-50, 500));
      case 2: return d.DragThumb(bar, Between(-50, 500));
      case 3: return d.ReleaseThumb(bar);
      case 4: return d.SetValue(Chance(0.5) ? d.SoundOn : d.SoundOff, Chance(0.5));
      case 5: case 6: return d.SetValue(Chance(0.5) ? d.Check1 : d.Check2, Pick(2));
      case 7: case 8: return Chance(0.5) ? d.Command1_Click() : d.Command2_Click();
      case 9: case 10: return d.Command3_Click();
      default: return d.Command4_Click();
    }
  }

  // The store, edited by hand or by another copy: a key (any the device
  // knows) taken away, junk bytes, or a value of any kind it might read.
  void StoreEvent() {
    static const char* const kValues[] = {
        "",          "True",      "false",     "0",          "-1",          "1",
        "441",       "442",       "170",       "99999",      "999",         "1000",
        "-32769",    "1e40",      "nan",       "inf",        "-45",         "2.5",
        "120000 PM", "125900 AM", "010000 PM", "130000 AM",  "12:00",       "000000 AM",
        "NotFound",  " 300 ",     "0x1F",      "\xff\xfe",   "True, False", "9999999999999"};
    asleep_in_.reset();  // the store's watch brings the beat back
    const std::string key = keys_[Pick(keys_.size())];
    if (Chance(0.15)) return void(store.erase(key));
    std::string value = kValues[Pick(std::size(kValues))];
    if (Chance(0.1)) {
      value.assign(Pick(12), ' ');
      for (char& c : value) c = static_cast<char>(Pick(256));
    }
    store[key] = value;
  }

  const bool sleeps_, printing_;
  std::optional<int> asleep_in_;  // the second to whose end Timer1 sleeps
  Form1 seen_{*this};    // the fields Note compares, as the last event left them
  std::mt19937_64 gen_;
  std::unique_ptr<Form1> form_;
  std::unique_ptr<Options> options_;
  bool quit_ = false;
  int depth_ = 0;
  int held_ = 0;               // pointer buttons down: 1 left, 2 right, 4 middle
  Obj captured_ = Obj::Count;  // the object that took the press
  std::vector<int> down_;      // keys down, in the order they went down
  std::vector<std::string> keys_;  // every key of the store
};

unsigned long long Setting(const char* name, unsigned long long fallback) {
  const char* text = std::getenv(name);
  return text ? std::strtoull(text, nullptr, 10) : fallback;
}

// A million events over ten streams, which play games to their end, lose
// divers, store high scores, ring the alarm and set the clock. The long run
// is this test with NAUTRIX_SEED, NAUTRIX_STREAMS and NAUTRIX_EVENTS set; a
// failing seed is told and replays with NAUTRIX_SEED=N NAUTRIX_STREAMS=1.
TEST(EventStreams, AMillionEventsBreakNoInvariant) {
  const unsigned long long seed = Setting("NAUTRIX_SEED", 1);
  const unsigned long long streams = Setting("NAUTRIX_STREAMS", 10);
  std::array<int, 8> reached{};
  for (unsigned long long s = seed; s < seed + streams; ++s) {
    Stream stream(s);
    stream.Play(Setting("NAUTRIX_EVENTS", 100000));
    ASSERT_EQ(stream.failure, "") << "seed " << s;
    for (size_t i = 0; i < reached.size(); ++i) reached[i] += stream.reached[i];
  }
  for (const int& n : reached) EXPECT_GT(n, 0) << "reached nothing of kind " << &n - &reached[0];
}

// The same streams into a device ticked at every beat and into one whose
// Timer1 sleeps when its core says it may: after every event both show the
// same objects, keep the same store, sound the same waves and ask the same
// of the desktop, at the same device times.
TEST(EventStreams, ASleepingDeviceShowsSoundsAndKeepsTheSame) {
  for (uint64_t seed = 1; seed <= 2; ++seed) {
    Stream beating(seed, false, true), sleeping(seed, true, true);
    beating.Play(40000);
    sleeping.Play(40000);
    const auto& [a, b] = std::pair(beating.prints, sleeping.prints);
    const size_t same = std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first - a.begin();
    EXPECT_EQ(same, a.size()) << "seed " << seed << ": the events before the first that differs";
    EXPECT_GT(sleeping.slept, 1000u) << "seed " << seed;
  }
}

}  // namespace
}  // namespace nautrix
