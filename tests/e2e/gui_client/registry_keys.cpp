// SPDX-License-Identifier: MIT
#include "tests/e2e/gui_client/registry_keys.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <vector>

#include "tests/e2e/probe/answer.h"

namespace taviro::probe {

namespace {

constexpr DWORD LONGEST_NAME = 256;
constexpr DWORD LONGEST_VALUE = 1024;

using Entry = std::vector<std::wstring>;  // the path, or path, name and text
using Entries = std::set<Entry>;
std::map<std::wstring, Entries> First;

void ListValues(HKEY hKey, const std::wstring& strPath, Entries& Listed) {
    for (DWORD i = 0;; ++i) {
        std::array<wchar_t, LONGEST_NAME> Name{};
        std::array<wchar_t, LONGEST_VALUE> Value{};
        DWORD nName = LONGEST_NAME;
        auto nBytes = static_cast<DWORD>(Value.size() * sizeof(wchar_t));
        if (RegEnumValueW(hKey, i, Name.data(), &nName, nullptr, nullptr,
                          reinterpret_cast<BYTE*>(Value.data()), &nBytes) != ERROR_SUCCESS) {
            return;
        }
        Listed.insert({strPath, Name.data(), Value.data()});
    }
}

/// The machine has thousands of classes: of those it is enough to know their names.
constexpr std::array<const wchar_t*, 4> COMMON_KEYS{L"\\AppID", L"\\CLSID", L"\\Interface",
                                                    L"\\TypeLib"};

void ListFrom(HKEY hKey, const std::wstring& strPath, bool bNamesOnly, Entries& Listed) {
    ListValues(hKey, strPath, Listed);
    const bool bCommon =
        std::find(COMMON_KEYS.begin(), COMMON_KEYS.end(), strPath) != COMMON_KEYS.end();
    for (DWORD i = 0;; ++i) {
        std::array<wchar_t, LONGEST_NAME> Name{};
        if (RegEnumKeyW(hKey, i, Name.data(), LONGEST_NAME) != ERROR_SUCCESS) return;
        const std::wstring strBelow = strPath + L"\\" + Name.data();
        Listed.insert({strBelow});
        const bool bOpen =
            std::find(COMMON_KEYS.begin(), COMMON_KEYS.end(), strBelow) != COMMON_KEYS.end() ||
            (strPath.empty() && strBelow.starts_with(L"\\Taviro"));
        if (bNamesOnly && (bCommon || !bOpen)) continue;
        HKEY hBelow = nullptr;
        if (RegOpenKeyExW(hKey, Name.data(), 0, KEY_READ, &hBelow) != ERROR_SUCCESS) continue;
        ListFrom(hBelow, strBelow, bNamesOnly, Listed);
        RegCloseKey(hBelow);
    }
}

void AnswerMissing(const wchar_t* strSign, const Entries& Those, const Entries& From) {
    for (const Entry& Listed : Those) {
        if (From.count(Listed) != 0) continue;
        if (Listed.size() == 1) Answer({strSign, Listed[0]});
        if (Listed.size() == 3) Answer({strSign, Listed[0], Listed[1], Listed[2]});
    }
}

}  // namespace

void AnswerChanges(const std::wstring& strRoot, const std::wstring& strView) {
    const REGSAM nView = strView == L"32" ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;
    Entries Now;
    HKEY hClasses = nullptr;
    if (RegOpenKeyExW(strRoot == L"machine" ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER,
                      L"Software\\Classes", 0, KEY_READ | nView, &hClasses) == ERROR_SUCCESS) {
        Now.insert({L""});
        ListFrom(hClasses, L"", strRoot == L"machine", Now);
        RegCloseKey(hClasses);
    }
    const Entries& Before = First.try_emplace(strRoot + strView, Now).first->second;
    AnswerMissing(L"+", Now, Before);
    AnswerMissing(L"-", Before, Now);
}

LSTATUS MakeVolatileKey(const std::wstring& strKey) {
    HKEY hKey = nullptr;
    const LSTATUS nResult =
        RegCreateKeyExW(HKEY_CURRENT_USER, (L"Software\\Classes\\" + strKey).c_str(), 0, nullptr,
                        REG_OPTION_VOLATILE, KEY_WRITE, nullptr, &hKey, nullptr);
    if (nResult == ERROR_SUCCESS) RegCloseKey(hKey);
    return nResult;
}

}  // namespace taviro::probe
