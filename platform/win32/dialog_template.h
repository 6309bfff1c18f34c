// SPDX-License-Identifier: MIT
// A dialog's layout with the font that the user has chosen for messages. Layouts measure in units
// of their font, so they grow with it and with the screen's scaling.
#pragma once

#include <windows.h>

#include <cstdint>
#include <vector>

namespace taviro::platform::win32 {

/// The layout of that name from the program's resources, ready for CreateDialogIndirect; empty when
/// there is none.
std::vector<uint32_t> LoadDialogTemplate(const wchar_t* szName);

}  // namespace taviro::platform::win32
