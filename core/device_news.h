// SPDX-License-Identifier: MIT
// Tells the person that the joystick went, and who drives the map now, and that one is there again.
#pragma once

#include "input/device_watch.h"

namespace taviro {

/// Says it and writes it into the log; nothing when there is no news.
void TellDevice(DeviceNews nNews);

}  // namespace taviro
