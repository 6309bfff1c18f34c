// SPDX-License-Identifier: MIT
// What the beginnings that arrive one after the other tell about the text. The predictor sees
// nothing but the typed beginning of the current word, so everything else is inferred: that a new
// word began, which word came before (what was typed to its end, or a word that was offered last),
// which offered words were not wanted.
#pragma once

#include <string>
#include <vector>

#include "predictor/ranking.h"

namespace taviro::predictor {

/// Shares of what may stand before a word, guessed from everyday texts.
struct StreamConstants {
    double dComma = 0.1;         ///< there was a comma between the words
    double dStartCapital = 0.4;  ///< a capital begins a sentence
    double dStartFirst = 0.5;    ///< the first word of all begins a sentence
    double dUnlisted = 0.02;     ///< a finished word is in no dictionary though one begins like it
    double dMissed = 0.2;        ///< a word was typed to its end though it had been offered
    double dSure = 0.75;         ///< at which a word that no dictionary has counts as written
    double dLeastShare = 0.1;    ///< at which any other word counts, by its share
    double dLeastPair = 0.03;    ///< the same for a pair of words
};

/// A word that may have been written, in the case in which it was, and how likely it was.
struct Guess {
    std::wstring strWord;
    double dShare;
};

class Stream {
  public:
    /// A beginning as the program sent it, made into what stands in the text: characters before a
    /// Backspace are gone, and a control character ends what came before it.
    [[nodiscard]] static std::wstring Cleaned(std::wstring_view strPrefix);

    /// Takes the next beginning. Returns true when it began a new word after another; Finished()
    /// then tells about that one.
    bool Take(const Model& Words, std::wstring_view strPrefix, const StreamConstants& Constants);
    /// What was shown for the beginning taken last.
    void NoteShown(const std::vector<Offer>& Shown) { m_Shown = Shown; }

    [[nodiscard]] const std::wstring& Typed() const { return m_strTyped; }
    /// What the program shall take for the typed beginning from now on.
    [[nodiscard]] const std::wstring& HandedBack() const { return m_strHandedBack; }
    [[nodiscard]] const std::vector<Guess>& Finished() const { return m_Finished; }
    /// Small letters of the words that were shown and not taken for this word.
    [[nodiscard]] const std::vector<std::wstring>& Passed() const { return m_Passed; }
    [[nodiscard]] std::vector<Context> Contexts(const Model& Words,
                                                const StreamConstants& Constants) const;

  private:
    [[nodiscard]] std::wstring ReadCapsLock(const std::wstring& strCleaned);
    void FinishWord(const Model& Words, const StreamConstants& Constants);
    [[nodiscard]] double TypedShare(const Model& Words, const StreamConstants& Constants) const;

    std::wstring m_strTyped;
    std::wstring m_strHandedBack;
    bool m_bCapsLock = false;  // the user types capitals between two uses of Caps Lock
    std::vector<Offer> m_Shown;
    std::vector<std::wstring> m_Passed;
    std::vector<Guess> m_Finished;
};

/// The contexts of a word whose previous word is known: empty at the start of a sentence.
[[nodiscard]] std::vector<Context> ContextsAfter(const Model& Words, std::wstring_view strPrevious,
                                                 bool bComma);

}  // namespace taviro::predictor
