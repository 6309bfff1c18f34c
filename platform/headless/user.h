// SPDX-License-Identifier: MIT
// The user of the virtual desktop: a hand on the joystick, and the time that passes while it holds
// something. What tests, simulator and measurements do as a user, they do by these verbs.
#pragma once

#include <cstdint>

namespace taviro::platform::headless {

/// Pushes the stick and leaves it there: 1 is right or down, -1 left or up, 0 the centre. The axes
/// stay short of their ends: a device that reports both at 0 counts as absent.
void TiltStick(int32_t nRight, int32_t nDown);
void TiltRight();
void TiltLeft();
void TiltDown();
void TiltUp();
void CentreStick();

/// Presses a button, counted from 0, and holds it.
void PressButton(int nButton);
void ReleaseButton(int nButton);
void ReleaseButtons();

/// Lets that many ticks of the poll loop run, each at its time. A scan step that is due meanwhile
/// runs as well.
void Ticks(int nCount = 1);

/// Pushes the stick for one tick and lets it go for one: one move of the highlight.
void NudgeStick(int32_t nRight, int32_t nDown);
/// Presses a button for so long, in milliseconds, and lets it go for one tick.
void PushButton(int nButton, uint32_t nMilliseconds);
/// The same for one tick, which the program sees once.
void PushButton(int nButton);

}  // namespace taviro::platform::headless
