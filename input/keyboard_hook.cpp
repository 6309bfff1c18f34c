// SPDX-License-Identifier: MIT
#include "input/keyboard_hook.h"

#include "input/joystick_reader.h"
#include "platform/unneeded.h"
#include "state/program_state.h"
#include "vocabulary/key_code.h"

namespace taviro {

namespace {

constexpr intptr_t SWALLOW = 1;

// The keys that drive the map. Returns whether the key is one of them.
bool DriveMap(int32_t nVk, bool bReleased) {
    if (nVk == KeyCode::Enter) {
        if (bReleased && KeyboardHook.Enter) KeyboardHook.Enter();
        return true;
    }
    if (!IsArrow(nVk)) return false;
    if (!bReleased && KeyboardHook.Arrow) KeyboardHook.Arrow(nVk);
    return true;
}

}  // namespace

void InstallKeyboardHook() {
    KeyboardHook.hKeyboardHook = platform::InstallHook(platform::HOOK_KEYBOARD_LL, KeyboardProc);
}

bool IsHooked() {
    return KeyboardHook.hKeyboardHook != 0;
}

void RemoveKeyboardHook() {
    if (!IsHooked()) return;
    Unneeded(
        platform::RemoveHook(KeyboardHook.hKeyboardHook));  // gone with the program in any case
    KeyboardHook.hKeyboardHook = 0;
}

intptr_t KeyboardProc(int32_t nCode, uintptr_t wParam, const platform::KeyHookRecord& Record) {
    const auto PassOn = [&] {
        return platform::CallNextHook(KeyboardHook.hKeyboardHook, nCode, wParam, Record);
    };
    if (nCode != 0) return PassOn();
    KeyboardHook.KeyInfo = Record;
    KeyboardHook.nHookScanCode = Record.scanCode;
    KeyboardHook.nHookVkCode = Record.vkCode;
    // Asked on every key: a joystick that is plugged in takes over at once. This also samples its
    // centre anew.
    if (JoyInit(0)) return PassOn();
    if (Program.bDialogActive) return PassOn();
    // Keys that a program sent belong to the program in front. The cell's own Enter, swallowed
    // here, would run the cell again, and again.
    if ((Record.flags & platform::HOOK_FLAG_INJECTED) != 0) return PassOn();
    const bool bReleased = (Record.flags & platform::HOOK_FLAG_UP) != 0;
    if (KeyboardHook.bIgnoreKeys) {
        if (bReleased) {
            KeyboardHook.bIgnoreKeys = false;
            KeyboardHook.LastKeyUp = Record.vkCode;
        }
        return PassOn();
    }
    if (DriveMap(static_cast<int32_t>(Record.vkCode), bReleased)) return SWALLOW;
    if (bReleased) KeyboardHook.LastKeyUp = Record.vkCode;
    return PassOn();
}

}  // namespace taviro
