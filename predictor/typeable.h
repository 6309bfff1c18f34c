// SPDX-License-Identifier: MIT
// Which letters the program cannot type from a list. It types each with the keys of the Czech
// keyboard that its maps are written for, whatever layout the program in front has; ď, ň, ť and ó
// after a dead key, and no capital with a mark.
#pragma once

#include <string>

namespace taviro::predictor {

/// All letters that the predictor knows and that cannot be typed.
[[nodiscard]] std::wstring UntypeableLetters();

}  // namespace taviro::predictor
