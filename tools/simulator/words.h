// SPDX-License-Identifier: MIT
// Cuts a line of a scenario into words. A text in quotation marks is one word, two quotation marks
// inside it stand for one; "#" starts a comment; "200ms" counts as two words.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace taviro::simulator {

struct Word {
    std::wstring strText;
    bool bQuoted = false;
};

/// Returns false when a quotation mark is not closed.
[[nodiscard]] bool SplitWords(std::wstring_view strLine, std::vector<Word>& Words);

/// The word as an error message shows it: in quotation marks.
std::wstring Shown(const Word& Found);

/// The line without blanks, tabs and a line end at its sides.
std::wstring_view TrimSides(std::wstring_view strLine);

}  // namespace taviro::simulator
