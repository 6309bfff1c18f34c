// SPDX-License-Identifier: MIT
// What the registry must hold so that scripts find the automation object: its class and where the
// program is, its interface and the type library inside the program.
#pragma once

#include <string>

#include "automation/command_line.h"
#include "win32/com/registration.h"

namespace taviro {

/// For a program at this path; for unregistering the path does not matter.
com::Registration GuiRegistration(const std::wstring& strProgramPath);

/// What the user reads when the order failed for this reason of the system.
std::wstring RegistrationFailure(const StartOrder& Order, const std::wstring& strReason);

}  // namespace taviro
