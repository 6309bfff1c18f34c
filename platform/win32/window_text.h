// SPDX-License-Identifier: MIT
// The whole text of a window, however long.
#pragma once

#include <windows.h>

#include <string>

namespace taviro::platform::win32 {

std::wstring WindowText(HWND hWindow);

}  // namespace taviro::platform::win32
