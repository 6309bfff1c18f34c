// SPDX-License-Identifier: MIT
#include "settings/comfort_key.h"

#include <algorithm>
#include <span>

#include "platform/number_text.h"
#include "platform/text.h"

namespace taviro {

namespace {

using Meaning = ComfortReading::Meaning;

constexpr size_t LONGEST_TEXT = 1023;  // what the reader of the file hands out
constexpr const wchar_t* SWITCH_WORDS[] = {L"off", L"on"};

bool IsSwitch(const ComfortKey& objKey) {
    return std::holds_alternative<bool*>(objKey.Target);
}

bool IsText(const ComfortKey& objKey) {
    return std::holds_alternative<std::wstring*>(objKey.Target);
}

/// A number's words; none for a plain number.
std::span<const wchar_t* const> WordsOf(const ComfortKey& objKey) {
    const auto objEnd = std::find(objKey.Words.begin(), objKey.Words.end(), nullptr);
    return {objKey.Words.begin(), objEnd};
}

/// The word's place; none when it is none of them.
std::optional<size_t> PlaceOf(std::wstring_view strWord, std::span<const wchar_t* const> Words) {
    const std::wstring strWanted = platform::ToLower(platform::TrimBlanks(strWord));
    const auto objFound = std::find_if(Words.begin(), Words.end(), [&](const wchar_t* strOne) {
        return platform::ToLower(strOne) == strWanted;
    });
    if (objFound == Words.end()) return std::nullopt;
    return static_cast<size_t>(objFound - Words.begin());
}

int32_t NumberOf(std::wstring_view strNormal) {
    int32_t nValue = 0;
    return platform::WholeTextToInt32(strNormal, nValue) ? nValue : 0;
}

bool IsOutside(const ComfortKey& objKey, int32_t nValue) {
    return nValue < objKey.nLeast || nValue > objKey.nMost;
}

ComfortReading ReadNumber(const ComfortKey& objKey, std::wstring_view strText) {
    const std::optional<double> fNumber = platform::WholeTextToNumber(strText);
    if (!fNumber) return {};
    int32_t nValue = 0;
    const bool bFits = platform::RoundToInt32(*fNumber, nValue);
    const bool bAllowed =
        bFits && (!IsOutside(objKey, nValue) || std::to_wstring(nValue) == objKey.strDefault);
    if (bAllowed) return {Meaning::AsItStands, std::to_wstring(nValue)};
    return {Meaning::Bounded,
            std::to_wstring(*fNumber < objKey.nLeast ? objKey.nLeast : objKey.nMost)};
}

ComfortReading ReadFreeText(std::wstring_view strText) {
    constexpr std::wstring_view ENDS(L"\r\n\0", 3);
    std::wstring strNormal =
        platform::FromAnsi(platform::ToAnsi(strText.substr(0, strText.find_first_of(ENDS))));
    if (strNormal.size() <= LONGEST_TEXT) return {Meaning::AsItStands, std::move(strNormal)};
    strNormal.resize(LONGEST_TEXT);
    return {Meaning::Bounded, std::move(strNormal)};
}

/// A list in words: "a", "a or b", "a, b or c".
std::wstring Listed(std::span<const wchar_t* const> Words, const wchar_t* strOr) {
    std::wstring strAll = Words.front();
    for (size_t i = 1; i < Words.size(); ++i)
        strAll.append(i + 1 == Words.size() ? strOr : L", ").append(Words[i]);
    return strAll;
}

}  // namespace

ComfortReading ReadComfort(const ComfortKey& objKey, std::wstring_view strText) {
    if (IsText(objKey)) return ReadFreeText(strText);
    const auto Words = WordsOf(objKey);
    const auto nPlace = PlaceOf(strText, IsSwitch(objKey) ? std::span(SWITCH_WORDS) : Words);
    if (!nPlace) return Words.empty() ? ReadNumber(objKey, strText) : ComfortReading{};
    return {Meaning::AsItStands, Words.empty() ? std::to_wstring(*nPlace) : Words[*nPlace]};
}

std::optional<std::wstring> StepComfort(const ComfortKey& objKey, const std::wstring& strNormal,
                                        bool bUp) {
    if (IsText(objKey)) return std::nullopt;
    const auto Words = WordsOf(objKey);
    if (!Words.empty()) {
        const size_t nPlace = PlaceOf(strNormal, Words).value_or(0);
        if (bUp) return Words[std::min(nPlace + 1, Words.size() - 1)];
        return Words[nPlace == 0 ? 0 : nPlace - 1];
    }
    const int32_t nValue = NumberOf(strNormal);
    // From outside the range no step leads further out.
    if (bUp ? nValue >= objKey.nMost : nValue <= objKey.nLeast) return strNormal;
    const int64_t nWished = int64_t{nValue} + (bUp ? objKey.nStep : -int64_t{objKey.nStep});
    return std::to_wstring(std::clamp<int64_t>(nWished, objKey.nLeast, objKey.nMost));
}

void ApplyComfort(const ComfortKey& objKey, const std::wstring& strNormal) {
    if (bool* const* pSwitch = std::get_if<bool*>(&objKey.Target)) {
        **pSwitch = NumberOf(strNormal) != 0;
    } else if (std::wstring* const* pText = std::get_if<std::wstring*>(&objKey.Target)) {
        **pText = strNormal;
    } else {
        const auto nPlace = PlaceOf(strNormal, WordsOf(objKey));
        *std::get<int32_t*>(objKey.Target) =
            nPlace ? static_cast<int32_t>(*nPlace) : NumberOf(strNormal);
    }
}

std::wstring RangeText(const ComfortKey& objKey, const RangeWords& objWords) {
    if (IsText(objKey)) return objWords.strAnyText;
    if (IsSwitch(objKey)) return std::wstring(L"0") + objWords.strOr + L"1";
    if (const auto Words = WordsOf(objKey); !Words.empty()) return Listed(Words, objWords.strOr);
    const std::wstring strRange =
        std::to_wstring(objKey.nLeast) + objWords.strTo + std::to_wstring(objKey.nMost);
    const bool bMore = IsOutside(objKey, NumberOf(objKey.strDefault));
    return bMore ? objKey.strDefault + (objWords.strOr + strRange) : strRange;
}

}  // namespace taviro
