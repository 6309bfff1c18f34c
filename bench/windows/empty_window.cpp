// SPDX-License-Identifier: MIT
// The yardstick for the program as a whole: a window that does nothing, built the same way.
#include <windows.h>

namespace {

LRESULT CALLBACK OnMessage(HWND hWindow, UINT nMessage, WPARAM wParam, LPARAM lParam) noexcept {
    if (nMessage == WM_DESTROY) PostQuitMessage(0);
    return DefWindowProcW(hWindow, nMessage, wParam, lParam);
}

}  // namespace

int WINAPI wWinMain(HINSTANCE hInstance, HINSTANCE /*hPrevious*/, PWSTR /*pCommandLine*/,
                    int /*nShowCommand*/) {
    WNDCLASSEXW Class{};
    Class.cbSize = sizeof(Class);
    Class.lpfnWndProc = OnMessage;
    Class.hInstance = hInstance;
    Class.hbrBackground = GetSysColorBrush(COLOR_WINDOW);
    Class.lpszClassName = L"EmptyWindow";
    if (RegisterClassExW(&Class) == 0) return 1;
    const HWND hWindow =
        CreateWindowExW(WS_EX_TOPMOST, Class.lpszClassName, L"Empty window", WS_OVERLAPPEDWINDOW,
                        540, 0, 740, 260, nullptr, nullptr, hInstance, nullptr);
    if (hWindow == nullptr) return 1;
    ShowWindow(hWindow, SW_SHOWNOACTIVATE);
    MSG Message{};
    while (GetMessageW(&Message, nullptr, 0, 0) > 0) {
        TranslateMessage(&Message);
        DispatchMessageW(&Message);
    }
    return 0;
}
