// SPDX-License-Identifier: MIT
// The user's options of the dictionary's server, from a small text file of his own:
//
//   [Presager]
//   Words=5    words in a list, 1 to 20
//   Learn=1    0: nothing that is written is remembered
//   Blanks=1   0: a word that is taken comes without a blank behind it
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "predictor/predictor.h"

namespace taviro::predictor {

/// Takes over what the file's text says; an option that is missing or has no sense stays as it is.
/// Returns an English sentence about each one without sense.
std::vector<std::string> ReadOptions(std::string_view strText, PredictorSettings& Settings);

}  // namespace taviro::predictor
