// SPDX-License-Identifier: MIT
// The gaps of sentences: which words each takes, what it makes of them, and how an error message
// describes what was expected there.
#pragma once

#include <string>
#include <string_view>

#include "tools/simulator/sentence.h"
#include "tools/simulator/words.h"

namespace taviro::simulator {

/// Directions of the stick as bits, so that a diagonal is the sum of two; 0 is the centre.
enum StickBits : int32_t { StickRight = 1, StickLeft = 2, StickDown = 4, StickUp = 8 };

/// Operating modes in the order of the words of the gap MODE.
enum class ModeWord : int32_t { Select, Scan, Arrow, Application, List };

inline constexpr int32_t LAST_BUTTON = 31;  ///< the joystick's record has 32 button bits

struct Gap {
    std::string_view strName;                       ///< as it stands in patterns
    std::wstring_view strExpected;                  ///< continues "expected ..."
    bool (*Take)(const Word& Found, Step& Filled);  ///< false when the word does not fit
};

/// The gap of a pattern's word, nullptr when it is a fixed word.
const Gap* FindGap(std::string_view strName);

}  // namespace taviro::simulator
