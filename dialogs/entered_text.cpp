// SPDX-License-Identifier: MIT
#include "dialogs/entered_text.h"

namespace taviro {

namespace {

constexpr wchar_t LAST_CONTROL = L'\x1F';
constexpr wchar_t DELETE_CHARACTER = 0x7F;

bool IsControl(wchar_t nCharacter) {
    return nCharacter <= LAST_CONTROL || nCharacter == DELETE_CHARACTER;
}

}  // namespace

std::wstring OneLine(const std::wstring& strEntered) {
    std::wstring strLine;
    strLine.reserve(strEntered.size());
    for (size_t i = 0; i < strEntered.size(); ++i) {
        const bool bPair = strEntered[i] == L'\n' && i > 0 && strEntered[i - 1] == L'\r';
        if (bPair) continue;  // the two make one line break
        strLine += IsControl(strEntered[i]) ? L' ' : strEntered[i];
    }
    return strLine;
}

void AdmitAs(forms::TextBox& Box, std::wstring (*Storable)(const std::wstring&)) {
    Box.Admit = [&Box, Storable](const std::wstring& strEntered) {
        return strEntered == Box.Text.Get() ? strEntered : Storable(strEntered);
    };
}

}  // namespace taviro
