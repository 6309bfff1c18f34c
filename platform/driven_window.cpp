// SPDX-License-Identifier: MIT
#include "platform/driven_window.h"

#include <algorithm>
#include <string_view>

#include "platform/unneeded.h"

namespace taviro::platform {

namespace {

/// Where the user only passes through on the way to a window: taskbars and lists of windows.
constexpr std::wstring_view PASSED_THROUGH[] = {
    L"Shell_TrayWnd",         L"Shell_SecondaryTrayWnd",       L"TaskSwitcherWnd",
    L"MultitaskingViewFrame", L"XamlExplorerHostIslandWindow", L"ForegroundStaging",
};

}  // namespace

void DrivenWindow::Note() {
    const WindowHandle hFront = ForegroundActiveWindow();
    if (hFront == 0 || hFront == m_hDriven || IsOwnWindow(hFront)) return;
    if (std::ranges::count(PASSED_THROUGH, WindowClassName(hFront)) == 0) m_hDriven = hFront;
}

void DrivenWindow::ReturnFrom(WindowHandle hOurs) const {
    const WindowHandle hFront = ForegroundActiveWindow();
    if (hFront != 0 && hFront != hOurs) return;
    if (!IsWindowHandle(m_hDriven)) return;  // it has closed; the system finds another
    Unneeded(SetForeground(m_hDriven));      // refused: as it was before
}

}  // namespace taviro::platform
