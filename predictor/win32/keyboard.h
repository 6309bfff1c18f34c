// SPDX-License-Identifier: MIT
// What the present keyboard layout means for the words that can be offered.
#pragma once

#include <string>

namespace taviro::predictor {

/// The letters that Taviro cannot type from a list. It looks for each character's key, and a few
/// letters it types after a dead key. Asked of the calling thread's layout, which for a new process
/// is the user's default one, the same as that of Taviro's window.
[[nodiscard]] std::wstring UntypeableLetters();

}  // namespace taviro::predictor
