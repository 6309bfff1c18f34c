// SPDX-License-Identifier: MIT
// The poll loop: ten times a second the joystick's tilts and buttons become cursor moves, arrow
// keys, actions and mode changes, by the mode that is on.
#pragma once

#include <cstdint>

namespace taviro {

/// A direction as the loop remembers it.
enum class Tilt : int32_t { None = 0, Right = 1, Left = 2, Down = 3, Up = 4 };

struct PollState {
    Tilt nTilt = Tilt::None;      ///< seen in this tick; of a diagonal the later one
    int32_t nButtonDown = 0;      ///< 1 when any button is down in this tick
    Tilt nPrevTilt = Tilt::None;  ///< of the previous tick
    int32_t nPrevButton = 0;
    int32_t nTiltCount = 0;  ///< consecutive ticks with a tilt
};
inline PollState Poll;

/// Blocks for at least nMilliseconds, in sleeps of 100 ms, at least one of them.
void Wait(int16_t nMilliseconds);

/// One tick.
void Timer1_Timer();

}  // namespace taviro
