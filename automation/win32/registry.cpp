// SPDX-License-Identifier: MIT
#include "automation/win32/registry.h"

#include <windows.h>

#include <array>
#include <cstdlib>
#include <memory>
#include <string>

#include "automation/registration.h"
#include "platform/text.h"
#include "platform/win32/program_path.h"

namespace taviro::automation {

namespace {

const std::wstring CLASSES = L"Software\\Classes";
// 64-bit and 32-bit programs see keys of their own; the system without 64 bits has one kind.
constexpr std::array<REGSAM, 2> VIEWS{KEY_WOW64_64KEY, KEY_WOW64_32KEY};

struct KeyCloser {
    void operator()(HKEY hKey) const { static_cast<void>(RegCloseKey(hKey)); }
};
using UniqueKey = std::unique_ptr<std::remove_pointer_t<HKEY>, KeyCloser>;

HKEY RootOf(RegistrationScope nScope) {
    return nScope == RegistrationScope::Machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
}

std::wstring PathOf(const std::wstring& strKey) {
    return strKey.empty() ? CLASSES : CLASSES + L"\\" + strKey;
}

LSTATUS WriteValue(HKEY hRoot, REGSAM nView, const RegistryValue& Value) {
    HKEY hMade = nullptr;
    const LSTATUS nMade = RegCreateKeyExW(hRoot, PathOf(Value.strKey).c_str(), 0, nullptr, 0,
                                          KEY_WRITE | nView, nullptr, &hMade, nullptr);
    if (nMade != ERROR_SUCCESS) return nMade;
    const UniqueKey hKey(hMade);
    const auto nBytes = static_cast<DWORD>((Value.strText.size() + 1) * sizeof(wchar_t));
    return RegSetValueExW(hKey.get(), Value.strName.c_str(), 0, REG_SZ,
                          reinterpret_cast<const BYTE*>(Value.strText.c_str()), nBytes);
}

/// What is not there needs no removing.
LSTATUS SuccessIfAbsent(LSTATUS nResult) {
    return nResult == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : nResult;
}

LSTATUS RemoveTree(HKEY hRoot, REGSAM nView, const RegistryTree& Tree) {
    HKEY hOpened = nullptr;
    const LSTATUS nOpened = RegOpenKeyExW(hRoot, PathOf(Tree.strParent).c_str(), 0,
                                          KEY_READ | KEY_WRITE | DELETE | nView, &hOpened);
    if (nOpened != ERROR_SUCCESS) return SuccessIfAbsent(nOpened);
    const UniqueKey hParent(hOpened);
    return SuccessIfAbsent(RegDeleteTreeW(hParent.get(), Tree.strKey.c_str()));
}

bool IsEmpty(HKEY hRoot, REGSAM nView, const std::wstring& strPath) {
    HKEY hOpened = nullptr;
    if (RegOpenKeyExW(hRoot, strPath.c_str(), 0, KEY_READ | nView, &hOpened) != ERROR_SUCCESS) {
        return false;
    }
    const UniqueKey hKey(hOpened);
    DWORD nKeys = 0;
    DWORD nValues = 0;
    return RegQueryInfoKeyW(hKey.get(), nullptr, nullptr, nullptr, &nKeys, nullptr, nullptr,
                            &nValues, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS &&
           nKeys == 0 && nValues == 0;
}

/// Both return the first failure, having tried everything.
LSTATUS Unregister(HKEY hRoot) {
    LSTATUS nResult = ERROR_SUCCESS;
    for (const REGSAM nView : VIEWS) {
        for (const RegistryTree& Tree : RegistrationTrees()) {
            const LSTATUS nRemoved = RemoveTree(hRoot, nView, Tree);
            if (nResult == ERROR_SUCCESS) nResult = nRemoved;
        }
    }
    // The machine's registry always has these keys, and they are never empty.
    if (hRoot != HKEY_CURRENT_USER) return nResult;
    for (const std::wstring& strKey : RegistrationParents()) {
        for (const REGSAM nView : VIEWS) {
            // Left where the system refuses: an empty key of its own harms nobody.
            if (IsEmpty(hRoot, nView, PathOf(strKey))) {
                static_cast<void>(RegDeleteKeyExW(hRoot, PathOf(strKey).c_str(), nView, 0));
            }
        }
    }
    return nResult;
}

LSTATUS Register(HKEY hRoot) {
    for (const REGSAM nView : VIEWS) {
        for (const RegistryValue& Value : RegistrationValues(platform::win32::ProgramPath())) {
            const LSTATUS nResult = WriteValue(hRoot, nView, Value);
            if (nResult == ERROR_SUCCESS) continue;
            static_cast<void>(Unregister(hRoot));  // the first failure is what counts
            return nResult;
        }
    }
    return ERROR_SUCCESS;
}

std::wstring ReasonOf(LSTATUS nResult) {
    wchar_t* pText = nullptr;
    const DWORD nLength = FormatMessageW(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
        nullptr, static_cast<DWORD>(nResult), 0, reinterpret_cast<wchar_t*>(&pText), 0, nullptr);
    std::wstring strReason(pText == nullptr ? L"" : pText, nLength);
    static_cast<void>(LocalFree(pText));  // null when freed
    while (!strReason.empty() && strReason.back() <= L' ')
        strReason.pop_back();
    return strReason.empty() ? L"chyba " + std::to_wstring(nResult) : strReason;
}

/// Returns false when there is no console, nor a file in its place, to write to.
bool WriteToConsole(const std::wstring& strText) {
    HANDLE hError = GetStdHandle(STD_ERROR_HANDLE);
    DWORD nWritten = 0;
    if (hError == nullptr || hError == INVALID_HANDLE_VALUE) {
        if (AttachConsole(ATTACH_PARENT_PROCESS) == FALSE) return false;
        hError = GetStdHandle(STD_ERROR_HANDLE);
    }
    if (WriteConsoleW(hError, strText.c_str(), static_cast<DWORD>(strText.size()), &nWritten,
                      nullptr) != FALSE) {
        return true;
    }
    const std::string strBytes = platform::ToUtf8(strText);
    return WriteFile(hError, strBytes.data(), static_cast<DWORD>(strBytes.size()), &nWritten,
                     nullptr) != FALSE;
}

void TellUser(const std::wstring& strText) {
    if (WriteToConsole(strText + L"\r\n")) return;
    static_cast<void>(MessageBoxW(nullptr, strText.c_str(), L"Taviro",
                                  MB_OK | MB_ICONERROR | MB_SETFOREGROUND));  // can only be OK
}

}  // namespace

int CarryOut(const StartOrder& Order) {
    const HKEY hRoot = RootOf(Order.nScope);
    const LSTATUS nResult =
        Order.nKind == StartKind::Register ? Register(hRoot) : Unregister(hRoot);
    if (nResult == ERROR_SUCCESS) return EXIT_SUCCESS;
    TellUser(RegistrationFailure(Order, ReasonOf(nResult)));
    return EXIT_FAILURE;
}

}  // namespace taviro::automation
