// SPDX-License-Identifier: MIT
#include "input/keyboard_hook.h"

#include "input/joystick_reader.h"
#include "state/program_state.h"

namespace taviro {

namespace {

constexpr uint32_t VK_ENTER = 13;
constexpr uint32_t VK_FIRST_ARROW = 37;
constexpr uint32_t VK_LAST_ARROW = 40;
constexpr intptr_t SWALLOW = 1;

// The keys that drive the map. Returns whether the key is one of them.
bool DriveMap(uint32_t nVk, bool bReleased) {
    if (nVk == VK_ENTER) {
        if (bReleased && KeyboardHook.Enter) KeyboardHook.Enter();
        return true;
    }
    if (nVk < VK_FIRST_ARROW || nVk > VK_LAST_ARROW) return false;
    if (!bReleased && KeyboardHook.Arrow) KeyboardHook.Arrow(static_cast<int32_t>(nVk));
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
    (void)platform::RemoveHook(KeyboardHook.hKeyboardHook);  // gone with the program in any case
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
    if (DriveMap(Record.vkCode, bReleased)) return SWALLOW;
    if (bReleased) KeyboardHook.LastKeyUp = Record.vkCode;
    return PassOn();
}

}  // namespace taviro
