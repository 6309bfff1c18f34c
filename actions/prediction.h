// SPDX-License-Identifier: MIT
// Follows the word that is being typed key by key and offers its completions, from a dictionary
// component, in the choice list. Without that component there are no offers.
#pragma once

#include <cstdint>
#include <string>

#include "platform/automation.h"

namespace taviro {

struct PredictionState {
    /// Characters of the current word typed so far; a NUL stands for a key whose character is not
    /// known.
    std::wstring strPrefix;
    int32_t nTypedCount = 0;  ///< length of the prefix when the last prediction list was opened
    std::wstring
        strSuffix;  ///< texts of the "*"-marked entries confirmed since the last word ended
    platform::AutomationObject objDictionary;  ///< created on first use, kept for the run
};
inline PredictionState Prediction;

/// Takes an action into the current word, or ends the word, and opens the choice list with the
/// completions that the dictionary has. Arguments are the parts of the action's code: key number,
/// modifier digit (not used) and kind.
void UpdatePrediction(int32_t nKey, int32_t nModifiers, int32_t nKind);

}  // namespace taviro
