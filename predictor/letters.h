// SPDX-License-Identifier: MIT
// What the predictor knows of letters: case, diacritics, vowels, and from them which strings may be
// offered and which may be learned. Covers the Latin letters of Central and Western Europe; needs
// no locale, so that it is the same on every system.
#pragma once

#include <string>
#include <string_view>

namespace taviro::predictor {

/// Stands in a typed beginning for one letter that is not known.
inline constexpr wchar_t UNKNOWN_LETTER = L'\0';

[[nodiscard]] bool IsLetter(wchar_t nCharacter);
[[nodiscard]] bool IsCapital(wchar_t nCharacter);
[[nodiscard]] wchar_t LowerLetter(wchar_t nCharacter);
[[nodiscard]] wchar_t UpperLetter(wchar_t nCharacter);
/// The letter without its diacritical mark, in the same case.
[[nodiscard]] wchar_t PlainLetter(wchar_t nCharacter);
[[nodiscard]] std::wstring LowerText(std::wstring_view strText);

inline constexpr size_t LONGEST_WORD = 31;  // letters; longer ones are neither offered nor learned

/// Whether the text can stand in an offered list: letters only, so that no character of the list's
/// format or of key-sequence notation can be among them.
[[nodiscard]] bool IsOfferable(std::wstring_view strText);

/// Whether an unknown string looks like a word that can be spoken: letters only, at least two, a
/// vowel or a syllabic r, l or m, and no longer heap of consonants than Czech has. Digits,
/// abbreviations and most passwords do not.
[[nodiscard]] bool IsLearnable(std::wstring_view strText);

}  // namespace taviro::predictor
