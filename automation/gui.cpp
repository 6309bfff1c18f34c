// SPDX-License-Identifier: MIT
#include "automation/gui.h"

#include "actions/foreground_watch.h"
#include "actions/key_action.h"
#include "actions/key_synthesis.h"
#include "actions/mouse_synthesis.h"
#include "core/main_menu.h"
#include "forms/main_form.h"
#include "platform/main_window.h"
#include "platform/messages.h"
#include "platform/text.h"
#include "platform/unneeded.h"
#include "platform/window_handling.h"

namespace taviro {

namespace {

using forms::FormState;
using forms::FrmMain;
using platform::ScreenPoint;
using platform::ScreenRect;
using platform::WindowHandle;

// What the window grows by, in pixels, over its inner size.
constexpr int32_t EXTRA_WIDTH = 5;
constexpr int32_t EXTRA_HEIGHT = 25;
constexpr int32_t TITLE_BUFFER_LENGTH = 250;  // characters, the closing NUL included
constexpr int32_t CLICK_OFFSET = 2;           // pixels inside the child's corner
constexpr uint32_t REDRAW_ALL = platform::REDRAW_INVALIDATE | platform::REDRAW_INTERNAL_PAINT |
                                platform::REDRAW_ALL_CHILDREN | platform::REDRAW_UPDATE_NOW |
                                platform::REDRAW_FRAME;
static_assert(REDRAW_ALL == 1411);

// Before the start-up and once the shutdown has begun there is no program to act on; above all, no
// call may load the main window anew.
CallOutcome Admit() {
    return FrmMain->IsLoaded() && !FrmMain->IsUnloading() ? CallOutcome::Done : CallOutcome::Ended;
}

// The same for calls that disturb what the program itself is doing: a key or a click would fall
// between the keys of a cell, a dialog would vanish with its minimised owner, and unloading would
// take away what the interrupted handler still uses.
CallOutcome AdmitAct() {
    const CallOutcome nOutcome = Admit();
    return nOutcome == CallOutcome::Done && !platform::IsOutermostLoop() ? CallOutcome::Busy
                                                                         : nOutcome;
}

// The system's 32-bit handles are extended by their sign.
WindowHandle ToHandle(int32_t hWindow) {
    return static_cast<WindowHandle>(static_cast<intptr_t>(hWindow));
}

int32_t ToNumber(WindowHandle hWindow) {
    return static_cast<int32_t>(hWindow);
}

// The first child whose class has this name, in whatever case, and that IsWanted accepts; 0 when
// none. Both kinds of search for a child follow this rule.
WindowHandle FindChild(WindowHandle hParent, const std::wstring& strName,
                       const std::function<bool(WindowHandle)>& IsWanted) {
    const std::wstring strWanted = platform::ToUpper(strName);
    WindowHandle hFound = 0;
    platform::VisitChildWindows(hParent, [&](WindowHandle hChild) {
        const std::wstring strClass = platform::ToUpper(platform::WindowClassName(hChild));
        // A child that has gone meanwhile has no class: it is no match for an empty name.
        if (!strClass.empty() && strClass == strWanted && IsWanted(hChild)) hFound = hChild;
        return hFound == 0;
    });
    return hFound;
}

// Repaints a rectangle, and only it.
void Redraw(WindowHandle hWindow, const ScreenRect& Rect) {
    const platform::RegionHandle hRegion = platform::CreateRectRegion(Rect);
    if (hRegion == 0) return;  // without a region the system would repaint something else
    Unneeded(platform::RedrawWindowPart(hWindow, Rect, hRegion, REDRAW_ALL));
    platform::DeleteRegion(hRegion);
}

}  // namespace

CallOutcome GUI::ShowDebugWin() const {
    const CallOutcome nOutcome = Admit();
    if (nOutcome != CallOutcome::Done) return nOutcome;
    const WindowHandle hActive = GetActiveWindowHandle();
    FrmMain->Load();
    FrmMain->WindowState = FormState::Normal;  // a minimised window could not be placed
    Unneeded(platform::SetWindowPosition(platform::MainWindowHandle(),
                                         {.hInsertAfter = platform::INSERT_TOPMOST,
                                          .nLeft = 0,
                                          .nTop = 0,
                                          .nWidth = FrmMain->nScaleWidth + EXTRA_WIDTH,
                                          .nHeight = FrmMain->nScaleHeight + EXTRA_HEIGHT,
                                          .nFlags = platform::POSITION_FLAG_NOACTIVATE}));
    FrmMain->Visible = true;
    ForceForeground(hActive);
    return nOutcome;
}

CallOutcome GUI::MinDebugWin() const {
    const CallOutcome nOutcome = AdmitAct();
    if (nOutcome == CallOutcome::Done) FrmMain->WindowState = FormState::Minimised;
    return nOutcome;
}

CallOutcome GUI::HideDebugWin() const {
    const CallOutcome nOutcome = Admit();
    if (nOutcome == CallOutcome::Done) FrmMain->Visible = false;
    return nOutcome;
}

CallOutcome GUI::SetCaption(const std::wstring& strText) const {
    const CallOutcome nOutcome = Admit();
    if (nOutcome == CallOutcome::Done) FrmMain->Caption = strText;
    return nOutcome;
}

CallOutcome GUI::LogDebugWin(const std::wstring& /*strText*/) const {
    const CallOutcome nOutcome = Admit();
    // Within a wait or a dialog messages run anyway, and calls would pile up on each other here.
    if (nOutcome == CallOutcome::Done && platform::IsOutermostLoop()) {
        platform::RunPendingMessages();
    }
    return nOutcome;
}

CallOutcome GUI::ClickOnWindow(const std::wstring& strTitle, const std::wstring& strChildName,
                               int32_t& nResult) const {
    nResult = 0;
    const CallOutcome nOutcome = AdmitAct();
    if (nOutcome != CallOutcome::Done) return nOutcome;
    const WindowHandle hTop = platform::FindWindowByTitle(strTitle);
    if (hTop == 0) return nOutcome;
    ScreenRect Rect;
    if (platform::WindowRect(hTop, Rect)) {
        Unneeded(platform::SetPointer({.nX = Rect.nLeft, .nY = Rect.nTop}));
    }
    // A child that is hidden, covered or gone meanwhile has no place to click on: the click would
    // reach whatever else lies there.
    ScreenPoint Place;
    const WindowHandle hChild = FindChild(hTop, strChildName, [&](WindowHandle hFound) {
        if (!platform::WindowRect(hFound, Rect)) return false;
        Place = {.nX = Rect.nLeft + CLICK_OFFSET, .nY = Rect.nTop + CLICK_OFFSET};
        return platform::IsReachedAt(hFound, Place);
    });
    if (hChild == 0) return nOutcome;
    Unneeded(platform::SetPointer({.nX = Rect.nLeft, .nY = Rect.nTop}));
    MouseClickAt(Place.nX, Place.nY, false);
    nResult = 1;
    return nOutcome;
}

CallOutcome GUI::VBS_FindWindow(const std::wstring& strTitle, const std::wstring& strClass,
                                int32_t& hResult) const {
    hResult = 0;
    const CallOutcome nOutcome = Admit();
    if (nOutcome != CallOutcome::Done) return nOutcome;
    if (!strTitle.empty()) hResult = ToNumber(platform::FindTopWindow(L"", strTitle));
    if (!strClass.empty()) hResult = ToNumber(platform::FindTopWindow(strClass, L""));
    return nOutcome;
}

CallOutcome GUI::VBS_GetTitle(int32_t hWindow, std::wstring& strResult) const {
    strResult.clear();
    const CallOutcome nOutcome = Admit();
    if (nOutcome != CallOutcome::Done) return nOutcome;
    const std::wstring strTitle = platform::WindowTitle(ToHandle(hWindow), TITLE_BUFFER_LENGTH);
    strResult = strTitle.substr(0, strTitle.find(L'\0'));
    return nOutcome;
}

CallOutcome GUI::VBS_UpdateWindow(int32_t hWindow) const {
    const CallOutcome nOutcome = Admit();
    if (nOutcome != CallOutcome::Done) return nOutcome;
    ScreenRect Rect;
    if (!platform::WindowRect(ToHandle(hWindow), Rect)) return nOutcome;
    ScreenPoint First{.nX = Rect.nLeft, .nY = Rect.nTop};
    ScreenPoint Last{.nX = Rect.nRight, .nY = Rect.nBottom};
    Unneeded(platform::ScreenToClientPoint(ToHandle(hWindow), First));
    Unneeded(platform::ScreenToClientPoint(ToHandle(hWindow), Last));
    Redraw(ToHandle(hWindow),
           {.nLeft = First.nX, .nTop = First.nY, .nRight = Last.nX, .nBottom = Last.nY});
    return nOutcome;
}

CallOutcome GUI::VBS_UpdateFrame(int32_t nLeft, int32_t nTop, int32_t nRight,
                                 int32_t nBottom) const {
    const CallOutcome nOutcome = Admit();
    if (nOutcome == CallOutcome::Done) {
        Redraw(0, {.nLeft = nLeft, .nTop = nTop, .nRight = nRight, .nBottom = nBottom});
    }
    return nOutcome;
}

CallOutcome GUI::VBS_GetChildNum(int32_t hWindow, int32_t& nResult) const {
    nResult = 0;
    const CallOutcome nOutcome = Admit();
    // Without an answer the result stays 0.
    if (nOutcome == CallOutcome::Done) {
        Unneeded(platform::AccessibleChildCount(ToHandle(hWindow), nResult));
    }
    return nOutcome;
}

CallOutcome GUI::VBS_GetChild(int32_t hWindow, const std::wstring& strName,
                              int32_t& hResult) const {
    hResult = 0;
    const CallOutcome nOutcome = Admit();
    if (nOutcome != CallOutcome::Done) return nOutcome;
    const auto IsAny = [](WindowHandle) { return true; };
    hResult = ToNumber(FindChild(ToHandle(hWindow), strName, IsAny));
    return nOutcome;
}

CallOutcome GUI::KeyPress(int32_t nScanCode, int32_t nModifier) const {
    const CallOutcome nOutcome = AdmitAct();
    if (nOutcome != CallOutcome::Done) return nOutcome;
    const KeyAction Underway;
    const auto nModifierVk = static_cast<uint16_t>(nModifier);
    if (nModifier > 0) KeyDownVk(nModifierVk);
    KeyTapScan(static_cast<uint16_t>(nScanCode));
    if (nModifier > 0) KeyUpVk(nModifierVk);
    return nOutcome;
}

CallOutcome GUI::Quit() const {
    const CallOutcome nOutcome = AdmitAct();
    if (nOutcome == CallOutcome::Done) UnloadForm(*FrmMain);
    return nOutcome;
}

}  // namespace taviro
