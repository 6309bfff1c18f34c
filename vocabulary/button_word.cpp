// SPDX-License-Identifier: MIT
#include "vocabulary/button_word.h"

#include <algorithm>

namespace taviro::ButtonWord {

namespace {

constexpr wchar_t QUOTE = L'"';
constexpr wchar_t STORED_QUOTE = L'$';

std::wstring Replaced(std::wstring_view strText, wchar_t nOld, wchar_t nNew) {
    std::wstring strResult(strText);
    std::replace(strResult.begin(), strResult.end(), nOld, nNew);
    return strResult;
}

}  // namespace

std::wstring ToStoredQuotes(std::wstring_view strCommand) {
    return Replaced(strCommand, QUOTE, STORED_QUOTE);
}

std::wstring FromStoredQuotes(std::wstring_view strStored) {
    return Replaced(strStored, STORED_QUOTE, QUOTE);
}

}  // namespace taviro::ButtonWord
