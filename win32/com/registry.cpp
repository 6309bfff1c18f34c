// SPDX-License-Identifier: MIT
#include "win32/com/registry.h"

#include <windows.h>

#include <array>
#include <memory>
#include <string>
#include <type_traits>

namespace taviro::com {

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

void RemoveIfEmpty(HKEY hRoot, REGSAM nView, const std::wstring& strPath) {
    // Left where the system refuses: an empty key of its own harms nobody.
    if (IsEmpty(hRoot, nView, strPath)) {
        static_cast<void>(RegDeleteKeyExW(hRoot, strPath.c_str(), nView, 0));
    }
}

}  // namespace

long Unregister(RegistrationScope nScope, const Registration& Entries) {
    const HKEY hRoot = RootOf(nScope);
    LSTATUS nResult = ERROR_SUCCESS;
    for (const REGSAM nView : VIEWS) {
        for (const RegistryTree& Tree : Entries.Trees) {
            const LSTATUS nRemoved = RemoveTree(hRoot, nView, Tree);
            if (nResult == ERROR_SUCCESS) nResult = nRemoved;
        }
    }
    // The machine's registry always has these keys, and they are never empty.
    if (nScope == RegistrationScope::Machine) return nResult;
    for (const std::wstring& strKey : Entries.Parents) {
        for (const REGSAM nView : VIEWS)
            RemoveIfEmpty(hRoot, nView, PathOf(strKey));
    }
    return nResult;
}

long Register(RegistrationScope nScope, const Registration& Entries) {
    for (const REGSAM nView : VIEWS) {
        for (const RegistryValue& Value : Entries.Values) {
            const LSTATUS nResult = WriteValue(RootOf(nScope), nView, Value);
            if (nResult == ERROR_SUCCESS) continue;
            static_cast<void>(Unregister(nScope, Entries));  // the first failure is what counts
            return nResult;
        }
    }
    return ERROR_SUCCESS;
}

}  // namespace taviro::com
