// SPDX-License-Identifier: MIT
#include "platform/win32/window_placement.h"

#include <algorithm>

#include "platform/metrics.h"
#include "platform/win32/failure.h"
#include "platform/win32/screen.h"

namespace taviro::platform::win32 {

namespace {

constexpr UINT MOVE_ONLY = SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE;
// The width decides the menu's lines, and these the height: the second pass settles it.
constexpr int PASSES = 2;
constexpr LONG ROOM_FOR_MENU = 1000;  // pixels, in a rectangle that is only tried

LONG WidthOf(const RECT& Area) {
    return Area.right - Area.left;
}
LONG HeightOf(const RECT& Area) {
    return Area.bottom - Area.top;
}

RECT WorkArea(HWND hWindow) {
    MONITORINFO Info{};
    Info.cbSize = sizeof(Info);
    if (!OrReport(GetMonitorInfoW(MonitorFromWindow(hWindow, MONITOR_DEFAULTTONEAREST), &Info),
                  "GetMonitorInfo")) {
        return {.left = 0,
                .top = 0,
                .right = GetSystemMetrics(SM_CXSCREEN),
                .bottom = GetSystemMetrics(SM_CYSCREEN)};
    }
    return Info.rcWork;
}

/// Moves the window. A refusal leaves it where it was, which is where the user can see it.
void MoveTo(HWND hWindow, LONG nLeft, LONG nTop) {
    OrReport(SetWindowPos(hWindow, nullptr, nLeft, nTop, 0, 0, MOVE_ONLY), "SetWindowPos(move)");
}

/// What the form's height holds besides the inner height: its layout adds the same.
int32_t HeightAround() {
    return SystemMetric(Metric::MenuHeight) + SystemMetric(Metric::CaptionHeight) +
           2 * SystemMetric(Metric::FrameHeight);
}

/// The outer size that leaves the inner one, found by asking the window itself how it would divide
/// a rectangle: it knows its frames and the lines of its menu.
SIZE OuterSize(HWND hWindow, SIZE Inner) {
    SIZE Outer = Inner;
    for (int nPass = 0; nPass < PASSES; ++nPass) {
        Outer.cy += ROOM_FOR_MENU;
        RECT Divided{.left = 0, .top = 0, .right = Outer.cx, .bottom = Outer.cy};
        SendMessageW(hWindow, WM_NCCALCSIZE, FALSE, reinterpret_cast<LPARAM>(&Divided));
        Outer.cx += Inner.cx - WidthOf(Divided);
        Outer.cy += Inner.cy - HeightOf(Divided);
    }
    return Outer;
}

/// Larger than the work area, the window shows its beginning.
LONG Shifted(LONG nStart, LONG nLength, LONG nFirst, LONG nEnd) {
    return std::max(nFirst, std::min(nStart, nEnd - nLength));
}

/// Size and place in one step: a window manager answers each step, and an answer to an earlier one
/// would undo a later one. A refusal leaves the window as it was, which is reported then.
void SetPlace(HWND hWindow, const RECT& Outer, SIZE Size) {
    const RECT Work = WorkArea(hWindow);
    OrReport(SetWindowPos(hWindow, nullptr, Shifted(Outer.left, Size.cx, Work.left, Work.right),
                          Shifted(Outer.top, Size.cy, Work.top, Work.bottom), Size.cx, Size.cy,
                          SWP_NOZORDER | SWP_NOACTIVATE),
             "SetWindowPos(size)");
}

SIZE OnMonitor(Scale Monitor, SIZE Layout) {
    return {.cx = Monitor.ToMonitor(Layout.cx), .cy = Monitor.ToMonitor(Layout.cy)};
}

}  // namespace

SIZE WantedInnerSize(const forms::Form& Form, SIZE Present) {
    SIZE Wanted = Present;
    if (Form.Width > 0) Wanted.cx = Form.Width / TwipsPerPixelX();
    if (Form.Height > 0) Wanted.cy = std::max(0, Form.Height / TwipsPerPixelY() - HeightAround());
    return Wanted;
}

void TellInnerSize(forms::Form& Form, SIZE Inner) {
    const Scale Monitor = MainWindowScale;
    const int32_t nWidth = Monitor.ToLayout(Inner.cx);
    const int32_t nHeight = Monitor.ToLayout(Inner.cy);
    Form.Width = nWidth * TwipsPerPixelX();
    Form.Height = (nHeight + HeightAround()) * TwipsPerPixelY();
    Form.SetScale(nWidth, nHeight);
}

void FitWindowToForm(HWND hWindow, const forms::Form& Form) {
    for (int nPass = 0; nPass < PASSES; ++nPass) {
        RECT Outer{};
        RECT Inner{};
        if (GetWindowRect(hWindow, &Outer) == FALSE || GetClientRect(hWindow, &Inner) == FALSE) {
            return;
        }
        const SIZE Wanted =
            OnMonitor(MainWindowScale,
                      WantedInnerSize(Form, {.cx = Form.nScaleWidth, .cy = Form.nScaleHeight}));
        if (Inner.right == Wanted.cx && Inner.bottom == Wanted.cy) return;
        SIZE Size = OuterSize(hWindow, Wanted);
        if (nPass > 0) {  // it did otherwise than it said: correct what is seen
            Size = {.cx = Wanted.cx + WidthOf(Outer) - Inner.right,
                    .cy = Wanted.cy + HeightOf(Outer) - Inner.bottom};
        }
        SetPlace(hWindow, Outer, Size);
    }
}

void PlaceAtStart(HWND hWindow) {
    RECT Outer{};
    if (GetWindowRect(hWindow, &Outer) == FALSE) return;
    const RECT Work = WorkArea(nullptr);
    MoveTo(hWindow, std::max(Work.left, Work.right - WidthOf(Outer)), Work.top);
}

void CentreOnWorkArea(HWND hWindow) {
    RECT Outer{};
    if (GetWindowRect(hWindow, &Outer) == FALSE) return;
    const HWND hOwner = GetWindow(hWindow, GW_OWNER);
    const RECT Work = WorkArea(hOwner == nullptr ? hWindow : hOwner);
    MoveTo(hWindow, (Work.left + Work.right - WidthOf(Outer)) / 2,
           (Work.top + Work.bottom - HeightOf(Outer)) / 2);
}

void KeepOnScreen(HWND hWindow) {
    RECT Outer{};
    if (IsIconic(hWindow) != FALSE || GetWindowRect(hWindow, &Outer) == FALSE) return;
    const RECT Work = WorkArea(hWindow);
    const LONG nLeft = Shifted(Outer.left, WidthOf(Outer), Work.left, Work.right);
    const LONG nTop = Shifted(Outer.top, HeightOf(Outer), Work.top, Work.bottom);
    if (nLeft != Outer.left || nTop != Outer.top) MoveTo(hWindow, nLeft, nTop);
}

}  // namespace taviro::platform::win32
