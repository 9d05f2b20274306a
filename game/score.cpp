// Stub: does nothing until its subsystem stands.
#include "device/form1.h"

namespace nautrix {

void Form1::AddPoint() {}
void Form1::BonusTick() {}
void Form1::ShowSpares() {}
void Form1::StoreHighScore() {}

}  // namespace nautrix
