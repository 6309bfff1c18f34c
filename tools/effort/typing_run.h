// SPDX-License-Identifier: MIT
// A user without errors types a text with the program on the virtual desktop, in virtual time. With
// the stick every tilt is one cell and lasts as long as two looks at the joystick, one with the
// stick tilted and one with it let go, and so does a press.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tools/effort/routes.h"

namespace taviro::effort {

struct TypingWay {
    Wraps Edges;
    bool bResets = false;  ///< after every press the highlight goes back to the first cell
    bool bScans = false;   ///< waits for the scan instead of tilting; needs bResets
};

struct TypingCost {
    size_t nCharacters = 0;
    size_t nMoves = 0;    ///< tilts, or cells that the scan passed
    size_t nPresses = 0;  ///< of the action button
    uint32_t nMilliseconds = 0;
    std::string strError;  ///< not empty: what went wrong, the rest does not count
};

/// Types the text, as far as the map can type it, in a fresh program with this map file.
[[nodiscard]] TypingCost TypeText(std::string_view strMapFile, const std::wstring& strText,
                                  const TypingWay& Way);

}  // namespace taviro::effort
