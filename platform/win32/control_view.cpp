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
using forms::ControlKind;

constexpr int32_t SCROLL_LINE = 1;
constexpr int32_t SCROLL_PAGE = 10;

/// The messages of the two kinds of lists, which differ in their numbers alone.
struct ListMessages {
    UINT nReset, nAdd, nGetSelection, nSetSelection;
};
constexpr ListMessages LIST_BOX{LB_RESETCONTENT, LB_ADDSTRING, LB_GETCURSEL, LB_SETCURSEL};
constexpr ListMessages COMBO_BOX{CB_RESETCONTENT, CB_ADDSTRING, CB_GETCURSEL, CB_SETCURSEL};

const ListMessages& MessagesOf(const forms::ListBox& List) {
    return List.Kind() == ControlKind::ComboBox ? COMBO_BOX : LIST_BOX;
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

void PushCheck(HWND hDialog, const forms::CheckBox& Check) {
    OrReport(CheckDlgButton(hDialog, Check.nId, Check.Value ? BST_CHECKED : BST_UNCHECKED),
             "CheckDlgButton(check box)");
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

/// How many windows show the control; their numbers follow each other.
int WindowCount(const forms::Control& Model) {
    switch (Model.Kind()) {
        case ControlKind::OptionGroup:
            return static_cast<const forms::OptionGroup&>(Model).nItems;
        case ControlKind::Label:
        case ControlKind::TextBox:
        case ControlKind::ListBox:
        case ControlKind::CheckBox:
        case ControlKind::ComboBox:
        case ControlKind::ScrollBar:
        case ControlKind::Button:
        case ControlKind::GroupFrame:
            return 1;
        case ControlKind::Form:
        case ControlKind::Timer:
        case ControlKind::MenuEntry:
            return 0;
    }
    return 0;
}

template <class Act>
void ForWindows(HWND hDialog, const forms::Control& Model, Act Run) {
    for (int i = 0; i < WindowCount(Model); ++i) {
        const HWND hControl = GetDlgItem(hDialog, Model.nId + i);
        if (hControl != nullptr) Run(hControl);
    }
}

/// An option that gets the focus when its dialog opens or comes to the front again would choose
/// itself. Chosen by arrow or mouse it is all the same: those click.
void LetFocusChooseNothing(HWND hDialog, const forms::Control& Group) {
    ForWindows(hDialog, Group,
               [](HWND hOption) { SendMessageW(hOption, BM_SETDONTCLICK, TRUE, 0); });
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
    switch (Changed.Kind()) {
        case ControlKind::Label:
            return PushCaption(hControl, static_cast<const forms::Label&>(Changed).Caption);
        case ControlKind::Button:
            return PushCaption(hControl, static_cast<const forms::Button&>(Changed).Caption);
        case ControlKind::GroupFrame:
            return PushCaption(hControl, static_cast<const forms::GroupFrame&>(Changed).Caption);
        case ControlKind::TextBox:
            return PushText(hControl, static_cast<const forms::TextBox&>(Changed).Text);
        case ControlKind::CheckBox:
            return PushCheck(hDialog, static_cast<const forms::CheckBox&>(Changed));
        case ControlKind::OptionGroup:
            return PushGroup(hDialog, static_cast<const forms::OptionGroup&>(Changed));
        case ControlKind::ListBox:
        case ControlKind::ComboBox: {
            const auto& List = static_cast<const forms::ListBox&>(Changed);
            return bItems ? PushItems(hControl, List) : PushSelection(hControl, List);
        }
        case ControlKind::ScrollBar:
            return PushBar(hControl, static_cast<const forms::ScrollBar&>(Changed));
        case ControlKind::Form:
        case ControlKind::Timer:
        case ControlKind::MenuEntry:
            return;  // have no window in the dialog
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
    if (Shown.Kind() == ControlKind::OptionGroup) LetFocusChooseNothing(hDialog, Shown);
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
    return Model.nId != 0 && nId >= Model.nId && nId < Model.nId + WindowCount(Model);
}

void OnNotification(HWND hDialog, forms::Control& Model, int nId, WORD nCode) {
    const HWND hControl = GetDlgItem(hDialog, nId);
    const auto IsChecked = [=] { return IsDlgButtonChecked(hDialog, nId) == BST_CHECKED; };
    switch (Model.Kind()) {
        case ControlKind::TextBox:
            return OnEditNotification(hControl, static_cast<forms::TextBox&>(Model), nCode);
        case ControlKind::ListBox:
        case ControlKind::ComboBox:
            return OnListNotification(hControl, static_cast<forms::ListBox&>(Model), nCode);
        case ControlKind::Button:
            if (nCode == BN_CLICKED) static_cast<forms::Button&>(Model).Click();
            return;
        case ControlKind::CheckBox:
            if (nCode == BN_CLICKED) static_cast<forms::CheckBox&>(Model).Value = IsChecked();
            return;
        case ControlKind::OptionGroup:
            if (nCode == BN_CLICKED && IsChecked()) {
                static_cast<forms::OptionGroup&>(Model).Choose(nId - Model.nId);
            }
            return;
        case ControlKind::Form:
        case ControlKind::Label:
        case ControlKind::Timer:
        case ControlKind::MenuEntry:
        case ControlKind::ScrollBar:  // tells of itself by scrolling
        case ControlKind::GroupFrame:
            return;
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
