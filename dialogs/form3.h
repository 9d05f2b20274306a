// Form3, the options: the three base speeds on scroll bars, sound on or off,
// and the two window options. It keeps nothing of its own between openings:
// it fills its controls from the store and the menu marks at each load and
// writes them back when Apply runs.
#pragma once

#include "device/form1.h"
#include "device/store_keys.h"
#include "dialogs/dialog_window.h"

namespace nautrix {

struct ScrollBar {
  int Min = 0;    // the "Slow" end
  int Max = 440;  // the "Fast" end
  int Value = 0;  // Min..Max
  // A thumb dragged by the user: the value it left from, while it is held.
  bool ThumbHeld = false;
  int ThumbFrom = 0;
};
struct OptionButton {
  bool Value = false;
};
struct CheckBox {
  int Value = 0;  // 0 unticked, 1 ticked
};

class Form3 {
 public:
  Form3(Form1& device, DialogWindow& window) : device_(device), window_(window) {}

  // ---- The controls, at their designed values ----------------------------
  // Each bar's value stands for a speed: shown as Value + 1, stored as
  // Max - Value + 1 milliseconds a tick, so that shown and stored add up to
  // 442. The designed values are the factory speeds.
  static constexpr int FactoryValue(const char* key) { return 441 - store::WholeDefault(key); }
  ScrollBar HScroll1{0, 440, FactoryValue(store::kGameASpeed)};
  ScrollBar HScroll2{0, 440, FactoryValue(store::kGameBSpeed)};
  ScrollBar HScroll3{0, 440, FactoryValue(store::kDiverSpeed)};
  Label GameASpeed{"Game A"}, GameBSpeed{"Game B"}, DiverSpeed{"Diver"};
  OptionButton SoundOn, SoundOff;
  CheckBox Check1;  // show the device when the alarm rings ("Auto Show")
  CheckBox Check2;  // always on top
  CommandButton Command1, Command2, Command4;  // OK, Cancel, Default
  CommandButton Command3{false};               // Apply

  // ---- Changes of the controls' values -----------------------------------
  // By code or by the user, these raise the control's event when the value
  // really changes, as the form runtime does. A bar's value outside its
  // range lands at the nearest end.
  void SetValue(ScrollBar& bar, int value);
  void SetValue(OptionButton& option, bool value);
  void SetValue(CheckBox& box, int value);
  // The user's thumb: each step of a drag raises Scroll; letting go raises
  // Change if the thumb ended elsewhere than it began.
  void DragThumb(ScrollBar& bar, int value);
  void ReleaseThumb(ScrollBar& bar);

  // ---- Event handlers ------------------------------------------------------
  void Form_Load();
  void HScroll1_Change();
  void HScroll1_Scroll();
  void HScroll2_Change();
  void HScroll2_Scroll();
  void HScroll3_Change();
  void HScroll3_Scroll();
  void SoundOn_Click();
  void SoundOff_Click();
  void Check1_Click();
  void Check2_Click();
  void Command1_Click();  // OK
  void Command2_Click();  // Cancel, and the frame's close
  void Command3_Click();  // Apply
  void Command4_Click();  // Default

 private:
  void RaiseChange(ScrollBar& bar);
  // The bar's position for the speed stored in `key`, and back.
  void LoadSpeed(ScrollBar& bar, const char* key);
  void StoreSpeed(const ScrollBar& bar, const char* key);

  Form1& device_;
  DialogWindow& window_;
};

}  // namespace nautrix
