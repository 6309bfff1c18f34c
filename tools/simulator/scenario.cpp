// SPDX-License-Identifier: MIT
#include "tools/simulator/scenario.h"

#include <algorithm>
#include <utility>

#include "platform/text.h"
#include "tools/simulator/gaps.h"
#include "tools/simulator/words.h"

namespace taviro::simulator {

namespace {

constexpr std::string_view BYTE_ORDER_MARK = "\xEF\xBB\xBF";
constexpr std::string_view BLOCK_GAP = "BLOCK";
constexpr std::wstring_view BLOCK_END = L"end";

std::vector<std::wstring> SplitLines(std::string_view strBytes) {
    if (strBytes.starts_with(BYTE_ORDER_MARK)) strBytes.remove_prefix(BYTE_ORDER_MARK.size());
    std::vector<std::wstring> Lines;
    while (!strBytes.empty()) {
        const auto nEnd = std::min(strBytes.find('\n'), strBytes.size());
        std::string_view strLine = strBytes.substr(0, nEnd);
        if (strLine.ends_with('\r')) strLine.remove_suffix(1);
        Lines.push_back(platform::FromUtf8(strLine));
        strBytes.remove_prefix(std::min(nEnd + 1, strBytes.size()));
    }
    return Lines;
}

std::vector<std::string_view> PatternWords(std::string_view strPattern) {
    std::vector<std::string_view> Words;
    while (!strPattern.empty()) {
        const auto nEnd = std::min(strPattern.find(' '), strPattern.size());
        Words.push_back(strPattern.substr(0, nEnd));
        strPattern.remove_prefix(std::min(nEnd + 1, strPattern.size()));
    }
    return Words;
}

// What the sentences that fitted furthest wanted next, for the message.
struct Expectations {
    size_t nAt = 0;
    std::vector<std::wstring> Wanted;

    void Add(size_t nWord, const std::wstring& strWanted) {
        if (nWord < nAt) return;
        if (nWord > nAt) Wanted.clear();
        nAt = nWord;
        if (std::find(Wanted.begin(), Wanted.end(), strWanted) == Wanted.end()) {
            Wanted.push_back(strWanted);
        }
    }
    std::wstring Text(const std::vector<Word>& Found) const {
        std::wstring strText = L"expected ";
        for (size_t n = 0; n < Wanted.size(); ++n) {
            if (n > 0) strText += n + 1 == Wanted.size() ? L" or " : L", ";
            strText += Wanted[n];
        }
        return strText + L", found " + (nAt < Found.size() ? Shown(Found[nAt]) : L"the line's end");
    }
};

// Whether the line is this sentence; fills the step's gaps, or adds what was wanted.
bool Fits(const Sentence& Candidate, const std::vector<Word>& Found, Step& Filled,
          Expectations& Wanted) {
    std::vector<std::string_view> Pattern = PatternWords(Candidate.szPattern);
    if (Pattern.back() == BLOCK_GAP) Pattern.pop_back();
    for (size_t n = 0; n < Pattern.size(); ++n) {
        const Gap* pGap = FindGap(Pattern[n]);
        const std::wstring strFixed = platform::FromUtf8(Pattern[n]);
        bool bFits = n < Found.size();
        if (bFits && pGap != nullptr) bFits = pGap->Take(Found[n], Filled);
        if (bFits && pGap == nullptr) bFits = !Found[n].bQuoted && Found[n].strText == strFixed;
        if (bFits) continue;
        Wanted.Add(n, pGap != nullptr ? std::wstring(pGap->strExpected) : L"\"" + strFixed + L"\"");
        return false;
    }
    if (Pattern.size() == Found.size()) return true;
    Wanted.Add(Pattern.size(), L"the line's end");
    return false;
}

bool FindSentence(std::span<const Sentence> Language, const std::vector<Word>& Found, Step& Filled,
                  std::wstring& strError) {
    Expectations Wanted;
    for (const Sentence& Candidate : Language) {
        Step Tried = Filled;
        if (!Fits(Candidate, Found, Tried, Wanted)) continue;
        Filled = std::move(Tried);
        Filled.pSentence = &Candidate;
        return true;
    }
    strError = Wanted.Text(Found);
    return false;
}

// Takes off the indentation that all lines share.
void RemoveIndentation(std::vector<std::wstring>& Lines) {
    size_t nCommon = std::wstring::npos;
    for (const std::wstring& strLine : Lines) {
        nCommon = std::min(nCommon, strLine.find_first_not_of(L" \t"));
    }
    for (std::wstring& strLine : Lines)
        strLine.erase(0, std::min(nCommon, strLine.size()));
}

bool HasBlock(const Sentence& Known) {
    return PatternWords(Known.szPattern).back() == BLOCK_GAP;
}

// Moves nNext past the block's "end".
bool TakeBlock(const std::vector<std::wstring>& Lines, size_t& nNext, Step& Filled) {
    for (; nNext < Lines.size(); ++nNext) {
        if (TrimSides(Lines[nNext]) == BLOCK_END) {
            ++nNext;
            RemoveIndentation(Filled.Block);
            return true;
        }
        Filled.Block.push_back(Lines[nNext]);
    }
    return false;
}

}  // namespace

bool ParseScenario(std::string_view strBytes, std::span<const Sentence> Language, Scenario& Result,
                   ScenarioError& Error) {
    Result.Steps.clear();
    const std::vector<std::wstring> Lines = SplitLines(strBytes);
    size_t nNext = 0;
    while (nNext < Lines.size()) {
        const std::wstring& strLine = Lines[nNext];
        ++nNext;
        Error.nLine = static_cast<int>(nNext);
        std::vector<Word> Found;
        if (!SplitWords(strLine, Found)) {
            Error.strText = L"a quotation mark is not closed";
            return false;
        }
        if (Found.empty()) continue;
        Step Next;
        Next.nLine = Error.nLine;
        Next.strLine = TrimSides(strLine);
        if (!FindSentence(Language, Found, Next, Error.strText)) return false;
        if (HasBlock(*Next.pSentence) && !TakeBlock(Lines, nNext, Next)) {
            Error.strText = L"the block that starts here has no line \"end\"";
            return false;
        }
        Result.Steps.push_back(std::move(Next));
    }
    return true;
}

}  // namespace taviro::simulator
