// The device as a screen reader meets it. The window paints objects, not
// widgets, so it speaks for them itself: the readout is a read-only text
// with what the digits show, and the seven keys are push buttons that a
// screen reader presses as a click would.
#pragma once

#include <QString>

#include "device/form1.h"

namespace nautrix {

class DeviceWindow;

// Gives the window its accessible face for the rest of its life.
void InstallDeviceAccessible(DeviceWindow& window, Form1& form);
// An object's look has changed: a new readout or the case turned over is
// told to the screen reader once the device's event is over.
void DeviceAccessibleChanged(DeviceWindow& window, Obj o);

// A leaflet page, 1 to 9, in words: its number and title, and what it shows.
QString LeafletPageName(int page);
QString LeafletPageDescription(int page);

}  // namespace nautrix
