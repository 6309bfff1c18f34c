// SPDX-License-Identifier: MIT
// What taviro_effort can be asked. Each command gets the words behind its name and returns the
// program's exit code: 0, 1 when something failed, or WRONG_WORDS when it does not understand them.
#pragma once

#include <span>
#include <string>

namespace taviro::effort {

inline constexpr int WRONG_WORDS = 2;
using CommandWords = std::span<const char* const>;

/// words [--keys|--learn|--stick|--scan] DICTIONARY MAP TEXT...
[[nodiscard]] int MeasureWords(CommandWords Given);
/// maps MAP... --texts TEXT...
[[nodiscard]] int MeasureMaps(CommandWords Given);
/// arrange ORDER ROWS WORDS MAP SEED
[[nodiscard]] int ArrangeMap(CommandWords Given);

/// Reads a whole file. Says so and returns false when it cannot be read or is empty.
[[nodiscard]] bool ReadFile(const char* szPath, std::string& strBytes);

}  // namespace taviro::effort
