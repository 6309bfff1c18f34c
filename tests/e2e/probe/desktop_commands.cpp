// SPDX-License-Identifier: MIT
// Commands that make the desktop what a test needs: registered classes and programs, and windows
// that other programs would have.
#include <windows.h>

#include <cstdlib>
#include <string>

#include "tests/e2e/probe/answer.h"
#include "tests/e2e/probe/commands.h"

namespace taviro::probe {

namespace {

constexpr DWORD OPEN_TIMEOUT_MS = 10000;

// Stores the default value of a key of the machine's registry. The first field tells which of the
// two views, "64" or "32", of the keys that 64- and 32-bit programs see differently.
std::wstring RegisterValue(const Fields& Request) {
    const REGSAM nView = Request[1] == L"32" ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;
    HKEY hKey = nullptr;
    if (RegCreateKeyExW(HKEY_LOCAL_MACHINE, Request[2].c_str(), 0, nullptr, 0, KEY_WRITE | nView,
                        nullptr, &hKey, nullptr) != ERROR_SUCCESS) {
        return L"the key cannot be made";
    }
    const auto nBytes = static_cast<DWORD>((Request[3].size() + 1) * sizeof(wchar_t));
    const LSTATUS nResult = RegSetValueExW(
        hKey, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(Request[3].c_str()), nBytes);
    RegCloseKey(hKey);
    return nResult == ERROR_SUCCESS ? std::wstring() : L"the value cannot be stored";
}

struct WindowToOpen {
    std::wstring strClass, strTitle;
    HANDLE hOpened = nullptr;
    HWND hWindow = nullptr;
};

LRESULT CALLBACK OnMessage(HWND hWindow, UINT nMessage, WPARAM wParam, LPARAM lParam) {
    if (nMessage == WM_DESTROY) PostQuitMessage(0);
    return DefWindowProcW(hWindow, nMessage, wParam, lParam);
}

// Each window has a thread that answers its messages, as every program's window does.
DWORD WINAPI KeepWindow(void* pParameter) {
    auto* pWanted = static_cast<WindowToOpen*>(pParameter);
    WNDCLASSW Class{};
    Class.lpfnWndProc = OnMessage;
    Class.hInstance = GetModuleHandleW(nullptr);
    Class.lpszClassName = pWanted->strClass.c_str();
    RegisterClassW(&Class);  // registered already when a window of the class was open before
    pWanted->hWindow =
        CreateWindowExW(0, pWanted->strClass.c_str(), pWanted->strTitle.c_str(), WS_OVERLAPPED, 0,
                        0, 100, 100, nullptr, nullptr, Class.hInstance, nullptr);
    const bool bOpened = pWanted->hWindow != nullptr;
    SetEvent(pWanted->hOpened);  // the record is gone from here on
    MSG Message{};
    while (bOpened && GetMessageW(&Message, nullptr, 0, 0) > 0)
        DispatchMessageW(&Message);
    return 0;
}

// Opens a hidden top-level window of a class and title; answers with its handle.
std::wstring OpenHiddenWindow(const Fields& Request) {
    WindowToOpen Wanted{.strClass = Request[1], .strTitle = Request[2]};
    Wanted.hOpened = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    const HANDLE hThread = CreateThread(nullptr, 0, KeepWindow, &Wanted, 0, nullptr);
    if (Wanted.hOpened == nullptr || hThread == nullptr) return L"no thread for the window";
    const DWORD nWaited = WaitForSingleObject(Wanted.hOpened, OPEN_TIMEOUT_MS);
    CloseHandle(Wanted.hOpened);
    CloseHandle(hThread);
    if (nWaited != WAIT_OBJECT_0) std::abort();  // the thread still uses the record
    if (Wanted.hWindow == nullptr) return L"the window cannot be opened";
    Answer({std::to_wstring(reinterpret_cast<UINT_PTR>(Wanted.hWindow))});
    return {};
}

}  // namespace

const std::vector<Command> DesktopCommands = {
    {L"register", 3, RegisterValue},
    {L"openhidden", 2, OpenHiddenWindow},
};

}  // namespace taviro::probe
