// SPDX-License-Identifier: MIT
// A system-wide keyboard hook that lets the arrow keys and Enter drive the map while no joystick
// answers. These keys are kept from the program in front meanwhile; all others pass, and so do keys
// that programs send, Taviro's own first of all.
#pragma once

#include <cstdint>
#include <functional>

#include "platform/keyboard_hook.h"

namespace taviro {

struct KeyboardHookState {
    uintptr_t hKeyboardHook = 0;      ///< 0: not installed
    platform::KeyHookRecord KeyInfo;  ///< the event being handled
    uint32_t LastKeyUp = 0;           ///< last released key that was passed through
    uint32_t nHookScanCode = 0;       ///< of the last event
    uint32_t nHookVkCode = 0;
    bool bIgnoreKeys = false;            ///< pass everything until the next release
    std::function<void()> Enter;         ///< what a released Enter does; handed over by start-up
    std::function<void(int32_t)> Arrow;  ///< what a pressed arrow does, by its key code
};
inline KeyboardHookState KeyboardHook;

/// Installs the hook for all threads; on failure the keyboard is simply not used.
void InstallKeyboardHook();

bool IsHooked();

void RemoveKeyboardHook();

/// Handles one key event; a non-zero result keeps the key from everybody else.
intptr_t KeyboardProc(int32_t nCode, uintptr_t wParam, const platform::KeyHookRecord& Record);

}  // namespace taviro
