// SPDX-License-Identifier: MIT
#include "platform/win32/child_controls.h"

#include <algorithm>
#include <utility>

#include "platform/failure.h"
#include "platform/messages.h"
#include "platform/unneeded.h"
#include "platform/win32/failure.h"
#include "platform/win32/screen.h"
#include "platform/win32/window_text.h"

namespace taviro::platform::win32 {

namespace {

constexpr int LIST_ID = 1;
constexpr int EDIT_ID = 2;

// The system's own procedure of list boxes, which ours stands before; the same for every list box.
WNDPROC pSystemListProcedure = nullptr;

HWND MakeChild(HWND hParent, const wchar_t* pClass, DWORD nStyle, int nId) {
    const auto hId = reinterpret_cast<HMENU>(static_cast<INT_PTR>(nId));  // a child's number
    return OrReport(CreateWindowExW(WS_EX_CLIENTEDGE, pClass, L"", WS_CHILD | nStyle, 0, 0, 0, 0,
                                    hParent, hId, GetModuleHandleW(nullptr), nullptr),
                    "CreateWindowEx(child)");
}

/// Selects the clicked entry without taking the focus, which the system's own procedure would do.
LRESULT CALLBACK OnListMessage(HWND hList, UINT nMessage, WPARAM wParam, LPARAM lParam) noexcept {
    if (nMessage != WM_LBUTTONDOWN && nMessage != WM_LBUTTONDBLCLK) {
        return CallWindowProcW(pSystemListProcedure, hList, nMessage, wParam, lParam);
    }
    const LRESULT nHit = SendMessageW(hList, LB_ITEMFROMPOINT, 0, lParam);
    const bool bOutside = HIWORD(nHit) != 0;
    const WPARAM nItem = LOWORD(nHit);
    if (!bOutside && SendMessageW(hList, LB_SETCURSEL, nItem, 0) != LB_ERR) {
        SendMessageW(GetParent(hList), WM_COMMAND, MAKEWPARAM(LIST_ID, LBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(hList));
    }
    return 0;
}

}  // namespace

bool ChildControls::Create(HWND hParent) {
    m_hList =
        MakeChild(hParent, L"LISTBOX", WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT, LIST_ID);
    m_hEdit = MakeChild(hParent, L"EDIT", ES_AUTOHSCROLL, EDIT_ID);
    if (m_hList == nullptr || m_hEdit == nullptr) return false;
    m_pTaker = std::make_shared<const HWND>(m_hEdit);
    pSystemListProcedure = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(m_hList, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(OnListMessage)));
    SetScale(MainWindowScale);
    return true;
}

void ChildControls::SetScale(Scale Monitor) {
    m_Scale = Monitor;
    // As easy to read as the status line, whose place the list takes. The list has its new font
    // before the earlier one goes.
    UniqueFont hFont = MakeScreenFont(m_Form.Label1.TextFont, m_Scale);
    SendMessageW(m_hList, WM_SETFONT, reinterpret_cast<WPARAM>(hFont.get()), TRUE);
    m_hFont = std::move(hFont);
    Push(m_Form.List1);
    Push(m_Form.txtCmd);
}

void ChildControls::Push(const forms::Control& Changed) {
    if (&Changed == &m_Form.List1) {
        PushFrame(m_hList, Changed);
        PushList();
    } else if (&Changed == &m_Form.txtCmd) {
        PushFrame(m_hEdit, Changed);
        PushText();
    }
}

void ChildControls::PushFrame(HWND hChild, const forms::Control& Changed) const {
    const UINT nShow = Changed.Visible ? SWP_SHOWWINDOW : SWP_HIDEWINDOW;
    // A refused move leaves the control where it was; its content is still right.
    const int nLeft = m_Scale.ToMonitor(Changed.Left);
    const int nTop = m_Scale.ToMonitor(Changed.Top);
    OrReport(SetWindowPos(hChild, HWND_TOP, nLeft, nTop,
                          m_Scale.ToMonitor(Changed.Left + Changed.Width) - nLeft,
                          m_Scale.ToMonitor(Changed.Top + Changed.Height) - nTop,
                          SWP_NOACTIVATE | nShow),
             "SetWindowPos(child)");
    const BOOL bEnabled = Changed.Enabled ? TRUE : FALSE;
    Unneeded(EnableWindow(hChild, bEnabled));  // returns the earlier state
}

void ChildControls::PushList() {
    const std::vector<std::wstring>& Items = m_Form.List1.Items;
    const bool bLonger = Items.size() >= m_ShownItems.size() &&
                         std::equal(m_ShownItems.begin(), m_ShownItems.end(), Items.begin());
    if (!bLonger) {
        SendMessageW(m_hList, LB_RESETCONTENT, 0, 0);
        m_ShownItems.clear();
    }
    for (size_t i = m_ShownItems.size(); i < Items.size(); ++i) {
        // An entry that the control has no memory for is missing at the end, nothing else shifts.
        const LRESULT nAdded =
            SendMessageW(m_hList, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Items[i].c_str()));
        if (nAdded < 0) ReportFailure("entry of the choice list", CODE_OUT_OF_MEMORY);
    }
    m_ShownItems = Items;
    const int32_t nSelected = m_Form.List1.ListIndex;
    if (SendMessageW(m_hList, LB_GETCURSEL, 0, 0) != nSelected) {
        // -1 takes the selection away, for which the control returns its error number.
        SendMessageW(m_hList, LB_SETCURSEL, static_cast<WPARAM>(nSelected), 0);
    }
}

void ChildControls::PushText() {
    if (WindowText(m_hEdit) == m_Form.txtCmd.Text.Get()) return;
    m_bPushing = true;  // the box notifies us, and nobody else wrote
    OrReport(SetWindowTextW(m_hEdit, m_Form.txtCmd.Text.Get().c_str()), "SetWindowText(txtCmd)");
    m_bPushing = false;
}

void ChildControls::PostText() const {
    std::wstring strText = WindowText(m_hEdit);
    if (strText.empty()) return;
    Post([&Box = m_Form.txtCmd, strText = std::move(strText),
          pTaker = std::weak_ptr<const HWND>(m_pTaker)] {
        const auto pBox = pTaker.lock();
        if (pBox != nullptr && IsWindow(*pBox) != FALSE) Box.Receive(strText);
    });
}

void ChildControls::OnNotification(HWND hChild, WORD nCode) {
    if (hChild == m_hEdit && nCode == EN_CHANGE && !m_bPushing) PostText();
    if (hChild == m_hList && nCode == LBN_SELCHANGE) {
        m_Form.List1.ListIndex = static_cast<int32_t>(SendMessageW(m_hList, LB_GETCURSEL, 0, 0));
    }
}

}  // namespace taviro::platform::win32
