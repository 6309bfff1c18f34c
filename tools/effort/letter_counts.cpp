// SPDX-License-Identifier: MIT
#include "tools/effort/letter_counts.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>

#include "platform/text.h"

namespace taviro::effort {

namespace {

constexpr double COMMAS = 0.11;      // of all words have a comma behind them
constexpr double FULL_STOPS = 0.09;  // and so many a full stop

void AddWord(std::wstring_view strWord, double dShare, LetterCounts& Counts) {
    const auto Follow = [&](wchar_t nFirst, wchar_t nSecond, double dTimes) {
        Counts.InARow[{nFirst, nSecond}] += dTimes;
        Counts.Single[nSecond] += dTimes;
    };
    wchar_t nBefore = L' ';
    for (const wchar_t nLetter : strWord) {
        Follow(nBefore, nLetter, dShare);
        nBefore = nLetter;
    }
    Follow(nBefore, L',', dShare * COMMAS);
    Follow(L',', L' ', dShare * COMMAS);
    Follow(nBefore, L'.', dShare * FULL_STOPS);
    Follow(L'.', L' ', dShare * FULL_STOPS);
    Follow(nBefore, L' ', dShare * (1 - COMMAS - FULL_STOPS));
}

}  // namespace

LetterCounts CountLetters(std::string_view strTable) {
    LetterCounts Counts;
    while (!strTable.empty()) {
        const std::string_view strLine = strTable.substr(0, strTable.find('\n'));
        strTable.remove_prefix(std::min(strLine.size() + 1, strTable.size()));
        const auto nTab = strLine.find('\t');
        if (strLine.starts_with('#') || nTab == std::string_view::npos) continue;
        const double dLog = std::strtod(std::string(strLine.substr(nTab + 1)).c_str(), nullptr);
        AddWord(platform::ToLower(platform::FromUtf8(strLine.substr(0, nTab))),
                std::pow(10.0, dLog), Counts);
    }
    double dAll = 0;
    for (const auto& [nCharacter, dTimes] : Counts.Single)
        dAll += dTimes;
    for (auto& [nCharacter, dTimes] : Counts.Single)
        dTimes /= dAll;
    for (auto& [Two, dTimes] : Counts.InARow)
        dTimes /= dAll;
    return Counts;
}

}  // namespace taviro::effort
