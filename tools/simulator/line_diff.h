// SPDX-License-Identifier: MIT
// Two lists of lines side by side, as people read a difference.
#pragma once

#include <string>
#include <vector>

namespace taviro::simulator {

/// All lines in order: "  " before those that both have, "- " before those of Expected alone, "+ "
/// before those of Happened alone.
std::vector<std::string> DiffLines(const std::vector<std::string>& Expected,
                                   const std::vector<std::string>& Happened);

}  // namespace taviro::simulator
