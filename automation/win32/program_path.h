// SPDX-License-Identifier: MIT
// Where the running program is, with its own name.
#pragma once

#include <string>

namespace taviro::automation {

std::wstring ProgramPath();

}  // namespace taviro::automation
