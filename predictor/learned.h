// SPDX-License-Identifier: MIT
// What the user's own writing adds to the dictionary: words and pairs of words with counts that
// fade. A count is halved by every HALF_LIFE words learned after it, and what has nearly faded is
// dropped, so that the store stays small and follows the user. Nothing else about the text is kept:
// no order beyond the pairs, no times, no names of programs.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "predictor/model.h"

namespace taviro::predictor {

/// A count that fades: what it would be now, had nothing faded since the first word (Learned::Now).
struct FadingCount {
    double dUnfaded = 0;
};

struct LearnedWord {
    std::wstring strWord;  ///< with its capitals
    FadingCount Count;
    WordId nWord = NO_WORD;  ///< the same word in the dictionary
};

class Learned {
  public:
    static constexpr uint32_t HALF_LIFE = 20000;  // words
    static constexpr size_t MOST_WORDS_KEPT = 10000;
    static constexpr size_t MOST_PAIRS_KEPT = 24000;

    /// Notes that the user wrote the word, and after which one; no pair when there was none. What
    /// cannot be learned changes nothing (IsLearnable, but one-letter words are welcome when the
    /// dictionary has them, and so are its abbreviations: then nWord is their place there).
    /// dShare is how likely it was, above 0 up to 1: a likely word counts by its likelihood.
    void Note(std::wstring_view strPrevious, std::wstring_view strWord, WordId nWord,
              double dShare = 1);
    /// Notes only that one word followed the other; nothing unless both have been noted.
    void NotePair(std::wstring_view strPrevious, std::wstring_view strWord, double dShare);
    /// Finds all words in the dictionary, for a store that was read.
    void Link(const Model& Words);
    void Forget();

    [[nodiscard]] bool IsEmpty() const { return m_Words.empty(); }
    /// All words by their small letters.
    [[nodiscard]] const std::map<std::wstring, LearnedWord>& Words() const { return m_Words; }
    using Followers = std::map<std::wstring, FadingCount>;
    /// What was written after a word in small letters; nullptr when nothing was.
    [[nodiscard]] const Followers* After(const std::wstring& strPrevious) const;
    /// How often anything was.
    [[nodiscard]] double TotalAfter(const std::wstring& strPrevious) const;
    /// What is left of a count by now.
    [[nodiscard]] double Now(const FadingCount& Count) const { return Count.dUnfaded * m_dLeft; }
    [[nodiscard]] double Total() const { return Now(m_Total); }

    /// The store as text, and back. A text that is none, or parts of it that are no words, are
    /// passed over; returns false with a sentence when nothing could be read.
    [[nodiscard]] std::string Write() const;
    [[nodiscard]] bool Read(std::string_view Bytes, std::string& strError);

  private:
    struct Pairs {
        Followers Nexts;
        FadingCount Total;
    };
    void Raise(FadingCount& Count, double dShare) const;
    void Shrink();

    std::map<std::wstring, LearnedWord> m_Words;
    std::map<std::wstring, Pairs> m_Pairs;
    size_t m_nPairs = 0;
    FadingCount m_Total;
    double m_dClock = 0;  // words learned
    double m_dLeft = 1;   // of a count of the beginning
};

}  // namespace taviro::predictor
