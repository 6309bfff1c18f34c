// SPDX-License-Identifier: MIT
// Windows of other programs and the processes that own them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace taviro::platform {

/// A window handle as a number; 0 is no window.
using WindowHandle = uintptr_t;

/// The active window of the foreground thread (GetGUIThreadInfo for thread 0); 0 when it fails.
[[nodiscard]] WindowHandle ForegroundActiveWindow();

/// Process and thread that own a window; both 0 when the window does not exist.
[[nodiscard]] uint32_t WindowProcess(WindowHandle hWindow);
[[nodiscard]] uint32_t WindowThread(WindowHandle hWindow);

/// The top-level window with exactly this title and, when given, class; 0 when none. An empty text
/// means any.
[[nodiscard]] WindowHandle FindTopWindow(const std::wstring& strClass,
                                         const std::wstring& strTitle);

/// A rectangle on the screen in pixels; right and bottom are the first pixels outside.
struct ScreenRect {
    int32_t nLeft = 0;
    int32_t nTop = 0;
    int32_t nRight = 0;
    int32_t nBottom = 0;
};

/// The whole window with its frame. Returns false, and leaves Rect alone, on failure.
[[nodiscard]] bool WindowRect(WindowHandle hWindow, ScreenRect& Rect);

/// Whether the handle names an existing window.
[[nodiscard]] bool IsWindowHandle(WindowHandle hWindow);

/// Whether a window belongs to this program. False for one that does not exist.
[[nodiscard]] bool IsOwnWindow(WindowHandle hWindow);

/// Class name of a window, empty on failure.
[[nodiscard]] std::wstring WindowClassName(WindowHandle hWindow);

/// One entry of the process snapshot.
struct ProcessEntry {
    uint32_t nProcessId = 0;
    std::wstring strExecutable;  ///< the system's name or path of the executable
};

/// All running processes, in the system's order; empty when no snapshot can be taken.
[[nodiscard]] std::vector<ProcessEntry> SnapshotProcesses();

/// Joins or parts the input queues of two threads. Returns false on failure.
[[nodiscard]] bool AttachInput(uint32_t nThread, uint32_t nToThread, bool bAttach);

/// Whether the system takes what we send to the window: its program has no greater rights than
/// ours. True also for a window that does not exist. A program that may not even be asked has
/// greater ones.
[[nodiscard]] bool MayDriveWindow(WindowHandle hWindow);

/// The windows that the user can change to, top-level, seen and with a place in the task bar, the
/// topmost first.
[[nodiscard]] std::vector<WindowHandle> TaskWindows();

/// Lets whatever comes next take the foreground. The system allows that only to who has the
/// foreground, or shares its input: that is borrowed for the moment of the call. Lasts until the
/// user's next input.
void LetOthersComeToFront();

/// When the last input of keyboard or mouse came, real or sent, in the system's milliseconds.
[[nodiscard]] uint32_t LastInputTick();

/// Asks for the foreground. Returns false when the system refuses.
[[nodiscard]] bool SetForeground(WindowHandle hWindow);

}  // namespace taviro::platform
