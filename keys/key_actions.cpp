// Stub: does nothing until its subsystem stands.
#include "device/form1.h"

namespace nautrix {

void Form1::GameAButton_MouseDown(int, int, float, float) {}
void Form1::GameAButton_MouseUp(int, int, float, float) {}
void Form1::GameBButton_MouseDown(int, int, float, float) {}
void Form1::GameBButton_MouseUp(int, int, float, float) {}
void Form1::TimeButton_MouseDown(int, int, float, float) {}
void Form1::TimeButton_MouseUp(int, int, float, float) {}
void Form1::LeftButton_MouseDown(int, int, float, float) {}
void Form1::LeftButton_MouseUp(int, int, float, float) {}
void Form1::RightButton_MouseDown(int, int, float, float) {}
void Form1::RightButton_MouseUp(int, int, float, float) {}
void Form1::AlarmButton_MouseDown(int, int, float, float) {}
void Form1::AlarmButton_MouseUp(int, int, float, float) {}
void Form1::ACLButton_MouseDown(int, int, float, float) {}
void Form1::ACLButton_MouseUp(int, int, float, float) {}
void Form1::ReleaseKey() {}

}  // namespace nautrix
