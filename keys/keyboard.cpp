// Stub: does nothing until its subsystem stands.
#include "device/form1.h"

namespace nautrix {

void Form1::Form_KeyDown(int, int) {}
void Form1::Form_KeyUp(int, int) {}

}  // namespace nautrix
