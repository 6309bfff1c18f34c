// SPDX-License-Identifier: MIT
#include "platform/keyboard_hook.h"

#include <windows.h>

#include "platform/failure.h"
#include "platform/win32/failure.h"
#include "platform/win32/numbers.h"

namespace taviro::platform {

namespace {

struct HookState {
    KeyHookProcedure pProcedure = nullptr;
    LPARAM nEvent = 0;  ///< the event being handled, as the next hook must get it
};
HookState Hook;

KeyHookRecord ToRecord(LPARAM nEvent) {
    const auto* pEvent = reinterpret_cast<const KBDLLHOOKSTRUCT*>(nEvent);
    return {.vkCode = pEvent->vkCode,
            .scanCode = pEvent->scanCode,
            .flags = pEvent->flags,
            .time = pEvent->time,
            .dwExtraInfo = static_cast<uint32_t>(pEvent->dwExtraInfo)};
}

LRESULT CALLBACK OnKeyEvent(int nCode, WPARAM wParam, LPARAM lParam) noexcept {
    if (Hook.pProcedure == nullptr || nCode < 0) {
        return CallNextHookEx(nullptr, nCode, wParam, lParam);
    }
    const LPARAM nOuterEvent = Hook.nEvent;  // a handler that lets messages run is entered again
    Hook.nEvent = lParam;
    LRESULT nResult = 0;
    try {
        nResult = Hook.pProcedure(nCode, wParam, ToRecord(lParam));
    } catch (...) {
        ReportException("keyboard hook");
        nResult = CallNextHookEx(nullptr, nCode, wParam, lParam);  // the key is not lost
    }
    Hook.nEvent = nOuterEvent;
    return nResult;
}

HHOOK ToHook(uintptr_t hHook) {
    return reinterpret_cast<HHOOK>(hHook);  // NOLINT(performance-no-int-to-ptr)
}

}  // namespace

uintptr_t InstallHook(int32_t nHookType, KeyHookProcedure pProcedure) {
    Hook.pProcedure = pProcedure;
    return win32::ToNumber(
        win32::OrReport(SetWindowsHookExW(nHookType, OnKeyEvent, GetModuleHandleW(nullptr), 0),
                        "SetWindowsHookEx"));
}

bool RemoveHook(uintptr_t hHook) {
    return win32::OrReport(UnhookWindowsHookEx(ToHook(hHook)), "UnhookWindowsHookEx");
}

intptr_t CallNextHook(uintptr_t hHook, int32_t nCode, uintptr_t wParam,
                      const KeyHookRecord& /*Record*/) {
    return CallNextHookEx(ToHook(hHook), nCode, wParam, Hook.nEvent);
}

}  // namespace taviro::platform
