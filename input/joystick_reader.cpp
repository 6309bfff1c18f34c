// SPDX-License-Identifier: MIT
#include "input/joystick_reader.h"

namespace taviro {

namespace {

// Larger than the record of 52 bytes; the system accepts it, and old drivers have come to expect
// it.
constexpr uint32_t QUERY_SIZE = 64;

void Sample() {
    Joystick.JoyInfo.dwSize = QUERY_SIZE;
    Joystick.JoyInfo.dwFlags = platform::JOY_RETURN_ALL;
    // A failed query leaves the record as it was: the last position and buttons stay in effect.
    Joystick.bAnswered = platform::JoyGetPosEx(Joystick.nJoyId, Joystick.JoyInfo) == 0;
}

}  // namespace

bool JoyInit(uint32_t nId) {
    Joystick.nJoyId = nId;
    if (platform::JoyGetDevCaps(nId, Joystick.JoyCaps, sizeof Joystick.JoyCaps) != 0) return false;
    Sample();
    Joystick.nJoyCenterX = static_cast<int32_t>(Joystick.JoyInfo.dwXpos);
    Joystick.nJoyCenterY = static_cast<int32_t>(Joystick.JoyInfo.dwYpos);
    return Joystick.nJoyCenterX > 0 || Joystick.nJoyCenterY > 0;
}

void JoyRead() {
    Sample();
    Joystick.nJoyX = static_cast<int32_t>(Joystick.JoyInfo.dwXpos);
    Joystick.nJoyY = static_cast<int32_t>(Joystick.JoyInfo.dwYpos);
    // Taken apart from the highest button down by comparing. Bits above the sixteenth stay in the
    // rest, so a device with more buttons than that presses every lower one that fits.
    uint32_t nRest = Joystick.JoyInfo.dwButtons;
    for (uint32_t n = JOY_BUTTON_COUNT; n-- > 0;) {
        const uint32_t nBit = 1U << n;
        const bool bPressed = nBit <= nRest;
        if (bPressed) nRest -= nBit;
        Joystick.bJoyButton[n] = bPressed;
    }
}

}  // namespace taviro
