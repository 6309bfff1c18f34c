// SPDX-License-Identifier: MIT
#include "platform/win32/edit_view.h"

#include <string>

#include "platform/failure.h"
#include "platform/sound.h"
#include "platform/unneeded.h"
#include "platform/win32/failure.h"

namespace taviro::platform::win32 {

namespace {

constexpr WPARAM FIRST_PRINTED = L' ';
constexpr WPARAM DELETED_WORD = 0x7F;  // what Ctrl+Backspace sends

// The system's own procedure of text boxes, which ours stands before; the same for every one.
WNDPROC pSystemEditProcedure = nullptr;

/// The text that pasting would bring, empty when there is none.
std::wstring ClipboardText(HWND hOwner) {
    std::wstring strText;
    if (OpenClipboard(hOwner) == FALSE) return strText;  // another program has it
    const HANDLE hText = GetClipboardData(CF_UNICODETEXT);
    if (hText != nullptr) {
        if (const auto* pText = static_cast<const wchar_t*>(GlobalLock(hText))) {
            strText = pText;
            Unneeded(GlobalUnlock(hText));  // whether others hold it still
        }
    }
    OrReport(CloseClipboard(), "CloseClipboard");
    return strText;
}

/// Returns false when the box may take the text its own way.
bool InsertAdmitted(HWND hEdit, const std::wstring& strText) {
    const auto* pBox = reinterpret_cast<forms::TextBox*>(GetWindowLongPtrW(hEdit, GWLP_USERDATA));
    DWORD nFrom = 0;
    DWORD nTo = 0;
    SendMessageW(hEdit, EM_GETSEL, reinterpret_cast<WPARAM>(&nFrom),
                 reinterpret_cast<LPARAM>(&nTo));
    const auto Admitted = pBox->Insertion(nFrom, nTo, strText);
    if (!Admitted || *Admitted == strText) return false;
    if (!Admitted->empty()) {
        SendMessageW(hEdit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(Admitted->c_str()));
    }
    SystemBeep();
    return true;
}

LRESULT CALLBACK OnEditMessage(HWND hEdit, UINT nMessage, WPARAM wParam, LPARAM lParam) noexcept {
    try {
        const bool bTyped =
            nMessage == WM_CHAR && wParam >= FIRST_PRINTED && wParam != DELETED_WORD;
        if (bTyped && InsertAdmitted(hEdit, {static_cast<wchar_t>(wParam)})) return 0;
        if (nMessage == WM_PASTE && InsertAdmitted(hEdit, ClipboardText(hEdit))) return 0;
    } catch (...) {
        ReportException("text box");  // the box takes the text, and what is not admitted goes again
    }
    return CallWindowProcW(pSystemEditProcedure, hEdit, nMessage, wParam, lParam);
}

}  // namespace

void WatchInsertions(HWND hEdit, forms::TextBox& Box) {
    SetWindowLongPtrW(hEdit, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&Box));
    pSystemEditProcedure = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(hEdit, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(OnEditMessage)));
}

}  // namespace taviro::platform::win32
