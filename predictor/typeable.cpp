// SPDX-License-Identifier: MIT
#include "predictor/typeable.h"

#include <string_view>

#include "predictor/letters.h"

namespace taviro::predictor {

namespace {

constexpr wchar_t BEHIND_PLAIN_LETTERS = 0x80;
constexpr wchar_t BEHIND_LAST_LETTER = 0x180;
constexpr std::wstring_view MARKED = L"áčďéěíňóřšťúůýž";

}  // namespace

std::wstring UntypeableLetters() {
    std::wstring strLetters;
    for (wchar_t nLetter = BEHIND_PLAIN_LETTERS; nLetter < BEHIND_LAST_LETTER; ++nLetter) {
        const bool bTyped = MARKED.find(nLetter) != std::wstring_view::npos;
        if (IsLetter(nLetter) && !bTyped) strLetters += nLetter;
    }
    return strLetters;
}

}  // namespace taviro::predictor
