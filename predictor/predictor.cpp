// SPDX-License-Identifier: MIT
#include "predictor/predictor.h"

#include <algorithm>
#include <utility>

#include "predictor/letters.h"

namespace taviro::predictor {

size_t Predictor::Wanted() const {
    return std::clamp<size_t>(Settings.nWords, 1, MOST_OFFERED);
}

Answer Predictor::GetPrediction(std::wstring_view strPrefix) {
    if (m_Stream.Take(Words, strPrefix, Settings.Stream)) LearnFinished();
    const std::wstring& strTyped = m_Stream.Typed();
    if (!strTyped.empty()) {
        Query Asked{.strTyped = strTyped,
                    .Contexts = m_Stream.Contexts(Words, Settings.Stream),
                    .Passed = {},
                    .nMost = Wanted(),
                    .strUntypeable = Settings.strUntypeable};
        if (!Settings.bRepeats) Asked.Passed = m_Stream.Passed();
        m_Shown = Rank(Words, Own, Asked, Settings.Ranking);
        const bool bPays =
            ExpectedGain(m_Shown, strTyped.size(), Settings.Costs) > Settings.Costs.dLeastGain;
        if (!bPays && !Settings.bAlways) m_Shown.clear();
    }
    m_Stream.NoteShown(m_Shown);
    return {ListText(m_Shown, Settings.bBlanks), m_Stream.HandedBack()};
}

// Each guess counts by its likelihood, and so does each pair of guesses. A word that no dictionary
// has must be sure: it would be offered for ever.
void Predictor::LearnFinished() {
    const std::vector<Guess> Before = std::exchange(m_Written, {});
    if (!Settings.bLearns) return;
    const StreamConstants& Constants = Settings.Stream;
    for (const Guess& One : m_Stream.Finished()) {
        const WordId nWord = Words.Find(LowerText(One.strWord));
        if (One.dShare < (nWord == NO_WORD ? Constants.dSure : Constants.dLeastShare)) continue;
        Own.Note({}, One.strWord, nWord, One.dShare);
        m_Written.push_back(One);
        for (const Guess& Previous : Before) {
            const double dBoth = Previous.dShare * One.dShare;
            if (dBoth >= Constants.dLeastPair) Own.NotePair(Previous.strWord, One.strWord, dBoth);
        }
        m_bChanged = true;
    }
}

std::vector<Offer> Predictor::Complete(std::wstring_view strPrevious, bool bComma,
                                       std::wstring_view strTyped,
                                       const std::vector<std::wstring>& Passed) const {
    const Query Asked{.strTyped = std::wstring(strTyped),
                      .Contexts = ContextsAfter(Words, strPrevious, bComma),
                      .Passed = Passed,
                      .nMost = Wanted(),
                      .strUntypeable = Settings.strUntypeable};
    std::vector<Offer> Offers = Rank(Words, Own, Asked, Settings.Ranking);
    if (strPrevious.empty() && strTyped.empty()) {
        for (Offer& One : Offers)
            One.strText.front() = UpperLetter(One.strText.front());
    }
    return Offers;
}

void Predictor::NoteWritten(std::wstring_view strPrevious, std::wstring_view strWord) {
    if (!Settings.bLearns) return;
    Own.Note(strPrevious, strWord, Words.Find(LowerText(strWord)));
    m_bChanged = true;
}

bool Predictor::TakeChanged() {
    return std::exchange(m_bChanged, false);
}

void Predictor::Forget() {
    Own.Forget();
    m_Stream = Stream{};
    m_Shown.clear();
    m_Written.clear();
    m_bChanged = true;
}

}  // namespace taviro::predictor
