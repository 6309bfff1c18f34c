// SPDX-License-Identifier: MIT
#include "tools/effort/words_of_text.h"

#include <algorithm>

#include "predictor/letters.h"

namespace taviro::effort {

namespace {

using predictor::IsLetter;

std::wstring TakeWhile(std::wstring_view& strRest, bool bLetters) {
    const auto it = std::find_if(strRest.begin(), strRest.end(),
                                 [&](wchar_t n) { return IsLetter(n) != bLetters; });
    std::wstring strTaken(strRest.begin(), it);
    strRest.remove_prefix(strTaken.size());
    return strTaken;
}

}  // namespace

std::vector<TextWord> WordsOf(std::wstring_view strText) {
    constexpr std::wstring_view SENTENCE_ENDS = L".!?\n";
    std::vector<TextWord> Words;
    std::wstring strBetween = TakeWhile(strText, false);
    while (!strText.empty()) {
        TextWord Next;
        if (Words.empty()) Next.strBefore = strBetween;
        Next.strWord = TakeWhile(strText, true);
        const bool bNewSentence =
            Words.empty() || strBetween.find_first_of(SENTENCE_ENDS) != std::wstring::npos;
        if (!bNewSentence) {
            Next.strPrevious = Words.back().strWord;
            Next.bComma = strBetween.find(L',') != std::wstring::npos;
        }
        strBetween = TakeWhile(strText, false);
        Next.strBehind = strBetween;
        Words.push_back(Next);
    }
    return Words;
}

}  // namespace taviro::effort
