// The About window. Nothing here is stored and nothing is reported: a link
// that no program takes leaves the window as it was.
#include "dialogs/form2.h"

namespace nautrix {

void Form2::Form_Load() {
  device_.platform().SetDialogTopmost(Dialog::About, device_.mAlwaysOnTop.Checked);
}

void Form2::Command1_Click() { window_.Unload(); }

// The colour comes back first; the desktop gets the target and returns at once.
void Form2::OpenLink(LinkLabel& link, const std::string& target) {
  link.ForeColor = kLinkColour;
  device_.platform().OpenUrl(target);
}

// Every button presses a link.
void Form2::Email_MouseDown(int, int, float, float) { Email.ForeColor = kPressedLinkColour; }

void Form2::Email_MouseUp(int, int, float, float) { OpenLink(Email, "mailto:" + Email.Caption); }

void Form2::Homepage_MouseDown(int, int, float, float) { Homepage.ForeColor = kPressedLinkColour; }

void Form2::Homepage_MouseUp(int, int, float, float) { OpenLink(Homepage, Homepage.Caption); }

void Form2::Handbill_MouseDown(int, int, float, float) { Handbill.ForeColor = kPressedLinkColour; }

// The desktop reads an address without a scheme as a web address.
void Form2::Handbill_MouseUp(int, int, float, float) { OpenLink(Handbill, Handbill.Caption); }

}  // namespace nautrix
