// SPDX-License-Identifier: MIT
// One key of comfort.ini: where it stands, what the rules and the delivered file have for it, and
// what a text under it means. A value travels as its normal text, the one way in which it is
// written; values are equal when their normal texts are.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace taviro {

inline constexpr size_t MOST_WORDS = 8;

/// The kind is the target's: a switch (0 or 1, also "off" or "on"), a whole number, a text. With
/// words, a number is one of them, counted from 0.
struct ComfortKey {
    const wchar_t* strSection;
    const wchar_t* strKey;
    std::variant<bool*, int32_t*, std::wstring*> Target;  ///< what the rest of the program reads
    const wchar_t* strDefault;    ///< as the rules have it; it may lie outside the range
    const wchar_t* strDelivered;  ///< in the program's own comfort.ini
    int32_t nLeast = 0;           ///< of a number
    int32_t nMost = 1;
    int32_t nStep = 1;                               ///< by which "more" and "less" change a number
    std::array<const wchar_t*, MOST_WORDS> Words{};  ///< the rest null
    const wchar_t* strMeaning;                       ///< in Czech, for whoever sets it
};

/// What a text means as the value of a key.
struct ComfortReading {
    enum class Meaning {
        Nothing,     ///< no value at all
        Bounded,     ///< out of range: the nearest value
        AsItStands,  ///< a value
    };
    Meaning nMeaning = Meaning::Nothing;
    std::wstring strNormal{};
};

/// Texts are cut at a line end and at 1023 characters, and hold what Windows-1250 can say.
ComfortReading ReadComfort(const ComfortKey& objKey, std::wstring_view strText);

/// One step up or down from a normal text; the same text where the range ends. None for a text.
std::optional<std::wstring> StepComfort(const ComfortKey& objKey, const std::wstring& strNormal,
                                        bool bUp);

/// Puts the value into the key's target.
void ApplyComfort(const ComfortKey& objKey, const std::wstring& strNormal);

/// The words between the values of a range, in some language.
struct RangeWords {
    const wchar_t* strOr;
    const wchar_t* strTo;
    const wchar_t* strAnyText;
};
inline constexpr RangeWords EnglishRange{L" or ", L" to ", L"any text"};
inline constexpr RangeWords CzechRange{L" nebo ", L" až ", L"libovolný text"};

/// What a key may hold: "0 or 1", "0 or 300 to 6000", "cells, rows or groups".
std::wstring RangeText(const ComfortKey& objKey, const RangeWords& objWords);

}  // namespace taviro
