// SPDX-License-Identifier: MIT
#include "platform/shell_names.h"

#include <algorithm>

namespace taviro::platform {

namespace {

constexpr size_t QUOTES = 2;
constexpr size_t LONGEST_FILE = 260 + QUOTES;
constexpr size_t LONGEST_ADDRESS = 2083 + QUOTES;  // what browsers take from the shell
constexpr size_t SHORTEST_SCHEME = 2;              // a single letter is a drive

bool IsLetter(wchar_t nCharacter) {
    return (nCharacter >= L'a' && nCharacter <= L'z') || (nCharacter >= L'A' && nCharacter <= L'Z');
}

bool IsOfScheme(wchar_t nCharacter) {
    constexpr std::wstring_view MORE = L"0123456789+-.";
    return IsLetter(nCharacter) || MORE.find(nCharacter) != std::wstring_view::npos;
}

bool IsAddress(std::wstring_view strName) {
    if (strName.starts_with(L'"')) strName.remove_prefix(1);
    const std::wstring_view strScheme = strName.substr(0, strName.find(L':'));
    return strScheme.size() < strName.size() && strScheme.size() >= SHORTEST_SCHEME &&
           IsLetter(strScheme.front()) &&
           std::all_of(strScheme.begin(), strScheme.end(), IsOfScheme);
}

}  // namespace

bool CanBeOpened(std::wstring_view strName) {
    const size_t nLongest = IsAddress(strName) ? LONGEST_ADDRESS : LONGEST_FILE;
    return !strName.empty() && strName.size() <= nLongest;
}

}  // namespace taviro::platform
