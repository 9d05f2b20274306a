// Random streams of everything that can reach the device: ticks with the
// clock moved on by any amount (past midnight, and backwards), every key code
// down and up in any order and repeated, pointer presses, moves and releases
// of every button over every object and off it, double clicks, the tray's
// messages, every menu item, the three dialogs' handlers with any control
// values, and the store rewritten between events with values of every kind.
// The record's invariants are checked after every event, nested ones too
// (the popup menu and the window drag yield to the event loop). A stream is
// fixed by its seed, so a failing seed replays.
#pragma once

#include <cstdint>
#include <string>

namespace nautrix {

struct StreamResult {
  uint64_t events = 0;   // events delivered, nested ones included
  uint64_t checks = 0;   // invariant checks passed
  uint64_t runs = 1;     // program runs: "&Exit" ends one, the next starts on its store
  std::string failure;   // the first broken invariant, with the event that broke it
};

// Plays `events` events of the stream of `seed` and stops at the first
// broken invariant.
StreamResult PlayEventStream(uint64_t seed, uint64_t events);

}  // namespace nautrix
