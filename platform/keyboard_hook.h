// SPDX-License-Identifier: MIT
// The system-wide low-level keyboard hook.
#pragma once

#include <cstdint>

namespace taviro::platform {

inline constexpr int32_t HOOK_KEYBOARD_LL = 13;
inline constexpr uint32_t HOOK_FLAG_INJECTED = 0x10;  ///< bit 4: a program sent the key
inline constexpr uint32_t HOOK_FLAG_UP = 0x80;        ///< bit 7 of the event flags: the key goes up

/// One event of the hook (the system's KBDLLHOOKSTRUCT).
struct KeyHookRecord {
    uint32_t vkCode = 0;
    uint32_t scanCode = 0;
    uint32_t flags = 0;
    uint32_t time = 0;
    uint32_t dwExtraInfo = 0;
};

/// Handles one event: code, message, record. A non-zero result swallows the key. It is called on a
/// thread of the hook's own, so that no key waits for what the program does: it may only look at
/// what it owns or what is published for it, and hands over with Post whatever takes time. Calls to
/// other programs fail in it, and a hook that answers too late is taken away without a word.
using KeyHookProcedure = intptr_t (*)(int32_t nCode, uintptr_t wParam, const KeyHookRecord& Record);

/// Installs the procedure for all threads, and again every few seconds: a hook that the system took
/// away comes back so. Returns a handle, 0 on failure and while a hook is installed already.
[[nodiscard]] uintptr_t InstallHook(int32_t nHookType, KeyHookProcedure pProcedure);

/// Removes the hook; the procedure is not called any more when it returns. False on failure.
[[nodiscard]] bool RemoveHook(uintptr_t hHook);

/// Passes the event that is being handled on to the next hook and returns its result. Only valid
/// inside the procedure.
[[nodiscard]] intptr_t CallNextHook(uintptr_t hHook, int32_t nCode, uintptr_t wParam,
                                    const KeyHookRecord& Record);

}  // namespace taviro::platform
