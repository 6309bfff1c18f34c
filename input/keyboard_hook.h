// SPDX-License-Identifier: MIT
// A system-wide keyboard hook that lets the arrow keys and Enter drive the map while no joystick
// answers. These keys are kept from the program in front meanwhile; all others pass, and so do keys
// that programs send, Taviro's own first of all. The procedure runs on the hook's own thread and
// only decides; what a key does is posted to the program's thread, in the order of the keys.
#pragma once

#include <array>
#include <cstdint>
#include <functional>

#include "input/joystick_reader.h"
#include "platform/keyboard_hook.h"
#include "state/published.h"
#include "vocabulary/key_code.h"

namespace taviro {

/// What became of a key's presses since its last release, which goes the same way: the program in
/// front gets the release of every key whose press it got, and of no other.
struct KeyPress {
    bool bPassed = false;  ///< one went on
    bool bKept = false;    ///< one drove the map
};

struct KeyboardHookState {
    Published<uintptr_t> hKeyboardHook = 0;  ///< 0: not installed

    // The hook's thread's alone while it is installed.
    platform::KeyHookRecord KeyInfo;  ///< the event being handled
    uint32_t LastKeyUp = 0;           ///< last released key that was passed through
    uint32_t nHookScanCode = 0;       ///< of the last event
    uint32_t nHookVkCode = 0;
    std::array<KeyPress, KeyCode::Count> Presses{};  ///< by virtual key
    bool bIgnoreKeys = false;                        ///< pass everything until the next release

    // The program's thread's, handed over by start-up.
    std::function<void()> Enter;         ///< what a released Enter does
    std::function<void(int32_t)> Arrow;  ///< what a pressed arrow does, by its key code
    /// Whether a joystick answers; asked once for the keys of a moment.
    std::function<bool()> AskJoystick = [] { return JoyInit(0) && Joystick.bAnswered; };
    Published<bool> bAsking = false;  ///< the question has been posted and not been asked yet
};
inline KeyboardHookState KeyboardHook;

/// Installs the hook for all threads; on failure the keyboard is simply not used.
void InstallKeyboardHook();

bool IsHooked();

void RemoveKeyboardHook();

/// Handles one key event by what is known of the joystick, and lets it be asked for the next one; a
/// non-zero result keeps the key from everybody else.
intptr_t KeyboardProc(int32_t nCode, uintptr_t wParam, const platform::KeyHookRecord& Record);

}  // namespace taviro
