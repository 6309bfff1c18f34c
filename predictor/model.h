// SPDX-License-Identifier: MIT
// A compiled dictionary: sorted words with their weights, and which words follow which. Reads the
// bytes where they lie (a mapped file) and never trusts them: any bytes at all give an error, no
// words or strange words, but no access outside.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "predictor/model_format.h"

namespace taviro::predictor {

using WordId = uint32_t;  // a word's place in the sorted list

/// Words from nFirst up to, but without, nEnd.
struct WordRange {
    WordId nFirst = 0;
    WordId nEnd = 0;
    [[nodiscard]] bool IsEmpty() const { return nFirst >= nEnd; }
};

/// A word that follows a context, and how often.
struct Follower {
    WordId nWord;
    double dCount;
};

class Model {
  public:
    /// Takes the bytes of a compiled dictionary, which must outlive the model. Returns false with
    /// an English sentence when they are none, and the model then has no words.
    [[nodiscard]] bool Open(std::string_view Bytes, std::string& strError);

    [[nodiscard]] uint32_t WordCount() const { return m_nWords; }
    [[nodiscard]] uint16_t Weight(WordId nWord) const;
    [[nodiscard]] double Probability(WordId nWord) const;
    /// The word with its capitals; empty when there is no such word.
    [[nodiscard]] std::wstring Word(WordId nWord) const;
    /// The likeliest word with these small letters, NO_WORD when there is none.
    [[nodiscard]] WordId Find(std::wstring_view strLower) const;

    /// Letter codes of a text in small letters; false when it holds a letter that no word has.
    [[nodiscard]] bool Encode(std::wstring_view strLower, std::string& strCodes) const;
    /// The small letter of a code from 1 on, 0 when there is none.
    [[nodiscard]] wchar_t Letter(uint8_t nCode) const;
    [[nodiscard]] uint32_t LetterCount() const { return m_nLetters; }
    /// The words of the range, all of which begin alike, whose next letter is this one.
    [[nodiscard]] WordRange Narrow(WordRange Range, std::string_view strCodes,
                                   uint8_t nNextCode) const;
    [[nodiscard]] WordRange All() const { return {0, m_nWords}; }
    /// The word's letter codes, in small letters.
    [[nodiscard]] std::string Codes(WordId nWord) const;

    /// Probability of all words in the range together.
    [[nodiscard]] double Mass(WordRange Range) const;

    /// Highest weight of the words [nIndex × 16^nLevel, …); level 0 are the words themselves.
    [[nodiscard]] uint16_t Maximum(uint32_t nLevel, uint32_t nIndex) const;
    [[nodiscard]] uint32_t LevelCount() const { return static_cast<uint32_t>(m_Levels.size()); }

    /// How often the context stood before any word, and before how many different ones; zeros when
    /// it is not known.
    struct ContextSize {
        double dTotal = 0;
        double dFollowers = 0;
    };
    [[nodiscard]] ContextSize SizeOfContext(uint32_t nContext) const;
    /// Appends the words of the range that follow the context.
    void AppendFollowers(uint32_t nContext, WordRange Range, std::vector<Follower>& Found) const;

  private:
    struct Section {
        size_t nOffset = 0;
        size_t nCount = 0;
    };
    struct Entry;

    [[nodiscard]] bool ReadHeader(std::string& strError);
    [[nodiscard]] bool PlaceSections(std::string& strError);
    [[nodiscard]] uint32_t Number(const Section& Place, size_t nIndex) const;
    [[nodiscard]] uint32_t FindContext(uint32_t nContext) const;
    [[nodiscard]] std::string_view FirstCodes(uint32_t nBlock) const;
    [[nodiscard]] bool NextEntry(Entry& Current) const;
    [[nodiscard]] bool ReadEntry(WordId nWord, Entry& Found) const;
    [[nodiscard]] WordId LowerBound(std::string_view strCodes, WordRange Range) const;

    std::string_view m_Bytes;
    uint32_t m_nWords = 0;
    uint32_t m_nLetters = 0;
    uint32_t m_nContexts = 0;
    Section m_Masses, m_Offsets, m_Contexts, m_Followers, m_Text;
    std::vector<Section> m_Levels;  // the weights, then the maxima
    std::wstring m_strLetters;      // by code - 1
};

}  // namespace taviro::predictor
