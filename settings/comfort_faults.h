// SPDX-License-Identifier: MIT
// What is wrong with the bytes of a comfort.ini, for the log and for who writes such a file: what
// is never read, what is bounded, what means nothing.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "settings/comfort_key.h"

namespace taviro {

struct ComfortFault {
    size_t nLine;  ///< counted from 1
    std::wstring strText;
};

/// In the order of the lines. At most 20, and of the first 64 KiB: a file of something else is
/// nothing but faults.
std::vector<ComfortFault> FindComfortFaults(const std::string& strBytes,
                                            std::span<const ComfortKey> Keys);

}  // namespace taviro
