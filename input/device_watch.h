// SPDX-License-Identifier: MIT
// Watches that the joystick answers, for who wants it (comfort.ini): one that was unplugged, sleeps
// or died counts as centred with all buttons up, and any device that answers is taken. The reader
// samples as ever; this only judges the sample.
#pragma once

#include <array>
#include <cstdint>

#include "input/joystick_reader.h"

namespace taviro {

inline constexpr uint32_t FAILING_MS = 300;     ///< so long without an answer is an absent device
inline constexpr uint32_t LOOK_EVERY_MS = 300;  ///< all devices are asked while there is none

enum class DeviceNews { None, Gone, Found };

struct DeviceWatchState {
    bool bAbsent = false;      ///< no device is in use
    uint32_t nFailures = 0;    ///< reads without an answer, in a row
    uint32_t nAnsweredAt = 0;  ///< tick count
    uint32_t nLookedAt = 0;
    // What was held when the device came; it acts when it was let go once.
    bool bStickHeld = false;
    std::array<bool, JOY_BUTTON_COUNT> bButtonHeld{};
};
inline DeviceWatchState DeviceWatch;

/// Begins with a joystick that answered at the start, or with none.
void BeginWatch(bool bAnswers);

/// Takes out of the sample what was held when the device came and has not been let go yet.
void HoldBack();

/// Judges what JoyRead has just brought, and changes the sample to what counts; publishes for the
/// keyboard hook whether a joystick answers. Looks for a device, and reads it, while there is none.
/// Returns what the person should be told.
DeviceNews WatchDevice();

}  // namespace taviro
