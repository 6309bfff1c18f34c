// SPDX-License-Identifier: MIT
// Which letters the program cannot type from a list, asked of the keyboard letter by letter.
#pragma once

#include <string>

namespace taviro::predictor {

/// All letters that the predictor knows and for which IsTyped says no.
[[nodiscard]] std::wstring LettersWithoutKey(bool (*pIsTyped)(wchar_t nLetter));

}  // namespace taviro::predictor
