// SPDX-License-Identifier: MIT
// What scripts do to windows, on the virtual desktop: every call that changes something is written
// into the transcript with all its numbers.
#include "platform/window_handling.h"

#include <algorithm>
#include <map>
#include <vector>

#include "platform/headless/desktop.h"
#include "platform/main_window.h"
#include "platform/text.h"

namespace taviro::platform {

using headless::Desktop;
using headless::VirtualWindow;

namespace {

const VirtualWindow* FindLiving(WindowHandle hWindow) {
    const auto it = std::find_if(Desktop.Windows.begin(), Desktop.Windows.end(),
                                 [&](const auto& Window) { return Window.hWindow == hWindow; });
    return it == Desktop.Windows.end() || it->bGone ? nullptr : &*it;
}

std::string NameOf(WindowHandle hWindow) {
    if (hWindow == 0) return "the desktop";
    if (hWindow == MainWindowHandle()) return "the main window";
    return "window " + std::to_string(hWindow);
}

std::string TextOf(const ScreenRect& Rect) {
    return "(" + std::to_string(Rect.nLeft) + ", " + std::to_string(Rect.nTop) + ", " +
           std::to_string(Rect.nRight) + ", " + std::to_string(Rect.nBottom) + ")";
}

bool Contains(const ScreenRect& Rect, ScreenPoint Place) {
    return Place.nX >= Rect.nLeft && Place.nX < Rect.nRight && Place.nY >= Rect.nTop &&
           Place.nY < Rect.nBottom;
}

using ChildLists = std::map<WindowHandle, std::vector<WindowHandle>>;

// Returns false when the visitor wants no more.
bool VisitBelow(const ChildLists& Lists, WindowHandle hParent,
                const std::function<bool(WindowHandle)>& Visit) {
    const auto it = Lists.find(hParent);
    if (it == Lists.end()) return true;
    return std::all_of(it->second.begin(), it->second.end(), [&](WindowHandle hChild) {
        return Visit(hChild) && VisitBelow(Lists, hChild, Visit);
    });
}

}  // namespace

WindowHandle FindWindowByTitle(const std::wstring& strTitle) {
    if (Desktop.Refuses(__func__)) return 0;
    for (const VirtualWindow& Window : Desktop.Windows) {
        if (Window.hParent != 0 || Window.bGone) continue;
        if (ToLower(Window.strTitle) == ToLower(strTitle)) return Window.hWindow;
    }
    return 0;
}

std::wstring WindowTitle(WindowHandle hWindow, int32_t nBufferLength) {
    const VirtualWindow* pWindow = FindLiving(hWindow);
    if (pWindow == nullptr || Desktop.Refuses(__func__)) return L"";
    return pWindow->strTitle.substr(0, static_cast<size_t>(nBufferLength) - 1);
}

bool SetWindowPosition(WindowHandle hWindow, const WindowPosition& Position) {
    if (Desktop.Refuses(__func__)) return false;
    const std::string strAfter =
        Position.hInsertAfter == INSERT_TOPMOST ? "topmost" : NameOf(Position.hInsertAfter);
    Desktop.Record("SetWindowPos " + NameOf(hWindow) + " " + strAfter + " at (" +
                   std::to_string(Position.nLeft) + ", " + std::to_string(Position.nTop) + ") " +
                   std::to_string(Position.nWidth) + " x " + std::to_string(Position.nHeight) +
                   " flags " + std::to_string(Position.nFlags));
    if (hWindow != MainWindowHandle()) return FindLiving(hWindow) != nullptr;
    Desktop.MainRect = {.nLeft = Position.nLeft,
                        .nTop = Position.nTop,
                        .nRight = Position.nLeft + Position.nWidth,
                        .nBottom = Position.nTop + Position.nHeight};
    return true;
}

// The inner area of the other windows begins at their corner.
bool ScreenToClientPoint(WindowHandle hWindow, ScreenPoint& Point) {
    ScreenRect Rect;
    if (!WindowRect(hWindow, Rect) || Desktop.Refuses(__func__)) return false;
    ScreenPoint Corner{.nX = Rect.nLeft, .nY = Rect.nTop};
    if (hWindow == MainWindowHandle()) Corner = Desktop.MainInnerCorner();
    Point = {.nX = Point.nX - Corner.nX, .nY = Point.nY - Corner.nY};
    return true;
}

bool IsReachedAt(WindowHandle hWindow, ScreenPoint Place) {
    const VirtualWindow* pWindow = FindLiving(hWindow);
    if (pWindow == nullptr || !Contains(pWindow->Rect, Place)) return false;
    if (pWindow->bHidden || pWindow->bCovered) return false;
    return pWindow->hParent == 0 || IsReachedAt(pWindow->hParent, Place);
}

RegionHandle CreateRectRegion(const ScreenRect& Rect) {
    if (Desktop.Refuses(__func__)) return 0;
    Desktop.Regions.push_back(Rect);
    return Desktop.Regions.size();
}

void DeleteRegion(RegionHandle hRegion) {
    Desktop.Record("region " + TextOf(Desktop.Regions.at(hRegion - 1)) + " deleted");
}

bool RedrawWindowPart(WindowHandle hWindow, const ScreenRect& Rect, RegionHandle hRegion,
                      uint32_t nFlags) {
    if (Desktop.Refuses(__func__)) return false;
    const std::string strRegion = hRegion == 0 ? "none" : TextOf(Desktop.Regions.at(hRegion - 1));
    Desktop.Record("RedrawWindow " + NameOf(hWindow) + " " + TextOf(Rect) + " region " + strRegion +
                   " flags " + std::to_string(nFlags));
    return true;
}

bool AccessibleChildCount(WindowHandle hWindow, int32_t& nCount) {
    const VirtualWindow* pWindow = FindLiving(hWindow);
    if (pWindow == nullptr || pWindow->nAccessibleChildren < 0) return false;
    if (Desktop.Refuses(__func__)) return false;
    nCount = pWindow->nAccessibleChildren;
    return true;
}

void VisitChildWindows(WindowHandle hParent, const std::function<bool(WindowHandle)>& Visit) {
    if (FindLiving(hParent) == nullptr || Desktop.Refuses(__func__)) return;
    ChildLists Lists;
    for (const VirtualWindow& Window : Desktop.Windows)
        Lists[Window.hParent].push_back(Window.hWindow);
    VisitBelow(Lists, hParent, Visit);
}

}  // namespace taviro::platform
