// SPDX-License-Identifier: MIT
// Whether a list of words is worth the user's answer, and the list's text. A list that comes up
// must be answered: by stepping to a word and taking it, or by sending the list away. It is only
// shown when the letters that it is expected to spare outweigh that.
#pragma once

#include <string>
#include <vector>

#include "predictor/ranking.h"

namespace taviro::predictor {

/// What answers cost, in units of what one letter costs. Measured with a stick on the delivered
/// map: a letter takes 0.8 s, a step in the list and a press 0.2 s each.
struct CostModel {
    double dTake = 0.25;      ///< taking the selected word
    double dStep = 0.25;      ///< from one word to the next
    double dDismiss = 0.25;   ///< sending the list away
    double dBlank = 0.9;      ///< what a blank after the word would have cost
    double dLeastGain = 0.4;  ///< expected gain at which a list is shown: offers are overrated
};

/// Letters that the list is expected to spare, less what it costs.
[[nodiscard]] double ExpectedGain(const std::vector<Offer>& Offers, size_t nTyped,
                                  const CostModel& Costs);

/// The words as segments behind an empty first one, each after a ";", with a blank at its end when
/// bBlanks: the program then types one after the word. Empty when there is no word.
[[nodiscard]] std::wstring ListText(const std::vector<Offer>& Offers, bool bBlanks);

}  // namespace taviro::predictor
