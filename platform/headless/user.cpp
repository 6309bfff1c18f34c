// SPDX-License-Identifier: MIT
#include "platform/headless/user.h"

#include "forms/main_form.h"
#include "platform/headless/desktop.h"

namespace taviro::platform::headless {

namespace {

constexpr int32_t CENTRE = 32767;
constexpr int32_t TILT = 30000;

uint32_t ButtonBit(int nButton) {
    return 1U << static_cast<uint32_t>(nButton);
}

}  // namespace

void TiltStick(int32_t nRight, int32_t nDown) {
    Desktop.Joystick.nX = static_cast<uint32_t>(CENTRE + nRight * TILT);
    Desktop.Joystick.nY = static_cast<uint32_t>(CENTRE + nDown * TILT);
}

void TiltRight() {
    TiltStick(1, 0);
}

void TiltLeft() {
    TiltStick(-1, 0);
}

void TiltDown() {
    TiltStick(0, 1);
}

void TiltUp() {
    TiltStick(0, -1);
}

void CentreStick() {
    TiltStick(0, 0);
}

void PressButton(int nButton) {
    Desktop.Joystick.nButtons |= ButtonBit(nButton);
}

void ReleaseButton(int nButton) {
    Desktop.Joystick.nButtons &= ~ButtonBit(nButton);
}

void ReleaseButtons() {
    Desktop.Joystick.nButtons = 0;
}

void Ticks(int nCount) {
    for (int n = 0; n < nCount; ++n)
        Desktop.RunFor(forms::POLL_INTERVAL_MS);
}

void NudgeStick(int32_t nRight, int32_t nDown) {
    TiltStick(nRight, nDown);
    Ticks();
    CentreStick();
    Ticks();
}

void PushButton(int nButton, uint32_t nMilliseconds) {
    PressButton(nButton);
    Desktop.RunFor(nMilliseconds);
    ReleaseButton(nButton);
    Ticks();
}

void PushButton(int nButton) {
    PushButton(nButton, forms::POLL_INTERVAL_MS);
}

}  // namespace taviro::platform::headless
