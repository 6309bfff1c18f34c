// SPDX-License-Identifier: MIT
// The hook has a thread to itself, which does nothing else: the system waits with every key of the
// whole desktop for its answer.
#include "platform/keyboard_hook.h"

#include <windows.h>

#include "platform/failure.h"
#include "platform/unneeded.h"
#include "platform/win32/failure.h"
#include "platform/win32/numbers.h"
#include "platform/win32/posted_work.h"

namespace taviro::platform {

namespace {

// The system takes a hook that was too slow away without a word, and nothing tells a hook that is
// there from one that is not. So it is set anew, this often.
constexpr UINT RENEWAL_MS = 5000;
constexpr DWORD END_WITHIN_MS = 1000;

struct HookState {
    KeyHookProcedure pProcedure = nullptr;  ///< set before the thread begins
    uintptr_t hFirst = 0;  ///< what the program knows the hook by: the system's first handle
    HANDLE hThread = nullptr;
    DWORD nThread = 0;
    HANDLE hAnswered = nullptr;  ///< event: the thread has installed the hook, or failed to
    DWORD nError = 0;            ///< why, when hFirst is 0

    // The hook's thread's alone.
    HHOOK hHook = nullptr;
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
    if (nCode < 0) return CallNextHookEx(nullptr, nCode, wParam, lParam);
    Hook.nEvent = lParam;
    try {
        return Hook.pProcedure(nCode, wParam, ToRecord(lParam));
    } catch (...) {
        win32::ReportLater("keyboard hook", CODE_FAILED);
        return CallNextHookEx(nullptr, nCode, wParam, lParam);  // the key is not lost
    }
}

/// Sets the hook, or sets it anew: the new one first, so that no key gets by. No key is handled
/// between the two, because this thread fetches no message then.
bool SetHook() {
    const HHOOK hNew = SetWindowsHookExW(WH_KEYBOARD_LL, OnKeyEvent, GetModuleHandleW(nullptr), 0);
    if (hNew == nullptr) return false;
    if (Hook.hHook != nullptr) Unneeded(UnhookWindowsHookEx(Hook.hHook));  // taken away: no failure
    Hook.hHook = hNew;
    return true;
}

DWORD WINAPI RunHook(void* /*pNothing*/) {
    MSG Message{};
    // From here on the thread has a queue, for the message that ends it.
    Unneeded(PeekMessageW(&Message, nullptr, 0, 0, PM_NOREMOVE));
    const bool bUrgent =
        SetThreadPriority(GetCurrentThread(), THREAD_PRIORITY_TIME_CRITICAL) != FALSE;
    if (!bUrgent) win32::ReportLater("SetThreadPriority(hook)", GetLastError());
    const bool bSet = SetHook();
    Hook.nError = GetLastError();
    Hook.hFirst = win32::ToNumber(Hook.hHook);
    const UINT_PTR nTimer = bSet ? SetTimer(nullptr, 0, RENEWAL_MS, nullptr) : 0;
    if (bSet && nTimer == 0) win32::ReportLater("SetTimer(hook)", GetLastError());
    Unneeded(SetEvent(Hook.hAnswered));  // fails only for a handle that is none
    if (!bSet) return 0;
    while (GetMessageW(&Message, nullptr, 0, 0) > 0) {
        if (Message.message == WM_TIMER && !SetHook()) {
            win32::ReportLater("SetWindowsHookEx(again)", GetLastError());
        }
    }
    Unneeded(UnhookWindowsHookEx(Hook.hHook));  // gone with the thread in any case
    return 0;
}

void CloseHandles() {
    for (HANDLE* pHandle : {&Hook.hThread, &Hook.hAnswered}) {
        if (*pHandle != nullptr) Unneeded(CloseHandle(*pHandle));
        *pHandle = nullptr;
    }
}

bool StartThread() {
    Hook.hAnswered = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    if (win32::OrReport(Hook.hAnswered, "CreateEvent(hook)") == nullptr) return false;
    Hook.hThread = CreateThread(nullptr, 0, RunHook, nullptr, 0, &Hook.nThread);
    if (win32::OrReport(Hook.hThread, "CreateThread(hook)") == nullptr) return false;
    if (WaitForSingleObject(Hook.hAnswered, INFINITE) == WAIT_OBJECT_0 && Hook.hFirst != 0) {
        return true;
    }
    ReportFailure("SetWindowsHookEx", Hook.nError);
    return false;
}

}  // namespace

uintptr_t InstallHook(int32_t nHookType, KeyHookProcedure pProcedure) {
    if (nHookType != HOOK_KEYBOARD_LL || Hook.hThread != nullptr) return 0;
    Unneeded(win32::PostWindow());  // the procedure posts; refused, its work waits
    Hook = {.pProcedure = pProcedure};
    if (StartThread()) return Hook.hFirst;
    CloseHandles();
    return 0;
}

bool RemoveHook(uintptr_t hHook) {
    if (Hook.hThread == nullptr || hHook != Hook.hFirst) return false;
    if (!win32::OrReport(PostThreadMessageW(Hook.nThread, WM_QUIT, 0, 0), "PostThreadMessage")) {
        return false;
    }
    // It comes back at once, unless another program's hook, which ours has called, hangs.
    const bool bEnded = WaitForSingleObject(Hook.hThread, END_WITHIN_MS) == WAIT_OBJECT_0;
    if (!bEnded) ReportFailure("end of the keyboard hook", WAIT_TIMEOUT);
    CloseHandles();
    return bEnded;
}

intptr_t CallNextHook(uintptr_t /*hHook*/, int32_t nCode, uintptr_t wParam,
                      const KeyHookRecord& /*Record*/) {
    return CallNextHookEx(nullptr, nCode, wParam, Hook.nEvent);
}

}  // namespace taviro::platform
