// Form2, About: the program's name, version and date, the credits, and three
// labels that are links. A link's caption is at once its text and its
// target; it opens at the release of any button, wherever released.
#pragma once

#include <cstdint>
#include <string>

#include "device/form1.h"
#include "dialogs/dialog_window.h"

namespace nautrix {

// A colour as red, green and blue, 0-255 each.
struct Colour {
  uint8_t red = 0, green = 0, blue = 0;
  bool operator==(const Colour& other) const {
    return red == other.red && green == other.green && blue == other.blue;
  }
};

inline constexpr Colour kLinkColour{0, 0, 128};       // dark blue
inline constexpr Colour kPressedLinkColour{128, 0, 128};  // purple, while pressed

struct LinkLabel {
  std::string Caption;
  Colour ForeColor = kLinkColour;
};

class Form2 {
 public:
  Form2(Form1& device, DialogWindow& window) : device_(device), window_(window) {}

  // The mail address, the home page (a full address) and a further page
  // (an address without its scheme).
  LinkLabel Email{"mail@nautrix.example"};
  LinkLabel Homepage{"https://nautrix.example/"};
  LinkLabel Handbill{"tickplay.example/leaflets/nautrix.html"};

  void Form_Load();
  void Command1_Click();  // OK, Enter, Esc and the frame's close
  void Email_MouseDown(int Button, int Shift, float X, float Y);
  void Email_MouseUp(int Button, int Shift, float X, float Y);
  void Homepage_MouseDown(int Button, int Shift, float X, float Y);
  void Homepage_MouseUp(int Button, int Shift, float X, float Y);
  void Handbill_MouseDown(int Button, int Shift, float X, float Y);
  void Handbill_MouseUp(int Button, int Shift, float X, float Y);

 private:
  void OpenLink(LinkLabel& link, const std::string& target);

  Form1& device_;
  DialogWindow& window_;
};

}  // namespace nautrix
