// SPDX-License-Identifier: MIT
// The focus while the user works on the main window's frame. An open menu needs it: it works with
// the keyboard too, and closes when the user clicks elsewhere. For all else the system takes it
// unasked. Afterwards the program that is driven has it again.
#pragma once

#include <windows.h>

namespace taviro::platform::win32 {

class FrameFocus {
  public:
    /// Sees every message of the main window.
    void Handle(HWND hWindow, UINT nMessage, WPARAM wParam, LPARAM lParam);

  private:
    void Take(HWND hWindow);
    void Return(HWND hWindow, WPARAM nStep) const;

    bool m_bMenuOpen = false;
    bool m_bPressed = false;  // the frame, at that tick count
    DWORD m_nPressedAt = 0;
};

}  // namespace taviro::platform::win32
