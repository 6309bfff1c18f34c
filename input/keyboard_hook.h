// SPDX-License-Identifier: MIT
// A system-wide keyboard hook that lets the arrow keys and Enter drive the map while no joystick
// answers. These keys are kept from the program in front meanwhile; all others pass, and so do keys
// that programs send, Taviro's own first of all.
#pragma once

#include <array>
#include <cstdint>
#include <functional>

#include "platform/keyboard_hook.h"
#include "vocabulary/key_code.h"

namespace taviro {

/// What became of a key's presses since its last release, which goes the same way: the program in
/// front gets the release of every key whose press it got, and of no other.
struct KeyPress {
    bool bPassed = false;  ///< one went on
    bool bKept = false;    ///< one drove the map
};

struct KeyboardHookState {
    uintptr_t hKeyboardHook = 0;      ///< 0: not installed
    platform::KeyHookRecord KeyInfo;  ///< the event being handled
    uint32_t LastKeyUp = 0;           ///< last released key that was passed through
    uint32_t nHookScanCode = 0;       ///< of the last event
    uint32_t nHookVkCode = 0;
    std::array<KeyPress, KeyCode::Count> Presses{};  ///< by virtual key
    bool bIgnoreKeys = false;                        ///< pass everything until the next release
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
