// SPDX-License-Identifier: MIT
#include "predictor/offering.h"

#include "predictor/letters.h"

namespace taviro::predictor {

double ExpectedGain(const std::vector<Offer>& Offers, size_t nTyped, const CostModel& Costs) {
    double dGain = 0;
    double dMissed = 1;
    double dSteps = 0;
    for (const Offer& Shown : Offers) {
        const auto dLetters =
            static_cast<double>(Shown.strText.size()) - static_cast<double>(nTyped);
        dGain += Shown.dProbability * (dLetters + Costs.dBlank - Costs.dTake - dSteps);
        dMissed -= Shown.dProbability;
        dSteps += Costs.dStep;
    }
    return dGain - dMissed * Costs.dDismiss;
}

std::wstring ListText(const std::vector<Offer>& Offers, bool bBlanks) {
    std::wstring strList;
    for (const Offer& Shown : Offers) {
        if (!IsOfferable(Shown.strText)) continue;
        strList += L';' + Shown.strText;
        if (bBlanks) strList += L' ';
    }
    return strList;
}

}  // namespace taviro::predictor
