// SPDX-License-Identifier: MIT
// Window handles and other system handles travel through the contracts as numbers.
#pragma once

#include <windows.h>

#include <cstdint>

namespace taviro::platform::win32 {

inline HWND ToHwnd(uintptr_t nHandle) {
    return reinterpret_cast<HWND>(nHandle);  // NOLINT(performance-no-int-to-ptr)
}

inline uintptr_t ToNumber(const void* hHandle) {
    return reinterpret_cast<uintptr_t>(hHandle);
}

}  // namespace taviro::platform::win32
