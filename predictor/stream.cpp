// SPDX-License-Identifier: MIT
#include "predictor/stream.h"

#include <algorithm>
#include <functional>

#include "predictor/letters.h"

namespace taviro::predictor {

namespace {

constexpr wchar_t BACKSPACE = 8;
constexpr wchar_t FIRST_PRINTED = 32;
constexpr size_t MOST_GUESSES = 3;  // the others hardly count

Context ContextOf(const Model& Words, std::wstring_view strWord, double dShare) {
    const std::wstring strLower = LowerText(strWord);
    return {Words.Find(strLower), strLower, dShare};
}

// The likeliest word of just this length; empty when none is among the likeliest that begin so.
std::wstring LikeliestOfLength(const Model& Words, const std::wstring& strTyped) {
    constexpr int MOST_LOOKED_AT = 50;
    BestFirst Walk(Words, RangesOf(Words, strTyped, Match::Exact));
    for (int n = 0; n < MOST_LOOKED_AT; ++n) {
        std::wstring strWord = Words.Word(Walk.Next());
        if (strWord.size() == strTyped.size()) return strWord;
    }
    return {};
}

double MassOf(const Model& Words, const std::wstring& strTyped) {
    double dMass = 0;
    for (const WordRange& Range : RangesOf(Words, strTyped, Match::Exact))
        dMass += Words.Mass(Range);
    return dMass;
}

}  // namespace

std::wstring Stream::Cleaned(std::wstring_view strPrefix) {
    std::wstring strText;
    for (const wchar_t nCharacter : strPrefix) {
        if (nCharacter == BACKSPACE) {
            if (!strText.empty()) strText.pop_back();
        } else if (nCharacter != UNKNOWN_LETTER && nCharacter < FIRST_PRINTED) {
            strText.clear();
        } else {
            strText += nCharacter;
        }
    }
    return strText;
}

// A capital that is typed between two uses of Caps Lock comes as an unknown letter, the small
// letter and another unknown one. Whoever types so does it every time: from then on the capital is
// known before Caps Lock is released, until a word shows that the first key was a letter.
std::wstring Stream::ReadCapsLock(const std::wstring& strCleaned) {
    constexpr size_t WHOLE = 3;
    if (strCleaned.size() < 2 || strCleaned[0] != UNKNOWN_LETTER || !IsLetter(strCleaned[1])) {
        return strCleaned;
    }
    if (strCleaned.size() >= WHOLE) m_bCapsLock = strCleaned[2] == UNKNOWN_LETTER;
    if (!m_bCapsLock) return strCleaned;
    return UpperLetter(strCleaned[1]) + strCleaned.substr(std::min(strCleaned.size(), WHOLE));
}

bool Stream::Take(const Model& Words, std::wstring_view strPrefix,
                  const StreamConstants& Constants) {
    const std::wstring strCleaned = Cleaned(strPrefix);
    const std::wstring strTyped = ReadCapsLock(strCleaned);
    const bool bLonger = strPrefix.size() > m_strHandedBack.size() && !m_strHandedBack.empty();
    const bool bContinues = bLonger && strPrefix.starts_with(m_strHandedBack);
    const bool bSameAgain = strTyped.size() > 1 && strTyped == m_strTyped;
    // Before Caps Lock is released the program must keep what tells of it.
    const bool bReleased = strCleaned.size() > 2 || strTyped.size() == strCleaned.size();
    m_strHandedBack = bReleased ? strTyped : strCleaned;
    if (bContinues) {
        for (const Offer& Shown : m_Shown)
            m_Passed.push_back(LowerText(Shown.strText));
        m_Shown.clear();
        m_strTyped = strTyped;
        return false;
    }
    // A Backspace right behind a word that was taken tells nothing about the next one.
    if (bSameAgain || strTyped.empty()) return false;
    const bool bFinished = !m_strTyped.empty();
    if (bFinished) FinishWord(Words, Constants);
    m_strTyped = strTyped;
    m_Shown.clear();
    m_Passed.clear();
    return bFinished;
}

// How likely the letters that were typed are the whole word, on the scale of the offers.
double Stream::TypedShare(const Model& Words, const StreamConstants& Constants) const {
    if (m_Shown.empty()) return 1;  // nothing was there to be taken
    const WordId nWord = Words.Find(LowerText(m_strTyped));
    const double dMass = MassOf(Words, m_strTyped);
    if (nWord == NO_WORD || dMass <= 0) return Constants.dUnlisted;
    const auto itPassed = std::find(m_Passed.begin(), m_Passed.end(), LowerText(m_strTyped));
    const double dShare = Words.Probability(nWord) / dMass;
    return itPassed == m_Passed.end() ? dShare : dShare * Constants.dMissed;
}

void Stream::FinishWord(const Model& Words, const StreamConstants& Constants) {
    m_Finished.clear();
    std::wstring strTyped = m_strTyped;
    if (strTyped.find(UNKNOWN_LETTER) != std::wstring::npos) {
        strTyped = AsBegun(LikeliestOfLength(Words, strTyped), strTyped);
    }
    double dWhole = 0;
    if (IsOfferable(strTyped)) m_Finished.push_back({strTyped, TypedShare(Words, Constants)});
    for (const Offer& Shown : m_Shown)
        m_Finished.push_back({Shown.strText, Shown.dProbability});
    for (const Guess& One : m_Finished)
        dWhole += One.dShare;
    for (Guess& One : m_Finished)
        One.dShare /= dWhole;
    std::ranges::stable_sort(m_Finished, std::greater(), &Guess::dShare);
    if (m_Finished.size() > MOST_GUESSES) m_Finished.resize(MOST_GUESSES);
}

std::vector<Context> Stream::Contexts(const Model& Words, const StreamConstants& Constants) const {
    double dStart = IsBegunWithCapital(m_strTyped) ? Constants.dStartCapital : 0;
    if (m_Finished.empty()) dStart = std::max(dStart, Constants.dStartFirst);
    std::vector<Context> Found;
    if (dStart > 0) Found.push_back({SENTENCE_START, {}, dStart});
    if (m_Finished.empty()) return Found;
    Found.push_back({AFTER_COMMA, {}, (1 - dStart) * Constants.dComma});
    for (const Guess& One : m_Finished) {
        const double dShare = (1 - dStart) * (1 - Constants.dComma) * One.dShare;
        Found.push_back(ContextOf(Words, One.strWord, dShare));
    }
    return Found;
}

std::vector<Context> ContextsAfter(const Model& Words, std::wstring_view strPrevious, bool bComma) {
    constexpr double COMMA_SHARE = 0.8;
    if (strPrevious.empty()) return {{SENTENCE_START, {}, 1}};
    if (!bComma) return {ContextOf(Words, strPrevious, 1)};
    return {{AFTER_COMMA, {}, COMMA_SHARE}, ContextOf(Words, strPrevious, 1 - COMMA_SHARE)};
}

}  // namespace taviro::predictor
