// SPDX-License-Identifier: MIT
// The whole scenario language: every sentence with what it does. To add one, add a row and its
// procedure.
#pragma once

#include <span>

#include "tools/simulator/sentence.h"

namespace taviro::simulator {

/// All sentences, in the order in which the documentation explains them.
std::span<const Sentence> Language();

}  // namespace taviro::simulator
