// SPDX-License-Identifier: MIT
// The class of the main window, by which other programs find it.
#pragma once

#include <windows.h>

namespace taviro::platform::win32 {

inline constexpr const wchar_t* MAIN_CLASS_NAME = L"TaviroMain";

/// Registers the class once. Returns false when the system refuses.
bool RegisterMainClass(WNDPROC pProcedure);

}  // namespace taviro::platform::win32
