// SPDX-License-Identifier: MIT
// Commands about dialogs: which control has the keyboard, what stands in a list, and how much room
// a text takes.
#include <windows.h>

#include <cstdlib>

#include "tests/e2e/probe/answer.h"
#include "tests/e2e/probe/commands.h"

namespace taviro::probe {

namespace {

constexpr UINT MESSAGE_TIMEOUT_MS = 5000;
constexpr int POINTS_PER_INCH = 72;
constexpr wchar_t ALPHABET[] = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
constexpr int HALF_ALPHABET = 26;

HWND ToWindow(const std::wstring& strText) {
    return reinterpret_cast<HWND>(
        static_cast<UINT_PTR>(std::wcstoull(strText.c_str(), nullptr, 0)));
}

// The control that gets the keys of a window's program, 0 while it has none.
std::wstring AnswerFocus(const Fields& Request) {
    GUITHREADINFO Info{};
    Info.cbSize = sizeof(Info);
    if (!GetGUIThreadInfo(GetWindowThreadProcessId(ToWindow(Request[1]), nullptr), &Info))
        return L"no such window";
    Answer({std::to_wstring(reinterpret_cast<UINT_PTR>(Info.hwndFocus))});
    return {};
}

std::wstring ListText(const Fields& Request) {
    const HWND hList = ToWindow(Request[1]);
    const auto nItem = static_cast<WPARAM>(std::wcstoull(Request[2].c_str(), nullptr, 0));
    DWORD_PTR nLength = 0;
    if (!SendMessageTimeoutW(hList, LB_GETTEXTLEN, nItem, 0, SMTO_ABORTIFHUNG, MESSAGE_TIMEOUT_MS,
                             &nLength) ||
        static_cast<LRESULT>(nLength) == LB_ERR)
        return L"no such entry";
    std::wstring strText(nLength + 1, L'\0');
    SendMessageTimeoutW(hList, LB_GETTEXT, nItem, reinterpret_cast<LPARAM>(strText.data()),
                        SMTO_ABORTIFHUNG, MESSAGE_TIMEOUT_MS, &nLength);
    strText.resize(nLength);
    Answer({strText});
    return {};
}

// The font of every dialog: the system's message font in whole points.
HFONT DialogFont(HDC hScreen) {
    NONCLIENTMETRICSW Metrics{};
    Metrics.cbSize = sizeof(Metrics);
    if (!SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(Metrics), &Metrics, 0))
        return nullptr;
    const int nDotsPerInch = GetDeviceCaps(hScreen, LOGPIXELSY);
    LOGFONTW& Font = Metrics.lfMessageFont;
    const int nPoints = MulDiv(std::abs(Font.lfHeight), POINTS_PER_INCH, nDotsPerInch);
    Font.lfHeight = -MulDiv(nPoints, nDotsPerInch, POINTS_PER_INCH);
    return CreateFontIndirectW(&Font);
}

// How wide and high a text is in the dialogs' font, in lines of at most a width, then the dialogs'
// two base units. A font's handle is of no use to another program, so the font is made again; that
// it is the same one shows in the base units.
std::wstring Measure(const Fields& Request) {
    const HDC hScreen = GetDC(nullptr);
    const HFONT hFont = DialogFont(hScreen);
    if (hFont == nullptr) return L"no font";
    const HGDIOBJ hBefore = SelectObject(hScreen, hFont);
    RECT Text{
        .left = 0, .top = 0, .right = std::wcstol(Request[2].c_str(), nullptr, 0), .bottom = 0};
    const UINT nFormat = DT_CALCRECT | (Text.right > 0 ? DT_WORDBREAK : DT_SINGLELINE);
    DrawTextW(hScreen, Request[1].c_str(), -1, &Text, nFormat);
    SIZE Letters{};
    GetTextExtentPoint32W(hScreen, ALPHABET, 2 * HALF_ALPHABET, &Letters);
    TEXTMETRICW Metrics{};
    GetTextMetricsW(hScreen, &Metrics);
    SelectObject(hScreen, hBefore);
    DeleteObject(hFont);
    ReleaseDC(nullptr, hScreen);
    Answer({std::to_wstring(Text.right), std::to_wstring(Text.bottom),
            std::to_wstring((Letters.cx / HALF_ALPHABET + 1) / 2),
            std::to_wstring(Metrics.tmHeight)});
    return {};
}

std::wstring AnswerClientSize(const Fields& Request) {
    RECT Client{};
    if (!GetClientRect(ToWindow(Request[1]), &Client)) return L"no such window";
    Answer({std::to_wstring(Client.right), std::to_wstring(Client.bottom)});
    return {};
}

}  // namespace

const std::vector<Command> DialogCommands = {
    {L"focus", 1, AnswerFocus},
    {L"listtext", 2, ListText},
    {L"measure", 2, Measure},
    {L"clientsize", 1, AnswerClientSize},
};

}  // namespace taviro::probe
