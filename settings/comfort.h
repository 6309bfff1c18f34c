// SPDX-License-Identifier: MIT
// What makes the program kinder than its rules. Every field starts as the rules have it; only
// comfort.ini changes it, so whoever reads a field need not ask whether there is such a file. A new
// key is a field here and a row in comfort.cpp.
#pragma once

#include <span>

#include "settings/comfort_key.h"

namespace taviro {

struct ComfortValues {
    bool bWatch = false;            ///< [Stick] Watch: a joystick may come and go
    bool bWindowRights = false;     ///< [Windows] Rights: says which windows may not be driven
    bool bLaunchedInFront = false;  ///< [Windows] Front: launched programs come to the front
};

/// What is in force now; written by the store alone.
inline ComfortValues Comfort;

/// One row for each key, in the order of the delivered file; a section's keys follow one another.
std::span<const ComfortKey> ComfortKeys();

}  // namespace taviro
