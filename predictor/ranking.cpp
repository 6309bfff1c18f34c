// SPDX-License-Identifier: MIT
#include "predictor/ranking.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "predictor/letters.h"

namespace taviro::predictor {

namespace {

// A word of the dictionary that was only ever suspected of having been written is not looked at:
// its frequency says as much.
constexpr double HARDLY_WRITTEN = 0.3;
constexpr size_t USUAL_CANDIDATES = 512;

struct Candidate {
    WordId nWord = NO_WORD;             // NO_WORD: only the user has it
    const LearnedWord* pOwn = nullptr;  // a word that only the user has
    double dExtra = 0;                  // above its share of the frequencies
};

// One kind of match; the two kinds are ranked one after the other.
class Ranker {
  public:
    Ranker(const Model& Words, const Learned& Own, const Query& Asked,
           const RankingConstants& Constants)
        : m_Words(Words), m_Own(Own), m_Asked(Asked), m_Constants(Constants) {}

    std::vector<Offer> Run(Match nMatch, const std::vector<Offer>& Better);

  private:
    void Weigh();
    void CollectFollowers();
    std::wstring FixedBeginning() const;
    template <typename Sorted, typename Taker>
    void ForEachFitting(const Sorted& Store, const Taker& Take) const;
    void CollectOwn();
    void CollectOwnFollowers();
    void MergeCandidates();
    void AddOwn(const LearnedWord& Word, double dExtra);
    void Consider(const std::wstring& strWord, double dScore);
    void ConsiderCandidates();
    void WalkFrequencies();
    double Enough() const;
    double CaseFactor(const std::wstring& strWord) const;
    double WholeMass() const;

    const Model& m_Words;
    const Learned& m_Own;
    const Query& m_Asked;
    const RankingConstants& m_Constants;
    Match m_nMatch = Match::Exact;
    const std::vector<Offer>* m_pBetter = nullptr;

    double m_dBase = 1;                                 // share of the frequencies
    double m_dOwn = 0;                                  // share of the user's words
    std::vector<double> m_PairShares, m_OwnPairShares;  // by context
    std::vector<WordRange> m_Ranges;
    std::vector<Candidate> m_Candidates;
    std::vector<Offer> m_Best;  // scores, best first
    double m_dPassed = 0;       // score of the words not to be offered
};

double Trust(double dSeen, double dTrust, double dHalf) {
    return dSeen > 0 ? dTrust * dSeen / (dSeen + dHalf) : 0;
}

void Ranker::Weigh() {
    double dPairs = 0;
    for (const Context& Before : m_Asked.Contexts) {
        const double dSeen = m_Own.TotalAfter(Before.strLower);
        const double dOwn = Trust(dSeen, m_Constants.dOwnPairTrust, m_Constants.dOwnPairHalf);
        const auto [dTotal, dFollowers] = m_Words.SizeOfContext(Before.nContext);
        const double dBooks =
            Trust(dTotal, m_Constants.dPairTrust, m_Constants.dPairHalf * dFollowers);
        m_OwnPairShares.push_back(Before.dShare * dOwn);
        m_PairShares.push_back(Before.dShare * (1 - dOwn) * dBooks);
        dPairs += m_OwnPairShares.back() + m_PairShares.back();
    }
    const double dRest = std::max(0.0, 1 - dPairs);
    m_dOwn = dRest * Trust(m_Own.Total(), m_Constants.dOwnTrust, m_Constants.dOwnHalf);
    m_dBase = dRest - m_dOwn;
}

void Ranker::CollectFollowers() {
    std::vector<Follower> Found;
    for (size_t n = 0; n < m_Asked.Contexts.size(); ++n) {
        const uint32_t nContext = m_Asked.Contexts[n].nContext;
        Found.clear();
        for (const WordRange& Range : m_Ranges)
            m_Words.AppendFollowers(nContext, Range, Found);
        const double dUnit = m_PairShares[n] / m_Words.SizeOfContext(nContext).dTotal;
        for (const Follower& Next : Found)
            m_Candidates.push_back({Next.nWord, nullptr, Next.dCount * dUnit});
    }
}

void Ranker::AddOwn(const LearnedWord& Word, double dExtra) {
    const bool bListed = Word.nWord < m_Words.WordCount();
    m_Candidates.push_back({bListed ? Word.nWord : NO_WORD, bListed ? nullptr : &Word, dExtra});
}

// Up to the first letter that can vary, words stand together.
std::wstring Ranker::FixedBeginning() const {
    const std::wstring strTyped = LowerText(m_Asked.strTyped);
    if (m_nMatch != Match::Exact) return {};
    return strTyped.substr(0, strTyped.find(UNKNOWN_LETTER));
}

// Hands over what of a sorted store begins as typed. Words that differ early on stand together: all
// of them are passed over at once.
template <typename Sorted, typename Taker>
void Ranker::ForEachFitting(const Sorted& Store, const Taker& Take) const {
    constexpr size_t EARLY = 2;
    const std::wstring strFixed = FixedBeginning();
    for (auto it = Store.lower_bound(strFixed);
         it != Store.end() && it->first.starts_with(strFixed);) {
        const size_t nFitting = FittingLetters(it->first, m_Asked.strTyped, m_nMatch);
        if (nFitting < m_Asked.strTyped.size() && nFitting < std::min(EARLY, it->first.size())) {
            std::wstring strBehind = it->first.substr(0, nFitting + 1);
            ++strBehind.back();
            it = Store.lower_bound(strBehind);
        } else {
            if (nFitting == m_Asked.strTyped.size()) Take(it->first, it->second);
            ++it;
        }
    }
}

void Ranker::CollectOwn() {
    ForEachFitting(m_Own.Words(), [this](const std::wstring&, const LearnedWord& Word) {
        const double dCount = m_Own.Now(Word.Count);
        const bool bSays = dCount >= HARDLY_WRITTEN || Word.nWord == NO_WORD;
        if (bSays) AddOwn(Word, dCount * m_dOwn / m_Own.Total());
    });
}

void Ranker::CollectOwnFollowers() {
    for (size_t n = 0; n < m_Asked.Contexts.size(); ++n) {
        const std::wstring& strBefore = m_Asked.Contexts[n].strLower;
        const Learned::Followers* pNexts = m_Own.After(strBefore);
        if (pNexts == nullptr) continue;
        const double dUnit = m_OwnPairShares[n] / m_Own.TotalAfter(strBefore);
        ForEachFitting(*pNexts, [&](const std::wstring& strNext, const FadingCount& Count) {
            const auto it = m_Own.Words().find(strNext);
            if (it != m_Own.Words().end()) AddOwn(it->second, m_Own.Now(Count) * dUnit);
        });
    }
}

// One candidate a word.
void Ranker::MergeCandidates() {
    std::sort(m_Candidates.begin(), m_Candidates.end(), [](const auto& A, const auto& B) {
        return A.nWord != B.nWord ? A.nWord < B.nWord : std::less<>()(A.pOwn, B.pOwn);
    });
    std::vector<Candidate> Merged;
    Merged.reserve(m_Candidates.size());
    for (const Candidate& Next : m_Candidates) {
        if (!Merged.empty() && Merged.back().nWord == Next.nWord &&
            Merged.back().pOwn == Next.pOwn) {
            Merged.back().dExtra += Next.dExtra;
        } else {
            Merged.push_back(Next);
        }
    }
    m_Candidates = std::move(Merged);
}

double Ranker::CaseFactor(const std::wstring& strWord) const {
    const bool bName = IsCapital(strWord.front());
    if (IsBegunWithCapital(m_Asked.strTyped)) return bName ? 1 : m_Constants.dCommonCapital;
    return bName ? m_Constants.dNameSmall : 1;
}

// A score that a further word must pass to be among the best.
double Ranker::Enough() const {
    return m_Best.size() < m_Asked.nMost ? 0 : m_Best.back().dProbability;
}

// Takes the word among the best if it may be offered and its score is good enough.
void Ranker::Consider(const std::wstring& strWord, double dScore) {
    const std::wstring& strTyped = m_Asked.strTyped;
    if (strWord.size() < strTyped.size() || !IsOfferable(strWord)) return;
    const std::wstring strLower = LowerText(strWord);
    dScore *= CaseFactor(strWord);
    if (std::find(m_Asked.Passed.begin(), m_Asked.Passed.end(), strLower) != m_Asked.Passed.end()) {
        m_dPassed += dScore;
        return;
    }
    const std::wstring strText = AsBegun(strWord, strTyped);
    // Typed to its end. An unknown letter is taken for the right one.
    const bool bTyped =
        strText.size() == strTyped.size() &&
        std::equal(strText.begin(), strText.end(), strTyped.begin(),
                   [](wchar_t nHas, wchar_t n) { return nHas == n || n == UNKNOWN_LETTER; });
    if (strText.find_first_of(m_Asked.strUntypeable) != std::wstring::npos) return;
    const auto SameText = [&](const Offer& Known) { return Known.strText == strText; };
    if (bTyped || std::any_of(m_pBetter->begin(), m_pBetter->end(), SameText)) return;
    const auto itSame = std::find_if(m_Best.begin(), m_Best.end(), SameText);
    if (itSame != m_Best.end()) {  // a name and a common word, both begun with a capital
        if (itSame->dProbability >= dScore) return;
        m_Best.erase(itSame);
    }
    if (dScore <= Enough()) return;
    const auto it = std::upper_bound(
        m_Best.begin(), m_Best.end(), dScore,
        [](double dValue, const Offer& Known) { return dValue > Known.dProbability; });
    m_Best.insert(it, {strText, dScore});
    if (m_Best.size() > m_Asked.nMost) m_Best.pop_back();
}

// The best first, so that most are never looked at.
void Ranker::ConsiderCandidates() {
    std::vector<std::pair<double, const Candidate*>> Scores;
    Scores.reserve(m_Candidates.size());
    for (const Candidate& Known : m_Candidates)
        Scores.emplace_back(Known.dExtra + m_Words.Probability(Known.nWord) * m_dBase, &Known);
    // Of two equal ones the first in the alphabet comes first.
    const auto IsWorse = [](const auto& A, const auto& B) {
        return A.first != B.first ? A.first < B.first : A.second > B.second;
    };
    std::make_heap(Scores.begin(), Scores.end(), IsWorse);
    while (!Scores.empty() && Scores.front().first > Enough()) {
        const Candidate& Best = *Scores.front().second;
        const bool bOwn = Best.nWord == NO_WORD;
        Consider(bOwn ? Best.pOwn->strWord : m_Words.Word(Best.nWord), Scores.front().first);
        std::pop_heap(Scores.begin(), Scores.end(), IsWorse);
        Scores.pop_back();
    }
}

// The words with nothing but their frequency, until none can be good enough any more.
void Ranker::WalkFrequencies() {
    BestFirst Walk(m_Words, m_Ranges);
    for (WordId nWord = Walk.Next(); nWord != NO_WORD; nWord = Walk.Next()) {
        const double dScore = m_Words.Probability(nWord) * m_dBase;
        if (dScore <= Enough()) return;
        const auto it = std::lower_bound(m_Candidates.begin(), m_Candidates.end(), nWord,
                                         [](const auto& A, WordId n) { return A.nWord < n; });
        if (it != m_Candidates.end() && it->nWord == nWord) continue;
        Consider(m_Words.Word(nWord), dScore);
    }
}

// The score of all words that begin as typed.
double Ranker::WholeMass() const {
    double dMass = 0;
    for (const WordRange& Range : m_Ranges)
        dMass += m_Words.Mass(Range) * m_dBase;
    for (const Candidate& Known : m_Candidates)
        dMass += Known.dExtra;
    return IsBegunWithCapital(m_Asked.strTyped) ? dMass * m_Constants.dCommonCapital : dMass;
}

std::vector<Offer> Ranker::Run(Match nMatch, const std::vector<Offer>& Better) {
    m_nMatch = nMatch;
    m_pBetter = &Better;
    Weigh();
    m_Ranges = RangesOf(m_Words, m_Asked.strTyped, nMatch);
    m_Candidates.reserve(USUAL_CANDIDATES);
    CollectFollowers();
    CollectOwn();
    CollectOwnFollowers();
    MergeCandidates();
    ConsiderCandidates();
    WalkFrequencies();
    double dShown = 0;
    for (const Offer& Shown : m_Best)
        dShown += Shown.dProbability;
    const double dMass = std::max(WholeMass() - m_dPassed, dShown);
    for (Offer& Shown : m_Best)
        Shown.dProbability /= dMass;
    return std::move(m_Best);
}

bool HasPlainLetter(std::wstring_view strTyped) {
    return std::any_of(strTyped.begin(), strTyped.end(),
                       [](wchar_t n) { return n != UNKNOWN_LETTER && PlainLetter(n) == n; });
}

}  // namespace

bool IsBegunWithCapital(std::wstring_view strTyped) {
    return !strTyped.empty() && (strTyped.front() == UNKNOWN_LETTER || IsCapital(strTyped.front()));
}

std::wstring AsBegun(std::wstring_view strWord, std::wstring_view strTyped) {
    std::wstring strText(strWord);
    if (strTyped.empty() || strText.empty()) return strText;
    const auto nCapitals = std::count_if(strTyped.begin(), strTyped.end(), IsCapital);
    if (nCapitals >= 2 && static_cast<size_t>(nCapitals) == strTyped.size()) {
        std::transform(strText.begin(), strText.end(), strText.begin(), UpperLetter);
        return strText;
    }
    const wchar_t nFirst = strText.front();
    const bool bUnknownCapital =
        strTyped.front() == UNKNOWN_LETTER && PlainLetter(nFirst) == nFirst;
    if (IsCapital(strTyped.front()) || bUnknownCapital) strText.front() = UpperLetter(nFirst);
    return strText;
}

std::vector<Offer> Rank(const Model& Words, const Learned& Own, const Query& Asked,
                        const RankingConstants& Constants) {
    if (Asked.nMost == 0) return {};
    std::vector<Offer> Offers = Ranker(Words, Own, Asked, Constants).Run(Match::Exact, {});
    if (Offers.size() >= Asked.nMost || !HasPlainLetter(Asked.strTyped)) return Offers;
    Query Rest = Asked;
    Rest.nMost -= Offers.size();
    const double dFactor = Offers.empty() ? 1 : Constants.dFolded;
    for (Offer& Found : Ranker(Words, Own, Rest, Constants).Run(Match::Folded, Offers))
        Offers.push_back({std::move(Found.strText), Found.dProbability * dFactor});
    return Offers;
}

}  // namespace taviro::predictor
