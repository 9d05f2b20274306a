// The fixture of the core's tests: a Form1 on the fake platform, loaded from
// a full store, with the invariants of the state record checked after every
// tick and every event the test plays.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "device/form1.h"
#include "tests/support/fake_platform.h"

namespace nautrix {

// Every broken invariant of the record, one per line; empty when all hold.
std::string InvariantViolations(const Form1& form);

// A store as the program leaves it after its first run.
void FillDefaultStore(FakePlatform& fake);

class DeviceTest : public ::testing::Test {
 protected:
  FakePlatform fake;
  Form1 form{fake};

  // Form_Load over a full store (no first-run instructions), at 09:00:00.
  void Load();
  // One tick of Timer1, then the invariants.
  void Tick(int count = 1);
  // The device clock moves on a second, then one tick.
  void NextSecond(int count = 1);
  // Checks the invariants now.
  void ExpectInvariants();
  // Shorthands for the screen.
  bool Lit(Obj o) const { return form.IsVisible(o); }
  bool Shows(Obj o, Obj sprite) const { return form.SamePicture(o, sprite); }
};

}  // namespace nautrix
