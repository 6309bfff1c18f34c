// SPDX-License-Identifier: MIT
// What a scenario is made of: sentences, one a line. A sentence is a pattern of fixed words and
// gaps; a line that fits it becomes a step, which carries what stood in the gaps.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace taviro::simulator {

class ScenarioRun;
struct Step;

/// One sentence of the language. Words in capitals are gaps (see gaps.h); BLOCK at the end means
/// that the lines up to "end" belong to the sentence.
struct Sentence {
    const char* szPattern;
    const char* szMeaning;  ///< for the list that the program prints
    void (*Do)(ScenarioRun&, const Step&);
};

/// One line of a scenario. The gaps' contents stand in the order of the gaps, texts and numbers
/// each in a list of their own.
struct Step {
    int nLine = 0;         ///< 1-based
    std::wstring strLine;  ///< as written, without the blanks around it
    const Sentence* pSentence = nullptr;
    std::vector<std::wstring> Texts;
    std::vector<int32_t> Numbers;
    std::vector<std::wstring> Block;  ///< lines of the block without their common indentation
};

}  // namespace taviro::simulator
