// SPDX-License-Identifier: MIT
// A text cut into its words and what stands between them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace taviro::effort {

/// A run of letters, and everything up to the next one.
struct TextWord {
    std::wstring strBefore;  ///< signs and blanks in front of the first word; empty for the others
    std::wstring strWord;
    std::wstring strBehind;
    std::wstring strPrevious;  ///< the word before in the same sentence, empty at its start
    bool bComma = false;       ///< a comma stands between the two
};

[[nodiscard]] std::vector<TextWord> WordsOf(std::wstring_view strText);

}  // namespace taviro::effort
