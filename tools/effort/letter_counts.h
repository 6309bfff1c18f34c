// SPDX-License-Identifier: MIT
// How often one character follows another in Czech text, from a table of word frequencies. Words
// are taken as independent of each other: between the last letter of one and the first of the next
// stands a blank, or a comma or full stop and a blank, as often as in everyday letters.
#pragma once

#include <map>
#include <string_view>
#include <utility>

namespace taviro::effort {

struct LetterCounts {
    std::map<wchar_t, double> Single;                      ///< share of each character
    std::map<std::pair<wchar_t, wchar_t>, double> InARow;  ///< share of each two
};

/// strTable: UTF-8 lines "word TAB log10 of its share"; lines that begin with "#" are notes.
[[nodiscard]] LetterCounts CountLetters(std::string_view strTable);

}  // namespace taviro::effort
