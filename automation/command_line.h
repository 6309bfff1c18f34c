// SPDX-License-Identifier: MIT
// What the command line asks of the program. Without one, or with words it does not know, it simply
// starts: whoever clicks on it must get his map.
#pragma once

#include <cstdint>
#include <string>

#include "win32/com/registration.h"

namespace taviro {

using com::RegistrationScope;

enum class StartKind {
    Normal,
    Embedding,  ///< the system starts the program because a script asks for its object
    Register,
    Unregister,
};

struct StartOrder {
    StartKind nKind = StartKind::Normal;
    RegistrationScope nScope = RegistrationScope::User;
    bool operator==(const StartOrder&) const = default;
};

/// Reads the first word: "/regserver", "/unregserver", both also with ":machine", or "/Embedding".
/// "-" stands for "/", and the case does not count.
StartOrder ParseCommandLine(const std::wstring& strArguments);

}  // namespace taviro
