// SPDX-License-Identifier: MIT
#include "tools/simulator/words.h"

#include <algorithm>
#include <utility>

namespace taviro::simulator {

namespace {

constexpr std::wstring_view BLANKS = L" \t\r\n";

bool TakeQuoted(std::wstring_view& strRest, Word& Taken) {
    Taken.bQuoted = true;
    strRest.remove_prefix(1);
    while (true) {
        const auto nMark = strRest.find(L'"');
        if (nMark == std::wstring_view::npos) return false;
        Taken.strText += strRest.substr(0, nMark);
        strRest.remove_prefix(nMark + 1);
        if (!strRest.starts_with(L'"')) return true;
        Taken.strText += L'"';
        strRest.remove_prefix(1);
    }
}

void AddPlain(std::wstring_view strWord, std::vector<Word>& Words) {
    const auto nUnit = strWord.find_first_not_of(L"0123456789");
    if (nUnit != 0 && nUnit != std::wstring_view::npos && strWord.substr(nUnit) == L"ms") {
        Words.push_back({.strText = std::wstring(strWord.substr(0, nUnit))});
        strWord.remove_prefix(nUnit);
    }
    Words.push_back({.strText = std::wstring(strWord)});
}

}  // namespace

bool SplitWords(std::wstring_view strLine, std::vector<Word>& Words) {
    Words.clear();
    std::wstring_view strRest = TrimSides(strLine);
    while (!strRest.empty() && strRest.front() != L'#') {
        if (strRest.front() == L'"') {
            Word Taken;
            if (!TakeQuoted(strRest, Taken)) return false;
            Words.push_back(std::move(Taken));
        } else {
            const auto nEnd = std::min(strRest.find_first_of(BLANKS), strRest.size());
            AddPlain(strRest.substr(0, nEnd), Words);
            strRest.remove_prefix(nEnd);
        }
        strRest = TrimSides(strRest);
    }
    return true;
}

std::wstring Shown(const Word& Found) {
    return L"\"" + Found.strText + L"\"";
}

std::wstring_view TrimSides(std::wstring_view strLine) {
    const auto nFirst = strLine.find_first_not_of(BLANKS);
    if (nFirst == std::wstring_view::npos) return {};
    return strLine.substr(nFirst, strLine.find_last_not_of(BLANKS) - nFirst + 1);
}

}  // namespace taviro::simulator
