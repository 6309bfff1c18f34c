// SPDX-License-Identifier: MIT
#include "platform/win32/frame_focus.h"

#include "platform/unneeded.h"
#include "platform/win32/driven_window.h"
#include "platform/win32/failure.h"
#include "platform/win32/numbers.h"

namespace taviro::platform::win32 {

namespace {

constexpr UINT MESSAGE_ACT_OVER = WM_APP + 3;  // to the main window, with the step
// The command that was chosen is posted behind the first of these messages and before the second;
// it may need the focus for a dialog.
constexpr WPARAM COMMAND_IS_DONE = 2;
constexpr DWORD LATE_ACTIVATION_MS = 1000;
constexpr WPARAM SYSTEM_COMMAND = 0xFFF0;  // the system uses the other bits itself

/// Whether a mouse press opens a menu. The pointer is asked too, because a window manager may
/// announce any click as one on the menu.
bool IsPressOnMenu(HWND hWindow, WORD nPlace) {
    if (nPlace != HTMENU && nPlace != HTSYSMENU) return false;
    POINT Pointer{};
    RECT Client{};
    const bool bInside =
        GetCursorPos(&Pointer) != FALSE && ScreenToClient(hWindow, &Pointer) != FALSE &&
        GetClientRect(hWindow, &Client) != FALSE && PtInRect(&Client, Pointer) != FALSE;
    return !bInside;
}

}  // namespace

void FrameFocus::Handle(HWND hWindow, UINT nMessage, WPARAM wParam, LPARAM lParam) {
    switch (nMessage) {
        case WM_MOUSEACTIVATE:
            Driven.Note();
            if (IsPressOnMenu(hWindow, LOWORD(lParam))) Take(hWindow);
            break;
        case WM_NCLBUTTONDOWN:  // the system activates the window itself
            m_nPressedAt = GetTickCount();
            m_bPressed = true;
            Return(hWindow, 0);
            break;
        case WM_TIMER:  // and perhaps once more, when the focus was given away already
            m_bPressed = m_bPressed && GetTickCount() - m_nPressedAt < LATE_ACTIVATION_MS;
            if (m_bPressed) Return(hWindow, COMMAND_IS_DONE);
            break;
        case WM_ENTERMENULOOP:
            m_bMenuOpen = true;
            Take(hWindow);
            break;
        case WM_EXITMENULOOP:
            m_bMenuOpen = false;
            Return(hWindow, 0);
            break;
        case WM_SYSCOMMAND:  // a window that is restored from the taskbar is activated
            if ((wParam & SYSTEM_COMMAND) == SC_RESTORE) Return(hWindow, 0);
            break;
        case MESSAGE_ACT_OVER:
            Return(hWindow, wParam);
            break;
        default:
            break;
    }
}

void FrameFocus::Take(HWND hWindow) {
    Driven.Note();
    Unneeded(SetForegroundWindow(hWindow));  // refused, the menu works with the mouse
}

void FrameFocus::Return(HWND hWindow, WPARAM nStep) const {
    if (m_bMenuOpen) return;  // when it closes, all this comes again
    if (nStep == COMMAND_IS_DONE) return Driven.ReturnFrom(ToNumber(hWindow));
    OrReport(PostMessageW(hWindow, MESSAGE_ACT_OVER, nStep + 1, 0), "PostMessage(focus)");
}

}  // namespace taviro::platform::win32
