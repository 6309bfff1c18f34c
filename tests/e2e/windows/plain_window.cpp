// SPDX-License-Identifier: MIT
#include "tests/e2e/windows/plain_window.h"

namespace taviro::tests {

HWND MakeWindow(const PlainWindow& Wanted) {
    WNDCLASSEXW Class{};
    Class.cbSize = sizeof(Class);
    Class.lpfnWndProc = Wanted.pOnMessage;
    Class.hInstance = GetModuleHandleW(nullptr);
    Class.hbrBackground = GetSysColorBrush(Wanted.nBackground);
    Class.lpszClassName = Wanted.strClass;
    if (RegisterClassExW(&Class) == 0) return nullptr;
    return CreateWindowExW(Wanted.nExtendedStyle, Class.lpszClassName, Wanted.strTitle,
                           WS_OVERLAPPEDWINDOW, Wanted.nLeft, Wanted.nTop, Wanted.nWidth,
                           Wanted.nHeight, nullptr, nullptr, Class.hInstance, nullptr);
}

LRESULT OnOtherMessage(HWND hWindow, UINT nMessage, WPARAM wParam, LPARAM lParam) {
    if (nMessage == WM_DESTROY) PostQuitMessage(0);
    return DefWindowProcW(hWindow, nMessage, wParam, lParam);
}

void RunMessages(const std::function<void(const MSG&)>& Look) {
    MSG Message{};
    while (GetMessageW(&Message, nullptr, 0, 0) > 0) {
        if (Look) Look(Message);
        TranslateMessage(&Message);
        DispatchMessageW(&Message);
    }
}

}  // namespace taviro::tests
