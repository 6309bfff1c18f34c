// SPDX-License-Identifier: MIT
// What scripts do to windows of any program: find, read, place, repaint, look through their
// children. A window that has gone makes every call fail or find nothing.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/pointer.h"
#include "platform/windows_and_processes.h"

namespace taviro::platform {

/// The first top-level window with exactly this title (FindWindowEx without parent and class); 0
/// when none. An empty title is looked for as such: a window without one.
[[nodiscard]] WindowHandle FindWindowByTitle(const std::wstring& strTitle);

/// A window's title as GetWindowText leaves it in a buffer of nBufferLength characters, the closing
/// NUL included: at most one character less. Empty on failure.
[[nodiscard]] std::wstring WindowTitle(WindowHandle hWindow, int32_t nBufferLength);

inline constexpr WindowHandle INSERT_TOPMOST = UINTPTR_MAX;  ///< above all windows, and stays there
inline constexpr uint32_t POSITION_FLAG_NOACTIVATE = 16;

/// The arguments of SetWindowPos. Pixels on the screen; the size of the main window, in pixels of
/// its layout (platform/scale.h).
struct WindowPosition {
    WindowHandle hInsertAfter = 0;
    int32_t nLeft = 0;
    int32_t nTop = 0;
    int32_t nWidth = 0;
    int32_t nHeight = 0;
    uint32_t nFlags = 0;
};
/// Returns false when the system refuses.
[[nodiscard]] bool SetWindowPosition(WindowHandle hWindow, const WindowPosition& Position);

/// Turns a point of the screen into one of the window's inner area, for the main window in pixels
/// of its layout. Returns false, and leaves the point alone, on failure.
[[nodiscard]] bool ScreenToClientPoint(WindowHandle hWindow, ScreenPoint& Point);

/// A rectangular region; 0 on failure. Whoever made it deletes it.
using RegionHandle = uintptr_t;
[[nodiscard]] RegionHandle CreateRectRegion(const ScreenRect& Rect);
void DeleteRegion(RegionHandle hRegion);

// Flags of RedrawWindow.
inline constexpr uint32_t REDRAW_INVALIDATE = 1;
inline constexpr uint32_t REDRAW_INTERNAL_PAINT = 2;
inline constexpr uint32_t REDRAW_ALL_CHILDREN = 128;
inline constexpr uint32_t REDRAW_UPDATE_NOW = 256;
inline constexpr uint32_t REDRAW_FRAME = 1024;

/// Repaints a part of a window, or of the whole desktop for window 0. Returns false on failure.
[[nodiscard]] bool RedrawWindowPart(WindowHandle hWindow, const ScreenRect& Rect,
                                    RegionHandle hRegion, uint32_t nFlags);

/// Whether a click at a place of the screen, in pixels, reaches the window: it is shown, and
/// nothing covers it there but what lies in it.
[[nodiscard]] bool IsReachedAt(WindowHandle hWindow, ScreenPoint Place);

/// How many children the window's accessible object has, that of its content (the object of its
/// frame has the same few parts in every window). Returns false, and leaves nCount alone, when the
/// window does not say.
[[nodiscard]] bool AccessibleChildCount(WindowHandle hWindow, int32_t& nCount);

/// Goes through the children of a window and theirs, hidden ones too, in the system's order, until
/// Visit returns false. Nothing is visited for window 0.
void VisitChildWindows(WindowHandle hParent, const std::function<bool(WindowHandle)>& Visit);

}  // namespace taviro::platform
