// SPDX-License-Identifier: MIT
// The frame of a small program for tests and measurements: a window of its own class, and messages
// until it is closed.
#pragma once

#include <windows.h>

#include <functional>

namespace taviro::tests {

struct PlainWindow {
    const wchar_t* strClass;
    const wchar_t* strTitle;
    int nLeft, nTop, nWidth, nHeight;
    WNDPROC pOnMessage = DefWindowProcW;
    DWORD nExtendedStyle = 0;
    int nBackground = COLOR_WINDOW;
};

/// Makes the window, not yet shown. Null when the system refuses.
HWND MakeWindow(const PlainWindow& Wanted);

/// What the window does with a message that is none of its own: it ends the program when it closes.
LRESULT OnOtherMessage(HWND hWindow, UINT nMessage, WPARAM wParam, LPARAM lParam);

/// Runs messages until the program is to end; Look sees each of them first.
void RunMessages(const std::function<void(const MSG&)>& Look = nullptr);

}  // namespace taviro::tests
