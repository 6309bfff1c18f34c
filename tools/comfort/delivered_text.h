// SPDX-License-Identifier: MIT
// The comfort.ini that is delivered beside the program, written out of the table of keys: a test
// holds the file to it.
#pragma once

#include <span>
#include <string>

#include "settings/comfort_key.h"

namespace taviro::comfort {

/// The file's bytes: Windows-1250, every line ended by CR LF.
std::string DeliveredText(std::span<const ComfortKey> Keys);

}  // namespace taviro::comfort
