// SPDX-License-Identifier: MIT
#include "predictor/search.h"

#include <algorithm>
#include <string>
#include <utility>

#include "predictor/letters.h"

namespace taviro::predictor {

namespace {

constexpr uint32_t BLOCK_BITS = 4;
static_assert(BLOCK == 1U << BLOCK_BITS);

bool FindsLetter(wchar_t nTyped, wchar_t nLower, Match nMatch) {
    if (nTyped == UNKNOWN_LETTER) return true;
    const wchar_t nWanted = LowerLetter(nTyped);
    return nWanted == nLower || (nMatch == Match::Folded && nWanted == PlainLetter(nLower));
}

// So few words are quicker looked at than divided further.
constexpr uint32_t FEW_WORDS = 12;

// Words that begin alike.
struct Stem {
    std::string strCodes;
    WordRange Range;
};

// Takes the letters at the beginning that can only be themselves, in one step; returns how many.
size_t TakeFixed(const Model& Words, std::wstring_view strTyped, Match nMatch, Stem& Taken) {
    Taken = {{}, Words.All()};
    size_t nFixed = 0;
    if (nMatch == Match::Exact) nFixed = std::min(strTyped.find(UNKNOWN_LETTER), strTyped.size());
    if (nFixed == 0) return 0;
    if (Words.Encode(LowerText(strTyped.substr(0, nFixed)), Taken.strCodes)) {
        const auto nLast = static_cast<uint8_t>(Taken.strCodes.back());
        const std::string_view strStem(Taken.strCodes.data(), nFixed - 1);
        Taken.Range = Words.Narrow(Taken.Range, strStem, nLast);
    } else {
        Taken.Range = {};
    }
    return nFixed;
}

// The stems that continue this one with a letter that was typed.
void Extend(const Model& Words, const Stem& From, wchar_t nTyped, Match nMatch,
            std::vector<Stem>& Extended) {
    for (uint32_t n = 1; n <= Words.LetterCount(); ++n) {
        const auto nCode = static_cast<uint8_t>(n);
        if (!FindsLetter(nTyped, Words.Letter(nCode), nMatch)) continue;
        const WordRange Range = Words.Narrow(From.Range, From.strCodes, nCode);
        if (!Range.IsEmpty()) {
            Extended.push_back({From.strCodes + static_cast<char>(nCode), Range});
        }
    }
}

// Adds the words of the range that begin as typed.
void AppendFitting(const Model& Words, WordRange Range, std::wstring_view strTyped, Match nMatch,
                   std::vector<WordRange>& Ranges) {
    for (WordId n = Range.nFirst; n < Range.nEnd; ++n) {
        if (BeginsWith(LowerText(Words.Word(n)), strTyped, nMatch)) Ranges.push_back({n, n + 1});
    }
}

}  // namespace

size_t FittingLetters(std::wstring_view strLower, std::wstring_view strTyped, Match nMatch) {
    const size_t nBoth = std::min(strLower.size(), strTyped.size());
    size_t n = 0;
    while (n < nBoth && FindsLetter(strTyped[n], strLower[n], nMatch))
        ++n;
    return n;
}

bool BeginsWith(std::wstring_view strLower, std::wstring_view strTyped, Match nMatch) {
    return FittingLetters(strLower, strTyped, nMatch) == strTyped.size();
}

std::vector<WordRange> RangesOf(const Model& Words, std::wstring_view strTyped, Match nMatch) {
    if (strTyped.size() > LONGEST_WORD) return {};
    while (!strTyped.empty() && strTyped.back() == UNKNOWN_LETTER)
        strTyped.remove_suffix(1);
    std::vector<Stem> Stems(1);
    const size_t nFixed = TakeFixed(Words, strTyped, nMatch, Stems.front());
    std::vector<WordRange> Ranges;
    for (const wchar_t nTyped : strTyped.substr(nFixed)) {
        std::vector<Stem> Extended;
        for (const Stem& From : Stems) {
            if (From.Range.nEnd - From.Range.nFirst > FEW_WORDS) {
                Extend(Words, From, nTyped, nMatch, Extended);
            } else {
                AppendFitting(Words, From.Range, strTyped, nMatch, Ranges);
            }
        }
        Stems = std::move(Extended);
    }
    for (const Stem& Found : Stems) {
        if (!Found.Range.IsEmpty()) Ranges.push_back(Found.Range);
    }
    return Ranges;
}

BestFirst::BestFirst(const Model& Words, const std::vector<WordRange>& Ranges) : m_pWords(&Words) {
    for (const WordRange& Range : Ranges) {
        if (Range.IsEmpty()) continue;
        // The lowest node that covers the whole range.
        uint32_t nLevel = 0;
        while (Range.nFirst >> (BLOCK_BITS * nLevel) != (Range.nEnd - 1) >> (BLOCK_BITS * nLevel))
            ++nLevel;
        Push(nLevel, Range.nFirst >> (BLOCK_BITS * nLevel), Range);
    }
}

void BestFirst::Push(uint32_t nLevel, uint32_t nIndex, WordRange Range) {
    m_Open.push(
        {m_pWords->Maximum(nLevel, nIndex), nIndex << (BLOCK_BITS * nLevel), nLevel, Range});
}

WordId BestFirst::Next() {
    while (!m_Open.empty()) {
        const Node Best = m_Open.top();
        m_Open.pop();
        if (Best.nLevel == 0) return Best.nFirst;
        const uint32_t nChildLevel = Best.nLevel - 1;
        const uint32_t nShift = BLOCK_BITS * nChildLevel;
        const uint32_t nFirstChild = Best.nFirst >> nShift;
        const uint32_t nFrom = std::max(nFirstChild, Best.Range.nFirst >> nShift);
        const uint32_t nTo = std::min(nFirstChild + BLOCK - 1, (Best.Range.nEnd - 1) >> nShift);
        for (uint32_t n = nFrom; n <= nTo; ++n)
            Push(nChildLevel, n, Best.Range);
    }
    return NO_WORD;
}

}  // namespace taviro::predictor
