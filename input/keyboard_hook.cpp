// SPDX-License-Identifier: MIT
#include "input/keyboard_hook.h"

#include <utility>

#include "input/joystick_reader.h"
#include "platform/unneeded.h"
#include "state/program_state.h"
#include "vocabulary/key_code.h"

namespace taviro {

namespace {

constexpr intptr_t SWALLOW = 1;

bool DrivesMap(int32_t nVk) {
    return nVk == KeyCode::Enter || IsArrow(nVk);
}

KeyPress& PressOf(uint32_t nVk) {
    return KeyboardHook.Presses[nVk % KeyboardHook.Presses.size()];
}

}  // namespace

void InstallKeyboardHook() {
    KeyboardHook.Presses = {};
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
    const bool bJoystick = JoyInit(0);
    // Keys that a program sent belong to the program in front. The cell's own Enter, swallowed
    // here, would run the cell again, and again.
    if ((Record.flags & platform::HOOK_FLAG_INJECTED) != 0) return PassOn();
    const bool bReleased = (Record.flags & platform::HOOK_FLAG_UP) != 0;
    const bool bElsewhere = bJoystick || Program.bDialogActive || Program.bMessageShown;
    const auto nVk = static_cast<int32_t>(Record.vkCode);
    KeyPress& Press = PressOf(Record.vkCode);
    if (!bReleased) {
        const bool bKept = !bElsewhere && !KeyboardHook.bIgnoreKeys && DrivesMap(nVk);
        (bKept ? Press.bKept : Press.bPassed) = true;
        if (!bKept) return PassOn();
        if (IsArrow(nVk) && KeyboardHook.Arrow) KeyboardHook.Arrow(nVk);
        return SWALLOW;
    }
    const KeyPress Ended = std::exchange(Press, {});
    if (Ended.bKept && !Ended.bPassed) {
        if (nVk == KeyCode::Enter && KeyboardHook.Enter) KeyboardHook.Enter();
        return SWALLOW;
    }
    if (!bElsewhere) {
        KeyboardHook.bIgnoreKeys = false;
        KeyboardHook.LastKeyUp = Record.vkCode;
    }
    return PassOn();
}

}  // namespace taviro
