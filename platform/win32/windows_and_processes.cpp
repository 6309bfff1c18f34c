// SPDX-License-Identifier: MIT
#include "platform/windows_and_processes.h"

#include <windows.h>

#include <iterator>
#include <tlhelp32.h>

#include "platform/win32/failure.h"
#include "platform/win32/handles.h"
#include "platform/win32/numbers.h"

namespace taviro::platform {

#ifndef _WIN64
static_assert(sizeof(GUITHREADINFO) == 48);
static_assert(sizeof(tagPROCESSENTRY32) == 296);  // the entry of the ANSI walk
#endif

using win32::ToHwnd;
using win32::ToNumber;

namespace {

BOOL CALLBACK TakeTaskWindow(HWND hWindow, LPARAM pFound) {
    const LONG_PTR nStyle = GetWindowLongPtrW(hWindow, GWL_EXSTYLE);
    const bool bTask = IsWindowVisible(hWindow) != FALSE &&
                       GetWindow(hWindow, GW_OWNER) == nullptr &&
                       (nStyle & (WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE)) == 0;
    if (bTask) reinterpret_cast<std::vector<WindowHandle>*>(pFound)->push_back(ToNumber(hWindow));
    return TRUE;
}

}  // namespace

WindowHandle ForegroundActiveWindow() {
    GUITHREADINFO Info{};
    Info.cbSize = sizeof(Info);
    if (GetGUIThreadInfo(0, &Info) == FALSE) return 0;
    // Wine's way to say nobody; Windows never has it in front.
    if (Info.hwndActive == GetDesktopWindow()) return 0;
    return ToNumber(Info.hwndActive);
}

uint32_t WindowProcess(WindowHandle hWindow) {
    DWORD nProcess = 0;
    if (GetWindowThreadProcessId(ToHwnd(hWindow), &nProcess) == 0) return 0;
    return nProcess;
}

uint32_t WindowThread(WindowHandle hWindow) {
    return GetWindowThreadProcessId(ToHwnd(hWindow), nullptr);
}

WindowHandle FindTopWindow(const std::wstring& strClass, const std::wstring& strTitle) {
    const wchar_t* pClass = strClass.empty() ? nullptr : strClass.c_str();
    const wchar_t* pTitle = strTitle.empty() ? nullptr : strTitle.c_str();
    return ToNumber(FindWindowW(pClass, pTitle));
}

bool WindowRect(WindowHandle hWindow, ScreenRect& Rect) {
    RECT Found{};
    if (!win32::OrReport(GetWindowRect(ToHwnd(hWindow), &Found), "GetWindowRect")) return false;
    Rect = {.nLeft = Found.left, .nTop = Found.top, .nRight = Found.right, .nBottom = Found.bottom};
    return true;
}

bool IsWindowHandle(WindowHandle hWindow) {
    return IsWindow(ToHwnd(hWindow)) != FALSE;
}

bool IsOwnWindow(WindowHandle hWindow) {
    return WindowProcess(hWindow) == GetCurrentProcessId();
}

std::wstring WindowClassName(WindowHandle hWindow) {
    wchar_t strName[257] = {};  // a class name has at most 256 characters
    const int nLength =
        GetClassNameW(ToHwnd(hWindow), strName, static_cast<int>(std::size(strName)));
    win32::OrReport(nLength != 0, "GetClassName");
    return {strName, static_cast<size_t>(nLength)};
}

std::vector<ProcessEntry> SnapshotProcesses() {
    const win32::UniqueHandle hSnapshot =
        win32::OwnUnlessInvalid(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
    if (!win32::OrReport(hSnapshot != nullptr, "CreateToolhelp32Snapshot")) return {};
    std::vector<ProcessEntry> Entries;
    PROCESSENTRY32W Entry{};
    Entry.dwSize = sizeof(Entry);
    for (BOOL bMore = Process32FirstW(hSnapshot.get(), &Entry); bMore != FALSE;
         bMore = Process32NextW(hSnapshot.get(), &Entry)) {
        Entries.push_back({Entry.th32ProcessID, Entry.szExeFile});
    }
    return Entries;
}

bool AttachInput(uint32_t nThread, uint32_t nToThread, bool bAttach) {
    return win32::OrReport(AttachThreadInput(nThread, nToThread, bAttach ? TRUE : FALSE),
                           "AttachThreadInput");
}

std::vector<WindowHandle> TaskWindows() {
    std::vector<WindowHandle> Found;
    win32::OrReport(EnumWindows(TakeTaskWindow, reinterpret_cast<LPARAM>(&Found)), "EnumWindows");
    return Found;
}

void LetOthersComeToFront() {
    const DWORD nOwn = GetCurrentThreadId();
    const DWORD nInFront = GetWindowThreadProcessId(GetForegroundWindow(), nullptr);
    const bool bShared =
        nInFront != 0 && nInFront != nOwn && AttachThreadInput(nOwn, nInFront, TRUE) != FALSE;
    win32::OrReport(AllowSetForegroundWindow(ASFW_ANY), "AllowSetForegroundWindow");
    // At once: with the input of a program that hangs ours would hang.
    if (bShared) win32::OrReport(AttachThreadInput(nOwn, nInFront, FALSE), "AttachThreadInput");
}

uint32_t LastInputTick() {
    LASTINPUTINFO Last{};
    Last.cbSize = sizeof(Last);
    return GetLastInputInfo(&Last) == FALSE ? 0 : Last.dwTime;
}

bool SetForeground(WindowHandle hWindow) {
    return win32::OrReport(SetForegroundWindow(ToHwnd(hWindow)), "SetForegroundWindow");
}

}  // namespace taviro::platform
