// SPDX-License-Identifier: MIT
// A program for scripts to drive: a window with a label, a button, a field and a hidden list. A
// click on the button changes its text and gives the field the focus; the label tells which keys
// came.
#include <windows.h>

#include <string>

#include "tests/e2e/windows/plain_window.h"

namespace {

constexpr int LABEL_ID = 100;
constexpr int BUTTON_ID = 101;
constexpr int FIELD_ID = 102;
constexpr UINT COUNT_PAINTS = WM_APP + 1;  // answers with how often the window was painted

int nPaints = 0;
std::wstring strKeys;

struct ChildLayout {
    const wchar_t* strClass;
    const wchar_t* strText;
    DWORD nStyle;
    int nLeft, nTop, nWidth, nHeight, nId;
};
constexpr ChildLayout CHILDREN[] = {
    {L"STATIC", L"popis", WS_VISIBLE, 10, 35, 320, 20, LABEL_ID},
    {L"BUTTON", L"volno", WS_VISIBLE, 100, 5, 120, 25, BUTTON_ID},
    {L"EDIT", L"", WS_VISIBLE | WS_BORDER, 10, 60, 300, 24, FIELD_ID},
    {L"LISTBOX", L"", 0, 10, 100, 100, 40, 103},  // hidden
};

LRESULT CALLBACK OnMessage(HWND hWindow, UINT nMessage, WPARAM wParam, LPARAM lParam) {
    switch (nMessage) {
        case WM_COMMAND:
            if (LOWORD(wParam) == BUTTON_ID && HIWORD(wParam) == BN_CLICKED) {
                SetWindowTextW(reinterpret_cast<HWND>(lParam), L"stisknuto");
                SetFocus(GetDlgItem(hWindow, FIELD_ID));
            }
            return 0;
        case WM_PAINT:
            ++nPaints;
            return DefWindowProcW(hWindow, nMessage, wParam, lParam);
        case COUNT_PAINTS:
            return nPaints;
        case WM_SETFOCUS:
            SetFocus(GetDlgItem(hWindow, FIELD_ID));
            return 0;
        default:
            return taviro::tests::OnOtherMessage(hWindow, nMessage, wParam, lParam);
    }
}

/// Virtual key and scan code of each key that comes, "u" before a key that was let go.
void NoteKey(const MSG& Message, HWND hWindow) {
    if (Message.message != WM_KEYDOWN && Message.message != WM_KEYUP) return;
    const auto nScan = static_cast<int>((Message.lParam >> 16) & 0xFF);
    strKeys += (Message.message == WM_KEYUP ? L"u" : L"d") + std::to_wstring(Message.wParam) +
               L"/" + std::to_wstring(nScan) + L" ";
    SetDlgItemTextW(hWindow, LABEL_ID, strKeys.c_str());
}

}  // namespace

int WINAPI wWinMain(HINSTANCE hInstance, HINSTANCE, PWSTR, int) {
    const HWND hWindow = taviro::tests::MakeWindow({.strClass = L"GuiTarget",
                                                    .strTitle = L"Cíl skriptu",
                                                    .nLeft = 300,
                                                    .nTop = 300,
                                                    .nWidth = 360,
                                                    .nHeight = 200,
                                                    .pOnMessage = OnMessage,
                                                    .nBackground = COLOR_BTNFACE});
    if (hWindow == nullptr) return 1;
    for (const ChildLayout& Child : CHILDREN) {
        CreateWindowExW(0, Child.strClass, Child.strText, WS_CHILD | Child.nStyle, Child.nLeft,
                        Child.nTop, Child.nWidth, Child.nHeight, hWindow,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(Child.nId)), hInstance,
                        nullptr);
    }
    ShowWindow(hWindow, SW_SHOWNORMAL);
    taviro::tests::RunMessages([=](const MSG& Message) { NoteKey(Message, hWindow); });
    return 0;
}
