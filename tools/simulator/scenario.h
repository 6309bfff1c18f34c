// SPDX-License-Identifier: MIT
// Reads a scenario's text into steps. The first line that fits no sentence ends the reading with a
// message that says what was expected there.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tools/simulator/sentence.h"

namespace taviro::simulator {

struct Scenario {
    std::vector<Step> Steps;
};

struct ScenarioError {
    int nLine = 0;  ///< 1-based
    std::wstring strText;
};

/// Reads UTF-8 text. Returns false, with the error, at the first line that is wrong.
[[nodiscard]] bool ParseScenario(std::string_view strBytes, std::span<const Sentence> Language,
                                 Scenario& Result, ScenarioError& Error);

}  // namespace taviro::simulator
