// SPDX-License-Identifier: MIT
// The yardstick for the program as a whole: a window that does nothing, built the same way.
#include <windows.h>

#include "tests/e2e/windows/plain_window.h"

namespace {

LRESULT CALLBACK OnMessage(HWND hWindow, UINT nMessage, WPARAM wParam, LPARAM lParam) noexcept {
    return taviro::tests::OnOtherMessage(hWindow, nMessage, wParam, lParam);
}

}  // namespace

int WINAPI wWinMain(HINSTANCE /*hInstance*/, HINSTANCE /*hPrevious*/, PWSTR /*pCommandLine*/,
                    int /*nShowCommand*/) {
    const HWND hWindow = taviro::tests::MakeWindow({.strClass = L"EmptyWindow",
                                                    .strTitle = L"Empty window",
                                                    .nLeft = 540,
                                                    .nTop = 0,
                                                    .nWidth = 740,
                                                    .nHeight = 260,
                                                    .pOnMessage = OnMessage,
                                                    .nExtendedStyle = WS_EX_TOPMOST});
    if (hWindow == nullptr) return 1;
    ShowWindow(hWindow, SW_SHOWNOACTIVATE);
    taviro::tests::RunMessages();
    return 0;
}
