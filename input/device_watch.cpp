// SPDX-License-Identifier: MIT
#include "input/device_watch.h"

#include "input/stick_position.h"
#include "platform/clock.h"
#include "state/program_state.h"

namespace taviro {

namespace {

// One glitch, after a time in which nobody read, is no absence.
constexpr uint32_t FAILURES_AT_LEAST = 2;

bool IsOff(int32_t nAxis) {
    return nAxis > AXIS_HIGH || nAxis < AXIS_LOW;
}

bool IsStickTilted() {
    return IsOff(Joystick.nJoyX) || IsOff(Joystick.nJoyY);
}

void CentreStick() {
    Joystick.nJoyX = Joystick.nJoyY = AXIS_CENTRE;
}

void TakeNothing() {
    CentreStick();
    Joystick.bJoyButton.fill(false);
}

/// Opens the first device that answers; the one in use stays when there is none.
bool OpenAny() {
    const uint32_t nBefore = Joystick.nJoyId;
    for (uint32_t n = 0; n < platform::JOY_DEVICE_COUNT; ++n) {
        if (JoyInit(n) && Joystick.bAnswered) return true;
    }
    Joystick.nJoyId = nBefore;
    return false;
}

DeviceNews LookForDevice(uint32_t nNow) {
    const bool bLooks = nNow - DeviceWatch.nLookedAt >= LOOK_EVERY_MS;
    if (bLooks) DeviceWatch.nLookedAt = nNow;
    if (!bLooks || !OpenAny()) {
        TakeNothing();
        return DeviceNews::None;
    }
    JoyRead();
    BeginWatch(true);
    DeviceWatch.bStickHeld = true;
    DeviceWatch.bButtonHeld.fill(true);
    HoldBack();
    return DeviceNews::Found;
}

}  // namespace

void HoldBack() {
    DeviceWatch.bStickHeld = DeviceWatch.bStickHeld && IsStickTilted();
    if (DeviceWatch.bStickHeld) CentreStick();
    for (size_t n = 0; n < Joystick.bJoyButton.size(); ++n) {
        DeviceWatch.bButtonHeld[n] = DeviceWatch.bButtonHeld[n] && Joystick.bJoyButton[n];
        if (DeviceWatch.bButtonHeld[n]) Joystick.bJoyButton[n] = false;
    }
}

void BeginWatch(bool bAnswers) {
    const uint32_t nNow = platform::TickCount();
    DeviceWatch = {.bAbsent = !bAnswers, .nAnsweredAt = nNow, .nLookedAt = nNow};
    Program.bJoystickAnswers = bAnswers;
}

DeviceNews WatchDevice() {
    const uint32_t nNow = platform::TickCount();
    if (DeviceWatch.bAbsent) return LookForDevice(nNow);
    HoldBack();
    if (Joystick.bAnswered) {
        DeviceWatch.nFailures = 0;
        DeviceWatch.nAnsweredAt = nNow;
        return DeviceNews::None;
    }
    ++DeviceWatch.nFailures;
    const bool bGone =
        DeviceWatch.nFailures >= FAILURES_AT_LEAST && nNow - DeviceWatch.nAnsweredAt > FAILING_MS;
    if (!bGone) return DeviceNews::None;
    BeginWatch(false);
    TakeNothing();
    return DeviceNews::Gone;
}

}  // namespace taviro
