// SPDX-License-Identifier: MIT
#include "platform/win32/dialog_view.h"

#include "platform/failure.h"
#include "platform/metrics.h"
#include "platform/unneeded.h"
#include "platform/win32/control_view.h"
#include "platform/win32/dialog_template.h"
#include "platform/win32/edit_view.h"
#include "platform/win32/failure.h"
#include "platform/win32/visual_styles.h"
#include "platform/win32/window_placement.h"

namespace taviro::platform::win32 {

namespace {

/// A dialog that begins with a text to read, with nothing to fill in before it, starts on its
/// button. Returns false, and leaves the first focus to the dialog manager, in every other dialog.
bool FocusDefaultButton(HWND hDialog) {
    const HWND hFirst = GetNextDlgTabItem(hDialog, nullptr, FALSE);
    const LRESULT nDefault = SendMessageW(hDialog, DM_GETDEFID, 0, 0);
    const LRESULT nKind = SendMessageW(hFirst, WM_GETDLGCODE, 0, 0);
    const bool bReadOnly = (GetWindowLongPtrW(hFirst, GWL_STYLE) & ES_READONLY) != 0;
    if ((nKind & DLGC_HASSETSEL) == 0 || !bReadOnly || HIWORD(nDefault) != DC_HASDEFID)
        return false;
    Unneeded(SetFocus(GetDlgItem(hDialog, LOWORD(nDefault))));  // had no focus before
    return true;
}

}  // namespace

DialogView::DialogView(forms::Form& Shown) : m_Form(Shown) {}

bool DialogView::Create(HWND hOwner) {
    const std::wstring& strName = m_Form.Controls().front()->strName;
    const std::vector<uint32_t> Layout = LoadDialogTemplate(strName.c_str());
    if (Layout.empty()) return false;
    const VisualStyles Look;
    const HWND hMade = CreateDialogIndirectParamW(
        GetModuleHandleW(nullptr), reinterpret_cast<LPCDLGTEMPLATEW>(Layout.data()), hOwner,
        OnMessage, reinterpret_cast<LPARAM>(this));
    return OrReport(hMade, "CreateDialogIndirectParam") != nullptr;
}

void DialogView::Destroy() {
    if (m_hWindow != nullptr) OrReport(DestroyWindow(m_hWindow), "DestroyWindow(dialog)");
}

void DialogView::Push(forms::Control& Changed, forms::Aspect nAspect) {
    if (m_hWindow == nullptr) return;
    for (TimerView& Timer : m_Timers) {
        if (&Timer.Model() == &Changed) return Timer.Push(m_hWindow);
    }
    PushChange(m_hWindow, Changed, nAspect);
}

void DialogView::PushFrame(forms::Aspect nAspect) const {
    if (m_hWindow == nullptr) return;
    if (nAspect == forms::Aspect::Text && !m_Form.Caption.Get().empty()) {
        OrReport(SetWindowTextW(m_hWindow, m_Form.Caption.Get().c_str()), "SetWindowText(dialog)");
    }
    if (nAspect != forms::Aspect::Geometry) return;
    RECT Place{};
    if (!OrReport(GetWindowRect(m_hWindow, &Place), "GetWindowRect(dialog)")) return;
    const int32_t nHeight = m_Form.Height / TwipsPerPixelY();
    if (nHeight > 0) Place.bottom = Place.top + nHeight;
    const bool bPlaced = m_Form.Left != forms::UNPLACED && m_Form.Top != forms::UNPLACED;
    const UINT nMove = bPlaced ? 0 : SWP_NOMOVE;
    OrReport(SetWindowPos(m_hWindow, nullptr, m_Form.Left / TwipsPerPixelX(),
                          m_Form.Top / TwipsPerPixelY(), Place.right - Place.left,
                          Place.bottom - Place.top, nMove | SWP_NOZORDER | SWP_NOACTIVATE),
             "SetWindowPos(dialog)");
}

void DialogView::OnInit() {
    int32_t nTimerId = 0;
    m_Timers.clear();
    for (forms::Control* pControl : m_Form.Controls()) {
        if (pControl->Kind() == forms::ControlKind::Timer) {
            m_Timers.emplace_back(static_cast<forms::Timer&>(*pControl),
                                  static_cast<UINT_PTR>(++nTimerId));
        } else if (pControl->nId != 0) {
            PullGeometry(m_hWindow, *pControl);
            PushControl(m_hWindow, *pControl);
            WatchText(*pControl);
        }
    }
    PushFrame(forms::Aspect::Text);
    if (m_Form.OnLaidOut) m_Form.OnLaidOut();
    PushFrame(forms::Aspect::Geometry);
    const bool bPlaced = m_Form.Left != forms::UNPLACED && m_Form.Top != forms::UNPLACED;
    if (!bPlaced) CentreOnWorkArea(m_hWindow);
    KeepOnScreen(m_hWindow);
    StartTimers();
}

void DialogView::WatchText(forms::Control& Shown) const {
    if (Shown.Kind() != forms::ControlKind::TextBox) return;
    auto& Box = static_cast<forms::TextBox&>(Shown);
    const HWND hEdit = GetDlgItem(m_hWindow, Box.nId);
    if (Box.Admit && hEdit != nullptr) WatchInsertions(hEdit, Box);
}

void DialogView::StartTimers() {
    for (TimerView& Timer : m_Timers)
        Timer.Push(m_hWindow);
}

forms::Control* DialogView::ControlOf(int nId) const {
    for (forms::Control* pControl : m_Form.Controls()) {
        if (HasId(*pControl, nId)) return pControl;
    }
    return nullptr;
}

void DialogView::OnCommand(int nId, WORD nCode) {
    if (forms::Control* pControl = ControlOf(nId)) {
        OnNotification(m_hWindow, *pControl, nId, nCode);
    } else if (nId == IDCANCEL) {
        m_Form.Unload();  // Escape or the closing cross in a dialog without a cancel button
    }
}

bool DialogView::Handle(UINT nMessage, WPARAM wParam, LPARAM lParam) {
    switch (nMessage) {
        case WM_COMMAND:
            OnCommand(LOWORD(wParam), HIWORD(wParam));
            return true;
        case WM_HSCROLL: {
            const HWND hBar = reinterpret_cast<HWND>(lParam);
            forms::Control* pBar = ControlOf(GetDlgCtrlID(hBar));
            if (pBar != nullptr && pBar->Kind() == forms::ControlKind::ScrollBar) {
                OnScroll(m_hWindow, static_cast<forms::ScrollBar&>(*pBar), LOWORD(wParam));
            }
            return true;
        }
        case WM_TIMER:
            // By index: the handler may close the window, and a later one makes the timers anew.
            // NOLINTNEXTLINE(modernize-loop-convert)
            for (size_t i = 0; i < m_Timers.size(); ++i) {
                if (m_Timers[i].Id() == wParam) m_Timers[i].OnTimer(m_hWindow);
            }
            return true;
        case WM_ACTIVATE:
            LOWORD(wParam) == WA_INACTIVE ? m_Form.Deactivate() : m_Form.Activate();
            return false;
        case WM_DESTROY:
            m_hWindow = nullptr;
            return true;
        default:
            return false;
    }
}

INT_PTR CALLBACK DialogView::OnMessage(HWND hDialog, UINT nMessage, WPARAM wParam,
                                       LPARAM lParam) noexcept {
    try {
        if (nMessage == WM_INITDIALOG) {
            auto* pView = reinterpret_cast<DialogView*>(lParam);
            pView->m_hWindow = hDialog;
            Unneeded(SetWindowLongPtrW(hDialog, DWLP_USER, lParam));  // was 0
            pView->OnInit();
            return FocusDefaultButton(hDialog) ? FALSE : TRUE;
        }
        auto* pView = reinterpret_cast<DialogView*>(GetWindowLongPtrW(hDialog, DWLP_USER));
        if (pView == nullptr || pView->m_hWindow != hDialog) return FALSE;
        return pView->Handle(nMessage, wParam, lParam) ? TRUE : FALSE;
    } catch (...) {
        ReportException("message of a dialog");
        return FALSE;  // one step of the program failed; the dialog goes on
    }
}

}  // namespace taviro::platform::win32
