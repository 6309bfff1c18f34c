// SPDX-License-Identifier: MIT
#include "predictor/typeable.h"

#include "predictor/letters.h"

namespace taviro::predictor {

std::wstring LettersWithoutKey(bool (*pIsTyped)(wchar_t nLetter)) {
    constexpr wchar_t BEHIND_LAST_LETTER = 0x180;
    std::wstring strLetters;
    for (wchar_t nLetter = L'A'; nLetter < BEHIND_LAST_LETTER; ++nLetter) {
        if (IsLetter(nLetter) && !pIsTyped(nLetter)) strLetters += nLetter;
    }
    return strLetters;
}

}  // namespace taviro::predictor
