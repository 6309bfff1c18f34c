// SPDX-License-Identifier: MIT
#include "tools/comfort/delivered_text.h"

#include <string_view>

#include "platform/text.h"

namespace taviro::comfort {

namespace {

constexpr size_t LINE_WIDTH = 96;  // of a note, so that it is read without scrolling
constexpr std::wstring_view LINE_END = L"\r\n";
constexpr std::wstring_view INTRODUCTION =
    L"Nastavení, se kterým Taviro přichází. Tento soubor patří k programu a nová verze ho nahradí: "
    L"neměňte ho. Co chcete mít jinak, napište do souboru comfort.ini ve složce uživatele "
    L"(%APPDATA%\\Nordane\\Corvela\\v2.2\\taviro), když Taviro neběží: název oddílu v závorkách "
    L"a pod ním jen ty řádky, které se mají lišit.";

/// The text as notes, broken at blanks.
std::wstring Note(std::wstring_view strText) {
    std::wstring strLines;
    while (!strText.empty()) {
        const bool bFits = strText.size() <= LINE_WIDTH;
        const size_t nLength = bFits ? strText.size() : strText.rfind(L' ', LINE_WIDTH);
        strLines.append(L"; ").append(strText.substr(0, nLength)).append(LINE_END);
        strText.remove_prefix(bFits ? nLength : nLength + 1);
    }
    return strLines;
}

std::wstring Entry(const ComfortKey& objKey) {
    const std::wstring strDefault = objKey.strDefault;
    std::wstring strValues = L"Hodnoty: " + RangeText(objKey, CzechRange);
    strValues += L". Bez tohoto řádku: " + (strDefault.empty() ? L"prázdné" : strDefault) + L".";
    return Note(objKey.strMeaning) + Note(strValues) + objKey.strKey + L"=" + objKey.strDelivered +
           std::wstring(LINE_END);
}

}  // namespace

std::string DeliveredText(std::span<const ComfortKey> Keys) {
    std::wstring strText = Note(INTRODUCTION);
    std::wstring strSection;
    for (const ComfortKey& objKey : Keys) {
        strText += LINE_END;
        if (strSection != objKey.strSection) {
            strSection = objKey.strSection;
            strText.append(L"[").append(strSection).append(L"]").append(LINE_END);
        }
        strText += Entry(objKey);
    }
    return platform::ToAnsi(strText);
}

}  // namespace taviro::comfort
