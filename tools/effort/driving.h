// SPDX-License-Identifier: MIT
// A user without errors types a text on the delivered map with the real program on the virtual
// desktop, in virtual time: moves the highlight by stick or waits for the scan, presses, and
// answers the lists that the predictor offers.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "predictor/predictor.h"

namespace taviro::effort {

struct DrivingWay {
    bool bScans = false;                         ///< waits for the scan instead of moving
    predictor::Predictor* pPredictor = nullptr;  ///< the dictionary, if there is one
};

struct Effort {
    size_t nCharacters = 0;
    size_t nMoves = 0;      ///< tilts on the map and in lists
    size_t nPresses = 0;    ///< of a button
    size_t nTaken = 0;      ///< words taken from lists
    size_t nDismissed = 0;  ///< lists sent away
    uint32_t nMilliseconds = 0;
    std::string strError;  ///< not empty: what went wrong, the rest does not count
    [[nodiscard]] double SecondsPerCharacter() const {
        return nCharacters == 0 ? 0 : nMilliseconds / 1000.0 / static_cast<double>(nCharacters);
    }
};

/// Drives a fresh program with these files: the map, and the text in the map's letters.
[[nodiscard]] Effort Drive(std::string_view strMapFile, const std::wstring& strText,
                           const DrivingWay& Way);

/// Letters that do not arrive on the virtual keyboard when they are typed from a list.
[[nodiscard]] std::wstring UntypeableLetters();

/// The text as it can be typed: typographic signs become plain ones, and what the map cannot type
/// is left out.
[[nodiscard]] std::wstring Typeable(std::string_view strMapFile, std::wstring_view strText);

}  // namespace taviro::effort
