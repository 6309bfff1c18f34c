// SPDX-License-Identifier: MIT
// Commands about windows: which there are, where, what they say, and messages to them.
#include <windows.h>

#include <cstdint>
#include <cstdio>

#include "tests/e2e/probe/answer.h"
#include "tests/e2e/probe/commands.h"

namespace taviro::probe {

namespace {

constexpr UINT MESSAGE_TIMEOUT_MS = 5000;
constexpr int TEXT_LENGTH = 512;

uint64_t ToNumber(const std::wstring& strText) {
    return std::wcstoull(strText.c_str(), nullptr, 0);
}

HWND ToWindow(const std::wstring& strText) {
    return reinterpret_cast<HWND>(static_cast<UINT_PTR>(ToNumber(strText)));
}

std::wstring FromWindow(HWND hWindow) {
    return std::to_wstring(reinterpret_cast<UINT_PTR>(hWindow));
}

std::wstring ClassOf(HWND hWindow) {
    wchar_t strName[TEXT_LENGTH] = {};
    GetClassNameW(hWindow, strName, TEXT_LENGTH);
    return strName;
}

// The caption as the system keeps it: no message is sent, so a busy program does not delay it.
std::wstring CaptionOf(HWND hWindow) {
    wchar_t strText[TEXT_LENGTH] = {};
    InternalGetWindowText(hWindow, strText, TEXT_LENGTH);
    return strText;
}

bool SendWithTimeout(HWND hWindow, UINT nMessage, WPARAM wParam, LPARAM lParam,
                     DWORD_PTR& nResult) {
    return SendMessageTimeoutW(hWindow, nMessage, wParam, lParam, SMTO_ABORTIFHUNG,
                               MESSAGE_TIMEOUT_MS, &nResult) != 0;
}

void AnswerWindow(HWND hWindow) {
    DWORD nProcess = 0;
    GetWindowThreadProcessId(hWindow, &nProcess);
    RECT Area = {};
    GetWindowRect(hWindow, &Area);
    Answer({FromWindow(hWindow), std::to_wstring(nProcess), ClassOf(hWindow),
            std::to_wstring(Area.left), std::to_wstring(Area.top), std::to_wstring(Area.right),
            std::to_wstring(Area.bottom), std::to_wstring(GetWindowLongW(hWindow, GWL_STYLE)),
            std::to_wstring(GetWindowLongW(hWindow, GWL_EXSTYLE)),
            std::to_wstring(GetWindowLongW(hWindow, GWL_ID)), CaptionOf(hWindow)});
}

BOOL CALLBACK AnswerVisible(HWND hWindow, LPARAM) {
    if (IsWindowVisible(hWindow)) AnswerWindow(hWindow);
    return TRUE;
}

BOOL CALLBACK AnswerAny(HWND hWindow, LPARAM) {
    AnswerWindow(hWindow);
    return TRUE;
}

std::wstring ListWindows(const Fields&) {
    EnumWindows(AnswerVisible, 0);
    return {};
}

std::wstring ListChildren(const Fields& Request) {
    EnumChildWindows(ToWindow(Request[1]), AnswerAny, 0);
    return {};
}

std::wstring AnswerClientArea(const Fields& Request) {
    POINT Origin = {};
    RECT Inner = {};
    if (!ClientToScreen(ToWindow(Request[1]), &Origin)) return L"no such window";
    if (!GetClientRect(ToWindow(Request[1]), &Inner)) return L"no such window";
    Answer({std::to_wstring(Origin.x), std::to_wstring(Origin.y), std::to_wstring(Inner.right),
            std::to_wstring(Inner.bottom)});
    return {};
}

std::wstring AnswerForeground(const Fields&) {
    Answer({FromWindow(GetForegroundWindow())});
    return {};
}

std::wstring Activate(const Fields& Request) {
    if (!SetForegroundWindow(ToWindow(Request[1]))) return L"the foreground was refused";
    return {};
}

std::wstring Place(const Fields& Request) {
    const bool bDone =
        MoveWindow(ToWindow(Request[1]), static_cast<int>(ToNumber(Request[2])),
                   static_cast<int>(ToNumber(Request[3])), static_cast<int>(ToNumber(Request[4])),
                   static_cast<int>(ToNumber(Request[5])), TRUE);
    return bDone ? std::wstring() : L"the window cannot be moved";
}

std::wstring GetText(const Fields& Request) {
    const HWND hWindow = ToWindow(Request[1]);
    DWORD_PTR nLength = 0;
    if (!SendWithTimeout(hWindow, WM_GETTEXTLENGTH, 0, 0, nLength)) return L"no answer";
    std::wstring strText(nLength + 1, L'\0');
    DWORD_PTR nCopied = 0;
    if (!SendWithTimeout(hWindow, WM_GETTEXT, strText.size(),
                         reinterpret_cast<LPARAM>(strText.data()), nCopied))
        return L"no answer";
    strText.resize(nCopied);
    Answer({strText});
    return {};
}

std::wstring SetText(const Fields& Request) {
    DWORD_PTR nResult = 0;
    if (!SendWithTimeout(ToWindow(Request[1]), WM_SETTEXT, 0,
                         reinterpret_cast<LPARAM>(Request[2].c_str()), nResult))
        return L"no answer";
    return {};
}

std::wstring Post(const Fields& Request) {
    const bool bPosted = PostMessageW(ToWindow(Request[1]), static_cast<UINT>(ToNumber(Request[2])),
                                      static_cast<WPARAM>(ToNumber(Request[3])),
                                      static_cast<LPARAM>(ToNumber(Request[4])));
    return bPosted ? std::wstring() : L"the message was refused";
}

std::wstring Send(const Fields& Request) {
    DWORD_PTR nResult = 0;
    if (!SendWithTimeout(ToWindow(Request[1]), static_cast<UINT>(ToNumber(Request[2])),
                         static_cast<WPARAM>(ToNumber(Request[3])),
                         static_cast<LPARAM>(ToNumber(Request[4])), nResult))
        return L"no answer";
    Answer({std::to_wstring(nResult)});
    return {};
}

// Answers, as it happens, with the caption that a window has and each that it takes during the
// time.
std::wstring WatchCaption(const Fields& Request) {
    const HWND hWindow = ToWindow(Request[1]);
    const DWORD nStart = GetTickCount();
    const auto nMilliseconds = static_cast<DWORD>(ToNumber(Request[2]));
    std::wstring strLast = CaptionOf(hWindow);
    Answer({std::to_wstring(nStart), strLast});
    std::fflush(stdout);
    while (GetTickCount() - nStart < nMilliseconds) {
        const std::wstring strCaption = CaptionOf(hWindow);
        if (strCaption != strLast) Answer({std::to_wstring(GetTickCount()), strCaption});
        strLast = strCaption;
        Sleep(1);  // the sampling interval
    }
    return {};
}

}  // namespace

const std::vector<Command> WindowCommands = {
    {L"windows", 0, ListWindows},
    {L"children", 1, ListChildren},
    {L"client", 1, AnswerClientArea},
    {L"foreground", 0, AnswerForeground},
    {L"activate", 1, Activate},
    {L"place", 5, Place},
    {L"gettext", 1, GetText},
    {L"settext", 2, SetText},
    {L"post", 4, Post},
    {L"send", 4, Send},
    {L"watch", 2, WatchCaption},
};

}  // namespace taviro::probe
