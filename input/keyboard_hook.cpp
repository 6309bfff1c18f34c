// SPDX-License-Identifier: MIT
#include "input/keyboard_hook.h"

#include <utility>

#include "platform/messages.h"
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

/// Posts what a key does. What was pressed before the end of the hook is not done after it: the
/// program may be on its way out.
template <class Act>
void PostAct(Act What) {
    platform::Post([What] {
        if (IsHooked()) What();
    });
}

void PostQuestion() {
    if (KeyboardHook.bAsking) return;
    KeyboardHook.bAsking = true;
    PostAct([] {
        KeyboardHook.bAsking = false;
        if (KeyboardHook.AskJoystick) Program.bJoystickAnswers = KeyboardHook.AskJoystick();
    });
}

void PostArrow(int32_t nVk) {
    PostAct([nVk] {
        if (KeyboardHook.Arrow) KeyboardHook.Arrow(nVk);
    });
}

void PostEnter() {
    PostAct([] {
        if (KeyboardHook.Enter) KeyboardHook.Enter();
    });
}

}  // namespace

void InstallKeyboardHook() {
    KeyboardHook.bAsking = false;
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
    // Asked on every key, so that a joystick that is plugged in takes over, and samples its centre
    // anew. A device may take its time to answer, so this key goes by the answer before.
    const bool bJoystick = Program.bJoystickAnswers;
    PostQuestion();
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
        if (IsArrow(nVk)) PostArrow(nVk);
        return SWALLOW;
    }
    const KeyPress Ended = std::exchange(Press, {});
    if (Ended.bKept && !Ended.bPassed) {
        if (nVk == KeyCode::Enter) PostEnter();
        return SWALLOW;
    }
    if (!bElsewhere) {
        KeyboardHook.bIgnoreKeys = false;
        KeyboardHook.LastKeyUp = Record.vkCode;
    }
    return PassOn();
}

}  // namespace taviro
