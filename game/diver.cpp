// Stub: does nothing until its subsystem stands.
#include "device/form1.h"

namespace nautrix {

void Form1::DiverForward() {}
void Form1::DiverBack() {}
void Form1::BoatTick() {}
void Form1::HideDivers() {}

}  // namespace nautrix
