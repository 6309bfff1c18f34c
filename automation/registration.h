// SPDX-License-Identifier: MIT
// What the registry must hold so that scripts find the automation object: its class and where the
// program is, its interface and the type library inside the program. All keys lie below
// "Software\Classes", and all of them are the program's own, so that unregistering can remove them
// whole.
#pragma once

#include <string>
#include <vector>

#include "automation/command_line.h"

namespace taviro {

struct RegistryValue {
    std::wstring strKey;
    std::wstring strName;  ///< empty for the key's default value
    std::wstring strText;
};

/// All values for a program at this path.
std::vector<RegistryValue> RegistrationValues(const std::wstring& strProgramPath);

/// A key that goes with everything below it.
struct RegistryTree {
    std::wstring strParent;  ///< empty for "Software\Classes" itself
    std::wstring strKey;
};
std::vector<RegistryTree> RegistrationTrees();

/// Common keys that registering may have made and that go when nothing else is in them, in this
/// order; the empty one is "Software\Classes" itself.
std::vector<std::wstring> RegistrationParents();

/// What the user reads when the order failed for this reason of the system.
std::wstring RegistrationFailure(const StartOrder& Order, const std::wstring& strReason);

}  // namespace taviro
