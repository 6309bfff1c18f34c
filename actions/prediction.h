// SPDX-License-Identifier: MIT
// Follows the word that is being typed key by key and offers its completions, from a dictionary
// component, in the choice list. Without that component there are no offers. Kept beside each
// other: the typed prefix, which is what the dictionary is asked with, and what really stands in
// the text. How a chosen completion takes its place is decided in entry_typing.h.
#pragma once

#include <cstdint>
#include <string>

#include "actions/standing_word.h"
#include "platform/automation.h"

namespace taviro {

struct PredictionState {
    /// Characters of the current word typed so far; a NUL stands for a key whose character is not
    /// known. This is what the dictionary is asked with, and it may hand a corrected one back.
    std::wstring strPrefix;
    int32_t nTypedCount{};  ///< length of the prefix when the last prediction list was opened
    /// The text of the "*"-marked entry confirmed last: the next marked one is put in front of it.
    std::wstring strSuffix;
    StandingWord Standing;  ///< what of the word is in the text, and so may be erased
    platform::AutomationObject objDictionary;  ///< created on first use, kept for the run
};
inline PredictionState Prediction;

/// Takes an action into the current word, or ends the word, and opens the choice list with the
/// completions that the dictionary has. Arguments are the parts of the action's code: key number,
/// modifier digit (which does not matter to the prefix) and whole kind.
void UpdatePrediction(int32_t nKey, int32_t nModifiers, int32_t nKind);

}  // namespace taviro
