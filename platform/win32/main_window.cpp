// SPDX-License-Identifier: MIT
#include "platform/main_window.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <memory>

#include "platform/failure.h"
#include "platform/messages.h"
#include "platform/unneeded.h"
#include "platform/win32/child_controls.h"
#include "platform/win32/driven_window.h"
#include "platform/win32/failure.h"
#include "platform/win32/frame_focus.h"
#include "platform/win32/main_window_class.h"
#include "platform/win32/map_painter.h"
#include "platform/win32/menu_view.h"
#include "platform/win32/numbers.h"
#include "platform/win32/screen.h"
#include "platform/win32/timer_view.h"
#include "platform/win32/window_placement.h"

namespace taviro::platform {

namespace {

using forms::Aspect;
using win32::OrReport;

constexpr DWORD STYLE =
    WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX | WS_CLIPCHILDREN;
// Never the active window by itself, whatever a window manager does with new windows; on the
// taskbar all the same.
constexpr DWORD EXTENDED_STYLE = WS_EX_TOPMOST | WS_EX_NOACTIVATE | WS_EX_APPWINDOW;
constexpr UINT MESSAGE_LABELS_CHANGED = WM_APP + 1;  // to ourselves: repaint what changed, once
constexpr UINT MESSAGE_SIZE_CHANGED = WM_APP + 2;    // to ourselves: a layout asks for another size
// A window manager may answer a size with an earlier one for this long; it gets the new one again.
constexpr DWORD LATE_ANSWER_MS = 500;
constexpr UINT_PTR POLL_TIMER_ID = 1;
constexpr UINT_PTR SCAN_TIMER_ID = 2;

/// The window and what it shows. The object outlives the window, because a handler of the form that
/// closes the window is still on its way back through here.
struct MainView {
    explicit MainView(forms::MainForm& Shown) : Form(Shown), Children(Shown) {}

    forms::MainForm& Form;
    HWND hWindow = nullptr;
    win32::MapPainter Painter;
    win32::MenuView Menu;
    win32::FrameFocus Focus;
    win32::ChildControls Children;
    std::array<win32::TimerView, 2> Timers{win32::TimerView{Form.Timer1, POLL_TIMER_ID},
                                           win32::TimerView{Form.ScanTimer, SCAN_TIMER_ID}};
    bool bPlaced = false;      ///< has its place on the screen
    bool bFitting = false;     ///< its size is being found
    bool bFitPending = false;  ///< the form asked for a size that the window has yet to take
    DWORD nAskedAt = 0;        ///< tick count when the form last asked for a size
    bool bClosing = false;     ///< closed by the program, whose message loop goes on
};
std::unique_ptr<MainView> View;

// From the form to the window.

void FitNow() {
    // A minimised window has no inner size; it is fitted when it is restored.
    if (IsIconic(View->hWindow) != FALSE) return;
    View->bFitPending = false;
    View->bFitting = true;  // the form hears of the size that results, not of the attempts
    win32::FitWindowToForm(View->hWindow, View->Form);
    RECT Inner{};
    if (GetClientRect(View->hWindow, &Inner) != FALSE) {
        win32::TellInnerSize(View->Form, {.cx = Inner.right, .cy = Inner.bottom});
    }
    View->bFitting = false;
}

void FitSoon() {
    if (View->bFitPending) return;  // asked for already
    View->bFitPending = true;
    if (!OrReport(PostMessageW(View->hWindow, MESSAGE_SIZE_CHANGED, 0, 0), "PostMessage(size)")) {
        FitNow();
    }
}

/// The layout, which goes on counting with the new size, sets width and height one after the other:
/// the form has them at once, the window follows in one step.
void PushSize() {
    if (View->bFitting) return;
    forms::MainForm& Form = View->Form;
    const SIZE Wanted =
        win32::WantedInnerSize(Form, {.cx = Form.nScaleWidth, .cy = Form.nScaleHeight});
    Form.SetScale(Wanted.cx, Wanted.cy);
    View->nAskedAt = GetTickCount();
    FitSoon();
}

bool IsMinimised() {
    return View->Form.WindowState == forms::FormState::Minimised;
}

/// Without the focus, which belongs to the program that is being driven.
void ShowInItsState() {
    // Returns the earlier visibility.
    Unneeded(ShowWindow(View->hWindow, IsMinimised() ? SW_SHOWMINNOACTIVE : SW_SHOWNOACTIVATE));
}

/// A hidden window takes its state when it is shown.
void PushState() {
    if (View->Form.Visible && IsMinimised() != (IsIconic(View->hWindow) != FALSE)) ShowInItsState();
}

void RemoveWindow() {
    OrReport(DestroyWindow(View->hWindow), "DestroyWindow");
}

void PushVisibility() {
    if (View->Form.Visible) {
        if (View->bFitPending) FitNow();
        if (!View->bPlaced) win32::PlaceAtStart(View->hWindow);
        View->bPlaced = true;
        ShowInItsState();
        return;
    }
    Unneeded(ShowWindow(View->hWindow, SW_HIDE));
    if (!View->Form.IsLoaded()) RemoveWindow();  // hidden because it is unloaded
}

void PushFrame(Aspect nAspect) {
    if (nAspect == Aspect::Geometry) PushSize();
    if (nAspect == Aspect::Visibility) PushVisibility();
    if (nAspect == Aspect::State) PushState();
    if (nAspect == Aspect::Unloaded) RemoveWindow();
    // A refused title leaves the earlier one.
    if (nAspect == Aspect::Text) {
        OrReport(SetWindowTextW(View->hWindow, View->Form.Caption.Get().c_str()), "SetWindowText");
    }
}

void RepaintLater(const forms::Label& Changed) {
    if (!View->Painter.Note(Changed)) return;  // asked for already
    if (!OrReport(PostMessageW(View->hWindow, MESSAGE_LABELS_CHANGED, 0, 0),
                  "PostMessage(labels)")) {
        Unneeded(View->Painter.TakeStale());
        OrReport(InvalidateRect(View->hWindow, nullptr, FALSE), "InvalidateRect");
    }
}

void PushTimer(const forms::Control& Changed) {
    for (win32::TimerView& Timer : View->Timers) {
        if (&Timer.Model() == &Changed) Timer.Push(View->hWindow);
    }
}

void OnMainFormChange(forms::Control& Changed, Aspect nAspect) {
    if (!View || View->hWindow == nullptr) return;
    switch (Changed.Kind()) {
        case forms::ControlKind::Form:
            return PushFrame(nAspect);
        case forms::ControlKind::Label:
            if (&Changed == &View->Form.Label2) return;  // transparent: nothing to see
            return RepaintLater(static_cast<const forms::Label&>(Changed));
        case forms::ControlKind::MenuEntry:
            View->Menu.Push(static_cast<const forms::MenuEntry&>(Changed));
            // Only the bar itself is ever on screen here.
            OrReport(DrawMenuBar(View->hWindow), "DrawMenuBar");
            return;
        case forms::ControlKind::Timer:
            return PushTimer(Changed);
        case forms::ControlKind::TextBox:
        case forms::ControlKind::ListBox:
            return View->Children.Push(Changed);
        case forms::ControlKind::CheckBox:
        case forms::ControlKind::OptionGroup:
        case forms::ControlKind::ComboBox:
        case forms::ControlKind::ScrollBar:
        case forms::ControlKind::Button:
        case forms::ControlKind::GroupFrame:
            return;  // the main window has none
    }
}

// From the window to the form.

void OnPaint() {
    PAINTSTRUCT Paint{};
    const HDC hDc = BeginPaint(View->hWindow, &Paint);
    if (OrReport(hDc, "BeginPaint") == nullptr) return;
    View->Painter.Paint(hDc, Paint.rcPaint, View->Form);
    Unneeded(EndPaint(View->hWindow, &Paint));  // always succeeds
}

void OnLabelsChanged() {
    for (const RECT& Stale : View->Painter.TakeStale()) {
        OrReport(InvalidateRect(View->hWindow, &Stale, FALSE), "InvalidateRect");
    }
}

void OnSize(WPARAM nKind, LPARAM nSize) {
    if (View->Form.Visible) {
        View->Form.WindowState =
            nKind == SIZE_MINIMIZED ? forms::FormState::Minimised : forms::FormState::Normal;
    }
    if (nKind == SIZE_MINIMIZED || View->bFitting) return;
    if (View->bFitPending) return FitNow();
    if (GetTickCount() - View->nAskedAt < LATE_ANSWER_MS) return FitSoon();
    View->bFitting = true;
    win32::TellInnerSize(View->Form, {.cx = LOWORD(nSize), .cy = HIWORD(nSize)});
    View->bFitting = false;
}

void OnCommand(WPARAM wParam, LPARAM lParam) {
    if (lParam != 0) {
        View->Children.OnNotification(win32::ToHwnd(static_cast<uintptr_t>(lParam)),
                                      HIWORD(wParam));
    } else if (forms::MenuEntry* pEntry = View->Menu.EntryOf(LOWORD(wParam))) {
        pEntry->Click();
    }
}

void OnTimer(WPARAM nId) {
    win32::Driven.Note();
    for (win32::TimerView& Timer : View->Timers) {
        if (Timer.Id() == nId) Timer.OnTimer(View->hWindow);
    }
}

void OnClose() {
    // Unloading destroys the window. A second request while it runs changes nothing.
    if (View->Form.IsLoaded()) return View->Form.Unload();
    RemoveWindow();
}

void OnDestroy() {
    const bool bQuit = !View->bClosing;
    View->hWindow = nullptr;
    if (bQuit) QuitMessageLoop(0);
}

void SetScale(Scale Monitor) {
    win32::MainWindowScale = Monitor;
    View->Painter.SetScale(Monitor);
}

/// Another scale, or another monitor. The window comes where the system proposes, at its own size.
void OnScale(WORD nDpi, LPARAM lParam) {
    SetScale({.nDpi = std::max<int32_t>(nDpi, LAYOUT_DPI)});
    View->Children.SetScale(win32::MainWindowScale);
    const RECT& Proposed = *reinterpret_cast<const RECT*>(lParam);
    OrReport(SetWindowPos(View->hWindow, nullptr, Proposed.left, Proposed.top, 0, 0,
                          SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE),
             "SetWindowPos(scale)");
    FitNow();
    OrReport(InvalidateRect(View->hWindow, nullptr, FALSE), "InvalidateRect");
}

/// Returns whether the message was one of ours; nResult is its result then.
bool HandleMouse(UINT nMessage, WPARAM wParam, LRESULT& nResult) {
    forms::Label& Surface = View->Form.Label2;
    switch (nMessage) {
        case WM_MOUSEACTIVATE:
            nResult = MA_NOACTIVATE;  // the application being driven keeps the focus
            return true;
        case WM_LBUTTONDOWN:
            Surface.Press(forms::MouseButton::Left);
            return true;
        case WM_RBUTTONDOWN:
            Surface.Press(forms::MouseButton::Right);
            return true;
        case WM_LBUTTONUP:
            Surface.Release(forms::MouseButton::Left);
            return true;
        case WM_RBUTTONUP:
            Surface.Release(forms::MouseButton::Right);
            return true;
        case WM_MOUSEMOVE:
            if ((wParam & (MK_LBUTTON | MK_RBUTTON)) == 0) Surface.ForgetPress();
            return false;
        default:
            return false;
    }
}

bool HandleMessage(UINT nMessage, WPARAM wParam, LPARAM lParam, LRESULT& nResult) {
    View->Focus.Handle(View->hWindow, nMessage, wParam, lParam);
    switch (nMessage) {
        case WM_PAINT:
            OnPaint();
            return true;
        case WM_ERASEBKGND:
            nResult = TRUE;  // painting fills the background
            return true;
        case MESSAGE_LABELS_CHANGED:
            OnLabelsChanged();
            return true;
        case MESSAGE_SIZE_CHANGED:
            if (View->bFitPending) FitNow();
            return true;
        case WM_SIZE:
            OnSize(wParam, lParam);
            return true;
        case WM_GETMINMAXINFO:
            // The window may become as narrow as a map of one column.
            reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {.x = 1, .y = 1};
            return true;
        case WM_DPICHANGED:
            OnScale(LOWORD(wParam), lParam);
            return true;
        case WM_SETTINGCHANGE:  // among others, a taskbar was moved
        case WM_DISPLAYCHANGE:
            win32::KeepOnScreen(View->hWindow);
            return false;
        case WM_COMMAND:
            OnCommand(wParam, lParam);
            return true;
        case WM_TIMER:
            OnTimer(wParam);
            return true;
        case WM_QUERYENDSESSION:
            nResult = TRUE;
            return true;
        case WM_ENDSESSION:
            if (wParam != FALSE) View->Form.Unload();
            return true;
        case WM_CLOSE:
            OnClose();
            return true;
        case WM_DESTROY:
            OnDestroy();
            return true;
        default:
            return HandleMouse(nMessage, wParam, nResult);
    }
}

LRESULT CALLBACK OnMessage(HWND hWindow, UINT nMessage, WPARAM wParam, LPARAM lParam) noexcept {
    LRESULT nResult = 0;
    try {
        const bool bOurs = View && hWindow == View->hWindow;
        if (bOurs && HandleMessage(nMessage, wParam, lParam, nResult)) return nResult;
    } catch (...) {
        ReportException("message of the main window");
        return 0;  // one step of the program failed; the window goes on
    }
    return DefWindowProcW(hWindow, nMessage, wParam, lParam);
}

bool MakeWindow() {
    const HMENU hMenu = View->Menu.Build(View->Form.MenuBar);
    if (hMenu == nullptr) return false;
    View->hWindow = OrReport(
        CreateWindowExW(EXTENDED_STYLE, win32::MAIN_CLASS_NAME, View->Form.Caption.Get().c_str(),
                        STYLE, 0, 0, 0, 0, nullptr, hMenu, GetModuleHandleW(nullptr), nullptr),
        "CreateWindowEx");
    if (View->hWindow == nullptr) {
        Unneeded(DestroyMenu(hMenu));  // no window took it
        return false;
    }
    SetScale(win32::ScaleOf(View->hWindow));
    return View->Children.Create(View->hWindow);
}

}  // namespace

bool OpenMainWindow(forms::MainForm& Form) {
    CloseMainWindow();
    if (!win32::RegisterMainClass(OnMessage)) return false;
    View = std::make_unique<MainView>(Form);
    if (!MakeWindow()) {
        CloseMainWindow();
        return false;
    }
    Form.OnShowChange = OnMainFormChange;
    if (Form.Width > 0 || Form.Height > 0) PushSize();
    for (win32::TimerView& Timer : View->Timers)
        Timer.Push(View->hWindow);
    if (Form.Visible) PushVisibility();
    return true;
}

void CloseMainWindow() {
    if (!View || View->hWindow == nullptr) return;
    View->bClosing = true;
    View->Form.OnShowChange = nullptr;
    // What showed it stays until the next window, because a handler that closes it is still on its
    // way back through there.
    RemoveWindow();
}

WindowHandle MainWindowHandle() {
    return View ? win32::ToNumber(View->hWindow) : 0;
}

}  // namespace taviro::platform
