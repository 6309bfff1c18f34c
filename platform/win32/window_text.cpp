// SPDX-License-Identifier: MIT
#include "platform/win32/window_text.h"

#include <algorithm>

namespace taviro::platform::win32 {

std::wstring WindowText(HWND hWindow) {
    std::wstring strText(static_cast<size_t>(std::max(0, GetWindowTextLengthW(hWindow))), L'\0');
    const int nLength =
        GetWindowTextW(hWindow, strText.data(), static_cast<int>(strText.size()) + 1);
    strText.resize(static_cast<size_t>(std::max(0, nLength)));
    return strText;
}

}  // namespace taviro::platform::win32
