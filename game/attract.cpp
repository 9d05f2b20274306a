// Stub: does nothing until its subsystem stands.
#include "device/form1.h"

namespace nautrix {

void Form1::StartGame() {}
void Form1::ClearGame() {}
void Form1::ShowPlayfield() {}
void Form1::ShowGameType(int) {}
void Form1::EndGame() {}
void Form1::AttractStep() {}

}  // namespace nautrix
