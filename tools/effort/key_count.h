// SPDX-License-Identifier: MIT
// The keys that a user without errors needs for a text when every letter may bring a list of words:
// a letter, sign or blank is one key, taking a word from the list is one key and brings the blank
// behind it. Where no blank follows the word, the superfluous one costs a key more.
#pragma once

#include <string_view>

#include "predictor/predictor.h"

namespace taviro::effort {

/// What the user and the list do.
struct KeyCountWay {
    bool bTruth = false;          ///< the predictor is told the true words before
    bool bBeforeLetters = false;  ///< a list comes before the first letter; needs bTruth
    bool bRepeats = false;        ///< passed-over words come again
    bool bLearns = false;
    bool bFreeBlank = false;  ///< a superfluous blank goes away by itself
};

/// Counting: one key for each letter, sign and blank that is typed, one for taking a word wherever
/// it stands in the list. The blank that a taken word brings costs nothing. Where no blank follows
/// in the text, taking the superfluous one back is one key more, unless bFreeBlank: then
/// the count is that of an application that swallows the blank in front of a sign.
struct KeyCount {
    size_t nCharacters = 0;
    size_t nKeys = 0;
    size_t nTaken = 0;  ///< words taken from lists
    size_t nLists = 0;
    [[nodiscard]] KeyCount operator-(const KeyCount& Other) const {
        return {nCharacters - Other.nCharacters, nKeys - Other.nKeys, nTaken - Other.nTaken,
                nLists - Other.nLists};
    }
    /// Keystroke savings in percent.
    [[nodiscard]] double Savings() const {
        return nCharacters == 0
                   ? 0
                   : 100.0 - 100.0 * static_cast<double>(nKeys) / static_cast<double>(nCharacters);
    }
};

/// The whole text, and of that the last quarter of its words.
struct TextCount {
    KeyCount Whole;
    KeyCount LastQuarter;
};
[[nodiscard]] TextCount CountKeys(predictor::Predictor& Asked, std::wstring_view strText,
                                  const KeyCountWay& Way);

}  // namespace taviro::effort
