// SPDX-License-Identifier: MIT
// A window with the keyboard's focus that writes the number of each virtual key that reaches it,
// one a line, on its standard output as soon as the key is pressed; see bench/hook_bench.py.
#include <windows.h>

#include <string>

#include "tests/e2e/windows/plain_window.h"

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
    return taviro::tests::OnOtherMessage(hWindow, nMessage, wParam, lParam);
}

}  // namespace

int WINAPI wWinMain(HINSTANCE /*hInstance*/, HINSTANCE /*hPrevious*/, PWSTR /*pCommandLine*/,
                    int /*nShowCommand*/) {
    const HWND hWindow = taviro::tests::MakeWindow({.strClass = L"KeyEcho",
                                                    .strTitle = L"Key echo",
                                                    .nLeft = 0,
                                                    .nTop = 400,
                                                    .nWidth = 300,
                                                    .nHeight = 200,
                                                    .pOnMessage = OnMessage});
    if (hWindow == nullptr) return 1;
    ShowWindow(hWindow, SW_SHOWNORMAL);
    taviro::tests::RunMessages();
    return 0;
}
