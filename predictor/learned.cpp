// SPDX-License-Identifier: MIT
#include "predictor/learned.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <unordered_set>
#include <utility>
#include <vector>

#include "predictor/letters.h"
#include "predictor/utf8.h"

namespace taviro::predictor {

namespace {

constexpr std::string_view FIRST_LINE = "Taviro learned words 1";
constexpr double LEAST_COUNT = 0.1;       // below it a count has faded
constexpr double HIGHEST_COUNT = 1e6;     // no more is believed of a file
constexpr size_t LARGEST_FILE = 4 << 20;  // bytes; far more than is ever written
constexpr double STORED_SCALE = 100;      // counts are stored as hundredths

std::string_view TakeField(std::string_view& strRest, char nEnd) {
    const std::string_view strField = strRest.substr(0, strRest.find(nEnd));
    strRest.remove_prefix(std::min(strField.size() + 1, strRest.size()));
    return strField;
}

bool ReadCount(std::string_view strField, double& dCount) {
    uint32_t nStored = 0;
    const char* pEnd = strField.data() + strField.size();
    const auto Result = std::from_chars(strField.data(), pEnd, nStored);
    const bool bNumber = Result.ec == std::errc{} && Result.ptr == pEnd;
    if (bNumber) dCount = std::min(nStored / STORED_SCALE, HIGHEST_COUNT);
    return bNumber && nStored > 0;
}

std::string CountText(double dCount) {
    return std::to_string(static_cast<uint32_t>(std::lround(dCount * STORED_SCALE)));
}

}  // namespace

void Learned::Raise(FadingCount& Count, double dShare) const {
    Count.dUnfaded += dShare / m_dLeft;
}

void Learned::Note(std::wstring_view strPrevious, std::wstring_view strWord, WordId nWord,
                   double dShare) {
    if (!IsOfferable(strWord) || (nWord == NO_WORD && !IsLearnable(strWord))) return;
    const std::wstring strLower = LowerText(strWord);
    m_dClock += dShare;
    m_dLeft = std::exp2(-m_dClock / HALF_LIFE);
    LearnedWord& Word = m_Words[strLower];
    // Written small once, it is no name: a capital was that of a sentence.
    if (Word.strWord.empty() || strWord == strLower) Word.strWord = strWord;
    Word.nWord = nWord;
    Raise(Word.Count, dShare);
    Raise(m_Total, dShare);
    NotePair(strPrevious, strWord, dShare);
    if (m_Words.size() > MOST_WORDS_KEPT || m_nPairs > MOST_PAIRS_KEPT) Shrink();
}

void Learned::NotePair(std::wstring_view strPrevious, std::wstring_view strWord, double dShare) {
    const std::wstring strBefore = LowerText(strPrevious);
    const std::wstring strLower = LowerText(strWord);
    if (!m_Words.contains(strBefore) || !m_Words.contains(strLower)) return;
    Pairs& After = m_Pairs[strBefore];
    const auto [it, bNew] = After.Nexts.try_emplace(strLower);
    m_nPairs += bNew ? 1 : 0;
    Raise(it->second, dShare);
    Raise(After.Total, dShare);
}

void Learned::Link(const Model& Words) {
    for (auto& [strKey, Word] : m_Words)
        Word.nWord = Words.Find(strKey);
}

void Learned::Forget() {
    *this = Learned{};
}

const Learned::Followers* Learned::After(const std::wstring& strPrevious) const {
    const auto it = m_Pairs.find(strPrevious);
    return it == m_Pairs.end() ? nullptr : &it->second.Nexts;
}

double Learned::TotalAfter(const std::wstring& strPrevious) const {
    const auto it = m_Pairs.find(strPrevious);
    return it == m_Pairs.end() ? 0 : Now(it->second.Total);
}

// Drops the least, a tenth more than necessary, so that it is rarely done.
void Learned::Shrink() {
    // Counts are compared as they are stored: on x86 a product has more digits than what was kept
    // of it, and would be less than itself.
    const double dLeast = LEAST_COUNT / m_dLeft;
    const auto Threshold = [dLeast](std::vector<double> Counts, size_t nMost) {
        const size_t nKept = nMost - nMost / 10;
        if (Counts.size() <= nMost) return dLeast;
        const auto it = Counts.begin() + static_cast<std::ptrdiff_t>(Counts.size() - nKept);
        std::nth_element(Counts.begin(), it, Counts.end());
        return std::max(dLeast, *it);
    };
    std::vector<double> WordCounts;
    for (const auto& [strKey, Word] : m_Words)
        WordCounts.push_back(Word.Count.dUnfaded);
    const double dLeastWord = Threshold(std::move(WordCounts), MOST_WORDS_KEPT);
    std::erase_if(m_Words,
                  [&](const auto& Item) { return Item.second.Count.dUnfaded < dLeastWord; });

    // Asked for every pair, which in the tree of all words would take most of the time of a start.
    std::unordered_set<std::wstring_view> Kept;
    for (const auto& [strKey, Word] : m_Words)
        Kept.insert(strKey);
    std::vector<double> PairCounts;
    for (const auto& [strKey, After] : m_Pairs) {
        for (const auto& [strNext, Count] : After.Nexts)
            PairCounts.push_back(Count.dUnfaded);
    }
    const double dLeastPair = Threshold(std::move(PairCounts), MOST_PAIRS_KEPT);
    m_nPairs = 0;
    for (auto& [strKey, After] : m_Pairs) {
        std::erase_if(After.Nexts, [&](const auto& Item) {
            return Item.second.dUnfaded < dLeastPair || !Kept.contains(Item.first);
        });
        After.Total = {};
        for (const auto& [strNext, Count] : After.Nexts)
            After.Total.dUnfaded += Count.dUnfaded;
    }
    std::erase_if(m_Pairs, [&](const auto& Item) {
        return Item.second.Nexts.empty() || !Kept.contains(Item.first);
    });
    for (const auto& [strKey, After] : m_Pairs)
        m_nPairs += After.Nexts.size();
}

// A word is a line "count word", its followers come after it as lines "count =word".
std::string Learned::Write() const {
    std::string Bytes(FIRST_LINE);
    Bytes += '\n';
    for (const auto& [strKey, Word] : m_Words) {
        if (Now(Word.Count) < LEAST_COUNT) continue;
        Bytes += CountText(Now(Word.Count)) + ' ' + ToUtf8(Word.strWord) + '\n';
        const Followers* pNexts = After(strKey);
        if (pNexts == nullptr) continue;
        for (const auto& [strNext, Count] : *pNexts) {
            if (Now(Count) < LEAST_COUNT) continue;
            Bytes += CountText(Now(Count)) + " =" + ToUtf8(strNext) + '\n';
        }
    }
    return Bytes;
}

bool Learned::Read(std::string_view Bytes, std::string& strError) {
    Forget();
    if (Bytes.size() > LARGEST_FILE || TakeField(Bytes, '\n') != FIRST_LINE) {
        strError = "The file of learned words is damaged or of another kind.";
        return false;
    }
    // What was written is in the order of the trees, so that each entry belongs at the end.
    std::wstring strKey;
    auto itPairs = m_Pairs.end();  // those of the word above; the end while it has none
    while (!Bytes.empty()) {
        std::string_view strRest = TakeField(Bytes, '\n');
        double dCount = 0;
        if (!ReadCount(TakeField(strRest, ' '), dCount)) continue;
        const bool bFollower = strRest.starts_with('=');
        const std::wstring strWord = FromUtf8(strRest.substr(bFollower ? 1 : 0));
        if (!IsOfferable(strWord)) continue;
        if (!bFollower) {
            strKey = LowerText(strWord);
            itPairs = m_Pairs.end();
            m_Words.insert_or_assign(m_Words.end(), strKey,
                                     LearnedWord{strWord, {dCount}, NO_WORD});
            m_Total.dUnfaded += dCount;
        } else if (!strKey.empty()) {
            if (itPairs == m_Pairs.end()) itPairs = m_Pairs.try_emplace(m_Pairs.end(), strKey);
            Followers& Nexts = itPairs->second.Nexts;
            Nexts.insert_or_assign(Nexts.end(), LowerText(strWord), FadingCount{dCount});
        }
    }
    Shrink();  // counts the pairs
    return true;
}

}  // namespace taviro::predictor
