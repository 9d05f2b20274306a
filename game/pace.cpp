// Stub: does nothing until its subsystem stands.
#include "device/form1.h"

namespace nautrix {

void Form1::DoCheckSpeed() {}

}  // namespace nautrix
