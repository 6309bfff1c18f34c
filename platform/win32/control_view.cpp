// SPDX-License-Identifier: MIT
#include "platform/win32/control_view.h"

#include <algorithm>

#include "platform/failure.h"
#include "platform/unneeded.h"
#include "platform/win32/failure.h"
#include "platform/win32/window_text.h"

namespace taviro::platform::win32 {

namespace {

using forms::Aspect;

constexpr int32_t SCROLL_LINE = 1;
constexpr int32_t SCROLL_PAGE = 10;

/// The messages of the two kinds of lists, which differ in their numbers alone.
struct ListMessages {
    UINT nReset, nAdd, nGetSelection, nSetSelection;
};
constexpr ListMessages LIST_BOX{LB_RESETCONTENT, LB_ADDSTRING, LB_GETCURSEL, LB_SETCURSEL};
constexpr ListMessages COMBO_BOX{CB_RESETCONTENT, CB_ADDSTRING, CB_GETCURSEL, CB_SETCURSEL};

const ListMessages& MessagesOf(const forms::ListBox& List) {
    return dynamic_cast<const forms::ComboBox*>(&List) != nullptr ? COMBO_BOX : LIST_BOX;
}

void PushSelection(HWND hList, const forms::ListBox& List) {
    const ListMessages& Messages = MessagesOf(List);
    if (SendMessageW(hList, Messages.nGetSelection, 0, 0) == List.ListIndex) return;
    // -1 takes the selection away, for which the control returns its error number.
    SendMessageW(hList, Messages.nSetSelection, static_cast<WPARAM>(List.ListIndex.Get()), 0);
}

void PushItems(HWND hList, const forms::ListBox& List) {
    const ListMessages& Messages = MessagesOf(List);
    SendMessageW(hList, WM_SETREDRAW, FALSE, 0);
    SendMessageW(hList, Messages.nReset, 0, 0);
    for (const std::wstring& strItem : List.Items.Get()) {
        // An entry that the control has no memory for is missing at the end, nothing else shifts.
        const LRESULT nAdded =
            SendMessageW(hList, Messages.nAdd, 0, reinterpret_cast<LPARAM>(strItem.c_str()));
        if (nAdded < 0) ReportFailure("entry of a list", CODE_OUT_OF_MEMORY);
    }
    SendMessageW(hList, WM_SETREDRAW, TRUE, 0);
    OrReport(InvalidateRect(hList, nullptr, TRUE), "InvalidateRect(list)");
    PushSelection(hList, List);
}

void PushText(HWND hEdit, const std::wstring& strText) {
    // Writing notifies us, and we find the model's text unchanged then: no endless circle.
    if (WindowText(hEdit) == strText) return;
    DWORD nFrom = 0;
    DWORD nTo = 0;
    SendMessageW(hEdit, EM_GETSEL, reinterpret_cast<WPARAM>(&nFrom),
                 reinterpret_cast<LPARAM>(&nTo));
    OrReport(SetWindowTextW(hEdit, strText.c_str()), "SetWindowText(text box)");
    SendMessageW(hEdit, EM_SETSEL, nTo,
                 static_cast<LPARAM>(nTo));  // the caret stays where the user types
}

void PushCaption(HWND hControl, const std::wstring& strCaption) {
    if (strCaption.empty()) return;
    OrReport(SetWindowTextW(hControl, strCaption.c_str()), "SetWindowText(control)");
}

void PushBar(HWND hBar, const forms::ScrollBar& Bar) {
    SCROLLINFO Info{};
    Info.cbSize = sizeof(Info);
    Info.fMask = SIF_RANGE | SIF_POS | SIF_PAGE;
    Info.nMin = Bar.nMin;
    Info.nMax = Bar.nMax + SCROLL_PAGE - 1;  // the thumb covers a page of the range
    Info.nPage = SCROLL_PAGE;
    Info.nPos = Bar.Value;
    SetScrollInfo(hBar, SB_CTL, &Info, TRUE);  // returns the position
}

void PushGroup(HWND hDialog, const forms::OptionGroup& Group) {
    for (int i = 0; i < Group.nItems; ++i) {
        const UINT nCheck = i == Group.Selected ? BST_CHECKED : BST_UNCHECKED;
        OrReport(CheckDlgButton(hDialog, Group.nId + i, nCheck), "CheckDlgButton(option)");
    }
    // Taking a mark away takes the option out of Tab's way too; without any mark the group would be
    // out of the keyboard's reach.
    const HWND hFirst = GetDlgItem(hDialog, Group.nId);
    if (Group.Selected >= 0 || hFirst == nullptr) return;
    const LONG_PTR nStyle = GetWindowLongPtrW(hFirst, GWL_STYLE);
    SetWindowLongPtrW(hFirst, GWL_STYLE, nStyle | WS_TABSTOP);  // returns the earlier style
}

/// Runs for the window of a control, or for each window of an option group.
template <class Act>
void ForWindows(HWND hDialog, const forms::Control& Model, Act Run) {
    const auto* pGroup = dynamic_cast<const forms::OptionGroup*>(&Model);
    const int nCount = pGroup == nullptr ? 1 : pGroup->nItems;
    for (int i = 0; i < nCount; ++i) {
        const HWND hControl = GetDlgItem(hDialog, Model.nId + i);
        if (hControl != nullptr) Run(hControl);
    }
}

/// A control that is disabled while it has the focus would leave the keyboard without one.
void MoveFocusAway(HWND hDialog, HWND hControl) {
    if (GetFocus() == hControl) SendMessageW(hDialog, WM_NEXTDLGCTL, 0, FALSE);
}

void PushEnabled(HWND hDialog, const forms::Control& Changed) {
    ForWindows(hDialog, Changed, [&](HWND hControl) {
        if (!Changed.Enabled) MoveFocusAway(hDialog, hControl);
        Unneeded(EnableWindow(hControl, Changed.Enabled ? TRUE : FALSE));
    });
}

void PushVisible(HWND hDialog, const forms::Control& Changed) {
    ForWindows(hDialog, Changed, [&](HWND hControl) {
        Unneeded(ShowWindow(hControl, Changed.Visible ? SW_SHOWNA : SW_HIDE));
    });
}

/// The content: caption, text, entries, tick, choice or position.
void PushContent(HWND hDialog, const forms::Control& Changed, bool bItems) {
    const HWND hControl = GetDlgItem(hDialog, Changed.nId);
    if (hControl == nullptr) return;
    if (const auto* pLabel = dynamic_cast<const forms::Label*>(&Changed)) {
        PushCaption(hControl, pLabel->Caption);
    } else if (const auto* pButton = dynamic_cast<const forms::Button*>(&Changed)) {
        PushCaption(hControl, pButton->Caption);
    } else if (const auto* pFrame = dynamic_cast<const forms::GroupFrame*>(&Changed)) {
        PushCaption(hControl, pFrame->Caption);
    } else if (const auto* pBox = dynamic_cast<const forms::TextBox*>(&Changed)) {
        PushText(hControl, pBox->Text);
    } else if (const auto* pCheck = dynamic_cast<const forms::CheckBox*>(&Changed)) {
        OrReport(CheckDlgButton(hDialog, Changed.nId, pCheck->Value ? BST_CHECKED : BST_UNCHECKED),
                 "CheckDlgButton(check box)");
    } else if (const auto* pGroup = dynamic_cast<const forms::OptionGroup*>(&Changed)) {
        PushGroup(hDialog, *pGroup);
    } else if (const auto* pList = dynamic_cast<const forms::ListBox*>(&Changed)) {
        bItems ? PushItems(hControl, *pList) : PushSelection(hControl, *pList);
    } else if (const auto* pBar = dynamic_cast<const forms::ScrollBar*>(&Changed)) {
        PushBar(hControl, *pBar);
    }
}

void OnEditNotification(HWND hEdit, forms::TextBox& Box, WORD nCode) {
    if (nCode == EN_SETFOCUS && Box.OnGotFocus) Box.OnGotFocus();
    if (nCode == EN_KILLFOCUS && Box.OnLostFocus) Box.OnLostFocus();
    if (nCode != EN_CHANGE) return;
    Box.Type(WindowText(hEdit));
    PushText(hEdit, Box.Text);  // what was not admitted goes
}

void OnListNotification(HWND hList, forms::ListBox& List, WORD nCode) {
    static_assert(LBN_SELCHANGE == CBN_SELCHANGE && LBN_DBLCLK == CBN_DBLCLK);
    if (nCode == LBN_SELCHANGE) {
        List.ListIndex =
            static_cast<int32_t>(SendMessageW(hList, MessagesOf(List).nGetSelection, 0, 0));
    }
    if (nCode == LBN_DBLCLK && List.OnDblClick) List.OnDblClick();
}

}  // namespace

void PushControl(HWND hDialog, const forms::Control& Shown) {
    PushContent(hDialog, Shown, true);
    if (!Shown.Enabled) PushEnabled(hDialog, Shown);
    if (!Shown.Visible) PushVisible(hDialog, Shown);
}

void PushChange(HWND hDialog, const forms::Control& Changed, Aspect nAspect) {
    if (nAspect == Aspect::Enabled) return PushEnabled(hDialog, Changed);
    if (nAspect == Aspect::Visibility) return PushVisible(hDialog, Changed);
    if (nAspect == Aspect::Geometry) return;  // the layout's business
    PushContent(hDialog, Changed, nAspect == Aspect::Items);
}

void PullGeometry(HWND hDialog, forms::Control& Placed) {
    const HWND hControl = GetDlgItem(hDialog, Placed.nId);
    RECT Place{};
    if (hControl == nullptr || !OrReport(GetWindowRect(hControl, &Place), "GetWindowRect(control)"))
        return;
    MapWindowPoints(nullptr, hDialog, reinterpret_cast<POINT*>(&Place), 2);
    Placed.Left = Place.left;
    Placed.Top = Place.top;
    Placed.Width = Place.right - Place.left;
    Placed.Height = Place.bottom - Place.top;
}

bool HasId(const forms::Control& Model, int nId) {
    const auto* pGroup = dynamic_cast<const forms::OptionGroup*>(&Model);
    const int nCount = pGroup == nullptr ? 1 : pGroup->nItems;
    return Model.nId != 0 && nId >= Model.nId && nId < Model.nId + nCount;
}

void OnNotification(HWND hDialog, forms::Control& Model, int nId, WORD nCode) {
    const HWND hControl = GetDlgItem(hDialog, nId);
    if (auto* pBox = dynamic_cast<forms::TextBox*>(&Model)) {
        return OnEditNotification(hControl, *pBox, nCode);
    }
    if (auto* pList = dynamic_cast<forms::ListBox*>(&Model)) {
        return OnListNotification(hControl, *pList, nCode);
    }
    if (nCode != BN_CLICKED) return;
    if (auto* pButton = dynamic_cast<forms::Button*>(&Model)) {
        pButton->Click();
    } else if (auto* pCheck = dynamic_cast<forms::CheckBox*>(&Model)) {
        pCheck->Value = IsDlgButtonChecked(hDialog, nId) == BST_CHECKED;
    } else if (auto* pGroup = dynamic_cast<forms::OptionGroup*>(&Model)) {
        if (IsDlgButtonChecked(hDialog, nId) == BST_CHECKED) pGroup->Choose(nId - pGroup->nId);
    }
}

void OnScroll(HWND hDialog, forms::ScrollBar& Bar, WORD nRequest) {
    SCROLLINFO Info{};
    Info.cbSize = sizeof(Info);
    Info.fMask = SIF_TRACKPOS;
    int32_t nPosition = Bar.Value;
    switch (nRequest) {
        case SB_LINELEFT:
            nPosition -= SCROLL_LINE;
            break;
        case SB_LINERIGHT:
            nPosition += SCROLL_LINE;
            break;
        case SB_PAGELEFT:
            nPosition -= SCROLL_PAGE;
            break;
        case SB_PAGERIGHT:
            nPosition += SCROLL_PAGE;
            break;
        case SB_LEFT:
            nPosition = Bar.nMin;
            break;
        case SB_RIGHT:
            nPosition = Bar.nMax;
            break;
        case SB_THUMBPOSITION:  // where the thumb was dropped; on its way it says nothing
            if (!OrReport(GetScrollInfo(GetDlgItem(hDialog, Bar.nId), SB_CTL, &Info),
                          "GetScrollInfo"))
                return;
            nPosition = Info.nTrackPos;
            break;
        default:
            return;
    }
    Bar.MoveTo(std::clamp(nPosition, Bar.nMin, Bar.nMax));
}

}  // namespace taviro::platform::win32
