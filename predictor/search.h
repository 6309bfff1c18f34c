// SPDX-License-Identifier: MIT
// Finds the words that a typed beginning may become, and walks them from the likeliest on without
// looking at the others. The walk opens the block with the highest maximum first, so that its order
// is exact and its cost depends on the words taken, not on the words there are.
#pragma once

#include <cstddef>
#include <cstdint>
#include <queue>
#include <string_view>
#include <vector>

#include "predictor/model.h"

namespace taviro::predictor {

/// How typed letters find letters of words. An unknown letter finds any, and case never matters.
enum class Match {
    Exact,   ///< a letter finds itself
    Folded,  ///< a letter without a diacritical mark also finds those with one
};

/// How many letters of the word, in small letters, are as typed before the first that is not.
[[nodiscard]] size_t FittingLetters(std::wstring_view strLower, std::wstring_view strTyped,
                                    Match nMatch);

/// Whether the word, in small letters, begins as typed (or is the same).
[[nodiscard]] bool BeginsWith(std::wstring_view strLower, std::wstring_view strTyped, Match nMatch);

/// The words that begin as typed, in ranges that do not overlap. Unknown letters at the end narrow
/// nothing: words that are shorter than what was typed can then be among them.
[[nodiscard]] std::vector<WordRange> RangesOf(const Model& Words, std::wstring_view strTyped,
                                              Match nMatch);

/// Walks the words of the ranges from the highest weight down; equal ones in their sorted order.
class BestFirst {
  public:
    BestFirst(const Model& Words, const std::vector<WordRange>& Ranges);
    /// The next word; NO_WORD when there are no more.
    [[nodiscard]] WordId Next();

  private:
    struct Node {
        uint16_t nWeight;
        uint32_t nFirst;  // first word below it
        uint32_t nLevel;
        WordRange Range;
        bool operator<(const Node& Other) const {
            if (nWeight != Other.nWeight) return nWeight < Other.nWeight;
            return nFirst != Other.nFirst ? nFirst > Other.nFirst : nLevel < Other.nLevel;
        }
    };
    void Push(uint32_t nLevel, uint32_t nIndex, WordRange Range);

    const Model* m_pWords;
    std::priority_queue<Node> m_Open;
};

}  // namespace taviro::predictor
