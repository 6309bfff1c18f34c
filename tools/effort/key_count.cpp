// SPDX-License-Identifier: MIT
#include "tools/effort/key_count.h"

#include <algorithm>

#include "predictor/letters.h"
#include "tools/effort/words_of_text.h"

namespace taviro::effort {

namespace {

using predictor::Offer;

class Typist {
  public:
    Typist(predictor::Predictor& Asked, const KeyCountWay& Way) : m_Asked(Asked), m_Way(Way) {}

    void Type(const TextWord& Next);
    KeyCount Count;

  private:
    std::vector<Offer> List(const TextWord& Next, size_t nTyped);
    bool Take(const TextWord& Next, size_t nTyped, const std::vector<Offer>& Offers);

    predictor::Predictor& m_Asked;
    const KeyCountWay& m_Way;
    std::vector<std::wstring> m_Passed;
};

std::vector<Offer> Typist::List(const TextWord& Next, size_t nTyped) {
    if (nTyped == 0 && !(m_Way.bBeforeLetters && m_Way.bTruth)) return {};
    const std::wstring strTyped = Next.strWord.substr(0, nTyped);
    std::vector<Offer> Offers;
    if (m_Way.bTruth) {
        Offers = m_Asked.Complete(Next.strPrevious, Next.bComma, strTyped, m_Passed);
    } else {
        (void)m_Asked.GetPrediction(strTyped);
        Offers = m_Asked.Shown();
    }
    if (!Offers.empty()) ++Count.nLists;
    if (!m_Way.bRepeats) {
        for (const Offer& Shown : Offers)
            m_Passed.push_back(predictor::LowerText(Shown.strText));
    }
    return Offers;
}

// Takes the word when it is there and spares a key.
bool Typist::Take(const TextWord& Next, size_t nTyped, const std::vector<Offer>& Offers) {
    const bool bThere = std::any_of(Offers.begin(), Offers.end(), [&](const Offer& Shown) {
        return Shown.strText == Next.strWord;
    });
    const bool bBlank = Next.strBehind.starts_with(L' ');
    const size_t nSpared = Next.strWord.size() - nTyped + (bBlank ? 1 : 0);
    const size_t nCost = bBlank || m_Way.bFreeBlank || Next.strBehind.empty() ? 1 : 2;
    if (!bThere || nSpared <= nCost) return false;
    Count.nKeys = Count.nKeys + nCost - (bBlank ? 1 : 0);  // its blank is counted with the signs
    ++Count.nTaken;
    return true;
}

void Typist::Type(const TextWord& Next) {
    m_Passed.clear();
    Count.nCharacters += Next.strBefore.size() + Next.strWord.size() + Next.strBehind.size();
    Count.nKeys += Next.strBefore.size() + Next.strBehind.size();
    for (size_t n = 0; n <= Next.strWord.size(); ++n) {
        const std::vector<Offer> Offers = List(Next, n);
        if (n == Next.strWord.size() || Take(Next, n, Offers)) break;
        ++Count.nKeys;
    }
    if (m_Way.bLearns && m_Way.bTruth) m_Asked.NoteWritten(Next.strPrevious, Next.strWord);
}

}  // namespace

TextCount CountKeys(predictor::Predictor& Asked, std::wstring_view strText,
                    const KeyCountWay& Way) {
    Asked.Settings.bLearns = Way.bLearns;
    Asked.Settings.bRepeats = Way.bRepeats;
    Asked.Settings.bAlways = true;
    Typist One(Asked, Way);
    const std::vector<TextWord> Words = WordsOf(strText);
    KeyCount Before;
    for (size_t n = 0; n < Words.size(); ++n) {
        if (n == Words.size() * 3 / 4) Before = One.Count;
        One.Type(Words[n]);
    }
    return {One.Count, One.Count - Before};
}

}  // namespace taviro::effort
