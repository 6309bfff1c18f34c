// SPDX-License-Identifier: MIT
// The dictionary behind the word offers: asked with each beginning of a word as it is typed, it
// answers with a list of words, or with nothing when a list would cost the user more than it is
// expected to spare.
#pragma once

#include <cstddef>
#include <string>

#include "predictor/learned.h"
#include "predictor/model.h"
#include "predictor/offering.h"
#include "predictor/ranking.h"
#include "predictor/stream.h"

namespace taviro::predictor {

struct PredictorSettings {
    size_t nWords = 5;    ///< words in a list at most, 1 to MOST_OFFERED
    bool bLearns = true;  ///< notes what the user writes
    bool bBlanks = true;  ///< a word that is taken comes with a blank behind it
    /// Letters that the program cannot type from a list: on many keyboards they are typed with a
    /// dead key, and a word that arrives without them is worse than none.
    std::wstring strUntypeable;
    bool bRepeats = false;  ///< offers a word again for the same beginning that grew
    bool bAlways = false;   ///< shows every list that has a word, whatever it costs
    CostModel Costs;
    RankingConstants Ranking;
    StreamConstants Stream;
};
inline constexpr size_t MOST_OFFERED = 20;

/// The list in the program's format, empty for none, and the beginning as it stands in the text.
struct Answer {
    std::wstring strList;
    std::wstring strPrefix;
};

class Predictor {
  public:
    Model Words;  ///< without words until it is opened
    Learned Own;
    PredictorSettings Settings;

    /// Takes the typed beginning of the current word. The answer's prefix is what is left of it
    /// after Backspaces, control characters and a capital typed with Caps Lock.
    [[nodiscard]] Answer GetPrediction(std::wstring_view strPrefix);
    /// What the last answer offered, with probabilities.
    [[nodiscard]] const std::vector<Offer>& Shown() const { return m_Shown; }

    /// The likeliest words for a caller that knows the text: the previous word (empty at the start
    /// of a sentence), whether a comma stands behind it, what is typed (may be nothing), and the
    /// words not to be offered, in small letters.
    [[nodiscard]] std::vector<Offer> Complete(std::wstring_view strPrevious, bool bComma,
                                              std::wstring_view strTyped,
                                              const std::vector<std::wstring>& Passed) const;
    /// Learns from a caller that knows the text. Nothing while learning is off.
    void NoteWritten(std::wstring_view strPrevious, std::wstring_view strWord);
    /// Whether something was learned since the last call.
    [[nodiscard]] bool TakeChanged();
    /// Forgets all that was learned and the text so far.
    void Forget();

  private:
    void LearnFinished();
    [[nodiscard]] size_t Wanted() const;

    Stream m_Stream;
    std::vector<Offer> m_Shown;
    std::vector<Guess> m_Written;  // what the last finished word may have been
    bool m_bChanged = false;
};

}  // namespace taviro::predictor
