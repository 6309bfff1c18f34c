// SPDX-License-Identifier: MIT
// Opens one joystick and samples its position and buttons. It interprets nothing: directions,
// thresholds and the meaning of buttons belong to the poll loop.
#pragma once

#include <array>
#include <cstdint>

#include "platform/joystick.h"

namespace taviro {

inline constexpr int32_t JOY_BUTTON_COUNT = 16;

struct JoystickState {
    uint32_t nJoyId = 0;
    platform::JoyCapsRecord JoyCaps{};
    platform::JoyInfoRecord JoyInfo{};  ///< last raw sample
    int32_t nJoyCenterX = 0;            ///< axes at the time of opening
    int32_t nJoyCenterY = 0;
    int32_t nJoyX = 0;  ///< axes of the latest sample, 0 to 65535, centre near 32767
    int32_t nJoyY = 0;
    bool bAnswered = false;  ///< the last query for the position was answered
    std::array<bool, JOY_BUTTON_COUNT> bJoyButton{};  ///< index 0 is the device's button 1
};
inline JoystickState Joystick;

/// Opens device nId and samples its centre. Returns false when there is no device, or when it
/// reports both axes at 0, as a dead one does.
bool JoyInit(uint32_t nId);

/// Samples the device. A failed read leaves the previous sample in effect.
void JoyRead();

}  // namespace taviro
