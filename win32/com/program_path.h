// SPDX-License-Identifier: MIT
// Where the running program is, with its own name.
#pragma once

#include <string>

namespace taviro::com {

[[nodiscard]] std::wstring ProgramPath();

}  // namespace taviro::com
