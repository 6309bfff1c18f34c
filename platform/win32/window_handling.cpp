// SPDX-License-Identifier: MIT
#include "platform/window_handling.h"

#include <windows.h>

#include <memory>

#include "platform/failure.h"
#include "platform/main_window.h"
#include "platform/unneeded.h"
#include "platform/win32/failure.h"
#include "platform/win32/numbers.h"
#include "platform/win32/screen.h"

namespace taviro::platform {

using win32::ToHwnd;
using win32::ToNumber;

namespace {

static_assert(SWP_NOACTIVATE == POSITION_FLAG_NOACTIVATE);
static_assert(RDW_INVALIDATE == REDRAW_INVALIDATE && RDW_INTERNALPAINT == REDRAW_INTERNAL_PAINT &&
              RDW_ALLCHILDREN == REDRAW_ALL_CHILDREN && RDW_UPDATENOW == REDRAW_UPDATE_NOW &&
              RDW_FRAME == REDRAW_FRAME);

HRGN ToRegion(RegionHandle hRegion) {
    return reinterpret_cast<HRGN>(hRegion);  // NOLINT(performance-no-int-to-ptr)
}

/// Only the main window is laid out in pixels of a layout; all others are as they are.
Scale LayoutScaleOf(WindowHandle hWindow) {
    return hWindow == MainWindowHandle() ? win32::MainWindowScale : Scale{};
}

RECT ToRect(const ScreenRect& Rect) {
    return {.left = Rect.nLeft, .top = Rect.nTop, .right = Rect.nRight, .bottom = Rect.nBottom};
}

/// The system calls it from within EnumChildWindows: no exception may leave it.
BOOL CALLBACK OnChild(HWND hChild, LPARAM lParam) noexcept {
    const auto& Visit = *reinterpret_cast<const std::function<bool(WindowHandle)>*>(lParam);
    try {
        return Visit(ToNumber(hChild)) ? TRUE : FALSE;
    } catch (...) {
        ReportException("EnumChildWindows");
        return FALSE;
    }
}

}  // namespace

WindowHandle FindWindowByTitle(const std::wstring& strTitle) {
    return ToNumber(FindWindowExW(nullptr, nullptr, nullptr, strTitle.c_str()));
}

std::wstring WindowTitle(WindowHandle hWindow, int32_t nBufferLength) {
    std::wstring strTitle(static_cast<size_t>(nBufferLength), L'\0');
    const int nLength = GetWindowTextW(ToHwnd(hWindow), strTitle.data(), nBufferLength);
    strTitle.resize(static_cast<size_t>(nLength));
    return strTitle;
}

bool SetWindowPosition(WindowHandle hWindow, const WindowPosition& Position) {
    const Scale Monitor = LayoutScaleOf(hWindow);
    return win32::OrReport(
        SetWindowPos(ToHwnd(hWindow), ToHwnd(Position.hInsertAfter), Position.nLeft, Position.nTop,
                     Monitor.ToMonitor(Position.nWidth), Monitor.ToMonitor(Position.nHeight),
                     Position.nFlags),
        "SetWindowPos");
}

bool ScreenToClientPoint(WindowHandle hWindow, ScreenPoint& Point) {
    POINT System{.x = Point.nX, .y = Point.nY};
    if (!win32::OrReport(ScreenToClient(ToHwnd(hWindow), &System), "ScreenToClient")) return false;
    const Scale Monitor = LayoutScaleOf(hWindow);
    Point = {.nX = Monitor.PlaceInLayout(System.x), .nY = Monitor.PlaceInLayout(System.y)};
    return true;
}

bool IsReachedAt(WindowHandle hWindow, ScreenPoint Place) {
    const HWND hWanted = ToHwnd(hWindow);
    const HWND hThere = WindowFromPoint({.x = Place.nX, .y = Place.nY});
    if (hThere == nullptr || IsWindowVisible(hWanted) == FALSE) return false;
    // For one that is disabled, or only text, the system tells what it lies in.
    return hThere == hWanted || IsChild(hWanted, hThere) != FALSE ||
           IsChild(hThere, hWanted) != FALSE;
}

RegionHandle CreateRectRegion(const ScreenRect& Rect) {
    return ToNumber(win32::OrReport(CreateRectRgn(Rect.nLeft, Rect.nTop, Rect.nRight, Rect.nBottom),
                                    "CreateRectRgn"));
}

void DeleteRegion(RegionHandle hRegion) {
    Unneeded(DeleteObject(ToRegion(hRegion)));  // fails only for what is no region
}

bool RedrawWindowPart(WindowHandle hWindow, const ScreenRect& Rect, RegionHandle hRegion,
                      uint32_t nFlags) {
    const RECT System = ToRect(Rect);
    return win32::OrReport(RedrawWindow(ToHwnd(hWindow), &System, ToRegion(hRegion), nFlags),
                           "RedrawWindow");
}

void VisitChildWindows(WindowHandle hParent, const std::function<bool(WindowHandle)>& Visit) {
    if (hParent == 0) return;  // the system would go through all windows of the desktop
    // Its result means nothing.
    Unneeded(EnumChildWindows(ToHwnd(hParent), OnChild, reinterpret_cast<LPARAM>(&Visit)));
}

}  // namespace taviro::platform
