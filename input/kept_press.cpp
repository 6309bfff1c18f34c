// SPDX-License-Identifier: MIT
#include "input/kept_press.h"

#include <algorithm>
#include <utility>

#include "input/device_watch.h"
#include "input/joystick_reader.h"

namespace taviro {

namespace {

constexpr int32_t NO_BUTTON_DOWN = -1;

int32_t FirstButtonDown() {
    const auto it = std::find(Joystick.bJoyButton.begin(), Joystick.bJoyButton.end(), true);
    if (it == Joystick.bJoyButton.end()) return NO_BUTTON_DOWN;
    return static_cast<int32_t>(it - Joystick.bJoyButton.begin());
}

}  // namespace

void NotePress() {
    // A device that does not answer makes no wait longer.
    if (DeviceWatch.bAbsent || DeviceWatch.nFailures > 0) return;
    JoyRead();
    if (!Joystick.bAnswered) {
        ++DeviceWatch.nFailures;  // the poll that follows need not find it out anew
        return;
    }
    HoldBack();
    const int32_t nButton = FirstButtonDown();
    const bool bDown = nButton != NO_BUTTON_DOWN;
    if (bDown && !KeptPress.bDown && KeptPress.nButton < 0) KeptPress.nButton = nButton;
    KeptPress.bDown = bDown;
}

bool TakeKeptPress() {
    const int32_t nKept = std::exchange(KeptPress.nButton, NO_BUTTON_DOWN);
    KeptPress.bDown = FirstButtonDown() != NO_BUTTON_DOWN;
    if (nKept < 0) return false;
    if (!KeptPress.bDown) Joystick.bJoyButton[static_cast<size_t>(nKept)] = true;
    return true;
}

}  // namespace taviro
