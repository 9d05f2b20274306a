// Stub: does nothing until its subsystem stands.
#include "device/form1.h"

namespace nautrix {

void Form1::StepClock(bool) {}
void Form1::WriteClock() {}

}  // namespace nautrix
