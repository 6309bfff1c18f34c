// SPDX-License-Identifier: MIT
#include "predictor/letters.h"

#include <algorithm>

namespace taviro::predictor {

namespace {

constexpr wchar_t FIRST_ACCENTED = 0xC0;
constexpr wchar_t END_ACCENTED = 0x180;
constexpr wchar_t MULTIPLICATION = 0xD7;
constexpr wchar_t DIVISION = 0xF7;
constexpr wchar_t SHARP_S = 0xDF;
constexpr wchar_t SMALL_Y_DIAERESIS = 0xFF;
constexpr wchar_t CAPITAL_Y_DIAERESIS = 0x178;
constexpr wchar_t EXTENDED_LATIN = 0x100;
constexpr wchar_t LATIN_1_CASE_DISTANCE = 0x20;

// The letters 0xC0 to 0x17F without their marks; a blank where there is no letter.
constexpr std::wstring_view PLAIN_LETTERS =
    L"AAAAAAACEEEEIIIIDNOOOOO OUUUUYTsaaaaaaaceeeeiiiidnooooo ouuuuyty"
    L"AaAaAaCcCcCcCcDdDdEeEeEeEeEeGgGgGgGgHhHhIiIiIiIiIiIiJjKkkLlLlLlLlLl"
    L"NnNnNnnNnOoOoOoOoRrRrRrSsSsSsSsTtTtTtUuUuUuUuUuUuWwYyYZzZzZzs";
static_assert(PLAIN_LETTERS.size() == END_ACCENTED - FIRST_ACCENTED);

// In the extended block capitals and small letters alternate; which of them is even changes.
bool IsExtendedCapital(wchar_t n) {
    const bool bOddCapitals = (n >= 0x139 && n <= 0x148) || (n >= 0x179 && n <= 0x17E);
    const bool bNoPair = n == 0x130 || n == 0x138;
    return !bNoPair && (n % 2 != 0) == bOddCapitals;
}

// From a capital to its small letter, told by either.
wchar_t CaseDistance(wchar_t n) {
    return n < EXTENDED_LATIN ? LATIN_1_CASE_DISTANCE : 1;
}

bool IsVowel(wchar_t nLower) {
    constexpr std::wstring_view VOWELS = L"aeiouy";
    return VOWELS.find(PlainLetter(nLower)) != std::wstring_view::npos;
}

bool IsSyllabic(wchar_t nLower) {
    return nLower == L'r' || nLower == L'l' || nLower == L'm';
}

}  // namespace

bool IsLetter(wchar_t n) {
    if ((n >= L'a' && n <= L'z') || (n >= L'A' && n <= L'Z')) return true;
    return n >= FIRST_ACCENTED && n < END_ACCENTED && n != MULTIPLICATION && n != DIVISION;
}

bool IsCapital(wchar_t n) {
    if (n < FIRST_ACCENTED) return n >= L'A' && n <= L'Z';
    if (n < SHARP_S) return n != MULTIPLICATION;
    return n >= EXTENDED_LATIN && n < END_ACCENTED && IsExtendedCapital(n);
}

wchar_t LowerLetter(wchar_t n) {
    if (n == CAPITAL_Y_DIAERESIS) return SMALL_Y_DIAERESIS;
    return IsCapital(n) ? static_cast<wchar_t>(n + CaseDistance(n)) : n;
}

wchar_t UpperLetter(wchar_t n) {
    if (n == SMALL_Y_DIAERESIS) return CAPITAL_Y_DIAERESIS;
    const auto nUpper = static_cast<wchar_t>(n - CaseDistance(n));
    return LowerLetter(nUpper) == n ? nUpper : n;
}

wchar_t PlainLetter(wchar_t n) {
    if (!IsLetter(n) || n < FIRST_ACCENTED) return n;
    return PLAIN_LETTERS[static_cast<size_t>(n - FIRST_ACCENTED)];
}

std::wstring LowerText(std::wstring_view strText) {
    std::wstring strLower(strText);
    std::transform(strLower.begin(), strLower.end(), strLower.begin(), LowerLetter);
    return strLower;
}

bool IsOfferable(std::wstring_view strText) {
    return !strText.empty() && strText.size() <= LONGEST_WORD &&
           std::all_of(strText.begin(), strText.end(), IsLetter);
}

bool IsLearnable(std::wstring_view strText) {
    constexpr int MOST_CONSONANTS = 4;
    constexpr int MOST_REPEATS = 2;
    if (strText.size() < 2 || !IsOfferable(strText)) return false;
    bool bSpoken = false;
    int nConsonants = 0;
    int nRepeats = 0;
    wchar_t nPrevious = 0;
    for (const wchar_t nTyped : strText) {
        const wchar_t n = LowerLetter(nTyped);
        nRepeats = n == nPrevious ? nRepeats + 1 : 1;
        if (nRepeats > MOST_REPEATS) return false;
        // A syllabic consonant carries a syllable only after another consonant: "vlk", not "lk".
        const bool bCarries = IsVowel(n) || (IsSyllabic(n) && nConsonants > 0);
        nConsonants = bCarries ? 0 : nConsonants + 1;
        bSpoken = bSpoken || bCarries;
        if (nConsonants > MOST_CONSONANTS) return false;
        nPrevious = n;
    }
    return bSpoken;
}

}  // namespace taviro::predictor
