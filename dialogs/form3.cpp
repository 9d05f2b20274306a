// The options dialog. Its controls are a preview: nothing reaches the device
// until Apply, which writes the store, sets the menu marks and lets a running
// game take the new pace at once.
#include "dialogs/form3.h"

#include <algorithm>

#include "device/store_keys.h"
#include "device/text.h"

namespace nautrix {
namespace {

// "Game A (222)": the name and the number shown for the bar's speed.
void RenewLabel(Label& label, const char* name, const ScrollBar& bar) {
  label.Caption = std::string(name) + " (" + std::to_string(bar.Value + 1) + ")";
}

}  // namespace

// ---- Changes of the controls ---------------------------------------------------

void Form3::SetValue(ScrollBar& bar, int value) {
  value = std::clamp(value, bar.Min, bar.Max);
  if (value == bar.Value) return;
  bar.Value = value;
  RaiseChange(bar);
}

// Only an option that comes on raises its Click; the other of the pair goes
// off without an event.
void Form3::SetValue(OptionButton& option, bool value) {
  if (value == option.Value) return;
  option.Value = value;
  if (!value) return;
  if (&option == &SoundOn) SoundOn_Click();
  if (&option == &SoundOff) SoundOff_Click();
}

void Form3::SetValue(CheckBox& box, int value) {
  if (value == box.Value) return;
  box.Value = value;
  if (&box == &Check1) Check1_Click();
  if (&box == &Check2) Check2_Click();
}

void Form3::DragThumb(ScrollBar& bar, int value) {
  if (!bar.ThumbHeld) {
    bar.ThumbHeld = true;
    bar.ThumbFrom = bar.Value;
  }
  bar.Value = std::clamp(value, bar.Min, bar.Max);
  if (&bar == &HScroll1) HScroll1_Scroll();
  if (&bar == &HScroll2) HScroll2_Scroll();
  if (&bar == &HScroll3) HScroll3_Scroll();
}

// The value has moved with the thumb; the Change comes when it is let go.
void Form3::ReleaseThumb(ScrollBar& bar) {
  if (!bar.ThumbHeld) return;
  bar.ThumbHeld = false;
  if (bar.Value != bar.ThumbFrom) RaiseChange(bar);
}

void Form3::RaiseChange(ScrollBar& bar) {
  if (&bar == &HScroll1) HScroll1_Change();
  if (&bar == &HScroll2) HScroll2_Change();
  if (&bar == &HScroll3) HScroll3_Change();
}

// ---- The speed scale -----------------------------------------------------------------

// One expression serves both ways: stored = Max - Value + 1, Value = Max -
// stored + 1. A hand-edited speed beyond the scale shows at its nearest end;
// one that is no number at all shows the key's default.
void Form3::LoadSpeed(ScrollBar& bar, const char* key) {
  int stored = 0;
  if (!ParseInt(device_.GetSetting(key), stored)) stored = device_.SettingInt(key);
  const long long value = static_cast<long long>(bar.Max) - stored + 1;
  SetValue(bar, static_cast<int>(std::clamp<long long>(value, bar.Min, bar.Max)));
}

void Form3::StoreSpeed(const ScrollBar& bar, const char* key) {
  device_.SaveSetting(key, std::to_string(bar.Max - bar.Value + 1));
}

// ---- Event handlers ----------------------------------------------------------------

void Form3::Form_Load() {
  device_.platform().SetDialogTopmost(Dialog::Options, device_.mAlwaysOnTop.Checked);
  LoadSpeed(HScroll1, store::kGameASpeed);
  LoadSpeed(HScroll2, store::kGameBSpeed);
  LoadSpeed(HScroll3, store::kDiverSpeed);
  Command3.Enabled = false;
  RenewLabel(GameASpeed, "Game A", HScroll1);
  RenewLabel(GameBSpeed, "Game B", HScroll2);
  RenewLabel(DiverSpeed, "Diver", HScroll3);
  // Sound comes from the menu's mark, the two boxes from the store.
  if (device_.mSound.Checked) {
    SetValue(SoundOn, true);
  } else {
    SetValue(SoundOff, true);
  }
  if (device_.SettingBool(store::kAutoShow)) SetValue(Check1, 1);
  if (device_.SettingBool(store::kAlwaysOnTop)) SetValue(Check2, 1);
  // The focus goes on to the Game B bar once the dialog has come up.
  window_.PostTab();
  // The changes of the load have switched Apply on.
  Command3.Enabled = false;
}

void Form3::HScroll1_Change() {
  RenewLabel(GameASpeed, "Game A", HScroll1);
  Command3.Enabled = true;
}

void Form3::HScroll1_Scroll() { RenewLabel(GameASpeed, "Game A", HScroll1); }

void Form3::HScroll2_Change() {
  RenewLabel(GameBSpeed, "Game B", HScroll2);
  Command3.Enabled = true;
}

void Form3::HScroll2_Scroll() { RenewLabel(GameBSpeed, "Game B", HScroll2); }

void Form3::HScroll3_Change() {
  RenewLabel(DiverSpeed, "Diver", HScroll3);
  Command3.Enabled = true;
}

void Form3::HScroll3_Scroll() { RenewLabel(DiverSpeed, "Diver", HScroll3); }

void Form3::SoundOn_Click() {
  Command3.Enabled = true;
  SoundOn.Value = true;
  SoundOff.Value = false;
}

void Form3::SoundOff_Click() {
  Command3.Enabled = true;
  SoundOn.Value = false;
  SoundOff.Value = true;
}

void Form3::Check1_Click() { Command3.Enabled = true; }

void Form3::Check2_Click() { Command3.Enabled = true; }

// OK applies even when Apply is off: the store gets every value again.
void Form3::Command1_Click() {
  Command3_Click();
  window_.Unload();
}

// What an earlier Apply has done stays done.
void Form3::Command2_Click() { window_.Unload(); }

// The two boxes set the marks and no more: "Auto Show" and "Always on Top"
// are written, and the device window's stacking changed, only by the menu.
void Form3::Command3_Click() {
  Command3.Enabled = false;
  StoreSpeed(HScroll1, store::kGameASpeed);
  StoreSpeed(HScroll2, store::kGameBSpeed);
  StoreSpeed(HScroll3, store::kDiverSpeed);
  device_.DoCheckSpeed();
  device_.SaveSetting(store::kSound, BoolText(SoundOn.Value));
  device_.mSound.Checked = SoundOn.Value;
  device_.mAutoShow.Checked = Check1.Value == 1;
  device_.mAlwaysOnTop.Checked = Check2.Value == 1;
}

// The factory settings, on the controls only: nothing is stored before Apply.
void Form3::Command4_Click() {
  SetValue(HScroll1, FactoryValue(store::kGameASpeed));
  SetValue(HScroll2, FactoryValue(store::kGameBSpeed));
  SetValue(HScroll3, FactoryValue(store::kDiverSpeed));
  SetValue(SoundOn, true);
  SoundOff.Value = false;
  SetValue(Check1, 1);
  SetValue(Check2, 1);
  Command3.Enabled = true;
}

}  // namespace nautrix
