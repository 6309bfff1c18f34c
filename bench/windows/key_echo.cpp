// SPDX-License-Identifier: MIT
// A window with the keyboard's focus that writes the number of each virtual key that reaches it,
// one a line, on its standard output as soon as the key is pressed; see bench/hook_bench.py.
#include <windows.h>

#include <string>

namespace {

void Write(const std::string& strLine) {
    const std::string strBytes = strLine + "\n";
    DWORD nWritten = 0;
    if (!WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), strBytes.data(),
                   static_cast<DWORD>(strBytes.size()), &nWritten, nullptr)) {
        PostQuitMessage(1);  // nobody reads any more
    }
}

LRESULT CALLBACK OnMessage(HWND hWindow, UINT nMessage, WPARAM wParam, LPARAM lParam) noexcept {
    if (nMessage == WM_KEYDOWN) Write(std::to_string(wParam));
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
    Class.lpszClassName = L"KeyEcho";
    if (RegisterClassExW(&Class) == 0) return 1;
    const HWND hWindow = CreateWindowExW(0, Class.lpszClassName, L"Key echo", WS_OVERLAPPEDWINDOW,
                                         0, 400, 300, 200, nullptr, nullptr, hInstance, nullptr);
    if (hWindow == nullptr) return 1;
    ShowWindow(hWindow, SW_SHOWNORMAL);
    MSG Message{};
    while (GetMessageW(&Message, nullptr, 0, 0) > 0)
        DispatchMessageW(&Message);
    return 0;
}
