// SPDX-License-Identifier: MIT
// What broken code asks: whether its break is switched on. The number comes from the environment
// once; every break that is asked for is remembered as reached.
#pragma once

#include <array>
#include <cstdint>
#include <cstdlib>
#include <type_traits>

namespace mutants {

inline constexpr std::size_t NUMBERS = 512 * 2048;
inline constexpr int NOT_READ_YET = -1;  // static initialisers ask before anything else runs

alignas(8) inline std::array<unsigned char, NUMBERS> Reached{};
inline int nChosen = NOT_READ_YET;

inline bool Broken(int nNumber) {
    if (nChosen == NOT_READ_YET) {
        const char* szNumber = std::getenv("TAVIRO_MUTANT");
        nChosen = szNumber == nullptr ? 0 : std::atoi(szNumber);
    }
    Reached.data()[nNumber] = 1;
    return nNumber == nChosen;
}

/// The same where the compiler may want the value: what it computes itself is never broken.
constexpr bool BrokenAtRun(int nNumber) {
    if (std::is_constant_evaluated()) return false;
    return Broken(nNumber);
}

}  // namespace mutants
