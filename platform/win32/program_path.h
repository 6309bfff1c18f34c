// SPDX-License-Identifier: MIT
// Where the running program is, with its own name.
#pragma once

#include <string>

namespace taviro::platform::win32 {

std::wstring ProgramPath();

}  // namespace taviro::platform::win32
