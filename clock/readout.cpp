// Stub: does nothing until its subsystem stands.
#include "device/form1.h"

namespace nautrix {

void Form1::ShowTime(const std::string&) {}
void Form1::ShowScore(int) {}

}  // namespace nautrix
